#pragma once

#include <QDialog>
#include <memory>

#include "ui/base/context.h"

namespace Ui {
class frmEvesOsszesito;
}

namespace tarvik::ui {

class TextListModel;

/// The yearly summary of one vehicle's logbook: a line a year, newest first, and one of all its entries.
class frmEvesOsszesito : public QDialog {
  Q_OBJECT

 public:
  /// Reads the vehicle's logbook; a failure is told and leaves the list empty.
  frmEvesOsszesito(Context& context, const QString& plate, QWidget* parent);
  ~frmEvesOsszesito() override;

 private:
  void prepareList();
  void list();
  void save();
  void print();
  QString documentName() const;

  std::unique_ptr<Ui::frmEvesOsszesito> ui_;
  Context& context_;
  QString plate_;
  TextListModel* rows_ = nullptr;
};

}  // namespace tarvik::ui
