#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>
#include <memory>

#include "core/entry_input.h"
#include "core/reading.h"
#include "print/list_document.h"
#include "ui/base/context.h"
#include "ui/main/listed_logbook.h"

class QAction;
class QRadioButton;

namespace Ui {
class LogbookPane;
}

namespace tarvik::ui {

class ListDelegate;
class ListHint;
class ListingModel;
class ResultBand;
class SearchLine;

/// The logbook on the main screen: the list with its filter, the line over it that says what is listed, the
/// totals and the statistics of the chosen entry. It owns what is listed and which entry is chosen.
class LogbookPane : public QWidget {
  Q_OBJECT

 public:
  /// Lists nothing at first and reads nothing. The context outlives it.
  LogbookPane(Context& context, QWidget* parent);
  ~LogbookPane() override;

  /// Lets the filter begin with today.
  void load();
  /// The vehicle whose logbook is listed and changed from now on, its plate as it stands on the screen. What
  /// is listed stays; the line says so while it is another vehicle's.
  void setPlate(const QString& plate, bool hasVehicles);
  /// Whether the list is of that vehicle.
  bool listsChosenPlate() const;

  /// Rebuilds the list and the totals from the logbook of the vehicle, by the filter's options; nothing is
  /// chosen then. A logbook whose folder is not there is said to be unreadable, as one that cannot be read,
  /// which throws core::Failure, as a sum that leaves its type does.
  void beolvas();
  /// beolvas with the list left where it was.
  void relistInPlace();

  const ListedLogbook& listed() const { return listed_; }
  /// The chosen entry as it was seen: as it is listed; where another vehicle has been set since, what its
  /// logbook has under that number. Throws core::Failure when that one cannot be read.
  core::SeenRecord seenEntry() const;
  /// The odometer readings that an entry of the vehicle may follow, see core::earlierReadings; none where its
  /// logbook cannot be read.
  core::EarlierReadings earlierReadings() const;
  /// The rows to print.
  print::ListedRows printedRows() const;
  /// The overall average consumption as it is shown, with its unit.
  QString averageText() const;
  /// The consumption of the chosen entry as it is shown, or why there is none.
  QString consumptionText() const;

  /// Opens the filter, with the keyboard on its option, or closes it.
  void toggleFilter();
  /// After a recording: brings the new entry's row in view and tints it for a moment, unless a filter keeps
  /// it from the list.
  void markNewest();

  /// After a change elsewhere: reads the list anew with an entry that came back in view and tinted, without
  /// its filter where that would hide it; 0 for none.
  void showAgain(int record);

  /// The items of the list's menu for a menu bar: what finds a row, and what copies, reads in and saves.
  QAction* searchItem() const;
  QList<QAction*> exchangeItems() const;

  /// Lays a panel over the list; nobody reaches the list while it is shown.
  void layOver(QWidget& panel);
  /// Whether the keyboard is in the list or what lies over it.
  bool hasKeyboard() const;
  /// Gives the keyboard to what lies over the list, or to the list.
  void takeKeyboard();

  /// The height that the list asks for, in pixels.
  int listHeight() const;
  /// The width from which on the results stand beside each other, in pixels.
  int wideWidth() const;

 signals:
  /// The list was filled anew, or could not be.
  void listedAnew();
  /// The person chose an entry of the vehicle's logbook.
  void entryChosen(const core::ShownEntry& entry);
  /// An entry is chosen from now on, or none.
  void choiceChanged(bool isChosen);
  /// The person searches the list: what lies over it has to go.
  void listWanted();
  /// The person asks for a CSV file to be read in.
  void importWanted();

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::string trimmedPlate() const;
  void fillList();
  void setUpFilter();
  QList<QRadioButton*> modes() const;
  void openFilter();
  void closeFilter();
  bool takesFilterKey(const QKeyEvent& key);
  void applyFilter();
  void chooseMode(int mode);
  void choose(int record);
  void select(int record);
  void showStatistics(const core::Logbook& logbook, int record);
  void showCues();
  void saveLog();

  std::unique_ptr<Ui::LogbookPane> ui_;
  Context& context_;
  QString plate_;
  bool hasVehicles_ = false;
  ListedLogbook listed_;
  std::int16_t listMode_ = core::kWholeList;
  ListingModel* rows_;
  ListDelegate* delegate_ = nullptr;
  ListHint* emptyList_ = nullptr;
  ResultBand* results_ = nullptr;
  SearchLine* search_ = nullptr;
  QWidget* over_ = nullptr;
  QPointer<QWidget> filterOpener_;
  bool wasShown_ = false;
};

}  // namespace tarvik::ui
