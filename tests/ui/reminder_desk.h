#pragma once

#include <QScreen>

#include "tests/reminders/builders.h"
#include "tests/ui/support.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"

namespace tarvik::test {

/// What is there when a screen of reminders opens.
struct Reminders {
  std::vector<reminders::FigyelRec> km = {};
  std::vector<reminders::FigyDatumRec> dates = {};
  std::vector<core::NapiAdat> logbook = {};  ///< of ABC-123
  std::int16_t selected = 0;                 ///< program-wide
  std::int32_t reading = 0;                  ///< that the km check found
};

/// A desk with reminders and a logbook to write on. Today is kToday.
struct ReminderDesk : Desk {
  explicit ReminderDesk(const Reminders& stored = {}) {
    context.state.selectedReminder = stored.selected;
    context.state.currentReading = stored.reading;
    if (!stored.km.empty()) storeKm(stored.km);
    if (!stored.dates.empty()) storeDates(stored.dates);
    if (!stored.logbook.empty()) writeLogbook("ABC-123", stored.logbook);
  }

  void storeKm(const std::vector<reminders::FigyelRec>& stored) const {
    current.write("figyel.dat", bytesOf(stored));
  }
  void storeDates(const std::vector<reminders::FigyDatumRec>& stored) const {
    current.write("figyDatum.dat", bytesOf(stored));
  }
  std::string storedKm() const { return current.read("figyel.dat"); }
  std::string storedDates() const { return current.read("figyDatum.dat"); }
};

/// A list's rows, the hidden record number last, the columns parted by bars.
inline QStringList rowsOf(const ui::ListView& view) {
  QStringList rows;
  for (int row = 0; row < view.model()->rowCount(); ++row) rows << rowText(*view.model(), row);
  return rows;
}

/// The record that a list marks as one that was not there before.
inline QString markedIn(const ui::ListView& view) {
  return qobject_cast<ui::ListDelegate*>(view.itemDelegate())->marked();
}

/// A text as the lists show it, padded to the width of the records' text.
inline QString shownText(const QString& text) {
  return text.leftJustified(40);
}

/// Whether the window stands in the middle of its display, give or take its frame.
inline bool isCentred(const QWidget& window) {
  const QPoint off = window.frameGeometry().center() - window.screen()->availableGeometry().center();
  return off.manhattanLength() <= 8;
}

inline const QString kErrorTitle = QStringLiteral(" H i b a !");
inline const QString kNothingSelected = QStringLiteral("A listáról nincs kijelőlve\na törölni kívánt sor !");

}  // namespace tarvik::test
