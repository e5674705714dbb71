#include "core/record_file.h"

#include <algorithm>
#include <cerrno>
#include <initializer_list>
#include <utility>

#include "core/failure.h"

namespace tarvik::core {
namespace {

constexpr std::uint32_t kAnyWriteBit = 0222;

// A longer file has records that no number reaches.
void refuseTooLong(std::int64_t size, std::size_t recordLength, const std::string& path) {
  if (size / static_cast<std::int64_t>(recordLength) > kHighestRecordNumber)
    throw Failure(FailureKind::FileTooLong).file(path);
}

// What the temporary file of a deletion was found to hold.
struct Leftover {
  bool isThere = false;
  ByteBlock contents = {};

  // What lies behind the records that remain.
  std::span<const std::byte> surplus(std::size_t remaining) const {
    return contents.span().subspan(std::min(remaining, contents.size));
  }
};

Leftover leftoverIn(FileSystem& files, const std::string& temporary, std::size_t recordLength,
                    std::uint32_t owner) {
  const OpenFile file = steps::openTemporaryIfThere(files, temporary);
  if (!file.isOpen()) return {};
  const FileStatus status = steps::statusOf(files, file, temporary);
  if (status.owner != owner && status.size != 0) throw Failure(FailureKind::NotOwnFile).file(temporary);
  refuseTooLong(status.size, recordLength, temporary);
  Leftover leftover{true, ByteBlock::ofSize(static_cast<std::size_t>(status.size))};
  leftover.contents.size = steps::readUpTo(files, file, leftover.contents.span(), 0, temporary);
  return leftover;
}

// The pieces one behind the other.
ByteBlock joined(std::initializer_list<std::span<const std::byte>> pieces) {
  std::size_t size = 0;
  for (const auto piece : pieces) size += piece.size();
  ByteBlock block = ByteBlock::ofSize(size);
  std::byte* end = block.data.get();
  for (const auto piece : pieces) end = std::ranges::copy(piece, end).out;
  return block;
}

}  // namespace

// What was said of a change before it is made is taken back unless it was made.
class Announcement {
 public:
  explicit Announcement(const FileSystem& files) : watcher_(files.watcher()) {}
  Announcement(const Announcement&) = delete;
  Announcement& operator=(const Announcement&) = delete;
  ~Announcement() {
    if (watcher_ != nullptr) watcher_->abandoned();
  }

  bool isHeard() const { return watcher_ != nullptr; }
  bool isKnown(const std::string& path, const FileStatus& status) const {
    return watcher_->knows(path, status);
  }
  void add(const AnnouncedChange& change) {
    if (watcher_ != nullptr) watcher_->announce(change);
  }
  void made(const std::string& path, const FileStatus& status) noexcept {
    if (watcher_ != nullptr) std::exchange(watcher_, nullptr)->made(path, status);
  }

 private:
  ChangeWatcher* watcher_;
};

ByteBlock readRecords(FileSystem& files, const std::string& path, std::size_t recordLength) {
  std::optional<ByteBlock> found = readRecordsIfFolder(files, path, recordLength);
  if (!found) throw Failure(FailureKind::FolderMissing).file(path).systemError(errno);
  return *std::move(found);
}

std::optional<ByteBlock> readRecordsIfFolder(FileSystem& files, const std::string& path,
                                             std::size_t recordLength) {
  const std::optional<OpenFile> opened = steps::openToRead(files, path);
  if (!opened) return std::nullopt;
  const OpenFile& file = *opened;
  if (!file.isOpen()) return ByteBlock();
  const FileStatus status = steps::statusOf(files, file, path);
  const auto count =
      std::min<std::int64_t>(status.size / static_cast<std::int64_t>(recordLength), kHighestRecordNumber);
  ByteBlock block = ByteBlock::ofSize(static_cast<std::size_t>(count) * recordLength);
  block.size = steps::readUpTo(files, file, block.span(), 0, path);
  return block;
}

void createIfMissing(FileSystem& files, const std::string& path) {
  steps::statusOf(files, steps::openOrCreate(files, path), path);
}

void createTemporaryIfMissing(FileSystem& files, const std::string& path) {
  steps::statusOf(files, steps::openOrCreateTemporary(files, path), path);
}

RecordFile::RecordFile(FileSystem& files, std::string path, std::size_t recordLength)
    : files_(files),
      path_(std::move(path)),
      recordLength_(recordLength),
      file_(steps::openLocked(files, path_, status_)) {
  refuseTooLong(status_.size, recordLength_, path_);
  if ((status_.mode & kAnyWriteBit) == 0)
    throw Failure(FailureKind::OpenFailed).file(path_).systemError(EACCES);
}

std::int64_t RecordFile::count() const {
  return status_.size / static_cast<std::int64_t>(recordLength_);
}

ByteBlock RecordFile::read(std::int64_t first, std::int64_t count) const {
  ByteBlock block = ByteBlock::ofSize(static_cast<std::size_t>(count) * recordLength_);
  const auto offset = (first - 1) * static_cast<std::int64_t>(recordLength_);
  block.size = steps::readUpTo(files_, file_, block.span(), offset, path_);
  return block;
}

SeenRecord RecordFile::seen(std::int64_t number) const {
  if (!hasNumber(number)) return {.number = number};
  const ByteBlock block = read(number, 1);
  return {.number = number, .bytes = {block.span().begin(), block.span().end()}};
}

void RecordFile::append(std::span<const std::byte> record) {
  const std::int64_t before = count();
  if (before >= kHighestRecordNumber) throw Failure(FailureKind::FileFull).file(path_).record(before + 1);
  if (record.back() == std::byte{0}) return appendInPlace(record);
  const ByteBlock whole = readWhole();
  const ByteBlock after = joined({whole.span().first(offsetOf(before + 1)), record});
  give(whole.span(), after.span());
}

void RecordFile::replaceAll(std::span<const std::byte> records) {
  const auto after = static_cast<std::int64_t>(records.size() / recordLength_);
  if (after > kHighestRecordNumber) throw Failure(FailureKind::FileFull).file(path_).record(after);
  give(readWhole().span(), records);
}

// The file is read whole only where it is not known already.
void RecordFile::announceAppended(Announcement& announcement, const Piece& piece) const {
  if (!announcement.isHeard()) return;
  if (announcement.isKnown(path_, status_)) return announcement.add({path_, recordLength_, piece, {}});
  announce(announcement, readWhole(), piece);
}

void RecordFile::announce(Announcement& announcement, const ByteBlock& whole, const Piece& piece) const {
  announcement.add({path_, recordLength_, piece, whole.span()});
}

// All but the record's last byte is outside the count. Once that has left for the disk, the file's length
// alone makes it a record, and with it the last byte, 0 like all that a length adds. So whatever a power cut
// leaves of it, no record is there without its bytes.
void RecordFile::appendInPlace(std::span<const std::byte> record) {
  const std::int64_t before = count();
  const auto offset = static_cast<std::int64_t>(offsetOf(before + 1));
  const auto after = static_cast<std::int64_t>(offsetOf(before + 2));
  ByteBlock tail = ByteBlock::ofSize(static_cast<std::size_t>(status_.size - offset));
  tail.size = steps::readUpTo(files_, file_, tail.span(), offset, path_);
  Announcement announcement(files_);
  announceAppended(announcement, {offsetOf(before + 1), tail.span(), record});
  try {
    steps::writeAll(files_, file_, record.first(record.size() - 1), offset, path_);
    steps::writeOut(files_, file_, path_);
    steps::setLength(files_, file_, after, path_);
    steps::syncFile(files_, file_, path_);
    if (before == 0) steps::syncFolderOf(files_, path_);  // the file's name may be as new as its first record
  } catch (...) {
    restoreTail(tail, offset);
    throw;
  }
  confirm(announcement, offsetOf(before + 2));
}

// The old length must reach the disk before the next append: a power cut then could otherwise find the new
// length with that append's bytes half written. What a disk refuses here cannot be helped.
void RecordFile::restoreTail(const ByteBlock& tail, std::int64_t offset) noexcept {
  if (tail.size != 0) files_.write(file_.descriptor(), tail.span(), offset);
  files_.truncate(file_.descriptor(), offset + static_cast<std::int64_t>(tail.size));
  files_.sync(file_.descriptor());
}

ByteBlock RecordFile::readWhole() const {
  ByteBlock block = ByteBlock::ofSize(static_cast<std::size_t>(status_.size));
  block.size = steps::readUpTo(files_, file_, block.span(), 0, path_);
  if (block.size >= offsetOf(count() + 1)) return block;
  throw Failure(FailureKind::ReadFailed).file(path_);
}

std::size_t RecordFile::offsetOf(std::int64_t number) const {
  return static_cast<std::size_t>(number - 1) * recordLength_;
}

bool RecordFile::hasNumber(std::int64_t number) const {
  return number >= 1 && number <= count();
}

// Whether the seen record is there. That there was none and is none is no change either.
bool RecordFile::isThere(const SeenRecord& seen, const ByteBlock& contents) const {
  if (!hasNumber(seen.number) && seen.bytes.empty()) return false;
  if (hasNumber(seen.number) &&
      std::ranges::equal(contents.span().subspan(offsetOf(seen.number), recordLength_), seen.bytes))
    return true;
  throw Failure(FailureKind::RecordChanged).file(path_).record(seen.number);
}

void RecordFile::rewrite(const SeenRecord& seen, std::span<const std::byte> record) {
  ByteBlock whole = readWhole();
  if (!isThere(seen, whole)) throw Failure(FailureKind::RecordMissing).file(path_).record(seen.number);
  const auto place = whole.span().subspan(offsetOf(seen.number), recordLength_);
  Piece piece = differingPiece(place, record);
  piece.at += offsetOf(seen.number);
  Announcement announcement(files_);
  announce(announcement, whole, piece);
  std::ranges::copy(record, place.begin());
  replaceWith(announcement, whole.span());
}

void RecordFile::remove(const SeenRecord& seen, const std::string& temporary) {
  const Leftover leftover = leftoverIn(files_, temporary, recordLength_, status_.owner);
  ByteBlock whole = readWhole();
  const std::size_t removed = isThere(seen, whole) ? recordLength_ : 0;
  const std::size_t end = offsetOf(count() + 1);
  const std::size_t offset = removed != 0 ? offsetOf(seen.number) : end;
  Announcement announcement(files_);
  const ByteBlock after =
      withoutRecord(std::move(whole), offset, removed, leftover.surplus(end - removed), announcement);
  if (leftover.contents.size == 0) {
    replaceWith(announcement, after.span());
    if (leftover.isThere) files_.remove(temporary);  // empty, it is harmless where it stays
    return;
  }
  announcement.add({temporary, recordLength_, {0, leftover.contents.span(), {}}, leftover.contents.span()});
  replaceThrough(temporary, announcement, after.span());
}

// Closes the gap, announced first, in the bytes that were read, as fresh memory costs more than the closing.
ByteBlock RecordFile::withoutRecord(ByteBlock whole, std::size_t offset, std::size_t removed,
                                    std::span<const std::byte> surplus, Announcement& announcement) const {
  const std::size_t end = offsetOf(count() + 1);
  const auto behind = whole.span().first(end).subspan(offset + removed);
  if (!surplus.empty() || whole.size != end) {
    ByteBlock after = joined({whole.span().first(offset), behind, surplus});
    announce(announcement, whole, differingPiece(whole.span(), after.span()));
    return after;
  }
  announce(announcement, whole, {offset, whole.span().subspan(offset, removed), {}});
  std::ranges::copy(behind, whole.span().subspan(offset).begin());
  whole.size -= removed;
  return whole;
}

// A piece at a time, as fresh memory for a whole file costs more than reading it.
bool RecordFile::holds(std::span<const std::byte> contents) const {
  constexpr std::size_t kMost = std::size_t{256} << 10;
  if (static_cast<std::size_t>(status_.size) != contents.size()) return false;
  ByteBlock block = ByteBlock::ofSize(std::min(contents.size(), kMost));
  for (std::size_t at = 0; at < contents.size(); at += block.size) {
    block.size = std::min(contents.size() - at, block.size);
    const auto got = steps::readUpTo(files_, file_, block.span(), static_cast<std::int64_t>(at), path_);
    if (!isEqual(block.span().first(got), contents.subspan(at, block.size))) return false;
  }
  return true;
}

void RecordFile::give(std::span<const std::byte> held, std::span<const std::byte> contents) {
  Announcement announcement(files_);
  if (announcement.isHeard()) announcement.add({path_, recordLength_, differingPiece(held, contents), held});
  replaceWith(announcement, contents);
}

void RecordFile::exchange(std::span<const std::byte> expected, std::span<const std::byte> contents) {
  if (!holds(expected)) throw Failure(FailureKind::FileChanged).file(path_);
  give(expected, contents);
}

void RecordFile::replaceWith(Announcement& announcement, std::span<const std::byte> contents) {
  const std::string target = steps::resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  steps::renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size(), announcement);
  steps::syncFolderOf(files_, target);
}

// The surplus is in the new contents, so the temporary file must go in the same step in which they take the
// file's place: it becomes the new contents first and is then itself renamed. On another file system it
// cannot be, and goes afterwards, so that the next deletion does not find it again.
void RecordFile::replaceThrough(const std::string& temporary, Announcement& announcement,
                                std::span<const std::byte> contents) {
  const std::string target = steps::resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  const bool isNear = steps::renamed(files_, replacement, temporary);
  if (isNear) steps::rename(files_, temporary, target);
  if (!isNear) steps::renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size(), announcement);
  steps::syncFolderOf(files_, target);
  if (!isNear) steps::removeOrEmpty(files_, temporary);
  if (steps::folderOf(temporary) != steps::folderOf(target)) steps::syncFolderOf(files_, temporary);
}

// The new file's lock is taken before it gets the name and kept until the name is on the disk: whoever
// changes it next builds on a file that a power cut cannot take back. Its permission bits are the old file's
// before it gets the name, and nobody else's eyes reach it until then.
OpenFile RecordFile::makeReplacement(const std::string& replacement, std::span<const std::byte> contents) {
  OpenFile file = steps::createPrivate(files_, replacement);
  try {
    steps::lock(files_, file, replacement);
    steps::writeAll(files_, file, contents, 0, replacement);
    steps::giveMode(files_, file, status_.mode, replacement);
    steps::syncFile(files_, file, replacement);
  } catch (...) {
    files_.remove(replacement);
    throw;
  }
  return file;
}

void RecordFile::takeOver(OpenFile file, std::size_t size, Announcement& announcement) {
  file_ = std::move(file);
  isReplaced_ = true;
  confirm(announcement, size);
}

// Who heard of the change is told the status, by which the file is known again; where it cannot be asked, it
// is none that a file has.
void RecordFile::confirm(Announcement& announcement, std::size_t size) noexcept {
  status_.size = static_cast<std::int64_t>(size);
  status_.changed = 0;
  FileStatus now;
  if (announcement.isHeard() && files_.status(file_.descriptor(), now) == 0) status_ = now;
  announcement.made(path_, status_);
}

}  // namespace tarvik::core
