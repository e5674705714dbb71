#include <gtest/gtest.h>

#include <limits>

#include "charts/scroll_view.h"
#include "charts/series.h"
#include "entries.h"

namespace tarvik::test {
namespace {

using charts::ChartPoint;
using core::NapiAdat;
using Points = std::vector<ChartPoint>;

// Entries whose consumption and price are their record number, in ten-thousandths.
std::vector<NapiAdat> numbered(int count) {
  std::vector<NapiAdat> entries(static_cast<std::size_t>(count), note(stored(2013, 7, 5)));
  for (std::size_t i = 0; i < entries.size(); ++i)
    entries[i].Fogyasztas = entries[i].FtPerLiter = {static_cast<std::int64_t>(i) + 1};
  return entries;
}

Points series(int choice, const std::vector<NapiAdat>& entries) {
  return charts::seriesOf(choice, logbookOf(entries), "7");
}

Points scrolled(int count, int first, const char* countText, bool limited) {
  return charts::consumptionsFrom(logbookOf(numbered(count)), {first, countText, limited});
}

// The record numbers of the first and the last point, and that all between are there.
void expectRecords(const Points& points, int first, int last) {
  ASSERT_EQ(points.size(), static_cast<std::size_t>(last - first + 1));
  for (std::size_t i = 0; i < points.size(); ++i)
    EXPECT_EQ(points[i], (ChartPoint{"2013.07.05.", {first + static_cast<std::int64_t>(i)}}));
}

// Of a logbook of so many records, the first and the last that a chart shows.
struct Shown {
  int count;
  int first;
  int last;
};

TEST(RecordCharts, ShowTheLastFiftyConsumptionsAndBelowFiftyThoseFromRecordTwo) {
  EXPECT_TRUE(series(1, {}).empty());
  EXPECT_TRUE(series(1, numbered(1)).empty());
  for (const Shown& shown : {Shown{10, 2, 10}, {49, 2, 49}, {50, 1, 50}, {51, 2, 51}, {150, 101, 150}})
    expectRecords(series(1, numbered(shown.count)), shown.first, shown.last);
}

TEST(RecordCharts, ShowTheLastHundredPrices) {
  EXPECT_TRUE(series(2, {}).empty());
  for (const Shown& shown :
       {Shown{1, 1, 1}, {10, 1, 10}, {99, 1, 99}, {100, 1, 100}, {101, 2, 101}, {150, 51, 150}})
    expectRecords(series(2, numbered(shown.count)), shown.first, shown.last);
}

TEST(RecordCharts, AreNoneForANumberThatNoChartHas) {
  EXPECT_TRUE(series(0, numbered(10)).empty());
  std::vector<NapiAdat> entries = numbered(10);
  for (NapiAdat& entry : entries) entry.TankoltKtg = 1;
  EXPECT_FALSE(series(7, entries).empty());
  EXPECT_TRUE(series(8, entries).empty());
}

TEST(RecordCharts, PassOverRecordsWithoutAPositiveValue) {
  std::vector<NapiAdat> entries = numbered(5);
  entries[2].Fogyasztas = {0};
  entries[3].Fogyasztas = {-1};
  EXPECT_EQ(series(1, entries), (Points{{"2013.07.05.", {2}}, {"2013.07.05.", {5}}}));
}

TEST(RecordCharts, LabelWithTheDateWhateverItsYear) {
  std::vector<NapiAdat> entries = numbered(4);
  entries[0].Datum = stored(1949, 12, 31);
  entries[1].Datum = stored(2050, 1, 1) + 0.75;
  entries[2].Datum = 0;
  entries[3].Datum = std::numeric_limits<double>::infinity();
  EXPECT_EQ(series(2, entries),
            (Points{{"1949.12.31.", {1}}, {"2050.01.01.", {2}}, {"1899.12.30.", {3}}, {"?", {4}}}));
}

TEST(RecordCharts, HaveNoPointsForAChoiceThatIsNoChart) {
  for (int choice : {-1, int{charts::kNoChart}, 8})
    EXPECT_TRUE(series(choice, numbered(20)).empty()) << choice;
}

TEST(ScrollView, ShowsOneRecordMoreThanTheCountUpToTheEnd) {
  expectRecords(scrolled(120, 10, "50", true), 10, 60);
  expectRecords(scrolled(120, 70, "50", true), 70, 120);
  expectRecords(scrolled(120, 100, "50", true), 100, 120);
}
TEST(ScrollView, RunsToTheEndWithoutALimit) {
  expectRecords(scrolled(120, 10, "5", false), 10, 120);
}
TEST(ScrollView, StartsAtRecordTwoBelowFifty) {
  expectRecords(scrolled(49, 30, "50", true), 2, 49);
  expectRecords(scrolled(49, 30, "5", true), 2, 7);
}
TEST(ScrollView, StartsAtTheScrollPositionFromFiftyOn) {
  expectRecords(scrolled(50, 30, "50", false), 30, 50);
  expectRecords(scrolled(50, 1, "50", true), 1, 50);
}
TEST(ScrollView, PassesOverAPositionThatIsNoRecord) {
  expectRecords(scrolled(60, 0, "5", true), 1, 5);
}
TEST(ScrollView, IsEmptyBehindTheEnd) {
  EXPECT_TRUE(scrolled(60, 61, "50", true).empty());
  EXPECT_TRUE(scrolled(0, 1, "50", false).empty());
  EXPECT_TRUE(scrolled(1, 1, "50", true).empty());
}
TEST(ScrollView, TakesFiftyForACountBelowFive) {
  expectRecords(scrolled(120, 10, "3", true), 10, 60);
}
TEST(ScrollView, EndsAtTheLogbooksEndForAnyGreatCount) {
  expectRecords(scrolled(60, 10, "999999999999999999999999", true), 10, 60);
}
TEST(ScrollView, RoundsTheLastRecordToTheEvenOne) {
  expectRecords(scrolled(120, 11, "5.5", true), 11, 16);
  expectRecords(scrolled(120, 12, "5.5", true), 12, 18);
}

TEST(UsableCount, KeepsFiveAndMore) {
  EXPECT_EQ(charts::usableCount("5"), "5");
  EXPECT_EQ(charts::usableCount("5,5 db"), "5,5 db");
  EXPECT_EQ(charts::usableCount("5000"), "5000");
}

TEST(UsableCount, ReplacesLessThanFive) {
  for (const char* text : {"3", "4.99", "4,99", "", "sok", "-50", "x50"})
    EXPECT_EQ(charts::usableCount(text), "50") << text;
}

TEST(RecordsPerView, AreTheCountsWholeNumberUpToTheHighestRecord) {
  EXPECT_EQ(charts::recordsPerView("20"), 20);
  EXPECT_EQ(charts::recordsPerView("4"), 50);
  EXPECT_EQ(charts::recordsPerView("99999999999"), 32'767);
}

}  // namespace
}  // namespace tarvik::test
