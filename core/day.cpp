#include "core/day.h"

#include <algorithm>
#include <chrono>

#include "core/failure.h"
#include "core/text.h"

namespace tarvik::core {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{year{1899} / 12 / 30};

constexpr bool hasText(std::int64_t number) {
  return number >= kFirstDay.number && number <= kLastDay.number;
}

// The calendar's own types keep the lowest bits of a number only, so the limits are checked before.
constexpr bool withinLimits(const CalendarDate& date) {
  return date.year >= 100 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
         date.day <= 31;
}

constexpr std::string_view kShortDateForm = "0000.00.00";

bool fitsForm(char c, char form) {
  return form == '0' ? isDigit(c) : c == form;
}

int numberAt(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return number;
}

void putNumber(std::string& text, std::size_t first, std::size_t length, int number) {
  for (std::size_t i = first + length; i > first; number /= 10)
    text[--i] = static_cast<char>('0' + number % 10);
}

}  // namespace

std::optional<Day> existingDay(const CalendarDate& date) {
  if (!withinLimits(date)) return std::nullopt;
  const year_month_day ymd = year{date.year} / date.month / date.day;
  if (!ymd.ok()) return std::nullopt;
  return Day{static_cast<std::int32_t>((sys_days{ymd} - kDayZero).count())};
}

Day dayOf(const CalendarDate& date) {
  const std::optional<Day> day = existingDay(date);
  if (!day) throw Failure(FailureKind::OutOfRange);
  return *day;
}

CalendarDate calendarDate(Day day) {
  if (!hasText(day.number)) throw Failure(FailureKind::OutOfRange);
  const year_month_day date{kDayZero + days{day.number}};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::optional<Day> dayFromStored(double stored) {
  // Written so that a value that is no number fails it. The time of day counts away from midnight
  // before day 0 as well, which makes dropping the fraction a truncation.
  if (!(stored > kFirstDay.number - 1.0 && stored < kLastDay.number + 1.0)) return std::nullopt;
  return Day{static_cast<std::int32_t>(stored)};
}

double toStored(Day day) {
  return day.number;
}

Day addDays(Day day, std::int64_t days) {
  std::int64_t number = 0;
  if (__builtin_add_overflow(days, std::int64_t{day.number}, &number) || !hasText(number))
    throw Failure(FailureKind::OutOfRange);
  return Day{static_cast<std::int32_t>(number)};
}

std::int64_t daysBetween(Day from, Day to) {
  return std::int64_t{to.number} - from.number;
}

std::string shortDate(Day day) {
  const CalendarDate date = calendarDate(day);
  std::string text = "0000.00.00.";
  putNumber(text, 0, 4, date.year);
  putNumber(text, 5, 2, date.month);
  putNumber(text, 8, 2, date.day);
  return text;
}

std::string shortDateOfStored(double stored) {
  const std::optional<Day> day = dayFromStored(stored);
  return day ? shortDate(*day) : "?";
}

std::optional<Day> dayFromShortDate(std::string_view text) {
  if (text.size() == kShortDateForm.size() + 1 && text.back() == '.') text.remove_suffix(1);
  if (!std::ranges::equal(text, kShortDateForm, fitsForm)) return std::nullopt;
  return existingDay({numberAt(text.substr(0, 4)), numberAt(text.substr(5, 2)), numberAt(text.substr(8))});
}

int weekday(Day day) {
  return static_cast<int>(std::chrono::weekday{kDayZero + days{day.number}}.c_encoding()) + 1;
}

}  // namespace tarvik::core
