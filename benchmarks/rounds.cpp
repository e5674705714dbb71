#include "benchmarks/rounds.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>

namespace tarvik::bench {
namespace {

constexpr double kSecondsASeries = 0.02;

// Keeps the times instead of printing them.
class Keeper final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      Series& series = times[run.run_name.function_name];
      series.wall.push_back(run.GetAdjustedRealTime());
      series.processor.push_back(run.GetAdjustedCPUTime());
    }
  }

  Times times;
};

void enlist(const Measured& thing) {
  auto* entry = benchmark::RegisterBenchmark(thing.name.c_str(), [thing](benchmark::State& state) {
    thing.prepare();
    for (auto _ : state) thing.act();
  });
  entry->UseRealTime();
  if (thing.acts > 0)
    entry->Iterations(thing.acts);
  else
    entry->MinTime(kSecondsASeries);
}

double clockNanoseconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

}  // namespace

Times takeTimes(const std::vector<Measured>& things, int rounds) {
  benchmark::ClearRegisteredBenchmarks();
  for (const Measured& thing : things) enlist(thing);
  Keeper keeper;
  for (int round = 0; round < rounds; ++round) benchmark::RunSpecifiedBenchmarks(&keeper);
  benchmark::ClearRegisteredBenchmarks();
  return keeper.times;
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

double medianRatio(const std::vector<double>& a, const std::vector<double>& b) {
  std::vector<double> ratios;
  for (std::size_t round = 0; round < std::min(a.size(), b.size()); ++round)
    ratios.push_back(a[round] / b[round]);
  return median(std::move(ratios));
}

Moment now() {
  return {clockNanoseconds(CLOCK_MONOTONIC), clockNanoseconds(CLOCK_THREAD_CPUTIME_ID)};
}

Moment since(const Moment& start) {
  const Moment end = now();
  return {end.wall - start.wall, end.processor - start.processor};
}

}  // namespace tarvik::bench
