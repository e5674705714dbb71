#pragma once

#include <memory>

#include "tyres/tyre_register.h"
#include "ui/windows/register_screen.h"

class QButtonGroup;

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

  void fillNewFields(const tyres::TyreSet& set);
  void fillChangeFields(const tyres::TyreSet& set);
  tyres::TyreFields newFields() const;
  tyres::TyreFields changeFields() const;

  void recordSet();
  void fitSet();
  void takeSetOff();
  void changeSet();
  void deleteSet();

  std::unique_ptr<Ui::frmGumik> ui_;
  tyres::TyreRegister tyres_;
  QButtonGroup* opGumiEvszak_;
  QButtonGroup* opMEszak_;
};

}  // namespace tarvik::ui
