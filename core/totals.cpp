#include "core/totals.h"

#include "core/failure.h"
#include "core/field_number.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/ratio.h"

namespace tarvik::core {
namespace {

constexpr const char* kForints = R"(### ### ###\ \F\t\.)";

// The sums of the rows so far.
struct Sums {
  std::int32_t total = 0;
  std::int32_t fuel = 0;
  Amount litres;

  void add(const NapiAdat& entry) {
    const auto cost = [&] {
      return checkedSum(checkedSum(entry.TankoltKtg, entry.AlkatreszKtg), entry.MegjKtg);
    };
    const auto newTotal = inField("tx_teljes_ktg", [&] { return checkedSum(total, cost()); });
    const auto newFuel = inField("ob_ktg", [&] { return checkedSum(fuel, entry.TankoltKtg); });
    litres = inField("tx_liter", [&] { return litres + entry.TankoltLiter; });
    total = newTotal;
    fuel = newFuel;
  }
};

void showCosts(const Sums& sums, Totals& texts) {
  texts.teljesKtg = formatted(sums.total, kForints);
  texts.benzinKtg = formatted(sums.fuel, kForints);
  texts.alkatreszKoltseg = formatted(std::int64_t{sums.total} - sums.fuel, kForints);
}

Sums sumRows(const Listing& listing, Totals& texts) {
  Sums sums;
  int row = 0;
  try {
    for (; row < listing.rows(); ++row) sums.add(listing.entry(row));
  } catch (const Failure&) {
    if (row > 0) showCosts(sums, texts);
    throw;
  }
  showCosts(sums, texts);
  return sums;
}

// Whole days from the first to the last row; 0 when one of them holds no day.
std::int64_t daysListed(const Listing& listing) {
  if (listing.rows() < 2) return 0;
  const auto first = dayFromStored(listing.entry(0).Datum);
  const auto last = dayFromStored(listing.entry(listing.rows() - 1).Datum);
  return first && last ? daysBetween(*first, *last) : 0;
}

bool hasDailyHint(const Listing& listing) {
  return daysListed(listing) >= 2;
}

}  // namespace

void updateTotals(const Listing& listing, Totals& texts) {
  if (listing.rows() == 0) {
    texts.megtettKm = texts.liter = texts.fogyaszt = "";
    return;
  }
  const Sums sums = sumRows(listing, texts);
  const NapiAdat first = listing.entry(0);
  const NapiAdat last = listing.entry(listing.rows() - 1);
  const auto distance = inField("tx_megtett_km", [&] { return checkedDifference(last.KmOra, first.KmOra); });
  texts.megtettKm = formatted(distance, R"(### ### ###\ \K\m\.)");
  texts.liter = formatted(sums.litres.ratio(), R"(### ###.##\ \L\i\t\e\r)");
  if (distance == 0) return;
  const Ratio average = (sums.litres.ratio() - plainNumber(literText(first))) / distance * 100;
  texts.fogyaszt = formatted(average, R"(### ###.##\ \L\i\t\e\r\/\1\0\0\K\m)");
}

std::optional<std::string> costPerDay(const Listing& listing, std::string_view fieldText) {
  if (!hasDailyHint(listing)) return std::nullopt;
  return std::to_string(wholeQuotient(plainNumber(fieldText), daysListed(listing))) + ",-Ft/nap";
}

std::optional<std::string> litresPerDay(const Listing& listing, std::string_view fieldText) {
  if (!hasDailyHint(listing)) return std::nullopt;
  return formatted(plainNumber(fieldText) / daysListed(listing), "##0.00") + " liter/nap";
}

std::optional<std::string> kmPerDay(const Listing& listing, std::string_view fieldText) {
  if (!hasDailyHint(listing)) return std::nullopt;
  return formatted(plainNumber(fieldText) / daysListed(listing), "###,00") + " km/nap";
}

}  // namespace tarvik::core
