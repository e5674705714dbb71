#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/dated_copies.h"
#include "core/dated_sets.h"
#include "core/day.h"
#include "core/failure.h"
#include "core/record_list.h"

namespace tarvik::core {

/// How a file of a set can be used.
enum class SetFileState {
  Whole,
  Damaged,     ///< a part of a record lies behind the last whole one; it would not be taken
  Unreadable,  ///< it cannot be taken
};

/// A file of a set beside the one that the program has now.
struct SetComparison {
  SetFile file;
  SetFileState state = SetFileState::Whole;
  bool isSame = false;
  int entries = 0;                     ///< in the set
  std::optional<int> entriesNow = {};  ///< nothing where the present file cannot be read
  std::optional<Day> lastDay = {};     ///< the latest day in the set's file, where its records have one
};

/// Compares a set with what is there now. Files that hold nothing on both sides are left out.
std::vector<SetComparison> compared(FileSystem& files, const DatedSet& set);

/// The whole records of a file of a set. Throws Failure(OpenFailed), NotAFile, FileTooLong or ReadFailed.
ByteBlock recordsOfSet(FileSystem& files, const DatedSet& set, const SetFile& file);

/// What became of a taking back.
struct TakenBack {
  std::string copyOfNow;             ///< the name of the set that was made of what was there before
  std::vector<SetFile> done{};       ///< files that are as in the set now
  std::vector<SetFile> left{};       ///< those that are not, after a failure
  std::optional<Failure> failure{};  ///< what ended it half-way, or left it unconfirmed
};

/// Gives files of a set back to the program, after a set of what is there now was made. A vehicle's folder
/// that is missing is made. Each file is replaced only where it is still what that set has. Throws what
/// keeps all of it from being done: the copy of now that cannot be made, a file of the set that cannot be
/// read, the first file that cannot be replaced; nothing but the copy was made then.
TakenBack takeBack(FileSystem& files, const DataFolders& folders, DatedCopies& copies, const DatedSet& set,
                   std::span<const SetFile> wanted);

}  // namespace tarvik::core
