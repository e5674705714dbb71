#include "core/statistics.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "tests/core/entries.h"

namespace tarvik::core {

void PrintTo(const Statistics& found, std::ostream* out) {
  for (const auto& text : {found.pillAtlag, found.datum, found.km, found.ftPerKm})
    *out << "[" << text.value_or("(unset)") << "] ";
}

namespace {

using test::fuelling;
using Entries = std::vector<NapiAdat>;

constexpr Statistics kNothing{};

// Four entries: from entry 2 to the last fuelling 1,000 km in 20 days, 50 km a day.
Entries fourEntries() {
  Entries entries{
      fuelling({2013, 1, 1}, 9'000, 400'000, true), fuelling({2013, 1, 11}, 10'000, 300'000, true),
      fuelling({2013, 1, 21}, 10'500, 200'000, false), fuelling({2013, 1, 31}, 11'000, 150'000, true)};
  for (NapiAdat& entry : entries) entry.FtPerLiter = {4'000'000};
  return entries;
}

// A tank of 50 litres, and 7 litres per 100 km: 714.28 km, 14 days at 50 km a day.
Statistics clicked(const Entries& entries, int selected, std::int16_t tank = 50,
                   std::string_view average = "7,63 Liter/100Km") {
  return statisticsOf(
      Logbook::of(entries),
      {.selected = selected, .tankSize = tank, .average = average, .today = dayOf({2013, 2, 4})});
}

// The table worked out by hand.

TEST(Statistics, OfTheLastFuellingCountFromToday) {
  // 15 + 20 litres since entry 2, 1,000 km: 3.5. 31 January + 14 days. Today is 10 days before: 10 × 50.
  EXPECT_EQ(clicked(fourEntries(), 4), (Statistics{"3,50", "2013.02.14.", "500", "28, Ft/Km"}));
}

TEST(Statistics, OfAnEarlierEntryCountFromItsOwnDate) {
  EXPECT_EQ(clicked(fourEntries(), 3),
            (Statistics{"Nem volt teletankolva!", "2013.02.04.", "700", "28, Ft/Km"}));
}

TEST(Statistics, OfEntryOneHaveAnEmptyConsumption) {
  EXPECT_EQ(clicked(fourEntries(), 1), (Statistics{"", "2013.01.15.", "700", "28, Ft/Km"}));
}

TEST(Statistics, OfAnEarlierEntryMayWalkBackToEntryOne) {
  // The bound comes from the last fuelling, so entry 1 is read here: 30 litres, 1,000 km.
  EXPECT_EQ(clicked(fourEntries(), 2), (Statistics{"3,00", "2013.01.25.", "700", "28, Ft/Km"}));
}

TEST(Statistics, EntryWithoutFuelSaysSo) {
  Entries entries = fourEntries();
  entries[2].TankoltLiter = {};
  EXPECT_EQ(clicked(entries, 3).pillAtlag, "Nem volt tankolás!");
}

TEST(Statistics, FullFillWithoutFuelShowsItsFigure) {
  Entries entries = fourEntries();
  entries[2].TankoltLiter = {};
  entries[2].Teletank = kFlagSet;
  EXPECT_EQ(clicked(entries, 3).pillAtlag, ",00");
}

TEST(Statistics, PreviousFullFillCountsEvenWithoutLitres) {
  Entries entries = fourEntries();
  entries[2].TankoltLiter = {};
  entries[2].Teletank = kFlagSet;
  EXPECT_EQ(clicked(entries, 4).pillAtlag, "3,00");  // 15 litres on the 500 km since entry 3
}

TEST(Statistics, FlagOfOneIsNoFullFill) {
  Entries entries = fourEntries();
  entries[2].Teletank = 1;
  EXPECT_EQ(clicked(entries, 4).pillAtlag, "3,50");
  EXPECT_EQ(clicked(entries, 3).pillAtlag, "Nem volt teletankolva!");
}

// The bound of the walk.

TEST(Statistics, LastFuellingWithoutAFullFillBackToTheBoundKeepsItsConsumption) {
  Entries entries = fourEntries();
  entries[1].Teletank = kFlagClear;
  // The walk reads entries 3 and 2 and never 1; what follows counts from entry 2, the one read last:
  // 11 January + 14 days, 10 days before today.
  EXPECT_EQ(clicked(entries, 4), (Statistics{std::nullopt, "2013.01.25.", "-500", "28, Ft/Km"}));
}

TEST(Statistics, EntryBehindTheLastFuellingWalksAsManyStepsAsThat) {
  Entries entries = fourEntries();
  entries[3].Teletank = entries[1].Teletank = kFlagClear;
  entries.push_back(fuelling({2013, 2, 1}, 11'100, 0, false));
  entries.push_back(fuelling({2013, 2, 2}, 11'200, 0, true));
  // Last fuelling 4: three steps less one, entries 5 and 4. Entry 4's date + 14 days, from entry 4's date.
  EXPECT_EQ(clicked(entries, 6), (Statistics{std::nullopt, "2013.02.14.", "700", ", Ft/Km"}));
}

TEST(Statistics, WalkPastTheBeginningOfTheLogbookLeavesAllLabels) {
  Entries entries = fourEntries();
  entries[0].Teletank = kFlagClear;
  EXPECT_EQ(clicked(entries, 2), kNothing);  // bound 3: entry 1, then none
}

TEST(Statistics, LastFuellingIsTheLastEntryWithLitresAndReading) {
  Entries entries = fourEntries();
  entries.push_back(fuelling({2013, 3, 1}, 20'000, 0, false));
  entries.push_back(fuelling({2013, 3, 2}, 0, 400'000, true));
  EXPECT_EQ(clicked(entries, 4), (Statistics{"3,50", "2013.02.14.", "500", "28, Ft/Km"}));
}

TEST(Statistics, LastFuellingAtEntryOneRunsBackwardsFromEntryTwo) {
  // -500 km in -10 days are 50 km a day; the bound of 0 is never met.
  const Entries entries{fuelling({2013, 1, 1}, 9'000, 400'000, true),
                        fuelling({2013, 1, 11}, 9'500, 0, false)};
  EXPECT_EQ(clicked(entries, 2), (Statistics{"Nem volt tankolás!", "2013.01.25.", "700", ", Ft/Km"}));
  EXPECT_EQ(clicked(entries, 1), (Statistics{"", "2013.01.15.", "-1000", ", Ft/Km"}));
}

// What cannot be computed leaves the labels that are not set yet.

TEST(Statistics, WithoutATankASelectionOrAnAverageOfOneThereAreNone) {
  EXPECT_EQ(clicked(fourEntries(), 4, 0), kNothing);
  for (const int selected : {0, -1, 5}) EXPECT_EQ(clicked(fourEntries(), selected), kNothing) << selected;
  for (const char* average : {",99 Liter/100Km", ""})
    EXPECT_EQ(clicked(fourEntries(), 4, 50, average), kNothing) << average;
}

TEST(Statistics, OfALogbookThatCannotBeWorkedOutThereAreNone) {
  const std::pair<const char*, void (*)(Entries&)> changes[] = {
      {"no fuelling",
       [](Entries& entries) {
         for (NapiAdat& entry : entries) {
           entry.TankoltLiter = {};
           entry.KmOra += 120'000;
         }
       }},
      {"all on one day", [](Entries& entries) { entries[3].Datum = entries[1].Datum; }},
      {"19 km in 20 days", [](Entries& entries) { entries[3].KmOra = 10'019; }},
      {"a full fill at the reading of the previous one",
       [](Entries& entries) {
         entries[2].Teletank = kFlagSet;
         entries[2].KmOra = 11'000;
       }},
      {"a damaged date at the start",
       [](Entries& entries) { entries[1].Datum = std::numeric_limits<double>::infinity(); }}};
  for (const auto& [what, change] : changes) {
    Entries entries = fourEntries();
    change(entries);
    EXPECT_EQ(clicked(entries, 4), kNothing) << what;
  }
}

TEST(Statistics, ShortLogbooksHaveNone) {
  const Entries entries = fourEntries();
  EXPECT_EQ(clicked({}, 1), kNothing);
  EXPECT_EQ(clicked({entries[0]}, 1), kNothing);
  EXPECT_EQ(clicked({entries[0], entries[1]}, 2), kNothing);  // no days between entry 2 and itself
  // More km than there are days since 1899.
  EXPECT_EQ(clicked({fuelling({2013, 1, 1}, 120'000, 400'000, true)}, 1), kNothing);
}

TEST(Statistics, DamagedDateOfTheEntryKeepsTheConsumptionAlone) {
  Entries entries = fourEntries();
  entries[2].Datum = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(clicked(entries, 3),
            (Statistics{"Nem volt teletankolva!", std::nullopt, std::nullopt, std::nullopt}));
}

TEST(Statistics, DayBehindTheCalendarKeepsTheConsumptionAlone) {
  Entries entries = fourEntries();
  entries[3].KmOra = 10'020;  // 1 km a day, a tank for 3,276,700 days
  EXPECT_EQ(clicked(entries, 3, 32'767, "1,00 Liter/100Km"),
            (Statistics{"Nem volt teletankolva!", std::nullopt, std::nullopt, std::nullopt}));
}

// The figures.

TEST(Statistics, AverageLosesItsFraction) {
  EXPECT_EQ(clicked(fourEntries(), 3, 50, "7,99 Liter/100Km"), clicked(fourEntries(), 3, 50, "7"));
  EXPECT_EQ(clicked(fourEntries(), 3, 50, "1 000,50 Liter/100Km").ftPerKm, "4 000, Ft/Km");
}

TEST(Statistics, RangeIsRoundedBeforeItIsDividedHalvesToEven) {
  Entries entries = fourEntries();
  entries[1] = fuelling({2013, 1, 11}, 10'000, 300'000, true);
  entries[3] = fuelling({2013, 1, 12}, 10'563, 150'000, true);
  EXPECT_EQ(clicked(entries, 3, 45, "8").km, "0");  // 562.5 km count as 562, at 563 a day
  entries[3].KmOra = 10'588;
  EXPECT_EQ(clicked(entries, 3, 47, "8").km, "588");  // 587.5 km count as 588, at 588 a day
}

TEST(Statistics, KmADayAreTruncatedTowardsZero) {
  Entries entries = fourEntries();
  entries[3].KmOra = 11'019;  // 50.95
  EXPECT_EQ(clicked(entries, 3).km, "700");
  entries[3].KmOra = 8'981;  // -50.95 km a day, -14 days
  EXPECT_EQ(clicked(entries, 3), (Statistics{"Nem volt teletankolva!", "2013.01.07.", "700", "28, Ft/Km"}));
}

TEST(Statistics, NegativeAverageRunsBackInTime) {
  EXPECT_EQ(clicked(fourEntries(), 3, 50, "-7,63 Liter/100Km"),
            (Statistics{"Nem volt teletankolva!", "2013.01.07.", "-700", "-28, Ft/Km"}));
}

TEST(Statistics, NegativeTankRunsBackInTime) {
  EXPECT_EQ(clicked(fourEntries(), 3, -50).datum, "2013.01.07.");
}

TEST(Statistics, DayMayBeALeapDay) {
  Entries entries = fourEntries();
  for (NapiAdat& entry : entries)
    entry.Datum += toStored(dayOf({2024, 2, 15})) - toStored(dayOf({2013, 1, 21}));
  EXPECT_EQ(clicked(entries, 3).datum, "2024.02.29.");
}

TEST(Statistics, CostOfAKmRoundsHalvesAwayFromZero) {
  Entries entries = fourEntries();
  entries[2].FtPerLiter = {4'155'000};
  EXPECT_EQ(clicked(entries, 3).ftPerKm, "29,09 Ft/Km");  // 415.5 × 7 / 100 = 29.085
}

TEST(Statistics, ConsumptionRoundsHalvesAwayFromZero) {
  Entries entries = fourEntries();
  entries[3].TankoltLiter = {150'500};  // 15.05 + 20 litres on 1,000 km: 3.505
  EXPECT_EQ(clicked(entries, 4).pillAtlag, "3,51");
}

}  // namespace
}  // namespace tarvik::core
