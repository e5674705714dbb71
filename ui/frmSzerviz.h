#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>
#include <vector>

#include "repairs/repair_log.h"
#include "ui/context.h"
#include "ui/models/text_list_model.h"

class QAbstractButton;

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
  using Handler = void (frmSzerviz::*)();

  void prepareFields(const QString& plate, const QStringList& plates, core::Day today);
  void prepareList();
  void addListMenu(Context& context);
  void onClick(QAbstractButton* button, Handler handler);

  void BeolvasSzerviz();
  void showRows(const std::vector<repairs::RepairRow>& rows);
  void enableDeletion();

  void choose(int row);
  void filter();
  void recordRepair();
  void deleteRepair();

  std::unique_ptr<Ui::frmSzerviz> ui_;
  repairs::RepairLog log_;
  TextListModel* rows_;
};

}  // namespace tarvik::ui
