#include "core/yearly_totals.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/core/entries.h"
#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFieldFailure;
using test::fuelling;
using Entries = std::vector<NapiAdat>;
using Cells = std::vector<std::string>;

std::vector<YearLine> linesOf(const Entries& entries) {
  return yearlyTotals(Logbook::of(entries));
}

NapiAdat costing(NapiAdat entry, std::int32_t fuel, std::int32_t part, std::int32_t note) {
  entry.TankoltKtg = fuel;
  entry.AlkatreszKtg = part;
  entry.MegjKtg = note;
  return entry;
}

// Two fill-ups of 2012 and of 2013 each, with a part and a note in the later year.
Entries twoYears() {
  return {costing(fuelling({2012, 1, 5}, 10'000, 405'000, true), 16'200, 0, 0),
          costing(fuelling({2012, 12, 28}, 10'400, 300'000, true), 12'000, 0, 0),
          costing(fuelling({2013, 1, 9}, 10'900, 350'000, true), 14'350, 8'000, 0),
          costing(fuelling({2013, 6, 1}, 11'700, 480'000, true), 20'160, 0, 1'500)};
}

TEST(YearlyTotals, HasALineAYearNewestFirstAndOneOfAllEntries) {
  const auto lines = linesOf(twoYears());
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(yearCells(lines[0]),
            (Cells{"2013", "800", "83,00", "6,00", "415,78", "34 510", "8 000", "1 500", "44 010", "55,01"}));
  EXPECT_EQ(yearCells(lines[1]),
            (Cells{"2012", "400", "70,50", "7,63", "400,00", "28 200", "0", "0", "28 200", "70,50"}));
  EXPECT_EQ(yearCells(lines[2]), (Cells{"Összesen", "1 700", "153,50", "6,68", "408,53", "62 710", "8 000",
                                        "1 500", "72 210", "42,48"}));
}

TEST(YearlyTotals, HasAHeadForEachCell) {
  EXPECT_EQ(yearHeads(), (Cells{"Év", "Km", "Liter", "l/100 km", "Ft/l", "Üzemanyag (Ft)", "Alkatrész (Ft)",
                                "Egyéb (Ft)", "Összesen (Ft)", "Ft/km"}));
}

TEST(YearlyTotals, IsEmptyWithoutEntries) {
  EXPECT_TRUE(linesOf({}).empty());
}

TEST(YearlyTotals, LeavesEmptyWhatCannotBeComputed) {
  const auto lines = linesOf({costing(fuelling({2013, 7, 1}, 10'000, 0, false), 0, 0, 2'000)});
  EXPECT_EQ(yearCells(lines[0]), (Cells{"2013", "0", "0,00", "", "", "0", "0", "2 000", "2 000", ""}));
}

TEST(YearlyTotals, AnEntryWithADamagedDateIsInTheLineOfAllAlone) {
  Entries entries = twoYears();
  entries[3].Datum = std::numeric_limits<double>::quiet_NaN();
  const auto lines = linesOf(entries);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].figures.totalFt, 22'350);
  EXPECT_EQ(lines[2].figures.totalFt, 72'210);
}

TEST(YearlyTotals, YearsOutOfOrderAreOneLineEach) {
  Entries entries = twoYears();
  std::swap(entries[0], entries[2]);
  const auto lines = linesOf(entries);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].year, 2013);
  EXPECT_EQ(lines[1].year, 2012);
}

TEST(YearlyTotals, ASumThatLeavesItsTypeIsTold) {
  constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
  const Entries entries{costing(fuelling({2012, 1, 1}, 1, 0, false), kMost, 0, 0),
                        costing(fuelling({2013, 1, 1}, 2, 0, false), 1, 0, 0)};
  expectFieldFailure(FailureKind::OutOfRange, "tx_teljes_ktg", [&] { linesOf(entries); });
}

}  // namespace
}  // namespace tarvik::core
