#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/clock.h"
#include "core/data_folders.h"
#include "core/dated_sets.h"
#include "core/failure.h"
#include "core/file_system.h"

namespace tarvik::core {

/// Copies all data files into a set of the day before that day's first change, and lets old sets go.
///
/// A set grows under another name and gets its own in one step when all of it is on the disk, so that what
/// has a day's name is whole. Two programs take turns at a lock beside the sets. Files that are missing are
/// not in it, nor those that cannot be read or are no data files, which it tells; where no file holds
/// anything yet, no set is made.
class DatedCopies {
 public:
  DatedCopies(FileSystem& files, const DataFolders& folders, const Clock& clock)
      : files_(files), folders_(folders), clock_(clock) {}

  /// Makes today's set unless there is one. It never fails: a copy that cannot be made keeps nobody from the
  /// change. It is tried once a day.
  void beforeChange() noexcept;

  /// Why today's set could not be made; nothing where it was, and once it was asked.
  std::optional<Failure> takeFailure();

  /// Why files that are there are not in today's set, each with its path; none once it was asked. Without a
  /// vehicle list the logbooks of its vehicles are not in it either.
  std::vector<Failure> takeLeftOut();

  /// Makes a set of these files as they are now, with the mark of a taking back; returns its path. Throws
  /// Failure(OpenFailed, WriteFailed, SyncFailed, ReplaceFailed or FileBusy).
  std::string copyNow(std::span<const SetFile> wanted);

 private:
  std::string makeFolderOfSets();
  void make(const std::string& root, const std::string& name, std::span<const SetFile> wanted);
  void makeUnderLock(const std::string& root, const std::string& name, std::span<const SetFile> wanted);
  void discardUnfinished(const std::string& root);
  bool fill(const std::string& unfinished, std::span<const SetFile> wanted);
  void letOldOnesGo(const std::string& root);
  void letGo(const std::string& root, const std::string& name);

  FileSystem& files_;
  const DataFolders& folders_;
  const Clock& clock_;
  std::optional<Day> tried_;
  std::optional<Failure> failure_;
  std::vector<Failure> leftOut_;
};

}  // namespace tarvik::core
