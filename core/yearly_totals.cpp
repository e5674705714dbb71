#include "core/yearly_totals.h"

#include <functional>
#include <map>
#include <utility>

#include "core/number_format.h"

namespace tarvik::core {
namespace {

using Numbers = std::vector<std::uint16_t>;

std::map<int, Numbers, std::greater<>> entriesByYear(const Logbook& logbook) {
  std::map<int, Numbers, std::greater<>> years;
  for (int number = 1; number <= logbook.count(); ++number)
    if (const auto day = dayFromStored(logbook.record(number).Datum))
      years[calendarDate(*day).year].push_back(static_cast<std::uint16_t>(number));
  return years;
}

std::string whole(std::int64_t value) {
  return formatted(value, "### ### ##0");
}

std::string decimal(const Ratio& value) {
  return formatted(value, "### ##0.00");
}

std::string quotient(std::int64_t dividend, const Ratio& divisor) {
  return divisor.isZero() ? std::string() : decimal(dividend / divisor);
}

}  // namespace

std::vector<YearLine> yearlyTotals(Logbook logbook) {
  if (logbook.count() == 0) return {};
  std::vector<YearLine> lines;
  Listing listing{std::move(logbook), {}};
  for (auto& [year, numbers] : entriesByYear(listing.logbook)) {
    listing.numbers = std::move(numbers);
    lines.push_back({year, totalFigures(listing)});
  }
  listing.numbers = listedEntries(listing.logbook, {});
  lines.push_back({0, totalFigures(listing)});
  return lines;
}

std::vector<std::string> yearHeads() {
  return {"Év",
          "Km",
          "Liter",
          "l/100 km",
          "Ft/l",
          "Üzemanyag (Ft)",
          "Alkatrész (Ft)",
          "Egyéb (Ft)",
          "Összesen (Ft)",
          "Ft/km"};
}

std::vector<std::string> yearCells(const YearLine& line) {
  const TotalFigures& of = line.figures;
  return {line.year == 0 ? "Összesen" : std::to_string(line.year),
          whole(of.distanceKm),
          decimal(of.litres.ratio()),
          of.average ? decimal(*of.average) : std::string(),
          quotient(of.fuelFt, of.litres.ratio()),
          whole(of.fuelFt),
          whole(of.partsFt),
          whole(std::int64_t{of.totalFt} - of.fuelFt - of.partsFt),
          whole(of.totalFt),
          quotient(of.totalFt, of.distanceKm)};
}

}  // namespace tarvik::core
