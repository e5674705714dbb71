#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/day.h"
#include "core/napi_adat.h"
#include "core/ratio.h"

namespace tarvik::exchange {

/// What entries come to in all.
struct LogSummary {
  int entries = 0;
  std::optional<core::Day> from{};
  std::optional<core::Day> to{};
  std::int64_t kilometres = 0;  ///< from the lowest reading to the highest
  core::Ratio litres = 0;
  std::int64_t forints = 0;                  ///< parts and notes too
  std::optional<core::Ratio> consumption{};  ///< litres per 100 km, the first fill-up aside
  std::optional<core::Ratio> forintsPerLitre{};

  /// Whether a figure is outside of what cars do.
  bool isConsumptionOdd() const;
  bool isPriceOdd() const;
};

/// Sums entries up. More than a hundred million litres of one, which only a damaged entry has, count as
/// those.
LogSummary summaryOf(std::span<const core::NapiAdat> entries);

}  // namespace tarvik::exchange
