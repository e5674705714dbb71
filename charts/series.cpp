#include "charts/series.h"

#include "charts/monthly_points.h"
#include "core/number_text.h"

namespace tarvik::charts {
namespace {

using core::Amount;
using core::Logbook;
using core::NapiAdat;

constexpr int kConsumptionSpan = 50;
constexpr int kSpan = 100;

Amount whole(std::int32_t number) {
  return {std::int64_t{number} * 10'000};
}

Amount sumOf(const MonthTotal& total, const NapiAdat&) {
  return total.sum;
}

Amount meanOf(const MonthTotal& total, const NapiAdat&) {
  return core::toAmount(total.sum.ratio() / core::Ratio(total.fuellings));
}

// The distance since the fuelling before, from one fuelling to the next.
class Distance {
 public:
  Amount operator()(const NapiAdat& fuelling) {
    if (reading_ > 0) distance_ = core::checkedDifference(fuelling.KmOra, reading_);
    reading_ = fuelling.KmOra;
    return whole(distance_);
  }

 private:
  std::int32_t reading_ = 0;
  std::int32_t distance_ = 0;
};

MonthlyRule costPerHundredKm(const core::Ratio& litresPerHundredKm) {
  return {[](const NapiAdat&) { return Amount{}; },
          [litresPerHundredKm](const MonthTotal&, const NapiAdat& fuelling) {
            return core::toAmount(fuelling.FtPerLiter.ratio() * litresPerHundredKm);
          }};
}

MonthlyRule monthlyRule(int choice, std::string_view averageText) {
  switch (choice) {
    case kMonthlyCost:
      return {[](const NapiAdat& fuelling) { return whole(fuelling.TankoltKtg); }, sumOf};
    case kMonthlyDistance:
      return {Distance(), sumOf};
    case kMonthlyLitres:
      return {&NapiAdat::TankoltLiter, sumOf};
    case kMonthlyConsumption:
      return {&NapiAdat::Fogyasztas, meanOf};
    default:
      return costPerHundredKm(core::plainNumber(averageText));
  }
}

}  // namespace

std::vector<ChartPoint> seriesOf(int choice, const Logbook& logbook, std::string_view averageText) {
  const int count = logbook.count();
  if (choice < kConsumptions || choice > kCostPerHundredKm) return {};
  if (choice == kConsumptions)
    return recordPoints(logbook, latestRecords(count, kConsumptionSpan, 2), &NapiAdat::Fogyasztas);
  if (choice == kFuelPrices)
    return recordPoints(logbook, latestRecords(count, kSpan, 1), &NapiAdat::FtPerLiter);
  return monthlyPoints(logbook, latestRecords(count, kSpan, 2), monthlyRule(choice, averageText));
}

}  // namespace tarvik::charts
