#include <QLineEdit>
#include <QSignalBlocker>

#include "core/entry_editing.h"
#include "core/record_file.h"
#include "core/statistics.h"
#include "settings/vehicles.h"
#include "tyres/tyre_register.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/main/frmTarvik.h"
#include "ui_frmTarvik.h"

// The editing of an entry on the main screen.

namespace tarvik::ui {
namespace {

const QString kError = QStringLiteral(" H i b a !");
const QString kNotRecorded = QStringLiteral("Így nem rögzíthető...");

void showText(QLabel* label, const std::optional<std::string>& text) {
  if (text) label->setText(toQt(*text));
}

}  // namespace

core::EntryInput frmTarvik::entryInput() const {
  return {.kmOra = toLogic(ui_->txKmOra->text()),
          .tankoltLiter = toLogic(ui_->txTankoltLiter->text()),
          .tankoltKtg = toLogic(ui_->txTankoltKtg->text()),
          .ftPerLiter = toLogic(ui_->lbFtperLiter->text()),
          .alkatresz = toLogic(ui_->txAlkatresz->currentText()),
          .alkatreszKtg = toLogic(ui_->txAlkatreszKtg->text()),
          .megjegyzes = toLogic(ui_->txMegjegyzes->currentText()),
          .megjKtg = toLogic(ui_->txMegjKtg->text()),
          .datum = toLogic(ui_->DTPicker1->date()),
          .teletank = ui_->ChkTeletank->isChecked(),
          .olajcsere = ui_->ChkOlajcsere->isChecked(),
          .szurocsere = ui_->ChkSzurocsere->isChecked(),
          .gyertyacsere = ui_->ChkGyertyacsere->isChecked()};
}

// The price follows the typing, not an entry that is shown.
void frmTarvik::showInput(const core::EntryInput& input) {
  const QSignalBlocker quietLitres(ui_->txTankoltLiter);
  const QSignalBlocker quietCost(ui_->txTankoltKtg);
  ui_->txTankoltLiter->setText(toQt(input.tankoltLiter));
  ui_->txMegjKtg->setText(toQt(input.megjKtg));
  ui_->txAlkatresz->setEditText(toQt(input.alkatresz));
  ui_->txAlkatreszKtg->setText(toQt(input.alkatreszKtg));
  ui_->lbFtperLiter->setText(toQt(input.ftPerLiter));
  ui_->txKmOra->setText(toQt(input.kmOra));
  ui_->txMegjegyzes->setEditText(toQt(input.megjegyzes));
  ui_->txTankoltKtg->setText(toQt(input.tankoltKtg));
  ui_->ChkGyertyacsere->setChecked(input.gyertyacsere);
  ui_->ChkOlajcsere->setChecked(input.olajcsere);
  ui_->ChkSzurocsere->setChecked(input.szurocsere);
  ui_->ChkTeletank->setChecked(input.teletank);
}

void frmTarvik::select(int record) {
  selectedEntry_ = static_cast<std::int16_t>(record);
  ui_->cmd_del->setEnabled(record != 0);
  ui_->cmd_modosit->setEnabled(record != 0);
}

// The plate may be another one by now: what its logbook does not have is not shown, and not chosen either.
void frmTarvik::showEntry(int record) {
  const std::string path = context_.folders.logbook(platePath());
  const auto logbook = core::loadRecords<core::NapiAdat>(context_.files, path);
  if (record > logbook.count())
    throw core::Failure(core::FailureKind::RecordMissing).file(path).record(record);
  select(record);
  showStatistics(logbook, record);
  const core::ShownEntry shown = core::toInput(logbook.record(record));
  showInput(shown.input);
  if (shown.datum) ui_->DTPicker1->setDate(toQt(*shown.datum));
}

void frmTarvik::showStatistics(const core::Logbook& logbook, int record) {
  std::int16_t tankSize = 0;
  guarded(this, [&] {
    const auto vehicles = settings::loadVehiclesOfProgramFolder(context_.files, context_.folders);
    tankSize = settings::tankSizeOf(vehicles, platePath());
  });
  const std::string average = toLogic(ui_->tx_fogyaszt->text());
  const core::Statistics found = core::statisticsOf(
      logbook,
      {.selected = record, .tankSize = tankSize, .average = average, .today = context_.clock.today()});
  showText(ui_->lbPillAtlag, found.pillAtlag);
  showText(ui_->lbDatum, found.datum);
  showText(ui_->lbKm, found.km);
  showText(ui_->lb_ft_km, found.ftPerKm);
}

bool frmTarvik::refusesBlankKm() {
  if (!isBlank(ui_->txKmOra->text())) return false;
  tellError(this, kError, QStringLiteral("Nincs beírva kilométer óra állás!\n") + kNotRecorded);
  ui_->txKmOra->setFocus();
  return true;
}

void frmTarvik::record() {
  if (refusesBlankKm() || refusesBlankPlate(kNotRecorded)) return;
  if (!ask(this, QStringLiteral(" Rögzítés az adatállományban !"),
           QStringLiteral("Biztos JÓK az adatok ?\nMehet a rögzítés ?"), DefaultAnswer::Yes))
    return;
  const core::EntryInput input = entryInput();
  Attempt tyres;
  const bool isRecorded = changeLogbook(QStringLiteral("A bejegyzés rögzítve van."), [&] {
    const core::Ratio distance = core::recordEntry(context_.files, context_.folders, platePath(), input);
    tyres = addDistanceToTyres(distance);
    ui_->txMegjKtg->setText(toQt(core::withDefaults(input).megjKtg));
    MezoDel();
    ui_->ChkTeletank->setChecked(true);
  });
  if (isRecorded && !tyres.isDone()) tell(this, tyres.text);
  if (isRecorded) markNewest();
  ui_->txKmOra->setFocus();
}

// The entry is in the logbook by now, whatever becomes of the tyres.
Attempt frmTarvik::addDistanceToTyres(const core::Ratio& distance) {
  return attempted(
      [&] { tyres::addDistance(context_.files, context_.folders, platePath(), distance); },
      {.failed =
           QStringLiteral("A bejegyzés rögzítve van, de a felszerelt gumi futott kilométere nem változott."),
       .unsure = QStringLiteral("A bejegyzés rögzítve van. Nézd meg a gumik listáján, hogy a felszerelt gumi "
                                "futott kilométere megváltozott-e!")});
}

// What the list shows; where another vehicle has been chosen since, what its logbook has under that number.
core::SeenRecord frmTarvik::seenEntry() const {
  if (platePath() == listedPlate_) return listing_->listing().logbook.seen(selectedEntry_);
  return core::loadLogbook(context_.files, context_.folders, platePath()).seen(selectedEntry_);
}

void frmTarvik::modify() {
  if (refusesBlankKm()) return;
  if (selectedEntry_ == 0) {
    tellError(this, kError, QStringLiteral("Nincs kijelölve módosítandó tétel!\n"));
    return;
  }
  if (refusesBlankPlate(kNotRecorded)) return;
  const core::SeenRecord seen = seenEntry();
  if (!ask(this, QStringLiteral(" Módosítás az adatállományban !"),
           QStringLiteral("Biztos JÓK az adatok ?\nMehet a módosítás ?"), DefaultAnswer::Yes))
    return;
  const core::EntryInput input = core::withDefaults(entryInput());
  changeLogbook(QStringLiteral("A bejegyzés módosítva van."), [&] {
    core::modifyEntry(context_.files, context_.folders, platePath(), seen, input,
                      toLogic(ui_->lbPillAtlag->text()));
    showInput(input);
  });
}

void frmTarvik::remove() {
  if (selectedEntry_ == 0) return;
  if (refusesBlankPlate(QStringLiteral("Így nem törölhető..."))) return;
  core::openDeletion(context_.files, context_.folders, platePath());
  const core::SeenRecord seen = seenEntry();
  const core::NapiAdat entry =
      seen.bytes.empty() ? core::NapiAdat{} : core::decoded<core::NapiAdat>(seen.bytes);
  const QString prompt = QStringLiteral("Biztos T Ö R Ö L H E T Ő\na %1 tétel? ")
                             .arg(toQt(core::shortDateOfStored(entry.Datum)));
  if (!ask(this, QStringLiteral(" TÖRLÉS az adatállományból !"), prompt, DefaultAnswer::No)) return;
  changeLogbook(QStringLiteral("A bejegyzés törölve van."),
                [&] { core::deleteEntry(context_.files, context_.folders, platePath(), seen); });
  ui_->ListView1->setFocus();
}

void frmTarvik::quickAdd(QComboBox* field, const settings::LookupFile& list, const QString& what) {
  if (!ask(this, QStringLiteral(" Rögzítés az adatállományba !"),
           QStringLiteral("Biztos JÓ az adat ?\nMehet a rögzítés ?"), DefaultAnswer::Yes))
    return;
  const QString typed = field->currentText();
  const auto known = settings::loadLookupTexts(context_.files, context_.folders, list);
  for (const std::string& text : settings::matching(known, toLogic(typed))) {
    const QString prompt =
        QStringLiteral("Ez az %1 már szerepel az adatbázisban\n \n'' %2 ''  néven!\n \nMég is felveszed?");
    if (!ask(this, QStringLiteral(" Meglévő megjegyzés!"), prompt.arg(what, toQt(text)), DefaultAnswer::Yes))
      return;
  }
  carryOut(
      this,
      {.done = QStringLiteral("A szöveg fel van véve."),
       .make = [&] { settings::appendLookupText(context_.files, context_.folders, list, toLogic(typed)); },
       .list = [&] { fillTexts(field, list); },
       .incomplete = QStringLiteral("A lenyíló lista nem teljes.")});
  field->setFocus();
}

// What is typed stays, whatever becomes of the list under it.
void frmTarvik::fillTexts(QComboBox* field, const settings::LookupFile& list) {
  const QString typed = field->currentText();
  field->clear();
  field->setEditText(typed);
  const auto texts = settings::loadLookupTexts(context_.files, context_.folders, list);
  for (int number = 1; number <= texts.count(); ++number)
    field->addItem(toQt(texts.record(number).text.trimmed()));
  field->setEditText(typed);
}

void frmTarvik::keepNumeric(QLineEdit* field) {
  const QString kept = toQt(core::numericPart(toLogic(field->text())));
  if (kept == field->text()) return;
  field->setText(kept);
  field->setFocus();
  field->setCursorPosition(static_cast<int>(kept.size()));
}

void frmTarvik::showPrice() {
  showText(ui_->lbFtperLiter,
           core::pricePerLitre(toLogic(ui_->txTankoltKtg->text()), toLogic(ui_->txTankoltLiter->text())));
}

void frmTarvik::MezoDel() {
  for (QLineEdit* field : {ui_->txTankoltLiter, ui_->txAlkatreszKtg, ui_->txKmOra, ui_->txTankoltKtg})
    field->clear();
  for (QComboBox* field : {ui_->txAlkatresz, ui_->txMegjegyzes}) field->setEditText({});
  ui_->lbFtperLiter->clear();
  for (QCheckBox* box : {ui_->ChkGyertyacsere, ui_->ChkOlajcsere, ui_->ChkSzurocsere, ui_->ChkTeletank})
    box->setChecked(false);
}

}  // namespace tarvik::ui
