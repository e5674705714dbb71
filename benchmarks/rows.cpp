#include "benchmarks/rows.h"

#include <algorithm>
#include <cstdio>

namespace tarvik::bench {
namespace {

std::string joined(const std::vector<double>& nanoseconds) {
  std::string text;
  for (const double time : nanoseconds) text += (text.empty() ? "" : " / ") + timeText(time);
  return text;
}

// How many times slower an entry is than in the smallest logbook, at the worst of the sizes.
double growthOf(const std::vector<int>& entries, const std::vector<double>& nanoseconds) {
  double worst = 0;
  for (std::size_t i = 1; i < entries.size(); ++i)
    worst = std::max(worst, nanoseconds[i] / entries[i] / (nanoseconds[0] / entries[0]));
  return worst;
}

}  // namespace

std::string numberText(double number, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f%s", number, unit);
  return text;
}

std::string timeText(double nanoseconds) {
  if (nanoseconds >= 1e9) return numberText(nanoseconds / 1e9, " s");
  if (nanoseconds >= 1e6) return numberText(nanoseconds / 1e6, " ms");
  return numberText(nanoseconds / 1e3, " µs");
}

void writeRow(const Row& row) {
  std::printf("%s\t%s\t%s\t%s\t%s\t%s\n", row.figure.c_str(), row.measured.c_str(), row.floor.c_str(),
              row.ratio.c_str(), row.goal.c_str(), row.met ? "yes" : "NO");
  std::fflush(stdout);
}

void writeAgainstFloor(const std::string& figure, const std::vector<double>& nanoseconds, const Beside& floor,
                       double mostTimes) {
  const double ratio = medianRatio(nanoseconds, floor.nanoseconds);
  writeRow({.figure = figure,
            .measured = timeText(median(nanoseconds)),
            .floor = timeText(median(floor.nanoseconds)) + " " + floor.what,
            .ratio = numberText(ratio, " ×"),
            .goal = "≤ " + numberText(mostTimes, " ×"),
            .met = ratio <= mostTimes});
}

void writeAgainstPeer(const std::string& figure, const std::vector<double>& nanoseconds, const Beside& peer,
                      double leastTimesFaster) {
  const double ratio = medianRatio(peer.nanoseconds, nanoseconds);
  writeRow({.figure = figure,
            .measured = timeText(median(nanoseconds)),
            .floor = timeText(median(peer.nanoseconds)) + " " + peer.what,
            .ratio = numberText(ratio, " × faster"),
            .goal = "≥ " + numberText(leastTimesFaster, " × faster"),
            .met = ratio >= leastTimesFaster});
}

void writeTime(const std::string& figure, const Series& times, double mostNanoseconds) {
  const double processor = median(times.processor);
  writeRow({.figure = figure,
            .measured = timeText(processor),
            .floor = timeText(median(times.wall)) + " by the wall clock",
            .goal = "≤ " + timeText(mostNanoseconds),
            .met = processor <= mostNanoseconds});
}

void writeGrowth(const std::string& figure, const std::vector<int>& entries,
                 const std::vector<double>& nanoseconds, const std::vector<double>& floorNanoseconds) {
  const double growth = growthOf(entries, nanoseconds);
  const double allowed = std::max(1.0, growthOf(entries, floorNanoseconds)) * kGrowthTolerance;
  writeRow({.figure = figure,
            .measured = joined(nanoseconds),
            .floor = joined(floorNanoseconds),
            .ratio = numberText(growth, " × linear"),
            .goal = "≤ " + numberText(allowed, " × linear"),
            .met = growth <= allowed});
}

}  // namespace tarvik::bench
