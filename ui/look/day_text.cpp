#include "ui/look/day_text.h"

#include "ui/base/text.h"

namespace tarvik::ui {

using core::DayPart;

std::array<QString, 3> shownParts(core::Day day, DayPart last) {
  const QString date = toQt(core::shortDate(day));
  std::array<QString, 3> parts{date.mid(0, 4), date.mid(5, 2), date.mid(8, 2)};
  if (last == DayPart::Month) parts[1] = toQt(std::string(core::monthName(core::calendarDate(day).month)));
  return parts;
}

std::array<QString, 3> partsWith(const core::TypedParts& typed, core::Day shown, DayPart last) {
  std::array<QString, 3> parts = shownParts(shown, last);
  for (std::size_t part = 0; part < parts.size(); ++part)
    if (!typed.texts[part].empty()) parts[part] = toQt(typed.texts[part]);
  return parts;
}

QString formatOf(DayPart last) {
  return last == DayPart::Year    ? QStringLiteral("yyyy")
         : last == DayPart::Month ? QStringLiteral("yyyy. MMMM")
                                  : QStringLiteral("yyyy.MM.dd.");
}

QString widestText(DayPart last) {
  return last == DayPart::Day ? QStringLiteral("9999.99.99.") : QStringLiteral("9999. szeptember");
}

DayText joined(const std::array<QString, 3>& parts, DayPart last) {
  DayText shown;
  const auto count = static_cast<std::size_t>(last) + 1;
  for (std::size_t part = 0; part < count; ++part) {
    shown.spans[part] = {static_cast<int>(shown.text.size()), static_cast<int>(parts[part].size())};
    shown.text += parts[part];
    if (part + 1 < count) shown.text += last == DayPart::Month ? QStringLiteral(". ") : QStringLiteral(".");
  }
  if (last == DayPart::Day) shown.text += QLatin1Char('.');
  return shown;
}

}  // namespace tarvik::ui
