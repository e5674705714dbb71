#pragma once

#include <array>
#include <cerrno>
#include <cstddef>

#include "core/file_system.h"

namespace tarvik::test {

/// The calls of a file system, as their kinds.
enum class Call {
  Open,
  Close,
  Status,
  StatusOf,
  Read,
  Write,
  Truncate,
  SetMode,
  WriteOut,
  Sync,
  SyncFolder,
  Rename,
  Remove,
  MakeFolder,
  Resolve,
  TryLock,
  Pause,
  List,
  RemoveFolder
};
inline constexpr std::size_t kCallKinds = static_cast<std::size_t>(Call::RemoveFolder) + 1;

/// A file system whose calls go to another one as far as they are admitted.
class InterceptedFileSystem : public core::FileSystem {
 public:
  explicit InterceptedFileSystem(core::FileSystem& inner) : inner_(inner) {}

  int open(const std::string& path, core::OpenMode mode) override {
    return admitted(Call::Open) ? inner_.open(path, mode) : -1;
  }
  // A descriptor is gone whatever the result.
  int close(int descriptor) override {
    const int result = inner_.close(descriptor);
    return admitted(Call::Close) ? result : -1;
  }
  int status(int descriptor, core::FileStatus& status) override {
    return admitted(Call::Status) ? inner_.status(descriptor, status) : -1;
  }
  int statusOf(const std::string& path, core::FileStatus& status) override {
    return admitted(Call::StatusOf) ? inner_.statusOf(path, status) : -1;
  }
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override {
    return admitted(Call::Read) ? inner_.read(descriptor, buffer, offset) : -1;
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    return admitted(Call::Write) ? inner_.write(descriptor, data, offset) : -1;
  }
  int truncate(int descriptor, std::int64_t length) override {
    return admitted(Call::Truncate) ? inner_.truncate(descriptor, length) : -1;
  }
  int setMode(int descriptor, std::uint32_t mode) override {
    return admitted(Call::SetMode) ? inner_.setMode(descriptor, mode) : -1;
  }
  int writeOut(int descriptor) override {
    return admitted(Call::WriteOut) ? inner_.writeOut(descriptor) : -1;
  }
  int sync(int descriptor) override { return admitted(Call::Sync) ? inner_.sync(descriptor) : -1; }
  int syncFolder(const std::string& path) override {
    return admitted(Call::SyncFolder) ? inner_.syncFolder(path) : -1;
  }
  int rename(const std::string& from, const std::string& to) override {
    return admitted(Call::Rename) ? inner_.rename(from, to) : -1;
  }
  int remove(const std::string& path) override { return admitted(Call::Remove) ? inner_.remove(path) : -1; }
  int makeFolder(const std::string& path) override {
    return admitted(Call::MakeFolder) ? inner_.makeFolder(path) : -1;
  }
  int resolve(const std::string& path, std::string& resolved) override {
    return admitted(Call::Resolve) ? inner_.resolve(path, resolved) : -1;
  }
  int tryLock(int descriptor) override { return admitted(Call::TryLock) ? inner_.tryLock(descriptor) : -1; }
  void pause(int milliseconds) override {
    if (admitted(Call::Pause)) inner_.pause(milliseconds);
  }
  int list(const std::string& path, std::vector<std::string>& names) override {
    return admitted(Call::List) ? inner_.list(path, names) : -1;
  }
  int removeFolder(const std::string& path) override {
    return admitted(Call::RemoveFolder) ? inner_.removeFolder(path) : -1;
  }

 protected:
  core::FileSystem& inner() { return inner_; }

 private:
  /// Sees each call before it is made; false, with errno set, makes it fail.
  virtual bool admitted(Call call) = 0;

  core::FileSystem& inner_;
};

/// Counts the calls of each kind.
class CountingFileSystem final : public InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;
  int count(Call call) const { return counts_[static_cast<std::size_t>(call)]; }
  const std::array<int, kCallKinds>& counts() const { return counts_; }

 private:
  bool admitted(Call call) override {
    ++counts_[static_cast<std::size_t>(call)];
    return true;
  }

  std::array<int, kCallKinds> counts_{};
};

/// What fails: the call of that number, counted from 1, and whether every later one does too.
struct FailurePlan {
  static constexpr int kShortWrite = 0;  ///< instead of an errno: half a write, then a full disk

  int nth = 1;
  int error = EIO;
  bool staysBroken = false;
};

/// Fails calls as planned. A short write is one that writes half; only writes are cut short.
class FailingFileSystem final : public InterceptedFileSystem {
 public:
  FailingFileSystem(core::FileSystem& inner, FailurePlan plan) : InterceptedFileSystem(inner), plan_(plan) {}

  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (plan_.error != FailurePlan::kShortWrite)
      return InterceptedFileSystem::write(descriptor, data, offset);
    if (!isDue()) return inner().write(descriptor, data, offset);
    if (hasFailed_ && plan_.staysBroken) {
      errno = ENOSPC;
      return -1;
    }
    hasFailed_ = true;
    lastFailed_ = Call::Write;
    return inner().write(descriptor, data.first((data.size() + 1) / 2), offset);
  }
  /// Whether anything failed so far.
  bool hasFailed() const { return hasFailed_; }
  /// The kind of the call that failed last.
  Call lastFailed() const { return lastFailed_; }

 private:
  bool isDue() {
    ++calls_;
    return plan_.staysBroken ? calls_ >= plan_.nth : calls_ == plan_.nth;
  }
  bool admitted(Call call) override {
    if (!isDue() || call == Call::Pause || plan_.error == FailurePlan::kShortWrite) return true;
    hasFailed_ = true;
    lastFailed_ = call;
    errno = plan_.error;
    return false;
  }

  FailurePlan plan_;
  int calls_ = 0;
  bool hasFailed_ = false;
  Call lastFailed_ = Call::Open;
};

}  // namespace tarvik::test
