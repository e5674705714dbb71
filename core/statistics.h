#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/day.h"
#include "core/napi_adat.h"

namespace tarvik::core {

/// The estimates shown for a clicked entry. A text that is not set leaves its label as it was: the step
/// that gives it could not be computed, or does not apply.
struct Statistics {
  std::optional<std::string> pillAtlag;  ///< consumption since the previous full fill, or why there is none
  std::optional<std::string> datum;      ///< expected day of the next fuelling, short date form
  std::optional<std::string> km;         ///< km that can still be driven before that day
  std::optional<std::string> ftPerKm;    ///< fuel cost of a km

  friend bool operator==(const Statistics&, const Statistics&) = default;
};

/// What the estimates are made from, the logbook aside.
struct StatisticsInput {
  int selected = 0;           ///< record number of the clicked entry, 0 = none
  std::int16_t tankSize = 0;  ///< litres; 0 = not known, nothing is estimated
  std::string_view average;   ///< the text of the average consumption; its whole part counts
  Day today;
};

/// Estimates for the clicked entry, from averages since entry 2 (entry 1 is never used) up to the last
/// fuelling. The steps run in their order until one cannot be computed (a logbook of fewer than two
/// entries, a division by zero, no fuelling, a walk past the logbook's beginning); what was found stands.
/// Never fails.
Statistics statisticsOf(const Logbook& logbook, const StatisticsInput& input);

}  // namespace tarvik::core
