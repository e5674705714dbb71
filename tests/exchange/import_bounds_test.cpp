#include <gmock/gmock.h>

#include <limits>

#include "exchange/own_format.h"
#include "tests/core/entries.h"
#include "tests/exchange/reading.h"

// What is noticed of the entries of a plan, at each bound, and what goes when a tick changes.

namespace tarvik::test {
namespace {

using core::NapiAdat;
using core::Ratio;
using exchange::Doubt;
using exchange::ImportPlan;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

ImportPlan planOfRows(const std::string& rows, const core::Logbook& logbook = {}) {
  return planOf(readLog(logOf(rows)), logbook);
}

std::vector<int> wholeReadings(const ImportPlan& plan) {
  std::vector<int> found;
  for (const NapiAdat& entry : plan.whole) found.push_back(entry.KmOra);
  return found;
}

TEST(APlan, NoticesALitreOfLessThan50OrMoreThan2000Forints) {
  const auto doubts = [](const std::string& litresAndCost) {
    return planOfRows("2024-01-01,1000," + litresAndCost + ",1,0,\n").entries.at(0).doubts;
  };
  for (const char* bill : {"40,2000", "40,80000", "40,0", "0.00001,500"})  // the last is stored as no litres
    EXPECT_THAT(doubts(bill), IsEmpty()) << bill;
  for (const char* bill : {"40,1999", "40,80001", "1,2001"})
    EXPECT_THAT(doubts(bill), ElementsAre(Doubt::PriceOdd)) << bill;
}

TEST(APlan, NoticesNoPriceWhoseMoneyIsNotKnown) {
  const auto doubts = [](const std::string& head, const exchange::Choices& choices) {
    return planOf(readLog("Datum;Kilometerstand;Liter;" + head + "\n2024-01-05;48210;40;60\n", choices))
        .entries.at(0)
        .doubts;
  };
  EXPECT_THAT(doubts("Betrag", {}), IsEmpty());
  EXPECT_THAT(doubts("Betrag (€)", {}), IsEmpty());
  EXPECT_THAT(doubts("Betrag (€)", {.rates = {{"EUR", Ratio(1)}}}), ElementsAre(Doubt::PriceOdd));
  NapiAdat own = fuelling({2024, 1, 5}, 1'000, 400'000, true);
  own.TankoltKtg = 1;
  const core::Listing listing{core::Logbook::of(std::vector<NapiAdat>{own}), {1}};
  EXPECT_THAT(planOf(readLog(exchange::csvOf(listing).substr(3))).entries.at(0).doubts,
              Not(Contains(Doubt::PriceOdd)));
}

TEST(APlan, ForgetsAJumpOrAFallWithTheEntryBeforeIt) {
  for (const auto& [first, doubt] : std::vector<std::pair<const char*, Doubt>>{
           {"1000", Doubt::OdometerJumps}, {"5000", Doubt::OdometerFalls}}) {
    auto plan =
        planOfRows(std::string("2024-01-01,") + first + ",40,24000,1,0,\n2024-01-02,4001,40,24000,1,0,\n");
    EXPECT_THAT(plan.entries[1].doubts, Contains(doubt));
    plan.entries[0].isTaken = false;
    exchange::settle(plan, {.logbook = {}});
    EXPECT_THAT(plan.entries[1].doubts, Not(Contains(doubt)));
    EXPECT_EQ(plan.entries[1].distance, 0);
  }
  EXPECT_THAT(
      planOfRows("2024-01-01,1000,40,24000,1,0,\n2024-01-02,4000,400,240000,1,0,\n").entries[1].doubts,
      Not(Contains(Doubt::OdometerJumps)));
}

// No distance to the second entry, and 40 litres over 100 kilometres.
TEST(APlan, ForgetsWhatItNoticedOfAConsumptionWithTheEntryBeforeIt) {
  for (const auto& [reading, doubt] : std::vector<std::pair<const char*, Doubt>>{
           {"1500", Doubt::NoConsumption}, {"1600", Doubt::ConsumptionOdd}}) {
    auto plan =
        planOfRows(std::string("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n2024-01-03,") +
                   reading + ",40,24000,1,0,\n");
    plan.entries[2].isTaken = true;
    EXPECT_THAT(plan.entries[2].doubts, ElementsAre(doubt));
    plan.entries[1].isTaken = false;
    exchange::settle(plan, {.logbook = {}});
    EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::UntickedBefore));
  }
}

TEST(APlan, NoticesMoreThanATankOfOneLitre) {
  EXPECT_THAT(planOf(readLog(logOf("2024-01-01,1000,2,1200,1,0,\n")), {}, exchange::Place::InOrder, 1)
                  .entries.at(0)
                  .doubts,
              ElementsAre(Doubt::MoreThanTank));
}

TEST(APlan, TellsAnEntryOfOneBeforeItThatIsUntickedAndTookFuel) {
  const core::Logbook logbook =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 1'000, 400'000, true)});
  EXPECT_THAT(
      planOfRows("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n", logbook).entries[1].doubts,
      Not(Contains(Doubt::UntickedBefore)));
  auto plan = planOfRows(
      "2024-01-01,1000,,500,0,0,wash\n2024-01-02,1500,40,24000,1,0,\n2024-01-03,1600,,500,0,0,wash\n2024-01-"
      "04,2000,40,24000,1,0,\n");
  plan.entries[0].isTaken = false;
  exchange::settle(plan, {.logbook = {}});
  EXPECT_THAT(plan.entries[1].doubts, Not(Contains(Doubt::UntickedBefore)));
  plan.entries[1].isTaken = false;
  exchange::settle(plan, {.logbook = {}});
  EXPECT_THAT(plan.entries[2].doubts, Not(Contains(Doubt::UntickedBefore)));
  EXPECT_THAT(plan.entries[3].doubts, Contains(Doubt::UntickedBefore));
  plan.entries[1].isTaken = true;
  exchange::settle(plan, {.logbook = {}});
  EXPECT_THAT(plan.entries[3].doubts, Not(Contains(Doubt::UntickedBefore)));
}

TEST(APlan, PutsEachEntryBeforeTheFirstLaterOneByDayThenReading) {
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{
      fuelling({2024, 1, 5}, 1'500, 400'000, true), fuelling({2024, 1, 9}, 2'000, 400'000, true)});
  const auto plan = planOfRows(
      "2024-01-04,1900,40,24000,1,0,\n2024-01-05,1000,40,24000,1,0,\n2024-01-05,1600,40,24000,1,0,\n2024-01-"
      "09,2000,30,18000,1,0,\n",
      logbook);
  EXPECT_THAT(wholeReadings(plan), ElementsAre(1'900, 1'000, 1'500, 1'600, 2'000, 2'000));
  EXPECT_EQ(plan.whole.back().TankoltLiter.tenThousandths, 300'000);
}

TEST(APlan, KnowsAServiceAgainByItsTextsAndCosts) {
  NapiAdat there{.KmOra = 1'000, .Datum = core::toStored(core::dayOf({2024, 1, 5}))};
  there.Megjegyzes = core::FixedText<50>("mosás");
  there.Alkatresz = core::FixedText<50>("szűrő");
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{there});
  std::vector<NapiAdat> others(5, there);
  others[1].Megjegyzes = core::FixedText<50>("olaj");
  others[2].Alkatresz = core::FixedText<50>("olaj");
  others[3].MegjKtg = 1;
  others[4].AlkatreszKtg = 1;
  for (std::size_t i = 0; i < others.size(); ++i) {
    const core::Listing listing{core::Logbook::of(std::vector<NapiAdat>{others[i]}), {1}};
    const auto plan = planOf(readLog(exchange::csvOf(listing).substr(3)), logbook);
    EXPECT_EQ(plan.entries.at(0).doubts.contains(Doubt::AlreadyThere), i == 0) << i;
    EXPECT_EQ(plan.entries.at(0).isTaken, i != 0) << i;
  }
  EXPECT_TRUE(planOfRows("2024-01-05,1000,40,24000,1,0,\n", logbook).entries.at(0).isTaken);  // a fill-up
  const core::Listing blank{core::Logbook::of(std::vector<NapiAdat>{NapiAdat{}}), {1}};
  EXPECT_TRUE(planOf(readLog(exchange::csvOf(blank).substr(3)), logbook).entries.at(0).isTaken);
}

TEST(APlan, TakesNoLitresForThoseOfADamagedRecordAtTheOtherEndOfTheirField) {
  NapiAdat damaged = fuelling({2024, 1, 5}, 1'000, 0, true);
  damaged.TankoltLiter = {std::numeric_limits<std::int64_t>::min()};
  const auto plan = planOfRows("2024-01-05,1000,922337203685477.5807,24000,1,0,\n",
                               core::Logbook::of(std::vector<NapiAdat>{damaged}));
  EXPECT_EQ(plan.entries.at(0).entry.TankoltLiter.tenThousandths, std::numeric_limits<std::int64_t>::max());
  EXPECT_THAT(plan.entries.at(0).doubts, Not(Contains(Doubt::AlreadyThere)));
}

TEST(APlan, OfAnOwnFileWithoutItsConsumptionsWorksThemOut) {
  const core::Listing listing{
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 5}, 1'000, 400'000, true)}), {1}};
  const std::string whole = exchange::csvOf(listing).substr(3);
  EXPECT_TRUE(planOf(readLog(whole)).isOwn);
  EXPECT_TRUE(planOf(readLog(whole, {.columns = {{14, exchange::Meaning::Day}}})).isOwn);  // there are 14
  std::string without = whole;
  without.replace(without.find(";Fogyasztás (liter/100 km)"),
                  std::string(";Fogyasztás (liter/100 km)").size(), "");
  without.erase(without.rfind(";0"), 2);
  EXPECT_FALSE(planOf(readLog(without)).isOwn);
  EXPECT_EQ(planOf(readLog(without)).entries.size(), 1U);
  const ReadLog own = readLog(whole);
  EXPECT_TRUE(own.reading.hasCosts);
  EXPECT_EQ(own.reading.sign, exchange::DecimalSign::Comma);
  std::string unnamed = whole;
  unnamed.replace(unnamed.find("Km óra állás"), std::string("Km óra állás").size(), "Zutty");
  EXPECT_THAT(readLog(unnamed).reading.open, ElementsAre(exchange::Question::OdometerColumn));
}

TEST(APlan, OfAnOwnFileTakesDaysAsASpreadsheetOfAnotherCountryLeavesThem) {
  const core::Listing listing{
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 15}, 1'000, 400'000, true)}), {1}};
  std::string text = exchange::csvOf(listing).substr(3);
  text.replace(text.find("2024-01-15"), 10, "1/15/2024");
  EXPECT_EQ(planOf(readLog(text)).entries.at(0).entry.Datum, core::toStored(core::dayOf({2024, 1, 15})));
}

// Ten of the fourteen heads; the cell behind the last of them is of none.
TEST(AnOwnFile, HasTenOfItsHeadsAndNothingBehindThem) {
  const std::string heads =
      "Dátum;Km óra állás;Liter;Tankolt költség (Ft);Üzemanyag ár (Ft/liter);Tele tankolva;Olajcsere;"
      "Szűrőbetét csere;Gyertya csere";
  const std::string row = "\n2024-01-15;1000;40;24000;600;igen;nem;nem;nem";
  const ReadLog own = readLog(heads + ";Megjegyzés" + row + ";mosás;500\n");
  EXPECT_TRUE(own.reading.isOwn);
  EXPECT_EQ(own.rows.rows.at(0).own.value_or(NapiAdat{}).MegjKtg, 0);
  EXPECT_FALSE(readLog(heads + row + "\n").reading.isOwn);
}

TEST(APlan, TellsLettersThatCouldNotBeDecoded) {
  EXPECT_THAT(planOfRows("2024-01-01,1000,40,24000,1,0,j\xEF\xBF\xBD\n").entries.at(0).doubts,
              Contains(Doubt::LettersDamaged));
}

TEST(ALogOfDistances, AddsNothingForARowWithoutOne) {
  const std::string text =
      "Dátum;Megtett "
      "km;Liter;Ft;Megjegyzés\n2024.01.05.;640;41;25575;\n2024.01.09.;;;500;mosás\n2024.01.19.;510;31;18600;"
      "\n";
  const auto readings = [&](const exchange::Choices& choices) {
    std::vector<int> found;
    for (const auto& planned : planOf(readLog(text, choices)).entries) found.push_back(planned.entry.KmOra);
    return found;
  };
  EXPECT_THAT(readings({.tripStart = exchange::TripStart{true, Ratio(1'000)}}),
              ElementsAre(1'640, 1'640, 2'150));
  EXPECT_THAT(readings({}), ElementsAre(640, 640, 1'150));
}

}  // namespace
}  // namespace tarvik::test
