#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "core/failure.h"
#include "core/record_file.h"
#include "tests/safety/crash_checks.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/bytes.h"
#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {
namespace {

// A change that cannot be made of that file (no such record, say) is left out by its own failure.
void runQuietly(const Operation& operation, core::FileSystem& files) {
  try {
    operation.run(files, kDiskFolders);
  } catch (const core::Failure&) {
  }
}

CheckedChange changeOf(const Operation& operation) {
  return {.file = operation.file(kDiskFolders),
          .recordLength = operation.recordLength,
          .run = [&operation](core::FileSystem& files) { runQuietly(operation, files); }};
}

std::string replacementOf(const Operation& operation) {
  return operation.file(kDiskFolders) + ".tmp";
}

class PowerCutTest : public testing::TestWithParam<int> {};

TEST_P(PowerCutTest, LeavesOldOrNew) {
  for (const Operation& operation : operations(GetParam())) {
    const CrashResult result =
        crashEverywhere(preparedDisk(operation, GetParam()), changeOf(operation), 20'090'706);
    EXPECT_EQ(result.bad, 0U) << operation.name;
  }
}

TEST(PowerCutOfManyDisksTest, LeavesOldOrNew) {
  constexpr int kRecords = 40;
  std::size_t disks = 0;
  for (const Operation& operation : operations(kRecords)) {
    const CrashResult result = crashEverywhere(preparedDisk(operation, kRecords), changeOf(operation), 1);
    EXPECT_EQ(result.bad, 0U) << operation.name;
    disks += result.disks;
  }
  std::printf("%zu disks\n", disks);
  EXPECT_GE(disks, 100'000U);
}

// The name of a file that was made just now is as unsure as its first record.
TEST(PowerCutWithoutFileTest, LeavesOldOrNew) {
  for (const Operation& operation : operations(0)) {
    const CrashResult result = crashEverywhere(preparedDisk("", ""), changeOf(operation), 1);
    EXPECT_EQ(result.bad, 0U) << operation.name;
  }
}

// Disks that differ in what a later operation can meet.
std::vector<MemoryFileSystem> disksAfterPowerCut(const Operation& operation, const MemoryFileSystem& before) {
  MemoryFileSystem disk = before;
  disk.startRecording();
  runQuietly(operation, disk);
  const std::vector<DiskStep> steps = disk.steps();
  std::set<std::vector<std::string>> seen;
  std::vector<MemoryFileSystem> found;
  CrashStates states(before, steps, 2);
  for (std::size_t done = 0; done <= steps.size(); ++done)
    states.visit(done, [&](MemoryFileSystem& left) {
      const bool isUnseen = seen.insert({left.contents(operation.file(kDiskFolders)),
                                         left.has(replacementOf(operation)) ? "replacement" : "",
                                         left.contents(replacementOf(operation))})
                                .second;
      if (isUnseen) found.push_back(left);
    });
  return found;
}

// The machine starts again after the power cut; the same change is tried again and the power goes again.
TEST_P(PowerCutTest, LeavesOldOrNewASecondTimeToo) {
  constexpr std::size_t kDisksAnOperation = 12;
  std::size_t disks = 0;
  for (const Operation& operation : operations(GetParam())) {
    const std::vector<MemoryFileSystem> found =
        disksAfterPowerCut(operation, preparedDisk(operation, GetParam()));
    const std::size_t step = std::max<std::size_t>(found.size() / kDisksAnOperation, 1);
    for (std::size_t i = 0; i < found.size(); i += step) {
      const CrashResult result = crashEverywhere(found[i], changeOf(operation), static_cast<unsigned>(i));
      EXPECT_EQ(result.bad, 0U) << operation.name << ", disk " << i;
      disks += result.disks;
    }
  }
  std::printf("%zu disks\n", disks);
}

// After a power cut nothing is in the way of the next start and the next change.
TEST_P(PowerCutTest, IsFollowedByAWorkingChange) {
  for (const Operation& operation : operations(GetParam()))
    for (MemoryFileSystem& disk : disksAfterPowerCut(operation, preparedDisk(operation, GetParam()))) {
      MemoryFileSystem expected =
          preparedDisk(operation.file(kDiskFolders), disk.contents(operation.file(kDiskFolders)));
      runQuietly(operation, expected);
      runQuietly(operation, disk);
      ASSERT_TRUE(disk.contents(operation.file(kDiskFolders)) ==
                  expected.contents(operation.file(kDiskFolders)))
          << operation.name;
      ASSERT_FALSE(disk.has(replacementOf(operation))) << operation.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, PowerCutTest, testing::Values(0, 1, 2, 5, 11),
                         [](const auto& files) { return "With" + std::to_string(files.param) + "Records"; });

// A deletion that finds something in its temporary file: with the records that remain copied to the front,
// what is behind them belongs to the file from the moment when the file is new, and to the temporary file
// until then. In no state is it in both or in neither.
class LeftoverTest : public testing::TestWithParam<int> {
 protected:
  static constexpr int kCount = 5;

  // The temporary file is given so many records more than remain (or fewer).
  void checkAll(bool isOnOtherDevice) {
    std::size_t disks = 0;
    for (const Operation& operation : operations(kCount)) {
      const std::string temporary = operation.temporary(kDiskFolders);
      if (temporary.empty()) continue;
      MemoryFileSystem before = preparedDisk(operation, kCount);
      before.put(temporary, fileOf(operation, kCount - 1 + GetParam()));
      if (isOnOtherDevice && parentOf(temporary) != kDiskFolders.current) continue;
      if (isOnOtherDevice) before.moveToOtherDevice(kDiskFolders.current);
      const CrashResult result = crashEverywhere(before, changeWith(operation, before, isOnOtherDevice), 3);
      EXPECT_EQ(result.bad, 0U) << operation.name;
      disks += result.disks;
    }
    std::printf("%zu disks\n", disks);
  }

 private:
  CheckedChange changeWith(const Operation& operation, const MemoryFileSystem& before, bool isOnOtherDevice) {
    const std::size_t kept = operation.recordLength * (kCount - 1);
    const std::string temporary = operation.temporary(kDiskFolders);
    const std::string& held = before.contents(temporary);
    const std::string surplus = held.size() > kept ? held.substr(kept) : "";
    CheckedChange change = changeOf(operation);
    change.stays = [=](MemoryFileSystem& left, bool isNew, bool isOver) {
      const std::string& now = left.contents(temporary);
      if (isNew) return (isOnOtherDevice && !isOver) || !left.has(temporary);
      return left.has(temporary) && (now.size() > kept ? now.substr(kept) : "") == surplus;
    };
    return change;
  }
};

TEST_P(LeftoverTest, IsNeverInBothFilesOrInNeither) {
  checkAll(false);
}

// Two file systems cannot change in one step: the surplus may be in both for a moment, never in neither.
TEST_P(LeftoverTest, IsNeverLostAcrossFileSystems) {
  checkAll(true);
}

INSTANTIATE_TEST_SUITE_P(Records, LeftoverTest, testing::Values(-3, 0, 1, 3),
                         [](const auto& more) { return "Of" + std::to_string(more.param + 4); });

// Appending again after an append that failed, or one that was killed. How many records are there before
// decides where the new ones lie in their sectors of 512 bytes: behind three, the second append's cross into
// the next.
class AppendAfterAppendTest : public testing::TestWithParam<int> {
 protected:
  static constexpr std::size_t kLength = 156;
  const std::string file_ = "/program/data.dat";
  const std::string old_ = std::string(static_cast<std::size_t>(GetParam()) * kLength, 'o');

  static std::string recordOf(char fill) { return std::string(kLength - 1, fill) + '\0'; }

  void append(core::FileSystem& files, char fill) const {
    core::RecordFile(files, file_, kLength).append(bytesOf(recordOf(fill)));
  }

  // The first append is stopped by the plan, the second is not; the power goes anywhere in the second.
  std::size_t badDisksWith(const FailurePlan& plan) {
    const MemoryFileSystem before = preparedDisk(file_, old_);
    MemoryFileSystem disk = before;
    disk.startRecording();
    FailingFileSystem failing(disk, plan);
    try {
      append(failing, 'a');
    } catch (const core::Failure&) {
    }
    const std::size_t afterFirst = disk.steps().size();
    const std::string first = disk.contents(file_).substr(0, disk.contents(file_).size() / kLength * kLength);
    append(disk, 'b');
    const std::string second = disk.contents(file_);
    EXPECT_EQ(second, first + recordOf('b'));

    std::size_t bad = 0;
    CrashStates states(before, disk.steps(), 4);
    for (std::size_t done = afterFirst; done <= disk.steps().size(); ++done)
      states.visit(done, [&](MemoryFileSystem& left) {
        const std::string whole =
            left.contents(file_).substr(0, left.contents(file_).size() / kLength * kLength);
        const bool isEarlier = whole == old_ || whole == old_ + recordOf('a') || whole == first;
        if (whole != second && (done == disk.steps().size() || !isEarlier)) ++bad;
      });
    return bad;
  }
};

TEST_P(AppendAfterAppendTest, IsSafeBehindAFailedOne) {
  for (int nth = 1; nth <= 30; ++nth) EXPECT_EQ(badDisksWith({.nth = nth, .error = EIO}), 0U) << nth;
}

TEST_P(AppendAfterAppendTest, IsSafeBehindAKilledOne) {
  for (int nth = 1; nth <= 30; ++nth)
    EXPECT_EQ(badDisksWith({.nth = nth, .error = EIO, .staysBroken = true}), 0U) << nth;
}

INSTANTIATE_TEST_SUITE_P(Behind, AppendAfterAppendTest, testing::Values(1, 2, 3, 4, 5),
                         [](const auto& old) { return std::to_string(old.param) + "Records"; });

}  // namespace
}  // namespace tarvik::test
