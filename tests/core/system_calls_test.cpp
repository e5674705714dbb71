#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/entry_editing.h"
#include "core/history.h"
#include "reminders/date_reminders.h"
#include "reminders/km_alert.h"
#include "repairs/repair_log.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/bytes.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tyres/tyre_register.h"

// What each operation asks of the system, exactly. The counts are the same for a few records and for
// thousands: nothing is asked once a record.

namespace tarvik::test {
namespace {

constexpr int kFew = 3;
constexpr int kMany = 3'000;

constexpr std::array<const char*, kCallKinds> kCallNames = {
    "open",    "close",    "status", "statusOf",   "read",        "write",  "truncate",
    "setMode", "writeOut", "sync",   "syncFolder", "rename",      "remove", "makeFolder",
    "resolve", "tryLock",  "pause",  "list",       "removeFolder"};

// "open 1, close 1, read 1": the kinds that were called, in their order.
std::string textOf(const CountingFileSystem& files) {
  std::string text;
  for (std::size_t kind = 0; kind < kCallKinds; ++kind) {
    if (files.counts()[kind] == 0) continue;
    if (!text.empty()) text += ", ";
    text += std::string(kCallNames[kind]) + " " + std::to_string(files.counts()[kind]);
  }
  return text;
}

// Behind the last record: one write, sent off, then the length, then the sync.
constexpr const char* kAppended =
    "open 1, close 1, status 1, statusOf 1, write 1, truncate 1, writeOut 1, sync 1, tryLock 1";
// The same after one look at the records before.
constexpr const char* kAppendedAfterRead =
    "open 1, close 1, status 1, statusOf 1, read 1, write 1, truncate 1, writeOut 1, sync 1, tryLock 1";
// And a new folder, which the folder around it must know on the disk too.
constexpr const char* kAppendedWithFolder =
    "open 1, close 1, status 1, statusOf 1, write 1, truncate 1, writeOut 1, sync 1, syncFolder 1, "
    "makeFolder 1, tryLock 1";
// The file whole in one read, as a new file in one write with the old one's mode, synced, renamed over the
// old one, the folder synced.
constexpr const char* kReplaced =
    "open 2, close 2, status 2, statusOf 1, read 1, write 1, setMode 1, sync 1, syncFolder 1, rename 1, "
    "remove 1, resolve 1, tryLock 2";
// The same after one look at a record.
constexpr const char* kReplacedAfterRead =
    "open 2, close 2, status 2, statusOf 1, read 2, write 1, setMode 1, sync 1, syncFolder 1, rename 1, "
    "remove 1, resolve 1, tryLock 2";
// The same after a look for the deletion's temporary file, which is not there.
constexpr const char* kDeleted =
    "open 3, close 2, status 2, statusOf 1, read 1, write 1, setMode 1, sync 1, syncFolder 1, rename 1, "
    "remove 1, resolve 1, tryLock 2";
// The same after the whole file was read once without its lock, to see whether it is to be changed at all.
constexpr const char* kReplacedAfterLook =
    "open 3, close 3, status 3, statusOf 1, read 3, write 1, setMode 1, sync 1, syncFolder 1, rename 1, "
    "remove 1, resolve 1, tryLock 2";
constexpr const char* kOneRead = "open 1, close 1, status 1, read 1";
constexpr const char* kTwoFilesRead = "open 2, close 2, status 2, read 2";

const std::map<std::string, std::string>& expectedCalls() {
  static const std::map<std::string, std::string> calls = {{"recordEntry", kAppendedAfterRead},
                                                           {"modifyEntry", kReplaced},
                                                           {"deleteEntry", kDeleted},
                                                           {"appendPartName", kReplaced},
                                                           {"removePartName", kDeleted},
                                                           {"appendNote", kReplaced},
                                                           {"removeNote", kDeleted},
                                                           {"addVehicle", kAppendedWithFolder},
                                                           {"removeVehicle", kDeleted},
                                                           {"saveStartSettings", kReplacedAfterRead},
                                                           {"saveReminderFlag", kReplacedAfterRead},
                                                           {"recordKmReminder", kReplacedAfterRead},
                                                           {"blankKmReminder", kReplaced},
                                                           {"recordDateReminder", kReplaced},
                                                           {"deleteDateReminder", kDeleted},
                                                           {"recordTyre", kAppended},
                                                           {"setTyreFitted", kReplaced},
                                                           {"changeTyre", kReplaced},
                                                           {"removeTyre", kDeleted},
                                                           {"addTyreDistance", kReplacedAfterLook},
                                                           {"recordRepair", kAppended},
                                                           {"removeRepair", kDeleted},
                                                           {"importEntries", kReplacedAfterLook}};
  return calls;
}

class ChangeCalls : public testing::TestWithParam<int> {};

TEST_P(ChangeCalls, AreExactlyThese) {
  const int count = GetParam();
  std::map<std::string, std::string> made;
  for (const Operation& operation : operations(count)) {
    MemoryFileSystem disk = preparedDisk(operation, count);
    CountingFileSystem files(disk);
    operation.run(files, kDiskFolders);
    made[operation.name] = textOf(files);
  }
  for (const auto& [name, expected] : expectedCalls()) EXPECT_EQ(made[name], expected) << name;
  EXPECT_EQ(made.size(), expectedCalls().size());
}

INSTANTIATE_TEST_SUITE_P(FewAndManyRecords, ChangeCalls, testing::Values(kFew, kMany));

/// What a question reads, and how.
struct Question {
  std::string name;
  std::function<void(core::FileSystem&)> ask;
  const char* calls;
};

const std::vector<Question>& questions() {
  using core::FileSystem;
  static const std::vector<Question> all = {
      {"loadLogbook", [](FileSystem& files) { core::loadLogbook(files, kDiskFolders, kOperationPlate); },
       kOneRead},
      {"loadPartNames",
       [](FileSystem& files) { settings::loadLookupTexts(files, kDiskFolders, settings::kPartNames); },
       kOneRead},
      {"loadVehicles", [](FileSystem& files) { settings::loadVehicles(files, kDiskFolders); }, kOneRead},
      {"loadStartSettings", [](FileSystem& files) { settings::loadStartSettings(files, kDiskFolders); },
       kOneRead},
      {"checkKm", [](FileSystem& files) { reminders::checkKm(files, kDiskFolders, kOperationPlate); },
       kTwoFilesRead},
      {"firstDueDateReminder",
       [](FileSystem& files) { reminders::firstDueDateReminder(files, kDiskFolders, core::Day{30'000}); },
       kOneRead},
      {"listTyres", [](FileSystem& files) { tyres::TyreRegister(files, kDiskFolders).listAll(); }, kOneRead},
      {"listRepairs",
       [](FileSystem& files) {
         repairs::RepairLog(files, kDiskFolders).listFiltered({.plate = kOperationPlate});
       },
       kOneRead},
  };
  return all;
}

class QuestionCalls : public testing::TestWithParam<int> {};

TEST_P(QuestionCalls, AreExactlyThese) {
  MemoryFileSystem disk = preparedDisk("", "");
  for (const Operation& operation : operations(GetParam()))
    disk.put(operation.file(kDiskFolders), fileOf(operation, GetParam()));
  for (const Question& question : questions()) {
    CountingFileSystem files(disk);
    question.ask(files);
    EXPECT_EQ(textOf(files), question.calls) << question.name;
  }
}

INSTANTIATE_TEST_SUITE_P(FewAndManyRecords, QuestionCalls, testing::Values(kFew, kMany));

TEST(SystemCalls, OfAnOpenedDeletionAreTheLogbookAndTheTemporaryFile) {
  const Operation deletion = operations(kMany)[2];
  ASSERT_EQ(deletion.name, "deleteEntry");
  MemoryFileSystem disk = preparedDisk(deletion, kMany);
  CountingFileSystem files(disk);
  core::openDeletion(files, kDiskFolders, kOperationPlate);
  EXPECT_EQ(textOf(files), "open 2, close 2, status 2");
}

TEST(SystemCalls, OfADeletionThatTakesOverALeftTemporaryFile) {
  const Operation deletion = operations(kMany)[2];
  MemoryFileSystem disk = preparedDisk(deletion, kMany);
  disk.put(deletion.temporary(kDiskFolders), fileOf(deletion, kMany));
  CountingFileSystem files(disk);
  deletion.run(files, kDiskFolders);
  EXPECT_EQ(
      textOf(files),
      "open 3, close 3, status 3, statusOf 1, read 2, write 1, setMode 1, sync 1, syncFolder 1, rename 2, "
      "remove 1, resolve 1, tryLock 2");
}

// The first record's file may be as new: its folder is synced too.
TEST(SystemCalls, OfAFirstRecordSyncTheFolderToo) {
  const std::vector<Operation> all = operations(0);
  const auto recording = std::ranges::find(all, "recordTyre", &Operation::name);
  MemoryFileSystem disk = preparedDisk(*recording, 0);
  CountingFileSystem files(disk);
  recording->run(files, kDiskFolders);
  EXPECT_EQ(textOf(files),
            "open 1, close 1, status 1, statusOf 1, write 1, truncate 1, writeOut 1, sync 1, syncFolder 1, "
            "tryLock 1");
}

// A few dozen entries, eight times as many, then all.
TEST(SystemCalls, OfALookBackPastAThousandEntriesAreThreeReads) {
  const Operation recording = operations(0).front();
  MemoryFileSystem disk = preparedDisk(recording, 0);
  disk.put(recording.file(kDiskFolders), std::string(1'000 * recording.recordLength, '\0'));
  CountingFileSystem files(disk);
  recording.run(files, kDiskFolders);
  EXPECT_EQ(textOf(files),
            "open 1, close 1, status 1, statusOf 1, read 3, write 1, truncate 1, writeOut 1, sync 1, "
            "tryLock 1");
}

// The history reads a file once, and again only after somebody else has changed it; of its own changes it
// asks the status.
TEST(SystemCalls, OfAWatchedRecordingReadTheFileWholeTheFirstTimeAlone) {
  const std::vector<Operation> all = operations(kMany);
  const auto recording = std::ranges::find(all, "recordTyre", &Operation::name);
  MemoryFileSystem disk = preparedDisk(*recording, kMany);
  core::History history;
  const auto callsOfNext = [&] {
    CountingFileSystem files(disk);
    files.watch(&history);
    recording->run(files, kDiskFolders);
    return textOf(files);
  };
  constexpr const char* kWithReading =
      "open 1, close 1, status 2, statusOf 1, read 1, write 1, truncate 1, writeOut 1, sync 1, tryLock 1";
  constexpr const char* kWithoutReading =
      "open 1, close 1, status 2, statusOf 1, write 1, truncate 1, writeOut 1, sync 1, tryLock 1";
  EXPECT_EQ(callsOfNext(), kWithReading);
  EXPECT_EQ(callsOfNext(), kWithoutReading);
  disk.watch(&history);
  history.undo(disk);
  disk.watch(nullptr);
  EXPECT_EQ(callsOfNext(), kWithoutReading);
  recording->run(disk, kDiskFolders);  // nobody watches: another program
  EXPECT_EQ(callsOfNext(), kWithReading);
}

TEST(SystemCalls, OfAReminderFlagThatIsStoredAlreadyWriteNothing) {
  MemoryFileSystem disk =
      preparedDisk(kDiskFolders.inCurrent("set.dat"), test::textOf(core::encoded(settings::SetRecord{})));
  CountingFileSystem files(disk);
  settings::saveReminderFlag(files, kDiskFolders, core::kFlagClear);
  EXPECT_EQ(textOf(files), "open 1, close 1, status 1, statusOf 1, read 1, tryLock 1");
}

}  // namespace
}  // namespace tarvik::test
