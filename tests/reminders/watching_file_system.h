#pragma once

#include <cerrno>
#include <set>
#include <string>

#include "tests/support/forwarding_file_system.h"

namespace tarvik::test {

/// The real disk with a watch on it: notes each file opened, counts reads, and can be full.
class WatchingFileSystem final : public ForwardingFileSystem {
 public:
  int open(const std::string& path, core::OpenMode mode) override {
    opened.insert(path);
    return ForwardingFileSystem::open(path, mode);
  }
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override {
    ++reads;
    return ForwardingFileSystem::read(descriptor, buffer, offset);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (!isFull) return ForwardingFileSystem::write(descriptor, data, offset);
    errno = ENOSPC;
    return -1;
  }

  std::set<std::string> opened;  ///< every path opened
  int reads = 0;                 ///< system calls that read
  bool isFull = false;           ///< every write finds the disk full
};

}  // namespace tarvik::test
