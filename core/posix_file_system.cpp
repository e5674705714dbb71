#include "core/machine_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

namespace tarvik::core {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kPrivateFileMode = 0600;
constexpr mode_t kNewFolderMode = 0777;
constexpr std::uint32_t kPermissionBits = 0777;
constexpr std::int64_t kNanosecondsASecond = 1'000'000'000;

// Nothing that stands in a file's place may hold the program up, nor become its terminal.
constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

int flagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::Read:
      return O_RDONLY | kAlways;
    case OpenMode::ReadItself:
      return O_RDONLY | O_NOFOLLOW | kAlways;
    case OpenMode::ReadWriteItself:
      return O_RDWR | O_NOFOLLOW | kAlways;
    case OpenMode::Create:
      return O_RDWR | O_CREAT | kAlways;
    case OpenMode::CreateItself:
      return O_RDWR | O_CREAT | O_NOFOLLOW | kAlways;
    case OpenMode::CreateNew:
    case OpenMode::CreatePrivate:
      return O_RDWR | O_CREAT | O_EXCL | kAlways;
  }
  return O_RDONLY | kAlways;
}

FileKind kindOf(mode_t mode) {
  if (S_ISREG(mode)) return FileKind::Regular;
  return S_ISDIR(mode) ? FileKind::Folder : FileKind::Other;
}

FileStatus toStatus(const struct stat& native) {
  return {.size = native.st_size,
          .device = native.st_dev,
          .inode = native.st_ino,
          .mode = native.st_mode & kPermissionBits,
          .owner = native.st_uid,
          .changed = native.st_ctim.tv_sec * kNanosecondsASecond + native.st_ctim.tv_nsec,
          .kind = kindOf(native.st_mode)};
}

// What a system or a file system answers that cannot order writes, and nothing is wrong with the file.
bool knowsNoOrder(int error) {
  return error == ENOSYS || error == EINVAL || error == EOPNOTSUPP || error == EPERM || error == ESPIPE;
}

// What a file system answers that keeps no promise about the names in its folders.
bool promisesNothing(int error) {
  return error == EINVAL || error == ENOTSUP || error == ENOSYS;
}

}  // namespace

MachineFileSystem::MachineFileSystem() {
  std::signal(SIGXFSZ, SIG_IGN);
}

int MachineFileSystem::open(const std::string& path, OpenMode mode) {
  return ::open(path.c_str(), flagsOf(mode),
                mode == OpenMode::CreatePrivate ? kPrivateFileMode : kNewFileMode);
}

int MachineFileSystem::close(int descriptor) {
  return ::close(descriptor);
}

int MachineFileSystem::status(int descriptor, FileStatus& status) {
  struct stat native {};
  if (::fstat(descriptor, &native) != 0) return -1;
  status = toStatus(native);
  return 0;
}

int MachineFileSystem::statusOf(const std::string& path, FileStatus& status) {
  struct stat native {};
  if (::stat(path.c_str(), &native) != 0) return -1;
  status = toStatus(native);
  return 0;
}

std::int64_t MachineFileSystem::read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) {
  return ::pread(descriptor, buffer.data(), buffer.size(), offset);
}

std::int64_t MachineFileSystem::write(int descriptor, std::span<const std::byte> data, std::int64_t offset) {
  return ::pwrite(descriptor, data.data(), data.size(), offset);
}

int MachineFileSystem::truncate(int descriptor, std::int64_t length) {
  return ::ftruncate(descriptor, length);
}

int MachineFileSystem::setMode(int descriptor, std::uint32_t mode) {
  return ::fchmod(descriptor, mode);
}

// The disk's own cache is flushed by the commit that the next sync waits for, before that commit counts. A
// system without this call promises instead of ordering, which takes longer and is as good.
int MachineFileSystem::writeOut(int descriptor) {
  constexpr unsigned kWholly =
      SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
  if (::sync_file_range(descriptor, 0, 0, kWholly) == 0) return 0;
  return knowsNoOrder(errno) ? ::fsync(descriptor) : -1;
}

int MachineFileSystem::sync(int descriptor) {
  return ::fsync(descriptor);
}

int MachineFileSystem::syncFolder(const std::string& path) {
  const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return -1;
  const bool isDone = ::fsync(folder) == 0 || promisesNothing(errno);
  const int error = errno;
  ::close(folder);
  errno = error;
  return isDone ? 0 : -1;
}

int MachineFileSystem::rename(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str());
}

int MachineFileSystem::remove(const std::string& path) {
  return ::unlink(path.c_str());
}

int MachineFileSystem::makeFolder(const std::string& path) {
  return ::mkdir(path.c_str(), kNewFolderMode);
}

int MachineFileSystem::resolve(const std::string& path, std::string& resolved) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  if (!real) return -1;
  resolved = real.get();
  return 0;
}

int MachineFileSystem::tryLock(int descriptor) {
  return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

void MachineFileSystem::pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int MachineFileSystem::list(const std::string& path, std::vector<std::string>& names) {
  const auto close = [](DIR* folder) { ::closedir(folder); };
  const std::unique_ptr<DIR, decltype(close)> folder(::opendir(path.c_str()), close);
  if (!folder) return -1;
  errno = 0;
  while (const dirent* const entry = ::readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  return errno == 0 ? 0 : -1;
}

int MachineFileSystem::removeFolder(const std::string& path) {
  return ::rmdir(path.c_str());
}

}  // namespace tarvik::core
