#include "exchange/column_values.h"

#include <algorithm>
#include <cmath>

namespace tarvik::exchange {

double steadiness(const ColumnFacts& facts) {
  std::size_t up = 0;
  std::size_t down = 0;
  std::optional<double> before;
  for (const auto& figure : facts.figures) {
    if (!figure) continue;
    if (before && *figure != *before) ++(*figure > *before ? up : down);
    before = figure;
  }
  return up + down == 0 ? 1 : static_cast<double>(std::max(up, down)) / static_cast<double>(up + down);
}

DistanceKind distanceKind(const ColumnFacts& facts) {
  constexpr double kLongestTrip = 3'000;
  constexpr double kShortestTrip = 60;
  constexpr std::size_t kEnough = 6;  // so many distances do not grow one after the other by chance
  if (facts.cells.empty() || facts.filled == 0) return DistanceKind::Either;
  if (!facts.areFigures()) return DistanceKind::None;
  if (facts.median > kLongestTrip) return DistanceKind::Reading;
  const bool isSteady = steadiness(facts) > (facts.head.word == HeadWord::Odometer ? 0.7 : 0.95);
  if (isSteady && facts.distinct >= kEnough) return DistanceKind::Reading;
  if (isSteady || (facts.head.word == HeadWord::Odometer && facts.distinct < kEnough))
    return DistanceKind::Either;
  return facts.median > kShortestTrip ? DistanceKind::Trip : DistanceKind::None;
}

bool areOctanes(const ColumnFacts& facts) {
  return facts.distinct <= 4 && std::ranges::all_of(facts.figures, [](const std::optional<double>& figure) {
           return !figure || (*figure >= 80 && *figure <= 100 && *figure == std::floor(*figure));
         });
}

double spread(std::vector<double> values) {
  if (values.empty()) return 0;
  std::ranges::sort(values);
  const double median = values[values.size() / 2];
  double sum = 0;
  for (const double value : values) sum += std::abs(value - median);
  return median == 0 ? 0 : sum / median;
}

Paid paidOf(const ColumnFacts& money, const ColumnFacts& volume) {
  Paid paid;
  for (std::size_t i = 0; i < money.figures.size(); ++i) {
    if (!money.figures[i] || !volume.figures[i] || *money.figures[i] <= 0 || *volume.figures[i] <= 0)
      continue;
    paid.money.push_back(*money.figures[i]);
    paid.perVolume.push_back(*money.figures[i] / *volume.figures[i]);
  }
  return paid;
}

}  // namespace tarvik::exchange
