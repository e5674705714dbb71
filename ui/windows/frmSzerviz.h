#pragma once

#include <memory>

#include "repairs/repair_log.h"
#include "ui/windows/register_screen.h"

namespace Ui {
class frmSzerviz;
}

namespace tarvik::ui {

/// The repair log: the repairs and services of one vehicle, or what a filter finds, with their total cost.
class frmSzerviz : public RegisterScreen {
  Q_OBJECT

 public:
  /// Opens on that plate; plates are the vehicles to choose from, trimmed.
  frmSzerviz(Context& context, const QString& plate, const QStringList& plates, QWidget* parent);
  ~frmSzerviz() override;

 private:
  void BeolvasSzerviz();
  void listPlate() override { BeolvasSzerviz(); }
  void showRecord(int number) override;
  QString plateOf(int number) override;

  void listFiltered(const repairs::RepairFilter& filter);
  void filter();
  void recordRepair();
  void deleteRepair();

  std::unique_ptr<Ui::frmSzerviz> ui_;
  repairs::RepairLog log_;
};

}  // namespace tarvik::ui
