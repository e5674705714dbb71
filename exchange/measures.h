#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ratio.h"

namespace tarvik::exchange {

/// The units that a file may count in.
enum class DistanceUnit { Kilometre, Mile };
enum class VolumeUnit { Litre, UsGallon, UkGallon };

/// Kilometres of a unit of distance, litres of a unit of volume; exact.
core::Ratio kilometresOf(DistanceUnit unit);
core::Ratio litresOf(VolumeUnit unit);

/// Whether a folded word is one for a unit of distance, of volume.
bool isDistanceWord(std::string_view word);
bool isVolumeWord(std::string_view word);

/// What a text (a head, a cell of a unit column) says of a unit.
struct UnitHint {
  std::optional<DistanceUnit> distance;
  std::optional<VolumeUnit> volume;
  bool isGallonOpen = false;  ///< gallons, but not whose
};

/// The units that a head or a cell names.
UnitHint unitHintOf(std::string_view text);

/// The currency that a head, a cell or a figure names, as its three letters; empty for none.
std::string currencyOf(std::string_view text);

/// Whether a text has the sign of dollars and does not say whose; currencyOf takes them for American ones.
bool isBareDollar(std::string_view text);

/// Whether a folded word is one for a unit or a currency.
bool isUnitWord(std::string_view word);

/// Whether a text is a word for a unit or a currency, or several: "(km)", "Ft/l".
bool isUnitText(std::string_view text);

/// Whether a cell is a figure, alone or with a unit or a currency: "40,5 l" is one, "E10" and "Super 95" are
/// not.
bool isFigureCell(std::string_view cell);

/// Whether a cell begins with a figure, whatever words and figures stand behind it: "27,2 ezer Ft".
bool beginsWithFigure(std::string_view cell);

/// A cell of a column of figures without the remark behind its figure: "27235 Ft" of "27235 Ft kártyával".
/// The whole cell where there is none, and where what stands there may make it another figure ("27,2 ezer
/// Ft", "5 kg").
std::string_view withoutRemark(std::string_view cell);

/// The money that logbooks are in, by its three letters.
inline constexpr std::string_view kForint = "HUF";

/// Whether a currency, by its three letters, is of dollars.
bool isDollar(std::string_view currency);

/// Whether a litre costs a few of a currency, and not dozens.
bool isDearMoney(std::string_view currency);

/// What a litre has cost in forints since 1990, and may for a while.
inline constexpr int kCheapestLitre = 50;
inline constexpr int kDearestLitre = 2'000;

/// Whether those who pay in a currency all fill litres, and whether they drive kilometres as well; not so for
/// none.
bool isMoneyOfLitres(std::string_view currency);
bool isMoneyOfKilometres(std::string_view currency);

}  // namespace tarvik::exchange
