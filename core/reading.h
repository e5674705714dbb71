#pragma once

#include <optional>
#include <string_view>

#include "core/napi_adat.h"

namespace tarvik::core {

/// The number of the last entry before a number whose reading is not 0; 0 when there is none.
int lastWithReading(const Logbook& logbook, int before);

/// The odometer readings that a typed one may follow. 0 = none.
struct EarlierReadings {
  std::int32_t last = 0;    ///< the logbook's last one, which a new entry follows
  std::int32_t before = 0;  ///< the last one before the chosen entry, which that follows; without one, `last`

  friend bool operator==(const EarlierReadings&, const EarlierReadings&) = default;
};

/// The earlier readings of a logbook; no entry is chosen where the number is 0.
EarlierReadings earlierReadings(const Logbook& logbook, int chosen);

/// Further than this from one reading to the next, in km, is more likely a slip than a drive.
constexpr std::int32_t kFarKm = 3'000;

/// Why a typed reading may be a slip.
struct ReadingDoubt {
  enum class Kind { Less, Far };
  Kind kind;
  std::int32_t earlier;  ///< the earlier reading that it is less than, or far from

  friend bool operator==(const ReadingDoubt&, const ReadingDoubt&) = default;
};

/// What is doubtful of a reading as typed: it is less than the earlier ones, or more than kFarKm past the
/// nearest of them. Nothing for 0 and for a text that is no number, and where there is no earlier reading.
std::optional<ReadingDoubt> doubtOf(std::string_view typed, const EarlierReadings& earlier);

/// Whether further digits can still make a reading of it that doubtOf has nothing against: "24" before
/// 241500.
bool canStillBecomeSound(std::string_view typed, const EarlierReadings& earlier);

}  // namespace tarvik::core
