#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "exchange/log_reader.h"
#include "exchange/numbers.h"

namespace tarvik::exchange {

/// Finds out from a whole table how its days, units, currency and prices are to be read, and notes it in the
/// file. A column of prices whose head does not say whether of a unit or of all becomes one of the two: the
/// price of a unit is what changes less than the price divided by the volume does.
void findOutHow(LogTable& table, std::optional<DayOrder> dayOrder, LogFile& file);

/// Reads the rows of a table of another program, once it was found out how.
class RowReader {
 public:
  /// The table and the file outlive the reader.
  RowReader(const LogTable& table, const LogFile& file);

  /// The fill-up or service of a row, or why it is none.
  std::variant<LogRow, UnreadRow> read(const CsvRow& row) const;

 private:
  struct Figure;
  std::string_view cell(const CsvRow& row, Meaning meaning) const;
  UnreadRow unread(const CsvRow& row, UnreadRow::Why why, Meaning meaning) const;
  std::optional<Figure> figure(const CsvRow& row, Meaning meaning) const;
  std::variant<LogRow, UnreadRow> readFigures(const CsvRow& row, core::Day day) const;
  void readWords(const CsvRow& row, LogRow& read) const;

  const LogTable& table_;
  DayOrder dayOrder_;
  std::vector<DecimalSign> signs_;
};

}  // namespace tarvik::exchange
