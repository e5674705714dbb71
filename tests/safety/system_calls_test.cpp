#include <gtest/gtest.h>

#include <map>

#include "core/entry_editing.h"
#include "core/failure.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/intercepted_file_system.h"

// What each operation asks of the disk, exactly: the guard of its speed that is no timing.

namespace tarvik::test {
namespace {

constexpr const char* kNames[kCallKinds] = {
    "open",     "close", "status", "statusOf", "read",       "write",   "truncate", "setMode",
    "writeOut", "sync",  "rename", "remove",   "makeFolder", "resolve", "tryLock",  "pause"};

std::string callsOf(const CountingFileSystem& counting) {
  std::string text;
  for (std::size_t kind = 0; kind < kCallKinds; ++kind)
    if (const int count = counting.counts()[kind]; count != 0)
      text += (text.empty() ? "" : " ") + std::string(kNames[kind]) + " " + std::to_string(count);
  return text;
}

std::string callsOf(const Operation& operation, MemoryFileSystem disk) {
  CountingFileSystem counting(disk);
  operation.run(counting, kDiskFolders);
  return callsOf(counting);
}

const std::string kInPlace =
    "open 1 close 1 status 1 statusOf 1 write 1 truncate 1 writeOut 1 sync 1 tryLock 1";
const std::string kInPlaceAfterOneRead =
    "open 1 close 1 status 1 statusOf 1 read 1 write 1 truncate 1 writeOut 1 sync 1 tryLock 1";
const std::string kReplacement =
    "open 3 close 3 status 1 statusOf 1 read 1 write 1 setMode 1 sync 2 rename 1 remove 1 resolve 1 tryLock "
    "2";
const std::string kReplacementAfterOneRead =
    "open 3 close 3 status 1 statusOf 1 read 2 write 1 setMode 1 sync 2 rename 1 remove 1 resolve 1 tryLock "
    "2";
const std::string kDeletion =
    "open 4 close 3 status 1 statusOf 1 read 1 write 1 setMode 1 sync 2 rename 1 remove 1 resolve 1 tryLock "
    "2";

// Most cars have no fitted set: whether there is one is looked up before anything is locked.
const std::string kReplacementAfterALook =
    "open 4 close 4 status 2 statusOf 1 read 3 write 1 setMode 1 sync 2 rename 1 remove 1 resolve 1 tryLock "
    "2";

// Beside its record, a new vehicle gets a folder, whose name is synced too.
const std::string kNewVehicle =
    "open 2 close 2 status 1 statusOf 1 write 1 truncate 1 writeOut 1 sync 2 makeFolder 1 tryLock 1";

const std::map<std::string, std::string> kExpected = {{"recordEntry", kInPlaceAfterOneRead},
                                                      {"modifyEntry", kReplacement},
                                                      {"deleteEntry", kDeletion},
                                                      {"appendPartName", kReplacement},
                                                      {"removePartName", kDeletion},
                                                      {"appendNote", kReplacement},
                                                      {"removeNote", kDeletion},
                                                      {"addVehicle", kNewVehicle},
                                                      {"removeVehicle", kDeletion},
                                                      {"saveStartSettings", kReplacement},
                                                      {"saveReminderFlag", kReplacementAfterOneRead},
                                                      {"recordKmReminder", kReplacementAfterOneRead},
                                                      {"blankKmReminder", kReplacementAfterOneRead},
                                                      {"recordDateReminder", kReplacement},
                                                      {"deleteDateReminder", kDeletion},
                                                      {"recordTyre", kInPlace},
                                                      {"setTyreFitted", kReplacementAfterOneRead},
                                                      {"changeTyre", kReplacementAfterOneRead},
                                                      {"removeTyre", kDeletion},
                                                      {"addTyreDistance", kReplacementAfterALook},
                                                      {"recordRepair", kInPlace},
                                                      {"removeRepair", kDeletion},
                                                      {"importEntries", kReplacementAfterALook}};

class SystemCallsTest : public testing::TestWithParam<int> {};

TEST_P(SystemCallsTest, AreCounted) {
  for (const Operation& operation : operations(GetParam()))
    EXPECT_EQ(callsOf(operation, preparedDisk(operation, GetParam())), kExpected.at(operation.name))
        << operation.name;
}

INSTANTIATE_TEST_SUITE_P(Files, SystemCallsTest, testing::Values(50, 5'000),
                         [](const auto& files) { return "With" + std::to_string(files.param) + "Records"; });

// The first record's file may be as new: its folder is synced too.
TEST(SystemCallsOfAFirstRecordTest, SyncTheFolderToo) {
  for (const Operation& operation : operations(0)) {
    if (operation.name != "recordTyre") continue;
    EXPECT_EQ(callsOf(operation, preparedDisk(operation, 0)),
              "open 2 close 2 status 1 statusOf 1 write 1 truncate 1 writeOut 1 sync 2 tryLock 1");
  }
}

// A fill-up looks back to the last full one, 64 entries a read.
TEST(SystemCallsOfALookBackTest, AreOneReadAFewDozenEntries) {
  const Operation recording = operations(0).front();
  MemoryFileSystem disk = preparedDisk(recording, 0);
  disk.put(recording.file(kDiskFolders), std::string(1'000 * recording.recordLength, '\0'));
  EXPECT_EQ(callsOf(recording, disk),
            "open 1 close 1 status 1 statusOf 1 read 16 write 1 truncate 1 writeOut 1 sync 1 tryLock 1");
}

TEST(SystemCallsOfALoadingTest, AreOneRead) {
  const Operation recording = operations(0).front();
  MemoryFileSystem disk = preparedDisk(recording, 32'767);
  CountingFileSystem counting(disk);
  EXPECT_EQ(core::loadLogbook(counting, kDiskFolders, kOperationPlate).count(), 32'767);
  EXPECT_EQ(callsOf(counting), "open 1 close 1 status 1 read 1");
}

}  // namespace
}  // namespace tarvik::test
