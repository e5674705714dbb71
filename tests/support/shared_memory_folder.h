#pragma once

#include <filesystem>
#include <string>

#include "core/machine_file_system.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::test {

/// A new empty folder in the machine's memory file system, which goes when the test ends. Beside the
/// folders of TemporaryFolder it lies on another file system on most machines.
class SharedMemoryFolder {
 public:
  explicit SharedMemoryFolder(const TemporaryFolder& beside)
      : path_("/dev/shm/" + std::filesystem::path(beside.path()).filename().string()) {
    std::error_code ignored;
    std::filesystem::create_directory(path_, ignored);
  }
  ~SharedMemoryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  SharedMemoryFolder(const SharedMemoryFolder&) = delete;
  SharedMemoryFolder& operator=(const SharedMemoryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  /// Whether the folder exists and lies on another file system than that one.
  bool isApartFrom(const TemporaryFolder& other) const {
    core::MachineFileSystem files;
    core::FileStatus here, there;
    return files.statusOf(path_, here) == 0 && files.statusOf(other.path(), there) == 0 &&
           here.device != there.device;
  }

 private:
  std::string path_;
};

}  // namespace tarvik::test
