#pragma once

#include "core/machine_file_system.h"

namespace tarvik::test {

/// The real file system call by call; a test overrides the calls that it watches or lets fail.
class ForwardingFileSystem : public core::FileSystem {
 public:
  int open(const std::string& path, core::OpenMode mode) override { return real_.open(path, mode); }
  int close(int descriptor) override { return real_.close(descriptor); }
  int status(int descriptor, core::FileStatus& status) override { return real_.status(descriptor, status); }
  int statusOf(const std::string& path, core::FileStatus& status) override {
    return real_.statusOf(path, status);
  }
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override {
    return real_.read(descriptor, buffer, offset);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    return real_.write(descriptor, data, offset);
  }
  int truncate(int descriptor, std::int64_t length) override { return real_.truncate(descriptor, length); }
  int setMode(int descriptor, std::uint32_t mode) override { return real_.setMode(descriptor, mode); }
  int writeOut(int descriptor) override { return real_.writeOut(descriptor); }
  int sync(int descriptor) override { return real_.sync(descriptor); }
  int syncFolder(const std::string& path) override { return real_.syncFolder(path); }
  int rename(const std::string& from, const std::string& to) override { return real_.rename(from, to); }
  int remove(const std::string& path) override { return real_.remove(path); }
  int makeFolder(const std::string& path) override { return real_.makeFolder(path); }
  int resolve(const std::string& path, std::string& resolved) override {
    return real_.resolve(path, resolved);
  }
  int tryLock(int descriptor) override { return real_.tryLock(descriptor); }
  void pause(int milliseconds) override { real_.pause(milliseconds); }
  int list(const std::string& path, std::vector<std::string>& names) override {
    return real_.list(path, names);
  }
  int removeFolder(const std::string& path) override { return real_.removeFolder(path); }

 private:
  core::MachineFileSystem real_;
};

}  // namespace tarvik::test
