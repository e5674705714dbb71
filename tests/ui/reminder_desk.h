#pragma once

#include <QTest>
#include <initializer_list>

#include "tests/reminders/builders.h"
#include "tests/ui/support.h"
#include "ui/lists/list_view.h"

namespace tarvik::test {

/// A desk with reminders and a logbook to write on. Today is kToday.
struct ReminderDesk : Desk {
  void storeKm(std::initializer_list<reminders::FigyelRec> stored) const {
    current.write("figyel.dat", fileOf(stored));
  }
  void storeDates(std::initializer_list<reminders::FigyDatumRec> stored) const {
    current.write("figyDatum.dat", fileOf(stored));
  }
  /// The logbook of ABC-123.
  void storeLogbook(std::initializer_list<core::NapiAdat> entries) const {
    program.makeFolder("ABC-123");
    program.write("ABC-123/napiadat.dat", fileOf(entries));
  }
  std::string storedKm() const { return current.read("figyel.dat"); }
  std::string storedDates() const { return current.read("figyDatum.dat"); }
};

/// Clicks a row of a list as the mouse does.
inline void clickRow(const ui::ListView& view, int row) {
  const QModelIndex first = view.model()->index(row, 0);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(first).center());
}

/// A list's rows, the hidden record number last, the columns parted by bars.
inline QStringList rowsOf(const ui::ListView& view) {
  QStringList rows;
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < view.model()->columnCount(); ++column)
      cells << view.model()->index(row, column).data().toString();
    rows << cells.join(QLatin1Char('|'));
  }
  return rows;
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
inline const QString kDeleteTitle = QStringLiteral(" Törlés az adatállományból !");
inline const QString kNothingSelected = QStringLiteral("A listáról nincs kijelőlve\na törölni kívánt sor !");

}  // namespace tarvik::test
