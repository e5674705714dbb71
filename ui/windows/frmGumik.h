#pragma once

#include <memory>

#include "tyres/tyre_register.h"
#include "ui/windows/register_screen.h"

class QButtonGroup;
class QLineEdit;

namespace Ui {
class frmGumik;
}

namespace tarvik::ui {

/// The tyre register: the tyre sets of one vehicle or of all, and what can be done to the selected one.
/// The number of the set chosen last is remembered until another is chosen: the buttons that stay enabled act
/// on it, and its row is the highlighted one.
class frmGumik : public RegisterScreen {
  Q_OBJECT

 public:
  /// Opens on that plate; plates are the vehicles to choose from, trimmed.
  frmGumik(Context& context, const QString& plate, const QStringList& plates, QWidget* parent);
  ~frmGumik() override;

 private:
  void connectButtons();

  void BeolvasGumi();
  void BeolvasOsszesGumi();
  void listPlate() override { BeolvasGumi(); }
  void showRecord(int number) override;
  QString plateOf(int number) override;
  void forgetChosen() override;
  QString typeOf(int number) const;

  void recordSet();
  void fitSet();
  void takeSetOff();
  void changeSet();
  void deleteSet();

  /// The fields of a set: those of a new one, or those in which the chosen one is changed.
  struct Fields {
    QLineEdit* type;
    QLineEdit* size;
    QLineEdit* maxKm;
    QButtonGroup* season;
    QLineEdit* kmWhenFitted;
    QLineEdit* kmRun;

    void show(const tyres::TyreSet& set) const;
    tyres::TyreFields typed() const;
  };

  std::unique_ptr<Ui::frmGumik> ui_;
  tyres::TyreRegister tyres_;
  Fields new_;
  Fields change_;
};

}  // namespace tarvik::ui
