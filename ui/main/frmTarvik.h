#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "core/entry_input.h"
#include "core/totals.h"
#include "settings/lookup_list.h"
#include "ui/base/context.h"
#include "ui/base/guarded.h"
#include "ui/lists/listing_model.h"
#include "ui/main/list_cues.h"

class QComboBox;
class QLineEdit;

namespace Ui {
class frmTarvik;
}

namespace tarvik::ui {

class ListDelegate;
class ListHint;

/// The main screen: the vehicle selector, the entry's fields, the list with its totals and statistics, the
/// charts, the reminder switch and the menu that opens the other screens.
class frmTarvik : public QMainWindow {
  Q_OBJECT

 public:
  /// Builds the screen without reading anything. The context outlives it.
  explicit frmTarvik(Context& context);
  ~frmTarvik() override;

  /// Reads everything that the screen shows at start; a due date reminder shows its alert first. Called
  /// once, before the screen is shown.
  void load();

  /// Rebuilds the list and the totals from the logbook of the chosen vehicle.
  void beolvas();
  /// Clears the entry's fields; the note's cost and the date stay for the day's next entry.
  void MezoDel();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Building (frmTarvik.cpp).
  void place();
  void setUpFields();
  void setUpCharts();
  void connectButtons();
  void connectMenu();
  void loadLookups();
  void loadVehicles();
  void loadStartSettings();
  void fillPlates(const QStringList& plates);
  QString plate() const;
  std::string platePath() const;
  bool refusesBlankPlate(const QString& consequence);
  void openSetup();
  void openGumik();
  void openSzerviz();
  void print();

  // The entry (frmTarvik_entry.cpp).
  core::EntryInput entryInput() const;
  void showInput(const core::EntryInput& input);
  void showEntry(int record);
  void showStatistics(const core::Logbook& logbook, int record);
  void record();
  core::SeenRecord seenEntry() const;
  void modify();
  void remove();
  bool refusesBlankKm();
  Attempt addDistanceToTyres(const core::Ratio& distance);
  void quickAdd(QComboBox* field, const settings::LookupFile& list, const QString& what);
  void fillTexts(QComboBox* field, const settings::LookupFile& list);
  void keepNumeric(QLineEdit* field);
  void showPrice();
  void select(int record);

  // The list (frmTarvik_list.cpp).
  void setUpList();
  void toggleFilter();
  void chooseMode(int mode);
  void applyFilter();
  void relistInPlace();
  bool changeLogbook(const QString& done, const std::function<void()>& make);
  void keepDistancesWhole();
  void showCues();
  void markNewest();
  void showTotals();
  void showHint(QObject* field);

  // The list's context menu (frmTarvik_exchange.cpp).
  void setUpListMenu();
  void saveLog();
  void importLog();

  // The keyboard (frmTarvik_keyboard.cpp).
  void setUpKeyboard();
  void onKey(const QKeySequence& keys, QWidget* within, void (frmTarvik::*handler)());
  bool takesLetterOfChart(QObject* watched, QEvent* event);
  void jump();
  void openFilter();
  void listFiltered();
  void closeFilter();

  // Reminders (frmTarvik_reminders.cpp).
  void setUpReminders();
  void checkDates();
  void switchReminders(bool on);
  void checkKm();
  void openFigy();

  std::unique_ptr<Ui::frmTarvik> ui_;
  Context& context_;
  ListingModel* listing_;
  std::string listedPlate_;
  core::Totals totals_;
  QTimer* timer_;
  ToldOnce kmCheck_;
  ToldOnce noteSearch_;
  ListDelegate* delegate_ = nullptr;
  ListHint* emptyList_ = nullptr;
  ShownList shown_;
  std::int16_t selectedEntry_ = 0;
  std::int16_t listMode_ = core::kWholeList;
  bool wasShown_ = false;
  QPointer<QWidget> lastField_;
  QPointer<QWidget> filterOpener_;
};

}  // namespace tarvik::ui
