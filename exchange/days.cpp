#include "exchange/days.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/failure.h"
#include "core/text.h"

namespace tarvik::exchange {
namespace {

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// The three numbers of a day as they stand, and how many digits the first has.
struct DayParts {
  std::array<int, 3> numbers{};
  std::size_t firstDigits = 0;
  char separator = ' ';

  bool beginsWithYear() const { return firstDigits == 4; }
};

std::size_t takeNumber(std::string_view& text, int& number) {
  std::size_t digits = 0;
  for (number = 0; digits < text.size() && isDigit(text[digits]) && digits < 4; ++digits)
    number = number * 10 + (text[digits] - '0');
  text.remove_prefix(digits);
  return digits;
}

std::optional<DayParts> eightDigits(std::string_view text) {
  if (text.size() != 8 || !std::ranges::all_of(text, isDigit)) return std::nullopt;
  DayParts parts{.numbers = {}, .firstDigits = 4, .separator = ' '};
  takeNumber(text, parts.numbers[0]);
  parts.numbers[1] = (text[0] - '0') * 10 + (text[1] - '0');
  parts.numbers[2] = (text[2] - '0') * 10 + (text[3] - '0');
  return parts;
}

// What may stand behind a day: nothing, or a time of day set apart from it.
bool isTimeOrNothing(std::string_view rest) {
  if (rest.starts_with('.')) rest.remove_prefix(1);
  if (rest.empty()) return true;
  const bool isApart = rest.starts_with(' ') || rest.starts_with('T') || rest.starts_with(',');
  return isApart && rest.find_first_of("0123456789") != std::string_view::npos &&
         rest.find(':') != std::string_view::npos;
}

std::optional<DayParts> partsOf(std::string_view text) {
  text = core::trimmed(text);
  if (const auto parts = eightDigits(text)) return parts;
  DayParts parts;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t digits = takeNumber(text, parts.numbers[i]);
    if (digits == 0) return std::nullopt;
    if (i == 0) parts.firstDigits = digits;
    if (i == 2) break;
    if (text.empty() || std::string_view("./-").find(text.front()) == std::string_view::npos)
      return std::nullopt;
    parts.separator = text.front();
    text.remove_prefix(1);
    while (text.starts_with(' ')) text.remove_prefix(1);
  }
  return isTimeOrNothing(text) ? std::optional(parts) : std::nullopt;
}

core::CalendarDate dateOf(const DayParts& parts, DayOrder order) {
  const auto [a, b, c] = parts.numbers;
  if (parts.beginsWithYear()) return {a, b, c};
  const int year = c >= 100 ? c : c >= 80 ? 1900 + c : 2000 + c;
  if (order == DayOrder::DayFirst) return {year, b, a};
  return {year, a, b};
}

std::optional<core::Day> dayOfParts(const DayParts& parts, DayOrder order) {
  try {
    return core::dayOf(dateOf(parts, order));
  } catch (const core::Failure&) {
    return std::nullopt;
  }
}

// How often the days run against the direction that most of them take.
int turns(const std::vector<DayParts>& days, DayOrder order) {
  int up = 0;
  int down = 0;
  std::optional<core::Day> before;
  for (const DayParts& parts : days) {
    const auto day = dayOfParts(parts, order);
    if (day && before && *day != *before) ++(*day > *before ? up : down);
    if (day) before = day;
  }
  return std::min(up, down);
}

}  // namespace

ShownDayOrder shownDayOrder(std::span<const std::string_view> days, DayOrder whenUnknown) {
  std::vector<DayParts> open;
  int dayFirst = 0;
  int monthFirst = 0;
  bool hasPoints = false;
  for (const std::string_view text : days) {
    const auto parts = partsOf(text);
    if (!parts || parts->beginsWithYear()) continue;
    open.push_back(*parts);
    if (parts->numbers[0] > 12) ++dayFirst;
    if (parts->numbers[1] > 12) ++monthFirst;
    hasPoints = hasPoints || parts->separator == '.';
  }
  if (open.empty()) return {};
  if (dayFirst != monthFirst)
    return {dayFirst > monthFirst ? DayOrder::DayFirst : DayOrder::MonthFirst, true};
  if (hasPoints) return {DayOrder::DayFirst, true};
  const int asDayFirst = turns(open, DayOrder::DayFirst);
  const int asMonthFirst = turns(open, DayOrder::MonthFirst);
  if (asDayFirst != asMonthFirst)
    return {asDayFirst < asMonthFirst ? DayOrder::DayFirst : DayOrder::MonthFirst, false};
  return {whenUnknown, false};
}

std::optional<core::Day> readDay(std::string_view text, DayOrder order) {
  const auto parts = partsOf(text);
  return parts ? dayOfParts(*parts, order) : std::nullopt;
}

}  // namespace tarvik::exchange
