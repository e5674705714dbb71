#include "exchange/row_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "core/failure.h"
#include "core/text.h"

namespace tarvik::exchange {
namespace {

using Cells = std::vector<std::string_view>;

constexpr std::array kFigures = {Meaning::Odometer, Meaning::Volume, Meaning::TotalCost, Meaning::UnitPrice,
                                 Meaning::Price};
constexpr std::array kCosts = {Meaning::TotalCost, Meaning::UnitPrice, Meaning::Price};

Cells cellsOf(const LogTable& table, Meaning meaning) {
  Cells cells;
  const std::size_t column = table.columnOf(meaning);
  for (const CsvRow& row : table.rows)
    if (!core::trimmed(row.cell(column)).empty()) cells.push_back(row.cell(column));
  return cells;
}

// The sign in volumes that show nothing ("40.123"): it stands before decimals, as no car takes a thousand
// litres.
std::optional<DecimalSign> signInVolumes(const LogTable& table) {
  for (const std::string_view volume : cellsOf(table, Meaning::Volume))
    if (const std::size_t sign = volume.find_first_of(".,"); sign != std::string_view::npos)
      return volume[sign] == '.' ? DecimalSign::Point : DecimalSign::Comma;
  return std::nullopt;
}

// The decimal sign of each column: what its own figures show, else what all figures of the table show, else
// what stands in the volumes, else what goes with the separator.
std::vector<DecimalSign> decimalSigns(const LogTable& table, char separator) {
  Cells all;
  for (const Meaning meaning : kFigures) {
    const Cells cells = cellsOf(table, meaning);
    all.insert(all.end(), cells.begin(), cells.end());
  }
  const DecimalSign usual = separator == ';' ? DecimalSign::Comma : DecimalSign::Point;
  const DecimalSign shown = shownDecimalSign(all).value_or(signInVolumes(table).value_or(usual));
  std::vector<DecimalSign> signs;
  for (const ColumnReading& column : table.columns)
    signs.push_back(shownDecimalSign(cellsOf(table, column.meaning)).value_or(shown));
  return signs;
}

// The hints of a column's head, of the cells of a column of units, and of all heads, in that order.
std::vector<UnitHint> hintsFor(const LogTable& table, Meaning figure, Meaning unitColumn) {
  std::vector<UnitHint> hints;
  if (table.has(figure)) hints.push_back(unitHintOf(table.columns[table.columnOf(figure)].head));
  const Cells units = cellsOf(table, unitColumn);
  if (!units.empty()) hints.push_back(unitHintOf(units.front()));
  for (const ColumnReading& column : table.columns) hints.push_back(unitHintOf(column.head));
  return hints;
}

void findUnits(const LogTable& table, LogFile& file) {
  for (const UnitHint& hint : hintsFor(table, Meaning::Odometer, Meaning::DistanceUnit))
    if (hint.distance) {
      file.distance = *hint.distance;
      break;
    }
  for (const UnitHint& hint : hintsFor(table, Meaning::Volume, Meaning::VolumeUnit))
    if (hint.volume) {
      file.volume = *hint.volume;
      file.isGallonOpen = hint.isGallonOpen;
      break;
    }
}

// The currency that the cells of a column name first.
std::string currencyIn(const Cells& cells) {
  for (const std::string_view cell : cells)
    if (std::string currency = currencyOf(cell); !currency.empty()) return currency;
  return {};
}

std::string currencyOfTable(const LogTable& table) {
  std::string currency = currencyIn(cellsOf(table, Meaning::Currency));
  for (const Meaning meaning : kCosts) {
    if (!currency.empty() || !table.has(meaning)) continue;
    currency = currencyOf(table.columns[table.columnOf(meaning)].head);
    if (currency.empty()) currency = currencyIn(cellsOf(table, meaning));
  }
  return currency;
}

double toDouble(const core::Ratio& value) {
  return static_cast<double>(value.numerator()) / static_cast<double>(value.denominator());
}

// How far values above zero lie from their middle one in all, in shares of it.
double spread(std::vector<double> values) {
  std::ranges::sort(values);
  const double median = values[values.size() / 2];
  double sum = 0;
  for (const double value : values) sum += std::abs(value - median);
  return sum / median;
}

// Whether the prices of a table are those of a unit: what is paid in all goes with the volume.
bool arePricesOfUnits(const LogTable& table, const std::vector<DecimalSign>& signs) {
  const std::size_t price = table.columnOf(Meaning::Price);
  const std::size_t volume = table.columnOf(Meaning::Volume);
  std::vector<double> prices;
  std::vector<double> quotients;
  for (const CsvRow& row : table.rows) {
    const core::Ratio paid = readFigure(row.cell(price), signs[price]).value_or(0);
    const core::Ratio taken = readFigure(row.cell(volume), signs[volume]).value_or(0);
    if (paid <= 0 || taken <= 0) continue;
    prices.push_back(toDouble(paid));
    quotients.push_back(toDouble(paid) / toDouble(taken));
  }
  if (prices.size() < 2) return !prices.empty() && quotients.front() < 0.5;
  return spread(std::move(prices)) <= spread(std::move(quotients));
}

void decidePrices(LogTable& table, const std::vector<DecimalSign>& signs) {
  if (!table.has(Meaning::Price)) return;
  Meaning& meaning = table.columns[table.columnOf(Meaning::Price)].meaning;
  if (table.has(Meaning::TotalCost))
    meaning = table.has(Meaning::UnitPrice) ? Meaning::Ignored : Meaning::UnitPrice;
  else if (table.has(Meaning::UnitPrice))
    meaning = Meaning::TotalCost;
  else
    meaning = arePricesOfUnits(table, signs) ? Meaning::UnitPrice : Meaning::TotalCost;
}

// Notes of other programs may have several lines, a list has one.
std::string onOneLine(std::string_view text) {
  std::string line(core::trimmed(text));
  std::ranges::replace_if(
      line, [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  return std::string(core::trimmed(line));
}

// Says yes, or what it says yes to.
bool saysPartial(std::string_view cell) {
  return saysYes(cell) || meaningOf(cell) == Meaning::Partial;
}

bool hasDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

}  // namespace

void findOutHow(LogTable& table, std::optional<DayOrder> dayOrder, LogFile& file) {
  findUnits(table, file);
  file.currency = currencyOfTable(table);
  decidePrices(table, decimalSigns(table, file.shape.separator));
  file.hasCosts = table.has(Meaning::TotalCost) || table.has(Meaning::UnitPrice);
  file.saysWhichAreFull = table.has(Meaning::Full) || table.has(Meaning::Partial);
  const bool isAmerican = file.volume == VolumeUnit::UsGallon || file.currency == "USD";
  file.dayOrder =
      shownDayOrder(cellsOf(table, Meaning::Day), isAmerican ? DayOrder::MonthFirst : DayOrder::DayFirst);
  if (dayOrder) file.dayOrder.order = *dayOrder;
}

/// A figure of a row: what it is, or that its cell could not be read.
struct RowReader::Figure {
  Meaning meaning;
  std::optional<core::Ratio> value;
};

RowReader::RowReader(const LogTable& table, const LogFile& file)
    : table_(table), dayOrder_(file.dayOrder.order), signs_(decimalSigns(table, file.shape.separator)) {}

std::string_view RowReader::cell(const CsvRow& row, Meaning meaning) const {
  return table_.has(meaning) ? core::trimmed(row.cell(table_.columnOf(meaning))) : std::string_view();
}

UnreadRow RowReader::unread(const CsvRow& row, UnreadRow::Why why, Meaning meaning) const {
  return {row.line, why, table_.has(meaning) ? table_.columns[table_.columnOf(meaning)].head : std::string(),
          std::string(cell(row, meaning))};
}

// Nothing for an empty cell; one without a digit ("-", "n/a") is as good as empty.
std::optional<RowReader::Figure> RowReader::figure(const CsvRow& row, Meaning meaning) const {
  const std::string_view text = cell(row, meaning);
  if (!hasDigit(text)) return std::nullopt;
  auto value = readFigure(text, signs_[table_.columnOf(meaning)]);
  if (value && *value < 0) value.reset();
  return Figure{meaning, value};
}

std::variant<LogRow, UnreadRow> RowReader::read(const CsvRow& row) const {
  const auto day = readDay(cell(row, Meaning::Day), dayOrder_);
  if (!day && std::ranges::any_of(row.cells, namesTotal))
    return unread(row, UnreadRow::Why::Total, Meaning::Ignored);
  if (cell(row, Meaning::Day).empty()) return unread(row, UnreadRow::Why::NoDay, Meaning::Day);
  if (!day) return unread(row, UnreadRow::Why::DayNotUnderstood, Meaning::Day);
  try {
    return readFigures(row, *day);
  } catch (const core::Failure&) {
    return unread(row, UnreadRow::Why::FigureNotUnderstood, Meaning::Volume);
  }
}

std::variant<LogRow, UnreadRow> RowReader::readFigures(const CsvRow& row, core::Day day) const {
  LogRow read{.line = row.line, .day = day};
  core::Ratio unitPrice = 0;
  for (const Meaning meaning : kFigures) {
    const auto found = figure(row, meaning);
    if (!found) continue;
    if (!found->value) return unread(row, UnreadRow::Why::FigureNotUnderstood, meaning);
    if (meaning == Meaning::Odometer) read.odometer = *found->value;
    if (meaning == Meaning::Volume) read.volume = *found->value;
    if (meaning == Meaning::TotalCost) read.totalCost = *found->value;
    if (meaning == Meaning::UnitPrice) unitPrice = *found->value;
  }
  if (read.totalCost.isZero()) read.totalCost = unitPrice * read.volume;
  if (!read.volume.isZero() && !read.odometer)
    return unread(row, UnreadRow::Why::NoOdometer, Meaning::Odometer);
  readWords(row, read);
  if (read.volume.isZero() && read.totalCost.isZero() && read.note.empty())
    return unread(row, UnreadRow::Why::NothingInIt, Meaning::Volume);
  return read;
}

void RowReader::readWords(const CsvRow& row, LogRow& read) const {
  const bool isFuelling = !read.volume.isZero();
  const bool isFull = table_.has(Meaning::Full) ? saysYes(cell(row, Meaning::Full))
                                                : !saysPartial(cell(row, Meaning::Partial));
  read.isFull = isFuelling && isFull;
  read.isAfterMissed = isFuelling && saysYes(cell(row, Meaning::Missed));
  read.vehicle = onOneLine(cell(row, Meaning::Vehicle));
  read.note = onOneLine(cell(row, Meaning::Description));
  const std::string note = onOneLine(cell(row, Meaning::Note));
  if (!read.note.empty() && !note.empty()) read.note += ", ";
  read.note += note;
  if (read.note.empty() && !isFuelling && !namesFuelling(cell(row, Meaning::Kind)))
    read.note = onOneLine(cell(row, Meaning::Kind));
}

}  // namespace tarvik::exchange
