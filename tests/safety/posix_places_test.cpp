#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "core/entry_editing.h"
#include "core/machine_file_system.h"
#include "settings/vehicles.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/expect_failure.h"
#include "tests/support/shared_memory_folder.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::test {
namespace {

namespace fs = std::filesystem;
constexpr int kCount = 12;

// The bytes that an operation makes of a file of kCount records, found on a disk in memory.
std::string resultOf(const Operation& operation) {
  MemoryFileSystem disk = preparedDisk(operation, kCount);
  operation.run(disk, kDiskFolders);
  return disk.contents(operation.file(kDiskFolders));
}

bool isReported(const std::function<void()>& change) {
  try {
    change();
  } catch (const core::Failure&) {
    return true;
  }
  return false;
}

void writeTo(const std::string& path, const std::string& contents) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr) << path;
  EXPECT_EQ(std::fwrite(contents.data(), 1, contents.size(), file), contents.size());
  std::fclose(file);
}

std::string readFrom(const std::string& path) {
  std::string contents(fs::file_size(path), '\0');
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  EXPECT_EQ(std::fread(contents.data(), 1, contents.size(), file), contents.size());
  std::fclose(file);
  return contents;
}

class PlacesTest : public testing::Test {
 protected:
  PlacesTest() { folder_.makeFolder(kOperationPlate); }

  TemporaryFolder folder_;
  core::DataFolders folders_{.program = folder_.path(), .current = folder_.path()};
  core::MachineFileSystem files_;
};

// A file system of its own, of 64 KiB, over a folder.
class SmallDisk {
 public:
  explicit SmallDisk(std::string path) : path_(std::move(path)) {
    isThere_ = ::mount("tarvik-test", path_.c_str(), "tmpfs", 0, "size=64k") == 0;
  }
  ~SmallDisk() {
    if (isThere_) ::umount2(path_.c_str(), MNT_DETACH);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  bool isThere() const { return isThere_; }
  // Takes all the room that is left.
  void fill() const {
    const int file = ::open((path_ + "/filler").c_str(), O_WRONLY | O_CREAT, 0600);
    const std::string page(4096, 'x');
    while (::write(file, page.data(), page.size()) > 0) {
    }
    ::close(file);
  }
  void makeRoom() const { ::unlink((path_ + "/filler").c_str()); }

 private:
  std::string path_;
  bool isThere_;
};

TEST_F(PlacesTest, AFullDiskLeavesTheFileAndIsReported) {
  const SmallDisk disk(folder_.path());
  if (!disk.isThere()) GTEST_SKIP() << "no file system may be mounted here: not tested";
  folder_.makeFolder(kOperationPlate);
  int reported = 0;
  for (const Operation& operation : operations(kCount)) {
    const std::string file = operation.file(folders_);
    const std::string old = fileOf(operation, kCount);
    writeTo(file, old);
    disk.fill();
    const bool failed = isReported([&] { operation.run(files_, folders_); });
    EXPECT_EQ(readFrom(file), failed ? old : resultOf(operation)) << operation.name;
    if (failed) ++reported;
    disk.makeRoom();
    writeTo(file, old);
    EXPECT_FALSE(isReported([&] { operation.run(files_, folders_); })) << operation.name;
    EXPECT_EQ(readFrom(file), resultOf(operation)) << operation.name;
    fs::remove(file);
  }
  EXPECT_GE(reported, 10);
}

TEST_F(PlacesTest, AReadOnlyFileStaysAndIsReported) {
  for (const Operation& operation : operations(kCount)) {
    const std::string file = operation.file(folders_);
    writeTo(file, fileOf(operation, kCount));
    ::chmod(file.c_str(), 0444);
    EXPECT_TRUE(isReported([&] { operation.run(files_, folders_); })) << operation.name;
    EXPECT_EQ(readFrom(file), fileOf(operation, kCount)) << operation.name;
    fs::remove(file);
  }
}

// A person without a right to anything else; only the superuser can become it.
class Nobody {
 public:
  Nobody() : isNeeded_(::geteuid() == 0) {
    if (isNeeded_ && ::seteuid(kNobody) != 0) std::abort();
  }
  ~Nobody() {
    if (isNeeded_ && ::seteuid(0) != 0) std::abort();
  }
  Nobody(const Nobody&) = delete;
  Nobody& operator=(const Nobody&) = delete;
  static void own(const std::string& path) {
    if (::geteuid() == 0 && ::chown(path.c_str(), kNobody, kNobody) != 0) std::abort();
  }

 private:
  static constexpr uid_t kNobody = 65534;
  bool isNeeded_;
};

TEST_F(PlacesTest, AReadOnlyFolderKeepsItsFilesAndIsReported) {
  for (const Operation& operation : operations(kCount)) {
    const std::string file = operation.file(folders_);
    writeTo(file, fileOf(operation, kCount));
    Nobody::own(file);
    for (const std::string& folder : {fs::path(file).parent_path().string(), folder_.path()}) {
      Nobody::own(folder);
      ::chmod(folder.c_str(), 0555);
    }
    bool failed = false;
    {
      const Nobody nobody;
      failed = isReported([&] { operation.run(files_, folders_); });
    }
    // A record that is added in place needs no right to the folder.
    EXPECT_EQ(readFrom(file), failed ? fileOf(operation, kCount) : resultOf(operation)) << operation.name;
    ::chmod(folder_.path().c_str(), 0755);
    ::chmod(fs::path(file).parent_path().c_str(), 0755);
    EXPECT_EQ(fs::exists(file + ".tmp"), false) << operation.name;
    fs::remove(file);
  }
}

TEST_F(PlacesTest, ASymbolicLinkStaysAndItsTargetChanges) {
  folder_.makeFolder("elsewhere");
  for (const Operation& operation : operations(kCount)) {
    const std::string link = operation.file(folders_);
    const std::string target = folder_ / "elsewhere/data";
    writeTo(target, fileOf(operation, kCount));
    fs::create_symlink(target, link);
    operation.run(files_, folders_);
    EXPECT_TRUE(fs::is_symlink(link)) << operation.name;
    EXPECT_FALSE(fs::is_symlink(target)) << operation.name;
    EXPECT_EQ(readFrom(target), resultOf(operation)) << operation.name;
    fs::remove(link);
  }
}

TEST_F(PlacesTest, PermissionBitsStay) {
  for (const Operation& operation : operations(kCount)) {
    const std::string file = operation.file(folders_);
    writeTo(file, fileOf(operation, kCount));
    ::chmod(file.c_str(), 0640);
    operation.run(files_, folders_);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms{0640}) << operation.name;
    fs::remove(file);
  }
}

// Deletions of tyres and repairs have their temporary file in the current folder.
TEST_F(PlacesTest, TheCurrentFolderMayLieOnAnotherFileSystem) {
  const SharedMemoryFolder current(folder_);
  if (!current.isApartFrom(folder_)) GTEST_SKIP() << "there is no other file system here: not tested";
  folders_.current = current.path();
  for (const Operation& operation : operations(kCount)) {
    writeTo(operation.file(folders_), fileOf(operation, kCount));
    operation.run(files_, folders_);
    EXPECT_EQ(readFrom(operation.file(folders_)), resultOf(operation)) << operation.name;
  }
}

TEST_F(PlacesTest, ALinkInADeletionsTemporaryFilesPlaceBringsNothingIn) {
  int deletions = 0;
  for (const Operation& operation : operations(kCount)) {
    const std::string temporary = operation.temporary(folders_);
    if (temporary.empty()) continue;
    ++deletions;
    const std::string secret(10 * operation.recordLength, 's');
    folder_.write("secret", secret);
    fs::create_symlink(folder_ / "secret", temporary);
    writeTo(operation.file(folders_), fileOf(operation, kCount));
    expectFailure(core::FailureKind::NotOwnFile, [&] { operation.run(files_, folders_); });
    EXPECT_EQ(readFrom(operation.file(folders_)), fileOf(operation, kCount)) << operation.name;
    EXPECT_EQ(folder_.read("secret"), secret);
    fs::remove(temporary);
  }
  EXPECT_EQ(deletions, 7);
}

TEST_F(PlacesTest, AVehicleFolderThatWentIsReportedAndNotMade) {
  fs::remove(folder_ / kOperationPlate);
  for (const Operation& operation : operations(kCount)) {
    if (operation.file(folders_) != folders_.logbook(kOperationPlate)) continue;
    expectFailure(core::FailureKind::FolderMissing, [&] { operation.run(files_, folders_); });
  }
  EXPECT_EQ(core::loadLogbook(files_, folders_, kOperationPlate).count(), 0);
  EXPECT_TRUE(folder_.names().empty());
}

TEST_F(PlacesTest, APlateNeverLeavesTheProgramFolder) {
  folder_.makeFolder("program");
  folders_ = {.program = folder_ / "program", .current = folder_ / "program"};
  const std::string long_plate = "../" + std::string(300, 'x');
  for (const std::string& plate :
       {std::string(".."), std::string("../evil"), std::string("evil/../../evil"), std::string("/tmp/evil"),
        std::string("a\\b"), std::string("."), std::string(" .. "), std::string("x\0y", 3), long_plate}) {
    settings::addVehicle(files_, folders_, plate, "50");
    core::EntryInput entry;
    entry.kmOra = "1";
    expectFailure(core::FailureKind::PlateUnusable,
                  [&] { core::recordEntry(files_, folders_, plate, entry); });
    expectFailure(core::FailureKind::PlateUnusable,
                  [&] { core::modifyEntry(files_, folders_, plate, {.number = 1}, entry, ""); });
    expectFailure(core::FailureKind::PlateUnusable, [&] { core::openDeletion(files_, folders_, plate); });
    expectFailure(core::FailureKind::PlateUnusable,
                  [&] { core::deleteEntry(files_, folders_, plate, {.number = 1}); });
    EXPECT_EQ(core::loadLogbook(files_, folders_, plate).count(), 0);
  }
  EXPECT_EQ(folder_.names(),
            (std::vector<std::string>{std::string(kOperationPlate), "program", "program/rendsz.dat"}));
}

}  // namespace
}  // namespace tarvik::test
