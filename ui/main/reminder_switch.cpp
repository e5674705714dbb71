#include "ui/main/reminder_switch.h"

#include <QApplication>
#include <QSignalBlocker>

#include "reminders/date_reminders.h"
#include "reminders/km_alert.h"
#include "settings/start_settings.h"
#include "ui/base/text.h"
#include "ui/look/access.h"
#include "ui/look/undo_line.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"
#include "ui_reminder_switch.h"

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

ReminderSwitch::ReminderSwitch(Context& context, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ReminderSwitch>()),
      context_(context),
      timer_(new QTimer(this)) {
  ui_->setupUi(this);
  makeAccessible(*this);
  timer_->setObjectName(QStringLiteral("Timer1"));
  timer_->setInterval(kCheckIntervalMilliseconds);
  timer_->start();
  connect(timer_, &QTimer::timeout, this, [this] { guarded(window(), [this] { checkKm(); }); });
  connect(ui_->Check1, &QCheckBox::toggled, this, &ReminderSwitch::switchReminders);
}

ReminderSwitch::~ReminderSwitch() = default;

void ReminderSwitch::setOn(bool on) {
  ui_->Check1->setChecked(on);
}

void ReminderSwitch::setChecking(bool on) {
  on ? timer_->start() : timer_->stop();
}

void ReminderSwitch::follow(bool on) {
  const QSignalBlocker stored(ui_->Check1);
  ui_->Check1->setChecked(on);
  showSwitched(on);
}

void ReminderSwitch::showSwitched(bool on) {
  context_.state.reminderState = on ? 1 : 0;
  ui_->Check1->setText(on ? QStringLiteral("  Bekapcsolva  ") : QStringLiteral("  Kikapcsolva  "));
  setChecking(on);
}

// The mark, the caption, the timer and the shared state agree: what cannot be saved is not switched.
void ReminderSwitch::switchReminders(bool on) {
  const Step step(
      this, QStringLiteral("figyelmeztetések kapcsolása"),
      on ? QStringLiteral("Figyelmeztetések bekapcsolva") : QStringLiteral("Figyelmeztetések kikapcsolva"));
  const bool isSaved = guarded(
      window(), [&] { settings::saveReminderFlag(context_.files, context_.folders, core::toFlag(on)); },
      {.unsure = QStringLiteral("A kapcsoló úgy maradt, ahogy volt.")});
  if (!isSaved) {
    const QSignalBlocker own(ui_->Check1);
    ui_->Check1->setChecked(!on);
    return;
  }
  showSwitched(on);
}

void ReminderSwitch::checkDates() {
  const auto due = reminders::firstDueDateReminder(context_.files, context_.folders, context_.clock.today());
  if (!due) return;
  context_.state.selectedReminder = static_cast<std::int16_t>(*due);
  frmDatumFigyelmeztetes(context_, window()).exec();
}

// The timer rests while the check and its alert last; a check that fails is told once and goes on. While a
// question is open the check waits for the next tick.
void ReminderSwitch::checkKm() {
  if (!ui_->Check1->isChecked()) return timer_->stop();
  QWidget* modal = QApplication::activeModalWidget();
  if (!mayBeCovered(modal) || QApplication::activePopupWidget() != nullptr) return;
  timer_->stop();
  reminders::KmCheck found;
  kmCheck_.run(window(),
               [&] { found = reminders::checkKm(context_.files, context_.folders, toLogic(plate_)); });
  if (found.hasLogbook && !found.hasEntries) return;
  unchecked_.tell(window(), found.unchecked);
  if (found.firstPassed) {
    context_.state.selectedReminder = static_cast<std::int16_t>(*found.firstPassed);
    context_.state.currentReading = found.reading;
    riaszt(context_, plate_, modal != nullptr ? modal : window()).exec();
  }
  timer_->start();
}

void ReminderSwitch::openFigy() {
  timer_->stop();
  figy(context_, plate_, window()).exec();
  timer_->start();
}

void ReminderSwitch::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (wasShown_) return;
  wasShown_ = true;
  if (timer_->isActive()) timer_->start();  // the first check comes a full interval after this
}

}  // namespace tarvik::ui
