#pragma once

#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {

/// A disk that breaks the way a test wants it to, from the moment the test says so.
class BreakableFiles final : public InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;

  bool cannotSync = false;             ///< no save is confirmed
  bool cannotOpen = false;             ///< no file can be opened
  bool cannotOpenAfterChange = false;  ///< once a file was then changed and closed no file can be opened
  std::string cannotReplace;           ///< the file that no other can be renamed to
  std::string cannotConfirm;           ///< the file that is not confirmed when another was renamed to it

  int open(const std::string& path, core::OpenMode mode) override {
    const int descriptor = InterceptedFileSystem::open(path, mode);
    if (descriptor >= 0) ++openFiles_;
    return descriptor;
  }
  int close(int descriptor) override {
    --openFiles_;
    return InterceptedFileSystem::close(descriptor);
  }
  int rename(const std::string& from, const std::string& to) override {
    if (to == cannotReplace) return broken();
    isUnconfirmed_ = to == cannotConfirm;
    return InterceptedFileSystem::rename(from, to);
  }
  int syncFolder(const std::string& path) override {
    return isUnconfirmed_ ? broken() : InterceptedFileSystem::syncFolder(path);
  }

 private:
  static int broken() {
    errno = EIO;
    return -1;
  }
  bool admitted(Call call) override {
    hasChanged_ = cannotOpenAfterChange && (hasChanged_ || call == Call::Write || call == Call::Rename);
    const bool isShut = cannotOpen || (cannotOpenAfterChange && hasChanged_ && openFiles_ == 0);
    const bool fails = (call == Call::Sync && cannotSync) || (call == Call::Open && isShut);
    if (fails) errno = EIO;
    return !fails;
  }

  bool hasChanged_ = false;
  bool isUnconfirmed_ = false;
  int openFiles_ = 0;
};

}  // namespace tarvik::test
