#include "ui/windows/frmGumik.h"

#include <QButtonGroup>
#include <QScopeGuard>

#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_menu.h"
#include "ui/lists/list_tables.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/plate_chooser.h"
#include "ui/look/undo_line.h"
#include "ui_frmGumik.h"

namespace tarvik::ui {
namespace {

// The size of the window where the display has room, in steps of the grid.
constexpr QSize kWishedSteps{100, 72};
constexpr int kKmRunColumn = 3;
constexpr int kConditionColumn = 4;

QButtonGroup* groupOf(QWidget* screen, const QList<QAbstractButton*>& seasons) {
  auto* group = new QButtonGroup(screen);
  for (int season = 0; season < seasons.size(); ++season) group->addButton(seasons[season], season);
  return group;
}

// A season that the file should not hold selects none.
void selectSeason(QButtonGroup* group, std::int16_t season) {
  group->setExclusive(false);
  for (QAbstractButton* button : group->buttons()) button->setChecked(group->id(button) == season);
  group->setExclusive(true);
}

std::optional<std::int16_t> selectedSeason(const QButtonGroup* group) {
  if (group->checkedButton() == nullptr) return std::nullopt;
  return static_cast<std::int16_t>(group->checkedId());
}

TextRow rowOf(const tyres::TyreRow& row) {
  return {
      .cells = {toQt(row.plate), toQt(row.type), toQt(row.season), toQt(row.kmRun), toQt(row.remainingLife)},
      .record = numberText(row.number),
      .marked = row.isFitted};
}

}  // namespace

frmGumik::frmGumik(Context& context, const QString& plate, const QStringList& plates, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmGumik>()), tyres_(context.files, context.folders) {
  ui_->setupUi(this);
  makeAccessible(*this);
  addClosingMenu(*this, ui_->mnuBezar);
  prepareFields(plate, plates);
  prepareList();
  addListMenu(context);
  connectButtons();
  followEnterRule(*this);
  new UndoLine(context, *this, *ui_->mainLayout,
               [this, path = context.folders.inProgram("Gumik.dat")](const core::Travelled& travelled) {
                 if (concerns(travelled, path)) followChange(recordThatCameBack(travelled, path));
               });
  keepWithinReach(*this);
  openInTheMiddle(*this, kWishedSteps * gridStep());
  guarded(this, [this] { BeolvasGumi(); });
}

frmGumik::~frmGumik() = default;

void frmGumik::prepareFields(const QString& plate, const QStringList& plates) {
  ui_->frameGumiModosit->hide();
  opGumiEvszak_ = groupOf(this, {ui_->opGumiEvszak_0, ui_->opGumiEvszak_1, ui_->opGumiEvszak_2});
  opMEszak_ = groupOf(this, {ui_->opMEszak_0, ui_->opMEszak_1, ui_->opMEszak_2});
  ui_->cmbRendszam->addItems(plates);
  ui_->cmbRendszam->setEditText(plate.trimmed());
  new PlateChooser(ui_->cmbRendszam, [this] { guarded(this, [this] { BeolvasGumi(); }); });
}

void frmGumik::prepareList() {
  rows_ =
      new TextListModel({QStringLiteral("Rendszám"), QStringLiteral("Gumi típusa"), QStringLiteral("Évszak"),
                         QStringLiteral("Futott Km."), QStringLiteral("Állapota")},
                        this);
  ui_->ListViewGumi->setModel(rows_);
  rows_->setFigureColumns({kKmRunColumn, kConditionColumn});
  layOutList(*ui_->ListViewGumi, {"WWWWWWWWWW", "", "Négyévszakos", "-2147483648", "-999 %"});
  new ListHint(*ui_->ListViewGumi, QStringLiteral("Ehhez a rendszámhoz nincs gumi felvéve."));
  ui_->ListViewGumi->sortByHeaderClicks();
  ui_->ListViewGumi->onRowChosen([this](int row) { return guarded(this, [&] { choose(row); }); });
}

void frmGumik::addListMenu(Context& context) {
  new ListMenu(ui_->ListViewGumi, {.save = [this, &context] {
                 saveCsvFile(context, QStringLiteral("gumik"),
                             tyresCsv(context.files, context.folders, *rows_), this);
               }});
}

void frmGumik::connectButtons() {
  onClick(this, ui_->cmdOsszesGumi, &frmGumik::BeolvasOsszesGumi);
  onClick(this, ui_->cmdGumiRogzites, &frmGumik::recordSet);
  onClick(this, ui_->cmdGumiFel, &frmGumik::fitSet);
  onClick(this, ui_->cmdGumiLe, &frmGumik::takeSetOff);
  onClick(this, ui_->cmdGumiModosit, &frmGumik::changeSet);
  onClick(this, ui_->cmdGumiDel, &frmGumik::deleteSet);
  connect(ui_->cmdGumiModositKeret, &QPushButton::clicked, ui_->frameGumiModosit, &QWidget::show);
  connect(ui_->cmdGumiModositMegsem, &QPushButton::clicked, ui_->frameGumiModosit, &QWidget::hide);
}

void frmGumik::BeolvasGumi() {
  list([this] { return tyres_.listOf(toLogic(ui_->cmbRendszam->currentText())); });
}

void frmGumik::BeolvasOsszesGumi() {
  list([this] { return tyres_.listAll(); });
}

void frmGumik::list(const std::function<std::vector<tyres::TyreRow>()>& read) {
  const auto chosenShown = qScopeGuard([this] { showChosen(); });
  rows_->setRows({});
  std::vector<TextRow> shown;
  for (const tyres::TyreRow& row : read()) shown.push_back(rowOf(row));
  rows_->setRows(std::move(shown));
}

void frmGumik::relistInPlace() {
  ui_->ListViewGumi->keepPlace([this] { BeolvasGumi(); });
}

// A set of another vehicle that came back is listed with that vehicle's.
void frmGumik::followChange(int cameBack) {
  forgetChosen();
  relistInPlace();
  if (cameBack == 0 || ui_->ListViewGumi->markRecord(cameBack)) return;
  ui_->cmbRendszam->setEditText(toQt(tyres_.read(cameBack).plate.trimmed()));
  BeolvasGumi();
  ui_->ListViewGumi->markRecord(cameBack);
}

// Nobody is asked before a deletion, so none is offered of a set that is out of the list.
void frmGumik::showChosen() {
  ui_->ListViewGumi->highlightRecord(chosen_);
  ui_->cmdGumiDel->setEnabled(offersDeletion_ && !ui_->ListViewGumi->highlightedRecord().isEmpty());
}

void frmGumik::choose(int row) {
  const int number = rows_->record(row).toInt();
  const tyres::TyreSet& set = tyres_.read(number);
  chosen_ = number;
  offersDeletion_ = true;
  ui_->cmdGumiDel->setEnabled(true);
  ui_->cmdGumiModositKeret->setEnabled(true);
  fillNewFields(set);
  fillChangeFields(set);
  const bool isOnCar = set.onCar != tyres::kNotFitted;
  ui_->cmdGumiFel->setEnabled(!isOnCar);
  ui_->cmdGumiLe->setEnabled(isOnCar);
}

void frmGumik::forgetChosen() {
  chosen_ = 0;
  for (QPushButton* button : {ui_->cmdGumiDel, ui_->cmdGumiModositKeret, ui_->cmdGumiFel, ui_->cmdGumiLe})
    button->setEnabled(false);
  ui_->frameGumiModosit->hide();
}

bool frmGumik::change(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done,
                         .make = make,
                         .forget = [this] { forgetChosen(); },
                         .list = [this] { relistInPlace(); }});
}

void frmGumik::fillNewFields(const tyres::TyreSet& set) {
  ui_->cmbRendszam->setEditText(toQt(set.plate.asStored()));
  fillField(ui_->txtGumiTipusa, set.type.asStored());
  fillField(ui_->txtGumiMeret, set.size.asStored());
  ui_->txtGumiMaxKm->setText(numberText(set.maxKm));
  selectSeason(opGumiEvszak_, set.season);
  ui_->chkGumiFentVan->setChecked(set.onCar != tyres::kNotFitted);
  ui_->txtGumiKmFelszerelKor->setText(numberText(set.kmWhenFitted));
  ui_->txtGumiAzotaFutottKm->setText(numberText(set.kmRun));
}

void frmGumik::fillChangeFields(const tyres::TyreSet& set) {
  fillField(ui_->txtMtipus, set.type.trimmed());
  fillField(ui_->txtMMeret, set.size.trimmed());
  ui_->txtMMaxKm->setText(numberText(set.maxKm));
  selectSeason(opMEszak_, set.season);
  ui_->txtMKmFelszKor->setText(numberText(set.kmWhenFitted));
  ui_->txtMAzotaFutott->setText(numberText(set.kmRun));
}

tyres::TyreFields frmGumik::newFields() const {
  return {.type = toLogic(ui_->txtGumiTipusa->text()),
          .size = toLogic(ui_->txtGumiMeret->text()),
          .maxKm = toLogic(ui_->txtGumiMaxKm->text()),
          .season = selectedSeason(opGumiEvszak_),
          .kmWhenFitted = toLogic(ui_->txtGumiKmFelszerelKor->text()),
          .kmRun = toLogic(ui_->txtGumiAzotaFutottKm->text())};
}

tyres::TyreFields frmGumik::changeFields() const {
  return {.type = toLogic(ui_->txtMtipus->text()),
          .size = toLogic(ui_->txtMMeret->text()),
          .maxKm = toLogic(ui_->txtMMaxKm->text()),
          .season = selectedSeason(opMEszak_),
          .kmWhenFitted = toLogic(ui_->txtMKmFelszKor->text()),
          .kmRun = toLogic(ui_->txtMAzotaFutott->text())};
}

// Neither the list nor the fields change: the set is seen at the next listing.
void frmGumik::recordSet() {
  const QString what = ui_->txtGumiTipusa->text().trimmed();
  const Step step(this, QStringLiteral("gumi rögzítése, %1").arg(what),
                  QStringLiteral("Rögzítve: %1").arg(what));
  bool isRecorded = false;
  carryOut(this, {.make =
                      [&] {
                        tyres_.record({.plate = toLogic(ui_->cmbRendszam->currentText()),
                                       .isFitted = ui_->chkGumiFentVan->isChecked(),
                                       .fields = newFields()});
                        isRecorded = true;
                      },
                  .forget = [this] { forgetChosen(); },
                  .list =
                      [&] {
                        if (!isRecorded) relistInPlace();
                      }});
}

QString frmGumik::chosenType(int number) const {
  const core::SeenRecord seen = tyres_.seen(number);
  return seen.bytes.empty() ? QString() : toQt(core::decoded<tyres::TyreSet>(seen.bytes).type.trimmed());
}

void frmGumik::fitSet() {
  const QString what = chosenType(chosen_);
  const Step step(this, QStringLiteral("felszerelés, %1").arg(what),
                  QStringLiteral("Felszerelve: %1").arg(what));
  change(QStringLiteral("A gumi fel van szerelve."),
         [this] { tyres_.setFitted(tyres_.seen(chosen_), true); });
}

void frmGumik::takeSetOff() {
  const QString what = chosenType(chosen_);
  const Step step(this, QStringLiteral("leszerelés, %1").arg(what),
                  QStringLiteral("Leszerelve: %1").arg(what));
  change(QStringLiteral("A gumi le van szerelve."),
         [this] { tyres_.setFitted(tyres_.seen(chosen_), false); });
}

void frmGumik::changeSet() {
  const QString what = chosenType(chosen_);
  const Step step(this, QStringLiteral("gumi módosítása, %1").arg(what),
                  QStringLiteral("Módosítva: %1").arg(what));
  change(QStringLiteral("A gumi adatai módosítva vannak."), [this] {
    tyres_.change(tyres_.seen(chosen_), changeFields());
    ui_->cmdGumiModositKeret->setEnabled(false);
    ui_->frameGumiModosit->hide();
  });
}

// No question is asked, so the set that goes is the highlighted one and no other. The number stays: it then
// names the set behind the deleted one, which is highlighted for the buttons that stay.
void frmGumik::deleteSet() {
  const QString what = chosenType(ui_->ListViewGumi->highlightedRecord().toInt());
  const Step step(this, QStringLiteral("gumi törlése, %1").arg(what),
                  QStringLiteral("Törölve: %1").arg(what));
  change(QStringLiteral("A gumi törölve van."), [this] {
    tyres_.remove(tyres_.seen(ui_->ListViewGumi->highlightedRecord().toInt()));
    offersDeletion_ = false;
  });
  ui_->ListViewGumi->setFocus();
}

}  // namespace tarvik::ui
