#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/day.h"
#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::core {

/// One logbook entry: a fuelling, a part change, a service item or a note with its cost, or any mix of
/// them on one day and odometer reading. 156 bytes in the file. The flags keep what is stored; only
/// kFlagSet counts as set.
struct NapiAdat {
  static constexpr std::size_t kLength = 156;

  std::int32_t KmOra = 0;         ///< odometer reading, km
  double Datum = 0;               ///< day of the entry, days since 30 December 1899
  std::int16_t Teletank = 0;      ///< flag: tank filled to the brim
  Amount TankoltLiter{};          ///< fuel taken, litres
  std::int32_t TankoltKtg = 0;    ///< cost of the fuel, Ft
  std::int32_t AlkatreszKtg = 0;  ///< cost of the part, Ft
  Amount FtPerLiter{};            ///< price of the fuel, Ft per litre
  std::int16_t Olajcsere = 0;     ///< flag: oil change
  std::int16_t Szurocsere = 0;    ///< flag: filter insert change
  std::int16_t Gyertyacsere = 0;  ///< flag: spark plug change
  FixedText<50> Alkatresz{};      ///< name of the part
  std::int32_t MegjKtg = 0;       ///< cost that belongs to the note, Ft
  FixedText<50> Megjegyzes{};     ///< note
  Amount Fogyasztas{};            ///< consumption since the last full fill, litres per 100 km; 0 = none

  /// In the order of the file.
  static constexpr std::tuple kFields{
      Field{"KmOra", &NapiAdat::KmOra},           Field{"Datum", &NapiAdat::Datum},
      Field{"Teletank", &NapiAdat::Teletank},     Field{"TankoltLiter", &NapiAdat::TankoltLiter},
      Field{"TankoltKtg", &NapiAdat::TankoltKtg}, Field{"AlkatreszKtg", &NapiAdat::AlkatreszKtg},
      Field{"FtPerLiter", &NapiAdat::FtPerLiter}, Field{"Olajcsere", &NapiAdat::Olajcsere},
      Field{"Szurocsere", &NapiAdat::Szurocsere}, Field{"Gyertyacsere", &NapiAdat::Gyertyacsere},
      Field{"Alkatresz", &NapiAdat::Alkatresz},   Field{"MegjKtg", &NapiAdat::MegjKtg},
      Field{"Megjegyzes", &NapiAdat::Megjegyzes}, Field{"Fogyasztas", &NapiAdat::Fogyasztas}};

  friend bool operator==(const NapiAdat&, const NapiAdat&) = default;
};

/// The day of an entry. Throws Failure(OutOfRange) with the field "Datum" when what is stored is none.
Day dayOfEntry(const NapiAdat& entry);

/// A vehicle's logbook in file order, which is the order of recording.
using Logbook = RecordList<NapiAdat>;

}  // namespace tarvik::core
