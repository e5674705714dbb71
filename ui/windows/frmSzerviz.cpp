#include "ui/windows/frmSzerviz.h"

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
#include "ui/lists/search_line.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/plate_chooser.h"
#include "ui/look/undo_line.h"
#include "ui_frmSzerviz.h"

namespace tarvik::ui {
namespace {

// The size of the window where the display has room, in steps of the grid.
constexpr QSize kWishedSteps{116, 72};
constexpr int kCostColumn = 4;
constexpr int kReadingColumn = 5;

TextRow rowOf(const repairs::RepairRow& row) {
  return {.cells = {toQt(row.plate), toQt(row.date), toQt(row.description), toQt(row.part),
                    numberText(row.costFt), numberText(row.readingKm)},
          .record = numberText(row.number)};
}

}  // namespace

frmSzerviz::frmSzerviz(Context& context, const QString& plate, const QStringList& plates, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmSzerviz>()), log_(context.files, context.folders) {
  ui_->setupUi(this);
  makeAccessible(*this);
  addClosingMenu(*this, ui_->mnuBezar);
  prepareFields(plate, plates, context.clock.today());
  prepareList();
  addListMenu(context);
  onClick(this, ui_->cmdSzervizSzures, &frmSzerviz::filter);
  onClick(this, ui_->cmdRogzitSzerviz, &frmSzerviz::recordRepair);
  onClick(this, ui_->cmdDelSzerviz, &frmSzerviz::deleteRepair);
  followEnterRule(*this);
  new UndoLine(context, *this, *ui_->mainLayout,
               [this, path = context.folders.inProgram("Szerviz.dat")](const core::Travelled& travelled) {
                 if (concerns(travelled, path)) followChange(recordThatCameBack(travelled, path));
               });
  keepWithinReach(*this);
  openInTheMiddle(*this, kWishedSteps * gridStep());
  guarded(this, [this] { BeolvasSzerviz(); });
}

frmSzerviz::~frmSzerviz() = default;

void frmSzerviz::prepareFields(const QString& plate, const QStringList& plates, core::Day today) {
  new PlateChooser(ui_->cmbRendszam2);
  ui_->cmbRendszam2->addItems(plates);
  ui_->cmbRendszam2->setEditText(plate.trimmed());
  ui_->DTPSzerviz->setDate(toQt(today));
}

void frmSzerviz::prepareList() {
  rows_ =
      new TextListModel({QStringLiteral("Rendszám"), QStringLiteral("Dátum"), QStringLiteral("Megnevezés"),
                         QStringLiteral("Alkatrész"), QStringLiteral("Költség"), QStringLiteral("Km. óra")},
                        this);
  ui_->ListViewSzerviz->setModel(rows_);
  rows_->setFigureColumns({kCostColumn, kReadingColumn});
  layOutList(*ui_->ListViewSzerviz, {"WWWWWWWW", "9999.99.99.", "", "", "-999999999", "-9999999"});
  new ListHint(*ui_->ListViewSzerviz, QStringLiteral("Nincs ilyen javítás vagy szerviz felvéve."));
  ui_->ListViewSzerviz->sortByHeaderClicks();
  ui_->ListViewSzerviz->onRowChosen([this](int row) { return guarded(this, [&] { choose(row); }); });
}

void frmSzerviz::addListMenu(Context& context) {
  new ListMenu(ui_->ListViewSzerviz, {.save = [this, &context] {
                 saveCsvFile(context, QStringLiteral("javitasok"),
                             repairsCsv(context.files, context.folders, *rows_), this);
               }});
  auto* search = new SearchLine(
      *ui_->ListViewSzerviz,
      [this](int row) {
        return repairs::searchedText(
            core::decoded<repairs::Repair>(log_.seen(rows_->record(row).toInt()).bytes));
      },
      this);
  ui_->mainLayout->insertWidget(ui_->mainLayout->indexOf(ui_->ListViewSzerviz), search);
}

void frmSzerviz::BeolvasSzerviz() {
  list([this] { return log_.listOf(toLogic(ui_->cmbRendszam2->currentText())); });
}

// The rows come first: should their total be too large, the entry that makes it so can still be deleted.
void frmSzerviz::list(const std::function<std::vector<repairs::RepairRow>()>& read) {
  const auto chosenShown = qScopeGuard([this] { showChosen(); });
  ui_->lbKoltseg->clear();
  rows_->setRows({});
  const std::vector<repairs::RepairRow> rows = read();
  std::vector<TextRow> shown;
  for (const repairs::RepairRow& row : rows) shown.push_back(rowOf(row));
  rows_->setRows(std::move(shown));
  ui_->lbKoltseg->setText(toQt(repairs::totalText(rows)));
}

// Nobody is asked before a deletion, so none is offered of an entry that is out of the list.
void frmSzerviz::showChosen() {
  ui_->ListViewSzerviz->highlightRecord(chosen_);
  ui_->cmdDelSzerviz->setEnabled(!ui_->ListViewSzerviz->highlightedRecord().isEmpty());
}

// A damaged date leaves the picker's own.
void frmSzerviz::choose(int row) {
  const int number = rows_->record(row).toInt();
  const repairs::Repair repair = log_.read(number);
  chosen_ = number;
  ui_->cmdDelSzerviz->setEnabled(true);
  fillField(ui_->txtAlkatresz, repair.part.asStored());
  fillField(ui_->txtSzervizMegnev, repair.description.asStored());
  if (const auto day = core::dayFromStored(repair.date)) ui_->DTPSzerviz->setDate(toQt(*day));
  ui_->txtKMora->setText(numberText(repair.readingKm));
  ui_->txtSzervizKoltseg->setText(numberText(repair.costFt));
  ui_->cmbRendszam2->setEditText(toQt(repair.plate.asStored()));
}

void frmSzerviz::filter() {
  list([this] {
    return log_.listFiltered({.plate = toLogic(ui_->cmbRendszam2->currentText()),
                              .isAllVehicles = ui_->chkOsszesAuto->isChecked(),
                              .description = toLogic(ui_->txtSzervizMegnev->text()),
                              .part = toLogic(ui_->txtAlkatresz->text())});
  });
}

bool frmSzerviz::change(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done,
                         .make = make,
                         .forget = [this] { chosen_ = 0; },
                         .list = [this] { ui_->ListViewSzerviz->keepPlace([this] { BeolvasSzerviz(); }); }});
}

// A repair of another vehicle that came back is listed with that vehicle's.
void frmSzerviz::followChange(int cameBack) {
  chosen_ = 0;
  ui_->ListViewSzerviz->keepPlace([this] { BeolvasSzerviz(); });
  if (cameBack == 0 || ui_->ListViewSzerviz->markRecord(cameBack)) return;
  ui_->cmbRendszam2->setEditText(toQt(log_.read(cameBack).plate.trimmed()));
  BeolvasSzerviz();
  ui_->ListViewSzerviz->markRecord(cameBack);
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
  const core::SeenRecord seen = log_.seen(ui_->ListViewSzerviz->highlightedRecord().toInt());
  const auto repair = seen.bytes.empty() ? repairs::Repair{} : core::decoded<repairs::Repair>(seen.bytes);
  const QString day = toQt(core::shortDateOfStored(repair.date));
  const Step step(this, QStringLiteral("javítás törlése, %1").arg(day),
                  QStringLiteral("Törölve: %1 %2").arg(day, toQt(repair.description.trimmed())));
  change(QStringLiteral("A javítás törölve van."), [this] {
    log_.remove(log_.seen(ui_->ListViewSzerviz->highlightedRecord().toInt()));
    chosen_ = 0;
  });
  ui_->ListViewSzerviz->setFocus();
}

}  // namespace tarvik::ui
