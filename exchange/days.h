#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "core/day.h"

namespace tarvik::exchange {

/// In which order a file writes the parts of a day. A day that begins with its year is read in any order.
enum class DayOrder { DayFirst, MonthFirst };

/// What the days of a column say of their order.
struct ShownDayOrder {
  DayOrder order = DayOrder::DayFirst;
  bool isCertain = true;  ///< false: each day could be read either way, and a guess was made
};

/// The order of a column's days, found from all of them: a part over 12 is a day. Where none tells, the order
/// in which fewer of them run backwards; where that tells nothing either, points mean the day first and
/// whenUnknown is the guess for the rest.
ShownDayOrder shownDayOrder(std::span<const std::string_view> days, DayOrder whenUnknown);

/// The day of a text: three numbers with points, slashes or dashes between them, or year, month and day in
/// eight digits; a time of day behind them is dropped. Years of two digits are 1980 to 2079. Nothing for any
/// other text and for a day that does not exist.
std::optional<core::Day> readDay(std::string_view text, DayOrder order);

}  // namespace tarvik::exchange
