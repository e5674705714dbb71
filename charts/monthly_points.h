#pragma once

#include <functional>
#include <vector>

#include "charts/record_points.h"

namespace tarvik::charts {

/// What the fuellings of one bucket come to so far.
struct MonthTotal {
  core::Amount sum;  ///< of their contributions
  int fuellings = 0;
};

/// What a monthly series makes of the fuellings. Both are called once for each fuelling, in file order.
struct MonthlyRule {
  /// What a fuelling adds to its bucket's sum.
  std::function<core::Amount(const core::NapiAdat& fuelling)> contribution;
  /// The bucket's value once the fuelling is in its total.
  std::function<core::Amount(const MonthTotal& total, const core::NapiAdat& fuelling)> value;
};

/// Makes one point of each bucket of fuellings (entries of at least 1 Ft of fuel) in the range.
///
/// A fuelling opens a bucket unless its month number is that of the record read just before it. The year is
/// not looked at, so that two fuellings a year apart with nothing of another month between them share a
/// bucket; and record 1, or a fuelling that follows an entry without fuel of its own month at the range's
/// start, joins a bucket that is never shown. The label is the year and month of the bucket's latest fuelling
/// ("2013. 7. hó"). Fuellings with a damaged date have a month of their own, labelled "?". A sum past 64 bits
/// throws Failure(OutOfRange).
std::vector<ChartPoint> monthlyPoints(const core::Logbook& logbook, RecordRange range,
                                      const MonthlyRule& rule);

}  // namespace tarvik::charts
