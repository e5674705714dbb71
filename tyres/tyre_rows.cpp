#include "tyres/tyre_rows.h"

#include "core/ratio.h"
#include "core/text.h"

namespace tarvik::tyres {
namespace {

TyreRow rowOf(const TyreSet& set, int number) {
  return {.plate = set.plate.asStored(),
          .type = set.type.trimmed(),
          .season = seasonText(set.season),
          .kmRun = std::to_string(set.kmRun),
          .remainingLife = remainingLifeText(set),
          .isFitted = set.onCar == kFitted,
          .number = number};
}

}  // namespace

std::string seasonText(std::int16_t season) {
  switch (season) {
    case kWinter:
      return "Téli";
    case kSummer:
      return "Nyári";
    case kAllSeason:
      return " 4 évszak";
    default:
      return {};
  }
}

std::string remainingLifeText(const TyreSet& set) {
  const core::Ratio hundredth(set.maxKm, 100);
  if (core::toWhole(hundredth) == 0) return "–";
  return std::to_string(100 - core::wholeQuotient(set.kmRun, hundredth)) + "%-os";
}

std::vector<TyreRow> rowsOf(const TyreSets& sets, std::optional<std::string_view> plate) {
  std::vector<TyreRow> rows;
  for (int number = 1; number <= sets.count(); ++number) {
    const TyreSet set = sets.record(number);
    if (!plate || set.plate.trimmed() == core::trimmed(*plate)) rows.push_back(rowOf(set, number));
  }
  return rows;
}

}  // namespace tarvik::tyres
