#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "ui/base/context.h"

namespace Ui {
class frmTarvik;
}

namespace tarvik::ui {

class ChartPanel;
class EntryForm;
class LogbookPane;
class ReminderSwitch;

/// The main screen: the vehicle selector, and what it is composed of: the menu that opens the other screens,
/// the reminder switch, the entry's form, the logbook and the charts over it.
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
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void compose();
  void connectParts();
  void setUpKeyboard();

  QString plate() const;
  void setPlates(const QStringList& plates);
  void loadStartSettings();
  void followPlate();
  void showEarlier();
  void follow(const core::Travelled& travelled);
  void followLogbook(const core::TravelledFile& file, int cameBack);
  void followSwitch();
  bool refusesBlankPlate(const QString& consequence);

  void toggleFilter();
  void toggleChart();
  void uncoverList();
  void importLog();
  void jump();

  std::unique_ptr<Ui::frmTarvik> ui_;
  Context& context_;
  ReminderSwitch* reminders_ = nullptr;
  EntryForm* entry_ = nullptr;
  LogbookPane* logbook_ = nullptr;
  ChartPanel* chart_ = nullptr;
  QPointer<QWidget> lastField_;
};

}  // namespace tarvik::ui
