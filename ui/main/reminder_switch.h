#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>

#include "ui/base/context.h"
#include "ui/base/guarded.h"
#include "ui/windows/reminder_parts.h"

namespace Ui {
class ReminderSwitch;
}

namespace tarvik::ui {

/// The reminders on the main screen: the switch `Check1`, the check of the km reminders every five seconds
/// (`Timer1`), the check of the date reminders at start, and the way to the screen of reminders.
class ReminderSwitch : public QWidget {
  Q_OBJECT

 public:
  /// On at first, with the timer running; reads nothing. The context outlives it.
  ReminderSwitch(Context& context, QWidget* parent);
  ~ReminderSwitch() override;

  /// The vehicle whose km reminders are checked from now on, its plate as it stands on the screen.
  void setPlate(const QString& plate) { plate_ = plate; }
  /// Puts the switch as it was stored. One that stands so already does nothing, not even save itself.
  void setOn(bool on);
  /// Puts the switch as it is stored by now; everything that belongs to it follows, and nothing is saved.
  void follow(bool on);
  /// Lets the timer run, beginning a full interval, or rest, whatever the switch says.
  void setChecking(bool on);

  /// Opens the date alert when a date reminder is due. Throws core::Failure when they cannot be read.
  void checkDates();
  /// Opens the screen of reminders; the timer rests meanwhile and runs afterwards, whatever the switch says.
  void openFigy();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void switchReminders(bool on);
  void showSwitched(bool on);
  void checkKm();

  std::unique_ptr<Ui::ReminderSwitch> ui_;
  Context& context_;
  QString plate_;
  QTimer* timer_;
  ToldOnce kmCheck_;
  UncheckedTold unchecked_;
  bool wasShown_ = false;
};

}  // namespace tarvik::ui
