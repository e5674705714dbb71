#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "repairs/repair_log.h"
#include "ui/base/context.h"
#include "ui/lists/text_list_model.h"

namespace Ui {
class frmSzerviz;
}

namespace tarvik::ui {

/// The repair log: the repairs and services of one vehicle, or what a filter finds, with their total cost.
class frmSzerviz : public QDialog {
  Q_OBJECT

 public:
  /// Opens on that plate; plates are the vehicles to choose from, trimmed.
  frmSzerviz(Context& context, const QString& plate, const QStringList& plates, QWidget* parent);
  ~frmSzerviz() override;

 private:
  void prepareFields(const QString& plate, const QStringList& plates, core::Day today);
  void prepareList();
  void addListMenu(Context& context);

  void BeolvasSzerviz();
  void list(const std::function<std::vector<repairs::RepairRow>()>& read);
  void showChosen();
  void followChange(int cameBack);

  void choose(int row);
  bool change(const QString& done, const std::function<void()>& make);
  void filter();
  void recordRepair();
  void deleteRepair();

  std::unique_ptr<Ui::frmSzerviz> ui_;
  repairs::RepairLog log_;
  TextListModel* rows_;
  int chosen_ = 0;  // record number of the entry chosen last, 0 = none or deleted
};

}  // namespace tarvik::ui
