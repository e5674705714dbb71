#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_rows.h"

namespace tarvik::exchange {

/// What a row of a file is.
enum class RowKind {
  Data,          ///< of the table of fill-ups
  Empty,         ///< nothing but separators
  Heads,         ///< the heads of the table, also where they come again on a further page
  Title,         ///< of a part of the file
  Comment,       ///< begins with #
  BeforeTable,   ///< what stands over the first heads
  OtherSection,  ///< of a part that holds something else than fill-ups
};

/// A row of a file and where it belongs.
struct TableRow {
  CsvRow row;
  RowKind kind = RowKind::Data;
  std::string section{};  ///< the title of its part of the file, or that part's first head
};

/// A whole file as rows, and the table of fill-ups among them.
struct LogTable {
  enum class Fault {
    None,
    RowTooLong,   ///< an endless line, a quote that is never closed
    TooManyRows,  ///< more rows than a logbook takes
    NoTable,      ///< no row with several cells, or no rows at all (JSON)
  };
  Fault fault = Fault::None;
  int faultLine = 0;
  CsvShape shape;
  bool isCutInQuotes = false;  ///< the file ends inside a quoted cell, from faultLine on
  bool hasHeads = false;       ///< otherwise the columns are only numbered
  bool hasSections = false;  ///< several titled tables with the same heads: their titles tell vehicles apart
  std::vector<std::string> heads;
  std::vector<TableRow> rows;  ///< all of them, in the order of the file
};

/// Finds the rows of a file, from the whole of its text (UTF-8, without a mark), and among them the table
/// that holds fill-ups: the one with most heads of such, else the one with most rows. The separator and the
/// quote are found out where they are not given. Never throws but for memory.
LogTable readTable(std::string_view text, std::optional<char> separator = std::nullopt);

}  // namespace tarvik::exchange
