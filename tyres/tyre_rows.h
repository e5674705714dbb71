#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tyres/tyre_set.h"

namespace tarvik::tyres {

/// A set as the list shows it.
struct TyreRow {
  std::string plate;          ///< all 10 characters as stored
  std::string type;           ///< trimmed
  std::string season;         ///< seasonText
  std::string kmRun;          ///< whole km without groups
  std::string remainingLife;  ///< remainingLifeText
  bool isFitted = false;      ///< the row's mark
  int number = 0;             ///< record number, from 1

  friend bool operator==(const TyreRow&, const TyreRow&) = default;
};

/// "Téli", "Nyári", " 4 évszak" (the leading space sorts it first), or nothing for an unknown season.
std::string seasonText(std::int16_t season);

/// What is left of a set's distance: "75%-os", negative past the maximum. A whole hundredth of the
/// maximum counts as one per cent (halves to even), so a maximum of up to 50 km either way has none:
/// its text is "–", so that the set can still be listed and mended.
std::string remainingLifeText(const TyreSet& set);

/// The rows of one vehicle's sets, its plate compared trimmed and exactly, or of all vehicles' without
/// a plate; in file order.
std::vector<TyreRow> rowsOf(const TyreSets& sets, std::optional<std::string_view> plate);

}  // namespace tarvik::tyres
