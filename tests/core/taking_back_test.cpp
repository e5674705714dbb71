#include "core/taking_back.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "core/entry_editing.h"
#include "core/safety_net.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::core {
namespace {

using test::MemoryFileSystem;

std::string entry(int reading, const CalendarDate& date) {
  return test::textOf(encoded(NapiAdat{.KmOra = reading, .Datum = toStored(dayOf(date))}));
}

// A household whose set of yesterday has two entries of the one car, which has three by now, and the same
// tyres.
class TakingBackTest : public testing::Test {
 protected:
  TakingBackTest() {
    disk_.putFolder("/p");
    disk_.putFolder("/p/ABC-123");
    disk_.put("/p/rendsz.dat", "ABC-123 22");
    disk_.put("/p/ABC-123/napiadat.dat", kKept);
    disk_.put("/p/Gumik.dat", std::string(71, 't'));
    copies_.beforeChange();
    clock_.day = dayOf({2026, 3, 22});
    disk_.put("/p/ABC-123/napiadat.dat", kNow);
    disk_.put("/p/Szerviz.dat", std::string(186, 's'));
  }

  DatedSet set() { return datedSets(disk_, folders_).back(); }
  std::string logbook() { return disk_.contents("/p/ABC-123/napiadat.dat"); }
  TakenBack takeAll(FileSystem& files) {
    const DatedSet wanted = set();
    DatedCopies copies(files, folders_, clock_);
    return takeBack(files, folders_, copies, wanted, wanted.files);
  }

  const std::string kKept = entry(100, {2026, 3, 1}) + entry(200, {2026, 3, 20});
  const std::string kNow = kKept + entry(300, {2026, 3, 21});

  MemoryFileSystem disk_;
  DataFolders folders_{.program = "/p", .current = "/p"};
  test::FixedClock clock_{{2026, 3, 21}};
  DatedCopies copies_{disk_, folders_, clock_};
};

TEST_F(TakingBackTest, ComparesEachFileWithNow) {
  const std::vector<SetComparison> lines = compared(disk_, set());
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].file.plate, "ABC-123");
  EXPECT_EQ(lines[0].entries, 2);
  EXPECT_EQ(lines[0].entriesNow, 3);
  EXPECT_EQ(lines[0].lastDay, dayOf({2026, 3, 20}));
  EXPECT_FALSE(lines[0].isSame);
  EXPECT_EQ(lines[1].file.kind.reg, Register::Vehicles);
  EXPECT_TRUE(lines[1].isSame);
  EXPECT_EQ(lines[2].file.kind.reg, Register::Tyres);
  EXPECT_TRUE(lines[2].isSame);
}

TEST_F(TakingBackTest, NamesWhatIsDamaged) {
  disk_.put(set().path + "/ABC-123/napiadat.dat", kKept + "half");
  disk_.putOther(set().path + "/Gumik.dat");
  const std::vector<SetComparison> lines = compared(disk_, set());
  EXPECT_EQ(lines[0].state, SetFileState::Damaged);
  EXPECT_EQ(lines[1].state, SetFileState::Whole);
  EXPECT_EQ(lines[2].state, SetFileState::Unreadable);
}

TEST_F(TakingBackTest, TakesAPartOfARecordForDamageUnlessItIsThereNowToo) {
  for (const std::string& part : {std::string("h"), std::string("half")}) {
    disk_.put(set().path + "/ABC-123/napiadat.dat", kKept + part);
    EXPECT_EQ(compared(disk_, set())[0].state, SetFileState::Damaged);
    disk_.put("/p/ABC-123/napiadat.dat", kKept + part);
    EXPECT_EQ(compared(disk_, set())[0].state, SetFileState::Whole);
  }
}

TEST_F(TakingBackTest, PassesDaysThatCannotBeReadAndFilesThatAreEmptyOnBothSides) {
  const std::string damaged = test::textOf(encoded(NapiAdat{.KmOra = 300, .Datum = 1e18}));
  disk_.put(set().path + "/ABC-123/napiadat.dat", kKept + damaged);
  disk_.put(set().path + "/set.dat", "");
  const std::vector<SetComparison> lines = compared(disk_, set());
  EXPECT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].entries, 3);
  EXPECT_EQ(lines[0].lastDay, dayOf({2026, 3, 20}));
}

TEST_F(TakingBackTest, GivesAllBackAfterACopyOfNowAndIsUndoneInOneStep) {
  SafetyNet net(disk_, folders_, clock_);
  const DatedSet wanted = set();
  TakenBack taken;
  {
    const History::Action action(net.history(), "visszaállítás");
    taken = takeBack(disk_, folders_, net.copies(), wanted, wanted.files);
  }
  EXPECT_EQ(logbook(), kKept);
  EXPECT_EQ(taken.done.size(), 3U);
  EXPECT_EQ(taken.copyOfNow, "2026-03-22 visszaállítás előtt");
  EXPECT_EQ(disk_.contents("/p/Mentések/2026-03-22 visszaállítás előtt/ABC-123/napiadat.dat"), kNow);
  EXPECT_EQ(disk_.contents("/p/Szerviz.dat"), std::string(186, 's'));  // it is not in the set
  EXPECT_EQ(net.history().steps(), 1U);
  net.history().undo(disk_);
  EXPECT_EQ(logbook(), kNow);
}

TEST_F(TakingBackTest, GivesOneCarBackAndLeavesTheRest) {
  disk_.put("/p/Gumik.dat", "other");
  const DatedSet wanted = set();
  const auto car = std::ranges::find(wanted.files, "ABC-123", &SetFile::plate);
  takeBack(disk_, folders_, copies_, wanted, std::span(&*car, 1));
  EXPECT_EQ(logbook(), kKept);
  EXPECT_EQ(disk_.contents("/p/Gumik.dat"), "other");
}

TEST_F(TakingBackTest, GivesWholeRecordsOfADamagedFileAlone) {
  disk_.put(set().path + "/ABC-123/napiadat.dat", kKept + "half");
  takeAll(disk_);
  EXPECT_EQ(logbook(), kKept);
}

TEST_F(TakingBackTest, GivesASetCopiedByHandBackWithAVehicleThatIsNotThere) {
  disk_.putFolder("/p/Mentések/Régi gép");
  disk_.putFolder("/p/Mentések/Régi gép/JKL-012");
  disk_.put("/p/Mentések/Régi gép/JKL-012/napiadat.dat", kKept);
  disk_.put("/p/Mentések/Régi gép/rendsz.dat", "JKL-012 22");
  const DatedSet wanted = set();
  ASSERT_EQ(wanted.name, "Régi gép");
  takeBack(disk_, folders_, copies_, wanted, wanted.files);
  EXPECT_EQ(disk_.contents("/p/JKL-012/napiadat.dat"), kKept);
  EXPECT_EQ(disk_.contents("/p/rendsz.dat"), "JKL-012 22");
}

// Else a power cut could take the folder away with the logbook that is in it.
TEST_F(TakingBackTest, PutsTheFolderOfAVehicleThatIsNotThereOnTheDiskWithItsName) {
  struct Watched final : test::InterceptedFileSystem {
    using InterceptedFileSystem::InterceptedFileSystem;
    int makeFolder(const std::string& path) override {
      steps.push_back("make " + path);
      return InterceptedFileSystem::makeFolder(path);
    }
    int syncFolder(const std::string& path) override {
      steps.push_back("sync " + path);
      return InterceptedFileSystem::syncFolder(path);
    }
    bool admitted(test::Call) override { return true; }
    std::vector<std::string> steps;
  } watched(disk_);
  disk_.putFolder("/p/Mentések/Régi gép");
  disk_.putFolder("/p/Mentések/Régi gép/JKL-012");
  disk_.put("/p/Mentések/Régi gép/JKL-012/napiadat.dat", kKept);
  const DatedSet wanted = set();
  takeBack(watched, folders_, copies_, wanted, wanted.files);
  const auto made = std::ranges::find(watched.steps, "make /p/JKL-012");
  ASSERT_LT(made - watched.steps.begin(), std::ssize(watched.steps) - 1);
  EXPECT_EQ(made[1], "sync /p");
}

// A vehicle that is in no list any more still has its logbook, which is copied before it is replaced.
TEST_F(TakingBackTest, CopiesTheLogbookOfAVehicleThatIsNotListedToo) {
  disk_.put("/p/rendsz.dat", "");
  takeAll(disk_);
  EXPECT_EQ(logbook(), kKept);
  EXPECT_EQ(disk_.contents("/p/Mentések/2026-03-22 visszaállítás előtt/ABC-123/napiadat.dat"), kNow);
}

// Whatever call fails, each file is old or new and the answer says which.
TEST_F(TakingBackTest, EndsOldOrNewAndSaysWhichWhenACallFails) {
  disk_.put("/p/Gumik.dat", std::string(71, 'n'));
  const MemoryFileSystem before = disk_;
  const DatedSet wanted = set();
  int cases = 0;
  int parted = 0;
  for (const int error : {EIO, ENOSPC, EACCES})
    for (const bool staysBroken : {false, true})
      for (int nth = 1; nth <= 600; ++nth) {
        disk_ = before;
        test::FailingFileSystem failing(disk_, {nth, error, staysBroken});
        DatedCopies copies(failing, folders_, clock_);
        std::vector<std::string> done;
        bool isTold = false;
        try {
          const TakenBack taken = takeBack(failing, folders_, copies, wanted, wanted.files);
          for (const SetFile& file : taken.done) done.push_back(file.place);
          isTold = taken.failure.has_value();
          if (!taken.left.empty()) ++parted;
        } catch (const Failure&) {
          isTold = true;
        }
        const auto isDone = [&](const std::string& path) {
          return std::ranges::find(done, path) != done.end();
        };
        ASSERT_EQ(logbook(), isDone("/p/ABC-123/napiadat.dat") ? kKept : kNow) << nth;
        ASSERT_EQ(disk_.contents("/p/Gumik.dat"), std::string(71, isDone("/p/Gumik.dat") ? 't' : 'n')) << nth;
        ASSERT_TRUE(done.size() == 3 || isTold) << nth;
        ASSERT_EQ(disk_.openFiles(), 0);
        if (!failing.hasFailed()) break;
        ++cases;
      }
  EXPECT_GE(cases, 300);
  EXPECT_GT(parted, 0);
}

}  // namespace
}  // namespace tarvik::core
