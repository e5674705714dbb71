#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <set>

#include "core/failure.h"
#include "tests/safety/prepared_disk.h"

// Another program changed the file between the listing that a person saw and the change that was asked for.

namespace tarvik::test {
namespace {

constexpr int kCount = 5;

// Those that concern a record that the person saw; the others add one or are the program's own.
const std::set<std::string> kOnSeenRecord = {
    "modifyEntry",        "deleteEntry",   "removePartName", "removeNote", "removeVehicle", "blankKmReminder",
    "deleteDateReminder", "setTyreFitted", "changeTyre",     "removeTyre", "removeRepair"};

std::optional<core::FailureKind> failureOf(const Operation& operation, core::FileSystem& files) {
  try {
    operation.run(files, kDiskFolders);
    return std::nullopt;
  } catch (const core::Failure& failure) {
    return failure.kind();
  }
}

// Asks for each such operation where the file holds something else by now.
void expectRefused(const std::function<std::string(const Operation&)>& contentsByNow) {
  std::size_t asked = 0;
  for (const Operation& operation : operations(kCount)) {
    if (!kOnSeenRecord.contains(operation.name)) continue;
    ++asked;
    const std::string contents = contentsByNow(operation);
    MemoryFileSystem disk = preparedDisk(operation.file(kDiskFolders), contents);
    EXPECT_EQ(failureOf(operation, disk), core::FailureKind::RecordChanged) << operation.name;
    EXPECT_EQ(disk.contents(operation.file(kDiskFolders)), contents) << operation.name;
    EXPECT_EQ(disk.openFiles(), 0) << operation.name;
  }
  EXPECT_EQ(asked, kOnSeenRecord.size());
}

TEST(StaleRecordTest, ThatMovedUpLeavesTheOneThatHasItsNumber) {
  expectRefused(
      [](const Operation& operation) { return fileOf(operation, kCount).substr(operation.recordLength); });
}

TEST(StaleRecordTest, WhoseLastByteIsAnotherByNowStays) {
  expectRefused([](const Operation& operation) {
    std::string contents = fileOf(operation, kCount);
    ++contents[kChangedRecord * operation.recordLength - 1];
    return contents;
  });
}

TEST(StaleRecordTest, ThatIsBehindTheEndByNowIsTold) {
  expectRefused([](const Operation& operation) { return operation.record(1); });
}

TEST(StaleRecordTest, BehindWhichAnotherCameIsTaken) {
  for (const Operation& operation : operations(kCount)) {
    if (!kOnSeenRecord.contains(operation.name)) continue;
    MemoryFileSystem disk = preparedDisk(operation, kCount + 1);
    EXPECT_EQ(failureOf(operation, disk), std::nullopt) << operation.name;
  }
}

}  // namespace
}  // namespace tarvik::test
