#include "core/reading.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvik::core {
namespace {

using Kind = ReadingDoubt::Kind;

Logbook logbookOf(const std::vector<std::int32_t>& readings) {
  std::vector<NapiAdat> entries(readings.size());
  for (std::size_t i = 0; i < readings.size(); ++i) entries[i].KmOra = readings[i];
  return Logbook::of(entries);
}

constexpr EarlierReadings kNew{.last = 241'419, .before = 241'419};

TEST(EarlierReadings, AreTheLastOneAndTheOneBeforeTheChosenEntryWithAReading) {
  const Logbook logbook = logbookOf({100, 200, 0, 300, 400});
  EXPECT_EQ(earlierReadings(logbook, 0), (EarlierReadings{400, 400}));
  EXPECT_EQ(earlierReadings(logbook, 5), (EarlierReadings{400, 300}));
  EXPECT_EQ(earlierReadings(logbook, 4), (EarlierReadings{400, 200}));
  EXPECT_EQ(earlierReadings(logbookOf({0, 200, 0, 0}), 0), (EarlierReadings{200, 200}));
}

TEST(EarlierReadings, AreNoneOfAnEmptyLogbookAndOfOneWithoutReadings) {
  EXPECT_EQ(earlierReadings(logbookOf({}), 0), EarlierReadings{});
  EXPECT_EQ(earlierReadings(logbookOf({0, 0}), 0), EarlierReadings{});
  EXPECT_EQ(earlierReadings(logbookOf({100, 200}), 1), (EarlierReadings{200, 0}));
}

TEST(DoubtOf, AReadingThatIsLessThanTheLastOne) {
  EXPECT_EQ(doubtOf("241418", kNew), (ReadingDoubt{Kind::Less, 241'419}));
  EXPECT_EQ(doubtOf("5", kNew), (ReadingDoubt{Kind::Less, 241'419}));
  EXPECT_EQ(doubtOf("-241500", kNew), (ReadingDoubt{Kind::Less, 241'419}));
}

TEST(DoubtOf, AReadingOfMoreThanThreeThousandKmMore) {
  EXPECT_EQ(doubtOf("241419", kNew), std::nullopt);
  EXPECT_EQ(doubtOf("244419", kNew), std::nullopt);
  EXPECT_EQ(doubtOf("244419,5", kNew), (ReadingDoubt{Kind::Far, 241'419}));
  EXPECT_EQ(doubtOf("244420", kNew), (ReadingDoubt{Kind::Far, 241'419}));
  EXPECT_EQ(doubtOf("999999999999999999", kNew), (ReadingDoubt{Kind::Far, 241'419}));
}

TEST(DoubtOf, NothingIsSaidOfNoReadingAndBesideNone) {
  for (const char* typed : {"", "0", "abc", "-"}) EXPECT_EQ(doubtOf(typed, kNew), std::nullopt) << typed;
  EXPECT_EQ(doubtOf("5", {}), std::nullopt);
  EXPECT_EQ(doubtOf("999999", {}), std::nullopt);
  for (const char* typed : {"100", "999999"})
    EXPECT_EQ(doubtOf(typed, {.last = 500, .before = 0}), std::nullopt) << typed;
}

TEST(DoubtOf, AChosenEntryMayFollowTheOneBeforeItOrTheLastOne) {
  const EarlierReadings both{.last = 241'419, .before = 200'000};
  EXPECT_EQ(doubtOf("201000", both), std::nullopt);
  EXPECT_EQ(doubtOf("242000", both), std::nullopt);
  EXPECT_EQ(doubtOf("241419", both), std::nullopt);
  EXPECT_EQ(doubtOf("199999", both), (ReadingDoubt{Kind::Less, 200'000}));
  EXPECT_EQ(doubtOf("203001", both), (ReadingDoubt{Kind::Far, 200'000}));
  EXPECT_EQ(doubtOf("244420", both), (ReadingDoubt{Kind::Far, 241'419}));
}

TEST(CanStillBecomeSound, WhatFurtherDigitsCanStillMakeAReading) {
  for (const char* typed : {"", "0", "2", "24", "241", "2414", "24142", "241419", "244419", "244"})
    EXPECT_TRUE(canStillBecomeSound(typed, kNew)) << typed;
  EXPECT_TRUE(canStillBecomeSound("10", {99'500, 99'500}));
  EXPECT_TRUE(
      canStillBecomeSound("500000,5", kNew));  // no whole number: nothing is said of it while it is typed
}

TEST(CanStillBecomeSound, WhatNoFurtherDigitMends) {
  for (const char* typed : {"1", "240", "245", "24140", "241418", "244420", "3", "2414190"})
    EXPECT_FALSE(canStillBecomeSound(typed, kNew)) << typed;
}

TEST(CanStillBecomeSound, IsJudgedByBothReadingsOfAChosenEntry) {
  const EarlierReadings both{.last = 241'419, .before = 100'000};
  EXPECT_TRUE(canStillBecomeSound("102", both));
  EXPECT_TRUE(canStillBecomeSound("242", both));
  EXPECT_FALSE(canStillBecomeSound("15", both));
}

TEST(CanStillBecomeSound, GoesUpToTheLargestReadings) {
  EXPECT_TRUE(canStillBecomeSound("2", {2'147'483'000, 2'147'483'000}));
  EXPECT_FALSE(canStillBecomeSound("3", {2'147'483'000, 2'147'483'000}));
  EXPECT_FALSE(canStillBecomeSound("999999999999999999", {2'147'483'000, 2'147'483'000}));
}

}  // namespace
}  // namespace tarvik::core
