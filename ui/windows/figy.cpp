#include "ui/windows/figy.h"

#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_menu.h"
#include "ui/lists/list_tables.h"
#include "ui/lists/reminder_rows.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui/windows/reminder_parts.h"
#include "ui_figy.h"

namespace tarvik::ui {
namespace {

// The row that says that there is none selects nothing, and does not look as if it did.
bool leavePlaceholder(ListView* list) {
  list->selectionModel()->clearCurrentIndex();
  return false;
}

// Enter answers No where a reminder would be overwritten or doubled.
bool confirmsRecording(QWidget* screen, const QString& whose, bool isNew) {
  return ask(screen, QStringLiteral(" Rögzítés az adatállományban !"),
             QStringLiteral("Biztos JÓK az adatok ?\nMehet a rögzítés ") + whose,
             isNew ? DefaultAnswer::Yes : DefaultAnswer::No);
}

}  // namespace

figy::figy(Context& context, QString plate, QWidget* parent)
    : QDialog(parent), context_(context), plate_(std::move(plate)), ui_(std::make_unique<Ui::figy>()) {
  ui_->setupUi(this);
  makeAccessible(*this);
  addClosingMenu(*this, ui_->mnu_bezar);
  prepareFields();
  prepareLists();
  addListMenus();
  connectButtons();
  followEnterRule(*this);
  new UndoLine(context_, *this, *ui_->mainLayout,
               [this](const core::Travelled& travelled) { followChange(travelled); });
  keepWithinReach(*this);
  ui_->tx_km_allas->setFocus();
  openInTheMiddle(*this);
  guarded(this, [this] { BeolvasFigyel(); });
  guarded(this, [this] { BeolvasFigyDatum(); });
}

figy::~figy() = default;

void figy::prepareFields() {
  QSizePolicy keepsItsPlace = ui_->Label3->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  ui_->Label3->setSizePolicy(keepsItsPlace);
  ui_->Label3->hide();
  ui_->DTPMikor->setDate(toQt(context_.clock.today()));
}

void figy::prepareLists() {
  const QStringList headers{QStringLiteral("Dátum"), QStringLiteral("Szöveg"), QStringLiteral("Rendszám")};
  kmRows_ = prepareReminderList(ui_->ListView1, headers);
  dateRows_ = prepareReminderList(ui_->ListView2, headers);
  ui_->ListView1->sortByHeaderClicks();
  ui_->ListView2->sortByHeaderClicks();
  ui_->ListView1->onRowChosen([this](int row) { return chooseKm(row); });
  ui_->ListView2->onRowChosen([this](int row) { return chooseDate(row); });
}

void figy::addListMenus() {
  new ListMenu(ui_->ListView1, {.save = [this] {
                 saveCsvFile(context_, QStringLiteral("figyelmeztetesek_km"),
                             kmRemindersCsv(context_.files, context_.folders, *kmRows_), this);
               }});
  new ListMenu(ui_->ListView2, {.save = [this] {
                 saveCsvFile(context_, QStringLiteral("figyelmeztetesek_datum"),
                             dateRemindersCsv(context_.files, context_.folders, *dateRows_), this);
               }});
}

void figy::connectButtons() {
  onClick(this, ui_->cmd_rogzit, &figy::recordKm);
  onClick(this, ui_->cmd_del, &figy::deleteKm);
  onClick(this, ui_->cmdRogzit2, &figy::recordDate);
  onClick(this, ui_->cmdDel2, &figy::deleteDate);
}

void figy::BeolvasFigyel() {
  kmRows_->setRows({});
  kmReminders_ = reminders::loadKmReminders(context_.files, context_.folders);
  kmRows_->setRows(toTextRows(reminders::kmReminderRows(kmReminders_)));
  showChosen();
}

void figy::BeolvasFigyDatum() {
  dateRows_->setRows({});
  dateReminders_ = reminders::loadDateReminders(context_.files, context_.folders);
  dateRows_->setRows(toTextRows(reminders::dateReminderRows(dateReminders_)));
  showChosen();
}

// A button that is disabled deletes nothing, so its list highlights nothing.
void figy::showChosen() {
  showChosen(ui_->ListView1, ui_->cmd_del);
  showChosen(ui_->ListView2, ui_->cmdDel2);
}

void figy::showChosen(ListView* list, const QAbstractButton* deletion) {
  list->highlightRecord(deletion->isEnabled() ? context_.state.selectedReminder : 0);
}

// The other list then shows what its own button would delete by now.
void figy::select(std::int16_t number, QAbstractButton* deletion) {
  context_.state.selectedReminder = number;
  if (number != 0) deletion->setEnabled(true);
  if (deletion == ui_->cmd_del) return showChosen(ui_->ListView2, ui_->cmdDel2);
  showChosen(ui_->ListView1, ui_->cmd_del);
}

// The number is one for both lists: without it neither button has anything to delete.
void figy::forgetChosen() {
  context_.state.selectedReminder = 0;
  ui_->cmd_del->setEnabled(false);
  ui_->cmdDel2->setEnabled(false);
}

bool figy::changeKm(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done,
                         .make = make,
                         .forget = [this] { forgetChosen(); },
                         .list = [this] { ui_->ListView1->keepPlace([this] { BeolvasFigyel(); }); }});
}

bool figy::changeDates(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done,
                         .make = make,
                         .forget = [this] { forgetChosen(); },
                         .list = [this] { ui_->ListView2->keepPlace([this] { BeolvasFigyDatum(); }); }});
}

void figy::followChange(const core::Travelled& travelled) {
  const std::string km = context_.folders.inCurrent("figyel.dat");
  const std::string dates = context_.folders.inCurrent("figyDatum.dat");
  if (!concerns(travelled, km) && !concerns(travelled, dates)) return;
  forgetChosen();
  ui_->SSTab1->setCurrentIndex(concerns(travelled, km) ? 0 : 1);
  ui_->ListView1->keepPlace([this] { BeolvasFigyel(); });
  ui_->ListView2->keepPlace([this] { BeolvasFigyDatum(); });
  ui_->ListView1->markRecord(recordThatCameBack(travelled, km));
  ui_->ListView2->markRecord(recordThatCameBack(travelled, dates));
}

void figy::recordKm() {
  const reminders::KmReminderEntry entry{.text = toLogic(ui_->tx_szoveg->text()),
                                         .reading = toLogic(ui_->tx_km_allas->text()),
                                         .after = toLogic(ui_->tx_km_mulva->text()),
                                         .plate = toLogic(plate_)};
  if (!confirmsRecording(this, QString(), reminders::addsReminder(kmReminders_, entry))) return;
  const QString what = ui_->tx_szoveg->text().trimmed();
  const Step step(this, QStringLiteral("figyelmeztetés rögzítése, %1").arg(what),
                  QStringLiteral("Rögzítve: %1").arg(what));
  changeKm(QStringLiteral("A figyelmeztetés rögzítve van."), [&] {
    reminders::recordKmReminder(context_.files, context_.folders, entry, context_.clock.today());
  });
}

// A reminder is chosen even where its estimate fails: that is told, and the reminder can be deleted.
bool figy::chooseKm(int row) {
  reminders::FigyelRec reminder;
  const bool isChosen = guarded(this, [&] {
    const auto stored = reminders::loadKmReminders(context_.files, context_.folders);
    const std::int16_t number = reminders::recordNumber(toLogic(kmRows_->record(row)));
    reminder = stored.record(number);
    ui_->Label3->hide();
    select(number, ui_->cmd_del);
  });
  if (!isChosen) return false;
  if (context_.state.selectedReminder == 0) return leavePlaceholder(ui_->ListView1);
  showReminder(reminder);
  guarded(this, [&] {
    showEstimate(reminders::estimateFor(context_.files, context_.folders, toLogic(plate_), reminder,
                                        context_.clock.today()));
  });
  return true;
}

void figy::showReminder(const reminders::FigyelRec& reminder) {
  fillField(ui_->tx_szoveg, reminder.Szoveg.asStored());
  fillField(ui_->tx_km_allas, reminders::grouped(reminder.KmAllas));
  fillField(ui_->tx_km_mulva, reminders::grouped(reminder.KmMulva));
}

void figy::showEstimate(const reminders::Estimate& estimate) {
  if (estimate.dailyAverage) fillField(ui_->tx_atlag_km, std::to_string(*estimate.dailyAverage));
  if (estimate.overdue) ui_->Label3->show();
  if (estimate.expected) showExpectedDate(toQt(core::shortDate(*estimate.expected)));
}

void figy::showExpectedDate(const QString& caption) {
  showCaption(ui_->lb_varh_datum, caption);
  const std::optional<std::string> name = reminders::weekdayName(toLogic(caption));
  if (name) showCaption(ui_->Label2, toQt(*name));
}

void figy::deleteKm() {
  if (!confirmsDeletion()) return;
  const core::SeenRecord seen = kmReminders_.seen(context_.state.selectedReminder);
  const Step step(this, QStringLiteral("figyelmeztetés törlése"),
                  QStringLiteral("Törölve: %1").arg(reminderText<reminders::FigyelRec>(seen)));
  changeKm(QStringLiteral("A figyelmeztetés törölve van."), [this] {
    reminders::blankKmReminder(context_.files, context_.folders,
                               kmReminders_.seen(context_.state.selectedReminder));
    context_.state.selectedReminder = 0;
    ui_->cmd_del->setEnabled(false);
    clearKmFields();
  });
  ui_->ListView1->setFocus();
}

void figy::clearKmFields() {
  for (QLineEdit* field : {ui_->tx_szoveg, ui_->tx_km_allas, ui_->tx_km_mulva}) field->clear();
  ui_->Label3->hide();
  showCaption(ui_->lb_varh_datum, QString());
  showCaption(ui_->Label2, QString());
}

void figy::recordDate() {
  const reminders::DateReminderEntry entry{.when = toLogic(ui_->DTPMikor->date()),
                                           .text = toLogic(ui_->txtMire->text()),
                                           .plate = toLogic(plate_)};
  const QString whose = plate_ + QStringLiteral(" gépkocsira?");
  if (!confirmsRecording(this, whose, reminders::addsReminder(dateReminders_, entry))) return;
  const QString what = ui_->txtMire->text().trimmed();
  const Step step(this, QStringLiteral("figyelmeztetés rögzítése, %1").arg(what),
                  QStringLiteral("Rögzítve: %1").arg(what));
  changeDates(QStringLiteral("A figyelmeztetés rögzítve van."), [&] {
    reminders::recordDateReminder(context_.files, context_.folders, entry, context_.clock.today());
  });
}

bool figy::chooseDate(int row) {
  const bool isChosen =
      guarded(this, [&] { select(reminders::recordNumber(toLogic(dateRows_->record(row))), ui_->cmdDel2); });
  return isChosen && (context_.state.selectedReminder != 0 || leavePlaceholder(ui_->ListView2));
}

void figy::deleteDate() {
  if (!confirmsDeletion()) return;
  const core::SeenRecord seen = dateReminders_.seen(context_.state.selectedReminder);
  const Step step(this, QStringLiteral("figyelmeztetés törlése"),
                  QStringLiteral("Törölve: %1").arg(reminderText<reminders::FigyDatumRec>(seen)));
  changeDates(QStringLiteral("A figyelmeztetés törölve van."), [this] {
    reminders::deleteDateReminder(context_.files, context_.folders,
                                  dateReminders_.seen(context_.state.selectedReminder));
    context_.state.selectedReminder = 0;
    ui_->cmdDel2->setEnabled(false);
  });
  ui_->ListView2->setFocus();
}

bool figy::confirmsDeletion() {
  if (context_.state.selectedReminder == 0) {
    tellNothingSelected(this);
    return false;
  }
  return ask(this, QStringLiteral(" Törlés az adatállományból !"),
             QStringLiteral("Biztos TÖRÖLHETŐ\na listán kijelölt tétel ?"), DefaultAnswer::No);
}

}  // namespace tarvik::ui
