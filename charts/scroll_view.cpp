#include "charts/scroll_view.h"

#include <algorithm>

#include "core/number_text.h"
#include "core/record_file.h"

namespace tarvik::charts {
namespace {

constexpr int kFewRecords = 50;

core::Ratio countIn(std::string_view countText) {
  return core::plainNumber(usableCount(countText));
}

// The last record of a view that ends the count's number of records behind its first.
int limitedEnd(int first, const core::Ratio& number, int count) {
  return static_cast<int>(core::toWhole(std::min(core::Ratio(first) + number, core::Ratio(count))));
}

}  // namespace

std::string usableCount(std::string_view countText) {
  return core::plainNumber(countText) < core::Ratio(5) ? "50" : std::string(countText);
}

int recordsPerView(std::string_view countText) {
  return limitedEnd(0, countIn(countText), core::kHighestRecordNumber);
}

std::vector<ChartPoint> consumptionsFrom(const core::Logbook& logbook, const ScrollView& view) {
  const int count = logbook.count();
  const int first = count < kFewRecords ? 2 : view.first;
  const int last = view.limited ? limitedEnd(first, countIn(view.countText), count) : count;
  return recordPoints(logbook, {first, last}, &core::NapiAdat::Fogyasztas);
}

}  // namespace tarvik::charts
