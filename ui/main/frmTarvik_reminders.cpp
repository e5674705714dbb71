#include <QApplication>
#include <QSignalBlocker>

#include "reminders/date_reminders.h"
#include "reminders/km_alert.h"
#include "settings/start_settings.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/main/frmTarvik.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"
#include "ui_frmTarvik.h"

// The reminders on the main screen: the switch, the timer and the check at start.

namespace tarvik::ui {
namespace {

constexpr int kCheckIntervalMilliseconds = 5'000;

// Whether the alert may come over what is open: a screen is no reason to wait, a question, an error or a file
// dialog is.
bool mayBeCovered(QWidget* modal) {
  if (modal == nullptr) return true;
  return qobject_cast<frmSetup*>(modal) != nullptr || qobject_cast<frmGumik*>(modal) != nullptr ||
         qobject_cast<frmSzerviz*>(modal) != nullptr || qobject_cast<frmMelyGrafikon*>(modal) != nullptr ||
         qobject_cast<frmDatumFigyelmeztetes*>(modal) != nullptr;
}

}  // namespace

void frmTarvik::setUpReminders() {
  timer_->setObjectName(QStringLiteral("Timer1"));
  timer_->setInterval(kCheckIntervalMilliseconds);
  timer_->start();
  connect(timer_, &QTimer::timeout, this, [this] { guarded(this, [this] { checkKm(); }); });
  connect(ui_->Check1, &QCheckBox::toggled, this, &frmTarvik::switchReminders);
}

// The mark, the caption, the timer and the shared state agree: what cannot be saved is not switched.
void frmTarvik::switchReminders(bool on) {
  const bool isSaved =
      guarded(this, [&] { settings::saveReminderFlag(context_.files, context_.folders, core::toFlag(on)); },
              {.unsure = QStringLiteral("A kapcsoló úgy maradt, ahogy volt.")});
  if (!isSaved) {
    const QSignalBlocker own(ui_->Check1);
    ui_->Check1->setChecked(!on);
    return;
  }
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

// The timer rests while the check and its alert last; a check that fails is told once and goes on. While a
// question is open the check waits for the next tick.
void frmTarvik::checkKm() {
  if (!ui_->Check1->isChecked()) {
    timer_->stop();
    return;
  }
  QWidget* modal = QApplication::activeModalWidget();
  if (!mayBeCovered(modal) || QApplication::activePopupWidget() != nullptr) return;
  timer_->stop();
  reminders::KmCheck found;
  kmCheck_.run(this, [&] { found = reminders::checkKm(context_.files, context_.folders, platePath()); });
  if (found.hasLogbook && !found.hasEntries) return;
  if (found.firstPassed) {
    context_.state.selectedReminder = static_cast<std::int16_t>(*found.firstPassed);
    context_.state.currentReading = found.reading;
    riaszt(context_, plate(), modal != nullptr ? modal : this).exec();
  }
  timer_->start();
}

void frmTarvik::openFigy() {
  timer_->stop();
  figy(context_, plate(), this).exec();
  timer_->start();
}

}  // namespace tarvik::ui
