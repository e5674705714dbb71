#pragma once

#include <QDialog>
#include <QPoint>
#include <QStringList>
#include <functional>
#include <memory>

#include "settings/lookup_list.h"
#include "settings/vehicles.h"
#include "ui/base/context.h"

class QAbstractButton;
class QListWidget;

namespace Ui {
class frmSetup;
}

namespace tarvik::ui {

class RowChoice;

/// The settings: the vehicles, the lookup lists and what the program starts with. Every change is on the
/// disk at once; only the start-up settings wait for their button.
class frmSetup : public QDialog {
  Q_OBJECT

 public:
  /// Opens beside the main screen's top left corner, but always whole on the screen. The files are read
  /// when it is shown, so that the opener hears the signals of that too.
  frmSetup(Context& context, QPoint mainTopLeft, QWidget* parent);
  ~frmSetup() override;

 signals:
  /// The list of vehicles was changed: all plates, eight characters each as stored.
  void vehiclesChanged(const QStringList& platesAsStored);
  /// The reminder switch was used: whether the main screen's reminder timer is to run.
  void reminderTimerWanted(bool wanted);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  using VehicleText = std::string (*)(const settings::Vehicle&);

  /// A list of texts to choose from on the main screen.
  struct Lookup {
    QListWidget* list;
    QAbstractButton* deletion;
    settings::LookupFile file;
    RowChoice* chosen = nullptr;
    settings::LookupTexts texts = {};  ///< what the list holds
  };

  void addCopies();
  void connectButtons();
  void connectLists();
  RowChoice* enableWhileChosen(QListWidget* list, QAbstractButton* button);

  void load();
  void loadStartSettings();
  void loadTexts(Lookup& lookup);

  void addVehicle();
  void deleteVehicle();
  void deletePartName() { deleteText(partNames_); }
  void deleteNote() { deleteText(notes_); }
  void deleteText(Lookup& lookup);
  void saveStartSettings();
  void switchReminders();

  void followChange(const core::Travelled& travelled);
  void followList(RowChoice& chosen, const std::string& file, const core::Travelled& travelled,
                  const std::function<void()>& refill);
  bool acceptsNewVehicle();
  QStringList fillVehicles();
  void showStartPlate(const QString& plate);
  bool confirmsDeletion();
  void changeVehicles(const QString& done, const std::function<void()>& make);

  Context& context_;
  QPoint mainTopLeft_;
  std::unique_ptr<Ui::frmSetup> ui_;
  RowChoice* chosenVehicle_ = nullptr;
  VehicleText vehicleText_ = &settings::listText;
  settings::Vehicles vehicles_;  // what the list holds
  Lookup partNames_;
  Lookup notes_;
  bool loaded_ = false;
};

}  // namespace tarvik::ui
