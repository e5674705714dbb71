#include "ui/frmSetup.h"

#include <QShowEvent>
#include <algorithm>

#include "settings/start_settings.h"
#include "ui/controls/list_hint.h"
#include "ui/controls/message_boxes.h"
#include "ui/guarded.h"
#include "ui/look.h"
#include "ui/placement.h"
#include "ui/text.h"
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

int selectedNumber(const QListWidget* list) {
  const QList<QListWidgetItem*> selected = list->selectedItems();
  return selected.isEmpty() ? 0 : list->row(selected.first()) + 1;
}

void tellMissing(QWidget* screen, const QString& prompt, QWidget* field) {
  tellError(screen, QStringLiteral("HIBA"), prompt);
  field->setFocus();
}

}  // namespace

frmSetup::frmSetup(Context& context, QPoint mainTopLeft, QWidget* parent)
    : QDialog(parent), context_(context), mainTopLeft_(mainTopLeft), ui_(std::make_unique<Ui::frmSetup>()) {
  ui_->setupUi(this);
  ui_->cmbRendszam->setCompleter(nullptr);
  connectButtons();
  connectLists();
  keepWithinReach(*this);
  ui_->txRendszam->setFocus();
}

frmSetup::~frmSetup() = default;

void frmSetup::connectButtons() {
  connect(ui_->txRendszam, &QLineEdit::textChanged, this,
          [this](const QString& text) { ui_->cmdRendszamFelvesz->setEnabled(!text.isEmpty()); });
  for (const QLineEdit* field : {ui_->txRendszam, ui_->txTank})
    connect(field, &QLineEdit::returnPressed, ui_->cmdRendszamFelvesz, &QPushButton::click);
  onClick(ui_->cmdRendszamFelvesz, &frmSetup::addVehicle);
  onClick(ui_->cmdRendszamDel, &frmSetup::deleteVehicle);
  onClick(ui_->cmdAlkatrDel, &frmSetup::deletePartName);
  onClick(ui_->cmdMegjDel, &frmSetup::deleteNote);
  onClick(ui_->cmdSetup, &frmSetup::saveStartSettings);
  connect(ui_->chkRiaszt, &QCheckBox::stateChanged, this, &frmSetup::switchReminders);
  connect(ui_->cmdVissza, &QPushButton::clicked, this, &QDialog::close);
}

void frmSetup::connectLists() {
  new ListHint(*ui_->List1,
               QStringLiteral("Még nincs gépkocsi.\nÍrd be fent a rendszámot és a tank méretét!"));
  for (QListWidget* list : {ui_->listAlkatr, ui_->listMegj})
    new ListHint(*list, QStringLiteral("Még üres.\nA főképernyő Felvesz gombja bővíti."));
  enableWhileSelected(ui_->List1, ui_->cmdRendszamDel);
  enableWhileSelected(ui_->listAlkatr, ui_->cmdAlkatrDel);
  enableWhileSelected(ui_->listMegj, ui_->cmdMegjDel);
}

void frmSetup::onClick(QAbstractButton* button, Handler handler) {
  connect(button, &QAbstractButton::clicked, this,
          [this, handler] { guarded(this, [&] { (this->*handler)(); }); });
}

// A click on the item that is selected already counts too, so both signals are heard.
void frmSetup::enableWhileSelected(QListWidget* list, QAbstractButton* button) {
  const auto update = [list, button] { button->setEnabled(selectedNumber(list) != 0); };
  connect(list, &QListWidget::itemSelectionChanged, button, update);
  connect(list, &QListWidget::itemClicked, button, update);
}

void frmSetup::showEvent(QShowEvent* event) {
  if (!loaded_ && !event->spontaneous()) load();
  QDialog::showEvent(event);
}

// Each file by itself: one that cannot be read does not keep the others from the person.
void frmSetup::load() {
  loaded_ = true;
  place();
  for (const Handler part : {&frmSetup::loadVehicleLists, &frmSetup::loadStartSettings,
                             &frmSetup::loadPartNames, &frmSetup::loadNotes})
    guarded(this, [&] { (this->*part)(); });
}

void frmSetup::place() {
  openAt(*this, mainTopLeft_ + QPoint(pixelsOfTwips(kRightTwips, *this), pixelsOfTwips(kDownTwips, *this)),
         kWishedSteps * gridStep());
}

void frmSetup::loadVehicleLists() {
  fillVehicles(&settings::listText);
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

void frmSetup::loadPartNames() {
  fillLookupList(ui_->listAlkatr, settings::kPartNames);
}

void frmSetup::loadNotes() {
  fillLookupList(ui_->listMegj, settings::kNotes);
}

void frmSetup::addVehicle() {
  if (!acceptsNewVehicle()) return;
  settings::addVehicle(context_.files, context_.folders, toLogic(ui_->txRendszam->text()),
                       toLogic(ui_->txTank->text()));
  emit vehiclesChanged(fillVehicles(&settings::listText));
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

// After a deletion the list shows bare plates, without the tanks: this system's convention.
void frmSetup::deleteVehicle() {
  settings::removeVehicle(context_.files, context_.folders, selectedNumber(ui_->List1));
  emit vehiclesChanged(fillVehicles(&plateAlone));
  ui_->List1->setFocus();
}

// What stands in the plate to load at start is the person's choice and stays while its list is filled.
QStringList frmSetup::fillVehicles(VehicleText textOf) {
  const settings::Vehicles vehicles = settings::loadVehicles(context_.files, context_.folders);
  QStringList texts;
  QStringList plates;
  for (int number = 1; number <= vehicles.count(); ++number) {
    const settings::Vehicle vehicle = vehicles.record(number);
    texts << toQt(textOf(vehicle));
    plates << toQt(plateAlone(vehicle));
  }
  const QString chosen = ui_->cmbRendszam->currentText();
  ui_->List1->clear();
  ui_->List1->addItems(texts);
  ui_->cmbRendszam->clear();
  ui_->cmbRendszam->addItems(plates);
  ui_->cmbRendszam->setCurrentIndex(-1);
  showStartPlate(chosen);
  return plates;
}

void frmSetup::deletePartName() {
  if (confirmsDeletion()) return deleteLookupText(ui_->listAlkatr, settings::kPartNames);
  ui_->listAlkatr->clearSelection();
  ui_->cmdAlkatrDel->setEnabled(false);
}

void frmSetup::deleteNote() {
  ui_->cmdMegjDel->setEnabled(false);
  if (confirmsDeletion()) return deleteLookupText(ui_->listMegj, settings::kNotes);
  ui_->listMegj->clearSelection();
}

bool frmSetup::confirmsDeletion() {
  return ask(this, QStringLiteral(" TÖRLÉS az adatállományból !"),
             QStringLiteral("Biztos T Ö R Ö L H E T Ő\na kijelölt tétel? "), DefaultAnswer::No);
}

void frmSetup::deleteLookupText(QListWidget* list, const settings::LookupFile& file) {
  settings::removeLookupText(context_.files, context_.folders, file, selectedNumber(list));
  fillLookupList(list, file);
  list->setFocus();
}

void frmSetup::fillLookupList(QListWidget* list, const settings::LookupFile& file) {
  const settings::LookupTexts stored = settings::loadLookupTexts(context_.files, context_.folders, file);
  QStringList texts;
  for (int number = 1; number <= stored.count(); ++number)
    texts << toQt(stored.record(number).text.asStored());
  list->clear();
  list->addItems(texts);
}

void frmSetup::saveStartSettings() {
  const bool remindersOn = ui_->chkRiaszt->checkState() != Qt::Unchecked;
  settings::saveStartSettings(context_.files, context_.folders,
                              {.remindersOn = core::toFlag(remindersOn),
                               .plate = core::FixedText<10>(toLogic(ui_->cmbRendszam->currentText()))});
}

// The box's own state does not count and the values are the reverse of the main screen's switch: kept
// deliberately, as this system's convention.
void frmSetup::switchReminders() {
  const bool wasOne = context_.state.reminderState == 1;
  context_.state.reminderState = wasOne ? 0 : 1;
  ui_->chkRiaszt->setText(wasOne ? QStringLiteral("  Bekapcsolva  ") : QStringLiteral("  Kikapcsolva  "));
  emit reminderTimerWanted(wasOne);
}

}  // namespace tarvik::ui
