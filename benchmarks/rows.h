#pragma once

#include <string>
#include <vector>

#include "benchmarks/rounds.h"

namespace tarvik::bench {

// The rows of the table that ./bench prints, written to the standard output as they come, the fields of a
// row separated by tabs.

/// One row: a figure, what it was, what it was measured beside, the two compared, the goal.
struct Row {
  std::string figure;
  std::string measured;
  std::string floor = {};
  std::string ratio = {};
  std::string goal;
  bool met = false;
};

/// What runs beside a figure: a floor or a peer.
struct Beside {
  std::string what;
  std::vector<double> nanoseconds;  ///< one a round
};

/// How much the growth of a figure may differ from its floor's before it counts.
inline constexpr double kGrowthTolerance = 1.1;

void writeRow(const Row& row);

/// A figure that is to stay within some times its floor.
void writeAgainstFloor(const std::string& figure, const std::vector<double>& nanoseconds, const Beside& floor,
                       double mostTimes);

/// A figure that is to be some times faster than a peer.
void writeAgainstPeer(const std::string& figure, const std::vector<double>& nanoseconds, const Beside& peer,
                      double leastTimesFaster);

/// A figure that is to stay within a time. It waits for nothing, so what counts is the processor's time: the
/// wall clock, which stands beside it, measures what else the machine does.
void writeTime(const std::string& figure, const Series& times, double mostNanoseconds);

/// What a figure costs as the logbook grows, against its floor at the same sizes. The ratio says how many
/// times slower an entry is than in the smallest logbook, at the worst of the sizes; linear is 1. What the
/// processor's caches hold no more makes an entry slower in every program: as much as the floor's may.
void writeGrowth(const std::string& figure, const std::vector<int>& entries,
                 const std::vector<double>& nanoseconds, const std::vector<double>& floorNanoseconds);

/// A time as a person reads it: "1.25 ms".
std::string timeText(double nanoseconds);
/// A number with two decimals and its unit behind it.
std::string numberText(double number, const char* unit);

}  // namespace tarvik::bench
