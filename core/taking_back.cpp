#include "core/taking_back.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "core/file_steps.h"
#include "core/record_codec.h"
#include "core/record_file.h"

namespace tarvik::core {
namespace {

std::string pathIn(const DatedSet& set, const SetFile& file) {
  return set.path + "/" + file.inSet;
}

// The bytes of a file; none where it is missing.
ByteBlock contentsOf(FileSystem& files, const std::string& path, std::size_t recordLength) {
  const OpenFile file = steps::openIfThere(files, path);
  if (!file.isOpen()) return {};
  const auto size = static_cast<std::size_t>(steps::statusOf(files, file, path).size);
  if (size / recordLength > kHighestRecordNumber) throw Failure(FailureKind::FileTooLong).file(path);
  ByteBlock block = ByteBlock::ofSize(size);
  block.size = steps::readUpTo(files, file, block.span(), 0, path);
  return block;
}

std::optional<Day> lastDayOf(const DataFileKind& kind, std::span<const std::byte> records) {
  std::optional<Day> last;
  if (!kind.day) return last;
  for (std::size_t at = 0; at + kind.recordLength <= records.size(); at += kind.recordLength) {
    const auto day = dayFromStored(readField<double>(records, at + *kind.day));
    if (day && (!last || *day > *last)) last = day;
  }
  return last;
}

int entriesIn(const ByteBlock& contents, const DataFileKind& kind) {
  return static_cast<int>(contents.size / kind.recordLength);
}

std::optional<ByteBlock> presentOf(FileSystem& files, const SetFile& file) {
  try {
    return contentsOf(files, file.place, file.kind.recordLength);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

SetComparison comparedWithNow(FileSystem& files, const DatedSet& set, const SetFile& file) {
  SetComparison result{.file = file};
  const std::optional<ByteBlock> now = presentOf(files, file);
  if (now) result.entriesNow = entriesIn(*now, file.kind);
  try {
    const ByteBlock kept = contentsOf(files, pathIn(set, file), file.kind.recordLength);
    result.entries = entriesIn(kept, file.kind);
    result.lastDay = lastDayOf(file.kind, kept.span());
    result.isSame = now && std::ranges::equal(now->span(), kept.span());
    if (kept.size % file.kind.recordLength != 0 && !result.isSame) result.state = SetFileState::Damaged;
  } catch (const Failure&) {
    result.state = SetFileState::Unreadable;
  }
  return result;
}

bool isEmptyOnBothSides(const SetComparison& line) {
  return line.isSame && line.entries == 0;
}

// What a file is given, and what it must hold until then.
struct Exchange {
  SetFile file;
  ByteBlock expected;
  ByteBlock contents;
};

void makeVehicleFolder(FileSystem& files, const DataFolders& folders, const SetFile& file) {
  if (file.plate.empty()) return;
  if (files.makeFolder(folders.vehicleFolder(file.plate)) == 0) files.syncFolder(folders.program);
}

// The copy of now has every file that is there: what it does not have is missing.
std::vector<Exchange> exchangesOf(FileSystem& files, const DatedSet& set, std::span<const SetFile> wanted,
                                  const DatedSet& now, std::span<const SetFile> present) {
  std::vector<Exchange> exchanges;
  for (const SetFile& file : wanted) {
    const auto known = std::ranges::find(present, file.place, &SetFile::place);
    exchanges.push_back({file, contentsOf(files, pathIn(now, *known), file.kind.recordLength),
                         recordsOfSet(files, set, file)});
  }
  return exchanges;
}

// Nothing is tried after a failure. A save that the system did not confirm is there.
void attempt(FileSystem& files, const DataFolders& folders, const Exchange& exchange, TakenBack& result) {
  if (result.failure) return result.left.push_back(exchange.file);
  std::optional<RecordFile> file;
  try {
    makeVehicleFolder(files, folders, exchange.file);
    file.emplace(files, exchange.file.place, exchange.file.kind.recordLength);
    file->exchange(exchange.expected.span(), exchange.contents.span());
  } catch (const Failure& failure) {
    const bool isThere = file && file->isReplaced();
    if (result.done.empty() && !isThere) throw;
    result.failure = failure;
    if (!isThere) return result.left.push_back(exchange.file);
  }
  result.done.push_back(exchange.file);
}

}  // namespace

std::vector<SetComparison> compared(FileSystem& files, const DatedSet& set) {
  std::vector<SetComparison> lines;
  for (const SetFile& file : set.files) lines.push_back(comparedWithNow(files, set, file));
  std::erase_if(lines, isEmptyOnBothSides);
  return lines;
}

ByteBlock recordsOfSet(FileSystem& files, const DatedSet& set, const SetFile& file) {
  ByteBlock contents = contentsOf(files, pathIn(set, file), file.kind.recordLength);
  contents.size -= contents.size % file.kind.recordLength;
  return contents;
}

TakenBack takeBack(FileSystem& files, const DataFolders& folders, DatedCopies& copies, const DatedSet& set,
                   std::span<const SetFile> wanted) {
  std::vector<Failure> unread;  // what is wanted is copied all the same, and the rest stays as it is
  std::vector<SetFile> present = householdFiles(files, folders, unread);
  for (const SetFile& file : wanted)
    if (std::ranges::find(present, file.place, &SetFile::place) == present.end()) present.push_back(file);
  const std::string copy = copies.copyNow(present);
  TakenBack result{.copyOfNow = copy.substr(copy.rfind('/') + 1)};
  for (const Exchange& exchange :
       exchangesOf(files, set, wanted, {.name = result.copyOfNow, .path = copy}, present))
    attempt(files, folders, exchange, result);
  return result;
}

}  // namespace tarvik::core
