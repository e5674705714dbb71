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
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/figure_fields.h"
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
  km_ = {.list = ui_->ListView1,
         .deletion = ui_->cmd_del,
         .file = "figyel.dat",
         .load = &figy::BeolvasFigyel,
         .choose = &figy::chooseKm,
         .csvName = QStringLiteral("figyelmeztetesek_km"),
         .csv = &kmRemindersCsv};
  dates_ = {.list = ui_->ListView2,
            .deletion = ui_->cmdDel2,
            .file = "figyDatum.dat",
            .load = &figy::BeolvasFigyDatum,
            .choose = &figy::chooseDate,
            .csvName = QStringLiteral("figyelmeztetesek_datum"),
            .csv = &dateRemindersCsv};
  addClosingMenu(*this, ui_->mnu_bezar);
  prepareFields();
  prepareTab(km_);
  prepareTab(dates_);
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
  makeFigureFields({ui_->tx_km_allas, ui_->tx_km_mulva}, kLongestGrouped);
  makeFigureFields({ui_->tx_atlag_km}, kLongestFigure);
  makeResults({ui_->lb_varh_datum});
  QSizePolicy keepsItsPlace = ui_->Label3->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  ui_->Label3->setSizePolicy(keepsItsPlace);
  ui_->DTPMikor->setDate(toQt(context_.clock.today()));
}

void figy::prepareTab(Tab& tab) {
  tab.rows = prepareReminderList(
      tab.list, {QStringLiteral("Dátum"), QStringLiteral("Szöveg"), QStringLiteral("Rendszám")});
  tab.list->sortByHeaderClicks();
  tab.list->onRowChosen([this, &tab](int row) { return (this->*tab.choose)(row); });
  new ListMenu(tab.list, {.save = [this, &tab] {
                 saveCsvFile(context_, tab.csvName, tab.csv(context_.files, context_.folders, *tab.rows),
                             this);
               }});
}

void figy::connectButtons() {
  onClick(this, ui_->cmd_rogzit, &figy::recordKm);
  onClick(this, ui_->cmd_del, &figy::deleteKm);
  onClick(this, ui_->cmdRogzit2, &figy::recordDate);
  onClick(this, ui_->cmdDel2, &figy::deleteDate);
}

void figy::BeolvasFigyel() {
  km_.rows->setRows({});
  kmReminders_ = reminders::loadKmReminders(context_.files, context_.folders);
  km_.rows->setRows(toTextRows(reminders::kmReminderRows(kmReminders_)));
  showChosen();
}

void figy::BeolvasFigyDatum() {
  dates_.rows->setRows({});
  dateReminders_ = reminders::loadDateReminders(context_.files, context_.folders);
  dates_.rows->setRows(toTextRows(reminders::dateReminderRows(dateReminders_)));
  showChosen();
}

// A button that is disabled deletes nothing, so its list highlights nothing.
void figy::showChosen(const Tab& tab) {
  tab.list->highlightRecord(tab.deletion->isEnabled() ? context_.state.selectedReminder : 0);
}

void figy::showChosen() {
  showChosen(km_);
  showChosen(dates_);
}

// The other list then shows what its own button would delete by now.
void figy::select(std::int16_t number, const Tab& tab, const Tab& other) {
  context_.state.selectedReminder = number;
  if (number != 0) tab.deletion->setEnabled(true);
  showChosen(other);
}

// The number is one for both lists: without it neither button has anything to delete.
void figy::forgetChosen() {
  context_.state.selectedReminder = 0;
  ui_->cmd_del->setEnabled(false);
  ui_->cmdDel2->setEnabled(false);
}

void figy::loadInPlace(const Tab& tab) {
  tab.list->keepPlace([&] { (this->*tab.load)(); });
}

void figy::change(const Tab& tab, const QString& done, const std::function<void()>& make) {
  carryOut(
      this,
      {.done = done, .make = make, .forget = [this] { forgetChosen(); }, .list = [&] { loadInPlace(tab); }});
}

void figy::record(const Tab& tab, const QLineEdit& text, const std::function<void()>& make) {
  const QString what = text.text().trimmed();
  const Step step(this, QStringLiteral("figyelmeztetés rögzítése, %1").arg(what),
                  QStringLiteral("Rögzítve: %1").arg(what));
  change(tab, QStringLiteral("A figyelmeztetés rögzítve van."), make);
}

void figy::remove(const Tab& tab, const QString& text, const std::function<void()>& make) {
  const Step step(this, QStringLiteral("figyelmeztetés törlése"), QStringLiteral("Törölve: %1").arg(text));
  change(tab, QStringLiteral("A figyelmeztetés törölve van."), [&] {
    make();
    context_.state.selectedReminder = 0;
    tab.deletion->setEnabled(false);
  });
  tab.list->setFocus();
}

void figy::followChange(const core::Travelled& travelled) {
  const auto pathOf = [this](const Tab& tab) { return context_.folders.inCurrent(tab.file); };
  const bool isKm = concerns(travelled, pathOf(km_));
  if (!isKm && !concerns(travelled, pathOf(dates_))) return;
  forgetChosen();
  ui_->SSTab1->setCurrentIndex(isKm ? 0 : 1);
  for (const Tab* tab : {&km_, &dates_}) {
    loadInPlace(*tab);
    tab->list->markRecord(recordThatCameBack(travelled, pathOf(*tab)));
  }
}

void figy::recordKm() {
  const reminders::KmReminderEntry entry{.text = toLogic(ui_->tx_szoveg->text()),
                                         .reading = toLogic(ui_->tx_km_allas->text()),
                                         .after = toLogic(ui_->tx_km_mulva->text()),
                                         .plate = toLogic(plate_)};
  if (!confirmsRecording(this, QString(), reminders::addsReminder(kmReminders_, entry))) return;
  record(km_, *ui_->tx_szoveg, [&] {
    reminders::recordKmReminder(context_.files, context_.folders, entry, context_.clock.today());
  });
}

// A reminder is chosen even where its estimate fails: that is told, and the reminder can be deleted.
bool figy::chooseKm(int row) {
  reminders::FigyelRec reminder;
  const bool isChosen = guarded(this, [&] {
    const auto stored = reminders::loadKmReminders(context_.files, context_.folders);
    const std::int16_t number = reminders::recordNumber(toLogic(km_.rows->record(row)));
    reminder = stored.record(number);
    ui_->Label3->hide();
    select(number, km_, dates_);
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
  remove(km_, reminderText<reminders::FigyelRec>(seen), [&] {
    reminders::blankKmReminder(context_.files, context_.folders, seen);
    clearKmFields();
  });
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
  record(dates_, *ui_->txtMire, [&] {
    reminders::recordDateReminder(context_.files, context_.folders, entry, context_.clock.today());
  });
}

bool figy::chooseDate(int row) {
  const bool isChosen =
      guarded(this, [&] { select(reminders::recordNumber(toLogic(dates_.rows->record(row))), dates_, km_); });
  return isChosen && (context_.state.selectedReminder != 0 || leavePlaceholder(ui_->ListView2));
}

void figy::deleteDate() {
  if (!confirmsDeletion()) return;
  const core::SeenRecord seen = dateReminders_.seen(context_.state.selectedReminder);
  remove(dates_, reminderText<reminders::FigyDatumRec>(seen),
         [&] { reminders::deleteDateReminder(context_.files, context_.folders, seen); });
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
