#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/day.h"
#include "core/napi_adat.h"

namespace tarvik::core {

/// What the list shows: the whole logbook, one year, or one month of one year. Any other mode is whole.
enum ListMode : std::int16_t { kWholeList = 0, kYearList = 1, kMonthList = 2 };

struct ListFilter {
  std::int16_t mode = kWholeList;
  Day picked;  ///< a day of the year or month
};

/// The record numbers of the entries that the filter keeps, in file order. An entry with a damaged date
/// belongs to no year or month.
std::vector<std::uint16_t> listedEntries(const Logbook& logbook, const ListFilter& filter);

/// The columns of the list, in order.
enum ListColumn {
  kDatumColumn,
  kKmOraColumn,
  kLiterColumn,
  kKmColumn,
  kOlajColumn,
  kSzuroColumn,
  kGyertyaColumn,
  kAlkatreszColumn,
  kMegjegyzesColumn,
  kRecColumn,
  kListColumns
};

/// A logbook and which of its entries are listed.
struct Listing {
  Logbook logbook;
  std::vector<std::uint16_t> numbers;

  int rows() const { return static_cast<int>(numbers.size()); }
  /// The record number of a row, counted from 0.
  int number(int row) const { return numbers[static_cast<std::size_t>(row)]; }
  /// The entry of a row, counted from 0.
  NapiAdat entry(int row) const { return logbook.record(number(row)); }
  /// The text of a cell. The distance column runs between listed rows; a previous reading of 0 gives 0.
  /// A flag shows "X" only when it is exactly the stored form of set.
  std::string cell(int row, int column) const;
};

/// The longest text of the distance column, that of the most km where two are as long; "0" without rows.
std::string longestDistance(const Listing& listing);

/// A row's litres as the list shows them, "##.00".
std::string literText(const NapiAdat& entry);

}  // namespace tarvik::core
