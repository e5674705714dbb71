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
class QLineEdit;

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
  /// What the tabs have alike: a file of reminders, the list that shows them, the button that deletes.
  struct Tab {
    ListView* list;
    QAbstractButton* deletion;
    const char* file;
    void (figy::*load)();
    bool (figy::*choose)(int row);
    QString csvName;
    std::string (*csv)(core::FileSystem&, const core::DataFolders&, const TextListModel&);
    TextListModel* rows = nullptr;
  };

  void prepareFields();
  void prepareTab(Tab& tab);
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
  void select(std::int16_t number, const Tab& tab, const Tab& other);
  void showChosen();
  void showChosen(const Tab& tab);
  void loadInPlace(const Tab& tab);
  void change(const Tab& tab, const QString& done, const std::function<void()>& make);
  void record(const Tab& tab, const QLineEdit& text, const std::function<void()>& make);
  void remove(const Tab& tab, const QString& text, const std::function<void()>& make);

  Context& context_;
  QString plate_;
  std::unique_ptr<Ui::figy> ui_;
  Tab km_;
  Tab dates_;
  // What the lists hold.
  reminders::KmReminders kmReminders_;
  reminders::DateReminders dateReminders_;
};

}  // namespace tarvik::ui
