#pragma once

#include <string>
#include <vector>

#include "core/totals.h"

namespace tarvik::core {

/// A line of the yearly summary: what the totals say of the entries of a year, or of all.
struct YearLine {
  int year = 0;  ///< 0 = all entries
  TotalFigures figures;
};

/// A logbook by year, newest first; last the line of all entries. Each line has the figures of the list that
/// is filtered to that year, or of the whole list: an entry with a damaged date belongs to no year, and a
/// year's distance ends with its last entry, so that only the last line has the way from one year to the
/// next. No lines without entries. Throws Failure as totalFigures does.
std::vector<YearLine> yearlyTotals(Logbook logbook);

/// The heads of the summary's columns: the year, then kilometres, litres, litres per 100 km, price per litre,
/// fuel, parts, other costs, all costs, and all costs per km.
std::vector<std::string> yearHeads();

/// The cells of a line under those heads; one that cannot be computed is empty.
std::vector<std::string> yearCells(const YearLine& line);

}  // namespace tarvik::core
