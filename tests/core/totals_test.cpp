#include "core/totals.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/failure.h"
#include "tests/core/entries.h"
#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFieldFailure;
using test::fuelling;
using test::listingOf;
using Text = std::optional<std::string>;
using Entries = std::vector<NapiAdat>;

Totals totalsOf(const Entries& entries) {
  Totals totals;
  updateTotals(listingOf(entries), totals);
  return totals;
}

// 40.5 litres at 10,000 km for 16,200 Ft, 30 litres at 10,400 km for 12,000 Ft.
Entries twoFuellings() {
  Entries entries{fuelling({2013, 7, 1}, 10'000, 405'000, true),
                  fuelling({2013, 7, 11}, 10'400, 300'000, true)};
  entries[0].TankoltKtg = 16'200;
  entries[1].TankoltKtg = 12'000;
  return entries;
}

NapiAdat costing(std::int32_t fuel, std::int32_t part, std::int32_t note) {
  NapiAdat entry = fuelling({2013, 7, 1}, 10'000, 0, false);
  entry.TankoltKtg = fuel;
  entry.AlkatreszKtg = part;
  entry.MegjKtg = note;
  return entry;
}

Totals earlierTexts() {
  return {.teljesKtg = "1 Ft.",
          .benzinKtg = "2 Ft.",
          .alkatreszKoltseg = "3 Ft.",
          .megtettKm = "4 Km.",
          .liter = "5, Liter",
          .fogyaszt = "6, Liter/100Km"};
}

// The sums.

TEST(Totals, AddUpTheListedRows) {
  const Totals totals = totalsOf(twoFuellings());
  EXPECT_EQ(totals.teljesKtg, "28 200 Ft.");
  EXPECT_EQ(totals.benzinKtg, "28 200 Ft.");
  EXPECT_EQ(totals.alkatreszKoltseg, " Ft.");
  EXPECT_EQ(totals.megtettKm, "400 Km.");
  EXPECT_EQ(totals.liter, "70,5 Liter");
}

TEST(Totals, FractionOfTheFirstRowsLitresIsDroppedFromTheAverage) {
  EXPECT_EQ(totalsOf(twoFuellings()).fogyaszt, "7,63 Liter/100Km");  // (70.5 - 40) / 400 × 100 = 7.625
}

TEST(Totals, LitresBelowOneInTheFirstRowAreNotTakenOff) {
  const Totals totals =
      totalsOf({fuelling({2013, 7, 1}, 10'000, 9'900, true), fuelling({2013, 7, 2}, 10'100, 70'100, true)});
  EXPECT_EQ(totals.liter, "8, Liter");
  EXPECT_EQ(totals.fogyaszt, "8, Liter/100Km");
}

TEST(Totals, CostOf1234567IsGroupedInThrees) {
  const Totals totals = totalsOf({costing(1'000'000, 234'000, 560), costing(0, 0, 7)});
  EXPECT_EQ(totals.teljesKtg, "1 234 567 Ft.");
  EXPECT_EQ(totals.benzinKtg, "1 000 000 Ft.");
  EXPECT_EQ(totals.alkatreszKoltseg, "234 567 Ft.");
}

TEST(Totals, NegativeCostsKeepTheirSign) {
  const Totals totals = totalsOf({costing(1'000, -3'500, 0)});
  EXPECT_EQ(totals.teljesKtg, "-2 500 Ft.");
  EXPECT_EQ(totals.benzinKtg, "1 000 Ft.");
  EXPECT_EQ(totals.alkatreszKoltseg, "-3 500 Ft.");
}

TEST(Totals, CountTheRowsOfTheFilterAlone) {
  Entries entries = twoFuellings();
  entries.insert(entries.begin(), fuelling({2012, 1, 1}, 1'000, 990'000, true));
  Totals totals;
  updateTotals(listingOf(entries, {kYearList, dayOf({2013, 1, 1})}), totals);
  EXPECT_EQ(totals.megtettKm, "400 Km.");
  EXPECT_EQ(totals.fogyaszt, "7,63 Liter/100Km");
}

TEST(Totals, FallingReadingsGiveANegativeDistance) {
  Entries entries = twoFuellings();
  entries[1].KmOra = 9'600;
  const Totals totals = totalsOf(entries);
  EXPECT_EQ(totals.megtettKm, "-400 Km.");
  EXPECT_EQ(totals.fogyaszt, "-7,63 Liter/100Km");
}

// What stays.

TEST(Totals, OneRowShowsItsLitresAndKeepsTheConsumption) {
  Totals totals = earlierTexts();
  updateTotals(listingOf({fuelling({2013, 7, 1}, 10'000, 405'000, true)}), totals);
  EXPECT_EQ(totals.megtettKm, " Km.");
  EXPECT_EQ(totals.liter, "40,5 Liter");
  EXPECT_EQ(totals.fogyaszt, "6, Liter/100Km");
}

TEST(Totals, DistanceOfZeroKeepsTheConsumption) {
  Entries entries = twoFuellings();
  entries[1].KmOra = entries[0].KmOra;
  Totals totals = earlierTexts();
  updateTotals(listingOf(entries), totals);
  EXPECT_EQ(totals.fogyaszt, "6, Liter/100Km");
}

TEST(Totals, EmptyListingKeepsTheCostsAndClearsTheRest) {
  Totals totals = earlierTexts();
  updateTotals(listingOf({}), totals);
  EXPECT_EQ(totals.teljesKtg, "1 Ft.");
  EXPECT_EQ(totals.benzinKtg, "2 Ft.");
  EXPECT_EQ(totals.alkatreszKoltseg, "3 Ft.");
  EXPECT_EQ(totals.megtettKm, "");
  EXPECT_EQ(totals.liter, "");
  EXPECT_EQ(totals.fogyaszt, "");
  EXPECT_EQ(totalFigures(listingOf({})).distanceKm, 0);
}

// Sums that leave their type.

TEST(Totals, SumPast32BitsFailsAndTheTextsOfTheRowsBeforeStand) {
  Totals totals = earlierTexts();
  const Listing listing =
      listingOf({costing(2'000'000'000, 5, 0), costing(147'483'643, 0, 0), costing(1, 0, 0)});
  expectFieldFailure(FailureKind::OutOfRange, "tx_teljes_ktg", [&] { updateTotals(listing, totals); });
  // After the second row the sum had not left its type: 2,147,483,648 is the first that does.
  EXPECT_EQ(totals.teljesKtg, "2000 000 005 Ft.");
  EXPECT_EQ(totals.benzinKtg, "2000 000 000 Ft.");
  EXPECT_EQ(totals.alkatreszKoltseg, "5 Ft.");
  EXPECT_EQ(totals.megtettKm, "4 Km.");
}

TEST(Totals, SumOfExactlyTheHighestFigureStands) {
  EXPECT_EQ(totalsOf({costing(2'000'000'000, 5, 0), costing(147'483'642, 0, 0)}).teljesKtg,
            "2147 483 647 Ft.");
}

TEST(Totals, FirstRowThatDoesNotFitLeavesTheEarlierTexts) {
  Totals totals = earlierTexts();
  const Listing listing = listingOf({costing(2'000'000'000, 2'000'000'000, 0)});
  expectFieldFailure(FailureKind::OutOfRange, "tx_teljes_ktg", [&] { updateTotals(listing, totals); });
  EXPECT_EQ(totals.teljesKtg, "1 Ft.");
  EXPECT_EQ(totals.fogyaszt, "6, Liter/100Km");
}

TEST(Totals, FuelCostPast32BitsFailsThoughTheWholeFits) {
  Totals totals;
  const Listing listing =
      listingOf({costing(2'000'000'000, -2'000'000'000, 0), costing(2'000'000'000, 0, 0)});
  expectFieldFailure(FailureKind::OutOfRange, "ob_ktg", [&] { updateTotals(listing, totals); });
}

TEST(Totals, LitresPast64BitsFail) {
  const auto lots = fuelling({2013, 7, 1}, 1, std::numeric_limits<std::int64_t>::max(), false);
  Totals totals;
  expectFieldFailure(FailureKind::OutOfRange, "tx_liter", [&] {
    updateTotals(listingOf({lots, lots}), totals);
  });
  EXPECT_EQ(totals.teljesKtg, " Ft.");
}

TEST(Totals, DistancePast32BitsFailsAfterTheCostsAreShown) {
  using Limits = std::numeric_limits<std::int32_t>;
  Entries entries = twoFuellings();
  entries[0].KmOra = Limits::min();
  entries[1].KmOra = Limits::max();
  Totals totals = earlierTexts();
  expectFieldFailure(FailureKind::OutOfRange, "tx_megtett_km",
                     [&] { updateTotals(listingOf(entries), totals); });
  EXPECT_EQ(totals.teljesKtg, "28 200 Ft.");
  EXPECT_EQ(totals.megtettKm, "4 Km.");
}

// The hints per day.

Listing spanning(CalendarDate first, CalendarDate last) {
  return listingOf(
      {fuelling(first, 1, 0, false), fuelling({1999, 1, 1}, 2, 0, false), fuelling(last, 3, 0, false)});
}

Listing tenDays() {
  return spanning({2013, 7, 1}, {2013, 7, 11});
}

TEST(DailyHint, OfACostIsDividedInWholeForints) {
  EXPECT_EQ(costPerDay(tenDays(), "1 234 567 Ft."), Text("123456,-Ft/nap"));
  EXPECT_EQ(costPerDay(tenDays(), "-1 239 Ft."), Text("-123,-Ft/nap"));
  EXPECT_EQ(costPerDay(tenDays(), " Ft."), Text("0,-Ft/nap"));
  EXPECT_EQ(costPerDay(tenDays(), ""), Text("0,-Ft/nap"));
}

TEST(DailyHint, OfTheLitresLosesTheirFractionInTheReadBack) {
  EXPECT_EQ(litresPerDay(tenDays(), "70,9 Liter"), Text("7,00 liter/nap"));
  EXPECT_EQ(litresPerDay(tenDays(), "5, Liter"), Text("0,50 liter/nap"));
  EXPECT_EQ(litresPerDay(tenDays(), "1 234,5 Liter"), Text("123,40 liter/nap"));
  EXPECT_EQ(litresPerDay(tenDays(), ",5 Liter"), Text("0,00 liter/nap"));
}

TEST(DailyHint, OfTheDistanceHasTwoDigitsAtLeastAndGroups) {
  EXPECT_EQ(kmPerDay(tenDays(), "454 Km."), Text("45 km/nap"));
  EXPECT_EQ(kmPerDay(tenDays(), "50 Km."), Text("05 km/nap"));
  EXPECT_EQ(kmPerDay(tenDays(), "12 345 Km."), Text("1\xC2\xA0"
                                                    "235 km/nap"));
  EXPECT_EQ(kmPerDay(tenDays(), " Km."), Text("00 km/nap"));
}

TEST(DailyHint, NeedsTwoRowsAndTwoDaysThatCanBeRead) {
  EXPECT_EQ(costPerDay(spanning({2013, 7, 1}, {2013, 7, 2}), "100"), std::nullopt);
  EXPECT_EQ(costPerDay(spanning({2013, 7, 1}, {2013, 7, 3}), "100"), Text("50,-Ft/nap"));
  EXPECT_EQ(kmPerDay(spanning({2013, 7, 1}, {2013, 7, 1}), "100"), std::nullopt);
  EXPECT_EQ(litresPerDay(spanning({2013, 7, 11}, {2013, 7, 1}), "100"), std::nullopt);
  EXPECT_EQ(costPerDay(listingOf({}), "100"), std::nullopt);
  EXPECT_EQ(litresPerDay(listingOf({fuelling({2013, 7, 1}, 1, 0, false)}), "100"), std::nullopt);
  Entries entries = twoFuellings();
  entries[1].Datum = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(costPerDay(listingOf(entries), "100"), std::nullopt);
}

TEST(DailyHint, CountsFromTheFirstToTheLastListedRow) {
  const Entries entries{fuelling({2012, 1, 1}, 1, 0, false), fuelling({2013, 7, 1}, 2, 0, false),
                        fuelling({2013, 7, 5}, 3, 0, false), fuelling({2014, 1, 1}, 4, 0, false)};
  const Listing listing = listingOf(entries, {kYearList, dayOf({2013, 1, 1})});
  EXPECT_EQ(costPerDay(listing, "100 Ft."), Text("25,-Ft/nap"));
}

}  // namespace
}  // namespace tarvik::core
