#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik::core {

/// A calendar day, counted from 30 December 1899 (day 0), as the data files count them.
struct Day {
  std::int32_t number = 0;

  friend auto operator<=>(const Day&, const Day&) = default;
};

/// A day taken apart: year 100 to 9999, month 1 to 12, day of month 1 to 31.
struct CalendarDate {
  int year = 1899;
  int month = 12;
  int day = 30;

  friend auto operator<=>(const CalendarDate&, const CalendarDate&) = default;
};

/// The earliest and latest days that have a text (1 January 100 and 31 December 9999).
inline constexpr Day kFirstDay{-657'434};
inline constexpr Day kLastDay{2'958'465};

/// The day of a date; nothing for one that does not exist (year 100 to 9999).
std::optional<Day> existingDay(const CalendarDate& date);

/// As existingDay; throws Failure(OutOfRange) for a date that does not exist.
Day dayOf(const CalendarDate& date);

/// The date of a day from kFirstDay to kLastDay; throws Failure(OutOfRange) for any other.
CalendarDate calendarDate(Day day);

/// The day that a stored date holds: days since 30 December 1899 with the time of day as the fraction,
/// which is dropped; the fraction of a negative value is a time of day as well (-1.25 is six o'clock on
/// 29 December 1899). Nothing when the value is no number or outside kFirstDay to kLastDay.
std::optional<Day> dayFromStored(double stored);

/// The day as files store it, the time of day 00:00.
double toStored(Day day);

/// The day that many days later (earlier for a negative count); throws Failure(OutOfRange) when it
/// leaves kFirstDay to kLastDay.
Day addDays(Day day, std::int64_t days);

/// Whole days from the first to the second, negative when the second is earlier.
std::int64_t daysBetween(Day from, Day to);

/// The Hungarian short date form, eleven characters: "2013.07.05.".
std::string shortDate(Day day);

/// The short date of a stored date value, or "?" when it holds no day (a damaged record).
std::string shortDateOfStored(double stored);

/// The day whose short date the whole text is, with its final point or without ("2013.07.05." or
/// "2013.07.05"). Nothing for any other text and for a date that does not exist.
std::optional<Day> dayFromShortDate(std::string_view text);

/// The day of the week, 1 = Sunday to 7 = Saturday.
int weekday(Day day);

}  // namespace tarvik::core
