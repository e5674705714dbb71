#pragma once

#include <QDialog>
#include <memory>

#include "reminders/estimate.h"
#include "ui/context.h"
#include "ui/models/text_list_model.h"

class QAbstractButton;

namespace Ui {
class figy;
}

namespace tarvik::ui {

/// The reminders of all vehicles, those by odometer reading and those by date: entering, listing and
/// deleting them. Both lists share the program-wide selected reminder number, so a deletion goes by the
/// row chosen last on either tab: this system's convention, kept deliberately.
class figy : public QDialog {
  Q_OBJECT

 public:
  /// Opens for that vehicle; plate is the main screen's text as it stands, spaces included.
  figy(Context& context, QString plate, QWidget* parent);
  ~figy() override;

 private:
  using Handler = void (figy::*)();

  void prepareFields();
  void prepareLists();
  void addListMenus();
  void connectButtons();
  void onClick(QAbstractButton* button, Handler handler);
  void makeTabsButtonDefault(int tab);

  void BeolvasFigyel();
  void BeolvasFigyDatum();

  void recordKm();
  void chooseKm(int row);
  void deleteKm();
  void showEstimate(const reminders::Estimate& estimate);
  void showExpectedDate(const QString& caption);
  void clearKmFields();

  void recordDate();
  void chooseDate(int row);
  void deleteDate();

  bool confirmsDeletion();

  Context& context_;
  QString plate_;
  std::unique_ptr<Ui::figy> ui_;
  TextListModel* kmRows_;
  TextListModel* dateRows_;
};

}  // namespace tarvik::ui
