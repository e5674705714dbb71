#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::exchange {

/// The longest line, the longest row (quoted line breaks included) and the most cells of a row that a file
/// may have: a logbook stays far below, so what lies above is no logbook.
inline constexpr std::size_t kLongestLine = 65'536;
inline constexpr std::size_t kLongestRow = 4 * kLongestLine;
inline constexpr std::size_t kMostCells = 512;

/// What stands between the cells of a file and around those that need it.
struct CsvShape {
  char separator = ',';
  char quote = '"';

  friend bool operator==(const CsvShape&, const CsvShape&) = default;
};

/// A row with at least one cell.
struct CsvRow {
  int line = 0;  ///< the line of the file where it begins, counted from 1
  std::vector<std::string> cells;

  /// The cell of a column, empty where the row is shorter.
  std::string_view cell(std::size_t column) const {
    return column < cells.size() ? std::string_view(cells[column]) : std::string_view();
  }
  friend bool operator==(const CsvRow&, const CsvRow&) = default;
};

/// How reading the rows of a text ended.
struct CsvEnd {
  enum class Fault {
    None,
    RowTooLong,  ///< a line, row or number of cells past the limits
    OpenQuote,   ///< the text ends inside a quoted cell
  };
  Fault fault = Fault::None;
  int line = 0;  ///< where the row with the fault begins
};

/// Hands over the rows of a UTF-8 text one by one; a blank line is one of an empty cell. Lines end as any
/// system ends them. Spaces around an unquoted cell do not count; a cell that breaks the rules of quoting is
/// read as well as it can be. It stops where take returns false and at the first row past the limits.
CsvEnd readCsv(std::string_view text, CsvShape shape, const std::function<bool(CsvRow&&)>& take);

}  // namespace tarvik::exchange
