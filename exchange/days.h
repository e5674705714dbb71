#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/day.h"

namespace tarvik::exchange {

/// In which order a file writes the parts of a day. A day that begins with a year of four digits, and one
/// whose month is a word between a day and such a year, is read in any order.
enum class DayOrder { DayFirst, MonthFirst, YearFirst };

/// The day of a text: three numbers with points, slashes or dashes between them, or with a month's name (of
/// the usual languages) among them; year, month and day in eight digits; a spreadsheet's
/// count of days; a clock's count of seconds or thousandths since 1970, of which the day is Hungary's. A time
/// of day or a day of the week beside it is dropped. Years of two digits are 1980 to 2079. Nothing for any
/// other text and for a day that does not exist.
std::optional<core::Day> readDay(std::string_view text, DayOrder order);

/// Whether a text is a day in one order or another.
bool looksLikeDay(std::string_view text);

/// The month of a name or a number from 1 to 12.
std::optional<int> readMonth(std::string_view text);

/// A day and how far the car had come on it, where that is known.
struct DatedReading {
  std::string_view day;
  std::optional<double> reading;
};

/// What the days of a column say of their order.
struct ShownDayOrder {
  std::vector<DayOrder> possible;  ///< the orders in which they can be read and run with the readings
  /// The most fitting one.
  DayOrder order() const { return possible.empty() ? DayOrder::DayFirst : possible.front(); }
  bool isCertain() const { return possible.size() < 2; }
};

/// The orders that a column's days leave: those in which as many as possible are days at all, and of these
/// the ones in which they run along with the readings, whichever row stands first.
ShownDayOrder shownDayOrder(std::span<const DatedReading> days);

}  // namespace tarvik::exchange
