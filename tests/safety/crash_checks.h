#pragma once

#include <functional>
#include <string>

#include "tests/support/crash_states.h"

namespace tarvik::test {

/// A change to one file, as the crash check sees it.
struct CheckedChange {
  std::string file{};
  std::size_t recordLength = 1;
  std::function<void(core::FileSystem&)> run{};
  /// What must hold besides of a disk on which the change is there or not, while it is made and when it is
  /// over.
  std::function<bool(MemoryFileSystem&, bool isNew, bool isOver)> stays = [](MemoryFileSystem&, bool, bool) {
    return true;
  };
};

/// What the power cuts at every point of a change left behind.
struct CrashResult {
  std::size_t disks = 0;
  std::size_t bad = 0;  ///< neither old nor new, or old after the change had returned
};

/// A file's records without the part of one that may lie behind them.
inline std::string wholeRecords(const std::string& contents, std::size_t recordLength) {
  return contents.substr(0, contents.size() / recordLength * recordLength);
}

/// Cuts the power at every point of a change, in every way that a disk may take it.
inline CrashResult crashEverywhere(const MemoryFileSystem& before, const CheckedChange& change,
                                   unsigned seed) {
  const std::string old = before.contents(change.file);
  MemoryFileSystem disk = before;
  disk.startRecording();
  change.run(disk);
  const std::string changed = disk.contents(change.file);
  // What grows may have a part of the new record behind the old ones; anything else may not.
  const std::size_t length = changed.size() > old.size() ? change.recordLength : 1;
  const bool isAsGoodAsMissing = !before.has(change.file) && changed.empty();
  const std::vector<DiskStep> steps = disk.steps();

  CrashResult result;
  CrashStates states(before, steps, seed);
  for (std::size_t done = 0; done <= steps.size(); ++done)
    result.disks += states.visit(done, [&](MemoryFileSystem& left) {
      const std::string& now = left.contents(change.file);
      const bool isNew = (left.has(change.file) || isAsGoodAsMissing) && now == changed;
      const bool isThere = left.has(change.file) || !before.has(change.file);
      const bool isOld = isThere && (wholeRecords(now, length) == wholeRecords(old, length));
      const bool isGood = isNew || (isOld && done < steps.size());
      if (!isGood || !change.stays(left, isNew, done == steps.size())) ++result.bad;
    });
  return result;
}

}  // namespace tarvik::test
