#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "tyres/tyre_register.h"
#include "ui/base/context.h"
#include "ui/lists/text_list_model.h"

class QButtonGroup;

namespace Ui {
class frmGumik;
}

namespace tarvik::ui {

/// The tyre register: the tyre sets of one vehicle or of all, and what can be done to the selected one.
/// The number of the set chosen last is remembered until another is chosen: the buttons that stay enabled act
/// on it, and its row is the highlighted one.
class frmGumik : public QDialog {
  Q_OBJECT

 public:
  /// Opens on that plate; plates are the vehicles to choose from, trimmed.
  frmGumik(Context& context, const QString& plate, const QStringList& plates, QWidget* parent);
  ~frmGumik() override;

 private:
  void prepareFields(const QString& plate, const QStringList& plates);
  void prepareList();
  void addListMenu(Context& context);
  void connectButtons();

  void BeolvasGumi();
  void BeolvasOsszesGumi();
  void list(const std::function<std::vector<tyres::TyreRow>()>& read);
  void relistInPlace();
  void followChange(int cameBack);
  QString chosenType(int number) const;
  void showChosen();

  void choose(int row);
  void forgetChosen();
  bool change(const QString& done, const std::function<void()>& make);
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
  TextListModel* rows_;
  QButtonGroup* opGumiEvszak_;
  QButtonGroup* opMEszak_;
  int chosen_ = 0;               // record number of the set chosen last, 0 = none
  bool offersDeletion_ = false;  // a set was chosen since the last deletion
};

}  // namespace tarvik::ui
