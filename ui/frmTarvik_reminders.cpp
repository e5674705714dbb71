#include <QApplication>

#include "settings/start_settings.h"
#include "ui/frmTarvik.h"
#include "ui/guarded.h"
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

void frmTarvik::checkDates() {}

void frmTarvik::checkKm() {}

void frmTarvik::openFigy() {}

void frmTarvik::openGumik() {}

void frmTarvik::openSzerviz() {}

void frmTarvik::print() {}

}  // namespace tarvik::ui
