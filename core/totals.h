#pragma once

#include <optional>
#include <string>

#include "core/listing.h"

namespace tarvik::core {

/// The figures behind the totals of the listed entries.
struct TotalFigures {
  std::int32_t totalFt = 0;                     ///< all costs
  std::int32_t fuelFt = 0;                      ///< of them, the fuel
  std::int64_t partsFt = 0;                     ///< of them, the parts
  Amount litres;                                ///< fuel taken
  std::int32_t distanceKm = 0;                  ///< between the first and the last entry
  std::optional<Ratio> average = std::nullopt;  ///< litres per 100 km; nothing where the distance is 0
};

/// The figures of a listing; zeros where it has no rows. The litres of the first row count in the average by
/// the whole part of their text only: the plain numeric parse ends at the decimal comma. Throws
/// Failure(OutOfRange) with the name of the total's field when a sum leaves its type.
TotalFigures totalFigures(const Listing& listing);

/// The totals beside the list as texts, each in its format. A text that is not set leaves its field as it
/// was: the listing does not give it.
struct Totals {
  std::optional<std::string> teljesKtg;         ///< all costs, "1 234 567 Ft."
  std::optional<std::string> benzinKtg;         ///< the fuel's share
  std::optional<std::string> alkatreszKoltseg;  ///< the rest
  std::optional<std::string> megtettKm;         ///< distance between the first and last row
  std::optional<std::string> liter;             ///< fuel taken
  std::optional<std::string> fogyaszt;          ///< average consumption
};

/// Sets the texts of the listing's figures and leaves the others. Without rows the distance, litre and
/// consumption texts become empty and the costs stay; with a distance of 0 the consumption stays. Throws
/// as totalFigures does; the costs of the rows before stand then.
void updateTotals(const Listing& listing, Totals& totals);

/// The hint on a cost field: its figure divided by the days between the first and the last row, in whole
/// forints ("123,-Ft/nap"). Figures are read back from the field's text by the plain numeric parse.
/// Nothing when there are fewer than two rows or days.
std::optional<std::string> costPerDay(const Listing& listing, std::string_view fieldText);
/// As costPerDay, of the litres: "1,25 liter/nap".
std::optional<std::string> litresPerDay(const Listing& listing, std::string_view fieldText);
/// As costPerDay, of the distance: "45 km/nap".
std::optional<std::string> kmPerDay(const Listing& listing, std::string_view fieldText);

}  // namespace tarvik::core
