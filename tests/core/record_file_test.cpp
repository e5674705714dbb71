#include "core/record_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>

#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::core {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::expectFailure;

constexpr std::size_t kLength = 4;

std::string text(const ByteBlock& block) {
  return {reinterpret_cast<const char*>(block.data.get()), block.size};
}

// Records of four characters in one file, its deletion's temporary file beside it.
class RecordFileTest : public testing::Test {
 protected:
  RecordFile opened() { return RecordFile(files_, path_, kLength); }
  void append(std::string_view record) { opened().append(bytesOf(record)); }
  void rewrite(std::int64_t number, std::string_view record) { rewrite(files_, number, record); }
  void rewrite(FileSystem& files, std::int64_t number, std::string_view record) {
    RecordFile file(files, path_, kLength);
    file.rewrite(file.seen(number), bytesOf(record));
  }
  void remove(std::int64_t number) { remove(files_, number); }
  void remove(FileSystem& files, std::int64_t number) {
    RecordFile file(files, path_, kLength);
    file.remove(file.seen(number), temporary_);
  }
  std::string loaded() { return text(readRecords(files_, path_, kLength)); }
  void write(std::string_view contents) { folder_.write("data.dat", contents); }
  std::string stored() const { return folder_.read("data.dat"); }

  test::TemporaryFolder folder_;
  MachineFileSystem files_;
  std::string path_ = folder_ / "data.dat";
  std::string temporary_ = folder_ / "datax.dat";
};

using Names = std::vector<std::string>;

// Reading.

TEST_F(RecordFileTest, MissingFileHasNoRecordsAndIsCreatedEmptyByTheFirstRead) {
  EXPECT_EQ(loaded(), "");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
  EXPECT_EQ(stored(), "");
}

TEST_F(RecordFileTest, MissingFileIsCreatedEmptyWhenItIsOpenedToBeChanged) {
  EXPECT_EQ(opened().count(), 0);
  EXPECT_EQ(stored(), "");
}

TEST_F(RecordFileTest, ReadsTheRecordsAsTheyLie) {
  write("AAAABBBBCCCC");
  EXPECT_EQ(loaded(), "AAAABBBBCCCC");
  EXPECT_EQ(opened().count(), 3);
  EXPECT_EQ(text(opened().read(2, 2)), "BBBBCCCC");
}

TEST_F(RecordFileTest, PartialRecordAtTheEndDoesNotCount) {
  write("AAAABBBBCC");
  EXPECT_EQ(loaded(), "AAAABBBB");
  EXPECT_EQ(opened().count(), 2);
}

TEST_F(RecordFileTest, ReadingChangesNothing) {
  write("AAAABB");
  fs::permissions(path_, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  EXPECT_EQ(loaded(), "AAAA");
  EXPECT_EQ(stored(), "AAAABB");
  EXPECT_EQ(fs::status(path_).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(RecordFileTest, AFileOf100MegabytesReadsItsFirst32767Records) {
  write("AAAA");
  fs::resize_file(path_, 100'000'000);
  const std::string records = loaded();
  EXPECT_EQ(records.size(), 32'767u * kLength);
  EXPECT_EQ(records.substr(0, 5), std::string("AAAA\0", 5));
}

TEST_F(RecordFileTest, MissingFolderIsToldAndNotCreated) {
  const std::string inside = folder_ / "gone/data.dat";
  expectFailure(FailureKind::FolderMissing, [&] { readRecords(files_, inside, kLength); });
  expectFailure(FailureKind::FolderMissing, [&] { RecordFile(files_, inside, kLength); });
  expectFailure(FailureKind::FolderMissing, [&] { createIfMissing(files_, inside); });
  EXPECT_EQ(folder_.names(), Names{});
}

TEST_F(RecordFileTest, AFileInTheFoldersPlaceCountsAsAMissingFolder) {
  folder_.write("plain", "");
  const std::string inside = folder_ / "plain/data.dat";
  expectFailure(FailureKind::FolderMissing, [&] { readRecords(files_, inside, kLength); });
  expectFailure(FailureKind::FolderMissing, [&] { RecordFile(files_, inside, kLength); });
}

TEST_F(RecordFileTest, AFolderInTheFilesPlaceCannotBeOpened) {
  folder_.makeFolder("data.dat");
  test::expectSystemFailure(FailureKind::OpenFailed, EISDIR, [&] { loaded(); });
  test::expectFileFailure(FailureKind::OpenFailed, path_, [&] { opened(); });
  expectFailure(FailureKind::OpenFailed, [&] { createIfMissing(files_, path_); });
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, CreateIfMissingLeavesAnExistingFileAlone) {
  write("AAAAB");
  createIfMissing(files_, path_);
  EXPECT_EQ(stored(), "AAAAB");
}

// Appending.

TEST_F(RecordFileTest, AppendsBehindTheLastRecord) {
  append("AAAA");
  append("BBBB");
  EXPECT_EQ(stored(), "AAAABBBB");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, AppendsARecordThatEndsInZero) {
  append(std::string_view("AA\0\0", kLength));
  append(std::string_view("\0\0\0\0", kLength));
  EXPECT_EQ(stored(), std::string("AA\0\0\0\0\0\0", 8));
}

TEST_F(RecordFileTest, AppendOverwritesAPartialTail) {
  write("AAAABBBBCC");
  append("DDDD");
  EXPECT_EQ(stored(), "AAAABBBBDDDD");
  write("AAAABBBBCCC");
  append(std::string_view("D\0\0\0", kLength));
  EXPECT_EQ(stored(), std::string("AAAABBBBD\0\0\0", 12));
}

TEST_F(RecordFileTest, IsReadAsFarAsItGoesWhereItGotShorterSinceItWasMeasured) {
  struct Shrunk final : test::ForwardingFileSystem {
    int status(int descriptor, FileStatus& status) override {
      const int result = ForwardingFileSystem::status(descriptor, status);
      status.size += 2 * kLength;
      return result;
    }
  } shrunk;
  write("AAAABBBB");
  EXPECT_EQ(readRecords(shrunk, path_, kLength).size, 2 * kLength);
}

TEST_F(RecordFileTest, Holds32767RecordsAndNotOneMore) {
  write(std::string(32'766 * kLength, 'x'));
  append("AAAA");
  const std::string full = stored();
  EXPECT_EQ(full.size(), 32'767u * kLength);
  expectFailure(
      FailureKind::FileFull, [&] { append("BBBB"); },
      [](const Failure& failure) { EXPECT_EQ(failure.record(), 32'768); });
  EXPECT_EQ(stored(), full);
}

// Rewriting.

TEST_F(RecordFileTest, RewritesARecordInItsPlace) {
  write("AAAABBBBCCCC");
  rewrite(2, "XXXX");
  EXPECT_EQ(stored(), "AAAAXXXXCCCC");
  rewrite(1, "YYYY");
  rewrite(3, "ZZZZ");
  EXPECT_EQ(stored(), "YYYYXXXXZZZZ");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, RewriteKeepsAPartialTail) {
  write("AAAABBBBCC");
  rewrite(2, "XXXX");
  EXPECT_EQ(stored(), "AAAAXXXXCC");
}

// Deleting.

TEST_F(RecordFileTest, DeletionClosesTheGap) {
  write("AAAABBBBCCCCDDDDEEEE");
  remove(3);
  EXPECT_EQ(stored(), "AAAABBBBDDDDEEEE");
  remove(1);
  EXPECT_EQ(stored(), "BBBBDDDDEEEE");
  remove(3);
  EXPECT_EQ(stored(), "BBBBDDDD");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, SurplusInTheTemporaryFileBecomesPartOfTheFile) {
  write("AAAABBBBCCCC");
  folder_.write("datax.dat", "11112222333344445");
  remove(2);
  EXPECT_EQ(stored(), "AAAACCCC333344445");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, TemporaryFileWithoutSurplusIsWrittenOver) {
  write("AAAABBBBCCCC");
  folder_.write("datax.dat", "11112222");
  remove(3);
  EXPECT_EQ(stored(), "AAAABBBB");
}

TEST_F(RecordFileTest, DeletionDropsAPartialTail) {
  write("AAAABBBBCC");
  remove(1);
  EXPECT_EQ(stored(), "BBBB");
}

TEST_F(RecordFileTest, AFolderInTheTemporaryFilesPlaceStopsTheDeletion) {
  write("AAAABBBB");
  folder_.makeFolder("datax.dat");
  expectFailure(FailureKind::OpenFailed, [&] { remove(1); });
  EXPECT_EQ(stored(), "AAAABBBB");
}

TEST_F(RecordFileTest, AFileOf5GigabytesIsRefusedAtOnceAndStays) {
  write("AAAABBBBCCCC");
  fs::resize_file(path_, 5'000'000'000);
  expectFailure(FailureKind::FileTooLong, [&] { remove(2); });
  expectFailure(FailureKind::FileTooLong, [&] { rewrite(2, "XXXX"); });
  EXPECT_EQ(fs::file_size(path_), 5'000'000'000u);
  EXPECT_EQ(loaded().substr(0, 12), "AAAABBBBCCCC");
}

// What a replaced file keeps.

TEST_F(RecordFileTest, ReadOnlyFileIsRefusedWhoeverAsks) {
  write("AAAABBBB");
  fs::permissions(path_, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  expectFailure(FailureKind::OpenFailed, [&] { append("XXXX"); });
  expectFailure(FailureKind::OpenFailed, [&] { rewrite(1, "XXXX"); });
  expectFailure(FailureKind::OpenFailed, [&] { remove(1); });
  EXPECT_EQ(stored(), "AAAABBBB");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

// Two programs on one folder.

struct PausingFileSystem : test::ForwardingFileSystem {
  void pause(int milliseconds) override {
    waited += milliseconds;
    meanwhile();
  }
  int waited = 0;
  std::function<void()> meanwhile = [] {};
};

TEST_F(RecordFileTest, WaitsForTheOtherProgramToFinish) {
  auto other = std::make_unique<RecordFile>(files_, path_, kLength);
  PausingFileSystem waiting;
  waiting.meanwhile = [&] {
    if (waiting.waited < 100) return;
    other->append(bytesOf("AAAA"));
    other.reset();
  };
  RecordFile(waiting, path_, kLength).append(bytesOf("BBBB"));
  EXPECT_EQ(waiting.waited, 100);
  EXPECT_EQ(stored(), "AAAABBBB");
}

TEST_F(RecordFileTest, ChangeBuildsOnTheFileThatReplacedTheOneWaitedFor) {
  write("AAAABBBB");
  auto other = std::make_unique<RecordFile>(files_, path_, kLength);
  PausingFileSystem waiting;
  waiting.meanwhile = [&] {
    other->rewrite(other->seen(1), bytesOf("XXXX"));
    other.reset();
  };
  rewrite(waiting, 2, "YYYY");
  EXPECT_EQ(stored(), "XXXXYYYY");
}

TEST_F(RecordFileTest, LockGoesWhenTheOperationFails) {
  write("AAAA");
  expectFailure(FailureKind::RecordMissing, [&] { rewrite(2, "XXXX"); });
  rewrite(1, "YYYY");
  EXPECT_EQ(stored(), "YYYY");
}

TEST_F(RecordFileTest, AllRecordsAreReplacedInOneStep) {
  write("AAAAbb");
  opened().replaceAll(bytesOf("CCCCDDDD"));
  EXPECT_EQ(stored(), "CCCCDDDD");
  opened().replaceAll({});
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(RecordFileTest, MoreRecordsThanNumbersReachAreRefused) {
  write("AAAA");
  const std::string full(kHighestRecordNumber * kLength, 'B');
  expectFailure(FailureKind::FileFull, [&] { opened().replaceAll(bytesOf((full + "BBBB").c_str())); });
  EXPECT_EQ(stored(), "AAAA");
  opened().replaceAll(bytesOf(full.c_str()));
  EXPECT_EQ(stored(), full);
}

// A system that does everything by halves.
struct HaltingFileSystem : test::ForwardingFileSystem {
  std::int64_t read(int descriptor, std::span<std::byte> buffer, std::int64_t offset) override {
    if (interrupts()) return -1;
    return ForwardingFileSystem::read(descriptor, buffer.first(std::min<std::size_t>(buffer.size(), 3)),
                                      offset);
  }
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (interrupts()) return -1;
    return ForwardingFileSystem::write(descriptor, data.first(std::min<std::size_t>(data.size(), 3)), offset);
  }
  bool interrupts() {
    errno = EINTR;
    return calls++ % 2 == 0;
  }
  int calls = 0;
};

TEST_F(RecordFileTest, ShortAndInterruptedCallsAreContinued) {
  HaltingFileSystem halting;
  RecordFile(halting, path_, kLength).append(bytesOf("AAAA"));
  RecordFile(halting, path_, kLength).append(bytesOf("BBBB"));
  rewrite(halting, 1, "CCCC");
  RecordFile(halting, path_, kLength).append(bytesOf("DDDD"));
  remove(halting, 2);
  EXPECT_EQ(stored(), "CCCCDDDD");
  EXPECT_EQ(text(readRecords(halting, path_, kLength)), "CCCCDDDD");
}

// "E:" alone would be the folder that was last used on that drive.
TEST(FolderOf, IsThePathWithoutItsLastNameAndKeepsTheSlashOfARoot) {
  EXPECT_EQ(steps::folderOf("/home/anna/rendsz.dat"), "/home/anna");
  EXPECT_EQ(steps::folderOf("rendsz.dat"), ".");
  EXPECT_EQ(steps::folderOf("/rendsz.dat"), "/");
  EXPECT_EQ(steps::folderOf("E:/rendsz.dat"), "E:/");
  EXPECT_EQ(steps::folderOf("E:/ABC123/napiadat.dat"), "E:/ABC123");
}

}  // namespace
}  // namespace tarvik::core
