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

  /// The entry from and to its 186 bytes.
  static Repair decode(std::span<const std::byte> bytes);
  void encode(std::span<std::byte> bytes) const;

  friend bool operator==(const Repair&, const Repair&) = default;
};

/// All entries in file order, which is the order of recording.
using Repairs = core::RecordList<Repair>;

}  // namespace tarvik::repairs
