#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "exchange/import_plan.h"
#include "exchange/log_reader.h"

namespace tarvik::test {

/// The text of a sample log of samples/.
inline std::string sample(const std::string& name) {
  std::ifstream in(std::string(TARVIK_EXCHANGE_SAMPLES) + "/" + name, std::ios::binary);
  EXPECT_TRUE(in.is_open()) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A log of such rows, the day first.
inline std::string logOf(const std::string& rows) {
  return "Date,Odometer (km),Litres,Cost (Ft),Full,Missed,Notes\n" + rows;
}

/// A file as it is understood with what a person says of it.
struct ReadLog {
  exchange::LogTable table;
  exchange::Reading reading;
  exchange::LogRows rows;

  bool asks(exchange::Question question) const {
    return std::ranges::find(reading.open, question) != reading.open.end();
  }
  /// The meaning of the column under a head.
  exchange::Meaning meaningOf(const std::string& head) const {
    const auto found = std::ranges::find(reading.columns, head, &exchange::ColumnReading::head);
    return found == reading.columns.end() ? exchange::Meaning::NotUnderstood : found->meaning;
  }
};

inline ReadLog readLog(const std::string& text, const exchange::Choices& choices = {}) {
  ReadLog log{exchange::readTable(text), {}, {}};
  log.reading = exchange::understand(log.table, choices);
  log.rows = exchange::readRows(log.table, log.reading);
  return log;
}

/// The plan of a file's entries.
inline exchange::ImportPlan planOf(const ReadLog& log, const core::Logbook& logbook = {},
                                   exchange::Place place = exchange::Place::InOrder,
                                   std::int16_t tankLitres = 0) {
  return exchange::planImport(
      log.rows, log.reading,
      {.logbook = logbook, .tankLitres = tankLitres, .today = core::dayOf({2026, 6, 1}), .place = place});
}

/// Why rows are left out, by their lines; the heads are not told.
inline std::vector<std::pair<int, exchange::UnreadRow::Why>> leftOut(const ReadLog& log) {
  std::vector<std::pair<int, exchange::UnreadRow::Why>> rows;
  for (const exchange::UnreadRow& row : log.rows.unread)
    if (row.why != exchange::UnreadRow::Why::Heads) rows.emplace_back(row.line, row.why);
  return rows;
}

}  // namespace tarvik::test
