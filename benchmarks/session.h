#pragma once

#include <string>
#include <vector>

#include "benchmarks/desk.h"

namespace tarvik::bench {

/// The parts of a session that wait for the disk or lay out pages.
inline constexpr const char* kSaving = "saving";
inline constexpr const char* kPrinting = "printing";

/// The longest time in nanoseconds in which the event loop did not turn in a part of a session.
struct Stall {
  std::string part;
  double nanoseconds = 0;
};

/// Walks through all screens by timers, as a person would by clicks; one stall a part.
std::vector<Stall> longestStalls(Desk& desk);

/// What stayed behind.
struct Growth {
  double bytes = 0;
  int openFiles = 0;
};

/// Lets that many actions of all kinds happen on a screen over a new folder, after a tenth as many to warm
/// up, and tells what the program has more after them than before.
Growth growthOver(const std::string& folder, int actions);

}  // namespace tarvik::bench
