#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace tarvik::test {

/// Makes a device under that name that takes everything and has nothing. It is one of the test's own where it
/// may be made: root, who may, would lose the machine's /dev/null to code that is broken. Else it is a link
/// to that one.
inline void makeDevice(const std::string& path) {
  constexpr unsigned kMemoryDevices = 1;
  constexpr unsigned kNull = 3;
  const bool isMade = ::mknod(path.c_str(), S_IFCHR | 0600, ::makedev(kMemoryDevices, kNull)) == 0;
  const int device = isMade ? ::open(path.c_str(), O_RDWR | O_CLOEXEC) : -1;
  if (device >= 0) {
    ::close(device);
    return;
  }
  std::filesystem::remove(path);
  std::filesystem::create_symlink("/dev/null", path);
}

}  // namespace tarvik::test
