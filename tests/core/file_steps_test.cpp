#include "core/file_steps.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <tuple>

#include "tests/support/expect_failure.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

// What each step of a change tells when the system refuses it: the kind, the file and the system's own
// reason.

namespace tarvik::core {
namespace {

using test::Call;

const std::string kPath = "/data/file.dat";

// Refuses one kind of call.
class RefusingFileSystem final : public test::InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;
  void refuse(Call call, int error) { refused_ = call, error_ = error; }

 private:
  bool admitted(Call call) override {
    if (call != refused_) return true;
    errno = error_;
    return false;
  }

  Call refused_ = Call::List;
  int error_ = 0;
};

class FileStepsTest : public testing::Test {
 protected:
  FileStepsTest() {
    disk_.putFolder("/data");
    disk_.put(kPath, "old");
  }

  void expectTold(Call refused, int error, FailureKind kind, const std::function<void()>& step) {
    files_.refuse(refused, error);
    test::expectFailure(kind, step, [&](const Failure& failure) {
      EXPECT_EQ(failure.file(), kPath);
      EXPECT_EQ(failure.systemError(), error);
    });
    files_.refuse(Call::List, 0);
  }

  test::MemoryFileSystem disk_;
  RefusingFileSystem files_{disk_};
};

TEST_F(FileStepsTest, AFileThatDoesNotOpenIsToldAndAMissingFolderByItself) {
  for (const auto open : {&steps::openOrCreate, &steps::openOrCreateTemporary}) {
    expectTold(Call::Open, EACCES, FailureKind::OpenFailed, [&] { std::ignore = open(files_, kPath); });
    expectTold(Call::Open, ENOENT, FailureKind::FolderMissing, [&] { std::ignore = open(files_, kPath); });
    expectTold(Call::Open, ENOTDIR, FailureKind::FolderMissing, [&] { std::ignore = open(files_, kPath); });
  }
  for (const auto open : {&steps::openIfThere, &steps::openTemporaryIfThere}) {
    expectTold(Call::Open, EACCES, FailureKind::OpenFailed, [&] { std::ignore = open(files_, kPath); });
    files_.refuse(Call::Open, ENOENT);
    EXPECT_FALSE(open(files_, kPath).isOpen());
  }
}

TEST_F(FileStepsTest, APlaceThatCannotBeMadeFreeIsTold) {
  expectTold(Call::Remove, EPERM, FailureKind::OpenFailed,
             [&] { std::ignore = steps::createPrivate(files_, kPath); });
  expectTold(Call::Open, EROFS, FailureKind::OpenFailed,
             [&] { std::ignore = steps::createPrivate(files_, kPath); });
}

TEST_F(FileStepsTest, AFileWhoseNameCannotBeLookedUpAgainIsTold) {
  expectTold(Call::StatusOf, EIO, FailureKind::OpenFailed, [&] {
    FileStatus status;
    std::ignore = steps::openLocked(files_, kPath, status);
  });
  EXPECT_EQ(disk_.openFiles(), 0);
}

TEST_F(FileStepsTest, WhatAnOpenFileRefusesIsTold) {
  const OpenFile file = steps::openOrCreate(files_, kPath);
  expectTold(Call::Truncate, EIO, FailureKind::WriteFailed,
             [&] { steps::setLength(files_, file, 1, kPath); });
  expectTold(Call::SetMode, EPERM, FailureKind::WriteFailed,
             [&] { steps::giveMode(files_, file, 0123, kPath); });
  expectTold(Call::WriteOut, EIO, FailureKind::SyncFailed, [&] { steps::writeOut(files_, file, kPath); });
  expectTold(Call::Sync, EIO, FailureKind::SyncFailed, [&] { steps::syncFile(files_, file, kPath); });
  expectTold(Call::SyncFolder, EIO, FailureKind::SyncFailed, [&] { steps::syncFolderOf(files_, kPath); });
  expectTold(Call::Resolve, EIO, FailureKind::OpenFailed, [&] { steps::resolved(files_, kPath); });
  expectTold(Call::Rename, EXDEV, FailureKind::ReplaceFailed,
             [&] { steps::rename(files_, "/data/new", kPath); });
}

TEST_F(FileStepsTest, AReplacementThatDoesNotGetItsNameGoes) {
  disk_.put("/data/new", "new");
  expectTold(Call::Rename, EIO, FailureKind::ReplaceFailed,
             [&] { steps::renameOrRemove(files_, "/data/new", kPath); });
  EXPECT_FALSE(disk_.has("/data/new"));
  EXPECT_EQ(disk_.contents(kPath), "old");
}

TEST_F(FileStepsTest, AClosedFileIsClosedOnce) {
  steps::openOrCreate(files_, kPath).close();
  EXPECT_EQ(disk_.openFiles(), 0);
  const OpenFile other = steps::openOrCreate(files_, kPath);  // has the number of the closed one
  {
    OpenFile file = steps::openOrCreate(files_, kPath);
    file.close();
    EXPECT_FALSE(file.isOpen());
    file.close();
  }
  EXPECT_EQ(disk_.openFiles(), 1);
}

}  // namespace
}  // namespace tarvik::core
