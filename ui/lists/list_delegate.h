#pragma once

#include <QStyledItemDelegate>

class QAbstractItemView;
class QTreeView;

namespace tarvik::ui {

/// Paints the rows of a list: a check state as a mark that cannot be pressed, an overdue row in its colour
/// and with a mark, a new row with a tint for a moment, a found one for as long as it is the found one, and a
/// tooltip with the whole of a text that its column cuts off.
class ListDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// How a check state is shown.
  enum class Ticks {
    Marks,  ///< a hook that cannot be pressed
    Boxes,  ///< a box that can
  };

  explicit ListDelegate(QObject* parent, Ticks ticks = Ticks::Marks);

  /// Tints the row of that record number for a moment; the view is painted again when it is over.
  void mark(const QString& record, QAbstractItemView& view);
  /// The record number of the row that is tinted for a moment; empty when there is none.
  QString marked() const { return marked_; }
  /// Tints the row of that record number until another one is the found one; none for an empty text.
  void showFound(const QString& record, QAbstractItemView& view);
  /// The record number of the found row; empty when there is none.
  QString found() const { return found_; }

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  Ticks ticks_;
  QString marked_;
  QString found_;
};

/// Gives a list the program's rows and columns: each column as wide as its head and the longest of its
/// texts; the columns whose longest text is left empty share what remains. A width that the person gave a
/// column before in this run is taken instead. The list shrinks down to three rows. Returns the delegate,
/// which belongs to the view.
ListDelegate* layOutList(QTreeView& view, const QStringList& longest,
                         ListDelegate::Ticks ticks = ListDelegate::Ticks::Marks);

/// Makes room for a text that is longer than its column was laid out for, unless the person gave it its
/// width; the list asks for that much more.
void keepWhole(QTreeView& view, int column, const QString& text);

}  // namespace tarvik::ui
