#include <gtest/gtest.h>

#include "tests/safety/prepared_disk.h"

// What holds for each of the program's files alike, whatever its records are.

namespace tarvik::test {
namespace {

constexpr int kCount = 3;  // records, of which an operation concerns the second

std::vector<Operation> deletions(int count) {
  std::vector<Operation> found = operations(count);
  std::erase_if(found, [](const Operation& operation) { return operation.temporary(kDiskFolders).empty(); });
  EXPECT_EQ(found.size(), 7U);
  return found;
}

TEST(EveryDeletion, ClosesTheGapAndLeavesNoTemporaryFile) {
  for (const Operation& deletion : deletions(kCount)) {
    SCOPED_TRACE(deletion.name);
    MemoryFileSystem disk = preparedDisk(deletion, kCount);
    disk.put(deletion.temporary(kDiskFolders), "");
    deletion.run(disk, kDiskFolders);
    EXPECT_EQ(disk.contents(deletion.file(kDiskFolders)), deletion.record(1) + deletion.record(3));
    EXPECT_FALSE(disk.has(deletion.temporary(kDiskFolders)));
  }
}

TEST(EveryDeletion, OfTheOnlyRecordLeavesAnEmptyFile) {
  for (const Operation& deletion : deletions(1)) {
    SCOPED_TRACE(deletion.name);
    MemoryFileSystem disk = preparedDisk(deletion, 1);
    deletion.run(disk, kDiskFolders);
    EXPECT_TRUE(disk.has(deletion.file(kDiskFolders)));
    EXPECT_EQ(disk.contents(deletion.file(kDiskFolders)), "");
  }
}

TEST(EveryDeletion, OfARecordThatNeverWasThereChangesNothing) {
  for (const Operation& deletion : deletions(0)) {
    MemoryFileSystem disk = preparedDisk(deletion, 0);
    deletion.run(disk, kDiskFolders);
    EXPECT_EQ(disk.contents(deletion.file(kDiskFolders)), "") << deletion.name;
  }
}

TEST(EveryDeletion, TakesOverTheSurplusOfItsOwnTemporaryFileAlone) {
  for (const Operation& deletion : deletions(kCount)) {
    SCOPED_TRACE(deletion.name);
    MemoryFileSystem disk = preparedDisk(deletion, kCount);
    const std::string own = deletion.temporary(kDiskFolders);
    std::vector<std::string> others;
    for (const Operation& other : deletions(kCount))
      if (other.temporary(kDiskFolders) != own) others.push_back(other.temporary(kDiskFolders));
    for (const std::string& other : others) disk.put(other, "theirs");
    disk.put(own, fileOf(deletion, kCount));  // a record more than remain
    deletion.run(disk, kDiskFolders);
    EXPECT_EQ(disk.contents(deletion.file(kDiskFolders)),
              deletion.record(1) + deletion.record(3) + deletion.record(3));
    EXPECT_FALSE(disk.has(own));
    for (const std::string& other : others) EXPECT_EQ(disk.contents(other), "theirs");
  }
}

}  // namespace
}  // namespace tarvik::test
