#include "core/record_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/failure.h"

namespace tarvik::core {
namespace {

constexpr int kLockTries = 80;
constexpr int kLockPauseMilliseconds = 25;  // 80 × 25 ms: two seconds
constexpr int kInterruptedTries = 100;
constexpr std::uint32_t kAnyWriteBit = 0222;

[[noreturn]] void fail(FailureKind kind, const std::string& path) {
  const int error = errno;
  throw Failure(kind).file(path).systemError(error);
}

// Runs a system call again while a signal interrupts it, within reason: it must not hang.
template <typename Call>
auto uninterrupted(Call call) {
  auto result = call();
  for (int i = 0; result < 0 && errno == EINTR && i < kInterruptedTries; ++i) result = call();
  return result;
}

int openFile(FileSystem& files, const std::string& path, OpenMode mode) {
  return uninterrupted([&] { return files.open(path, mode); });
}

bool folderIsMissing(int error) {
  return error == ENOENT || error == ENOTDIR;
}

// Opens a file, creating it where it is missing.
OpenFile openOrCreate(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::Create));
  if (file.isOpen()) return file;
  fail(folderIsMissing(errno) ? FailureKind::FolderMissing : FailureKind::OpenFailed, path);
}

FileStatus statusOf(FileSystem& files, const OpenFile& file, const std::string& path) {
  FileStatus status;
  if (uninterrupted([&] { return files.status(file.descriptor(), status); }) != 0)
    fail(FailureKind::OpenFailed, path);
  return status;
}

// Whether the path still names the open file: another program may have replaced it meanwhile.
bool isStillNamed(FileSystem& files, const std::string& path, const FileStatus& opened) {
  FileStatus named;
  if (uninterrupted([&] { return files.statusOf(path, named); }) != 0) {
    if (errno == ENOENT) return false;
    fail(FailureKind::OpenFailed, path);
  }
  return named.device == opened.device && named.inode == opened.inode;
}

bool tryLock(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (uninterrupted([&] { return files.tryLock(file.descriptor()); }) == 0) return true;
  if (errno != EWOULDBLOCK) fail(FailureKind::OpenFailed, path);
  return false;
}

// Opens the file that the path names at the moment when its lock is ours. The lock belongs to the file
// and not to its name, so a file that was replaced while we waited is opened anew.
OpenFile openLocked(FileSystem& files, const std::string& path, FileStatus& status) {
  for (int i = 0; i < kLockTries; ++i) {
    OpenFile file = openOrCreate(files, path);
    if (tryLock(files, file, path)) {
      status = statusOf(files, file, path);
      if (isStillNamed(files, path, status)) return file;
    } else {
      files.pause(kLockPauseMilliseconds);
    }
  }
  throw Failure(FailureKind::FileBusy).file(path);
}

// Fills the buffer from an offset as far as the file goes; returns how much that was.
std::size_t readUpTo(FileSystem& files, const OpenFile& file, std::span<std::byte> buffer,
                     std::int64_t offset, const std::string& path) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const auto got = uninterrupted([&] {
      return files.read(file.descriptor(), buffer.subspan(done), offset + static_cast<std::int64_t>(done));
    });
    if (got < 0) fail(FailureKind::ReadFailed, path);
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

void writeAll(FileSystem& files, const OpenFile& file, std::span<const std::byte> data, std::int64_t offset,
              const std::string& path) {
  while (!data.empty()) {
    const auto put = uninterrupted([&] { return files.write(file.descriptor(), data, offset); });
    if (put == 0) errno = ENOSPC;
    if (put <= 0) fail(FailureKind::WriteFailed, path);
    data = data.subspan(static_cast<std::size_t>(put));
    offset += put;
  }
}

// A sync that failed is a save that failed: the system may have dropped the data, so it is not tried again.
void syncFile(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (files.sync(file.descriptor()) != 0) fail(FailureKind::SyncFailed, path);
}

std::string folderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

void syncFolderOf(FileSystem& files, const std::string& path) {
  const std::string folder = folderOf(path);
  const OpenFile opened(files, openFile(files, folder, OpenMode::Folder));
  if (!opened.isOpen()) fail(FailureKind::SyncFailed, path);
  syncFile(files, opened, path);
}

std::string resolved(FileSystem& files, const std::string& path) {
  std::string real;
  if (uninterrupted([&] { return files.resolve(path, real); }) != 0) fail(FailureKind::OpenFailed, path);
  return real;
}

// Opens a file to read it. Where it can neither be opened for writing nor created (a read-only place, a
// full disk) it is opened for reading alone; when it is missing there, nothing is opened.
OpenFile openToRead(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::Create));
  if (file.isOpen()) return file;
  if (folderIsMissing(errno)) fail(FailureKind::FolderMissing, path);
  file = OpenFile(files, openFile(files, path, OpenMode::Read));
  if (!file.isOpen() && errno != ENOENT) fail(FailureKind::OpenFailed, path);
  return file;
}

// What the temporary file of a deletion was found to hold.
struct Leftover {
  std::int64_t size = -1;  // bytes; -1 when there is no such file
  ByteBlock surplus;       // what lies behind the records that remain
};

Leftover leftoverIn(FileSystem& files, const std::string& temporary, std::int64_t remaining) {
  const OpenFile file(files, openFile(files, temporary, OpenMode::Read));
  if (!file.isOpen()) {
    if (errno == ENOENT) return {};
    fail(FailureKind::OpenFailed, temporary);
  }
  const FileStatus status = statusOf(files, file, temporary);
  if (status.isFolder) {
    errno = EISDIR;
    fail(FailureKind::OpenFailed, temporary);
  }
  const std::int64_t behind = std::max<std::int64_t>(status.size - remaining, 0);
  Leftover leftover{status.size, ByteBlock::ofSize(static_cast<std::size_t>(behind))};
  leftover.surplus.size = readUpTo(files, file, leftover.surplus.span(), remaining, temporary);
  return leftover;
}

// A name left by a run that was cut short is removed, never emptied: it may be a second name of a file that
// is in use.
OpenFile createNew(FileSystem& files, const std::string& path) {
  const bool isFree = uninterrupted([&] { return files.remove(path); }) == 0 || errno == ENOENT;
  OpenFile file(files, isFree ? openFile(files, path, OpenMode::CreateEmpty) : -1);
  if (!file.isOpen()) fail(FailureKind::OpenFailed, path);
  return file;
}

bool renamed(FileSystem& files, const std::string& from, const std::string& to) {
  return uninterrupted([&] { return files.rename(from, to); }) == 0;
}

// Gives a replacement the target's name, or leaves nothing of it.
void renameOrRemove(FileSystem& files, const std::string& replacement, const std::string& target) {
  if (renamed(files, replacement, target)) return;
  const int error = errno;
  files.remove(replacement);
  errno = error;
  fail(FailureKind::ReplaceFailed, target);
}

}  // namespace

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  if (this != &other) {
    close();
    files_ = other.files_;
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

void OpenFile::close() noexcept {
  if (!isOpen()) return;
  const int error = errno;
  files_->close(std::exchange(descriptor_, -1));
  errno = error;
}

ByteBlock readRecords(FileSystem& files, const std::string& path, std::size_t recordLength) {
  const OpenFile file = openToRead(files, path);
  if (!file.isOpen()) return {};
  const FileStatus status = statusOf(files, file, path);
  if (status.isFolder) {
    errno = EISDIR;
    fail(FailureKind::OpenFailed, path);
  }
  const auto count =
      std::min<std::int64_t>(status.size / static_cast<std::int64_t>(recordLength), kHighestRecordNumber);
  ByteBlock block = ByteBlock::ofSize(static_cast<std::size_t>(count) * recordLength);
  block.size = readUpTo(files, file, block.span(), 0, path);
  return block;
}

void createIfMissing(FileSystem& files, const std::string& path) {
  openOrCreate(files, path);
}

RecordFile::RecordFile(FileSystem& files, std::string path, std::size_t recordLength)
    : files_(files),
      path_(std::move(path)),
      recordLength_(recordLength),
      file_(openLocked(files, path_, status_)) {
  if ((status_.mode & kAnyWriteBit) != 0) return;
  errno = EACCES;
  fail(FailureKind::OpenFailed, path_);
}

std::int64_t RecordFile::count() const {
  return status_.size / static_cast<std::int64_t>(recordLength_);
}

ByteBlock RecordFile::read(std::int64_t first, std::int64_t count) const {
  ByteBlock block = ByteBlock::ofSize(static_cast<std::size_t>(count) * recordLength_);
  const auto offset = (first - 1) * static_cast<std::int64_t>(recordLength_);
  block.size = readUpTo(files_, file_, block.span(), offset, path_);
  return block;
}

void RecordFile::append(std::span<const std::byte> record) {
  const std::int64_t before = count();
  if (before >= kHighestRecordNumber) throw Failure(FailureKind::FileFull).file(path_).record(before + 1);
  if (record.back() == std::byte{0}) return appendInPlace(record);
  ByteBlock contents = readWhole(before, recordLength_);
  std::ranges::copy(record, contents.data.get() + contents.size - recordLength_);
  replaceWith(contents.span());
}

void RecordFile::appendAll(std::span<const std::byte> records) {
  const std::int64_t before = count();
  const std::int64_t after = before + static_cast<std::int64_t>(records.size() / recordLength_);
  if (after > kHighestRecordNumber) throw Failure(FailureKind::FileFull).file(path_).record(after);
  ByteBlock contents = readWhole(before, records.size());
  std::ranges::copy(records, contents.data.get() + contents.size - records.size());
  replaceWith(contents.span());
}

// All but the record's last byte is outside the count. Once that has left for the disk, the file's length
// alone makes it a record, and with it the last byte, 0 like all that a length adds. So whatever a power cut
// leaves of it, no record is there without its bytes.
void RecordFile::appendInPlace(std::span<const std::byte> record) {
  const std::int64_t before = count();
  const auto offset = before * static_cast<std::int64_t>(recordLength_);
  const std::int64_t after = offset + static_cast<std::int64_t>(recordLength_);
  ByteBlock tail = ByteBlock::ofSize(static_cast<std::size_t>(status_.size - offset));
  tail.size = readUpTo(files_, file_, tail.span(), offset, path_);
  try {
    writeAll(files_, file_, record.first(record.size() - 1), offset, path_);
    if (files_.writeOut(file_.descriptor()) != 0) fail(FailureKind::SyncFailed, path_);
    if (uninterrupted([&] { return files_.truncate(file_.descriptor(), after); }) != 0)
      fail(FailureKind::WriteFailed, path_);
    syncFile(files_, file_, path_);
    if (before == 0) syncFolderOf(files_, path_);  // the file's name may be as new as its first record
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

// The first records, with that many bytes of room behind them.
ByteBlock RecordFile::readWhole(std::int64_t records, std::size_t room) const {
  const auto size = static_cast<std::size_t>(records) * recordLength_;
  ByteBlock block = ByteBlock::ofSize(size + room);
  if (readUpTo(files_, file_, block.span().first(size), 0, path_) == size) return block;
  throw Failure(FailureKind::ReadFailed).file(path_);
}

void RecordFile::rewrite(std::int64_t number, std::span<const std::byte> record) {
  if (number < 1 || number > count()) throw Failure(FailureKind::RecordMissing).file(path_).record(number);
  ByteBlock contents = ByteBlock::ofSize(static_cast<std::size_t>(status_.size));
  contents.size = readUpTo(files_, file_, contents.span(), 0, path_);
  const auto offset = static_cast<std::size_t>(number - 1) * recordLength_;
  if (offset + record.size() > contents.size)
    throw Failure(FailureKind::ReadFailed).file(path_).record(number);
  std::memcpy(contents.data.get() + offset, record.data(), record.size());
  replaceWith(contents.span());
}

void RecordFile::remove(std::int64_t number, const std::string& temporary) {
  const bool removesOne = number >= 1 && number <= count();
  const std::int64_t remaining = count() - (removesOne ? 1 : 0);
  const auto kept = static_cast<std::size_t>(remaining) * recordLength_;
  const Leftover leftover = leftoverIn(files_, temporary, static_cast<std::int64_t>(kept));

  ByteBlock contents = readWhole(count(), leftover.surplus.size);
  if (removesOne) {
    const auto behind = static_cast<std::size_t>(number) * recordLength_;
    std::byte* const record = contents.data.get() + behind - recordLength_;
    std::memmove(record, record + recordLength_, kept + recordLength_ - behind);
  }
  std::ranges::copy(leftover.surplus.span(), contents.data.get() + kept);
  contents.size = kept + leftover.surplus.size;
  if (leftover.size > 0) return replaceThrough(temporary, contents.span());
  replaceWith(contents.span());
  if (leftover.size == 0) files_.remove(temporary);  // empty, it is harmless where it stays
}

void RecordFile::replaceWith(std::span<const std::byte> contents) {
  const std::string target = resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size());
  syncFolderOf(files_, target);
}

// The surplus is in the new contents, so the temporary file must go in the same step in which they take the
// file's place: it becomes the new contents first and is then itself renamed. On another file system it
// cannot be, and goes afterwards.
void RecordFile::replaceThrough(const std::string& temporary, std::span<const std::byte> contents) {
  const std::string target = resolved(files_, path_);
  const std::string replacement = target + ".tmp";
  OpenFile file = makeReplacement(replacement, contents);
  const bool isNear = renamed(files_, replacement, temporary);
  if (isNear && !renamed(files_, temporary, target)) fail(FailureKind::ReplaceFailed, target);
  if (!isNear) renameOrRemove(files_, replacement, target);
  takeOver(std::move(file), contents.size());
  syncFolderOf(files_, target);
  if (!isNear) discard(temporary);
  if (folderOf(temporary) != folderOf(target)) syncFolderOf(files_, temporary);
}

// A temporary file on another file system must not be found again by the next deletion.
void RecordFile::discard(const std::string& temporary) {
  if (uninterrupted([&] { return files_.remove(temporary); }) != 0) {
    const OpenFile file(files_, openFile(files_, temporary, OpenMode::ReadWrite));
    if (!file.isOpen() || files_.truncate(file.descriptor(), 0) != 0)
      fail(FailureKind::ReplaceFailed, temporary);
  }
}

// The new file's lock is taken before it gets the name and kept until the name is on the disk: whoever
// changes it next builds on a file that a power cut cannot take back.
OpenFile RecordFile::makeReplacement(const std::string& replacement, std::span<const std::byte> contents) {
  OpenFile file = createNew(files_, replacement);
  try {
    if (!tryLock(files_, file, replacement)) throw Failure(FailureKind::FileBusy).file(replacement);
    writeAll(files_, file, contents, 0, replacement);
    if (uninterrupted([&] { return files_.setMode(file.descriptor(), status_.mode); }) != 0)
      fail(FailureKind::WriteFailed, replacement);
    syncFile(files_, file, replacement);
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
