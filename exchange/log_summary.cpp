#include "exchange/log_summary.h"

#include <algorithm>

#include "exchange/import_plan.h"

namespace tarvik::exchange {
namespace {

using core::NapiAdat;

void takeDay(const NapiAdat& entry, LogSummary& summary) {
  const auto day = core::dayFromStored(entry.Datum);
  if (!day) return;
  summary.from = std::min(summary.from.value_or(*day), *day);
  summary.to = std::max(summary.to.value_or(*day), *day);
}

bool isFuelling(const NapiAdat& entry) {
  return !entry.TankoltLiter.isZero();
}

// The first fill-up was driven with before the log began.
std::optional<core::Ratio> consumptionOf(std::span<const NapiAdat> entries, const core::Ratio& litres) {
  const auto lowest = [&] {
    const NapiAdat* found = nullptr;
    for (const NapiAdat& entry : entries)
      if (isFuelling(entry) && (found == nullptr || entry.KmOra < found->KmOra)) found = &entry;
    return found;
  }();
  if (lowest == nullptr) return std::nullopt;
  std::int64_t highest = lowest->KmOra;
  for (const NapiAdat& entry : entries)
    if (isFuelling(entry)) highest = std::max<std::int64_t>(highest, entry.KmOra);
  const std::int64_t distance = highest - lowest->KmOra;
  if (distance == 0) return std::nullopt;
  return (litres - lowest->TankoltLiter.ratio()) * 100 / distance;
}

}  // namespace

bool LogSummary::isConsumptionOdd() const {
  return consumption && (*consumption < kLeastConsumption || *consumption > kGreatestConsumption);
}

bool LogSummary::isPriceOdd() const {
  return forintsPerLitre && (*forintsPerLitre < kCheapestLitre || *forintsPerLitre > kDearestLitre);
}

LogSummary summaryOf(std::span<const NapiAdat> entries) {
  LogSummary summary{.entries = static_cast<int>(entries.size())};
  std::int64_t fuel = 0;
  std::int64_t tenThousandths = 0;
  std::optional<std::int32_t> lowest;
  std::optional<std::int32_t> highest;
  for (const NapiAdat& entry : entries) {
    takeDay(entry, summary);
    lowest = std::min(lowest.value_or(entry.KmOra), entry.KmOra);
    highest = std::max(highest.value_or(entry.KmOra), entry.KmOra);
    fuel += entry.TankoltKtg;
    summary.forints += std::int64_t{entry.TankoltKtg} + entry.AlkatreszKtg + entry.MegjKtg;
    constexpr std::int64_t kMost = 1'000'000'000'000;
    tenThousandths += std::clamp(entry.TankoltLiter.tenThousandths, -kMost, kMost);
  }
  summary.kilometres = std::int64_t{highest.value_or(0)} - lowest.value_or(0);
  summary.litres = core::Ratio(tenThousandths, 10'000);
  summary.consumption = consumptionOf(entries, summary.litres);
  if (summary.litres > 0 && fuel > 0) summary.forintsPerLitre = core::Ratio(fuel) / summary.litres;
  return summary;
}

}  // namespace tarvik::exchange
