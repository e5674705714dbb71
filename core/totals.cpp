#include "core/totals.h"

#include "core/failure.h"
#include "core/field_number.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/ratio.h"

namespace tarvik::core {
namespace {

constexpr const char* kForints = R"(### ### ###\ \F\t\.)";

void addCosts(const NapiAdat& entry, TotalFigures& figures) {
  const auto cost = [&] {
    return checkedSum(checkedSum(entry.TankoltKtg, entry.AlkatreszKtg), entry.MegjKtg);
  };
  const auto total = inField("tx_teljes_ktg", [&] { return checkedSum(figures.totalFt, cost()); });
  const auto fuel = inField("ob_ktg", [&] { return checkedSum(figures.fuelFt, entry.TankoltKtg); });
  figures.litres = inField("tx_liter", [&] { return figures.litres + entry.TankoltLiter; });
  figures.totalFt = total;
  figures.fuelFt = fuel;
  figures.partsFt += entry.AlkatreszKtg;
}

void addWay(const Listing& listing, TotalFigures& figures) {
  const NapiAdat first = listing.entry(0);
  const NapiAdat last = listing.entry(listing.rows() - 1);
  figures.distanceKm = inField("tx_megtett_km", [&] { return checkedDifference(last.KmOra, first.KmOra); });
  if (figures.distanceKm != 0)
    figures.average = (figures.litres.ratio() - plainNumber(literText(first))) / figures.distanceKm * 100;
}

void showCosts(const TotalFigures& figures, Totals& texts) {
  texts.teljesKtg = formatted(figures.totalFt, kForints);
  texts.benzinKtg = formatted(figures.fuelFt, kForints);
  texts.alkatreszKoltseg = formatted(std::int64_t{figures.totalFt} - figures.fuelFt, kForints);
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

TotalFigures totalFigures(const Listing& listing) {
  TotalFigures figures;
  for (int row = 0; row < listing.rows(); ++row) addCosts(listing.entry(row), figures);
  if (listing.rows() > 0) addWay(listing, figures);
  return figures;
}

void updateTotals(const Listing& listing, Totals& texts) {
  if (listing.rows() == 0) {
    texts.megtettKm = texts.liter = texts.fogyaszt = "";
    return;
  }
  TotalFigures figures;
  int row = 0;
  try {
    for (; row < listing.rows(); ++row) addCosts(listing.entry(row), figures);
  } catch (const Failure&) {
    if (row > 0) showCosts(figures, texts);
    throw;
  }
  showCosts(figures, texts);
  addWay(listing, figures);
  texts.megtettKm = formatted(figures.distanceKm, R"(### ### ###\ \K\m\.)");
  texts.liter = formatted(figures.litres.ratio(), R"(### ###.##\ \L\i\t\e\r)");
  if (figures.average) texts.fogyaszt = formatted(*figures.average, R"(### ###.##\ \L\i\t\e\r\/\1\0\0\K\m)");
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
