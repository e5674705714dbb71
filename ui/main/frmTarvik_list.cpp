#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>

#include "core/entry_editing.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/main/frmTarvik.h"
#include "ui/windows/chart_panel.h"
#include "ui_frmTarvik.h"

// The list, its filter and its totals on the main screen.

namespace tarvik::ui {

void frmTarvik::setUpList() {
  ui_->ListView1->setModel(listing_);
  delegate_ =
      layOutList(*ui_->ListView1, {"9999.99.99.", "9999999", "999,99", "-9999", "X", "X", "X", "", ""});
  emptyList_ = new ListHint(*ui_->ListView1);
  connect(ui_->Combo1, &QComboBox::currentTextChanged, this, &frmTarvik::showCues);
  ui_->ListView1->onRowChosen(
      [this](int row) { return guarded(this, [&] { showEntry(listing_->listing().number(row)); }); });
  const QList<QRadioButton*> modes{ui_->opSzürö_0, ui_->opSzürö_1, ui_->opSzürö_2};
  for (int mode = 0; mode < modes.size(); ++mode)
    connect(modes[mode], &QRadioButton::toggled, this, [this, mode](bool on) {
      if (on) chooseMode(mode);
    });
  chooseMode(core::kWholeList);
  for (QLineEdit* field :
       {ui_->tx_teljes_ktg, ui_->ob_ktg, ui_->txAlkatreszKoltseg, ui_->tx_liter, ui_->tx_megtett_km})
    field->installEventFilter(this);
  setUpListMenu();
}

void frmTarvik::beolvas() {
  listing_->setListing({});
  select(0);
  listedPlate_ = platePath();
  shown_ = {
      .plate = plate().trimmed(), .mode = listMode_, .day = toLogic(ui_->DTPSzürö->date()), .isRead = false};
  showCues();
  core::Listing listing{core::loadLogbook(context_.files, context_.folders, listedPlate_), {}};
  listing.numbers = core::listedEntries(listing.logbook, {shown_.mode, shown_.day});
  listing_->setListing(std::move(listing));
  keepDistancesWhole();
  shown_.entries = listing_->listing().rows();
  shown_.isRead = true;
  showCues();
  try {
    core::updateTotals(listing_->listing(), totals_);
  } catch (...) {
    showTotals();
    throw;
  }
  showTotals();
}

// A slip of one digit in a reading gives a distance longer than any drive: it is seen with all its digits.
void frmTarvik::keepDistancesWhole() {
  keepWhole(*ui_->ListView1, core::kKmColumn, toQt(core::longestDistance(listing_->listing())));
}

void frmTarvik::showCues() {
  showListLine(*ui_->lbNaplo, shown_, plate().trimmed());
  emptyList_->setText(emptyListText(shown_, ui_->Combo1->count() > 0));
}

// After a recording the new entry's row is tinted for a moment; a filter may keep it from the list.
void frmTarvik::markNewest() {
  const core::Listing& listing = listing_->listing();
  const int last = listing.rows() - 1;
  if (last < 0 || listing.number(last) != listing.logbook.count()) return;
  ui_->ListView1->scrollToBottom();
  delegate_->mark(listing_->index(last, listing_->columnCount() - 1).data().toString(), *ui_->ListView1);
}

void frmTarvik::showTotals() {
  ui_->tx_teljes_ktg->setText(toQt(totals_.teljesKtg));
  ui_->ob_ktg->setText(toQt(totals_.benzinKtg));
  ui_->txAlkatreszKoltseg->setText(toQt(totals_.alkatreszKoltseg));
  ui_->tx_megtett_km->setText(toQt(totals_.megtettKm));
  ui_->tx_liter->setText(toQt(totals_.liter));
  ui_->tx_fogyaszt->setText(toQt(totals_.fogyaszt));
}

void frmTarvik::toggleFilter() {
  if (refusesBlankPlate(QStringLiteral("Így nem listázható..."))) return;
  ui_->FrameSzürö->isHidden() ? openFilter() : ui_->FrameSzürö->hide();
}

void frmTarvik::chooseMode(int mode) {
  listMode_ = static_cast<std::int16_t>(mode);
  ui_->Label4->setVisible(mode != core::kWholeList);
  ui_->DTPSzürö->setVisible(mode != core::kWholeList);
}

void frmTarvik::applyFilter() {
  const bool isYear = ui_->opSzürö_1->isChecked();
  const bool isMonth = ui_->opSzürö_2->isChecked();
  listMode_ = isYear ? core::kYearList : isMonth ? core::kMonthList : core::kWholeList;
  ui_->FrameSzürö->hide();
  guarded(this, [this] { beolvas(); }, {.failed = kListIncomplete});
  ui_->ListView1->setFocus();
}

void frmTarvik::relistInPlace() {
  ui_->ListView1->keepPlace([this] { beolvas(); });
}

bool frmTarvik::changeLogbook(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done, .make = make, .list = [this] { relistInPlace(); }});
}

bool frmTarvik::eventFilter(QObject* watched, QEvent* event) {
  if (takesLetterOfChart(watched, event)) return true;
  if (watched == ui_->txTankoltKtg) {
    if (event->type() == QEvent::FocusOut) showPrice();
    return false;
  }
  // Nobody reaches a list that a chart covers, with the keyboard or an assistive tool either.
  if (watched == ui_->logbookArea->findChild<ChartPanel*>() &&
      (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
    ui_->ListView1->setVisible(event->type() == QEvent::HideToParent);
  if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove ||
      event->type() == QEvent::ToolTip)
    guarded(this, [&] { showHint(watched); });
  return QMainWindow::eventFilter(watched, event);
}

void frmTarvik::showHint(QObject* field) {
  auto* edit = qobject_cast<QLineEdit*>(field);
  if (edit == nullptr) return;
  const std::string text = toLogic(edit->text());
  const auto hintOf = edit == ui_->tx_liter        ? &core::litresPerDay
                      : edit == ui_->tx_megtett_km ? &core::kmPerDay
                                                   : &core::costPerDay;
  if (const auto hint = hintOf(listing_->listing(), text)) edit->setToolTip(toQt(*hint));
}

}  // namespace tarvik::ui
