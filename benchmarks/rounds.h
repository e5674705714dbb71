#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarvik::bench {

/// One thing whose time is taken, under a name of its own.
struct Measured {
  std::string name;
  std::function<void()> act;
  std::function<void()> prepare = [] {};  ///< runs untimed before each series of acts
  int acts = 0;                           ///< acts in a series; 0 = as many as fill about 20 ms
};

/// The times of one thing, one a round, in nanoseconds an act.
struct Series {
  std::vector<double> wall;
  std::vector<double> processor = {};  ///< of the thread alone: what it would take on a machine at rest
};

/// The times of each measured thing.
using Times = std::map<std::string, Series>;

/// Takes the times of all things in their order, then of all again, and so on: what else the machine does
/// meanwhile meets each of them alike.
Times takeTimes(const std::vector<Measured>& things, int rounds);

/// The middle one of some values, of which there is one at least.
double median(std::vector<double> values);

/// The median of the ratios a / b, round by round.
double medianRatio(const std::vector<double>& a, const std::vector<double>& b);

/// The wall clock's and the thread's own time, to be taken apart by hand where rounds do not fit.
struct Moment {
  double wall = 0;
  double processor = 0;
};
Moment now();
/// What both clocks have run since then, in nanoseconds.
Moment since(const Moment& start);

}  // namespace tarvik::bench
