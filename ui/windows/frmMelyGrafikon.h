#pragma once

#include <QDialog>
#include <QPoint>
#include <memory>

#include "ui/base/context.h"

class QButtonGroup;

namespace Ui {
class frmMelyGrafikon;
}

namespace tarvik::ui {

/// Asks which of the seven charts to show and leaves the answer in the shared chart choice: the number of
/// the checked option, the choice as it was when none is checked, or 0 when the question is cancelled, by
/// the button, Escape or the window's frame.
class frmMelyGrafikon : public QDialog {
  Q_OBJECT

 public:
  /// Stands 200 pixels right of and 233 below the main screen's top left corner. The option of the chart
  /// chosen last is checked, after a cancelled question that of the chart that was seen last, 0 for none.
  frmMelyGrafikon(Context& context, QPoint mainTopLeft, QWidget* parent, int seenLast = 0);
  ~frmMelyGrafikon() override;

  void reject() override;

 private:
  void takeChecked();

  Context& context_;
  std::unique_ptr<Ui::frmMelyGrafikon> ui_;
  QButtonGroup* options_;  // by their numbers
};

}  // namespace tarvik::ui
