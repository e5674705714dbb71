#include "core/file_steps.h"

#include <cerrno>

#include "core/failure.h"

namespace tarvik::core {
namespace {

constexpr int kTries = 80;
constexpr int kPauseMilliseconds = 25;  // 80 × 25 ms: two seconds
constexpr int kInterruptedTries = 100;

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

// A file that another program has to let go of opens a moment later.
int openFile(FileSystem& files, const std::string& path, OpenMode mode) {
  const auto once = [&] { return uninterrupted([&] { return files.open(path, mode); }); };
  int descriptor = once();
  for (int i = 0; descriptor < 0 && errno == EWOULDBLOCK && i < kTries; ++i) {
    files.pause(kPauseMilliseconds);
    descriptor = once();
  }
  return descriptor;
}

bool folderIsMissing(int error) {
  return error == ENOENT || error == ENOTDIR;
}

// What a temporary file that does not open is told as: a link in its place is nothing of the program's.
[[noreturn]] void failTemporary(FailureKind kind, const std::string& path) {
  if (errno == ELOOP) throw Failure(FailureKind::NotOwnFile).file(path);
  fail(kind, path);
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

// A file system that knows no locks keeps nobody from a change.
bool tryLock(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (uninterrupted([&] { return files.tryLock(file.descriptor()); }) == 0) return true;
  if (errno == EWOULDBLOCK) return false;
  if (errno != ENOLCK && errno != EOPNOTSUPP) fail(FailureKind::OpenFailed, path);
  return true;
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

namespace steps {

OpenFile openOrCreate(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::Create));
  if (file.isOpen()) return file;
  fail(folderIsMissing(errno) ? FailureKind::FolderMissing : FailureKind::OpenFailed, path);
}

OpenFile openIfThere(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::Read));
  if (!file.isOpen() && errno != ENOENT) fail(FailureKind::OpenFailed, path);
  return file;
}

OpenFile openTemporaryIfThere(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::ReadItself));
  if (!file.isOpen() && errno != ENOENT) failTemporary(FailureKind::OpenFailed, path);
  return file;
}

OpenFile openOrCreateTemporary(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::CreateItself));
  if (file.isOpen()) return file;
  failTemporary(folderIsMissing(errno) ? FailureKind::FolderMissing : FailureKind::OpenFailed, path);
}

std::optional<OpenFile> openToRead(FileSystem& files, const std::string& path) {
  OpenFile file(files, openFile(files, path, OpenMode::Create));
  if (file.isOpen()) return file;
  if (folderIsMissing(errno)) return std::nullopt;
  return openIfThere(files, path);
}

// The lock belongs to the file and not to its name, so a file that was replaced while we waited is opened
// anew.
OpenFile openLocked(FileSystem& files, const std::string& path, FileStatus& status) {
  for (int i = 0; i < kTries; ++i) {
    OpenFile file = openOrCreate(files, path);
    if (tryLock(files, file, path)) {
      status = statusOf(files, file, path);
      if (isStillNamed(files, path, status)) return file;
    } else {
      files.pause(kPauseMilliseconds);
    }
  }
  throw Failure(FailureKind::FileBusy).file(path);
}

OpenFile createPrivate(FileSystem& files, const std::string& path) {
  const bool isFree = uninterrupted([&] { return files.remove(path); }) == 0 || errno == ENOENT;
  OpenFile file(files, isFree ? openFile(files, path, OpenMode::CreatePrivate) : -1);
  if (!file.isOpen()) fail(FailureKind::OpenFailed, path);
  return file;
}

void lock(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (!tryLock(files, file, path)) throw Failure(FailureKind::FileBusy).file(path);
}

FileStatus statusOf(FileSystem& files, const OpenFile& file, const std::string& path) {
  FileStatus status;
  if (uninterrupted([&] { return files.status(file.descriptor(), status); }) != 0)
    fail(FailureKind::OpenFailed, path);
  if (status.kind == FileKind::Regular) return status;
  if (status.kind == FileKind::Other) throw Failure(FailureKind::NotAFile).file(path);
  errno = EISDIR;
  fail(FailureKind::OpenFailed, path);
}

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

void setLength(FileSystem& files, const OpenFile& file, std::int64_t length, const std::string& path) {
  if (uninterrupted([&] { return files.truncate(file.descriptor(), length); }) != 0)
    fail(FailureKind::WriteFailed, path);
}

void giveMode(FileSystem& files, const OpenFile& file, std::uint32_t mode, const std::string& path) {
  if (statusOf(files, file, path).mode == mode) return;
  if (uninterrupted([&] { return files.setMode(file.descriptor(), mode); }) != 0)
    fail(FailureKind::WriteFailed, path);
}

void writeOut(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (files.writeOut(file.descriptor()) != 0) fail(FailureKind::SyncFailed, path);
}

void syncFile(FileSystem& files, const OpenFile& file, const std::string& path) {
  if (files.sync(file.descriptor()) != 0) fail(FailureKind::SyncFailed, path);
}

void syncFolderOf(FileSystem& files, const std::string& path) {
  if (files.syncFolder(folderOf(path)) != 0) fail(FailureKind::SyncFailed, path);
}

std::string folderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  const bool isRoot = slash == 0 || path[slash - 1] == ':';  // Windows' "E:" is the folder last used there
  return path.substr(0, isRoot ? slash + 1 : slash);
}

std::string resolved(FileSystem& files, const std::string& path) {
  std::string real;
  if (uninterrupted([&] { return files.resolve(path, real); }) != 0) fail(FailureKind::OpenFailed, path);
  return real;
}

bool renamed(FileSystem& files, const std::string& from, const std::string& to) {
  return uninterrupted([&] { return files.rename(from, to); }) == 0;
}

void rename(FileSystem& files, const std::string& from, const std::string& to) {
  if (!renamed(files, from, to)) fail(FailureKind::ReplaceFailed, to);
}

void renameOrRemove(FileSystem& files, const std::string& replacement, const std::string& target) {
  if (renamed(files, replacement, target)) return;
  const int error = errno;
  files.remove(replacement);
  errno = error;
  fail(FailureKind::ReplaceFailed, target);
}

void removeOrEmpty(FileSystem& files, const std::string& path) {
  if (uninterrupted([&] { return files.remove(path); }) == 0) return;
  const OpenFile file(files, openFile(files, path, OpenMode::ReadWriteItself));
  if (!file.isOpen() || files.truncate(file.descriptor(), 0) != 0) fail(FailureKind::ReplaceFailed, path);
}

}  // namespace steps
}  // namespace tarvik::core
