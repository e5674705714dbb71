#pragma once

#include "core/machine_file_system.h"
#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {

/// The real file system that a ForwardingFileSystem brings along.
struct OwnFileSystem {
  core::MachineFileSystem real;
};

/// The real file system call by call; a test overrides the calls that it watches or lets fail.
class ForwardingFileSystem : private OwnFileSystem, public InterceptedFileSystem {
 public:
  ForwardingFileSystem() : InterceptedFileSystem(real) {}

 private:
  bool admitted(Call) override { return true; }
};

}  // namespace tarvik::test
