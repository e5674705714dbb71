#include "repairs/repair.h"

namespace tarvik::repairs {
namespace {

constexpr std::size_t kPlate = 0;
constexpr std::size_t kDate = 10;
constexpr std::size_t kDescription = 18;
constexpr std::size_t kPart = 98;
constexpr std::size_t kCost = 178;
constexpr std::size_t kReading = 182;

}  // namespace

Repair Repair::decode(std::span<const std::byte> bytes) {
  return {.plate = core::FixedText<10>::read(bytes, kPlate),
          .date = core::readDate(bytes, kDate),
          .description = core::FixedText<80>::read(bytes, kDescription),
          .part = core::FixedText<80>::read(bytes, kPart),
          .costFt = core::readInt32(bytes, kCost),
          .readingKm = core::readInt32(bytes, kReading)};
}

void Repair::encode(std::span<std::byte> bytes) const {
  plate.write(bytes, kPlate);
  core::writeDate(bytes, kDate, date);
  description.write(bytes, kDescription);
  part.write(bytes, kPart);
  core::writeInt32(bytes, kCost, costFt);
  core::writeInt32(bytes, kReading, readingKm);
}

}  // namespace tarvik::repairs
