#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ratio.h"
#include "exchange/words.h"

namespace tarvik::exchange {

/// What the words of a head say of its column. Several leave a choice that the figures have to make.
enum class HeadWord {
  Unknown,
  Known,  ///< understood, and nothing that a logbook keeps
  Day,
  Year,
  Month,
  DayOfMonth,
  Odometer,
  Distance,  ///< a reading or a distance
  Trip,      ///< since the last fill
  Volume,
  Fuel,    ///< how much or of which kind
  Amount,  ///< of fuel or of money
  TotalCost,
  UnitPrice,
  Price,  ///< of a unit or of all
  Full,
  Partial,
  Missed,
  Note,
  NoteCost,
  Part,
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

/// A head as its words are understood.
struct HeadReading {
  HeadWord word = HeadWord::Unknown;
  int strength = 0;  ///< 4: the whole head, 3: but for units, 2: a part of it, 1: a part of a word
};

/// What a folded phrase says that is one of the vocabulary from its first word to its last.
HeadWord wholeHead(std::string_view foldedPhrase);

/// What a head says, in any of the languages of the vocabulary.
HeadReading readHead(std::string_view head);

/// The units that a head or a cell names.
UnitHint unitHintOf(std::string_view text);

/// The currency that a head, a cell or a figure names, as its three letters; empty for none.
std::string currencyOf(std::string_view text);

/// Whether a text has the sign of dollars and does not say whose; currencyOf takes them for American ones.
bool isBareDollar(std::string_view text);

/// Whether a text is a word for a unit or a currency, or several: "(km)", "Ft/l".
bool isUnitText(std::string_view text);

/// Whether the head of a distance is in English, whose readers drive miles as well as kilometres.
bool isEnglishHead(std::string_view head);

/// Whether a head is in Hungarian, whose readers pay in forints.
bool isHungarianHead(std::string_view head);

/// What a cell answers to a question of yes or no: yes, true, 1, full and their like in many languages;
/// nothing for a word that is not known.
std::optional<bool> yesOrNo(std::string_view cell);

/// Whether a cell names a total or an average: such a row is no entry.
bool namesTotal(std::string_view cell);

/// Whether a cell names something that is taken in but is no fuel in litres (kWh, AdBlue, CNG in kg), among
/// other words, or alone.
bool namesOtherFuel(std::string_view cell);
bool isOtherFuel(std::string_view cell);

/// Whether the kind of a row is a fill-up: a word for fuel or refuelling, or nothing.
bool namesFuelling(std::string_view kind);

}  // namespace tarvik::exchange
