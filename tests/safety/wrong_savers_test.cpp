#include <gtest/gtest.h>

#include "core/failure.h"
#include "core/record_file.h"
#include "tests/safety/crash_checks.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/bytes.h"
#include "tests/support/intercepted_file_system.h"

// Savers that are wrong in the usual ways. That each is caught shows that the checks of the right ones see.

namespace tarvik::test {
namespace {

using core::FileSystem;
using core::OpenFile;
using core::OpenMode;

const std::string kFile = "/program/data.dat";
const std::string kNew = "/program/data.new";
constexpr std::size_t kLength = 156;

// Where a wrong saver is right it reports what fails.
void must(std::int64_t result) {
  if (result < 0) throw core::Failure(core::FailureKind::WriteFailed);
}

void mustWrite(FileSystem& files, const OpenFile& file, const std::string& contents,
               std::int64_t offset = 0) {
  must(files.write(file.descriptor(), bytesOf(contents), offset) == std::ssize(contents) ? 0 : -1);
}

void syncFolder(FileSystem& files) {
  must(files.syncFolder("/program"));
}

// The right way, with what each wrong one leaves out.
struct Omissions {
  bool fileSync = false;
  bool folderSync = false;
  bool writeCheck = false;
};

void replace(FileSystem& files, const std::string& contents, Omissions omitted) {
  const OpenFile file(files, files.open(kNew, OpenMode::CreateNew));
  must(file.descriptor());
  if (omitted.writeCheck)
    files.write(file.descriptor(), bytesOf(contents), 0);
  else
    mustWrite(files, file, contents);
  if (!omitted.fileSync) must(files.sync(file.descriptor()));
  must(files.rename(kNew, kFile));
  if (!omitted.folderSync) syncFolder(files);
}

void rewriteInPlace(FileSystem& files, const std::string& contents) {
  const OpenFile file(files, files.open(kFile, OpenMode::ReadWriteItself));
  must(files.truncate(file.descriptor(), 0));
  mustWrite(files, file, contents);
  must(files.sync(file.descriptor()));
  syncFolder(files);
}

void removeThenRename(FileSystem& files, const std::string& contents) {
  const OpenFile file(files, files.open(kNew, OpenMode::CreateNew));
  mustWrite(files, file, contents);
  must(files.sync(file.descriptor()));
  must(files.remove(kFile));
  must(files.rename(kNew, kFile));
  syncFolder(files);
}

void appendAtOnce(FileSystem& files, const std::string& record) {
  const OpenFile file(files, files.open(kFile, OpenMode::ReadWriteItself));
  core::FileStatus status;
  must(files.status(file.descriptor(), status));
  mustWrite(files, file, record, status.size);
  must(files.sync(file.descriptor()));
}

class WrongSaversTest : public testing::Test {
 protected:
  std::size_t badDisks(std::function<void(FileSystem&)> run) {
    return crashEverywhere(before_, {.file = kFile, .recordLength = kLength, .run = std::move(run)}, 1).bad;
  }

  const std::string new_ = std::string(700, 'n');
  const MemoryFileSystem before_ = preparedDisk(kFile, std::string(5 * kLength, 'o'));
};

TEST_F(WrongSaversTest, NothingIsWrongWithTheRightOne) {
  EXPECT_EQ(badDisks([&](FileSystem& files) { replace(files, new_, {}); }), 0U);
}

TEST_F(WrongSaversTest, RewritingInPlaceIsCaught) {
  EXPECT_GT(badDisks([&](FileSystem& files) { rewriteInPlace(files, new_); }), 0U);
}

TEST_F(WrongSaversTest, RemovingThenRenamingIsCaught) {
  EXPECT_GT(badDisks([&](FileSystem& files) { removeThenRename(files, new_); }), 0U);
}

TEST_F(WrongSaversTest, NotSyncingTheFileIsCaught) {
  EXPECT_GT(badDisks([&](FileSystem& files) { replace(files, new_, {.fileSync = true}); }), 0U);
}

TEST_F(WrongSaversTest, NotSyncingTheFolderIsCaught) {
  EXPECT_GT(badDisks([&](FileSystem& files) { replace(files, new_, {.folderSync = true}); }), 0U);
}

TEST_F(WrongSaversTest, AppendingInOneWriteIsCaught) {
  EXPECT_GT(badDisks([&](FileSystem& files) { appendAtOnce(files, std::string(kLength, 'n')); }), 0U);
}

TEST_F(WrongSaversTest, NotCheckingTheLastWriteIsCaught) {
  int unreported = 0;
  for (int nth = 1; nth <= 6; ++nth) {
    MemoryFileSystem disk = before_;
    FailingFileSystem files(disk, {.nth = nth, .error = FailurePlan::kShortWrite});
    replace(files, new_, {.writeCheck = true});
    if (disk.contents(kFile) != new_) ++unreported;
  }
  EXPECT_GT(unreported, 0);
}

}  // namespace
}  // namespace tarvik::test
