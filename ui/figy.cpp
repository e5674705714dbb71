#include "ui/figy.h"

#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "ui/controls/message_boxes.h"
#include "ui/dialog_parts.h"
#include "ui/guarded.h"
#include "ui/models/reminder_rows.h"
#include "ui/placement.h"
#include "ui/reminder_parts.h"
#include "ui/text.h"
#include "ui_figy.h"

namespace tarvik::ui {
namespace {

bool confirmsRecording(QWidget* screen, const QString& whose) {
  return ask(screen, QStringLiteral(" Rögzítés az adatállományban !"),
             QStringLiteral("Biztos JÓK az adatok ?\nMehet a rögzítés ") + whose, DefaultAnswer::Yes);
}

}  // namespace

figy::figy(Context& context, QString plate, QWidget* parent)
    : QDialog(parent), context_(context), plate_(std::move(plate)), ui_(std::make_unique<Ui::figy>()) {
  ui_->setupUi(this);
  addClosingMenu(*this, ui_->mnu_bezar);
  prepareFields();
  prepareLists();
  connectButtons();
  keepWithinReach(*this);
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
  ui_->tx_km_allas->setFocus();
}

void figy::prepareLists() {
  const QStringList headers{QStringLiteral("Dátum"), QStringLiteral("Szöveg"), QStringLiteral("Rendszám")};
  kmRows_ = prepareReminderList(ui_->ListView1, headers);
  dateRows_ = prepareReminderList(ui_->ListView2, headers);
  ui_->ListView1->sortByHeaderClicks();
  ui_->ListView2->sortByHeaderClicks();
  connect(ui_->ListView1, &ListView::rowChosen, this,
          [this](int row) { guarded(this, [&] { chooseKm(row); }); });
  connect(ui_->ListView2, &ListView::rowChosen, this,
          [this](int row) { guarded(this, [&] { chooseDate(row); }); });
}

void figy::connectButtons() {
  onClick(ui_->cmd_rogzit, &figy::recordKm);
  onClick(ui_->cmd_del, &figy::deleteKm);
  onClick(ui_->cmdRogzit2, &figy::recordDate);
  onClick(ui_->cmdDel2, &figy::deleteDate);
  connect(ui_->SSTab1, &QTabWidget::currentChanged, this, &figy::makeTabsButtonDefault);
}

void figy::onClick(QAbstractButton* button, Handler handler) {
  connect(button, &QAbstractButton::clicked, this,
          [this, handler] { guarded(this, [&] { (this->*handler)(); }); });
}

void figy::makeTabsButtonDefault(int tab) {
  (tab == 0 ? ui_->cmd_rogzit : ui_->cmdRogzit2)->setDefault(true);
}

void figy::BeolvasFigyel() {
  kmRows_->setRows(
      toTextRows(reminders::kmReminderRows(reminders::loadKmReminders(context_.files, context_.folders))));
}

void figy::BeolvasFigyDatum() {
  dateRows_->setRows(toTextRows(
      reminders::dateReminderRows(reminders::loadDateReminders(context_.files, context_.folders))));
}

void figy::recordKm() {
  if (!confirmsRecording(this, QString())) return;
  reminders::recordKmReminder(context_.files, context_.folders,
                              {.text = toLogic(ui_->tx_szoveg->text()),
                               .reading = toLogic(ui_->tx_km_allas->text()),
                               .after = toLogic(ui_->tx_km_mulva->text()),
                               .plate = toLogic(plate_)},
                              context_.clock.today());
  BeolvasFigyel();
}

void figy::chooseKm(int row) {
  ui_->Label3->hide();
  const reminders::KmReminders stored = reminders::loadKmReminders(context_.files, context_.folders);
  const std::int16_t selected = reminders::recordNumber(toLogic(kmRows_->record(row)));
  context_.state.selectedReminder = selected;
  if (selected == 0) return;
  ui_->cmd_del->setEnabled(true);
  const reminders::FigyelRec reminder = stored.record(selected);
  fillField(ui_->tx_szoveg, reminder.Szoveg.asStored());
  fillField(ui_->tx_km_allas, reminders::grouped(reminder.KmAllas));
  fillField(ui_->tx_km_mulva, reminders::grouped(reminder.KmMulva));
  showEstimate(reminders::estimateFor(context_.files, context_.folders, toLogic(plate_), reminder,
                                      context_.clock.today()));
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
  clearKmFields();
  reminders::blankKmReminder(context_.files, context_.folders, context_.state.selectedReminder);
  context_.state.selectedReminder = 0;
  ui_->cmd_del->setEnabled(false);
  BeolvasFigyel();
}

void figy::clearKmFields() {
  for (QLineEdit* field : {ui_->tx_szoveg, ui_->tx_km_allas, ui_->tx_km_mulva}) field->clear();
  ui_->Label3->hide();
  showCaption(ui_->lb_varh_datum, QString());
  showCaption(ui_->Label2, QString());
}

void figy::recordDate() {
  if (!confirmsRecording(this, plate_ + QStringLiteral(" gépkocsira?"))) return;
  reminders::recordDateReminder(context_.files, context_.folders,
                                {.when = toLogic(ui_->DTPMikor->date()),
                                 .text = toLogic(ui_->txtMire->text()),
                                 .plate = toLogic(plate_)},
                                context_.clock.today());
  BeolvasFigyDatum();
}

void figy::chooseDate(int row) {
  context_.state.selectedReminder = reminders::recordNumber(toLogic(dateRows_->record(row)));
  if (context_.state.selectedReminder != 0) ui_->cmdDel2->setEnabled(true);
}

void figy::deleteDate() {
  if (!confirmsDeletion()) return;
  reminders::deleteDateReminder(context_.files, context_.folders, context_.state.selectedReminder);
  context_.state.selectedReminder = 0;
  ui_->cmdDel2->setEnabled(false);
  BeolvasFigyDatum();
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
