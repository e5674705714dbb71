#include "ui/main/frmTarvik.h"

#include <QCloseEvent>
#include <QPushButton>
#include <QScopeGuard>
#include <QShortcut>

#include "core/file_steps.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/exchange/csv_files.h"
#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/plate_chooser.h"
#include "ui/look/undo_line.h"
#include "ui/main/entry_changes.h"
#include "ui/main/entry_form.h"
#include "ui/main/logbook_pane.h"
#include "ui/main/main_menu.h"
#include "ui/main/main_placement.h"
#include "ui/main/reminder_switch.h"
#include "ui/windows/chart_panel.h"
#include "ui_frmTarvik.h"

namespace tarvik::ui {
namespace {

template <typename TextOf>
QStringList platesOf(const Context& context, TextOf textOf) {
  const auto vehicles = settings::loadVehicles(context.files, context.folders);
  QStringList plates;
  for (int number = 1; number <= vehicles.count(); ++number)
    plates.append(toQt(textOf(vehicles.record(number).plate)));
  return plates;
}

QStringList storedPlates(const Context& context) {
  return platesOf(context, [](const auto& plate) { return plate.asStored(); });
}

QStringList trimmedPlates(const Context& context) {
  return platesOf(context, [](const auto& plate) { return plate.trimmed(); });
}

}  // namespace

frmTarvik::frmTarvik(Context& context) : ui_(std::make_unique<Ui::frmTarvik>()), context_(context) {
  ui_->setupUi(this);
  setWindowTitle(QStringLiteral("Tarvik - ") + toQt(context_.version));
  makeAccessible(*this);
  compose();
  connectParts();
  auto* const undo = new UndoLine(context_, *this, *ui_->mainLayout,
                                  [this](const core::Travelled& travelled) { follow(travelled); });
  new MainMenu(context_, *this, {*logbook_, *reminders_, *undo},
               {.plate = [this] { return plate(); },
                .plates = [this] { return trimmedPlates(context_); },
                .refusesBlankPlate = [this](const QString& what) { return refusesBlankPlate(what); },
                .setPlates = [this](const QStringList& plates) { setPlates(plates); }});
  setUpKeyboard();
  placeMainScreen(*this, {*ui_->mainLayout, *entry_, *logbook_, *chart_});
}

frmTarvik::~frmTarvik() = default;

// The parts are made in the order of the Tab key.
void frmTarvik::compose() {
  reminders_ = new ReminderSwitch(context_, ui_->centralwidget);
  ui_->plateLayout->addWidget(reminders_);
  entry_ = new EntryForm(context_, ui_->centralwidget);
  ui_->mainLayout->addWidget(entry_);
  logbook_ = new LogbookPane(context_, ui_->centralwidget);
  ui_->mainLayout->addWidget(logbook_, 1);
  chart_ = new ChartPanel(
      context_,
      {.plate = [this] { return plate(); }, .averageText = [this] { return logbook_->averageText(); }},
      logbook_);
  logbook_->layOver(*chart_);
}

void frmTarvik::connectParts() {
  new PlateChooser(ui_->Combo1, [this] { guarded(this, [this] { toggleFilter(); }); });
  onSignal(ui_->Combo1, &QComboBox::currentTextChanged, this, &frmTarvik::followPlate);
  new EntryChanges(
      context_, *entry_, *logbook_, [this] { return plate(); },
      [this](const QString& consequence) { return refusesBlankPlate(consequence); });
  onSignal(entry_, &EntryForm::listWanted, this, &frmTarvik::toggleFilter);
  onSignal(entry_, &EntryForm::remindersWanted, reminders_, &ReminderSwitch::openFigy);
  onClick(this, &entry_->chartButton(), &frmTarvik::toggleChart);
  connect(logbook_, &LogbookPane::entryChosen, entry_, &EntryForm::showEntry);
  connect(logbook_, &LogbookPane::choiceChanged, entry_, &EntryForm::setChosen);
  onSignal(logbook_, &LogbookPane::choiceChanged, this, &frmTarvik::showEarlier);
  onSignal(logbook_, &LogbookPane::listedAnew, this, &frmTarvik::showEarlier);
  onSignal(logbook_, &LogbookPane::listedAnew, chart_, &ChartPanel::redraw);
  onSignal(logbook_, &LogbookPane::listWanted, this, &frmTarvik::uncoverList);
  onSignal(logbook_, &LogbookPane::importWanted, this, &frmTarvik::importLog);
}

void frmTarvik::setUpKeyboard() {
  openWithF10(*menuBar());
  followEnterRule(*this);
  entry_->chartButton().installEventFilter(this);
  menuBar()->installEventFilter(this);
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_F6), QKeySequence(Qt::CTRL | Qt::Key_L)}) {
    auto* key = new QShortcut(keys, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    onSignal(key, &QShortcut::activated, this, &frmTarvik::jump);
  }
}

void frmTarvik::load() {
  guarded(this, [this] { reminders_->checkDates(); });
  entry_->load();
  logbook_->load();
  guarded(this, [this] { setPlates(storedPlates(context_)); });
  guarded(this, [this] { loadStartSettings(); });
  guarded(this, [this] { beolvas(); }, {.failed = kListIncomplete});
  entry_->startTyping();
}

void frmTarvik::beolvas() {
  logbook_->beolvas();
}

void frmTarvik::MezoDel() {
  entry_->MezoDel();
}

QString frmTarvik::plate() const {
  return ui_->Combo1->currentText();
}

// The vehicle that is worked with stays chosen when the list of vehicles changes.
void frmTarvik::setPlates(const QStringList& plates) {
  const QString chosen = plate();
  ui_->Combo1->clear();
  ui_->Combo1->addItems(plates);
  ui_->Combo1->setCurrentIndex(-1);
  ui_->Combo1->setEditText(chosen);
  followPlate();
}

void frmTarvik::followPlate() {
  logbook_->setPlate(plate(), ui_->Combo1->count() > 0);
  reminders_->setPlate(plate());
  if (logbook_->listsChosenPlate()) chart_->redraw();
  if (isVisible()) showEarlier();  // a start lists the logbook right after, and reads it once for both
}

void frmTarvik::showEarlier() {
  entry_->setEarlier(logbook_->earlierReadings());
}

// A switch that is not stored yet is stored by this: nobody's change, to be neither copied for nor taken
// back.
void frmTarvik::loadStartSettings() {
  context_.files.watch(nullptr);
  const auto watched = qScopeGuard([this] { context_.files.watch(&context_.safety); });
  const settings::SetRecord stored = settings::loadStartSettings(context_.files, context_.folders);
  ui_->Combo1->setEditText(stored.plate.isBlank() ? QString() : toQt(stored.plate.asStored()));
  reminders_->setOn(stored.remindersOn == core::kFlagSet);
}

bool frmTarvik::refusesBlankPlate(const QString& consequence) {
  if (!isBlank(plate())) return false;
  tellError(this, QStringLiteral(" H i b a !"), QStringLiteral("Nincs megadva rendszám!\n") + consequence);
  ui_->Combo1->setFocus();
  return true;
}

// What came back is listed with its vehicle, whichever was chosen meanwhile.
void frmTarvik::followLogbook(const core::TravelledFile& file, int cameBack) {
  const std::string folder = core::steps::folderOf(file.path);
  const QString plateOfFile = toQt(folder.substr(folder.rfind('/') + 1));
  if (plateOfFile != plate().trimmed()) ui_->Combo1->setEditText(plateOfFile);
  logbook_->showAgain(cameBack);
}

void frmTarvik::follow(const core::Travelled& travelled) {
  if (concerns(travelled, context_.folders.inCurrent("rendsz.dat"))) setPlates(storedPlates(context_));
  if (concerns(travelled, context_.folders.inCurrent("set.dat"))) followSwitch();
  entry_->follow(travelled);
  for (const core::TravelledFile& file : travelled.files)
    if (file.path.ends_with("/napiadat.dat")) followLogbook(file, recordThatCameBack(travelled, file.path));
}

void frmTarvik::followSwitch() {
  const auto stored = settings::loadStartSettings(context_.files, context_.folders);
  reminders_->follow(stored.remindersOn == core::kFlagSet);
}

void frmTarvik::toggleFilter() {
  if (!refusesBlankPlate(QStringLiteral("Így nem listázható..."))) logbook_->toggleFilter();
}

void frmTarvik::toggleChart() {
  const bool wasShown = chart_->isVisible();
  chart_->toggle(entry_->chartButton(), frameGeometry().topLeft());
  if (wasShown) logbook_->takeKeyboard();
  if (!wasShown && chart_->isVisible()) entry_->chartButton().setFocus();
}

void frmTarvik::uncoverList() {
  if (chart_->isVisible()) toggleChart();
}

void frmTarvik::importLog() {
  if (refusesBlankPlate(QStringLiteral("Így nem olvasható be..."))) return;
  if (importCsvFile(context_, toLogic(plate()), this, [this] { logbook_->relistInPlace(); }))
    logbook_->markNewest();
}

// From the fields to what fills the middle of the screen, the list or the chart over it, and back.
void frmTarvik::jump() {
  if (!logbook_->hasKeyboard()) {
    lastField_ = focusWidget();
    return logbook_->takeKeyboard();
  }
  const bool canReturn = lastField_ && lastField_->isVisible() && lastField_->isEnabled();
  if (!canReturn) return entry_->startTyping(Qt::ShortcutFocusReason);
  lastField_->setFocus(Qt::ShortcutFocusReason);
}

void frmTarvik::closeEvent(QCloseEvent* event) {
  event->setAccepted(ask(this, QStringLiteral(" Kilépés "), QStringLiteral("Biztos hogy Befejezed?\n\n"),
                         DefaultAnswer::Yes));
}

// The menu has the same letter for the tyres as the charts' button; Qt would go from one to the other and do
// nothing.
bool frmTarvik::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QMainWindow::eventFilter(watched, event);
  QPushButton& charts = entry_->chartButton();
  if (static_cast<QShortcutEvent*>(event)->key() != QKeySequence::mnemonic(charts.text())) return false;
  charts.click();
  return true;
}

}  // namespace tarvik::ui
