#include "ui/frmDatumFigyelmeztetes.h"

#include "reminders/date_reminders.h"
#include "ui/controls/message_boxes.h"
#include "ui/guarded.h"
#include "ui/look.h"
#include "ui/models/reminder_rows.h"
#include "ui/placement.h"
#include "ui/reminder_parts.h"
#include "ui/text.h"
#include "ui_frmDatumFigyelmeztetes.h"

namespace tarvik::ui {
frmDatumFigyelmeztetes::frmDatumFigyelmeztetes(Context& context, QWidget* parent)
    : QDialog(parent), context_(context), ui_(std::make_unique<Ui::frmDatumFigyelmeztetes>()) {
  ui_->setupUi(this);
  rows_ = prepareReminderList(
      ui_->ListView1,
      {QStringLiteral("Dátum"), QStringLiteral("Figyelmeztetés Szövege"), QStringLiteral("Rendszám")});
  connect(ui_->ListView1, &ListView::rowChosen, this,
          [this](int row) { guarded(this, [&] { choose(row); }); });
  connect(ui_->cmdDel, &QPushButton::clicked, this, [this] { guarded(this, [this] { deleteChosen(); }); });
  connect(ui_->Command1, &QPushButton::clicked, this, &QDialog::close);
  keepWithinReach(*this);
  guarded(this, [this] { load(); });
  openInTheMiddle(*this);
}

frmDatumFigyelmeztetes::~frmDatumFigyelmeztetes() = default;

void frmDatumFigyelmeztetes::load() {
  const auto stored = reminders::loadDateReminders(context_.files, context_.folders);
  rows_->setRows(toTextRows(reminders::dueDateRows(stored, context_.clock.today())));
}

void frmDatumFigyelmeztetes::choose(int row) {
  selected_ = reminders::recordNumber(toLogic(rows_->record(row)));
  const auto reminder = reminders::loadDateReminders(context_.files, context_.folders).record(selected_);
  const auto details = reminders::dateReminderDetails(reminder, context_.clock.today());
  showCaption(ui_->lbDatum, toQt(details.date));
  showCaption(ui_->lbSzoveg, toQt(details.text));
  showCaption(ui_->lbBeirva, toQt(details.enteredOn));
  showCaption(ui_->lbRendszam, toQt(details.plate));
  showCaption(ui_->lbNapok, toQt(details.daysLeft));
  showOverdue(*ui_->lbNapok, details.daysLeft.starts_with('-'));
}

// Without a chosen row nothing is deleted and the screen closes all the same: this system's convention.
void frmDatumFigyelmeztetes::deleteChosen() {
  if (!ask(this, QStringLiteral(" Törlés az adatállományból !"),
           QStringLiteral("Biztos TÖRÖLHETŐ\na figyelmeztetés ?"), DefaultAnswer::No))
    return;
  reminders::deleteDateReminder(context_.files, context_.folders, selected_);
  close();
}

}  // namespace tarvik::ui
