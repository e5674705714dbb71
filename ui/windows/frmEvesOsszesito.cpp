#include "ui/windows/frmEvesOsszesito.h"

#include <QHeaderView>

#include "core/entry_editing.h"
#include "core/yearly_totals.h"
#include "exchange/own_format.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_menu.h"
#include "ui/lists/text_list_model.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/print/list_printer.h"
#include "ui_frmEvesOsszesito.h"

namespace tarvik::ui {
namespace {

// The height of the window where the display has room, in steps of the grid.
constexpr int kWishedHeight = 48;

QStringList textsOf(const std::vector<std::string>& texts) {
  QStringList list;
  for (const std::string& text : texts) list.append(toQt(text));
  return list;
}

}  // namespace

frmEvesOsszesito::frmEvesOsszesito(Context& context, const QString& plate, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::frmEvesOsszesito>()),
      context_(context),
      plate_(plate.trimmed()) {
  ui_->setupUi(this);
  makeAccessible(*this);
  setWindowTitle(windowTitle() + QStringLiteral(" – ") + plate_);
  addClosingMenu(*this, ui_->mnuBezar, {ui_->mnuPrint});
  onMenu(this, ui_->mnuPrint, &frmEvesOsszesito::print);
  prepareList();
  followEnterRule(*this);
  keepWithinReach(*this);
  openInTheMiddle(*this, {0, kWishedHeight * gridStep()});
  guarded(this, [this] { list(); }, {.failed = QStringLiteral("Az összesítő nem készült el.")});
}

frmEvesOsszesito::~frmEvesOsszesito() = default;

void frmEvesOsszesito::prepareList() {
  rows_ = new TextListModel(textsOf(core::yearHeads()), this);
  rows_->setFigureColumns({1, 2, 3, 4, 5, 6, 7, 8, 9});
  ui_->ListViewEves->setModel(rows_);
  layOutList(*ui_->ListViewEves, {"Összesen__", "9 999 999", "999 999,99", "-999,99", "9 999,99",
                                  "999 999 999", "999 999 999", "999 999 999", "999 999 999", "9 999,99"});
  ui_->ListViewEves->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  ui_->ListViewEves->onRowChosen([](int) { return true; });
  new ListMenu(ui_->ListViewEves, {.save = [this] { save(); }});
}

void frmEvesOsszesito::list() {
  new ListHint(*ui_->ListViewEves, QStringLiteral("%1 naplója még üres.").arg(plate_));
  std::vector<TextRow> rows;
  for (const core::YearLine& line :
       core::yearlyTotals(core::loadLogbook(context_.files, context_.folders, toLogic(plate_))))
    rows.push_back({.cells = textsOf(core::yearCells(line)), .record = {}, .isSum = line.year == 0});
  rows_->setRows(std::move(rows));
}

QString frmEvesOsszesito::documentName() const {
  return plate_ + QStringLiteral("_eves_osszesito");
}

void frmEvesOsszesito::save() {
  saveCsvFile(context_, documentName(), exchange::csvOf(tableOf(*ui_->ListViewEves, Figures::AsCopied)),
              this);
}

void frmEvesOsszesito::print() {
  printTable(context_, plate_, documentName(), tableOf(*ui_->ListViewEves, Figures::AsShown), this);
}

}  // namespace tarvik::ui
