#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "core/listing.h"
#include "core/totals.h"
#include "exchange/import_plan.h"
#include "exchange/log_reader.h"

namespace tarvik::test {

/// The text of a sample log of samples/.
inline std::string sample(const std::string& name) {
  std::ifstream in(std::string(TARVIK_EXCHANGE_SAMPLES) + "/" + name, std::ios::binary);
  EXPECT_TRUE(in.is_open()) << name;
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The plan of a file's entries for an empty logbook, in the units that the file was found to have.
inline exchange::ImportPlan planOf(const exchange::LogFile& file, const core::Logbook& logbook = {},
                                   core::Ratio factor = 1, std::int16_t tankLitres = 0) {
  return exchange::planImport(
      file, {.distance = file.distance, .volume = file.volume, .forintsPerUnit = factor, .vehicle = {}},
      logbook, tankLitres);
}

/// A logbook of the entries that a plan takes.
inline core::Logbook logbookOf(const exchange::ImportPlan& plan) {
  return core::Logbook::of(plan.taken());
}

/// The average consumption that the main screen shows of a logbook.
inline std::string shownConsumption(const core::Logbook& logbook) {
  core::Listing listing{core::Logbook::of(std::vector<core::NapiAdat>{}), {}};
  std::vector<core::NapiAdat> entries;
  for (int number = 1; number <= logbook.count(); ++number) entries.push_back(logbook.record(number));
  listing.logbook = core::Logbook::of(entries);
  listing.numbers = core::listedEntries(listing.logbook, {});
  core::Totals totals;
  core::updateTotals(listing, totals);
  return totals.fogyaszt.value_or("");
}

/// The lines of the rows that could not be read.
inline std::vector<int> unreadLines(const exchange::LogFile& file) {
  std::vector<int> lines;
  for (const exchange::UnreadRow& row : file.unread) lines.push_back(row.line);
  return lines;
}

/// A stored day as year, month and day.
inline core::CalendarDate dateOf(const core::NapiAdat& entry) {
  return core::calendarDate(core::dayFromStored(entry.Datum).value());
}

}  // namespace tarvik::test
