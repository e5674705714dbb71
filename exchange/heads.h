#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ratio.h"

namespace tarvik::exchange {

/// What a column of a file is read as.
enum class Meaning {
  Ignored,
  Day,
  Odometer,
  Volume,
  TotalCost,
  UnitPrice,
  Price,  ///< of a unit or of all: the figures have to tell
  Full,
  Partial,
  Missed,
  Note,
  Description,
  Kind,
  DistanceUnit,
  VolumeUnit,
  Currency,
  Vehicle,
};

/// The units that a file may count in.
enum class DistanceUnit { Kilometre, Mile };
enum class VolumeUnit { Litre, UsGallon, UkGallon };

/// Kilometres of a unit of distance, litres of a unit of volume; exact.
core::Ratio kilometresOf(DistanceUnit unit);
core::Ratio litresOf(VolumeUnit unit);

/// What a text (a head, a cell of a unit column) says of a unit.
struct UnitHint {
  std::optional<DistanceUnit> distance;
  std::optional<VolumeUnit> volume;
  bool isGallonOpen = false;  ///< gallons, but not whose
};

/// A head or cell in capitals, without accents, signs and double spaces: "Megjegyzés költsége (Ft)" becomes
/// "MEGJEGYZES KOLTSEGE FT".
std::string folded(std::string_view text);

/// What a column with that head means, in English, German or Hungarian, whatever its signs and units.
Meaning meaningOf(std::string_view head);

/// The units that a head or a cell names.
UnitHint unitHintOf(std::string_view text);

/// The currency that a head, a cell or a figure names, as its three letters; empty for none.
std::string currencyOf(std::string_view text);

/// Whether a cell says yes: yes, true, 1, full, and their like in the three languages.
bool saysYes(std::string_view cell);

/// Whether a cell names a total or an average: such a row at the end of a table is no entry.
bool namesTotal(std::string_view cell);

/// Whether the kind of a row is a fill-up: a word for fuel or refuelling, or nothing.
bool namesFuelling(std::string_view kind);

}  // namespace tarvik::exchange
