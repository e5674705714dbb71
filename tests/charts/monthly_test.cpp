#include <gtest/gtest.h>

#include <limits>

#include "charts/series.h"
#include "core/failure.h"
#include "entries.h"

namespace tarvik::test {
namespace {

using charts::ChartPoint;
using core::Amount;
using core::NapiAdat;
using Points = std::vector<ChartPoint>;

Amount whole(std::int64_t number) {
  return {number * 10'000};
}

Points series(int choice, const std::vector<NapiAdat>& entries, const char* average = "") {
  return charts::seriesOf(choice, logbookOf(entries), average);
}

// That many entries: the first ones plain notes of January 2010, the last ones as given.
std::vector<NapiAdat> padded(int count, const std::vector<NapiAdat>& last) {
  std::vector<NapiAdat> entries(static_cast<std::size_t>(count) - last.size(), note(stored(2010, 1, 1)));
  entries.insert(entries.end(), last.begin(), last.end());
  return entries;
}

// One fuelling a record, each in another month than the one before, paid as many forints as its number.
std::vector<NapiAdat> numberedMonths(int count) {
  std::vector<NapiAdat> entries;
  for (int number = 1; number <= count; ++number)
    entries.push_back(fuelling(stored(2000 + (number - 1) / 12, (number - 1) % 12 + 1, 5), number));
  return entries;
}

TEST(MonthlyCharts, SumTheFuellingsOfAMonth) {
  const Points points =
      series(3, {note(stored(2013, 6, 1)), fuelling(stored(2013, 7, 1), 12'000),
                 fuelling(stored(2013, 7, 20), 8'500), fuelling(stored(2013, 8, 3), 20'000)});
  EXPECT_EQ(points, (Points{{"2013. 7. hó", whole(20'500)}, {"2013. 8. hó", whole(20'000)}}));
}

TEST(MonthlyCharts, ReadNothingOfLessThanTwoRecords) {
  for (int choice = 3; choice <= 7; ++choice) {
    EXPECT_TRUE(series(choice, {}, "7").empty()) << choice;
    EXPECT_TRUE(series(choice, {fuelling(stored(2013, 7, 1), 12'000)}, "7").empty()) << choice;
  }
}

// Of so many months, how many are shown, and the first of them.
struct Shown {
  int months;
  std::size_t shown;
  int first;
};

TEST(MonthlyCharts, LeaveOutRecordOneAndShowAHundredAtTheMost) {
  for (const Shown& of : {Shown{10, 9, 2}, {99, 98, 2}, {100, 99, 2}, {101, 100, 2}, {150, 100, 51}}) {
    const Points points = series(3, numberedMonths(of.months));
    ASSERT_EQ(points.size(), of.shown);
    EXPECT_EQ(points.front().value, whole(of.first));
    EXPECT_EQ(points.back().value, whole(of.months));
  }
}

TEST(MonthlyCharts, AddToTheUnshownSlotWhileTheMonthOfRecordOneLasts) {
  std::vector<NapiAdat> entries = numberedMonths(100);
  entries[1].Datum = entries[0].Datum;
  const Points points = series(3, entries);
  ASSERT_EQ(points.size(), 98u);
  EXPECT_EQ(points.front(), (ChartPoint{"2000. 3. hó", whole(3)}));
}

TEST(MonthlyCharts, PutTheSameMonthOfTwoYearsIntoOneBucketLabelledWithTheLater) {
  const Points points = series(3, {note(stored(2011, 12, 1)), fuelling(stored(2012, 1, 10), 1'000),
                                   fuelling(stored(2013, 1, 20), 2'000)});
  EXPECT_EQ(points, (Points{{"2013. 1. hó", whole(3'000)}}));
}

TEST(MonthlyCharts, KeepTheBucketOverNotesOfItsMonth) {
  const Points points = series(3, {note(stored(2011, 12, 1)), fuelling(stored(2012, 1, 10), 1'000),
                                   note(stored(2012, 1, 31)), fuelling(stored(2013, 1, 20), 2'000)});
  EXPECT_EQ(points, (Points{{"2013. 1. hó", whole(3'000)}}));
}

TEST(MonthlyCharts, OpenABucketAfterANoteOfAnotherMonth) {
  const Points points = series(3, {note(stored(2011, 12, 1)), fuelling(stored(2012, 1, 10), 1'000),
                                   note(stored(2012, 2, 1)), fuelling(stored(2012, 1, 20), 2'000)});
  EXPECT_EQ(points, (Points{{"2012. 1. hó", whole(1'000)}, {"2012. 1. hó", whole(2'000)}}));
}

TEST(MonthlyCharts, AddToTheBucketBeforeAfterANoteOfTheFuellingsMonth) {
  const Points points = series(3, {note(stored(2011, 12, 1)), fuelling(stored(2012, 1, 10), 1'000),
                                   note(stored(2012, 2, 1)), fuelling(stored(2012, 2, 20), 2'000)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(3'000)}}));
}

TEST(MonthlyCharts, HideAFuellingThatFollowsANoteOfItsMonthBeforeAnyBucket) {
  const Points points = series(3, {note(stored(2012, 1, 1)), note(stored(2012, 2, 1)),
                                   fuelling(stored(2012, 2, 20), 2'000), fuelling(stored(2012, 3, 1), 500)});
  EXPECT_EQ(points, (Points{{"2012. 3. hó", whole(500)}}));
}

TEST(MonthlyCharts, TakeOneForintForAFuellingAndNothingOrLessForNone) {
  const Points points = series(3, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1),
                                   fuelling(stored(2012, 3, 1), 0), fuelling(stored(2012, 4, 1), -5)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(1)}}));
}

TEST(MonthlyCharts, GiveFuellingsWithADamagedDateAMonthOfTheirOwn) {
  const double damaged = std::numeric_limits<double>::quiet_NaN();
  const Points points = series(3, {note(stored(2012, 1, 1)), fuelling(damaged, 100), fuelling(1e300, 20),
                                   fuelling(stored(2012, 3, 1), 3)});
  EXPECT_EQ(points, (Points{{"?", whole(120)}, {"2012. 3. hó", whole(3)}}));
}

TEST(MonthlyCharts, IgnoreTheTimeOfDay) {
  const Points points = series(3, {note(0), fuelling(stored(2012, 1, 31) + 0.999, 1'000)});
  EXPECT_EQ(points, (Points{{"2012. 1. hó", whole(1'000)}}));
}

TEST(MonthlyDistance, IsTheDifferenceToTheFuellingBeforeEvenOfAnEarlierMonth) {
  const Points points =
      series(4, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1, 10'000),
                 fuelling(stored(2012, 2, 15), 1, 10'450), fuelling(stored(2012, 3, 5), 1, 11'000),
                 fuelling(stored(2012, 3, 6), 1, 11'020)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(450)}, {"2012. 3. hó", whole(570)}}));
  EXPECT_EQ(series(4, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1, 1),
                       fuelling(stored(2012, 2, 15), 1, 451)}),
            (Points{{"2012. 2. hó", whole(450)}}));
}

TEST(MonthlyDistance, AddsNothingForTheFirstFuellingOfTheRange) {
  const std::vector<NapiAdat> last{fuelling(stored(2012, 2, 1), 1, 5'000),
                                   fuelling(stored(2012, 3, 1), 1, 5'300)};
  EXPECT_EQ(series(4, padded(150, last)), (Points{{"2012. 2. hó", whole(0)}, {"2012. 3. hó", whole(300)}}));
}

TEST(MonthlyDistance, PassesOverTheReadingsOfEntriesWithoutFuel) {
  NapiAdat service = note(stored(2012, 2, 10));
  service.KmOra = 10'100;
  const Points points = series(4, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1, 10'000), service,
                                   fuelling(stored(2012, 2, 15), 1, 10'450)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(450)}}));
}

TEST(MonthlyDistance, AddsTheLastDistanceAgainAfterAReadingOfZero) {
  const Points points = series(4, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1, 1'000),
                                   fuelling(stored(2012, 3, 1), 1, 0), fuelling(stored(2012, 4, 1), 1, 1'500),
                                   fuelling(stored(2012, 5, 1), 1, 1'600)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(0)},
                            {"2012. 3. hó", whole(-1'000)},
                            {"2012. 4. hó", whole(-1'000)},
                            {"2012. 5. hó", whole(100)}}));
}

TEST(MonthlyDistance, AddsTheLastDistanceAgainAfterANegativeReading) {
  const Points points =
      series(4, {note(stored(2012, 1, 1)), fuelling(stored(2012, 2, 1), 1, -1'000),
                 fuelling(stored(2012, 3, 1), 1, 1'000), fuelling(stored(2012, 4, 1), 1, -500),
                 fuelling(stored(2012, 5, 1), 1, 1'500), fuelling(stored(2012, 6, 1), 1, 1'600)});
  EXPECT_EQ(points, (Points{{"2012. 2. hó", whole(0)},
                            {"2012. 3. hó", whole(0)},
                            {"2012. 4. hó", whole(-1'500)},
                            {"2012. 5. hó", whole(-1'500)},
                            {"2012. 6. hó", whole(100)}}));
}

TEST(MonthlyDistance, CountsTheUnshownSlotsReadings) {
  std::vector<NapiAdat> entries(100, note(stored(2012, 1, 1)));
  entries[0] = fuelling(stored(2012, 1, 1), 1, 700);
  entries[99] = fuelling(stored(2012, 2, 1), 1, 1'000);
  EXPECT_EQ(series(4, entries), (Points{{"2012. 2. hó", whole(300)}}));
}

TEST(MonthlyDistance, FailsPast32Bits) {
  const std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1, 2'000'000'000),
                                      fuelling(stored(2012, 3, 1), 1, -2'000'000'000)};
  EXPECT_THROW(series(4, entries), core::Failure);
}

TEST(MonthlyLitres, SumTheLitresOfAMonth) {
  std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1), fuelling(stored(2012, 2, 9), 1),
                                note(stored(2012, 2, 10))};
  entries[1].TankoltLiter = {405'000};
  entries[2].TankoltLiter = {1};
  entries[3].TankoltLiter = {990'000};  // not paid for: no fuelling
  EXPECT_EQ(series(5, entries), (Points{{"2012. 2. hó", {405'001}}}));
}

TEST(MonthlyLitres, FailPast64Bits) {
  std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1), fuelling(stored(2012, 2, 9), 1)};
  entries[1].TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
  entries[2].TankoltLiter = {1};
  EXPECT_THROW(series(5, entries), core::Failure);
}

TEST(MonthlyConsumption, IsDilutedByFuellingsWithoutOne) {
  std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1), fuelling(stored(2012, 2, 9), 1),
                                fuelling(stored(2012, 2, 20), 1)};
  entries[1].Fogyasztas = {72'000};
  entries[3].Fogyasztas = {66'000};
  EXPECT_EQ(series(6, entries), (Points{{"2012. 2. hó", {46'000}}}));
}

TEST(MonthlyConsumption, StartsItsCountAnewInEachMonthAndRoundsHalvesToEven) {
  std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1), fuelling(stored(2012, 2, 9), 1),
                                fuelling(stored(2012, 3, 1), 1), fuelling(stored(2012, 3, 9), 1)};
  entries[1].Fogyasztas = {60'001};
  entries[2].Fogyasztas = {70'000};
  entries[3].Fogyasztas = {60'003};
  entries[4].Fogyasztas = {70'000};
  EXPECT_EQ(series(6, entries), (Points{{"2012. 2. hó", {65'000}}, {"2012. 3. hó", {65'002}}}));
}

std::vector<NapiAdat> pricedFuellings() {
  std::vector<NapiAdat> entries{note(0), fuelling(stored(2012, 2, 1), 1), fuelling(stored(2012, 2, 9), 1),
                                fuelling(stored(2012, 3, 1), 1)};
  entries[1].FtPerLiter = {4'100'000};
  entries[2].FtPerLiter = {4'259'000};
  entries[3].FtPerLiter = {4'300'001};
  return entries;
}

TEST(CostPerHundredKm, IsTheLatestPriceOfTheMonthTimesTheAverage) {
  EXPECT_EQ(series(7, pricedFuellings(), "7"),
            (Points{{"2012. 2. hó", {29'813'000}}, {"2012. 3. hó", {30'100'007}}}));
}

TEST(CostPerHundredKm, DropsTheFractionBehindADecimalComma) {
  EXPECT_EQ(series(7, pricedFuellings(), "7,63 Liter/100Km"), series(7, pricedFuellings(), "7"));
}

TEST(CostPerHundredKm, TakesAFractionBehindAPoint) {
  EXPECT_EQ(series(7, pricedFuellings(), "7.5"),
            (Points{{"2012. 2. hó", {31'942'500}}, {"2012. 3. hó", {32'250'008}}}));
}

TEST(CostPerHundredKm, IsZeroWithoutAnAverage) {
  const Points zeros{{"2012. 2. hó", {0}}, {"2012. 3. hó", {0}}};
  EXPECT_EQ(series(7, pricedFuellings(), ""), zeros);
  EXPECT_EQ(series(7, pricedFuellings(), "nincs adat"), zeros);
  EXPECT_EQ(series(7, pricedFuellings(), ",5"), zeros);
}

TEST(CostPerHundredKm, DoesNotMindOdometerReadings) {
  std::vector<NapiAdat> entries = pricedFuellings();
  const std::int32_t readings[] = {123, -2'000'000'000, 2'000'000'000, -1};
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i].KmOra = readings[i];
  EXPECT_EQ(series(7, entries, "7"), series(7, pricedFuellings(), "7"));
}

}  // namespace
}  // namespace tarvik::test
