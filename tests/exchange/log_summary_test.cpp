#include "exchange/log_summary.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/day.h"
#include "tests/core/entries.h"

namespace tarvik::exchange {
namespace {

using core::NapiAdat;
using core::Ratio;
using test::fuelling;

// 30 litres over the 500 kilometres behind the first fill-up; 42,000 forints for 70 litres.
TEST(ASummary, SumsFillUpsAndCostsUp) {
  std::vector<NapiAdat> entries{fuelling({2024, 1, 9}, 1'500, 300'000, true),
                                fuelling({2024, 1, 5}, 1'000, 400'000, true),
                                fuelling({2024, 2, 5}, 1'600, 0, false)};
  entries[0].TankoltKtg = 18'000;
  entries[1].TankoltKtg = 24'000;
  entries[2].TankoltKtg = 0;
  entries[2].AlkatreszKtg = 100;
  entries[2].MegjKtg = 50;
  const LogSummary summary = summaryOf(entries);
  EXPECT_EQ(summary.entries, 3);
  EXPECT_EQ(summary.from, core::dayOf({2024, 1, 5}));
  EXPECT_EQ(summary.to, core::dayOf({2024, 2, 5}));
  EXPECT_EQ(summary.kilometres, 600);
  EXPECT_EQ(summary.litres, Ratio(70));
  EXPECT_EQ(summary.forints, 42'150);
  EXPECT_EQ(summary.consumption, Ratio(6));
  EXPECT_EQ(summary.forintsPerLitre, Ratio(600));
}

// 40 litres over 500 kilometres: the first of the two fill-ups at the lowest reading is left aside, and the
// service before both.
TEST(ASummary, CountsTheLitresBehindTheFirstFillUp) {
  const std::vector<NapiAdat> entries{
      fuelling({2024, 1, 5}, 1'000, 400'000, true), fuelling({2024, 1, 5}, 1'000, 100'000, true),
      fuelling({2024, 1, 9}, 1'500, 300'000, true), fuelling({2024, 1, 1}, 900, 0, false)};
  EXPECT_EQ(summaryOf(entries).consumption, Ratio(8));
}

TEST(ASummary, HasNoAverageOfNothing) {
  const LogSummary none = summaryOf({});
  EXPECT_EQ(none.kilometres, 0);
  EXPECT_FALSE(none.from || none.consumption || none.forintsPerLitre);
  std::vector<NapiAdat> one{fuelling({2024, 1, 5}, 1'000, 10'000, true)};
  one[0].TankoltKtg = 0;
  EXPECT_FALSE(summaryOf(one).forintsPerLitre || summaryOf(one).consumption);
  one[0].TankoltKtg = 1;
  EXPECT_EQ(summaryOf(one).forintsPerLitre, Ratio(1));
  one[0].TankoltLiter = {0};
  EXPECT_FALSE(summaryOf(one).forintsPerLitre);
  one[0].Datum = 1e9;  // no day
  EXPECT_FALSE(summaryOf(one).from || summaryOf(one).to);
}

TEST(ASummary, TakesAHundredMillionLitresAtMostOfAnEntry) {
  for (const int sign : {1, -1}) {
    const std::vector<NapiAdat> entries{fuelling({2024, 1, 5}, 1'000, sign * 1'000'000'000'001, true)};
    EXPECT_EQ(summaryOf(entries).litres, Ratio(sign * 100'000'000));
  }
}

TEST(ASummary, IsOddOutsideOfWhatCarsDo) {
  for (const int usual : {2, 30})
    EXPECT_FALSE(LogSummary{.consumption = Ratio(usual)}.isConsumptionOdd()) << usual;
  for (const int odd : {1, 31}) EXPECT_TRUE(LogSummary{.consumption = Ratio(odd)}.isConsumptionOdd()) << odd;
  for (const int usual : {50, 2'000})
    EXPECT_FALSE(LogSummary{.forintsPerLitre = Ratio(usual)}.isPriceOdd()) << usual;
  for (const int odd : {49, 2'001})
    EXPECT_TRUE(LogSummary{.forintsPerLitre = Ratio(odd)}.isPriceOdd()) << odd;
  EXPECT_FALSE(LogSummary{}.isConsumptionOdd() || LogSummary{}.isPriceOdd());
}

}  // namespace
}  // namespace tarvik::exchange
