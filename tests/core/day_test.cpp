#include "core/day.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFailure;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

struct DatedDay {
  CalendarDate date;
  std::int32_t number;
};

constexpr DatedDay kKnownDays[] = {
    {{100, 1, 1}, -657'434}, {{1899, 12, 29}, -1},   {{1899, 12, 30}, 0},
    {{1900, 2, 28}, 60},     {{1900, 3, 1}, 61},     {{2000, 1, 1}, 36'526},
    {{2012, 2, 29}, 40'968}, {{2013, 7, 5}, 41'460}, {{9999, 12, 31}, 2'958'465},
};

TEST(DayOf, CountsFrom30December1899AndBack) {
  for (const DatedDay& known : kKnownDays) {
    EXPECT_EQ(dayOf(known.date), Day{known.number}) << known.number;
    EXPECT_EQ(calendarDate(Day{known.number}), known.date) << known.number;
  }
}

TEST(DayOf, DateThatDoesNotExistFails) {
  const std::vector<CalendarDate> dates{{2013, 2, 29},  {99, 12, 31},   {10'000, 1, 1},       {2013, 0, 1},
                                        {2013, 257, 1}, {2013, 1, 257}, {2013 + 65'536, 1, 1}};
  for (const CalendarDate& date : dates) expectFailure(FailureKind::OutOfRange, [&] { dayOf(date); });
}

TEST(CalendarDateOf, DayOutsideTheCalendarFails) {
  expectFailure(FailureKind::OutOfRange, [] { calendarDate({-657'435}); });
  expectFailure(FailureKind::OutOfRange, [] { calendarDate({2'958'466}); });
}

TEST(DayFromStored, DropsTheTimeOfDayBeforeDayZeroToo) {
  EXPECT_EQ(dayFromStored(41'460.0), Day{41'460});
  EXPECT_EQ(dayFromStored(41'460.999), Day{41'460});
  EXPECT_EQ(dayFromStored(0.5), Day{0});
  EXPECT_EQ(dayFromStored(-1.0), Day{-1});
  EXPECT_EQ(dayFromStored(-1.75), Day{-1});
  EXPECT_EQ(dayFromStored(-0.5), Day{0});
  EXPECT_EQ(dayFromStored(-0.0), Day{0});
}

TEST(DayFromStored, OutsideTheCalendarOrOfNoNumberIsNone) {
  EXPECT_EQ(dayFromStored(2'958'465.999), kLastDay);
  EXPECT_EQ(dayFromStored(-657'434.999), kFirstDay);
  for (const double stored : {2'958'466.0, -657'435.0, kNoNumber, kInfinity, -kInfinity, 1e300, -1e300})
    EXPECT_EQ(dayFromStored(stored), std::nullopt) << stored;
}

TEST(ToStored, IsTheDayNumber) {
  EXPECT_EQ(toStored({41'460}), 41'460.0);
  EXPECT_EQ(toStored({-1}), -1.0);
}

TEST(AddDays, CrossesMonthsAndYears) {
  EXPECT_EQ(addDays(dayOf({2013, 12, 31}), 1), dayOf({2014, 1, 1}));
  EXPECT_EQ(addDays(dayOf({2012, 3, 1}), -1), dayOf({2012, 2, 29}));
  EXPECT_EQ(addDays({5}, 0), Day{5});
}

TEST(AddDays, LeavingTheCalendarFails) {
  EXPECT_EQ(addDays(kFirstDay, 3'615'899), kLastDay);
  expectFailure(FailureKind::OutOfRange, [] { addDays(kLastDay, 1); });
  expectFailure(FailureKind::OutOfRange, [] { addDays(kFirstDay, -1); });
  expectFailure(FailureKind::OutOfRange, [] { addDays({1}, std::numeric_limits<std::int64_t>::max()); });
  expectFailure(FailureKind::OutOfRange, [] { addDays({-1}, std::numeric_limits<std::int64_t>::min()); });
}

TEST(DaysBetween, IsNegativeBackwards) {
  EXPECT_EQ(daysBetween(dayOf({2013, 7, 5}), dayOf({2013, 8, 1})), 27);
  EXPECT_EQ(daysBetween(dayOf({2013, 8, 1}), dayOf({2013, 7, 5})), -27);
  EXPECT_EQ(
      daysBetween({std::numeric_limits<std::int32_t>::min()}, {std::numeric_limits<std::int32_t>::max()}),
      4'294'967'295);
}

TEST(ShortDate, HasElevenCharactersAndADamagedOneAQuestionMark) {
  EXPECT_EQ(shortDate(dayOf({2013, 7, 5})), "2013.07.05.");
  EXPECT_EQ(shortDate(dayOf({2013, 12, 31})), "2013.12.31.");
  EXPECT_EQ(shortDate(kFirstDay), "0100.01.01.");
  EXPECT_EQ(shortDate(kLastDay), "9999.12.31.");
  EXPECT_EQ(shortDate(Day{}), "1899.12.30.");
  expectFailure(FailureKind::OutOfRange, [] { shortDate({2'958'466}); });
  EXPECT_EQ(shortDateOfStored(41'460.25), "2013.07.05.");
  EXPECT_EQ(shortDateOfStored(kNoNumber), "?");
  EXPECT_EQ(shortDateOfStored(1e9), "?");
}

TEST(DayFromShortDate, WithAndWithoutTheFinalPoint) {
  EXPECT_EQ(dayFromShortDate("2013.07.05."), dayOf({2013, 7, 5}));
  EXPECT_EQ(dayFromShortDate("2013.07.05"), dayOf({2013, 7, 5}));
  EXPECT_EQ(dayFromShortDate("2012.02.29"), dayOf({2012, 2, 29}));
  EXPECT_EQ(dayFromShortDate("0100.01.01."), kFirstDay);
  EXPECT_EQ(dayFromShortDate("9999.12.31"), kLastDay);
}

TEST(DayFromShortDate, OfAnotherTextOrADateThatDoesNotExistIsNone) {
  for (const char* text : {"2013.02.30",  "2013.02.29.", "2013.13.01",
                           "2013.00.10",  "2013.04.31",  "2013.04.00",
                           "0099.12.31",  "0000.00.00",  "",
                           "?",           ".",           "2013.07.0",
                           "2013.7.5.",   "2013-07-05",  "2013.07.05..",
                           "2013.07.05,", " 2013.07.05", "2013.07.05. ",
                           "2013.07.0a",  "-013.07.05",  "2013.07.05.x",
                           "13.07.05."})
    EXPECT_EQ(dayFromShortDate(text), std::nullopt) << text;
}

TEST(Weekday, SundayIsOne) {
  EXPECT_EQ(weekday(dayOf({2013, 7, 7})), 1);
  EXPECT_EQ(weekday(dayOf({2013, 7, 5})), 6);
  EXPECT_EQ(weekday(dayOf({2000, 1, 1})), 7);
  EXPECT_EQ(weekday({0}), 7);
  EXPECT_EQ(weekday({-1}), 6);
}

}  // namespace
}  // namespace tarvik::core
