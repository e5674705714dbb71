#pragma once

#include <string_view>
#include <vector>

#include "charts/record_points.h"

namespace tarvik::charts {

/// The seven charts, by the numbers under which the choice is kept for the whole run.
enum ChartChoice : int {
  kNoChart = 0,
  kConsumptions = 1,        ///< litres per 100 km, a point an entry
  kFuelPrices = 2,          ///< Ft per litre, a point an entry
  kMonthlyCost = 3,         ///< Ft
  kMonthlyDistance = 4,     ///< km
  kMonthlyLitres = 5,       ///< litres
  kMonthlyConsumption = 6,  ///< litres per 100 km
  kCostPerHundredKm = 7,    ///< Ft
};

/// Computes the points of a chart (1 to 7; any other choice has none) from the latest 100 entries of a
/// logbook, the latest 50 for the consumptions. `averageText` is the average consumption as the main
/// screen shows it; chart 7 takes its leading number.
///
/// In a logbook of fewer entries every chart but the fuel prices leaves out record 1; a fuelling after one
/// whose odometer reading is not positive adds the distance found last once more; fuellings without a
/// consumption count in the monthly average. Throws Failure(OutOfRange) for sums and distances past their
/// types, which only a damaged file holds.
std::vector<ChartPoint> seriesOf(int choice, const core::Logbook& logbook, std::string_view averageText);

}  // namespace tarvik::charts
