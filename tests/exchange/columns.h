#pragma once

#include <string>
#include <vector>

#include "exchange/columns.h"

namespace tarvik::test {

/// A table of columns, each with its head first.
inline exchange::LogTable tableOf(const std::vector<std::vector<std::string>>& columns) {
  exchange::LogTable table;
  table.hasHeads = true;
  for (const auto& column : columns) {
    table.heads.push_back(column.front());
    for (std::size_t i = 1; i < column.size(); ++i) {
      if (table.rows.size() < i) table.rows.emplace_back();
      auto& cells = table.rows[i - 1].row.cells;
      cells.resize(table.heads.size());
      cells.back() = column[i];
    }
  }
  return table;
}

/// A single column and what its cells look like.
class Column {
 public:
  Column(const std::string& head, const std::vector<std::string>& cells)
      : table_(tableOf({joined(head, cells)})), facts_(exchange::lookAt(table_, std::nullopt)) {}
  operator const exchange::ColumnFacts&() const { return facts_.front(); }

 private:
  static std::vector<std::string> joined(const std::string& head, std::vector<std::string> cells) {
    cells.insert(cells.begin(), head);
    return cells;
  }

  exchange::LogTable table_;
  std::vector<exchange::ColumnFacts> facts_;
};

}  // namespace tarvik::test
