#pragma once

#include <QString>
#include <array>

#include "core/typed_day.h"

namespace tarvik::ui {

/// A day as a field shows it, and where its parts stand.
struct DayText {
  struct Span {
    int start = 0;
    int length = 0;
  };

  QString text;
  std::array<Span, 3> spans;  ///< by part

  Span span(core::DayPart part) const { return spans[static_cast<std::size_t>(part)]; }
};

/// The parts of a day as they are shown up to the last one; the month is a name where it is the last.
std::array<QString, 3> shownParts(core::Day day, core::DayPart last);

/// The same with what has been typed into them so far.
std::array<QString, 3> partsWith(const core::TypedParts& typed, core::Day shown, core::DayPart last);

/// The same in Qt's words.
QString formatOf(core::DayPart last);

/// The longest text of days that are shown up to this part; a year alone is given a month's room, so that the
/// parts beside it stay where they are.
QString widestText(core::DayPart last);

/// The parts as one text: "2013", "2013. június" or "2013.06.21.".
DayText joined(const std::array<QString, 3>& parts, core::DayPart last);

}  // namespace tarvik::ui
