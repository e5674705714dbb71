#pragma once

#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {

/// A disk that breaks the way a test wants it to, from the moment the test says so.
class BreakableFiles final : public InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;

  bool cannotSync = false;             ///< no save is confirmed
  bool cannotOpen = false;             ///< no file can be opened
  bool cannotOpenAfterChange = false;  ///< once a file was changed and closed no file can be opened

  int open(const std::string& path, core::OpenMode mode) override {
    const int descriptor = InterceptedFileSystem::open(path, mode);
    if (descriptor >= 0) ++openFiles_;
    return descriptor;
  }
  int close(int descriptor) override {
    --openFiles_;
    return InterceptedFileSystem::close(descriptor);
  }

 private:
  bool admitted(Call call) override {
    hasChanged_ = hasChanged_ || call == Call::Write || call == Call::Rename;
    const bool isShut = cannotOpen || (cannotOpenAfterChange && hasChanged_ && openFiles_ == 0);
    const bool fails = (call == Call::Sync && cannotSync) || (call == Call::Open && isShut);
    if (fails) errno = EIO;
    return !fails;
  }

  bool hasChanged_ = false;
  int openFiles_ = 0;
};

}  // namespace tarvik::test
