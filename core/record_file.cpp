#include "core/record_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

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
  std::int64_t size = -1;  // bytes; -1 when there is no such file
  ByteBlock surplus;       // what lies behind the records that remain
};

Leftover leftoverIn(FileSystem& files, const std::string& temporary, std::int64_t remaining,
                    std::size_t recordLength) {
  const OpenFile file = steps::openIfThere(files, temporary);
  if (!file.isOpen()) return {};
  const FileStatus status = steps::statusOf(files, file, temporary);
  refuseTooLong(status.size, recordLength, temporary);
  const std::int64_t behind = std::max<std::int64_t>(status.size - remaining, 0);
  Leftover leftover{status.size, ByteBlock::ofSize(static_cast<std::size_t>(behind))};
  leftover.surplus.size = steps::readUpTo(files, file, leftover.surplus.span(), remaining, temporary);
  return leftover;
}

}  // namespace

ByteBlock readRecords(FileSystem& files, const std::string& path, std::size_t recordLength) {
  const OpenFile file = steps::openToRead(files, path);
  if (!file.isOpen()) return {};
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
  ByteBlock contents = readWhole(recordLength_);
  std::ranges::copy(record, contents.data.get() + offsetOf(before + 1));
  contents.size = offsetOf(before + 2);
  replaceWith(contents.span());
}

void RecordFile::appendAll(std::span<const std::byte> records) {
  const std::int64_t before = count();
  const std::int64_t after = before + static_cast<std::int64_t>(records.size() / recordLength_);
  if (after > kHighestRecordNumber) throw Failure(FailureKind::FileFull).file(path_).record(after);
  ByteBlock contents = readWhole(records.size());
  std::ranges::copy(records, contents.data.get() + offsetOf(before + 1));
  contents.size = offsetOf(after + 1);
  replaceWith(contents.span());
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
  status_.size = after;
}

// The old length must reach the disk before the next append: a power cut then could otherwise find the new
// length with that append's bytes half written. What a disk refuses here cannot be helped.
void RecordFile::restoreTail(const ByteBlock& tail, std::int64_t offset) noexcept {
  if (tail.size != 0) files_.write(file_.descriptor(), tail.span(), offset);
  files_.truncate(file_.descriptor(), offset + static_cast<std::int64_t>(tail.size));
  files_.sync(file_.descriptor());
}

// The whole file, with that many bytes of room behind it.
ByteBlock RecordFile::readWhole(std::size_t room) const {
  const auto size = static_cast<std::size_t>(status_.size);
  ByteBlock block = ByteBlock::ofSize(size + room);
  block.size = steps::readUpTo(files_, file_, block.span().first(size), 0, path_);
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
  ByteBlock contents = readWhole(0);
  if (!isThere(seen, contents)) throw Failure(FailureKind::RecordMissing).file(path_).record(seen.number);
  std::ranges::copy(record, contents.data.get() + offsetOf(seen.number));
  replaceWith(contents.span());
}

void RecordFile::remove(const SeenRecord& seen, const std::string& temporary) {
  const std::size_t kept = offsetOf(hasNumber(seen.number) ? count() : count() + 1);
  const Leftover leftover = leftoverIn(files_, temporary, static_cast<std::int64_t>(kept), recordLength_);

  ByteBlock contents = readWhole(leftover.surplus.size);
  if (isThere(seen, contents)) {
    std::byte* const record = contents.data.get() + offsetOf(seen.number);
    std::memmove(record, record + recordLength_, kept - offsetOf(seen.number));
  }
  std::ranges::copy(leftover.surplus.span(), contents.data.get() + kept);
  contents.size = kept + leftover.surplus.size;
  if (leftover.size > 0) return replaceThrough(temporary, contents.span());
  replaceWith(contents.span());
  if (leftover.size == 0) files_.remove(temporary);  // empty, it is harmless where it stays
}

void RecordFile::replaceWith(std::span<const std::byte> contents) {
  const std::string target = steps::resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  steps::renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size());
  steps::syncFolderOf(files_, target);
}

// The surplus is in the new contents, so the temporary file must go in the same step in which they take the
// file's place: it becomes the new contents first and is then itself renamed. On another file system it
// cannot be, and goes afterwards, so that the next deletion does not find it again.
void RecordFile::replaceThrough(const std::string& temporary, std::span<const std::byte> contents) {
  const std::string target = steps::resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  const bool isNear = steps::renamed(files_, replacement, temporary);
  if (isNear) steps::rename(files_, temporary, target);
  if (!isNear) steps::renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size());
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

void RecordFile::takeOver(OpenFile file, std::size_t size) {
  file_ = std::move(file);
  status_.size = static_cast<std::int64_t>(size);
}

}  // namespace tarvik::core
