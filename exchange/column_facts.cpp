#include <algorithm>
#include <array>
#include <set>

#include "core/text.h"
#include "exchange/columns.h"
#include "exchange/words.h"

// What the cells of a column look like; what that means is in columns.cpp.

namespace tarvik::exchange {
namespace {

double toDouble(const core::Ratio& value) {
  return static_cast<double>(value.numerator()) / static_cast<double>(value.denominator());
}

// Whether a head says that figures of distance, volume or money stand below it.
bool isOfFigures(HeadWord word) {
  constexpr std::array kWords = {HeadWord::Odometer, HeadWord::Distance,  HeadWord::Trip,
                                 HeadWord::Volume,   HeadWord::TotalCost, HeadWord::UnitPrice,
                                 HeadWord::Price,    HeadWord::NoteCost};
  return std::ranges::find(kWords, word) != kWords.end();
}

std::vector<std::string_view> cellsOf(const std::vector<const CsvRow*>& rows, std::size_t column,
                                      const HeadReading& head) {
  const bool mayHaveRemarks = isOfFigures(head.word);
  std::vector<std::string_view> cells;
  for (const CsvRow* row : rows) {
    const std::string_view cell = core::trimmed(row->cell(column));
    cells.push_back(mayHaveRemarks ? withoutRemark(cell) : cell);
  }
  return cells;
}

// A count of days or seconds is one only under a head that says so: a reading looks the same.
bool countsDays(std::string_view cell) {
  return std::ranges::all_of(cell, core::isDigit) && cell.size() != 8 && cell.size() != 14;
}

void count(ColumnFacts& facts) {
  for (const std::string_view cell : facts.cells) {
    if (cell.empty()) continue;
    ++facts.filled;
    if (!hasDigit(cell)) continue;
    if (looksLikeDay(cell) && (facts.head.word == HeadWord::Day || !countsDays(cell))) ++facts.days;
    if (isFigureCell(cell) || (isOfFigures(facts.head.word) && beginsWithFigure(cell))) ++facts.numbers;
  }
}

void readFigures(ColumnFacts& facts) {
  std::vector<double> found;
  for (const std::string_view cell : facts.cells) {
    const auto figure = isFigureCell(cell) ? readFigure(cell, facts.sign) : std::nullopt;
    facts.figures.push_back(figure ? std::optional(toDouble(*figure)) : std::nullopt);
    if (figure) found.push_back(toDouble(*figure));
  }
  if (found.empty()) return;
  std::ranges::sort(found);
  facts.median = found[found.size() / 2];
  facts.distinct = std::set<double>(found.begin(), found.end()).size();
}

// Whether figures have a sign at all, which may stand before decimals or group digits.
bool couldBeGroups(const ColumnFacts& facts) {
  return std::ranges::any_of(facts.cells, [](std::string_view cell) {
    return hasDigit(cell) && cell.find_first_of(".,") != std::string_view::npos;
  });
}

// Volumes and prices of a litre are written with three decimals, and no car takes a thousand litres.
std::optional<DecimalSign> signBeforeDecimals(const ColumnFacts& facts) {
  if (facts.head.word != HeadWord::Volume && facts.head.word != HeadWord::UnitPrice) return std::nullopt;
  for (const std::string_view cell : facts.cells)
    if (const std::size_t sign = cell.find_first_of(".,"); hasDigit(cell) && sign != std::string_view::npos)
      return cell[sign] == '.' ? DecimalSign::Point : DecimalSign::Comma;
  return std::nullopt;
}

// Readings whose every sign stands before three digits are in whole kilometres.
bool groupsReadings(const ColumnFacts& facts) {
  return facts.head.word == HeadWord::Odometer || facts.head.word == HeadWord::Distance;
}

DecimalSign otherSign(DecimalSign sign) {
  return sign == DecimalSign::Comma ? DecimalSign::Point : DecimalSign::Comma;
}

DecimalSign signThatGroups(const ColumnFacts& facts) {
  for (const std::string_view cell : facts.cells)
    if (const std::size_t sign = cell.find_first_of(".,"); hasDigit(cell) && sign != std::string_view::npos)
      return otherSign(cell[sign] == '.' ? DecimalSign::Point : DecimalSign::Comma);
  return DecimalSign::Point;
}

void settleSign(ColumnFacts& facts, std::optional<DecimalSign> said, std::optional<DecimalSign> shown,
                DecimalSign usual) {
  const auto own = shownDecimalSign(facts.cells);
  const auto decimals = signBeforeDecimals(facts);
  if (own || decimals) {
    facts.sign = own.value_or(decimals.value_or(usual));
  } else if (groupsReadings(facts) && couldBeGroups(facts)) {
    facts.sign = signThatGroups(facts);
  } else {
    facts.isSignOpen = !shown && couldBeGroups(facts);
    facts.sign = shown.value_or(usual);
  }
  if (said) facts.sign = *said;
}

bool isKnown(const ColumnFacts& facts) {
  return facts.head.word == HeadWord::Known;
}

// What the figures that a logbook keeps show together; those that it does not keep (a consumption) may be
// written another way by the same program.
std::optional<DecimalSign> shownByAll(const std::vector<ColumnFacts>& facts) {
  std::vector<std::string_view> cells;
  for (const ColumnFacts& column : facts)
    if (column.areFigures() && !isKnown(column))
      cells.insert(cells.end(), column.cells.begin(), column.cells.end());
  if (const auto shown = shownDecimalSign(cells)) return shown;
  for (const ColumnFacts& column : facts)
    if (const auto sign = column.areFigures() ? signBeforeDecimals(column) : std::nullopt) return sign;
  return std::nullopt;
}

// What goes with the figures that are not kept, else with the separator.
DecimalSign usualSign(const LogTable& table, const std::vector<ColumnFacts>& facts) {
  std::vector<std::string_view> cells;
  for (const ColumnFacts& column : facts)
    if (column.areFigures() && isKnown(column))
      cells.insert(cells.end(), column.cells.begin(), column.cells.end());
  const DecimalSign bySeparator = table.shape.separator == ';' ? DecimalSign::Comma : DecimalSign::Point;
  return shownDecimalSign(cells).value_or(bySeparator);
}

}  // namespace

std::vector<const CsvRow*> dataRows(const LogTable& table) {
  std::vector<const CsvRow*> rows;
  for (const TableRow& row : table.rows)
    if (row.kind == RowKind::Data) rows.push_back(&row.row);
  return rows;
}

std::vector<ColumnFacts> lookAt(const LogTable& table, std::optional<DecimalSign> sign) {
  const std::vector<const CsvRow*> rows = dataRows(table);
  std::vector<ColumnFacts> facts;
  for (std::size_t column = 0; column < table.heads.size(); ++column) {
    const HeadReading head = readHead(table.heads[column]);
    facts.push_back({.head = head,
                     .currency = currencyOf(table.heads[column]),
                     .cells = cellsOf(rows, column, head),
                     .figures = {}});
    count(facts.back());
  }
  const auto shown = shownByAll(facts);
  const DecimalSign usual = usualSign(table, facts);
  for (ColumnFacts& column : facts) {
    settleSign(column, sign, shown, usual);
    readFigures(column);
  }
  return facts;
}

}  // namespace tarvik::exchange
