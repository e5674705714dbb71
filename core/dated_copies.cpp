#include "core/dated_copies.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <set>
#include <utility>
#include <vector>

#include "core/file_steps.h"
#include "core/record_file.h"

namespace tarvik::core {
namespace {

constexpr std::string_view kLock = "zár";
constexpr std::uint32_t kOwnerWrites = 0200;  // a set must be able to go again

[[noreturn]] void fail(FailureKind kind, const std::string& path) {
  const int error = errno;
  throw std::move(Failure(kind).file(path).systemError(error));
}

std::string joined(const std::string& folder, std::string_view name) {
  return folder + "/" + std::string(name);
}

bool isThere(FileSystem& files, const std::string& path) {
  FileStatus status;
  return files.statusOf(path, status) == 0;
}

// Files without a byte are as good as missing; one that cannot be asked is not.
bool haveContents(FileSystem& files, std::span<const SetFile> wanted) {
  return std::ranges::any_of(wanted, [&](const SetFile& file) {
    FileStatus status;
    if (files.statusOf(file.place, status) == 0) return status.size > 0;
    return errno != ENOENT && errno != ENOTDIR;
  });
}

void syncNamesIn(FileSystem& files, const std::string& folder) {
  steps::syncFolderOf(files, joined(folder, ""));
}

void makeFolder(FileSystem& files, const std::string& path) {
  if (files.makeFolder(path) != 0) fail(FailureKind::OpenFailed, path);
}

// What a file holds and how it may be used.
struct Source {
  ByteBlock contents;
  std::uint32_t mode = 0;
};

// Nothing of what is missing.
std::optional<Source> sourceOf(FileSystem& files, const SetFile& wanted) {
  const OpenFile file = steps::openIfThere(files, wanted.place);
  if (!file.isOpen()) return std::nullopt;
  const FileStatus status = steps::statusOf(files, file, wanted.place);
  const auto size = static_cast<std::size_t>(status.size);
  if (size / wanted.kind.recordLength > kHighestRecordNumber)
    throw Failure(FailureKind::FileTooLong).file(wanted.place);
  Source source{ByteBlock::ofSize(size), status.mode};
  source.contents.size = steps::readUpTo(files, file, source.contents.span(), 0, wanted.place);
  return source;
}

// As sourceOf; why a file that is there cannot be copied goes to leftOut, once.
std::optional<Source> readableSource(FileSystem& files, const SetFile& wanted,
                                     std::vector<Failure>& leftOut) {
  try {
    return sourceOf(files, wanted);
  } catch (const Failure& failure) {
    const auto isOfIt = [&](const Failure& known) { return known.file() == wanted.place; };
    if (std::ranges::none_of(leftOut, isOfIt)) leftOut.push_back(failure);
    return std::nullopt;
  }
}

void write(FileSystem& files, const std::string& path, const Source& source) {
  const OpenFile file = steps::createPrivate(files, path);
  steps::writeAll(files, file, source.contents.span(), 0, path);
  steps::giveMode(files, file, source.mode | kOwnerWrites, path);
  steps::syncFile(files, file, path);
}

}  // namespace

void DatedCopies::beforeChange() noexcept {
  try {
    const Day today = clock_.today();
    if (tried_ == today) return;
    tried_ = today;
    failure_.reset();
    leftOut_.clear();
    const std::string name = setName(today);
    const std::vector<SetFile> wanted = householdFiles(files_, folders_, leftOut_);
    if (!isSet(files_, joined(setsFolder(folders_), name)) && haveContents(files_, wanted))
      make(makeFolderOfSets(), name, wanted);
  } catch (const Failure& failure) {
    failure_ = failure;
    leftOut_.clear();
  } catch (const std::bad_alloc&) {  // then there is no memory for the change either, which says so
  }
}

std::optional<Failure> DatedCopies::takeFailure() {
  return std::exchange(failure_, std::nullopt);
}

std::vector<Failure> DatedCopies::takeLeftOut() {
  return std::exchange(leftOut_, {});
}

std::string DatedCopies::copyNow(std::span<const SetFile> wanted) {
  const std::string root = makeFolderOfSets();
  const std::string first = setName(clock_.today()) + std::string(kBeforeTakingBack);
  std::string name = first;
  for (int number = 2; isThere(files_, joined(root, name)); ++number)
    name = first + " " + std::to_string(number);
  make(root, name, wanted);
  return joined(root, name);
}

std::string DatedCopies::makeFolderOfSets() {
  std::string root = setsFolder(folders_);
  if (isThere(files_, root)) return root;
  if (files_.makeFolder(root) != 0 && errno != EEXIST) fail(FailureKind::OpenFailed, root);
  steps::syncFolderOf(files_, root);
  return root;
}

void DatedCopies::make(const std::string& root, const std::string& name, std::span<const SetFile> wanted) {
  FileStatus status;
  const OpenFile lock = steps::openLocked(files_, joined(root, kLock), status);
  if (isSet(files_, joined(root, name))) return;  // another program made it meanwhile
  if (isThere(files_, joined(root, name))) {
    errno = EEXIST;
    fail(FailureKind::OpenFailed, joined(root, name));
  }
  discardUnfinished(root);
  makeUnderLock(root, name, wanted);
}

void DatedCopies::makeUnderLock(const std::string& root, const std::string& name,
                                std::span<const SetFile> wanted) {
  const std::string unfinished = joined(root, name) + std::string(kUnfinishedMark);
  makeFolder(files_, unfinished);
  try {
    if (!fill(unfinished, wanted)) return removeSet(files_, unfinished);
    steps::rename(files_, unfinished, joined(root, name));
    syncNamesIn(files_, root);
  } catch (...) {
    discardUnfinished(root);
    throw;
  }
  letOldOnesGo(root);
}

// What a run that was cut short left; whatever else has such a name stays.
void DatedCopies::discardUnfinished(const std::string& root) {
  std::vector<std::string> names;
  files_.list(root, names);
  for (const std::string& name : names) {
    if (!name.ends_with(kUnfinishedMark) || !dayOfSet(name.substr(0, name.size() - kUnfinishedMark.size())))
      continue;
    try {
      if (isSetAlone(files_, joined(root, name))) removeSet(files_, joined(root, name));
    } catch (const Failure&) {  // it is tried again with the next set
    }
  }
}

// False where there was nothing to copy.
bool DatedCopies::fill(const std::string& unfinished, std::span<const SetFile> wanted) {
  std::set<std::string> parts;
  bool hasFile = false;
  for (const SetFile& file : wanted) {
    const std::optional<Source> source = readableSource(files_, file, leftOut_);
    if (!source) continue;
    const std::string path = joined(unfinished, file.inSet);
    const std::string folder = steps::folderOf(path);
    if (folder != unfinished && parts.insert(folder).second) makeFolder(files_, folder);
    write(files_, path, *source);
    hasFile = true;
  }
  for (const std::string& part : parts) syncNamesIn(files_, part);
  if (hasFile) syncNamesIn(files_, unfinished);
  return hasFile;
}

void DatedCopies::letOldOnesGo(const std::string& root) {
  std::vector<std::string> names;
  if (files_.list(root, names) != 0) return;
  std::set<Day> days;
  for (const std::string& name : names)
    if (const auto day = dayOfSet(name)) days.insert(*day);
  std::set<Day> kept = keptDays(days);
  kept.insert(clock_.today());
  for (const std::string& name : names) {
    const auto day = dayOfSet(name);
    if (day && !kept.contains(*day)) letGo(root, name);
  }
}

// It loses its name first, so that no half of it ever has one. What cannot go stays until the next time.
void DatedCopies::letGo(const std::string& root, const std::string& name) {
  const std::string path = joined(root, name);
  const std::string unfinished = path + std::string(kUnfinishedMark);
  try {
    if (!isSetAlone(files_, path)) return;
    steps::rename(files_, path, unfinished);
    syncNamesIn(files_, root);
    removeSet(files_, unfinished);
  } catch (const Failure&) {
  }
}

}  // namespace tarvik::core
