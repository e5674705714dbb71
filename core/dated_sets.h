#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_files.h"
#include "core/day.h"
#include "core/failure.h"

namespace tarvik::core {

// A set is a folder under "Mentések" in the program folder with a copy of each data file, laid out as the
// program folder is; what lies in a current folder of its own is in a part of the set.

/// The folder of all sets.
std::string setsFolder(const DataFolders& folders);

/// The part of a set that holds the files of the current folder, where that is another than the program's. No
/// plate of the vehicle list is as long.
inline constexpr std::string_view kCurrentPart = "Indítási mappa";

/// What a set taken before a taking back has behind its day.
inline constexpr std::string_view kBeforeTakingBack = " visszaállítás előtt";

/// What a set has behind its name while it grows and while it goes.
inline constexpr std::string_view kUnfinishedMark = ".tmp";

/// The name of a day's set: "2026-03-21".
std::string setName(Day day);

/// The day of a set by its name, with or without a mark behind the day. Nothing for any other name, such as
/// that of a set that a person copied there.
std::optional<Day> dayOfSet(std::string_view name);

/// Which of the days with sets keep them: the last 14, of the older ones the first of each month for the last
/// 24 months that have one, of those before the first of each year.
std::set<Day> keptDays(std::set<Day> days);

/// A data file and its place in a set.
struct SetFile {
  DataFileKind kind;
  std::string plate;  ///< of a logbook; empty otherwise
  std::string inSet;  ///< its path in the set
  std::string place;  ///< the full path at which the program has it
};

/// Every file that the household may have, of all listed vehicles; a list that cannot be read names none, and
/// why goes to unread.
std::vector<SetFile> householdFiles(FileSystem& files, const DataFolders& folders,
                                    std::vector<Failure>& unread);

/// A set that is there.
struct DatedSet {
  std::string name;
  std::string path;
  std::optional<Day> day = {};
  std::vector<SetFile> files = {};  ///< those that it has
};

/// All sets that hold a data file, the newest day first, those of no day behind them; none where there is no
/// such folder. Throws Failure(OpenFailed) when it cannot be listed.
std::vector<DatedSet> datedSets(FileSystem& files, const DataFolders& folders);

/// Whether a folder is there that holds a data file.
bool isSet(FileSystem& files, const std::string& path);

/// Whether everything in a folder is what sets are made of, so that it may be removed with all that is in it.
bool isSetAlone(FileSystem& files, const std::string& path);

/// Removes a folder of which isSetAlone is true. Throws Failure(ReplaceFailed).
void removeSet(FileSystem& files, const std::string& path);

}  // namespace tarvik::core
