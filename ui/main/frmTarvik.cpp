#include "ui/main/frmTarvik.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QStyle>
#include <algorithm>

#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/look/access.h"
#include "ui/look/fitting_area.h"
#include "ui/look/look.h"
#include "ui/look/note_type_ahead.h"
#include "ui/look/placement.h"
#include "ui/look/plate_chooser.h"
#include "ui/print/list_printer.h"
#include "ui/windows/chart_panel.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui_frmTarvik.h"

namespace tarvik::ui {
namespace {

constexpr int kWidthTwips = 10'600;
constexpr int kWishedRows = 6;

QStringList trimmedPlates(const settings::Vehicles& vehicles) {
  QStringList plates;
  for (int number = 1; number <= vehicles.count(); ++number)
    plates.append(toQt(vehicles.record(number).plate.trimmed()));
  return plates;
}

QStringList platesOf(const settings::Vehicles& vehicles) {
  QStringList plates;
  for (int number = 1; number <= vehicles.count(); ++number)
    plates.append(toQt(vehicles.record(number).plate.asStored()));
  return plates;
}

}  // namespace

frmTarvik::frmTarvik(Context& context)
    : ui_(std::make_unique<Ui::frmTarvik>()),
      context_(context),
      listing_(new ListingModel(this)),
      timer_(new QTimer(this)) {
  ui_->setupUi(this);
  makeAccessible(*this);
  setWindowTitle(QStringLiteral("Tarvik - ") + toQt(context_.version));
  setUpFields();
  setUpList();
  setUpReminders();
  setUpCharts();
  connectButtons();
  connectMenu();
  setUpKeyboard();
  place();
}

frmTarvik::~frmTarvik() = default;

// The filter may be opened later: the window has its width from the start. Where the display has room the
// list is taller than it must be, as high as a chart over it wishes; where it is too low for the smallest
// chart, the fields and the results stand beside each other, and all parts closer together.
void frmTarvik::place() {
  keepWithinReach(*this);
  const QMargins sides = ui_->mainLayout->contentsMargins();
  const int around = sides.left() + sides.right();
  ui_->FrameSzürö->ensurePolished();
  ui_->ListView1->setMinimumWidth(
      std::max(ui_->ListView1->minimumWidth(), ui_->FrameSzürö->minimumSizeHint().width()));
  const auto& chart = *findChild<ChartPanel*>();
  const int list = ui_->logbookArea->sizeHint().height();
  const QSize wanted(
      pixelsOfTwips(kWidthTwips, *this),
      sizeHint().height() + std::max(kWishedRows * rowHeight(), chart.sizeHint().height() - list));
  const int least = ui_->centralwidget->sizeHint().height() - list + chart.minimumSizeHint().height();
  const bool isLow = FittingArea::roomOnDisplay(*this).height() < least;
  if (isLow) ui_->mainLayout->setSpacing(gridStep() / 2);
  const int wide = std::max(ui_->entryBand->wideWidth(), ui_->resultBand->wideWidth()) + around +
                   style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  openInTheMiddle(*this, isLow ? QSize(wide, wanted.height()) : wanted);
}

void frmTarvik::setUpFields() {
  for (QDateEdit* day : {ui_->DTPicker1, ui_->DTPSzürö})
    day->setDateRange(toQt(core::kFirstDay), toQt(core::kLastDay));
  for (QLineEdit* field : {ui_->txKmOra, ui_->txTankoltLiter, ui_->txTankoltKtg, ui_->txAlkatreszKtg})
    connect(field, &QLineEdit::textChanged, this, [this, field] { keepNumeric(field); });
  for (QLineEdit* field : {ui_->txTankoltLiter, ui_->txTankoltKtg})
    connect(field, &QLineEdit::textChanged, this, &frmTarvik::showPrice);
  ui_->txTankoltKtg->installEventFilter(this);
  new NoteTypeAhead(ui_->txMegjegyzes, [this](const QString& typed, const QString& key) {
    std::optional<settings::CompletedNote> found;
    noteSearch_.run(this, [&] {
      const auto notes = settings::loadLookupTexts(context_.files, context_.folders, settings::kNotes);
      found = settings::completedNote(notes, toLogic(typed), toLogic(key));
    });
    return found;
  });
}

void frmTarvik::connectButtons() {
  onClick(this, ui_->cmd_rogzit, &frmTarvik::record);
  onClick(this, ui_->cmd_modosit, &frmTarvik::modify);
  onClick(this, ui_->cmd_del, &frmTarvik::remove);
  onClick(this, ui_->cmd_lista, &frmTarvik::toggleFilter);
  onClick(this, ui_->cmdSzürés, &frmTarvik::applyFilter);
  onClick(this, ui_->cmd_figyel, &frmTarvik::openFigy);
  new PlateChooser(ui_->Combo1, [this] { ui_->cmd_lista->click(); });
  connect(ui_->cmdAlkatresz, &QPushButton::clicked, this, [this] {
    guarded(this, [this] { quickAdd(ui_->txAlkatresz, settings::kPartNames, QStringLiteral("alkatrész")); });
  });
  connect(ui_->cmdMegjegyzes, &QPushButton::clicked, this, [this] {
    guarded(this, [this] { quickAdd(ui_->txMegjegyzes, settings::kNotes, QStringLiteral("megjegyzés")); });
  });
}

// The panel lies over the list, in one cell of the layout with it.
void frmTarvik::setUpCharts() {
  auto* panel = new ChartPanel(
      context_,
      {.plate = [this] { return plate(); }, .averageText = [this] { return ui_->tx_fogyaszt->text(); }},
      ui_->logbookArea);
  ui_->areaLayout->addWidget(panel, 0, 0);
  panel->raise();
  panel->installEventFilter(this);
  connect(ui_->cmdGrafikon, &QPushButton::clicked, this, [this, panel] {
    guarded(this, [&] { panel->toggle(*ui_->cmdGrafikon, frameGeometry().topLeft()); });
  });
}

void frmTarvik::connectMenu() {
  connect(ui_->mnuKilep, &QAction::triggered, this, &QWidget::close, Qt::QueuedConnection);
  onMenu(this, ui_->mnuSetup, &frmTarvik::openSetup);
  onMenu(this, ui_->mnuGumik, &frmTarvik::openGumik);
  onMenu(this, ui_->mnuSzerviz, &frmTarvik::openSzerviz);
  onMenu(this, ui_->mnuPrint, &frmTarvik::print);
}

void frmTarvik::load() {
  guarded(this, [this] { checkDates(); });
  loadLookups();
  ui_->DTPicker1->setDate(toQt(context_.clock.today()));
  ui_->DTPSzürö->setDate(toQt(context_.clock.today()));
  guarded(this, [this] { loadVehicles(); });
  guarded(this, [this] { loadStartSettings(); });
  guarded(this, [this] { beolvas(); }, {.failed = kListIncomplete});
}

void frmTarvik::loadLookups() {
  const auto fill = [this](QComboBox* field, const settings::LookupFile& list) {
    const auto texts = settings::loadLookupTexts(context_.files, context_.folders, list);
    field->clear();
    for (int number = 1; number <= texts.count(); ++number)
      field->addItem(toQt(texts.record(number).text.asStored()));
  };
  guarded(this, [&] { fill(ui_->txAlkatresz, settings::kPartNames); });
  ui_->txAlkatresz->setEditText({});
  guarded(this, [&] { fill(ui_->txMegjegyzes, settings::kNotes); });
  ui_->txMegjegyzes->setEditText(QStringLiteral("Tankolás"));
}

void frmTarvik::loadVehicles() {
  fillPlates(platesOf(settings::loadVehicles(context_.files, context_.folders)));
}

// The vehicle that is worked with stays chosen when the list of vehicles changes.
void frmTarvik::fillPlates(const QStringList& plates) {
  const QString chosen = plate();
  ui_->Combo1->clear();
  ui_->Combo1->addItems(plates);
  ui_->Combo1->setCurrentIndex(-1);
  ui_->Combo1->setEditText(chosen);
  showCues();
}

void frmTarvik::loadStartSettings() {
  const settings::SetRecord stored = settings::loadStartSettings(context_.files, context_.folders);
  ui_->Combo1->setEditText(stored.plate.isBlank() ? QString() : toQt(stored.plate.asStored()));
  ui_->Check1->setChecked(stored.remindersOn == core::kFlagSet);
}

QString frmTarvik::plate() const {
  return ui_->Combo1->currentText();
}

std::string frmTarvik::platePath() const {
  return toLogic(plate());
}

bool frmTarvik::refusesBlankPlate(const QString& consequence) {
  if (!isBlank(plate())) return false;
  tellError(this, QStringLiteral(" H i b a !"), QStringLiteral("Nincs megadva rendszám!\n") + consequence);
  ui_->Combo1->setFocus();
  return true;
}

void frmTarvik::openSetup() {
  frmSetup screen(context_, frameGeometry().topLeft(), this);
  connect(&screen, &frmSetup::vehiclesChanged, this,
          [this](const QStringList& plates) { fillPlates(plates); });
  connect(&screen, &frmSetup::reminderTimerWanted, timer_,
          [this](bool on) { on ? timer_->start() : timer_->stop(); });
  screen.exec();
}

void frmTarvik::openGumik() {
  const auto vehicles = settings::loadVehicles(context_.files, context_.folders);
  frmGumik(context_, plate(), trimmedPlates(vehicles), this).exec();
}

void frmTarvik::openSzerviz() {
  const auto vehicles = settings::loadVehicles(context_.files, context_.folders);
  frmSzerviz(context_, plate(), trimmedPlates(vehicles), this).exec();
}

void frmTarvik::print() {
  const core::Listing& listing = listing_->listing();
  print::ListedRows rows{
      .records = {listing.numbers.begin(), listing.numbers.end()}, .firstKmOra = {}, .lastKmOra = {}};
  if (listing.rows() > 0) {
    rows.firstKmOra = listing.cell(0, core::kKmOraColumn);
    rows.lastKmOra = listing.cell(listing.rows() - 1, core::kKmOraColumn);
  }
  printList(context_, plate(), std::move(rows), this);
}

void frmTarvik::closeEvent(QCloseEvent* event) {
  const bool ends = ask(this, QStringLiteral(" Kilépés "), QStringLiteral("Biztos hogy Befejezed?\n\n"),
                        DefaultAnswer::Yes);
  event->setAccepted(ends);
}

void frmTarvik::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (wasShown_) return;
  wasShown_ = true;
  // The newest entry is in view once the list has its size.
  QTimer::singleShot(0, ui_->ListView1, &QTreeView::scrollToBottom);
  if (timer_->isActive()) timer_->start();  // the first check comes a full interval after this
}

}  // namespace tarvik::ui
