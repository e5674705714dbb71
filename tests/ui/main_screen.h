#pragma once

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <memory>

#include "core/record_list.h"
#include "tests/ui/next_dialog.h"
#include "tests/ui/support.h"
#include "ui/main/frmTarvik.h"
#include "ui/windows/frmMelyGrafikon.h"

namespace tarvik::test {

/// The main screen over a folder of its own, on 21 November 2026, and its controls by their names.
struct MainScreen {
  explicit MainScreen(bool ownCurrentFolder = false)
      : context{.files = files,
                .folders = {.program = folder.path(),
                            .current = ownCurrentFolder ? current.path() : folder.path()},
                .clock = clock,
                .version = "1.0.0"} {
    dressOnce();
  }

  /// Opens the screen as the program does.
  void open() {
    screen = std::make_unique<ui::frmTarvik>(context);
    screen->load();
    bringUp(*screen);
  }

  template <typename Control>
  Control* find(const char* name) {
    auto* control = screen->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) qFatal("no control %s", name);
    return control;
  }
  QLineEdit* edit(const char* name) { return find<QLineEdit>(name); }
  QComboBox* combo(const char* name) { return find<QComboBox>(name); }
  QCheckBox* box(const char* name) { return find<QCheckBox>(name); }
  QString label(const char* name) { return find<QLabel>(name)->text(); }
  QTreeView* list() { return find<QTreeView>("ListView1"); }
  /// Chooses a menu item; what it opens comes up before this returns.
  void chooseItem(const char* item) {
    find<QAction>(item)->trigger();
    QCoreApplication::processEvents();
  }
  void press(const char* name) { test::press(*find<QAbstractButton>(name)); }
  void type(const char* name, const QString& text) {
    if (auto* chooser = screen->findChild<QComboBox*>(QString::fromUtf8(name)))
      return typeInto(*chooser, text);
    typeInto(*edit(name), text);
  }
  void pick(const char* item) { test::pick(*screen->menuBar(), item); }
  /// Shows the chart of an option of the chooser; the main screen is in front again afterwards.
  void showChart(const char* option) {
    onNextDialog<ui::frmMelyGrafikon>([option](ui::frmMelyGrafikon& chooser) {
      test::press(*chooser.findChild<QRadioButton*>(QString::fromUtf8(option)));
      test::press(*chooser.findChild<QPushButton*>(QStringLiteral("cmdMegjelenit")));
    });
    press("cmdGrafikon");
    screen->activateWindow();
    bringUp(*screen);
  }
  void type(const char* name, QDate day) { typeInto(*find<QDateEdit>(name), day); }

  int rows() { return list()->model()->rowCount(); }
  QString cell(int row, int column) { return list()->model()->index(row, column).data().toString(); }
  /// The shown texts of a row, the record number last, joined by '|'.
  QString row(int number) { return rowText(*list()->model(), number); }
  void clickRow(int row) { test::clickRow(*list(), row); }

  /// The middle of a row's first cell, in the list's viewport.
  QPoint middleOf(int row) { return list()->visualRect(list()->model()->index(row, 0)).center(); }

  /// The list of vehicles: plates of up to eight letters, and tanks of 45 litres.
  void writeVehicles(std::initializer_list<const char*> plates) {
    std::string bytes;
    for (const char* plate : plates) bytes += padded(plate, 8) + std::string("\x2D\0", 2);
    folder.write("rendsz.dat", bytes);
  }
  void writeLogbook(const char* plate, const std::vector<core::NapiAdat>& entries) {
    folder.makeFolder(plate);
    folder.write(std::string(plate).append("/napiadat.dat"), bytesOf(entries));
  }
  void choosePlateAtStart(const char* plate, bool reminders = true) {
    folder.write("set.dat", (reminders ? std::string(2, '\xFF') : std::string(2, '\0')) + padded(plate, 10));
  }
  core::NapiAdat stored(const char* plate, int number) {
    const std::string bytes = folder.read(std::string(plate).append("/napiadat.dat"));
    const auto* data = reinterpret_cast<const std::byte*>(bytes.data());
    const auto offset = static_cast<std::size_t>(number - 1) * core::NapiAdat::kLength;
    return core::decoded<core::NapiAdat>({data + offset, core::NapiAdat::kLength});
  }

  TemporaryFolder folder;
  TemporaryFolder current;
  core::MachineFileSystem files;
  FixedClock clock{{2026, 11, 21}};
  ui::Context context;
  std::unique_ptr<ui::frmTarvik> screen;
};

/// The main screen with the logbook of a car ABC123 listed; which vehicles there are is said apart.
struct ListedCar : MainScreen {
  explicit ListedCar(const std::vector<core::NapiAdat>& entries,
                     std::initializer_list<const char*> vehicles = {}) {
    writeVehicles(vehicles);
    writeLogbook("ABC123", entries);
    choosePlateAtStart("ABC123");
    open();
  }
};

/// An entry of the logbook with the fields that most tests need.
inline core::NapiAdat fuelling(core::CalendarDate date, std::int32_t km, std::int64_t litresTimes10000,
                               bool full, std::int32_t cost = 0) {
  core::NapiAdat entry;
  entry.KmOra = km;
  entry.Datum = core::toStored(core::dayOf(date));
  entry.TankoltLiter = {litresTimes10000};
  entry.Teletank = core::toFlag(full);
  entry.TankoltKtg = cost;
  entry.Alkatresz = core::FixedText<50>("");
  entry.Megjegyzes = core::FixedText<50>("Tankolás");
  return entry;
}

}  // namespace tarvik::test
