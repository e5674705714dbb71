#include "exchange/log_table.h"

#include <algorithm>
#include <utility>

#include "core/text.h"
#include "exchange/days.h"
#include "exchange/numbers.h"

namespace tarvik::exchange {
namespace {

std::size_t filledCells(const CsvRow& row) {
  return static_cast<std::size_t>(
      std::ranges::count_if(row.cells, [](const std::string& cell) { return !core::trimmed(cell).empty(); }));
}

bool isValue(std::string_view cell) {
  return readDay(cell, DayOrder::DayFirst) || readDay(cell, DayOrder::MonthFirst) || isBareFigure(cell);
}

// Whether a row could be the heads of any table: two cells and more, no values among them.
bool couldBeHeads(const CsvRow& row) {
  return filledCells(row) >= 2 && std::ranges::none_of(row.cells, isValue);
}

std::string_view firstFilled(const CsvRow& row) {
  const auto found =
      std::ranges::find_if(row.cells, [](const std::string& cell) { return !core::trimmed(cell).empty(); });
  return found == row.cells.end() ? std::string_view() : std::string_view(*found);
}

// A title stands alone in its row: marked by #, or followed by heads.
bool isTitle(const CsvRow& row, const CsvRow* next) {
  if (filledCells(row) != 1) return false;
  const std::string_view text = firstFilled(row);
  if (text.starts_with('#')) return true;
  return !isValue(text) && next != nullptr && couldBeHeads(*next);
}

std::string titleText(const CsvRow& row) {
  std::string_view text = firstFilled(row);
  while (text.starts_with('#') || text.starts_with(' ')) text.remove_prefix(1);
  return std::string(text);
}

bool isLogHeads(const std::vector<ColumnReading>& heads) {
  const auto has = [&](Meaning meaning) {
    return std::ranges::any_of(heads, [&](const ColumnReading& head) { return head.meaning == meaning; });
  };
  return has(Meaning::Day) && has(Meaning::Odometer) && has(Meaning::Volume);
}

bool isLogHeadRow(const CsvRow& row) {
  return couldBeHeads(row) && isLogHeads(readHeads(row));
}

// A row without values that names a day is the heads of a table even where no title announces it.
bool namesDay(const CsvRow& row) {
  return std::ranges::any_of(row.cells,
                             [](const std::string& cell) { return meaningOf(cell) == Meaning::Day; });
}

// A table of the file: its title, its heads and its rows.
struct Table {
  std::string title;
  CsvRow heads;
  std::vector<CsvRow> rows;

  bool isLog() const { return isLogHeads(readHeads(heads)); }
};

// Cuts a file into its tables. What stands before the first one's heads is a title or nothing.
class TableCutter {
 public:
  std::vector<Table> cut(std::vector<CsvRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      take(std::move(rows[i]), i + 1 < rows.size() ? &rows[i + 1] : nullptr);
    return std::move(tables_);
  }

 private:
  void take(CsvRow row, const CsvRow* next) {
    if (isTitle(row, next)) return open(titleText(row));
    if (filledCells(row) == 0) return;
    if (isLogHeadRow(row)) return takeLogHeads(std::move(row));
    if (couldBeHeads(row) && (needsHeads_ || namesDay(row))) return takeHeads(std::move(row));
    if (!needsHeads_ && !tables_.empty()) tables_.back().rows.push_back(std::move(row));
  }

  void open(std::string title) {
    title_ = std::move(title);
    needsHeads_ = true;
  }

  // Heads that come again, on a further page, begin no other table.
  void takeLogHeads(CsvRow row) {
    if (!needsHeads_ && !tables_.empty() && tables_.back().heads.cells == row.cells) return;
    takeHeads(std::move(row));
  }

  void takeHeads(CsvRow row) {
    tables_.push_back({.title = std::exchange(title_, {}), .heads = std::move(row), .rows = {}});
    needsHeads_ = false;
  }

  std::vector<Table> tables_;
  std::string title_;
  bool needsHeads_ = true;
};

bool isFigureMeaning(Meaning meaning) {
  return meaning == Meaning::Odometer || meaning == Meaning::Volume || meaning == Meaning::TotalCost ||
         meaning == Meaning::UnitPrice || meaning == Meaning::Price;
}

// Whether most of the cells that are filled in the column are figures; a column without any is none.
bool holdsFigures(const std::vector<CsvRow>& rows, std::size_t column) {
  int figures = 0;
  int others = 0;
  for (const CsvRow& row : rows)
    if (!core::trimmed(row.cell(column)).empty()) ++(looksLikeFigure(row.cell(column)) ? figures : others);
  return figures > others;
}

// Leaves each meaning to one column: the first whose cells fit it.
void keepFirstOfEach(LogTable& table) {
  std::vector<Meaning> taken;
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    Meaning& meaning = table.columns[column].meaning;
    if (meaning == Meaning::Ignored) continue;
    const bool fits = !isFigureMeaning(meaning) || table.rows.empty() || holdsFigures(table.rows, column);
    if (!fits || std::ranges::find(taken, meaning) != taken.end())
      meaning = Meaning::Ignored;
    else
      taken.push_back(meaning);
  }
}

SkippedSection skippedOf(const Table& table) {
  const std::string name = table.title.empty() ? std::string(firstFilled(table.heads)) : table.title;
  return {name, table.heads.line, static_cast<int>(table.rows.size())};
}

}  // namespace

std::size_t LogTable::columnOf(Meaning meaning) const {
  const auto found = std::ranges::find(columns, meaning, &ColumnReading::meaning);
  return static_cast<std::size_t>(found - columns.begin());
}

std::vector<ColumnReading> readHeads(const CsvRow& row) {
  std::vector<ColumnReading> columns;
  for (const std::string& cell : row.cells)
    columns.push_back({std::string(core::trimmed(cell)), meaningOf(cell)});
  return columns;
}

int recognisedHeads(const CsvRow& row) {
  if (!isLogHeadRow(row)) return 0;
  return static_cast<int>(std::ranges::count_if(
      readHeads(row), [](const ColumnReading& head) { return head.meaning != Meaning::Ignored; }));
}

LogTable findLogTable(std::vector<CsvRow> rows) {
  LogTable found;
  for (Table& table : TableCutter().cut(std::move(rows))) {
    if (found.columns.empty() && table.isLog()) {
      found.columns = readHeads(table.heads);
      found.rows = std::move(table.rows);
    } else if (!table.rows.empty()) {
      found.skipped.push_back(skippedOf(table));
    }
  }
  keepFirstOfEach(found);
  return found;
}

}  // namespace tarvik::exchange
