#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "reminders/figyel_rec.h"
#include "ui/base/context.h"

namespace Ui {
class riaszt;
}

namespace tarvik::ui {

class RowChoice;

/// The km alert: the passed km reminders of a vehicle against the current reading that the check found,
/// by how much each is exceeded, and their deletion.
class riaszt : public QDialog {
  Q_OBJECT

 public:
  /// Opens for that vehicle; plate is the main screen's text.
  riaszt(Context& context, const QString& plate, QWidget* parent);
  ~riaszt() override;

 protected:
  /// Chooses the first line when the screen comes up.
  void showEvent(QShowEvent* event) override;

 private:
  void prepareList();
  void prepareFigures();
  void listLines();
  void chooseLine(int row);
  void deleteChosen();
  void followChange(const core::Travelled& travelled);

  Context& context_;
  reminders::KmReminders listed_;
  std::string plate_;
  std::unique_ptr<Ui::riaszt> ui_;
  RowChoice* choice_;
  bool listsEveryVehicle_ = false;  // as it does after a deletion
};

}  // namespace tarvik::ui
