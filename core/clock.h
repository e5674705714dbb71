#pragma once

#include "core/day.h"

namespace tarvik::core {

/// Tells what day it is. The program has the machine's clock, tests a fixed one.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Today in the user's time zone.
  virtual Day today() const = 0;
};

}  // namespace tarvik::core
