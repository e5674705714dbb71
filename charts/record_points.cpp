#include "charts/record_points.h"

#include "core/day.h"

namespace tarvik::charts {

RecordRange latestRecords(int count, int span, int firstOfFew) {
  return {count < span ? firstOfFew : count - span + 1, count};
}

std::vector<ChartPoint> recordPoints(const core::Logbook& logbook, RecordRange range,
                                     core::Amount core::NapiAdat::*field) {
  std::vector<ChartPoint> points;
  for (int number = range.first; number <= range.last; ++number) {
    const core::NapiAdat entry = logbook.record(number);
    if (entry.*field > core::Amount{}) points.push_back({core::shortDateOfStored(entry.Datum), entry.*field});
  }
  return points;
}

}  // namespace tarvik::charts
