#include "tyres/tyre_set.h"

namespace tarvik::tyres {
namespace {

constexpr std::size_t kPlate = 0;
constexpr std::size_t kKmWhenFitted = 10;
constexpr std::size_t kSeason = 14;
constexpr std::size_t kType = 16;
constexpr std::size_t kSize = 46;
constexpr std::size_t kMaxKm = 61;
constexpr std::size_t kOnCar = 65;
constexpr std::size_t kKmRun = 67;

}  // namespace

TyreSet TyreSet::decode(std::span<const std::byte> bytes) {
  return {.plate = core::FixedText<10>::read(bytes, kPlate),
          .kmWhenFitted = core::readInt32(bytes, kKmWhenFitted),
          .season = core::readInt16(bytes, kSeason),
          .type = core::FixedText<30>::read(bytes, kType),
          .size = core::FixedText<15>::read(bytes, kSize),
          .maxKm = core::readInt32(bytes, kMaxKm),
          .onCar = core::readInt16(bytes, kOnCar),
          .kmRun = core::readInt32(bytes, kKmRun)};
}

void TyreSet::encode(std::span<std::byte> bytes) const {
  plate.write(bytes, kPlate);
  core::writeInt32(bytes, kKmWhenFitted, kmWhenFitted);
  core::writeInt16(bytes, kSeason, season);
  type.write(bytes, kType);
  size.write(bytes, kSize);
  core::writeInt32(bytes, kMaxKm, maxKm);
  core::writeInt16(bytes, kOnCar, onCar);
  core::writeInt32(bytes, kKmRun, kmRun);
}

}  // namespace tarvik::tyres
