#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QAction;
class QKeyEvent;

namespace Ui {
class SearchLine;
}

namespace tarvik::ui {

class ListView;

/// The line over a list that finds its rows by what a person types, from the last row to the first. Ctrl+F
/// and the list's item mnuKereses open it.
///
/// What is typed is looked for at once; Enter, F3 and a button go on, with Shift and by another button back,
/// round and round. A found row comes in view and is tinted while it is the found one; nothing is chosen.
/// When the list then gets the keyboard, it has it on that row; Enter chooses it there and closes the line.
/// Escape closes the line and gives back the rows in sight and the keyboard, unless a row was chosen or the
/// list filled anew meanwhile.
class SearchLine : public QWidget {
  Q_OBJECT

 public:
  /// What of a row, counted from 0, is searched, a line each.
  using TextOf = std::function<std::string(int row)>;

  /// Hidden until it is wanted; before the list in the order of the Tab key. The list has its rows and what
  /// choosing one does already.
  SearchLine(ListView& list, TextOf textOf, QWidget* parent);
  ~SearchLine() override;

  /// The item that opens the line.
  QAction* item() const { return item_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// The line is opened: the list has to be in sight.
  void opening();

 private:
  /// Where a person was when the line was opened.
  struct Place {
    QPointer<QWidget> keyboard;
    QPersistentModelIndex row;
    int scrolled = 0;
    bool isKept = false;
  };

  void putBeforeList();
  void connectParts();
  void addKeys();
  void open();
  void close();
  void goBack();
  void search();
  void searchAgain();
  void step(int by);
  void show(int place);
  void tellCount(int place);
  bool takesFieldKey(const QKeyEvent& key);
  bool choosesRow(const QKeyEvent& key);
  void standOnFound();

  std::unique_ptr<Ui::SearchLine> ui_;
  ListView& list_;
  TextOf textOf_;
  QAction* item_;
  Place place_;
  std::vector<int> found_;
  int current_ = -1;          // the place among the found rows; -1 for none
  QString record_;            // of the row that was found last
  bool isToStandOn_ = false;  // the list has not had the keyboard since
};

}  // namespace tarvik::ui
