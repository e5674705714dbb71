#pragma once

#include <QDate>
#include <QString>
#include <string>

#include "core/day.h"
#include "core/text.h"

namespace tarvik::ui {

/// Texts and dates across the border between Qt and the logic.
inline QString toQt(const std::string& text) {
  return QString::fromStdString(text);
}
inline std::string toLogic(const QString& text) {
  return text.toStdString();
}

inline core::Day toLogic(QDate date) {
  return core::dayOf({date.year(), date.month(), date.day()});
}
inline QDate toQt(core::Day day) {
  const core::CalendarDate date = core::calendarDate(day);
  return QDate(date.year, date.month, date.day);
}

/// Whether the text is empty once the spaces around it are gone.
inline bool isBlank(const QString& text) {
  return core::trimmed(toLogic(text)).empty();
}

}  // namespace tarvik::ui
