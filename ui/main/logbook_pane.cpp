#include "ui/main/logbook_pane.h"

#include <QEvent>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>

#include "core/entry_editing.h"
#include "core/record_file.h"
#include "core/search.h"
#include "core/statistics.h"
#include "exchange/own_format.h"
#include "settings/vehicles.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_menu.h"
#include "ui/lists/listing_model.h"
#include "ui/lists/search_line.h"
#include "ui/look/access.h"
#include "ui/main/list_cues.h"
#include "ui/main/result_band.h"
#include "ui_logbook_pane.h"

namespace tarvik::ui {

namespace {

// What of the picked day the list goes by.
core::DayPart countedPart(int mode) {
  return mode == core::kYearList    ? core::DayPart::Year
         : mode == core::kMonthList ? core::DayPart::Month
                                    : core::DayPart::Day;
}

}  // namespace

LogbookPane::LogbookPane(Context& context, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::LogbookPane>()),
      context_(context),
      rows_(new ListingModel(listed_.listing, this)) {
  ui_->setupUi(this);
  results_ = new ResultBand(listed_.listing, this);
  ui_->paneLayout->addWidget(results_);
  makeAccessible(*this);
  ui_->ListView1->setModel(rows_);
  delegate_ = layOutList(*ui_->ListView1, ListingModel::longestTexts());
  emptyList_ = new ListHint(*ui_->ListView1);
  ui_->ListView1->onRowChosen(
      [this](int row) { return guarded(window(), [&] { choose(listed_.listing.number(row)); }); });
  new ListMenu(ui_->ListView1, {.save = [this] { saveLog(); }, .import = [this] { emit importWanted(); }});
  setUpFilter();
  search_ = new SearchLine(
      *ui_->ListView1, [this](int row) { return core::searchedText(listed_.listing.entry(row)); }, this);
  ui_->listBand->insertWidget(ui_->listBand->indexOf(ui_->logbookArea), search_);
  search_->stackUnder(ui_->logbookArea);  // assistive tools go by this order
  connect(search_, &SearchLine::opening, this, &LogbookPane::listWanted);
}

LogbookPane::~LogbookPane() = default;

// The filter may be opened later: the window has its width from the start.
void LogbookPane::setUpFilter() {
  ui_->FrameSzürö->ensurePolished();
  chooseMode(core::kMonthList);
  ui_->ListView1->setMinimumWidth(
      std::max(ui_->ListView1->minimumWidth(), ui_->FrameSzürö->minimumSizeHint().width()));
  const QList<QRadioButton*> options = modes();
  for (int mode = 0; mode < options.size(); ++mode)
    connect(options[mode], &QRadioButton::toggled, this, [this, mode](bool on) {
      if (on) chooseMode(mode);
    });
  chooseMode(core::kWholeList);
  onClick(this, ui_->cmdSzürés, &LogbookPane::applyFilter);
  ui_->FrameSzürö->installEventFilter(this);
}

void LogbookPane::load() {
  ui_->DTPSzürö->setDate(toQt(context_.clock.today()));
}

void LogbookPane::setPlate(const QString& plate, bool hasVehicles) {
  plate_ = plate;
  hasVehicles_ = hasVehicles;
  showCues();
}

std::string LogbookPane::trimmedPlate() const {
  return std::string(core::trimmed(toLogic(plate_)));
}

bool LogbookPane::listsChosenPlate() const {
  return trimmedPlate() == listed_.plate;
}

void LogbookPane::beolvas() {
  rows_->refill([this] { listed_.listing = {}; });
  listed_.plate = trimmedPlate();
  listed_.filter = {.mode = listMode_, .picked = toLogic(ui_->DTPSzürö->date())};
  listed_.isRead = false;
  select(0);
  showCues();
  try {
    fillList();
    results_->showTotals();
  } catch (...) {
    if (!listed_.isRead) results_->forgetTotals();
    emit listedAnew();
    throw;
  }
  emit listedAnew();
}

// A folder that is not there is no empty logbook, though nothing fails.
void LogbookPane::fillList() {
  std::optional<core::Logbook> found = core::foundLogbook(context_.files, context_.folders, toLogic(plate_));
  if (!found) return;
  core::Listing listing{std::move(*found), {}};
  listing.numbers = core::listedEntries(listing.logbook, listed_.filter);
  listed_.isRead = true;
  rows_->refill([&] { listed_.listing = std::move(listing); });
  // A slip of one digit in a reading gives a distance longer than any drive: it is seen with all its digits.
  keepWhole(*ui_->ListView1, core::kKmColumn, toQt(core::longestDistance(listed_.listing)));
  showCues();
}

void LogbookPane::relistInPlace() {
  ui_->ListView1->keepPlace([this] { beolvas(); });
}

core::SeenRecord LogbookPane::seenEntry() const {
  if (listsChosenPlate()) return listed_.listing.logbook.seen(listed_.selected);
  return core::loadLogbook(context_.files, context_.folders, toLogic(plate_)).seen(listed_.selected);
}

core::EarlierReadings LogbookPane::earlierReadings() const {
  if (listsChosenPlate()) return core::earlierReadings(listed_.listing.logbook, listed_.selected);
  core::EarlierReadings found;
  quietly([&] {
    const auto logbook = core::foundLogbook(context_.files, context_.folders, toLogic(plate_));
    if (logbook) found = core::earlierReadings(*logbook, listed_.selected);
  });
  return found;
}

print::ListedRows LogbookPane::printedRows() const {
  const core::Listing& listing = listed_.listing;
  print::ListedRows rows{
      .records = {listing.numbers.begin(), listing.numbers.end()}, .firstKmOra = {}, .lastKmOra = {}};
  if (listing.rows() > 0) {
    rows.firstKmOra = listing.cell(0, core::kKmOraColumn);
    rows.lastKmOra = listing.cell(listing.rows() - 1, core::kKmOraColumn);
  }
  return rows;
}

QString LogbookPane::averageText() const {
  return results_->averageText();
}

QString LogbookPane::consumptionText() const {
  return results_->consumptionText();
}

// The plate may be another one by now: what its logbook does not have is not shown, and not chosen either.
void LogbookPane::choose(int record) {
  const std::string path = context_.folders.logbook(toLogic(plate_));
  const auto logbook = core::loadRecords<core::NapiAdat>(context_.files, path);
  if (record > logbook.count())
    throw core::Failure(core::FailureKind::RecordMissing).file(path).record(record);
  select(record);
  showStatistics(logbook, record);
  emit entryChosen(core::toInput(logbook.record(record)));
}

void LogbookPane::select(int record) {
  listed_.selected = static_cast<std::int16_t>(record);
  emit choiceChanged(record != 0);
}

void LogbookPane::showStatistics(const core::Logbook& logbook, int record) {
  std::int16_t tankSize = 0;
  guarded(window(), [&] {
    const auto vehicles = settings::loadVehiclesOfProgramFolder(context_.files, context_.folders);
    tankSize = settings::tankSizeOf(vehicles, toLogic(plate_));
  });
  const std::string average = toLogic(results_->averageText());
  results_->showStatistics(core::statisticsOf(
      logbook,
      {.selected = record, .tankSize = tankSize, .average = average, .today = context_.clock.today()}));
}

void LogbookPane::showCues() {
  showListLine(*ui_->lbNaplo, listed_, toQt(trimmedPlate()));
  emptyList_->setText(emptyListText(listed_, hasVehicles_));
}

void LogbookPane::markNewest() {
  const core::Listing& listing = listed_.listing;
  const int last = listing.rows() - 1;
  if (last < 0 || listing.number(last) != listing.logbook.count()) return;
  ui_->ListView1->scrollToBottom();
  delegate_->mark(recordOfRow(*ui_->ListView1, last), *ui_->ListView1);
}

void LogbookPane::showAgain(int record) {
  relistInPlace();
  if (record == 0 || ui_->ListView1->markRecord(record)) return;
  ui_->opSzürö_0->setChecked(true);  // a filter keeps it from the list
  beolvas();
  ui_->ListView1->markRecord(record);
}

void LogbookPane::saveLog() {
  saveCsvFile(context_, toQt(listed_.plate) + QStringLiteral("_naplo"), exchange::csvOf(listed_.listing),
              window());
}

// The options by the modes that they choose.
QList<QRadioButton*> LogbookPane::modes() const {
  return {ui_->opSzürö_0, ui_->opSzürö_1, ui_->opSzürö_2};
}

void LogbookPane::toggleFilter() {
  ui_->FrameSzürö->isHidden() ? openFilter() : ui_->FrameSzürö->hide();
}

void LogbookPane::openFilter() {
  filterOpener_ = window()->focusWidget();
  ui_->FrameSzürö->show();
  for (QRadioButton* option : modes())
    if (option->isChecked()) option->setFocus(Qt::ShortcutFocusReason);
}

// As it was listed: a mode that was only clicked at would filter the next listing.
void LogbookPane::closeFilter() {
  ui_->FrameSzürö->hide();
  modes()[listed_.filter.mode]->setChecked(true);
  ui_->DTPSzürö->setDate(toQt(listed_.filter.picked));
  if (filterOpener_) filterOpener_->setFocus(Qt::ShortcutFocusReason);
}

void LogbookPane::chooseMode(int mode) {
  listMode_ = static_cast<std::int16_t>(mode);
  ui_->Label4->setVisible(mode != core::kWholeList);
  ui_->DTPSzürö->setVisible(mode != core::kWholeList);
  ui_->DTPSzürö->showUpTo(countedPart(mode));
}

void LogbookPane::applyFilter() {
  ui_->FrameSzürö->hide();
  guarded(window(), [this] { beolvas(); }, {.failed = kListIncomplete});
  ui_->ListView1->setFocus();
  ui_->ListView1->scrollToBottom();
}

QAction* LogbookPane::searchItem() const {
  return search_->item();
}

QList<QAction*> LogbookPane::exchangeItems() const {
  QList<QAction*> items;
  for (const char* name : {"mnuMasolas", "mnuCsvBeolvasas", "mnuCsvMentes"})
    items.append(ui_->ListView1->findChild<QAction*>(QString::fromLatin1(name)));
  return items;
}

void LogbookPane::layOver(QWidget& panel) {
  over_ = &panel;
  ui_->areaLayout->addWidget(&panel, 0, 0);
  panel.raise();
  panel.installEventFilter(this);
}

bool LogbookPane::hasKeyboard() const {
  return ui_->logbookArea->isAncestorOf(window()->focusWidget());
}

void LogbookPane::takeKeyboard() {
  const bool isCovered = over_ != nullptr && over_->isVisible();
  (isCovered ? over_ : ui_->ListView1)->setFocus(Qt::ShortcutFocusReason);
}

int LogbookPane::listHeight() const {
  return ui_->logbookArea->sizeHint().height();
}

int LogbookPane::wideWidth() const {
  return results_->wideWidth();
}

void LogbookPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (wasShown_) return;
  wasShown_ = true;
  // The newest entry is in view once the list has its size.
  QTimer::singleShot(0, ui_->ListView1, &QTreeView::scrollToBottom);
}

// A key comes to the frame from its fields alone: one in an open drop-down or calendar stays there.
bool LogbookPane::takesFilterKey(const QKeyEvent& key) {
  const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (isEnter) ui_->cmdSzürés->click();
  if (key.key() == Qt::Key_Escape) closeFilter();
  return isEnter || key.key() == Qt::Key_Escape;
}

// Nobody reaches a list that a panel covers, with the keyboard or an assistive tool either.
bool LogbookPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == ui_->FrameSzürö && event->type() == QEvent::KeyPress)
    return takesFilterKey(*static_cast<QKeyEvent*>(event));
  if (watched == over_ && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
    ui_->ListView1->setVisible(event->type() == QEvent::HideToParent);
  return QWidget::eventFilter(watched, event);
}

}  // namespace tarvik::ui
