#include "ui/windows/frmDatumFigyelmeztetes.h"

#include "reminders/date_reminders.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/look/enter_key.h"
#include "ui/look/figure_fields.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui/windows/reminder_parts.h"
#include "ui_frmDatumFigyelmeztetes.h"

namespace tarvik::ui {
frmDatumFigyelmeztetes::frmDatumFigyelmeztetes(Context& context, QWidget* parent)
    : QDialog(parent), context_(context), ui_(std::make_unique<Ui::frmDatumFigyelmeztetes>()) {
  ui_->setupUi(this);
  makeResults({ui_->lbDatum, ui_->lbSzoveg, ui_->lbBeirva, ui_->lbRendszam});
  rows_ = prepareReminderList(
      ui_->ListView1,
      {QStringLiteral("Dátum"), QStringLiteral("Figyelmeztetés Szövege"), QStringLiteral("Rendszám")});
  keepWhole(*ui_->ListView1, 0, QStringLiteral("WWW9999.99.99."));  // a mark stands before the date
  ui_->ListView1->onRowChosen([this](int row) { return guarded(this, [&] { choose(row); }); });
  onClick(this, ui_->cmdDel, &frmDatumFigyelmeztetes::deleteChosen);
  connect(ui_->Command1, &QPushButton::clicked, this, &QDialog::close);
  followEnterRule(*this);
  new UndoLine(context_, *this, *ui_->mainLayout,
               [this](const core::Travelled& travelled) { followChange(travelled); });
  keepWithinReach(*this);
  guarded(this, [this] { load(); });
  openInTheMiddle(*this);
}

frmDatumFigyelmeztetes::~frmDatumFigyelmeztetes() = default;

void frmDatumFigyelmeztetes::load() {
  rows_->setRows({});
  listed_ = reminders::loadDateReminders(context_.files, context_.folders);
  const auto due = reminders::dueDateRows(listed_, context_.clock.today());
  std::vector<TextRow> rows = toTextRows(due);
  for (std::size_t row = 0; row < due.size(); ++row) rows[row].overdue = due[row].isOverdue;
  rows_->setRows(std::move(rows));
}

void frmDatumFigyelmeztetes::choose(int row) {
  const std::int16_t number = reminders::recordNumber(toLogic(rows_->record(row)));
  const auto reminder = reminders::loadDateReminders(context_.files, context_.folders).record(number);
  const auto details = reminders::dateReminderDetails(reminder, context_.clock.today());
  selected_ = number;
  showCaption(ui_->lbDatum, toQt(details.date));
  showCaption(ui_->lbSzoveg, toQt(details.text));
  showCaption(ui_->lbBeirva, toQt(details.enteredOn));
  showCaption(ui_->lbRendszam, toQt(details.plate));
  showCaption(ui_->lbNapok, toQt(details.daysLeft));
  showOverdue(*ui_->lbNapok, details.daysLeft.starts_with('-'));
}

void frmDatumFigyelmeztetes::forgetChosen() {
  selected_ = 0;
  for (QLabel* caption : std::initializer_list<QLabel*>{ui_->lbDatum, ui_->lbSzoveg, ui_->lbBeirva,
                                                        ui_->lbRendszam, ui_->lbNapok})
    showCaption(caption, QString());
}

void frmDatumFigyelmeztetes::followChange(const core::Travelled& travelled) {
  const std::string path = context_.folders.inCurrent("figyDatum.dat");
  if (!concerns(travelled, path)) return;
  forgetChosen();
  ui_->ListView1->keepPlace([this] { load(); });
  ui_->ListView1->markRecord(recordThatCameBack(travelled, path));
}

// Without a chosen row nothing is deleted and the screen closes all the same.
void frmDatumFigyelmeztetes::deleteChosen() {
  if (!ask(this, QStringLiteral(" Törlés az adatállományból !"),
           QStringLiteral("Biztos TÖRÖLHETŐ\na figyelmeztetés ?"), DefaultAnswer::No))
    return;
  const Step step(
      this, QStringLiteral("figyelmeztetés törlése"),
      QStringLiteral("Törölve: %1").arg(reminderText<reminders::FigyDatumRec>(listed_.seen(selected_))));
  bool isDeleted = false;
  carryOut(this, {.make =
                      [&] {
                        reminders::deleteDateReminder(context_.files, context_.folders,
                                                      listed_.seen(selected_));
                        isDeleted = true;
                      },
                  .forget = [this] { forgetChosen(); },
                  .list =
                      [&] {
                        if (!isDeleted) ui_->ListView1->keepPlace([this] { load(); });
                      }});
  if (isDeleted) close();
}

}  // namespace tarvik::ui
