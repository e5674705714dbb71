#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "repairs/repair.h"

namespace tarvik::repairs {

/// An entry as the list shows it.
struct RepairRow {
  std::string plate;        ///< all 10 characters as stored
  std::string date;         ///< "2013.07.05.", "?" for a damaged date
  std::string description;  ///< trimmed
  std::string part;         ///< trimmed
  std::int32_t costFt = 0;
  std::int32_t readingKm = 0;
  int number = 0;  ///< record number, from 1

  friend bool operator==(const RepairRow&, const RepairRow&) = default;
};

/// What a person looks for. Case does not count in the two keys, accented letters included; an empty key
/// is found in every text.
struct RepairFilter {
  std::string plate = {};  ///< compared trimmed and exactly, unless all vehicles are asked for
  bool isAllVehicles = false;
  std::string description = {};  ///< key in the description; the spaces around it do not count
  std::string part = {};         ///< key in the part; the spaces around it do not count
};

/// The rows of the entries that the filter keeps, in file order.
std::vector<RepairRow> rowsOf(const Repairs& repairs, const RepairFilter& filter);

/// What of an entry is searched, a line each: its day as listed, description and part.
std::string searchedText(const Repair& repair);

/// The rows' whole cost in the form "1 234 567"; throws Failure(OutOfRange) when the sum leaves 32 bits.
std::string totalText(std::span<const RepairRow> rows);

}  // namespace tarvik::repairs
