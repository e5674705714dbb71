#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>
#include <vector>

#include "tyres/tyre_register.h"
#include "ui/context.h"
#include "ui/models/text_list_model.h"

class QAbstractButton;
class QButtonGroup;

namespace Ui {
class frmGumik;
}

namespace tarvik::ui {

/// The tyre register: the tyre sets of one vehicle or of all, and what can be done to the selected one.
/// The number of the set chosen last is remembered until another is chosen, as this system's convention;
/// only a deletion needs the row itself to be highlighted.
class frmGumik : public QDialog {
  Q_OBJECT

 public:
  /// Opens on that plate; plates are the vehicles to choose from, trimmed.
  frmGumik(Context& context, const QString& plate, const QStringList& plates, QWidget* parent);
  ~frmGumik() override;

 private:
  using Handler = void (frmGumik::*)();

  void prepareFields(const QString& plate, const QStringList& plates);
  void prepareList();
  void addListMenu(Context& context);
  void connectButtons();
  void onClick(QAbstractButton* button, Handler handler);

  void BeolvasGumi();
  void BeolvasOsszesGumi();
  void showRows(const std::vector<tyres::TyreRow>& rows);
  void enableDeletion();

  void choose(int row);
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
  int chosen_ = 0;  // record number of the set chosen last, 0 = none
};

}  // namespace tarvik::ui
