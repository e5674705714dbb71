#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::tyres {

/// The seasons that a set of tyres can be for; the file holds their numbers.
inline constexpr std::int16_t kWinter = 0;
inline constexpr std::int16_t kSummer = 1;
inline constexpr std::int16_t kAllSeason = 2;

/// The value of TyreSet::onCar for a fitted set. It is a check box's value, not the flag that other records
/// use.
inline constexpr std::int16_t kFitted = 1;
inline constexpr std::int16_t kNotFitted = 0;

/// One set of tyres of one vehicle. 71 bytes in the file.
struct TyreSet {
  static constexpr std::size_t kLength = 71;

  core::FixedText<10> plate;      ///< the vehicle, as typed
  std::int32_t kmWhenFitted = 0;  ///< odometer reading when fitted, km
  std::int16_t season = kWinter;  ///< kWinter, kSummer or kAllSeason; whatever the file holds
  core::FixedText<30> type;
  core::FixedText<15> size;
  std::int32_t maxKm = 0;           ///< distance that the set may run, km
  std::int16_t onCar = kNotFitted;  ///< kFitted or kNotFitted; whatever the file holds
  std::int32_t kmRun = 0;           ///< distance run since it was fitted, km

  /// In the order of the file.
  static constexpr std::tuple kFields{
      core::Field{"plate", &TyreSet::plate},   core::Field{"kmWhenFitted", &TyreSet::kmWhenFitted},
      core::Field{"season", &TyreSet::season}, core::Field{"type", &TyreSet::type},
      core::Field{"size", &TyreSet::size},     core::Field{"maxKm", &TyreSet::maxKm},
      core::Field{"onCar", &TyreSet::onCar},   core::Field{"kmRun", &TyreSet::kmRun}};

  friend bool operator==(const TyreSet&, const TyreSet&) = default;
};

/// All sets in file order, which is the order of recording.
using TyreSets = core::RecordList<TyreSet>;

}  // namespace tarvik::tyres
