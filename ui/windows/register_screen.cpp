#include "ui/windows/register_screen.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QPushButton>
#include <QScopeGuard>
#include <utility>

#include "ui/base/change.h"
#include "ui/base/change_news.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_menu.h"
#include "ui/lists/list_view.h"
#include "ui/lists/search_line.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"

namespace tarvik::ui {

void RegisterScreen::open(Register parts, const QString& plate, const QStringList& plates, QSize wished) {
  register_ = std::move(parts);
  makeAccessible(*this);
  addClosingMenu(*this, register_.close);
  register_.plate->addItems(plates);
  register_.plate->setEditText(plate.trimmed());
  prepareList();
  addListMenu();
  if (register_.searchedText) addSearchLine();
  followEnterRule(*this);
  new UndoLine(context_, *this, *register_.layout,
               [this, path = context_.folders.inProgram(register_.file)](const core::Travelled& travelled) {
                 if (concerns(travelled, path)) followChange(recordThatCameBack(travelled, path));
               });
  keepWithinReach(*this);
  openInTheMiddle(*this, wished);
  guarded(this, [this] { listPlate(); });
}

void RegisterScreen::prepareList() {
  rows_ = new TextListModel(register_.heads, this);
  rows_->setMarkWords(register_.markWords);
  rows_->setFigureColumns(register_.figureColumns);
  register_.list->setModel(rows_);
  layOutList(*register_.list, register_.longest);
  new ListHint(*register_.list, register_.emptyHint);
  register_.list->sortByHeaderClicks();
  register_.list->onRowChosen([this](int row) { return guarded(this, [&] { choose(row); }); });
}

void RegisterScreen::addListMenu() {
  new ListMenu(register_.list, {.save = [this] {
                 saveCsvFile(context_, register_.csvName,
                             register_.csv(context_.files, context_.folders, *rows_), this);
               }});
}

void RegisterScreen::addSearchLine() {
  auto* search = new SearchLine(
      *register_.list, [this](int row) { return register_.searchedText(rows_->record(row).toInt()); }, this);
  register_.layout->insertWidget(register_.layout->indexOf(register_.list), search);
}

void RegisterScreen::list(const std::function<std::vector<TextRow>()>& read) {
  const auto chosenShown = qScopeGuard([this] { showChosen(); });
  rows_->setRows({});
  rows_->setRows(read());
}

void RegisterScreen::relistInPlace() {
  register_.list->keepPlace([this] { listPlate(); });
}

// A record that is out of the list is not offered to be deleted.
void RegisterScreen::showChosen() {
  register_.list->highlightRecord(chosen_);
  register_.deletion->setEnabled(offersDeletion_ && highlighted() != 0);
}

void RegisterScreen::choose(int row) {
  const int number = rows_->record(row).toInt();
  showRecord(number);
  chosen_ = number;
  offersDeletion_ = true;
  register_.deletion->setEnabled(true);
}

bool RegisterScreen::change(const QString& done, const std::function<void()>& make) {
  return carryOut(this, {.done = done,
                         .make = make,
                         .forget = [this] { forgetChosen(); },
                         .list = [this] { relistInPlace(); }});
}

// A record of another vehicle that came back is listed with that vehicle's.
void RegisterScreen::followChange(int cameBack) {
  forgetChosen();
  relistInPlace();
  if (cameBack == 0 || register_.list->markRecord(cameBack)) return;
  register_.plate->setEditText(plateOf(cameBack));
  listPlate();
  register_.list->markRecord(cameBack);
}

int RegisterScreen::highlighted() const {
  return register_.list->highlightedRecord().toInt();
}

}  // namespace tarvik::ui
