#include "reminders/figy_datum_rec.h"

namespace tarvik::reminders {
namespace {

constexpr std::size_t kMikor = 0;
constexpr std::size_t kBeirva = 8;
constexpr std::size_t kSzoveg = 18;
constexpr std::size_t kRendszam = 58;

}  // namespace

FigyDatumRec FigyDatumRec::decode(std::span<const std::byte> bytes) {
  return {.Mikor = core::readDate(bytes, kMikor),
          .Beirva = core::FixedText<10>::read(bytes, kBeirva),
          .Szoveg = core::FixedText<40>::read(bytes, kSzoveg),
          .Rendszam = core::FixedText<10>::read(bytes, kRendszam)};
}

void FigyDatumRec::encode(std::span<std::byte> bytes) const {
  core::writeDate(bytes, kMikor, Mikor);
  Beirva.write(bytes, kBeirva);
  Szoveg.write(bytes, kSzoveg);
  Rendszam.write(bytes, kRendszam);
}

}  // namespace tarvik::reminders
