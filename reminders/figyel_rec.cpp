#include "reminders/figyel_rec.h"

namespace tarvik::reminders {
namespace {

constexpr std::size_t kKmMulva = 0;
constexpr std::size_t kKmAllas = 4;
constexpr std::size_t kRogzDatum = 8;
constexpr std::size_t kSzoveg = 18;
constexpr std::size_t kRendszam = 58;

}  // namespace

FigyelRec FigyelRec::decode(std::span<const std::byte> bytes) {
  return {.KmMulva = core::readInt32(bytes, kKmMulva),
          .KmAllas = core::readInt32(bytes, kKmAllas),
          .RogzDatum = core::FixedText<10>::read(bytes, kRogzDatum),
          .Szoveg = core::FixedText<40>::read(bytes, kSzoveg),
          .Rendszam = core::FixedText<10>::read(bytes, kRendszam)};
}

void FigyelRec::encode(std::span<std::byte> bytes) const {
  core::writeInt32(bytes, kKmMulva, KmMulva);
  core::writeInt32(bytes, kKmAllas, KmAllas);
  RogzDatum.write(bytes, kRogzDatum);
  Szoveg.write(bytes, kSzoveg);
  Rendszam.write(bytes, kRendszam);
}

}  // namespace tarvik::reminders
