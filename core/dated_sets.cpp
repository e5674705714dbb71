#include "core/dated_sets.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <map>
#include <utility>

#include "core/failure.h"
#include "core/file_steps.h"

namespace tarvik::core {
namespace {

constexpr std::size_t kDays = 14;
constexpr std::size_t kMonths = 24;
constexpr std::size_t kDayCharacters = 10;

std::string joined(const std::string& folder, std::string_view name) {
  return folder + "/" + std::string(name);
}

bool isThere(FileSystem& files, const std::string& path, FileKind kind) {
  FileStatus status;
  return files.statusOf(path, status) == 0 && status.kind == kind;
}

std::vector<std::string> namesIn(FileSystem& files, const std::string& path) {
  std::vector<std::string> names;
  if (files.list(path, names) != 0)
    throw std::move(Failure(FailureKind::OpenFailed).file(path).systemError(errno));
  std::ranges::sort(names);
  return names;
}

std::string padded(int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

// As many digits as there are characters, and nothing else.
std::optional<int> numberIn(std::string_view digits) {
  int number = 0;
  if (!std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; })) return std::nullopt;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

bool isSharedFile(std::string_view name) {
  return std::ranges::find(kSharedFiles, name, &DataFileKind::name) != kSharedFiles.end();
}

// Where the program has a file of a set without a part of its own for the current folder: there, as it is
// read.
std::string placeOf(const DataFileKind& kind, const DataFolders& folders) {
  return kind.isOfProgramFolder ? folders.inProgram(kind.name) : folders.inCurrent(kind.name);
}

std::vector<std::string> readablePlates(FileSystem& files, const std::string& folder,
                                        std::vector<Failure>& unread) {
  try {
    return platesIn(files, folder);
  } catch (const Failure& failure) {
    unread.push_back(failure);
    return {};
  }
}

void addShared(FileSystem& files, const DataFolders& folders, DatedSet& set) {
  const bool hasPart = isThere(files, joined(set.path, kCurrentPart), FileKind::Folder);
  const auto add = [&](const DataFileKind& kind, const std::string& inSet, std::string place) {
    FileStatus status;
    if (files.statusOf(joined(set.path, inSet), status) == 0 && status.kind != FileKind::Folder)
      set.files.push_back({kind, "", inSet, std::move(place)});
  };
  for (const DataFileKind& kind : kSharedFiles) {
    const std::string name(kind.name);
    if (!hasPart) add(kind, name, placeOf(kind, folders));
    if (hasPart) add(kind, joined(std::string(kCurrentPart), name), folders.inCurrent(name));
    if (hasPart) add(kind, name, folders.inProgram(name));
  }
}

void addLogbooks(FileSystem& files, const DataFolders& folders, DatedSet& set) {
  for (const std::string& name : namesIn(files, set.path)) {
    const std::string inSet = joined(name, kLogbookFile.name);
    FileStatus status;
    if (name == kCurrentPart || !isUsablePlate(name)) continue;
    if (files.statusOf(joined(set.path, inSet), status) == 0 && status.kind != FileKind::Folder)
      set.files.push_back({kLogbookFile, name, inSet, folders.logbook(name)});
  }
}

bool holdsOnly(FileSystem& files, const std::string& folder, bool (*isKnown)(std::string_view)) {
  return std::ranges::all_of(namesIn(files, folder), [&](const std::string& name) {
    return isKnown(name) && isThere(files, joined(folder, name), FileKind::Regular);
  });
}

bool isLogbookName(std::string_view name) {
  return name == kLogbookFile.name;
}

bool isPartOfSet(FileSystem& files, const std::string& folder, const std::string& name) {
  const std::string path = joined(folder, name);
  if (!isThere(files, path, FileKind::Folder))
    return isSharedFile(name) && isThere(files, path, FileKind::Regular);
  return holdsOnly(files, path, name == kCurrentPart ? &isSharedFile : &isLogbookName);
}

void removeAll(FileSystem& files, const std::string& folder) {
  for (const std::string& name : namesIn(files, folder)) {
    const std::string path = joined(folder, name);
    if (isThere(files, path, FileKind::Folder))
      removeAll(files, path);
    else
      files.remove(path);
  }
  if (files.removeFolder(folder) != 0)
    throw std::move(Failure(FailureKind::ReplaceFailed).file(folder).systemError(errno));
}

}  // namespace

std::string setsFolder(const DataFolders& folders) {
  return folders.inProgram("Mentések");
}

std::string setName(Day day) {
  const CalendarDate date = calendarDate(day);
  return padded(date.year, 4) + "-" + padded(date.month, 2) + "-" + padded(date.day, 2);
}

std::optional<Day> dayOfSet(std::string_view name) {
  if (name.size() < kDayCharacters || name[4] != '-' || name[7] != '-') return std::nullopt;
  const std::string_view mark = name.substr(kDayCharacters);
  if (!mark.empty() && !mark.starts_with(kBeforeTakingBack)) return std::nullopt;
  if (mark.ends_with(kUnfinishedMark)) return std::nullopt;
  const auto year = numberIn(name.substr(0, 4));
  const auto month = numberIn(name.substr(5, 2));
  const auto day = numberIn(name.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  return existingDay({*year, *month, *day});
}

std::set<Day> keptDays(std::set<Day> days) {
  std::set<Day> kept;
  while (!days.empty() && kept.size() < kDays) kept.insert(days.extract(std::prev(days.end())));
  std::map<std::pair<int, int>, Day> months;  // their first days; a month that is there keeps its own
  std::map<int, Day> years;
  for (const Day day : days) months.try_emplace({calendarDate(day).year, calendarDate(day).month}, day);
  while (months.size() > kMonths) {
    years.try_emplace(months.begin()->first.first, months.begin()->second);
    months.erase(months.begin());
  }
  for (const auto& [month, day] : months) kept.insert(day);
  for (const auto& [year, day] : years) kept.insert(day);
  return kept;
}

std::vector<SetFile> householdFiles(FileSystem& files, const DataFolders& folders,
                                    std::vector<Failure>& unread) {
  std::vector<SetFile> all;
  std::vector<std::string> plates = readablePlates(files, folders.program, unread);
  const bool isOne = isOneFolder(files, folders);
  for (const DataFileKind& kind : kSharedFiles)
    all.push_back({kind, "", std::string(kind.name), folders.inProgram(kind.name)});
  if (!isOne) {
    for (const DataFileKind& kind : kSharedFiles)
      all.push_back({kind, "", joined(std::string(kCurrentPart), kind.name), folders.inCurrent(kind.name)});
    for (std::string& plate : readablePlates(files, folders.current, unread))
      if (std::ranges::find(plates, plate) == plates.end()) plates.push_back(std::move(plate));
  }
  for (const std::string& plate : plates)
    all.push_back({kLogbookFile, plate, joined(plate, kLogbookFile.name), folders.logbook(plate)});
  return all;
}

std::vector<DatedSet> datedSets(FileSystem& files, const DataFolders& folders) {
  std::vector<DatedSet> sets;
  const std::string root = setsFolder(folders);
  if (!isThere(files, root, FileKind::Folder)) return sets;
  for (const std::string& name : namesIn(files, root)) {
    DatedSet set{.name = name, .path = joined(root, name), .day = dayOfSet(name)};
    if (name.ends_with(kUnfinishedMark) || !isThere(files, set.path, FileKind::Folder)) continue;
    addLogbooks(files, folders, set);
    addShared(files, folders, set);
    if (!set.files.empty()) sets.push_back(std::move(set));
  }
  std::ranges::stable_sort(sets, [](const DatedSet& one, const DatedSet& other) {
    return one.day != other.day ? one.day > other.day : one.name > other.name;
  });
  return sets;
}

bool isSet(FileSystem& files, const std::string& path) {
  std::vector<std::string> names;
  if (files.list(path, names) != 0) return false;
  return std::ranges::any_of(names, [&](const std::string& name) {
    return isSharedFile(name) ||
           isThere(files, joined(joined(path, name), kLogbookFile.name), FileKind::Regular);
  });
}

bool isSetAlone(FileSystem& files, const std::string& path) {
  return isThere(files, path, FileKind::Folder) &&
         std::ranges::all_of(namesIn(files, path),
                             [&](const std::string& name) { return isPartOfSet(files, path, name); });
}

void removeSet(FileSystem& files, const std::string& path) {
  removeAll(files, path);
}

}  // namespace tarvik::core
