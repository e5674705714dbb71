#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "exchange/csv_rows.h"
#include "exchange/heads.h"

namespace tarvik::exchange {

/// A column as it was read.
struct ColumnReading {
  std::string head;
  Meaning meaning = Meaning::Ignored;

  friend bool operator==(const ColumnReading&, const ColumnReading&) = default;
};

/// A part of the file that holds something else than fill-ups.
struct SkippedSection {
  std::string name;  ///< its title in the file, or its first heads
  int firstLine = 0;
  int rows = 0;  ///< heads and titles aside

  friend bool operator==(const SkippedSection&, const SkippedSection&) = default;
};

/// The table of fill-ups that was found in a file.
struct LogTable {
  std::vector<ColumnReading> columns;  ///< empty: there is no such table
  std::vector<CsvRow> rows;
  std::vector<SkippedSection> skipped;

  /// Where the first column of that meaning is; columns.size() for none.
  std::size_t columnOf(Meaning meaning) const;
  bool has(Meaning meaning) const { return columnOf(meaning) < columns.size(); }
};

/// Finds the table of fill-ups among the rows of a file: heads that name a day, a reading and a volume. A
/// file may have titles over its heads and tables of other kinds before and behind; those are skipped and
/// told. A column whose cells are no figures is not read as one, and of two columns of one meaning the first
/// is.
LogTable findLogTable(std::vector<CsvRow> rows);

/// The heads that a row would be, each with its meaning by its words alone.
std::vector<ColumnReading> readHeads(const CsvRow& row);

/// How many columns of a row are heads of a table of fill-ups; 0 for a row that is not the heads of one.
int recognisedHeads(const CsvRow& row);

}  // namespace tarvik::exchange
