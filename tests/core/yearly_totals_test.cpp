#include "core/yearly_totals.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "tests/core/entries.h"
#include "tests/support/expect_failure.h"
#include "tests/support/reference_logbook.h"

namespace tarvik::core {
namespace {

using test::expectFieldFailure;
using test::fuelling;
using test::listingOf;
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
  EXPECT_EQ(yearHeads().size(), yearCells({}).size());
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

// Each line beside the totals of the list that is filtered to its year: the digits of the texts that stand
// below the list.

std::string digitsOf(const std::optional<std::string>& text) {
  std::string digits;
  for (const char character : text.value_or(""))
    if (character == ' ')
      continue;
    else if (std::string_view("-,0123456789").find(character) == std::string_view::npos)
      break;
    else
      digits += character;
  return digits;
}

// A text as the totals show it: "6,00" there is "6,", and a zero nothing.
std::string asTotal(std::string cell) {
  std::erase(cell, ' ');
  if (cell.find(',') != std::string::npos)
    while (cell.ends_with('0')) cell.pop_back();
  if (cell == "0" || cell == "0,") return cell == "0" ? "" : ",";
  if (cell.starts_with("0,")) cell.erase(0, 1);
  if (cell.starts_with("-0,")) cell.erase(1, 1);
  return cell;
}

void expectAgreement(const Entries& entries) {
  for (const YearLine& line : linesOf(entries)) {
    const ListFilter filter{.mode = line.year == 0 ? kWholeList : kYearList,
                            .picked = dayOf({line.year == 0 ? 2000 : line.year, 6, 1})};
    Totals totals;
    updateTotals(listingOf(entries, filter), totals);
    const Cells cells = yearCells(line);
    EXPECT_EQ(asTotal(cells[1]), digitsOf(totals.megtettKm)) << line.year;
    EXPECT_EQ(asTotal(cells[2]), digitsOf(totals.liter)) << line.year;
    EXPECT_EQ(asTotal(cells[3]), digitsOf(totals.fogyaszt)) << line.year;
    EXPECT_EQ(asTotal(cells[5]), digitsOf(totals.benzinKtg)) << line.year;
    EXPECT_EQ(asTotal(cells[8]), digitsOf(totals.teljesKtg)) << line.year;
  }
}

TEST(YearlyTotals, AgreeWithTheFilteredListsOfTheRealLog) {
  const std::string file = test::referenceLogbook(test::readFuelLog(TARVIK_TEST_DATA "/fuel_log_estate.csv"));
  Entries entries;
  for (std::size_t at = 0; at < file.size(); at += NapiAdat::kLength)
    entries.push_back(decoded<NapiAdat>(std::as_bytes(std::span(file)).subspan(at, NapiAdat::kLength)));
  ASSERT_EQ(entries.size(), 78u);
  expectAgreement(entries);
}

TEST(YearlyTotals, AgreeWithTheFilteredListsOfRandomLogs) {
  std::mt19937 random(27);
  const auto below = [&](std::uint32_t most) { return static_cast<std::int32_t>(random() % most); };
  for (int log = 0; log < 200; ++log) {
    Entries entries(1 + random() % 40);
    for (NapiAdat& entry : entries)
      entry = costing(fuelling({2000 + below(6), 1 + below(12), 1 + below(28)}, below(400'000),
                               below(900'000), below(2) == 0),
                      below(40'000), below(90'000) - 10'000, below(30'000));
    if (below(4) == 0) entries[0].Datum = -1e300;
    expectAgreement(entries);
  }
}

}  // namespace
}  // namespace tarvik::core
