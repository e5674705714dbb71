#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "core/failure.h"
#include "core/history.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/crash_states.h"
#include "tests/support/intercepted_file_system.h"

// Undoing and redoing on disks that fail and with the power cut.

namespace tarvik::test {
namespace {

constexpr int kRecords = 5;

// Each kind of change, and a step of two files.
class HistoryFailuresTest : public testing::Test {
 protected:
  using Travel = core::Travelled (core::History::*)(core::FileSystem&);

  // A disk on which the two operations were made in one step.
  void prepare(const Operation& first, const Operation& second) {
    disk_ = preparedDisk(first, kRecords);
    if (!disk_.has(second.file(kDiskFolders))) disk_.put(second.file(kDiskFolders), fileOf(second, kRecords));
    paths_ = {first.file(kDiskFolders), second.file(kDiskFolders)};
    old_ = contents(disk_);
    history_ = core::History();
    disk_.watch(&history_);
    {
      const core::History::Action action(history_, "kettő");
      first.run(disk_, kDiskFolders);
      second.run(disk_, kDiskFolders);
    }
    disk_.watch(nullptr);
    new_ = contents(disk_);
  }

  std::vector<std::string> contents(const MemoryFileSystem& disk) const {
    std::vector<std::string> found;
    for (const std::string& path : paths_) found.push_back(disk.contents(path));
    return found;
  }

  // Each file is as it was or as it is to be, and the answer says which.
  bool travelWith(const FailurePlan& plan, Travel travel, const std::vector<std::string>& from,
                  const std::vector<std::string>& to) {
    MemoryFileSystem disk = disk_;
    core::History history = history_;
    FailingFileSystem failing(disk, plan);
    failing.watch(&history);
    std::vector<std::string> done;
    bool isTold = false;
    try {
      const core::Travelled travelled = (history.*travel)(failing);
      for (const core::TravelledFile& file : travelled.files) done.push_back(file.path);
      isTold = travelled.failure.has_value();
      EXPECT_EQ(travelled.left.empty(), done.size() == 2) << "all of it or told";
    } catch (const core::Failure&) {
      isTold = true;
    }
    if (!failing.hasFailed()) return false;
    const std::vector<std::string> now = contents(disk);
    for (std::size_t i = 0; i < paths_.size(); ++i) {
      const bool isDone = std::ranges::find(done, paths_[i]) != done.end();
      EXPECT_TRUE(now[i] == (isDone ? to[i] : from[i]))
          << paths_[i] << (isDone ? " is not back" : " changed");
      EXPECT_TRUE(isDone || isTold);
      EXPECT_TRUE(plan.staysBroken || !disk.has(paths_[i] + ".tmp"));
    }
    EXPECT_EQ(disk.openFiles(), 0);
    ++cases_;
    expectRestWorks(disk, history, travel, to);
    return !HasFailure();
  }

  // A new try on a disk that works does what was left.
  void expectRestWorks(MemoryFileSystem& disk, core::History& history, Travel travel,
                       const std::vector<std::string>& to) {
    disk.watch(&history);
    if (contents(disk) != to) (history.*travel)(disk);
    EXPECT_EQ(contents(disk), to);
  }

  MemoryFileSystem disk_;
  core::History history_;
  std::vector<std::string> paths_;
  std::vector<std::string> old_;
  std::vector<std::string> new_;
  int cases_ = 0;
};

// Pairs of changes of different files, of which each succeeds.
std::vector<std::pair<Operation, Operation>> pairs() {
  const std::vector<Operation> all = operations(kRecords);
  std::vector<std::pair<Operation, Operation>> found;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Operation& other = all[(i + all.size() / 2) % all.size()];
    if (all[i].file(kDiskFolders) != other.file(kDiskFolders)) found.emplace_back(all[i], other);
  }
  return found;
}

TEST_F(HistoryFailuresTest, EndsOldOrNewAndSaysWhich) {
  for (const auto& [first, second] : pairs()) {
    prepare(first, second);
    for (const int error : {EIO, ENOSPC, EACCES, EINTR, FailurePlan::kShortWrite})
      for (const bool staysBroken : {false, true})
        for (int nth = 1; nth <= 80; ++nth) {
          SCOPED_TRACE(testing::Message()
                       << first.name << " and " << second.name << ", call " << nth << ", errno " << error
                       << (staysBroken ? ", from then on" : ", once"));
          const bool wasReached = travelWith({nth, error, staysBroken}, &core::History::undo, new_, old_);
          if (HasFailure()) return;
          if (!wasReached && error != FailurePlan::kShortWrite) break;
        }
  }
  std::printf("%d cases\n", cases_);
  EXPECT_GE(cases_, 1'000);
}

TEST_F(HistoryFailuresTest, LeavesOldOrNewAtEveryPowerCut) {
  std::size_t disks = 0;
  for (const auto& [first, second] : pairs()) {
    prepare(first, second);
    const MemoryFileSystem before = disk_;
    disk_.watch(&history_);
    disk_.startRecording();
    history_.undo(disk_);
    const std::vector<DiskStep> steps = disk_.steps();
    CrashStates states(before, steps, 7);
    for (std::size_t done = 0; done <= steps.size(); ++done)
      disks += states.visit(done, [&](MemoryFileSystem& left) {
        const std::vector<std::string> now = contents(left);
        for (std::size_t i = 0; i < now.size(); ++i) {
          ASSERT_TRUE(left.has(paths_[i]));
          ASSERT_TRUE(now[i] == old_[i] || (done < steps.size() && now[i] == new_[i]))
              << first.name << second.name;
        }
        if (now[0] == old_[0]) {
          ASSERT_EQ(now[1], old_[1]) << "the file that was changed last goes back first";
        }
      });
  }
  std::printf("%zu disks\n", disks);
  EXPECT_GE(disks, 1'000U);
}

}  // namespace
}  // namespace tarvik::test
