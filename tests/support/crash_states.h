#pragma once

#include <cstddef>
#include <functional>
#include <random>
#include <vector>

#include "tests/support/memory_file_system.h"

namespace tarvik::test {

/// The disks that a power cut can leave behind.
///
/// Whatever was not synced may be on the disk or not, each step by itself: every sector of every write,
/// every length, every name that came or went. Only two things are sure: what a sync covered is there, and
/// nothing that followed a write-out is there without the bytes that it put ahead. A rename is one step, and
/// covered once both of its folders are synced.
class CrashStates {
 public:
  /// Up to this many unsynced steps, all their subsets are visited; of more, as many subsets drawn at random,
  /// beside those of which one step is missing and those that have one step alone.
  static constexpr std::size_t kAllSubsetsUpTo = 12;

  /// The disk before the recording, and the recording.
  CrashStates(const MemoryFileSystem& before, const std::vector<DiskStep>& steps, unsigned seed);

  /// Visits each disk that a power cut after so many steps can leave; returns how many there were.
  std::size_t visit(std::size_t stepsDone, const std::function<void(MemoryFileSystem&)>& look);

 private:
  using Choice = std::vector<bool>;

  bool isSettled(std::size_t step, std::size_t stepsDone) const;
  bool keepsOrder(const Choice& kept, std::size_t stepsDone) const;
  std::vector<Choice> choices(const std::vector<std::size_t>& open, std::size_t stepsDone);

  const MemoryFileSystem& before_;
  const std::vector<DiskStep>& steps_;
  std::mt19937 random_;
};

}  // namespace tarvik::test
