#include "exchange/log_reader.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "core/failure.h"
#include "core/record_file.h"
#include "exchange/own_format.h"
#include "exchange/row_reader.h"

namespace tarvik::exchange {
namespace {

constexpr std::size_t kMostRows = 2 * std::size_t{core::kHighestRecordNumber};
constexpr std::size_t kMostCellsInAll = 2'000'000;

// How well a file reads with a separator: its best row of heads.
struct Fit {
  int heads = 0;
  std::vector<std::string> cells;
};

Fit fitOf(std::string_view text, CsvShape shape) {
  Fit best;
  std::size_t rows = 0;
  readCsv(text, shape, [&](CsvRow&& row) {
    const int heads = recognisedHeads(row);
    if (heads > best.heads) best = {heads, std::move(row.cells)};
    return ++rows <= kMostRows;
  });
  return best;
}

bool isApostrophed(const std::string& cell) {
  return cell.size() >= 2 && cell.starts_with('\'') && cell.ends_with('\'');
}

// Reads all rows; the fault that ends them goes into the file.
std::vector<CsvRow> rowsOf(std::string_view text, LogFile& file) {
  std::vector<CsvRow> rows;
  std::size_t cells = 0;
  const auto isTooMuch = [&] { return rows.size() > kMostRows || cells > kMostCellsInAll; };
  const CsvEnd end = readCsv(text, file.shape, [&](CsvRow&& row) {
    cells += row.cells.size();
    rows.push_back(std::move(row));
    return !isTooMuch();
  });
  if (isTooMuch()) file.fault = LogFault::TooManyRows;
  if (end.fault == CsvEnd::Fault::RowTooLong) file.fault = LogFault::RowTooLong;
  file.isCutInQuotes = end.fault == CsvEnd::Fault::OpenQuote;
  file.faultLine = end.line;
  return rows;
}

std::vector<std::string> headsOf(const LogTable& table) {
  std::vector<std::string> heads;
  for (const ColumnReading& column : table.columns) heads.push_back(column.head);
  return heads;
}

UnreadRow::Why whyUnread(const CsvRow& row, std::size_t column) {
  if (column != 0) return UnreadRow::Why::FigureNotUnderstood;
  return row.cell(column).empty() ? UnreadRow::Why::NoDay : UnreadRow::Why::DayNotUnderstood;
}

void readOwnRows(const LogTable& table, LogFile& file) {
  file.isOwn = true;
  file.currency = "HUF";
  file.saysWhichAreFull = true;
  for (const CsvRow& row : table.rows) {
    std::size_t column = 0;
    const auto entry = ownEntry(row, column);
    if (entry) {
      OwnTexts texts = ownTexts(row);
      file.rows.push_back({.line = row.line,
                           .day = *core::dayFromStored(entry->Datum),
                           .note = std::move(texts.note),
                           .part = std::move(texts.part),
                           .own = entry});
    } else {
      file.unread.push_back(
          {row.line, whyUnread(row, column), table.columns[column].head, std::string(row.cell(column))});
    }
  }
}

void noteVehicle(LogFile& file, const std::string& vehicle) {
  if (vehicle.empty() || std::ranges::find(file.vehicles, vehicle) != file.vehicles.end()) return;
  file.vehicles.push_back(vehicle);
}

void readForeignRows(const LogTable& table, LogFile& file) {
  const RowReader reader(table, file);
  for (const CsvRow& row : table.rows) {
    auto read = reader.read(row);
    if (const auto* unread = std::get_if<UnreadRow>(&read)) {
      file.unread.push_back(*unread);
      continue;
    }
    file.rows.push_back(std::get<LogRow>(std::move(read)));
    noteVehicle(file, file.rows.back().vehicle);
  }
}

// Figures too large to compare are no prices.
bool isCheap(const LogRow& row, const core::Ratio& litres) {
  try {
    return row.totalCost < row.volume * litres * kCheapestForints;
  } catch (const core::Failure&) {
    return false;
  }
}

}  // namespace

CsvShape findShape(std::string_view text) {
  CsvShape best;
  Fit bestFit;
  for (const char separator : {';', ',', '\t', '|'}) {
    Fit fit = fitOf(text, {.separator = separator, .quote = '"'});
    if (fit.heads <= bestFit.heads) continue;
    best.separator = separator;
    bestFit = std::move(fit);
  }
  const auto apostrophed = std::ranges::count_if(bestFit.cells, isApostrophed);
  if (2 * static_cast<std::size_t>(apostrophed) > bestFit.cells.size()) best.quote = '\'';
  return best;
}

bool costsAreForeign(const LogFile& file) {
  if (!file.hasCosts || !file.currency.empty()) return file.hasCosts && file.currency != "HUF";
  int cheap = 0;
  int priced = 0;
  for (const LogRow& row : file.rows) {
    if (row.volume.isZero() || row.totalCost.isZero()) continue;
    ++priced;
    if (isCheap(row, litresOf(file.volume))) ++cheap;
  }
  return 2 * cheap > priced;
}

LogFile readLog(std::string_view text, std::optional<DayOrder> dayOrder) {
  LogFile file;
  file.shape = findShape(text);
  std::vector<CsvRow> rows = rowsOf(text, file);
  if (file.fault != LogFault::None) return file;
  LogTable table = findLogTable(std::move(rows));
  if (table.columns.empty()) {
    file.fault = LogFault::NoTable;
    return file;
  }
  file.skipped = table.skipped;
  if (areOwnHeads(headsOf(table))) {
    readOwnRows(table, file);
  } else {
    findOutHow(table, dayOrder, file);
    readForeignRows(table, file);
  }
  file.columns = std::move(table.columns);
  return file;
}

}  // namespace tarvik::exchange
