#include "reminders/estimate.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/machine_file_system.h"
#include "tests/reminders/builders.h"
#include "tests/support/expect_failure.h"

namespace tarvik::reminders {
namespace {

using test::entry;
using test::kmReminder;
using test::kToday;
using test::listOf;

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

Estimate estimateOf(std::initializer_list<core::NapiAdat> entries, std::int32_t reading, std::int32_t after) {
  return estimated(listOf(entries), kmReminder(reading, after, "Olaj", "ABC-123"), kToday);
}

// Entry 2 to the last: 1500 km in 30 days.
const std::initializer_list<core::NapiAdat> kFiftyADay{entry(1000, 40000), entry(10500, 41410),
                                                       entry(12000, 41440)};

TEST(Estimate, StartsAtEntryTwoAndNotAtEntryOne) {
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 5000), (Estimate{50, false, core::dayOf({2013, 9, 3})}));
}

TEST(Estimate, TruncatesTheAverageAndTheDays) {
  // 1499 km in 30 days are 49.97, so 49; 3001 km at 49 a day are 61.24 days.
  const auto result = estimateOf({entry(1, 1), entry(10501, 41410), entry(12000, 41440)}, 10000, 5001);
  EXPECT_EQ(result, (Estimate{49, false, core::dayOf({2013, 9, 4})}));
}

TEST(Estimate, OfADueReadingBehindTheLastIsOverdueAndInThePast) {
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1500), (Estimate{50, true, core::dayOf({2013, 6, 25})}));
}

TEST(Estimate, OfLessThanADayBehindIsTodayAndNotOverdue) {
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1951), (Estimate{50, false, kToday}));
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1950), (Estimate{50, true, core::addDays(kToday, -1)}));
}

TEST(Estimate, SkipsLastEntriesWithoutAReading) {
  const auto result = estimateOf(
      {entry(1, 1), entry(10500, 41410), entry(12000, 41440), entry(0, 41450), entry(0, 41455)}, 10000, 5000);
  EXPECT_EQ(result, (Estimate{50, false, core::dayOf({2013, 9, 3})}));
}

TEST(Estimate, OfALogbookOfOneEntryTakesZerosForEntryTwo) {
  // (0 - 82880) km over (0 - 41440) days are 2 a day; 120 km left are 60 days.
  EXPECT_EQ(estimateOf({entry(82880, 41440)}, 80000, 3000), (Estimate{2, false, core::dayOf({2013, 9, 3})}));
}

TEST(Estimate, OfStartAndEndOnOneDateIsEmpty) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(10500, 41440), entry(12000, 41440)}, 10000, 5000), Estimate{});
}

TEST(Estimate, OfTwoEntriesIsEmptyBecauseTheSecondIsBothEnds) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(10500, 41440)}, 10000, 5000), Estimate{});
}

TEST(Estimate, OfAnAverageOfZeroHasTheAverageAlone) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(11990, 41410), entry(12000, 41440)}, 10000, 5000),
            (Estimate{0, false, std::nullopt}));
}

TEST(Estimate, OfAFallingOdometerHasANegativeAverage) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(13500, 41410), entry(12000, 41440)}, 10000, 5000),
            (Estimate{-50, true, core::addDays(kToday, -60)}));
}

TEST(Estimate, OfADayPastTheCalendarKeepsWhatWasFoundBefore) {
  const auto far = estimateOf({entry(1, 1), entry(11970, 41410), entry(12000, 41440)}, kHighest, kHighest);
  EXPECT_EQ(far, (Estimate{1, false, std::nullopt}));
  const auto past = estimateOf({entry(1, 1), entry(11970, 41410), entry(12000, 41440)}, -kHighest, 0);
  EXPECT_EQ(past, (Estimate{1, true, std::nullopt}));
}

TEST(Estimate, OfReadingsFurtherApartThan32BitsIsEmpty) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(-kHighest, 41410), entry(kHighest, 41440)}, 1, 1), Estimate{});
}

// 2^31 km in 30 days; their negative number is the lowest that 32 bits hold.
TEST(Estimate, OfReadingsAsFarApartAs32BitsHoldIsFound) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(-1, 41410), entry(kHighest, 41440)}, kHighest, 0),
            (Estimate{71'582'788, false, kToday}));
}

TEST(Estimate, OfADamagedDateIsEmpty) {
  core::NapiAdat damaged = entry(12000, 0);
  damaged.Datum = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(estimateOf({entry(1, 1), entry(10500, 41410), damaged}, 10000, 5000), Estimate{});
}

TEST(Estimate, OfALogbookWithoutReadingsOrEntriesIsEmpty) {
  EXPECT_EQ(estimateOf({entry(0, 41410), entry(0, 41440)}, 10000, 5000), Estimate{});
  EXPECT_EQ(estimateOf({}, 10000, 5000), Estimate{});
}

class EstimateFileTest : public testing::Test {
 protected:
  Estimate estimate(std::string_view plate) {
    return estimateFor(files_, folders_, plate, kmReminder(10000, 5000, "Olaj", "ABC-123"), kToday);
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

TEST_F(EstimateFileTest, ReadsTheLogbookOfTheTrimmedPlate) {
  program_.makeFolder("ABC-123");
  program_.write("ABC-123/napiadat.dat", test::fileOf(kFiftyADay));
  EXPECT_EQ(estimate(" ABC-123  "), (Estimate{50, false, core::dayOf({2013, 9, 3})}));
}

TEST_F(EstimateFileTest, AMissingVehicleFolderAndAnUnusablePlateCountAsAnEmptyLogbook) {
  EXPECT_EQ(estimate("ABC-123"), Estimate{});
  EXPECT_EQ(estimate("../x"), Estimate{});
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(EstimateFileTest, ALogbookThatCannotBeReadGivesAnEmptyEstimate) {
  program_.makeFolder("ABC-123/napiadat.dat");
  EXPECT_EQ(estimate("ABC-123"), Estimate{});
}

TEST(WeekdayName, CountsFromSunday) {
  EXPECT_EQ(weekdayName("2013.07.07."), "Vasárnap");
  EXPECT_EQ(weekdayName("2013.07.08."), "Hétfő");
  EXPECT_EQ(weekdayName("2013.07.09."), "Kedd");
  EXPECT_EQ(weekdayName("2013.07.10."), "Szerda");
  EXPECT_EQ(weekdayName("2013.07.11."), "Csütörtök");
  EXPECT_EQ(weekdayName("2013.07.05."), "Péntek");
  EXPECT_EQ(weekdayName("2013.07.06."), "Szombat");
}

TEST(WeekdayName, ReadsTheFirstTenCharacters) {
  EXPECT_EQ(weekdayName("2013.07.05 xyz"), "Péntek");
}

TEST(WeekdayName, OfNoDateIsNone) {
  EXPECT_EQ(weekdayName(""), std::nullopt);
  EXPECT_EQ(weekdayName("?"), std::nullopt);
}

}  // namespace
}  // namespace tarvik::reminders
