#pragma once

#include <string>
#include <vector>

#include "core/amount.h"
#include "core/napi_adat.h"

namespace tarvik::charts {

/// One point of a chart: the UTF-8 label under it and its value in the unit of its series.
struct ChartPoint {
  std::string label;
  core::Amount value;

  friend bool operator==(const ChartPoint&, const ChartPoint&) = default;
};

/// Which records a chart reads: their numbers from first to last, both included; none when last is
/// smaller.
struct RecordRange {
  int first = 1;
  int last = 0;
};

/// Gives the records that a chart of the latest entries reads from a logbook of `count` records: the
/// latest `span` ones, or all from number `firstOfFew` on while there are fewer than `span`.
RecordRange latestRecords(int count, int span, int firstOfFew);

/// Makes one point of each record in the range whose field is greater than 0: the field's value under
/// the short date of the entry ("2013.07.05.", "?" for a damaged date).
std::vector<ChartPoint> recordPoints(const core::Logbook& logbook, RecordRange range,
                                     core::Amount core::NapiAdat::*field);

}  // namespace tarvik::charts
