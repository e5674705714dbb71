#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "charts/record_points.h"

namespace tarvik::charts {

/// What the scroll controls of the consumptions ask for.
struct ScrollView {
  int first = 1;               ///< position of the scroll bar: number of the first record
  std::string_view countText;  ///< text of the box with the number of records
  bool limited = false;        ///< whether the view ends after that many records
};

/// The text that the box with the number of records gets on scrolling: its own, or "50" when its leading
/// number is below 5.
std::string usableCount(std::string_view countText);

/// The whole number of records in such a text, 5 to 32,767; "50" takes the place of less than 5.
int recordsPerView(std::string_view countText);

/// Computes the momentary consumptions from a scroll position on: to the logbook's end, or as many
/// records further as the box says, which makes one point more than that at most. In a logbook of fewer
/// than 50 records the view starts at record 2 wherever the scroll bar stands.
std::vector<ChartPoint> consumptionsFrom(const core::Logbook& logbook, const ScrollView& view);

}  // namespace tarvik::charts
