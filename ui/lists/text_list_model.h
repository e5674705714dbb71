#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <optional>
#include <vector>

namespace tarvik::ui {

/// The role of a cell that says whether its row is overdue.
inline constexpr int kOverdueRole = Qt::UserRole;
/// The role of a cell's text as it is copied: a figure without the spaces between its digits.
inline constexpr int kCopiedRole = Qt::UserRole + 1;

/// A row of texts, the record number it stands for and whether it is marked (a check mark and bold).
struct TextRow {
  QStringList cells;
  QString record;                              ///< the record number as text; kept in the last, hidden column
  std::optional<bool> marked = std::nullopt;   ///< nothing = the list has no marks
  std::optional<bool> overdue = std::nullopt;  ///< nothing = the list does not tell what is overdue
  bool isSum = false;                          ///< bold, without a mark
};

/// A list of text rows under headers, with one more column without a header that carries each row's
/// record number. Sorting is ascending by text; once a column was chosen it stays the order of every
/// later fill.
class TextListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit TextListModel(QStringList headers, QObject* parent = nullptr);

  /// The columns of figures: their cells and heads stand at the right.
  void setFigureColumns(QList<int> columns) { figureColumns_ = std::move(columns); }
  /// What assistive tools say of a marked row.
  void setMarkWords(const QString& words) { markWords_ = words; }
  /// Replaces all rows.
  void setRows(std::vector<TextRow> rows);
  /// The column that carries the record numbers.
  int recordColumn() const { return static_cast<int>(headers_.size()); }
  /// The record number of a row as text ("" for a row that does not exist).
  QString record(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  /// Sorts ascending by the column's text, whatever the order asked for; a negative column is ignored.
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

 private:
  QString cell(const TextRow& row, int column) const;
  QVariant alignment(int column) const;
  void arrange();

  QStringList headers_;
  std::vector<TextRow> rows_;
  QList<int> figureColumns_;
  QString markWords_;
  int sortColumn_ = -1;
};

}  // namespace tarvik::ui
