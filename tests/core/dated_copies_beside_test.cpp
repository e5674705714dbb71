#include <gmock/gmock.h>

#include <algorithm>

#include "core/dated_copies.h"
#include "core/dated_sets.h"
#include "core/machine_file_system.h"
#include "tests/support/expect_failure.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

// Copies beside another program, and what a call that fails leaves behind.

namespace tarvik::core {
namespace {

using test::MemoryFileSystem;
using testing::ElementsAre;

const std::string kToday = "/p/Mentések/2026-03-21";
const DataFolders kFolders{.program = "/p", .current = "/p"};

MemoryFileSystem household() {
  MemoryFileSystem disk;
  disk.putFolder("/p");
  disk.put("/p/Gumik.dat", "tyres");
  return disk;
}

// Another program makes the day's set while this one waits for the lock.
class BesideAnother : public test::InterceptedFileSystem {
 public:
  explicit BesideAnother(MemoryFileSystem& disk) : InterceptedFileSystem(disk), disk_(disk) {}
  int open(const std::string& path, OpenMode mode) override {
    if (path.ends_with("/zár")) {
      disk_.putFolder(kToday);
      disk_.put(kToday + "/Gumik.dat", "theirs");
    }
    return InterceptedFileSystem::open(path, mode);
  }

 private:
  bool admitted(test::Call) override { return true; }

  MemoryFileSystem& disk_;
};

TEST(DatedCopies, LeaveASetThatAnotherProgramMadeMeanwhile) {
  MemoryFileSystem disk = household();
  BesideAnother files(disk);
  const test::FixedClock clock{{2026, 3, 21}};
  DatedCopies copies(files, kFolders, clock);
  copies.beforeChange();
  EXPECT_EQ(copies.takeFailure(), std::nullopt);
  EXPECT_EQ(disk.contents(kToday + "/Gumik.dat"), "theirs");
}

TEST(DatedCopies, LeaveNothingUnfinishedBehindACallThatFails) {
  const test::FixedClock clock{{2026, 3, 21}};
  for (int nth = 1;; ++nth) {
    MemoryFileSystem disk = household();
    test::FailingFileSystem failing(disk, {nth, EIO, false});
    DatedCopies copies(failing, kFolders, clock);
    copies.beforeChange();
    EXPECT_FALSE(disk.hasFolder(kToday + ".tmp")) << nth;
    if (!failing.hasFailed()) break;
  }
}

// A disk that refuses some calls, and to open the household's files.
class Refusing : public test::InterceptedFileSystem {
 public:
  Refusing(MemoryFileSystem& disk, std::optional<test::Call> refused)
      : InterceptedFileSystem(disk), refused_(refused) {}
  int open(const std::string& path, OpenMode mode) override {
    if (!path.ends_with("Gumik.dat")) return InterceptedFileSystem::open(path, mode);
    errno = EACCES;
    return -1;
  }

 private:
  bool admitted(test::Call call) override {
    errno = EACCES;
    return call != refused_;
  }

  std::optional<test::Call> refused_;
};

TEST(DatedCopies, AreNotMadeWhereNothingCanBeCopiedOrNoFolderBeMade) {
  const test::FixedClock clock{{2026, 3, 21}};
  for (const auto refused : {std::optional<test::Call>(), std::optional(test::Call::MakeFolder)}) {
    MemoryFileSystem disk = household();
    Refusing files(disk, refused);
    DatedCopies copies(files, kFolders, clock);
    copies.beforeChange();
    EXPECT_FALSE(disk.hasFolder(kToday));
    const auto failure = copies.takeFailure();
    EXPECT_EQ(failure ? failure->file() : "", refused ? "/p/Mentések" : "");
    EXPECT_EQ(copies.takeLeftOut().size(), refused ? 0U : 1U);
  }
}

TEST(DatedCopies, ThatFailTellNothingOfWhatIsNotInThem) {
  const test::FixedClock clock{{2026, 3, 21}};
  MemoryFileSystem disk = household();
  disk.put("/p/set.dat", "settings");
  Refusing files(disk, test::Call::Rename);
  DatedCopies copies(files, kFolders, clock);
  copies.beforeChange();
  EXPECT_TRUE(copies.takeFailure().has_value());
  EXPECT_TRUE(copies.takeLeftOut().empty());
}

// What lies in a current folder of its own goes back there, tyres and repairs to the program's.
TEST(DatedSets, KnowWhereTheirFilesBelong) {
  const auto places = [](const std::string& part) {
    MemoryFileSystem disk = household();
    disk.putFolder("/p/Mentések");
    disk.putFolder(kToday);
    if (!part.empty()) disk.putFolder(kToday + part);
    for (const DataFileKind& kind : kSharedFiles) disk.put(kToday + part + "/" + std::string(kind.name), "x");
    std::vector<std::string> found;
    const auto sets = datedSets(disk, {.program = "/p", .current = "/c"});
    for (const SetFile& file : sets.at(0).files) found.push_back(file.place);
    return found;
  };
  EXPECT_THAT(places(""), ElementsAre("/c/rendsz.dat", "/p/Gumik.dat", "/p/Szerviz.dat", "/c/figyel.dat",
                                      "/c/figyDatum.dat", "/c/alkatr.dat", "/c/megjegyz.dat", "/c/set.dat"));
  EXPECT_THAT(places("/Indítási mappa"),
              ElementsAre("/c/rendsz.dat", "/c/Gumik.dat", "/c/Szerviz.dat", "/c/figyel.dat",
                          "/c/figyDatum.dat", "/c/alkatr.dat", "/c/megjegyz.dat", "/c/set.dat"));
}

// The part is no vehicle, whatever lies in it.
TEST(DatedSets, HaveWhatLiesBesideThePartToo) {
  MemoryFileSystem disk = household();
  for (const char* folder :
       {"/p/Mentések", "/p/Mentések/2026-03-21", "/p/Mentések/2026-03-21/Indítási mappa"})
    disk.putFolder(folder);
  disk.put(kToday + "/Gumik.dat", "x");
  disk.put(kToday + "/Indítási mappa/set.dat", "x");
  disk.put(kToday + "/Indítási mappa/napiadat.dat", "x");
  std::vector<std::string> found;
  const auto sets = datedSets(disk, {.program = "/p", .current = "/c"});
  for (const SetFile& file : sets.at(0).files) found.push_back(file.place);
  EXPECT_THAT(found, ElementsAre("/p/Gumik.dat", "/c/set.dat"));
}

TEST(DatedSets, NameTheVehiclesInTheirOrderWhateverTheDisksIs) {
  struct Backwards final : test::InterceptedFileSystem {
    using InterceptedFileSystem::InterceptedFileSystem;
    bool admitted(test::Call) override { return true; }
    int list(const std::string& path, std::vector<std::string>& names) override {
      const int result = InterceptedFileSystem::list(path, names);
      std::ranges::reverse(names);
      return result;
    }
  };
  MemoryFileSystem disk = household();
  for (const std::string folder : {"", "/ABC-123", "/DEF-456"}) {
    if (folder.empty()) disk.putFolder("/p/Mentések");
    disk.putFolder(kToday + folder);
    if (!folder.empty()) disk.put(kToday + folder + "/napiadat.dat", "x");
  }
  Backwards files(disk);
  const auto sets = datedSets(files, kFolders);
  ASSERT_EQ(sets.at(0).files.size(), 2U);
  EXPECT_EQ(sets[0].files[0].plate, "ABC-123");
  EXPECT_EQ(sets[0].files[1].plate, "DEF-456");
}

TEST(TheVehicleList, IsEmptyWhereItIsMissingAndTellsWhyElse) {
  MemoryFileSystem disk = household();
  EXPECT_THAT(platesIn(disk, "/p"), ElementsAre());
  EXPECT_THAT(platesIn(disk, "/p/Gumik.dat"), ElementsAre());
  test::FailingFileSystem failing(disk, {1, EACCES, true});
  test::expectFailure(FailureKind::OpenFailed, [&] { platesIn(failing, "/p"); });
}

TEST(TheMachinesFiles, AreListedWithoutAFailure) {
  MachineFileSystem files;
  std::vector<std::string> names;
  EXPECT_EQ(files.list(".", names), 0);
  EXPECT_EQ(files.list("./no such folder", names), -1);
}

}  // namespace
}  // namespace tarvik::core
