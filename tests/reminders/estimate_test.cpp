#include "reminders/estimate.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "core/machine_file_system.h"
#include "tests/reminders/builders.h"

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

TEST(Estimate, IsTheDayOfTheDueReadingAtTheTruncatedAverageFromEntryTwoOn) {
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 5000), (Estimate{50, false, core::dayOf({2013, 9, 3})}));
  // 1499 km in 30 days are 49.97, so 49; 3001 km at 49 a day are 61.24 days.
  EXPECT_EQ(estimateOf({entry(1, 1), entry(10501, 41410), entry(12000, 41440)}, 10000, 5001),
            (Estimate{49, false, core::dayOf({2013, 9, 4})}));
}

TEST(Estimate, OfADueReadingADayBehindTheLastIsOverdueAndInThePast) {
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1951), (Estimate{50, false, kToday}));
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1950), (Estimate{50, true, core::addDays(kToday, -1)}));
  EXPECT_EQ(estimateOf(kFiftyADay, 10000, 1500), (Estimate{50, true, core::dayOf({2013, 6, 25})}));
}

struct EstimatedLogbook {
  const char* name;
  std::vector<core::NapiAdat> entries;
  Estimate expected;
};

TEST(Estimate, OfAnOddLogbookIsEmptyOrWhatCanBeFound) {
  core::NapiAdat damaged = entry(12000, 0);
  damaged.Datum = std::numeric_limits<double>::quiet_NaN();
  const Estimate none;
  for (const EstimatedLogbook& logbook : std::vector<EstimatedLogbook>{
           {"last entries without a reading are skipped",
            {entry(1, 1), entry(10500, 41410), entry(12000, 41440), entry(0, 41450), entry(0, 41455)},
            {50, false, core::dayOf({2013, 9, 3})}},
           {"an end a day before the start",
            {entry(1, 1), entry(10500, 41441), entry(12000, 41440)},
            {-1500, true, core::addDays(kToday, -2)}},
           {"start and end on one date", {entry(1, 1), entry(10500, 41440), entry(12000, 41440)}, none},
           {"two entries: the second is both ends", {entry(1, 1), entry(10500, 41440)}, none},
           {"an average of zero alone",
            {entry(1, 1), entry(11990, 41410), entry(12000, 41440)},
            {0, false, std::nullopt}},
           {"a falling odometer",
            {entry(1, 1), entry(13500, 41410), entry(12000, 41440)},
            {-50, true, core::addDays(kToday, -60)}},
           {"a damaged date", {entry(1, 1), entry(10500, 41410), damaged}, none},
           {"no readings", {entry(0, 41410), entry(0, 41440)}, none},
           {"no entries", {}, none}})
    EXPECT_EQ(
        estimated(core::Logbook::of(logbook.entries), kmReminder(10000, 5000, "Olaj", "ABC-123"), kToday),
        logbook.expected)
        << logbook.name;
}

TEST(Estimate, OfALogbookOfOneEntryTakesZerosForEntryTwo) {
  // (0 - 82880) km over (0 - 41440) days are 2 a day; 120 km left are 60 days.
  EXPECT_EQ(estimateOf({entry(82880, 41440)}, 80000, 3000), (Estimate{2, false, core::dayOf({2013, 9, 3})}));
}

TEST(Estimate, OfADayPastTheCalendarKeepsWhatWasFoundBefore) {
  const auto far = estimateOf({entry(1, 1), entry(11970, 41410), entry(12000, 41440)}, kHighest, kHighest);
  EXPECT_EQ(far, (Estimate{1, false, std::nullopt}));
  const auto past = estimateOf({entry(1, 1), entry(11970, 41410), entry(12000, 41440)}, -kHighest, 0);
  EXPECT_EQ(past, (Estimate{1, true, std::nullopt}));
}

TEST(Estimate, OfReadingsFurtherApartThan32BitsIsEmptyAndAtThemFound) {
  EXPECT_EQ(estimateOf({entry(1, 1), entry(-kHighest, 41410), entry(kHighest, 41440)}, 1, 1), Estimate{});
  // 2^31 km in 30 days; their negative number is the lowest that 32 bits hold.
  EXPECT_EQ(estimateOf({entry(1, 1), entry(-1, 41410), entry(kHighest, 41440)}, kHighest, 0),
            (Estimate{71'582'788, false, kToday}));
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

TEST(WeekdayName, IsThatOfTheFirstTenCharacters) {
  const std::vector<std::pair<const char*, const char*>> days{
      {"2013.07.07.", "Vasárnap"}, {"2013.07.08.", "Hétfő"},     {"2013.07.09.", "Kedd"},
      {"2013.07.10.", "Szerda"},   {"2013.07.11.", "Csütörtök"}, {"2013.07.05.", "Péntek"},
      {"2013.07.06.", "Szombat"},  {"2013.07.05 xyz", "Péntek"}};
  for (const auto& [text, name] : days) EXPECT_EQ(weekdayName(text), name) << text;
  for (const char* text : {"", "?"}) EXPECT_EQ(weekdayName(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tarvik::reminders
