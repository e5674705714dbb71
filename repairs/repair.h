#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::repairs {

/// One repair or service of one vehicle. 186 bytes in the file.
struct Repair {
  static constexpr std::size_t kLength = 186;

  core::FixedText<10> plate;        ///< the vehicle, as typed
  double date = 0;                  ///< days since 30 December 1899
  core::FixedText<80> description;  ///< what was done
  core::FixedText<80> part;
  std::int32_t costFt = 0;
  std::int32_t readingKm = 0;  ///< odometer reading, km

  /// In the order of the file.
  static constexpr std::tuple kFields{core::Field{"plate", &Repair::plate},
                                      core::Field{"date", &Repair::date},
                                      core::Field{"description", &Repair::description},
                                      core::Field{"part", &Repair::part},
                                      core::Field{"costFt", &Repair::costFt},
                                      core::Field{"readingKm", &Repair::readingKm}};

  friend bool operator==(const Repair&, const Repair&) = default;
};

/// All entries in file order, which is the order of recording.
using Repairs = core::RecordList<Repair>;

}  // namespace tarvik::repairs
