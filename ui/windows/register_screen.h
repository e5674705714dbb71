#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "ui/base/context.h"
#include "ui/lists/text_list_model.h"

class QAction;
class QAbstractButton;
class QBoxLayout;
class QComboBox;

namespace tarvik::ui {

class ListView;

/// What the screens of the two registers do alike: they list one vehicle's records or others, a chosen row
/// fills the fields and stays the highlighted one through later listings, and nobody is asked before a
/// deletion.
class RegisterScreen : public QDialog {
  Q_OBJECT

 protected:
  /// What a register has that every one has: the parts of its form, what its list shows, its file.
  struct Register {
    QBoxLayout* layout;
    QAction* close;
    QComboBox* plate;
    ListView* list;
    QAbstractButton* deletion;
    QStringList heads;
    QStringList longest;  ///< of each column, as layOutList takes them
    QList<int> figureColumns;
    QString emptyHint;
    const char* file;
    QString csvName;  ///< proposed for the CSV file of what is listed
    std::string (*csv)(core::FileSystem&, const core::DataFolders&, const TextListModel&);
    QString markWords = {};  ///< what assistive tools say of a marked row
    std::function<std::string(int number)> searchedText =
        {};  ///< of a record; nothing = no line to search with
  };

  RegisterScreen(Context& context, QWidget* parent) : QDialog(parent), context_(context) {}

  /// Makes the screen of its form, with the plates to choose from, trimmed, and lists the given plate's
  /// records. The window opens in the wished size where the display has room for it.
  void open(Register parts, const QString& plate, const QStringList& plates, QSize wished);

  /// Lists the records of the plate that is set.
  virtual void listPlate() = 0;
  /// Fills the fields with the record of that number. Throws Failure(RecordMissing) when it is gone.
  virtual void showRecord(int number) = 0;
  /// The plate of the record of that number; throws as showRecord does.
  virtual QString plateOf(int number) = 0;
  /// Lets go of what was chosen.
  virtual void forgetChosen() { chosen_ = 0; }

  /// Fills the list with what is read; the chosen record is highlighted even where the reading fails.
  void list(const std::function<std::vector<TextRow>()>& read);
  /// Lists the records of the plate that is set and leaves the list where it was.
  void relistInPlace();
  /// Carries a change out and lists the plate's records anew.
  bool change(const QString& done, const std::function<void()>& make);
  /// The number of the highlighted record, 0 = none: the one that a deletion takes, and no other.
  int highlighted() const;
  /// The number of the record chosen last, 0 = none.
  int chosen() const { return chosen_; }
  /// Offers no deletion until a record is chosen again.
  void offerNoDeletion() { offersDeletion_ = false; }

 private:
  void prepareList();
  void addListMenu();
  void addSearchLine();
  void choose(int row);
  void showChosen();
  void followChange(int cameBack);

  Context& context_;
  Register register_;
  TextListModel* rows_ = nullptr;
  int chosen_ = 0;
  bool offersDeletion_ = false;
};

}  // namespace tarvik::ui
