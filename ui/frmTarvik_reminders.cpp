#include <QApplication>

#include "reminders/date_reminders.h"
#include "reminders/km_alert.h"
#include "settings/start_settings.h"
#include "ui/figy.h"
#include "ui/frmDatumFigyelmeztetes.h"
#include "ui/frmTarvik.h"
#include "ui/guarded.h"
#include "ui/riaszt.h"
#include "ui/text.h"
#include "ui_frmTarvik.h"

// The reminders on the main screen: the switch, the timer and the check at start.

namespace tarvik::ui {
namespace {

constexpr int kCheckIntervalMilliseconds = 5'000;

}  // namespace

void frmTarvik::setUpReminders() {
  timer_->setObjectName(QStringLiteral("Timer1"));
  timer_->setInterval(kCheckIntervalMilliseconds);
  timer_->start();
  connect(timer_, &QTimer::timeout, this, [this] { guarded(this, [this] { checkKm(); }); });
  connect(ui_->Check1, &QCheckBox::toggled, this,
          [this](bool on) { guarded(this, [&] { switchReminders(on); }); });
}

void frmTarvik::switchReminders(bool on) {
  settings::saveReminderFlag(context_.files, context_.folders, core::toFlag(on));
  context_.state.reminderState = on ? 1 : 0;
  ui_->Check1->setText(on ? QStringLiteral("  Bekapcsolva  ") : QStringLiteral("  Kikapcsolva  "));
  on ? timer_->start() : timer_->stop();
}

void frmTarvik::checkDates() {
  const auto due = reminders::firstDueDateReminder(context_.files, context_.folders, context_.clock.today());
  if (!due) return;
  context_.state.selectedReminder = static_cast<std::int16_t>(*due);
  frmDatumFigyelmeztetes(context_, this).exec();
}

// The timer rests while the check and its alert last. While any other question or screen is open the check
// waits for the next tick: an alert never lies over it.
void frmTarvik::checkKm() {
  if (!ui_->Check1->isChecked()) {
    timer_->stop();
    return;
  }
  if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) return;
  timer_->stop();
  const reminders::KmCheck found = reminders::checkKm(context_.files, context_.folders, platePath());
  if (!found.hasEntries) return;
  if (found.firstPassed) {
    context_.state.selectedReminder = static_cast<std::int16_t>(*found.firstPassed);
    context_.state.currentReading = found.reading;
    riaszt(context_, plate(), this).exec();
  }
  timer_->start();
}

void frmTarvik::openFigy() {
  timer_->stop();
  figy(context_, plate(), this).exec();
  timer_->start();
}

}  // namespace tarvik::ui
