#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>

#include "reminders/figy_datum_rec.h"
#include "ui/base/context.h"
#include "ui/lists/text_list_model.h"

namespace Ui {
class frmDatumFigyelmeztetes;
}

namespace tarvik::ui {

/// The date alert: the date reminders of all vehicles that are due within 14 days or overdue, how many days
/// are left, and their deletion, which closes the screen.
class frmDatumFigyelmeztetes : public QDialog {
  Q_OBJECT

 public:
  frmDatumFigyelmeztetes(Context& context, QWidget* parent);
  ~frmDatumFigyelmeztetes() override;

 private:
  void load();
  void choose(int row);
  void forgetChosen();
  void followChange(const core::Travelled& travelled);
  void deleteChosen();

  Context& context_;
  std::unique_ptr<Ui::frmDatumFigyelmeztetes> ui_;
  TextListModel* rows_;
  reminders::DateReminders listed_;
  std::int16_t selected_ = 0;  // record number of the row chosen last, 0 = none; not the program-wide one
};

}  // namespace tarvik::ui
