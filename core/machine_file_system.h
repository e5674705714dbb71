#pragma once

#include "core/file_system.h"

namespace tarvik::core {

/// The machine's own file system: each function is the one system call of its meaning. Its halves are
/// posix_file_system.cpp and windows_file_system.cpp; the build takes one of them.
class MachineFileSystem final : public FileSystem {
 public:
  /// From now on the system tells failures to the program alone: a write past the limit that a person set on
  /// the length of files does not end it, a disk that was pulled out brings no box of the system.
  MachineFileSystem();

  int open(const std::string& path, OpenMode mode) override;
  int close(int descriptor) override;
  int status(int descriptor, FileStatus& status) override;
  int statusOf(const std::string& path, FileStatus& status) override;
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override;
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override;
  int truncate(int descriptor, std::int64_t length) override;
  int setMode(int descriptor, std::uint32_t mode) override;
  int writeOut(int descriptor) override;
  int sync(int descriptor) override;
  int syncFolder(const std::string& path) override;
  int rename(const std::string& from, const std::string& to) override;
  int remove(const std::string& path) override;
  int makeFolder(const std::string& path) override;
  int resolve(const std::string& path, std::string& resolved) override;
  int tryLock(int descriptor) override;
  void pause(int milliseconds) override;
  int list(const std::string& path, std::vector<std::string>& names) override;
  int removeFolder(const std::string& path) override;
};

}  // namespace tarvik::core
