#pragma once

#include <QCheckBox>
#include <QListWidget>

#include "tests/ui/support.h"
#include "ui/windows/frmSetup.h"

namespace tarvik::test {

/// The two vehicles, the switch and the plate as their files hold them.
inline const std::string kTwoVehicles("ABC123  \x2D\x00\xD5\xDB-456  \x3C\x00", 20);
inline const std::string kRemindersOn(
    "\xFF\xFF"
    "ABC123    ");
inline const std::string kRemindersOff(
    "\x00\x00"
    "ABC123    ",
    12);
/// What the switch says.
inline const QString kOn = QStringLiteral("  Bekapcsolva  ");
inline const QString kOff = QStringLiteral("  Kikapcsolva  ");

/// The settings, shown on a desk of their own over a main screen at the top left.
struct Setup : Desk {
  explicit Setup(QPoint mainTopLeft = {0, 0}) : screen(context, mainTopLeft, nullptr) {}

  QLineEdit* field(const char* name) const { return part<QLineEdit>(screen, name); }
  QPushButton* button(const char* name) const { return part<QPushButton>(screen, name); }
  QListWidget* list(const char* name) const { return part<QListWidget>(screen, name); }
  QComboBox* startPlate() const { return part<QComboBox>(screen, "cmbRendszam"); }
  QCheckBox* reminders() const { return part<QCheckBox>(screen, "chkRiaszt"); }
  void openPage(int page) const { test::openPage(*part<QTabWidget>(screen, "SSTab1"), page); }

  void show() { bringUp(screen); }
  void press(const char* name) const { test::press(*button(name)); }
  void type(const char* name, const QString& text) const { test::typeInto(*field(name), text); }
  void add(const QString& plate, const QString& tank) const {
    type("txRendszam", plate);
    type("txTank", tank);
    press("cmdRendszamFelvesz");
  }
  void clickRow(const char* name, int row) const { test::clickRow(*list(name), row); }
  QStringList rows(const char* name) const {
    QStringList texts;
    for (int row = 0; row < list(name)->count(); ++row) texts << list(name)->item(row)->text();
    return texts;
  }
  QStringList startPlates() const {
    QStringList texts;
    for (int i = 0; i < startPlate()->count(); ++i) texts << startPlate()->itemText(i);
    return texts;
  }

  ui::frmSetup screen;
};

/// The settings as they come up over files of that text.
struct ShownSetup : Setup {
  using Files = std::vector<std::pair<std::string, std::string>>;
  explicit ShownSetup(const Files& stored = {}) {
    for (const auto& [name, bytes] : stored) current.write(name, bytes);
    show();
  }
};

/// A text as the lists of parts and notes keep it.
inline QString fifty(const char* text) {
  return QString::fromUtf8(text).leftJustified(50);
}

}  // namespace tarvik::test
