#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "core/dated_copies.h"
#include "core/failure.h"
#include "core/taking_back.h"
#include "tests/support/crash_states.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

// Copying, thinning out and taking back on disks that fail and with the power cut. A kill is a power cut that
// the disk did not notice: what was done until then is there.

namespace tarvik::test {
namespace {

using core::dayOf;

const std::string kSets = "/p/Mentések";
const std::string kNow = "/2026-03-21";
const std::string kBefore = kNow + " visszaállítás előtt";

constexpr int kOldSets = 15;  // one more than are kept beside today's

std::string records(char filling, std::size_t count, std::size_t length) {
  return std::string(count * length, filling);
}

// A household of one car with a set for each of the days before, and what a run that was cut short left.
class DatedCopiesFailuresTest : public testing::Test {
 protected:
  DatedCopiesFailuresTest() {
    disk_.putFolder("/p");
    disk_.putFolder("/p/ABC-123");
    disk_.put("/p/rendsz.dat", "ABC-123 22");
    disk_.put("/p/ABC-123/napiadat.dat", kLogbook);
    disk_.put("/p/Gumik.dat", kTyres);
    disk_.putFolder(kSets);
    disk_.put(kSets + "/zár", "");
    for (int day = 0; day < kOldSets; ++day) putSet(core::setName(core::addDays(dayOf({2026, 3, 1}), day)));
    disk_.putFolder(kSets + "/2026-02-28.tmp");
    disk_.put(kSets + "/2026-02-28.tmp/Gumik.dat", "half");
  }

  void putSet(const std::string& name) {
    disk_.putFolder(kSets + "/" + name);
    disk_.putFolder(kSets + "/" + name + "/ABC-123");
    disk_.put(kSets + "/" + name + "/ABC-123/napiadat.dat", kOldLogbook);
    disk_.put(kSets + "/" + name + "/Gumik.dat", kOldTyres);
    disk_.put(kSets + "/" + name + "/rendsz.dat", "ABC-123 22");
  }

  static std::vector<std::string> namesIn(MemoryFileSystem& disk, const std::string& folder) {
    std::vector<std::string> names;
    disk.list(folder, names);
    return names;
  }

  // Whatever has a day's name is the whole set of that day.
  void expectWholeSets(MemoryFileSystem& disk) {
    for (const std::string& name : namesIn(disk, kSets)) {
      if (!core::dayOfSet(name)) continue;
      const bool isNew = ("/" + name).starts_with(kNow);
      const std::string set = kSets + "/" + name;
      ASSERT_EQ(disk.contents(set + "/ABC-123/napiadat.dat"), isNew ? kLogbook : kOldLogbook) << name;
      ASSERT_EQ(disk.contents(set + "/Gumik.dat"), isNew ? kTyres : kOldTyres) << name;
      ASSERT_EQ(disk.contents(set + "/rendsz.dat"), "ABC-123 22") << name;
    }
  }
  static std::size_t setsOn(MemoryFileSystem& disk) {
    return static_cast<std::size_t>(std::ranges::count_if(
        namesIn(disk, kSets), [](const std::string& name) { return core::dayOfSet(name).has_value(); }));
  }
  static bool hasUnfinished(MemoryFileSystem& disk) {
    return std::ranges::any_of(namesIn(disk, kSets),
                               [](const std::string& name) { return name.ends_with(".tmp"); });
  }
  void expectData(const MemoryFileSystem& disk) {
    ASSERT_EQ(disk.contents("/p/ABC-123/napiadat.dat"), kLogbook);
    ASSERT_EQ(disk.contents("/p/Gumik.dat"), kTyres);
  }
  // The next run makes the set, and lets the rest go with that of the day after at the latest.
  void expectNextRunWorks(MemoryFileSystem& disk) {
    core::DatedCopies(disk, folders_, clock_).beforeChange();
    ASSERT_TRUE(disk.hasFolder(kSets + kNow));
    const FixedClock tomorrow{{2026, 3, 22}};
    core::DatedCopies(disk, folders_, tomorrow).beforeChange();
    ASSERT_TRUE(disk.hasFolder(kSets + "/2026-03-22"));
    ASSERT_EQ(setsOn(disk), 15U);  // fourteen days and the first of the month
    ASSERT_FALSE(hasUnfinished(disk));
    ASSERT_EQ(disk.openFiles(), 0);
  }

  const std::string kLogbook = records('n', 3, 156);
  const std::string kOldLogbook = records('o', 2, 156);
  const std::string kTyres = records('t', 2, 71);
  const std::string kOldTyres = records('u', 1, 71);

  MemoryFileSystem disk_;
  core::DataFolders folders_{.program = "/p", .current = "/p"};
  FixedClock clock_{{2026, 3, 21}};
};

TEST_F(DatedCopiesFailuresTest, LeaveWholeSetsAtEveryPowerCut) {
  const MemoryFileSystem before = disk_;
  disk_.startRecording();
  core::DatedCopies(disk_, folders_, clock_).beforeChange();
  ASSERT_TRUE(disk_.hasFolder(kSets + kNow));
  ASSERT_EQ(setsOn(disk_), 15U);
  const std::vector<DiskStep> steps = disk_.steps();
  CrashStates states(before, steps, 11);
  std::size_t disks = 0;
  for (std::size_t done = 0; done <= steps.size(); ++done)
    disks += states.visit(done, [&](MemoryFileSystem& left) {
      if (HasFatalFailure()) return;
      SCOPED_TRACE(done);
      expectWholeSets(left);
      expectData(left);
      ASSERT_GE(setsOn(left), 15U) << "an old set went before the new one was there";
      expectNextRunWorks(left);
    });
  std::printf("%zu disks\n", disks);
  EXPECT_GE(disks, 1'000U);
}

TEST_F(DatedCopiesFailuresTest, LeaveWholeSetsWhateverCallFails) {
  const MemoryFileSystem before = disk_;
  int cases = 0;
  for (const int error : {EIO, ENOSPC, EACCES, EROFS, EINTR, FailurePlan::kShortWrite})
    for (const bool staysBroken : {false, true})
      for (int nth = 1; nth <= 600; ++nth) {
        SCOPED_TRACE(testing::Message()
                     << "call " << nth << ", errno " << error << (staysBroken ? " on" : ""));
        MemoryFileSystem disk = before;
        FailingFileSystem failing(disk, {nth, error, staysBroken});
        core::DatedCopies copies(failing, folders_, clock_);
        copies.beforeChange();
        const bool hasFailed = copies.takeFailure().has_value();
        const bool isTold = hasFailed || !copies.takeLeftOut().empty();
        expectData(disk);
        ASSERT_EQ(disk.openFiles(), 0);
        ASSERT_TRUE(hasFailed || disk.hasFolder(kSets + kNow));
        for (const std::string file : {"/rendsz.dat", "/Gumik.dat", "/ABC-123/napiadat.dat"})
          ASSERT_TRUE(!disk.has(kSets + kNow + file) ||
                      disk.contents(kSets + kNow + file) == disk.contents("/p" + file));
        ASSERT_GE(setsOn(disk), 15U) << "an old set went before the new one was there";
        if (!isTold) expectWholeSets(disk);
        if (HasFatalFailure()) return;
        if (!failing.hasFailed() && error != FailurePlan::kShortWrite) break;
        if (!isTold || !disk.hasFolder(kSets + kNow)) expectNextRunWorks(disk);
        if (HasFatalFailure()) return;
        ++cases;
      }
  std::printf("%d cases\n", cases);
  EXPECT_GE(cases, 1'000);
}

// Each file is the present one or that of the set, and whenever one is the set's, a whole copy of what was
// there has its name.
TEST_F(DatedCopiesFailuresTest, TakenBackLeaveOldOrNewAtEveryPowerCut) {
  const core::DatedSet set = core::datedSets(disk_, folders_).front();
  const MemoryFileSystem before = disk_;
  disk_.startRecording();
  core::DatedCopies copies(disk_, folders_, clock_);
  core::takeBack(disk_, folders_, copies, set, set.files);
  ASSERT_EQ(disk_.contents("/p/Gumik.dat"), kOldTyres);
  const std::vector<DiskStep> steps = disk_.steps();
  CrashStates states(before, steps, 12);
  std::size_t disks = 0;
  for (std::size_t done = 0; done <= steps.size(); ++done)
    disks += states.visit(done, [&](MemoryFileSystem& left) {
      if (HasFatalFailure()) return;
      SCOPED_TRACE(done);
      expectWholeSets(left);
      const std::string& logbook = left.contents("/p/ABC-123/napiadat.dat");
      const std::string& tyres = left.contents("/p/Gumik.dat");
      const bool isAtTheEnd = done == steps.size();
      ASSERT_TRUE(logbook == kOldLogbook || (!isAtTheEnd && logbook == kLogbook));
      ASSERT_TRUE(tyres == kOldTyres || (!isAtTheEnd && tyres == kTyres));
      ASSERT_TRUE(left.hasFolder(kSets + kBefore) || (logbook == kLogbook && tyres == kTyres));
    });
  std::printf("%zu disks\n", disks);
  EXPECT_GE(disks, 1'000U);
}

}  // namespace
}  // namespace tarvik::test
