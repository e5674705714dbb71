#pragma once

#include "tests/looks/camera.h"

namespace tarvik::looks {

/// Photographs every form of the chart beside each other: each type with a series that is long, short, empty,
/// below zero, with gaps, with a selected point and with one under the mouse.
void photographChartSheet(Camera& camera);

}  // namespace tarvik::looks
