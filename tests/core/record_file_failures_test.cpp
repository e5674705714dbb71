#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

// What happens to a record file between the calls that change it, and where a disk answers oddly.

namespace tarvik::core {
namespace {

using test::bytesOf;

constexpr std::size_t kLength = 4;
const std::string kPath = "/data/file.dat";
const std::string kTemporary = "/data/filex.dat";

// Does something of its own before a call, or answers in its place.
class HookedFileSystem final : public test::InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;
  std::function<bool(test::Call)> before = [](test::Call) { return true; };
  std::function<std::int64_t(std::int64_t)> transferred = [](std::int64_t bytes) { return bytes; };
  std::function<void(FileStatus&)> seen = [](FileStatus&) {};

  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override {
    const auto wanted = static_cast<std::size_t>(transferred(static_cast<std::int64_t>(buffer.size())));
    return InterceptedFileSystem::read(descriptor, buffer.first(wanted), offset);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    const auto wanted = static_cast<std::size_t>(transferred(static_cast<std::int64_t>(data.size())));
    return InterceptedFileSystem::write(descriptor, data.first(wanted), offset);
  }
  int statusOf(const std::string& path, FileStatus& status) override {
    const int result = InterceptedFileSystem::statusOf(path, status);
    seen(status);
    return result;
  }

 private:
  bool admitted(test::Call call) override { return before(call); }
};

class RecordFileFailuresTest : public testing::Test {
 protected:
  RecordFileFailuresTest() { disk_.putFolder("/data"); }

  void append(std::string_view record) { RecordFile(files_, kPath, kLength).append(bytesOf(record)); }

  void rewrite(std::int64_t number, std::string_view record) {
    RecordFile file(files_, kPath, kLength);
    file.rewrite(file.seen(number), bytesOf(record));
  }
  void remove(std::int64_t number, const std::string& temporary) {
    RecordFile file(files_, kPath, kLength);
    file.remove(file.seen(number), temporary);
  }

  // From now on such calls fail with that error.
  void fail(test::Call which, int error) {
    files_.before = [which, error](test::Call call) {
      errno = error;
      return call != which;
    };
  }

  // From now on the next such call fails with that error; later ones work.
  void failOnce(test::Call which, int error) {
    files_.before = [this, which, error](test::Call call) {
      if (call != which) return true;
      errno = error;
      files_.before = [](test::Call) { return true; };  // and this function is no more
      return false;
    };
  }

  test::MemoryFileSystem disk_;
  HookedFileSystem files_{disk_};
};

TEST_F(RecordFileFailuresTest, AFileReplacedWhileItsLockWasTakenIsOpenedAnew) {
  disk_.put(kPath, "old1");
  bool isReplaced = false;
  files_.before = [&](test::Call call) {
    if (call == test::Call::TryLock && !std::exchange(isReplaced, true)) disk_.put(kPath, "new1");
    return true;
  };
  append(std::string_view("add\0", 4));
  EXPECT_EQ(disk_.contents(kPath), std::string("new1add\0", 8));
}

TEST_F(RecordFileFailuresTest, AFileOfTheSameNumberOnAnotherDeviceIsAnotherFile) {
  disk_.put(kPath, "old1");
  int looks = 0;
  files_.seen = [&](FileStatus& status) {
    if (looks++ == 0) ++status.device;
  };
  append(std::string_view("add\0", 4));
  EXPECT_EQ(looks, 2);
}

TEST_F(RecordFileFailuresTest, AFileRemovedWhileItsLockWasTakenIsMadeAnew) {
  disk_.put(kPath, "old1");
  bool isGone = false;
  files_.before = [&](test::Call call) {
    if (call == test::Call::StatusOf && !isGone) isGone = disk_.remove(kPath) == 0;
    return true;
  };
  append(std::string_view("add\0", 4));
  EXPECT_EQ(disk_.contents(kPath), std::string("add\0", 4));
}

TEST_F(RecordFileFailuresTest, AnotherProgramsLockIsWaitedForTwoSecondsAtMost) {
  disk_.put(kPath, "old1");
  const RecordFile other(disk_, kPath, kLength);
  int pauses = 0;
  files_.before = [&](test::Call call) {
    if (call == test::Call::Pause) ++pauses;
    return true;
  };
  test::expectFailure(FailureKind::FileBusy, [&] { append(std::string_view("add\0", 4)); });
  EXPECT_EQ(pauses, 80);
  EXPECT_EQ(disk_.openFiles(), 1);
}

TEST_F(RecordFileFailuresTest, AFailedAppendPutsThePartBehindTheLastRecordBack) {
  disk_.put(kPath, "old1ta");
  failOnce(test::Call::Sync, EIO);
  test::expectFailure(FailureKind::SyncFailed, [&] { append(std::string_view("add\0", 4)); });
  EXPECT_EQ(disk_.contents(kPath), "old1ta");
  disk_.put(kPath, "old1t");
  failOnce(test::Call::Sync, EIO);
  test::expectFailure(FailureKind::SyncFailed, [&] { append(std::string_view("add\0", 4)); });
  EXPECT_EQ(disk_.contents(kPath), "old1t");
}

TEST_F(RecordFileFailuresTest, ADiskThatTakesNothingIsFull) {
  disk_.put(kPath, "old1");
  files_.transferred = [](std::int64_t) { return 0; };
  test::expectSystemFailure(FailureKind::WriteFailed, ENOSPC, [&] { append(std::string_view("add\0", 4)); });
  EXPECT_EQ(disk_.contents(kPath), "old1");
}

// Another program without the lock (an editor, a copy) may cut a file short after its length was read.
TEST_F(RecordFileFailuresTest, AFileCutShortMeanwhileIsNotReplacedByWhatIsLeft) {
  for (const int operation : {0, 1, 2}) {
    disk_.put(kPath, "old1old2");
    RecordFile file(files_, kPath, kLength);
    const OpenFile other(disk_, disk_.open(kPath, OpenMode::ReadWriteItself));
    disk_.truncate(other.descriptor(), 3);
    test::expectFailure(FailureKind::ReadFailed, [&] {
      if (operation == 0) file.rewrite(file.seen(2), bytesOf("new2"));
      if (operation == 1) file.remove(file.seen(1), kTemporary);
      if (operation == 2) file.append(bytesOf("more"));
    });
    EXPECT_EQ(disk_.contents(kPath), "old");
  }
}

TEST_F(RecordFileFailuresTest, AReplacementInUseIsLeftAlone) {
  disk_.put(kPath, "old1");
  int locks = 0;
  files_.before = [&](test::Call call) {
    errno = EWOULDBLOCK;
    return call != test::Call::TryLock || ++locks == 1;
  };
  test::expectFailure(FailureKind::FileBusy, [&] { append("more"); });
  EXPECT_EQ(disk_.contents(kPath), "old1");
  EXPECT_FALSE(disk_.has(kPath + ".tmp"));
}

TEST_F(RecordFileFailuresTest, ALaterChangeOfTheSameFileBuildsOnItsReplacement) {
  disk_.put(kPath, "old1");
  RecordFile file(files_, kPath, kLength);
  file.append(bytesOf("more"));
  file.append(bytesOf(std::string_view("end\0", 4)));
  file.rewrite(file.seen(1), bytesOf("new1"));
  file.remove(file.seen(2), kTemporary);
  EXPECT_EQ(file.count(), 2);
  EXPECT_EQ(disk_.contents(kPath), std::string("new1end\0", 8));
}

TEST_F(RecordFileFailuresTest, AFileSystemWithoutLocksKeepsNobodyFromAChange) {
  for (const int error : {ENOLCK, EOPNOTSUPP}) {
    disk_.put(kPath, "old1");
    fail(test::Call::TryLock, error);
    append("more");
    EXPECT_EQ(disk_.contents(kPath), "old1more");
  }
}

TEST_F(RecordFileFailuresTest, ALockRefusedForAnotherReasonThanBeingHeldIsTold) {
  disk_.put(kPath, "old1");
  for (const int nth : {1, 2}) {
    int locks = 0;
    files_.before = [&](test::Call call) {
      errno = EIO;
      return call != test::Call::TryLock || ++locks != nth;
    };
    test::expectSystemFailure(FailureKind::OpenFailed, EIO, [&] { append("more"); });
    EXPECT_EQ(disk_.contents(kPath), "old1");
    EXPECT_FALSE(disk_.has(kPath + ".tmp"));
  }
}

TEST_F(RecordFileFailuresTest, AFileThatAnotherProgramHasToLetGoOfIsOpenedAMomentLater) {
  disk_.put(kPath, "old1");
  int pauses = 0;
  files_.before = [&](test::Call call) {
    if (call == test::Call::Pause) ++pauses;
    errno = EWOULDBLOCK;
    return call != test::Call::Open || pauses == 3;
  };
  EXPECT_EQ(readRecords(files_, kPath, kLength).size, kLength);
}

TEST_F(RecordFileFailuresTest, AFileThatIsNeverLetGoOfIsToldAfterTwoSeconds) {
  disk_.put(kPath, "old1");
  int pauses = 0;
  files_.before = [&](test::Call call) {
    if (call == test::Call::Pause) ++pauses;
    errno = EWOULDBLOCK;
    return call != test::Call::Open;
  };
  test::expectSystemFailure(FailureKind::OpenFailed, EWOULDBLOCK, [&] { append("more"); });
  EXPECT_EQ(pauses, 80);
}

TEST_F(RecordFileFailuresTest, PermissionBitsThatAreRightAlreadyAreNotSet) {
  disk_.put(kPath, "old1");
  disk_.setModeOf(kPath, 0600);
  fail(test::Call::SetMode, EPERM);
  append("more");
  EXPECT_EQ(disk_.contents(kPath), "old1more");
}

TEST_F(RecordFileFailuresTest, PermissionBitsThatCannotBeKeptAreAFailedChange) {
  disk_.put(kPath, "old1");
  failOnce(test::Call::SetMode, EPERM);
  test::expectSystemFailure(FailureKind::WriteFailed, EPERM, [&] { append("more"); });
  EXPECT_EQ(disk_.contents(kPath), "old1");
  EXPECT_EQ(disk_.modeOf(kPath), 0644U);
  EXPECT_FALSE(disk_.has(kPath + ".tmp"));
}

TEST_F(RecordFileFailuresTest, NobodyElseReadsTheNewContentsBeforeTheyHaveTheName) {
  disk_.put(kPath, "old1");
  disk_.setModeOf(kPath, 0640);
  std::vector<std::uint32_t> modes;
  files_.before = [&](test::Call call) {
    if (call == test::Call::Write || call == test::Call::Rename)
      modes.push_back(disk_.modeOf(kPath + ".tmp"));
    return true;
  };
  append("more");
  EXPECT_EQ(modes, (std::vector<std::uint32_t>{0600, 0640}));
  EXPECT_EQ(disk_.modeOf(kPath), 0640U);
}

TEST_F(RecordFileFailuresTest, ALinkPutInTheReplacementsPlaceIsNotWrittenThrough) {
  disk_.put(kPath, "old1");
  disk_.put("/data/victim", "theirs");
  bool isFree = false;
  files_.before = [&](test::Call call) {
    if (call == test::Call::Open && isFree) disk_.putLink(kPath + ".tmp", "/data/victim");
    isFree = isFree || call == test::Call::Remove;
    return true;
  };
  test::expectSystemFailure(FailureKind::OpenFailed, EEXIST, [&] { append("more"); });
  EXPECT_EQ(disk_.contents("/data/victim"), "theirs");
  EXPECT_EQ(disk_.contents(kPath), "old1");
}

TEST_F(RecordFileFailuresTest, AFileOfMoreRecordsThanNumbersReachIsRefusedBeforeItIsRead) {
  disk_.put(kPath, std::string(32'768 * kLength, 'x'));
  files_.before = [](test::Call call) { return call != test::Call::Read; };
  test::expectFailure(FailureKind::FileTooLong, [&] { rewrite(1, "new1"); });
  test::expectFailure(FailureKind::FileTooLong, [&] { remove(1, kTemporary); });
  test::expectFailure(FailureKind::FileTooLong, [&] { append("more"); });
}

TEST_F(RecordFileFailuresTest, AFullFileWithAPartOfARecordBehindItIsStillChanged) {
  disk_.put(kPath, std::string(32'767 * kLength + 3, 'x'));
  rewrite(32'767, "last");
  EXPECT_EQ(disk_.contents(kPath).substr(32'766 * kLength), "lastxxx");
}

TEST_F(RecordFileFailuresTest, ATemporaryFileThatIsTooLongIsNamedAndStays) {
  disk_.put(kPath, "old1old2");
  disk_.put(kTemporary, std::string(32'768 * kLength, 'x'));
  test::expectFileFailure(FailureKind::FileTooLong, kTemporary, [&] { remove(1, kTemporary); });
  EXPECT_EQ(disk_.contents(kPath), "old1old2");
  EXPECT_TRUE(disk_.has(kTemporary));
}

class SeenRecordTest : public RecordFileFailuresTest {
 protected:
  SeenRecordTest() { disk_.put(kPath, "rec1rec2rec3"); }

  static SeenRecord seen(std::int64_t number, std::string_view record) {
    const auto bytes = bytesOf(record);
    return {.number = number, .bytes = {bytes.begin(), bytes.end()}};
  }
  void rewriteSeen(const SeenRecord& record) {
    RecordFile(files_, kPath, kLength).rewrite(record, bytesOf("new!"));
  }
  void removeSeen(const SeenRecord& record) { RecordFile(files_, kPath, kLength).remove(record, kTemporary); }

  // Neither change is made of what is not there as it was seen.
  void expectRefused(const SeenRecord& record) {
    test::expectFailure(FailureKind::RecordChanged, [&] { rewriteSeen(record); });
    test::expectFailure(FailureKind::RecordChanged, [&] { removeSeen(record); });
    EXPECT_EQ(disk_.contents(kPath), "rec1rec2rec3");
    EXPECT_EQ(disk_.openFiles(), 0);
  }
};

TEST_F(SeenRecordTest, IsTheOneThatChanges) {
  rewriteSeen(seen(2, "rec2"));
  EXPECT_EQ(disk_.contents(kPath), "rec1new!rec3");
  removeSeen(seen(1, "rec1"));
  EXPECT_EQ(disk_.contents(kPath), "new!rec3");
}

TEST_F(SeenRecordTest, IsRefusedWhereSomethingElseStands) {
  expectRefused(seen(2, "rec3"));  // it moved away
  expectRefused(seen(2, "rec9"));  // it was changed
  expectRefused(seen(4, "rec4"));  // it is behind the end by now
  expectRefused({.number = 3});    // it was none, and one came since
}

TEST_F(SeenRecordTest, ThatNeitherWasNorIsCannotBeRewrittenAndRemovesNothing) {
  for (const std::int64_t number :
       {std::int64_t{0}, std::int64_t{-1}, std::int64_t{4}, INT64_MAX, INT64_MIN}) {
    test::expectFailure(FailureKind::RecordMissing, [&] { rewrite(number, "new!"); });
    remove(number, kTemporary);
  }
  EXPECT_EQ(disk_.contents(kPath), "rec1rec2rec3");
}

class LeftoverFailuresTest : public RecordFileFailuresTest {
 protected:
  LeftoverFailuresTest() {
    disk_.put(kPath, "rec1rec2");
    disk_.put(kTemporary, "copysurp");
  }
  void removeFirst() { remove(1, kTemporary); }
};

TEST_F(LeftoverFailuresTest, AFailedRenameKeepsTheSurplus) {
  int renames = 0;
  files_.before = [&](test::Call call) {
    errno = EIO;
    return call != test::Call::Rename || ++renames != 2;
  };
  test::expectFailure(FailureKind::ReplaceFailed, [&] { removeFirst(); });
  EXPECT_EQ(disk_.contents(kPath), "rec1rec2");
  EXPECT_EQ(disk_.contents(kTemporary), "rec2surp");
}

TEST_F(LeftoverFailuresTest, ALinkInItsPlaceIsNotFollowed) {
  disk_.put("/private", "somebody's letters");
  disk_.remove(kTemporary);
  disk_.putLink(kTemporary, "/private");
  test::expectFileFailure(FailureKind::NotOwnFile, kTemporary, [&] { removeFirst(); });
  EXPECT_EQ(disk_.contents(kPath), "rec1rec2");
  EXPECT_EQ(disk_.contents("/private"), "somebody's letters");
}

TEST_F(LeftoverFailuresTest, OneOfAnotherOwnerThanTheDataIsNotTakenOver) {
  disk_.setOwnerOf(kTemporary, 1001);
  test::expectFailure(FailureKind::NotOwnFile, [&] { removeFirst(); });
  EXPECT_EQ(disk_.contents(kPath), "rec1rec2");
  EXPECT_EQ(disk_.contents(kTemporary), "copysurp");
}

TEST_F(LeftoverFailuresTest, AnEmptyOneOfAnotherOwnerBringsNothingAndGoes) {
  disk_.put(kTemporary, "");
  disk_.setOwnerOf(kTemporary, 1001);
  removeFirst();
  EXPECT_EQ(disk_.contents(kPath), "rec2");
  EXPECT_FALSE(disk_.has(kTemporary));
}

TEST_F(LeftoverFailuresTest, ALinkThatLeadsNowhereMakesNoFileWhenADeletionIsOpened) {
  disk_.remove(kTemporary);
  disk_.putLink(kTemporary, "/data/elsewhere");
  test::expectFailure(FailureKind::NotOwnFile, [&] { createTemporaryIfMissing(files_, kTemporary); });
  EXPECT_FALSE(disk_.has("/data/elsewhere"));
}

class LeftoverOnAnotherDeviceTest : public RecordFileFailuresTest {
 protected:
  LeftoverOnAnotherDeviceTest() {
    disk_.putFolder("/far");
    disk_.moveToOtherDevice("/far");
    disk_.put(kPath, "rec1rec2");
    disk_.put(kFar, "copysurp");
  }
  void removeFirst() { remove(1, kFar); }
  const std::string kFar = "/far/filex.dat";
};

TEST_F(LeftoverOnAnotherDeviceTest, GoesAfterwards) {
  removeFirst();
  EXPECT_EQ(disk_.contents(kPath), "rec2surp");
  EXPECT_FALSE(disk_.has(kFar));
}

TEST_F(LeftoverOnAnotherDeviceTest, IsEmptiedWhereItCannotGo) {
  int removals = 0;
  files_.before = [&](test::Call call) {
    errno = EACCES;
    return call != test::Call::Remove || ++removals < 2;
  };
  removeFirst();
  EXPECT_EQ(disk_.contents(kPath), "rec2surp");
  EXPECT_TRUE(disk_.has(kFar));
  EXPECT_EQ(disk_.contents(kFar), "");
}

TEST_F(LeftoverOnAnotherDeviceTest, ALinkThatTookItsPlaceIsNotEmptiedThrough) {
  disk_.put("/data/victim", "theirs");
  int removals = 0;
  files_.before = [&](test::Call call) {
    errno = EACCES;
    if (call != test::Call::Remove || ++removals < 2) return true;
    disk_.putLink(kFar, "/data/victim");
    return false;
  };
  test::expectFailure(FailureKind::ReplaceFailed, [&] { removeFirst(); });
  EXPECT_EQ(disk_.contents("/data/victim"), "theirs");
}

TEST_F(LeftoverOnAnotherDeviceTest, IsReportedWhereItCannotEvenBeEmptied) {
  for (const test::Call last : {test::Call::Open, test::Call::Truncate}) {
    disk_.put(kPath, "rec1rec2");
    int removals = 0;
    files_.before = [&](test::Call call) {
      errno = EACCES;
      if (call == test::Call::Remove) return ++removals < 2;
      return removals < 2 || call != last;
    };
    test::expectFailure(FailureKind::ReplaceFailed, [&] { removeFirst(); });
    EXPECT_EQ(disk_.contents(kPath), "rec2surp");
  }
}

TEST_F(RecordFileFailuresTest, AMissingFileThatCannotBeMadeHasNoRecords) {
  failOnce(test::Call::Open, EROFS);
  EXPECT_EQ(readRecords(files_, kPath, kLength).size, 0U);
}

TEST_F(RecordFileFailuresTest, AFileThatNobodyMayOpenIsReported) {
  disk_.put(kPath, "old1");
  fail(test::Call::Open, EACCES);
  test::expectFailure(FailureKind::OpenFailed, [&] { readRecords(files_, kPath, kLength); });
}

TEST(RecordFilePathsTest, ABarePathLiesInTheCurrentFolderAndOneMayLieInTheRoot) {
  test::MemoryFileSystem disk;
  disk.putFolder(".");
  disk.putFolder("/");
  for (const std::string path : {"bare.dat", "/root.dat"}) {
    RecordFile(disk, path, kLength).append(bytesOf("more"));
    EXPECT_EQ(disk.contents(path), "more");
  }
}

TEST(OpenFileTest, MovingClosesWhatWasOpen) {
  test::MemoryFileSystem disk;
  disk.putFolder("/data");
  OpenFile first(disk, disk.open("/data/a", OpenMode::Create));
  OpenFile second(disk, disk.open("/data/b", OpenMode::Create));
  first = std::move(second);
  EXPECT_EQ(disk.openFiles(), 1);
  OpenFile& same = first;
  first = std::move(same);
  EXPECT_TRUE(first.isOpen());
  first.close();
  first.close();
  EXPECT_EQ(disk.openFiles(), 0);
}

}  // namespace
}  // namespace tarvik::core
