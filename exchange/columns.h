#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/heads.h"
#include "exchange/log_table.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// The cells of a column that stand in rows of data, and what they look like.
struct ColumnFacts {
  HeadReading head;
  std::string currency;                 ///< that the head names
  std::vector<std::string_view> cells;  ///< trimmed, of each row of data; empty where the row is shorter;
                                        ///< under heads of figures without the remarks behind them
  std::vector<std::optional<double>> figures;  ///< what they come to with the sign below
  DecimalSign sign = DecimalSign::Point;
  bool isSignOpen = false;  ///< each of its figures could be read with either
  std::size_t filled = 0;
  std::size_t days = 0;      ///< cells that look like days
  std::size_t numbers = 0;   ///< cells that are figures, or under a head of figures begin with one
  std::size_t distinct = 0;  ///< figures that differ
  double median = 0;

  bool areFigures() const { return numbers > 0 && 2 * numbers > filled; }
  bool areDays() const { return days > 0 && 2 * days > filled; }
};

/// The rows of data of a table.
std::vector<const CsvRow*> dataRows(const LogTable& table);

/// Looks at all columns. The sign of one whose figures could be read either way is what the others show, else
/// the one given, else what goes with the separator.
std::vector<ColumnFacts> lookAt(const LogTable& table, std::optional<DecimalSign> sign);

/// What columns are read as, and where two readings of one fit.
struct ProposedMeanings {
  std::vector<Meaning> meanings;
  std::optional<std::size_t> priceColumn;  ///< holds the price of a litre or of all
  std::optional<std::size_t>
      unknownColumn;  ///< may hold what no other column does: the full fills, the money
};

/// What the columns are read as: what heads and values say together, and the person before both.
ProposedMeanings proposeMeanings(const std::vector<ColumnFacts>& facts,
                                 const std::map<std::size_t, Meaning>& said);

}  // namespace tarvik::exchange
