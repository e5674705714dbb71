#include "ui/windows/frmSetup.h"

#include <QShowEvent>
#include <algorithm>

#include "settings/start_settings.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/row_choice.h"
#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/figure_fields.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/plate_chooser.h"
#include "ui/look/undo_line.h"
#include "ui/windows/restore_pane.h"
#include "ui_frmSetup.h"

namespace tarvik::ui {
namespace {

// The size of the window where the display has room, in steps of the grid.
constexpr QSize kWishedSteps{84, 48};
constexpr int kRightTwips = 2'000;
constexpr int kDownTwips = 2'500;

std::string plateAlone(const settings::Vehicle& vehicle) {
  return vehicle.plate.asStored();
}

void tellMissing(QWidget* screen, const QString& prompt, QWidget* field) {
  tellError(screen, QStringLiteral("HIBA"), prompt);
  field->setFocus();
}

}  // namespace

frmSetup::frmSetup(Context& context, QPoint mainTopLeft, QWidget* parent)
    : QDialog(parent), context_(context), mainTopLeft_(mainTopLeft), ui_(std::make_unique<Ui::frmSetup>()) {
  ui_->setupUi(this);
  partNames_ = {.list = ui_->listAlkatr, .deletion = ui_->cmdAlkatrDel, .file = settings::kPartNames};
  notes_ = {.list = ui_->listMegj, .deletion = ui_->cmdMegjDel, .file = settings::kNotes};
  makeFigureFields({ui_->txTank}, QStringLiteral("WWWWWWWW"));
  new PlateChooser(ui_->cmbRendszam);
  addCopies();
  makeAccessible(*this);
  connectButtons();
  connectLists();
  followEnterRule(*this);
  new UndoLine(context_, *this, *ui_->screenLayout,
               [this](const core::Travelled& travelled) { followChange(travelled); });
  keepWithinReach(*this);
  ui_->txRendszam->setFocus();
}

frmSetup::~frmSetup() = default;

// Behind the other pages, for the Tab key too.
void frmSetup::addCopies() {
  auto* copies = new RestorePane(context_, ui_->SSTab1);
  ui_->SSTab1->addTab(copies, QStringLiteral("Mentések"));
  QWidget* before = ui_->cmdMegjDel;
  for (QWidget* part : copies->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if ((part->focusPolicy() & Qt::TabFocus) == 0) continue;
    setTabOrder(before, part);
    before = part;
  }
  setTabOrder(before, ui_->cmdVissza);
}

void frmSetup::connectButtons() {
  connect(ui_->txRendszam, &QLineEdit::textChanged, this,
          [this](const QString& text) { ui_->cmdRendszamFelvesz->setEnabled(!text.isEmpty()); });
  onClick(this, ui_->cmdRendszamFelvesz, &frmSetup::addVehicle);
  onClick(this, ui_->cmdRendszamDel, &frmSetup::deleteVehicle);
  onClick(this, ui_->cmdAlkatrDel, &frmSetup::deletePartName);
  onClick(this, ui_->cmdMegjDel, &frmSetup::deleteNote);
  onClick(this, ui_->cmdSetup, &frmSetup::saveStartSettings);
  connect(ui_->chkRiaszt, &QCheckBox::toggled, this, &frmSetup::switchReminders);
  connect(ui_->cmdVissza, &QPushButton::clicked, this, &QDialog::close);
}

void frmSetup::connectLists() {
  new ListHint(*ui_->List1,
               QStringLiteral("Még nincs gépkocsi.\nÍrd be fent a rendszámot és a tank méretét!"));
  chosenVehicle_ = enableWhileChosen(ui_->List1, ui_->cmdRendszamDel);
  for (Lookup* lookup : {&partNames_, &notes_}) {
    new ListHint(*lookup->list, QStringLiteral("Még üres.\nA főképernyő Felvesz gombja bővíti."));
    lookup->chosen = enableWhileChosen(lookup->list, lookup->deletion);
  }
}

RowChoice* frmSetup::enableWhileChosen(QListWidget* list, QAbstractButton* button) {
  list->setAlternatingRowColors(true);
  connect(list->model(), &QAbstractItemModel::modelReset, button, [button] { button->setEnabled(false); });
  return new RowChoice(list, [button](int) {
    button->setEnabled(true);
    return true;
  });
}

void frmSetup::showEvent(QShowEvent* event) {
  if (!loaded_ && !event->spontaneous()) load();
  QDialog::showEvent(event);
}

// Each file by itself: one that cannot be read does not keep the others from the person.
void frmSetup::load() {
  loaded_ = true;
  openAt(*this, mainTopLeft_ + QPoint(pixelsOfTwips(kRightTwips, *this), pixelsOfTwips(kDownTwips, *this)),
         kWishedSteps * gridStep());
  guarded(this, [this] { fillVehicles(); });
  guarded(this, [this] { loadStartSettings(); });
  for (Lookup* lookup : {&partNames_, &notes_}) guarded(this, [&] { loadTexts(*lookup); });
}

void frmSetup::loadStartSettings() {
  const settings::SetRecord stored = settings::loadStartSettings(context_.files, context_.folders);
  showStartPlate(stored.plate.isBlank() ? QString() : toQt(stored.plate.asStored()));
  ui_->chkRiaszt->setChecked(stored.remindersOn == core::kFlagSet);
}

// Selected, so that what is typed replaces the plate and does not end up behind its padding.
void frmSetup::showStartPlate(const QString& plate) {
  ui_->cmbRendszam->setEditText(plate);
  ui_->cmbRendszam->lineEdit()->selectAll();
}

void frmSetup::loadTexts(Lookup& lookup) {
  lookup.list->clear();
  lookup.texts = settings::loadLookupTexts(context_.files, context_.folders, lookup.file);
  for (int number = 1; number <= lookup.texts.count(); ++number)
    lookup.list->addItem(toQt(lookup.texts.record(number).text.asStored()));
}

// What came back into a list is chosen there.
void frmSetup::followList(RowChoice& chosen, const std::string& file, const core::Travelled& travelled,
                          const std::function<void()>& refill) {
  const std::string path = context_.folders.inCurrent(file);
  if (!concerns(travelled, path)) return;
  chosen.keepPlace(refill);
  const int cameBack = recordThatCameBack(travelled, path);
  if (cameBack > 0) chosen.view().setCurrentIndex(chosen.view().model()->index(cameBack - 1, 0));
}

// The switch keeps its state: it is no part of what is stored.
void frmSetup::followChange(const core::Travelled& travelled) {
  followList(*chosenVehicle_, "rendsz.dat", travelled, [this] { fillVehicles(); });
  for (Lookup* lookup : {&partNames_, &notes_})
    followList(*lookup->chosen, lookup->file.name, travelled, [&] { loadTexts(*lookup); });
  if (!concerns(travelled, context_.folders.inCurrent("set.dat"))) return;
  const QSignalBlocker unswitched(ui_->chkRiaszt);
  loadStartSettings();
}

void frmSetup::addVehicle() {
  if (!acceptsNewVehicle()) return;
  const QString what = ui_->txRendszam->text().trimmed();
  const Step step(this, QStringLiteral("új gépkocsi, %1").arg(what), QStringLiteral("Felvéve: %1").arg(what));
  changeVehicles(QStringLiteral("A rendszám fel van véve."), [this] {
    settings::addVehicle(context_.files, context_.folders, toLogic(ui_->txRendszam->text()),
                         toLogic(ui_->txTank->text()));
    vehicleText_ = &settings::listText;
  });
}

void frmSetup::changeVehicles(const QString& done, const std::function<void()>& make) {
  carryOut(this, {.done = done, .make = make, .list = [this] {
                    chosenVehicle_->keepPlace([this] { emit vehiclesChanged(fillVehicles()); });
                  }});
}

bool frmSetup::acceptsNewVehicle() {
  if (settings::isTankSizeMissing(toLogic(ui_->txTank->text()))) {
    tellMissing(this, QStringLiteral("Nincs megadva üzemanyag tank méret!\nPótold..."), ui_->txTank);
    return false;
  }
  if (settings::isPlateMissing(toLogic(ui_->txRendszam->text()))) {
    tellMissing(this, QStringLiteral("Nincs megadva rendszám!\nPótold..."), ui_->txRendszam);
    return false;
  }
  return true;
}

// After a deletion the list shows bare plates, without the tanks.
void frmSetup::deleteVehicle() {
  const QString what = toQt(vehicles_.record(chosenVehicle_->row() + 1).plate.trimmed());
  const Step step(this, QStringLiteral("gépkocsi törlése, %1").arg(what),
                  QStringLiteral("Törölve: %1").arg(what));
  changeVehicles(QStringLiteral("A rendszám törölve van."), [this] {
    settings::removeVehicle(context_.files, context_.folders, vehicles_.seen(chosenVehicle_->row() + 1));
    vehicleText_ = &plateAlone;
  });
  ui_->List1->setFocus();
}

// What stands in the plate to load at start is the person's choice and stays while its list is filled.
QStringList frmSetup::fillVehicles() {
  const QString chosen = ui_->cmbRendszam->currentText();
  ui_->List1->clear();
  ui_->cmbRendszam->clear();
  showStartPlate(chosen);
  vehicles_ = settings::loadVehicles(context_.files, context_.folders);
  QStringList plates;
  for (int number = 1; number <= vehicles_.count(); ++number) {
    const settings::Vehicle vehicle = vehicles_.record(number);
    ui_->List1->addItem(toQt(vehicleText_(vehicle)));
    plates << toQt(plateAlone(vehicle));
  }
  ui_->cmbRendszam->addItems(plates);
  ui_->cmbRendszam->setCurrentIndex(-1);
  showStartPlate(chosen);
  return plates;
}

// The notes' button is disabled before the question already.
void frmSetup::deleteText(Lookup& lookup) {
  if (&lookup == &notes_) lookup.deletion->setEnabled(false);
  if (!confirmsDeletion()) {
    lookup.chosen->highlight(-1);
    lookup.deletion->setEnabled(false);
    return;
  }
  const int number = lookup.chosen->row() + 1;
  const QString what = toQt(lookup.texts.record(number).text.trimmed());
  const Step step(this, QStringLiteral("törlés, %1").arg(what), QStringLiteral("Törölve: %1").arg(what));
  carryOut(this, {.done = QStringLiteral("A tétel törölve van."),
                  .make =
                      [&] {
                        settings::removeLookupText(context_.files, context_.folders, lookup.file,
                                                   lookup.texts.seen(number));
                      },
                  .list = [&] { lookup.chosen->keepPlace([&] { loadTexts(lookup); }); }});
  lookup.list->setFocus();
}

bool frmSetup::confirmsDeletion() {
  return ask(this, QStringLiteral(" TÖRLÉS az adatállományból !"),
             QStringLiteral("Biztos T Ö R Ö L H E T Ő\na kijelölt tétel? "), DefaultAnswer::No);
}

void frmSetup::saveStartSettings() {
  const bool remindersOn = ui_->chkRiaszt->checkState() != Qt::Unchecked;
  const settings::SetRecord chosen{.remindersOn = core::toFlag(remindersOn),
                                   .plate = core::FixedText<10>(toLogic(ui_->cmbRendszam->currentText()))};
  const Step step(this, QStringLiteral("indulási beállítások"),
                  QStringLiteral("Elmentve: indulási beállítások"));
  guarded(this, [&] { settings::saveStartSettings(context_.files, context_.folders, chosen); },
          {.unsure = QStringLiteral("Lehet, hogy a beállítások nincsenek elmentve. Mentsd el őket újra!")});
}

// The box's own state does not count and the values are the reverse of the main screen's switch.
void frmSetup::switchReminders() {
  const bool wasOne = context_.state.reminderState == 1;
  context_.state.reminderState = wasOne ? 0 : 1;
  ui_->chkRiaszt->setText(wasOne ? QStringLiteral("  Bekapcsolva  ") : QStringLiteral("  Kikapcsolva  "));
  emit reminderTimerWanted(wasOne);
}

}  // namespace tarvik::ui
