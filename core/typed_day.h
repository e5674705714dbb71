#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/day.h"

namespace tarvik::core {

/// The parts of a day in the order in which they are shown and typed.
enum class DayPart { Year, Month, Day };

/// What has been typed into the parts of a shown day.
struct TypedParts {
  std::array<std::string, 3> texts;  ///< by part; empty = not typed, the shown one holds
  DayPart at = DayPart::Year;        ///< the part that was reached
  bool isWhole = true;  ///< false = a digit less than full in a part that only digits led to ("2013062")

  const std::string& text(DayPart part) const { return texts[static_cast<std::size_t>(part)]; }
};

/// What was typed key by key, spread over the parts from the first one that it was typed into. A point,
/// hyphen or slash with spaces around it, spaces alone and a tab (any key that goes to the next part) end a
/// part; so does a digit behind a full one (four of a year, two of a month or day). A month may be a name.
/// Nothing when the keys do not fit: letters elsewhere, a month 13, a day 32, digits behind the last part.
std::optional<TypedParts> partsTyped(std::string_view typed, DayPart first, DayPart last);

/// The day of the typed parts, as they are shown; the others are those of the shown day. A year has four
/// digits and does not begin with 0, unless it is the shown one, so that "15" or "0612" is none. Where the
/// shown parts end before the day of the month, that becomes the last one of a month that has fewer days.
/// Nothing when the parts are no day.
std::optional<Day> dayOfParts(const TypedParts& parts, Day shown, DayPart last);

/// The day that a whole text is: "2013.06.21.", "2013.06.21", "20130621", "2013 06 21", "2013-06-21",
/// "2013. 6. 21.", "2013. június 21.". Where less than a day is shown, year and month or the year alone will
/// do; the rest is the shown day's. Nothing for any other text: of digits alone ("2013062") nobody sees where
/// one is missing.
std::optional<Day> dayOfText(std::string_view text, Day shown, DayPart last);

/// The day that many years, months or days later (earlier for a negative count); the 31st becomes the last
/// day of a month that has fewer. At most the last day with a text, at least the first.
Day stepped(Day day, DayPart part, int steps);

/// The month's Hungarian name, 1 = "január" to 12 = "december".
std::string_view monthName(int month);

}  // namespace tarvik::core
