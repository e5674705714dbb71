#include "ui/windows/frmSzerviz.h"

#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/lists/list_tables.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/figure_fields.h"
#include "ui/look/look.h"
#include "ui/look/plate_chooser.h"
#include "ui/look/undo_line.h"
#include "ui_frmSzerviz.h"

namespace tarvik::ui {
namespace {

// The size of the window where the display has room, in steps of the grid.
constexpr QSize kWishedSteps{116, 72};
constexpr int kCostColumn = 4;
constexpr int kReadingColumn = 5;

std::vector<TextRow> textRows(const std::vector<repairs::RepairRow>& rows) {
  std::vector<TextRow> shown;
  for (const repairs::RepairRow& row : rows)
    shown.push_back({.cells = {toQt(row.plate), toQt(row.date), toQt(row.description), toQt(row.part),
                               numberText(row.costFt), numberText(row.readingKm)},
                     .record = numberText(row.number)});
  return shown;
}

}  // namespace

frmSzerviz::frmSzerviz(Context& context, const QString& plate, const QStringList& plates, QWidget* parent)
    : RegisterScreen(context, parent),
      ui_(std::make_unique<Ui::frmSzerviz>()),
      log_(context.files, context.folders) {
  ui_->setupUi(this);
  makeFigureFields({ui_->txtSzervizKoltseg, ui_->txtKMora}, kLongestFigure);
  makeResults({ui_->lbKoltseg});
  ui_->DTPSzerviz->setDate(toQt(context.clock.today()));
  new PlateChooser(ui_->cmbRendszam2);
  onClick(this, ui_->cmdSzervizSzures, &frmSzerviz::filter);
  onClick(this, ui_->cmdRogzitSzerviz, &frmSzerviz::recordRepair);
  onClick(this, ui_->cmdDelSzerviz, &frmSzerviz::deleteRepair);
  open({.layout = ui_->mainLayout,
        .close = ui_->mnuBezar,
        .plate = ui_->cmbRendszam2,
        .list = ui_->ListViewSzerviz,
        .deletion = ui_->cmdDelSzerviz,
        .heads = {QStringLiteral("Rendszám"), QStringLiteral("Dátum"), QStringLiteral("Megnevezés"),
                  QStringLiteral("Alkatrész"), QStringLiteral("Költség"), QStringLiteral("Km. óra")},
        .longest = {"WWWWWWWW", "9999.99.99.", "", "", "-999999999", "-9999999"},
        .figureColumns = {kCostColumn, kReadingColumn},
        .emptyHint = QStringLiteral("Nincs ilyen javítás vagy szerviz felvéve."),
        .file = "Szerviz.dat",
        .csvName = QStringLiteral("javitasok"),
        .csv = &repairsCsv,
        .searchedText =
            [this](int number) {
              return repairs::searchedText(core::recordOf<repairs::Repair>(log_.seen(number)));
            }},
       plate, plates, kWishedSteps * gridStep());
}

frmSzerviz::~frmSzerviz() = default;

void frmSzerviz::BeolvasSzerviz() {
  listFiltered({.plate = toLogic(ui_->cmbRendszam2->currentText())});
}

// The rows come first: should their total be too large, the entry that makes it so can still be deleted.
void frmSzerviz::listFiltered(const repairs::RepairFilter& filter) {
  ui_->lbKoltseg->clear();
  std::vector<repairs::RepairRow> rows;
  list([&] {
    rows = log_.listFiltered(filter);
    return textRows(rows);
  });
  ui_->lbKoltseg->setText(toQt(repairs::totalText(rows)));
}

QString frmSzerviz::plateOf(int number) {
  return toQt(log_.read(number).plate.trimmed());
}

// A damaged date leaves the picker's own.
void frmSzerviz::showRecord(int number) {
  const repairs::Repair repair = log_.read(number);
  fillField(ui_->txtAlkatresz, repair.part.asStored());
  fillField(ui_->txtSzervizMegnev, repair.description.asStored());
  if (const auto day = core::dayFromStored(repair.date)) ui_->DTPSzerviz->setDate(toQt(*day));
  ui_->txtKMora->setText(numberText(repair.readingKm));
  ui_->txtSzervizKoltseg->setText(numberText(repair.costFt));
  ui_->cmbRendszam2->setEditText(toQt(repair.plate.asStored()));
}

void frmSzerviz::filter() {
  listFiltered({.plate = toLogic(ui_->cmbRendszam2->currentText()),
                .isAllVehicles = ui_->chkOsszesAuto->isChecked(),
                .description = toLogic(ui_->txtSzervizMegnev->text()),
                .part = toLogic(ui_->txtAlkatresz->text())});
}

// The entry chosen before stays the chosen one.
void frmSzerviz::recordRepair() {
  const QString what = ui_->txtSzervizMegnev->text().trimmed();
  const Step step(this, QStringLiteral("javítás rögzítése, %1").arg(what),
                  QStringLiteral("Rögzítve: %1").arg(what));
  change(QStringLiteral("A javítás rögzítve van."), [this] {
    log_.record({.plate = toLogic(ui_->cmbRendszam2->currentText()),
                 .date = toLogic(ui_->DTPSzerviz->date()),
                 .description = toLogic(ui_->txtSzervizMegnev->text()),
                 .part = toLogic(ui_->txtAlkatresz->text()),
                 .cost = toLogic(ui_->txtSzervizKoltseg->text()),
                 .reading = toLogic(ui_->txtKMora->text())});
    for (QLineEdit* field : {ui_->txtAlkatresz, ui_->txtKMora, ui_->txtSzervizKoltseg, ui_->txtSzervizMegnev})
      field->clear();
  });
}

// No question is asked, so the entry that goes is the highlighted one and no other.
void frmSzerviz::deleteRepair() {
  const core::SeenRecord seen = log_.seen(highlighted());
  const auto repair = core::recordOf<repairs::Repair>(seen);
  const QString day = toQt(core::shortDateOfStored(repair.date));
  const Step step(this, QStringLiteral("javítás törlése, %1").arg(day),
                  QStringLiteral("Törölve: %1 %2").arg(day, toQt(repair.description.trimmed())));
  change(QStringLiteral("A javítás törölve van."), [&] {
    log_.remove(seen);
    forgetChosen();
  });
  ui_->ListViewSzerviz->setFocus();
}

}  // namespace tarvik::ui
