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

/// The times of each measured thing, one a round, in nanoseconds an act.
using Times = std::map<std::string, std::vector<double>>;

/// Takes the times of all things in their order, then of all again, and so on: what else the machine does
/// meanwhile meets each of them alike.
Times takeTimes(const std::vector<Measured>& things, int rounds);

/// The middle one of some values, of which there is one at least.
double median(std::vector<double> values);

/// The median of the ratios a / b, round by round.
double medianRatio(const std::vector<double>& a, const std::vector<double>& b);

}  // namespace tarvik::bench
