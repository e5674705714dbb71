#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "reminders/estimate.h"
#include "reminders/figy_datum_rec.h"
#include "reminders/figyel_rec.h"
#include "ui/base/context.h"
#include "ui/lists/text_list_model.h"

class QAbstractButton;

namespace Ui {
class figy;
}

namespace tarvik::ui {

class ListView;

/// The reminders of all vehicles, those by odometer reading and those by date: entering, listing and
/// deleting them. Both lists share the program-wide selected reminder number, so a deletion goes by the
/// row chosen last on either tab; that row is highlighted in each list whose button deletes.
class figy : public QDialog {
  Q_OBJECT

 public:
  /// Opens for that vehicle; plate is the main screen's text as it stands, spaces included.
  figy(Context& context, QString plate, QWidget* parent);
  ~figy() override;

 private:
  void prepareFields();
  void prepareLists();
  void addListMenus();
  void connectButtons();

  void BeolvasFigyel();
  void BeolvasFigyDatum();

  void recordKm();
  bool chooseKm(int row);
  void showReminder(const reminders::FigyelRec& reminder);
  void deleteKm();
  void showEstimate(const reminders::Estimate& estimate);
  void showExpectedDate(const QString& caption);
  void clearKmFields();

  void recordDate();
  bool chooseDate(int row);
  void deleteDate();

  bool confirmsDeletion();
  void forgetChosen();
  void followChange(const core::Travelled& travelled);
  void select(std::int16_t number, QAbstractButton* deletion);
  void showChosen();
  void showChosen(ListView* list, const QAbstractButton* deletion);
  bool changeKm(const QString& done, const std::function<void()>& make);
  bool changeDates(const QString& done, const std::function<void()>& make);

  Context& context_;
  QString plate_;
  std::unique_ptr<Ui::figy> ui_;
  TextListModel* kmRows_;
  TextListModel* dateRows_;
  // What the lists hold.
  reminders::KmReminders kmReminders_;
  reminders::DateReminders dateReminders_;
};

}  // namespace tarvik::ui
