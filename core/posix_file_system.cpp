#include "core/posix_file_system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>

namespace tarvik::core {
namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kNewFolderMode = 0777;
constexpr std::uint32_t kPermissionBits = 0777;

int flagsOf(OpenMode mode) {
  switch (mode) {
    case OpenMode::Read:
      return O_RDONLY | O_CLOEXEC;
    case OpenMode::ReadWrite:
      return O_RDWR | O_CLOEXEC;
    case OpenMode::Create:
      return O_RDWR | O_CREAT | O_CLOEXEC;
    case OpenMode::CreateEmpty:
      return O_RDWR | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC;
    case OpenMode::Folder:
      return O_RDONLY | O_DIRECTORY | O_CLOEXEC;
  }
  return O_RDONLY | O_CLOEXEC;
}

FileStatus toStatus(const struct stat& native) {
  return {.size = native.st_size,
          .device = native.st_dev,
          .inode = native.st_ino,
          .mode = native.st_mode & kPermissionBits,
          .isFolder = S_ISDIR(native.st_mode)};
}

}  // namespace

int PosixFileSystem::open(const std::string& path, OpenMode mode) {
  return ::open(path.c_str(), flagsOf(mode), kNewFileMode);
}

int PosixFileSystem::close(int descriptor) {
  return ::close(descriptor);
}

int PosixFileSystem::status(int descriptor, FileStatus& status) {
  struct stat native {};
  if (::fstat(descriptor, &native) != 0) return -1;
  status = toStatus(native);
  return 0;
}

int PosixFileSystem::statusOf(const std::string& path, FileStatus& status) {
  struct stat native {};
  if (::stat(path.c_str(), &native) != 0) return -1;
  status = toStatus(native);
  return 0;
}

std::int64_t PosixFileSystem::read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) {
  return ::pread(descriptor, buffer.data(), buffer.size(), offset);
}

std::int64_t PosixFileSystem::write(int descriptor, std::span<const std::byte> data, std::int64_t offset) {
  return ::pwrite(descriptor, data.data(), data.size(), offset);
}

int PosixFileSystem::truncate(int descriptor, std::int64_t length) {
  return ::ftruncate(descriptor, length);
}

int PosixFileSystem::setMode(int descriptor, std::uint32_t mode) {
  return ::fchmod(descriptor, mode);
}

// The disk's own cache is flushed by the commit that the next sync waits for, before that commit counts. A
// system without this call promises instead of ordering, which takes longer and is as good.
int PosixFileSystem::writeOut(int descriptor) {
  constexpr unsigned kWholly =
      SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
  if (::sync_file_range(descriptor, 0, 0, kWholly) == 0) return 0;
  return errno == ENOSYS ? ::fsync(descriptor) : -1;
}

int PosixFileSystem::sync(int descriptor) {
  return ::fsync(descriptor);
}

int PosixFileSystem::rename(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str());
}

int PosixFileSystem::remove(const std::string& path) {
  return ::unlink(path.c_str());
}

int PosixFileSystem::makeFolder(const std::string& path) {
  return ::mkdir(path.c_str(), kNewFolderMode);
}

int PosixFileSystem::resolve(const std::string& path, std::string& resolved) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  if (!real) return -1;
  resolved = real.get();
  return 0;
}

int PosixFileSystem::tryLock(int descriptor) {
  return ::flock(descriptor, LOCK_EX | LOCK_NB);
}

void PosixFileSystem::pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace tarvik::core
