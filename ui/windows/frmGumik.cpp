#include "ui/windows/frmGumik.h"

#include <QButtonGroup>

#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/lists/list_tables.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/figure_fields.h"
#include "ui/look/look.h"
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

std::vector<TextRow> textRows(const std::vector<tyres::TyreRow>& rows) {
  std::vector<TextRow> shown;
  for (const tyres::TyreRow& row : rows)
    shown.push_back({.cells = {toQt(row.plate), toQt(row.type), toQt(row.season), toQt(row.kmRun),
                               toQt(row.remainingLife)},
                     .record = numberText(row.number),
                     .marked = row.isFitted});
  return shown;
}

}  // namespace

frmGumik::frmGumik(Context& context, const QString& plate, const QStringList& plates, QWidget* parent)
    : RegisterScreen(context, parent),
      ui_(std::make_unique<Ui::frmGumik>()),
      tyres_(context.files, context.folders) {
  ui_->setupUi(this);
  new_ = {.type = ui_->txtGumiTipusa,
          .size = ui_->txtGumiMeret,
          .maxKm = ui_->txtGumiMaxKm,
          .season = groupOf(this, {ui_->opGumiEvszak_0, ui_->opGumiEvszak_1, ui_->opGumiEvszak_2}),
          .kmWhenFitted = ui_->txtGumiKmFelszerelKor,
          .kmRun = ui_->txtGumiAzotaFutottKm};
  change_ = {.type = ui_->txtMtipus,
             .size = ui_->txtMMeret,
             .maxKm = ui_->txtMMaxKm,
             .season = groupOf(this, {ui_->opMEszak_0, ui_->opMEszak_1, ui_->opMEszak_2}),
             .kmWhenFitted = ui_->txtMKmFelszKor,
             .kmRun = ui_->txtMAzotaFutott};
  for (const Fields& fields : {new_, change_})
    makeFigureFields({fields.maxKm, fields.kmWhenFitted, fields.kmRun}, kLongestFigure);
  new PlateChooser(ui_->cmbRendszam, [this] { guarded(this, [this] { BeolvasGumi(); }); });
  connectButtons();
  open({.layout = ui_->mainLayout,
        .close = ui_->mnuBezar,
        .plate = ui_->cmbRendszam,
        .list = ui_->ListViewGumi,
        .deletion = ui_->cmdGumiDel,
        .heads = {QStringLiteral("Rendszám"), QStringLiteral("Gumi típusa"), QStringLiteral("Évszak"),
                  QStringLiteral("Futott Km."), QStringLiteral("Állapota")},
        .longest = {"WWWWWWWWWW", "", "Négyévszakos", "-2147483648", "-999 %"},
        .figureColumns = {kKmRunColumn, kConditionColumn},
        .emptyHint = QStringLiteral("Ehhez a rendszámhoz nincs gumi felvéve."),
        .file = "Gumik.dat",
        .csvName = QStringLiteral("gumik"),
        .csv = &tyresCsv,
        .markWords = QStringLiteral("az autón van")},
       plate, plates, kWishedSteps * gridStep());
}

frmGumik::~frmGumik() = default;

void frmGumik::connectButtons() {
  onClick(this, ui_->cmdOsszesGumi, &frmGumik::BeolvasOsszesGumi);
  onClick(this, ui_->cmdGumiRogzites, &frmGumik::recordSet);
  onClick(this, ui_->cmdGumiFel, &frmGumik::fitSet);
  onClick(this, ui_->cmdGumiLe, &frmGumik::takeSetOff);
  onClick(this, ui_->cmdGumiModosit, &frmGumik::changeSet);
  onClick(this, ui_->cmdGumiDel, &frmGumik::deleteSet);
  connect(ui_->cmdGumiModositKeret, &QPushButton::clicked, this, [this] {
    ui_->frameGumiModosit->show();
    ui_->txtMtipus->setFocus(Qt::TabFocusReason);
  });
  connect(ui_->cmdGumiModositMegsem, &QPushButton::clicked, this, [this] {
    ui_->cmdGumiModositKeret->setFocus(Qt::TabFocusReason);
    ui_->frameGumiModosit->hide();
  });
}

void frmGumik::BeolvasGumi() {
  list([this] { return textRows(tyres_.listOf(toLogic(ui_->cmbRendszam->currentText()))); });
}

void frmGumik::BeolvasOsszesGumi() {
  list([this] { return textRows(tyres_.listAll()); });
}

QString frmGumik::plateOf(int number) {
  return toQt(tyres_.read(number).plate.trimmed());
}

void frmGumik::showRecord(int number) {
  const tyres::TyreSet& set = tyres_.read(number);
  ui_->cmdGumiModositKeret->setEnabled(true);
  const bool isOnCar = set.onCar != tyres::kNotFitted;
  ui_->cmbRendszam->setEditText(toQt(set.plate.asStored()));
  fillField(new_.type, set.type.asStored());
  fillField(new_.size, set.size.asStored());
  ui_->chkGumiFentVan->setChecked(isOnCar);
  fillField(change_.type, set.type.trimmed());
  fillField(change_.size, set.size.trimmed());
  for (const Fields& fields : {new_, change_}) fields.show(set);
  ui_->cmdGumiFel->setEnabled(!isOnCar);
  ui_->cmdGumiLe->setEnabled(isOnCar);
}

void frmGumik::forgetChosen() {
  RegisterScreen::forgetChosen();
  for (QPushButton* button : {ui_->cmdGumiDel, ui_->cmdGumiModositKeret, ui_->cmdGumiFel, ui_->cmdGumiLe})
    button->setEnabled(false);
  ui_->frameGumiModosit->hide();
}

void frmGumik::Fields::show(const tyres::TyreSet& set) const {
  maxKm->setText(numberText(set.maxKm));
  selectSeason(season, set.season);
  kmWhenFitted->setText(numberText(set.kmWhenFitted));
  kmRun->setText(numberText(set.kmRun));
}

tyres::TyreFields frmGumik::Fields::typed() const {
  return {.type = toLogic(type->text()),
          .size = toLogic(size->text()),
          .maxKm = toLogic(maxKm->text()),
          .season = selectedSeason(season),
          .kmWhenFitted = toLogic(kmWhenFitted->text()),
          .kmRun = toLogic(kmRun->text())};
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
                                       .fields = new_.typed()});
                        isRecorded = true;
                      },
                  .forget = [this] { forgetChosen(); },
                  .list =
                      [&] {
                        if (!isRecorded) relistInPlace();
                      }});
}

QString frmGumik::typeOf(int number) const {
  return toQt(core::recordOf<tyres::TyreSet>(tyres_.seen(number)).type.trimmed());
}

void frmGumik::fitSet() {
  const QString what = typeOf(chosen());
  const Step step(this, QStringLiteral("felszerelés, %1").arg(what),
                  QStringLiteral("Felszerelve: %1").arg(what));
  change(QStringLiteral("A gumi fel van szerelve."),
         [this] { tyres_.setFitted(tyres_.seen(chosen()), true); });
}

void frmGumik::takeSetOff() {
  const QString what = typeOf(chosen());
  const Step step(this, QStringLiteral("leszerelés, %1").arg(what),
                  QStringLiteral("Leszerelve: %1").arg(what));
  change(QStringLiteral("A gumi le van szerelve."),
         [this] { tyres_.setFitted(tyres_.seen(chosen()), false); });
}

void frmGumik::changeSet() {
  const QString what = typeOf(chosen());
  const Step step(this, QStringLiteral("gumi módosítása, %1").arg(what),
                  QStringLiteral("Módosítva: %1").arg(what));
  change(QStringLiteral("A gumi adatai módosítva vannak."), [this] {
    tyres_.change(tyres_.seen(chosen()), change_.typed());
    ui_->cmdGumiModositKeret->setEnabled(false);
    ui_->frameGumiModosit->hide();
  });
}

// No question is asked, so the set that goes is the highlighted one and no other. The number stays: it then
// names the set behind the deleted one, which is highlighted for the buttons that stay.
void frmGumik::deleteSet() {
  const QString what = typeOf(highlighted());
  const Step step(this, QStringLiteral("gumi törlése, %1").arg(what),
                  QStringLiteral("Törölve: %1").arg(what));
  change(QStringLiteral("A gumi törölve van."), [this] {
    tyres_.remove(tyres_.seen(highlighted()));
    offerNoDeletion();
  });
  ui_->ListViewGumi->setFocus();
}

}  // namespace tarvik::ui
