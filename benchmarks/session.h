#pragma once

#include <string>

#include "benchmarks/desk.h"

namespace tarvik::bench {

/// Walks through all screens by timers, as a person would by clicks, and tells the longest time in
/// nanoseconds in which the event loop did not turn.
double longestStall(Desk& desk);

/// What stayed behind.
struct Growth {
  double bytes = 0;
  int openFiles = 0;
};

/// Lets that many actions of all kinds happen on a screen over a new folder, after a tenth as many to warm
/// up, and tells what the program has more after them than before.
Growth growthOver(const std::string& folder, int actions);

}  // namespace tarvik::bench
