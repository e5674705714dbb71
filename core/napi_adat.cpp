#include "core/napi_adat.h"

#include "core/failure.h"

namespace tarvik::core {
namespace {

constexpr std::size_t kKmOra = 0;
constexpr std::size_t kDatum = 4;
constexpr std::size_t kTeletank = 12;
constexpr std::size_t kTankoltLiter = 14;
constexpr std::size_t kTankoltKtg = 22;
constexpr std::size_t kAlkatreszKtg = 26;
constexpr std::size_t kFtPerLiter = 30;
constexpr std::size_t kOlajcsere = 38;
constexpr std::size_t kSzurocsere = 40;
constexpr std::size_t kGyertyacsere = 42;
constexpr std::size_t kAlkatresz = 44;
constexpr std::size_t kMegjKtg = 94;
constexpr std::size_t kMegjegyzes = 98;
constexpr std::size_t kFogyasztas = 148;

}  // namespace

NapiAdat NapiAdat::decode(std::span<const std::byte> bytes) {
  return {.KmOra = readInt32(bytes, kKmOra),
          .Datum = readDate(bytes, kDatum),
          .Teletank = readInt16(bytes, kTeletank),
          .TankoltLiter = readAmount(bytes, kTankoltLiter),
          .TankoltKtg = readInt32(bytes, kTankoltKtg),
          .AlkatreszKtg = readInt32(bytes, kAlkatreszKtg),
          .FtPerLiter = readAmount(bytes, kFtPerLiter),
          .Olajcsere = readInt16(bytes, kOlajcsere),
          .Szurocsere = readInt16(bytes, kSzurocsere),
          .Gyertyacsere = readInt16(bytes, kGyertyacsere),
          .Alkatresz = FixedText<50>::read(bytes, kAlkatresz),
          .MegjKtg = readInt32(bytes, kMegjKtg),
          .Megjegyzes = FixedText<50>::read(bytes, kMegjegyzes),
          .Fogyasztas = readAmount(bytes, kFogyasztas)};
}

double NapiAdat::decodeDatum(std::span<const std::byte> bytes) {
  return readDate(bytes, kDatum);
}

std::int32_t NapiAdat::decodeKmOra(std::span<const std::byte> bytes) {
  return readInt32(bytes, kKmOra);
}

void NapiAdat::encode(std::span<std::byte> bytes) const {
  writeInt32(bytes, kKmOra, KmOra);
  writeDate(bytes, kDatum, Datum);
  writeInt16(bytes, kTeletank, Teletank);
  writeAmount(bytes, kTankoltLiter, TankoltLiter);
  writeInt32(bytes, kTankoltKtg, TankoltKtg);
  writeInt32(bytes, kAlkatreszKtg, AlkatreszKtg);
  writeAmount(bytes, kFtPerLiter, FtPerLiter);
  writeInt16(bytes, kOlajcsere, Olajcsere);
  writeInt16(bytes, kSzurocsere, Szurocsere);
  writeInt16(bytes, kGyertyacsere, Gyertyacsere);
  Alkatresz.write(bytes, kAlkatresz);
  writeInt32(bytes, kMegjKtg, MegjKtg);
  Megjegyzes.write(bytes, kMegjegyzes);
  writeAmount(bytes, kFogyasztas, Fogyasztas);
}

Day dayOfEntry(const NapiAdat& entry) {
  const std::optional<Day> day = dayFromStored(entry.Datum);
  if (!day) throw Failure(FailureKind::OutOfRange).field("Datum");
  return *day;
}

}  // namespace tarvik::core
