#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "tests/support/temporary_folder.h"

// What a replaced file keeps where files have permission bits, links and second names.

namespace tarvik::core {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLength = 4;

std::span<const std::byte> bytes(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

class PosixRecordFileTest : public testing::Test {
 protected:
  RecordFile opened() { return RecordFile(files_, path_, kLength); }
  void append(std::string_view record) { opened().append(bytes(record)); }
  void rewrite(std::int64_t number, std::string_view record) {
    RecordFile file = opened();
    file.rewrite(file.seen(number), bytes(record));
  }
  void remove(std::int64_t number) {
    RecordFile file = opened();
    file.remove(file.seen(number), folder_ / "datax.dat");
  }
  void write(std::string_view contents) { folder_.write("data.dat", contents); }
  std::string stored() const { return folder_.read("data.dat"); }
  void setMode(mode_t mode) const { ASSERT_EQ(::chmod(path_.c_str(), mode), 0); }
  mode_t mode() const {
    struct stat status {};
    EXPECT_EQ(::stat(path_.c_str(), &status), 0);
    return status.st_mode & 0777;
  }

  test::TemporaryFolder folder_;
  MachineFileSystem files_;
  std::string path_ = folder_ / "data.dat";
};

using Names = std::vector<std::string>;

TEST_F(PosixRecordFileTest, SymbolicLinkIsFollowedAndStays) {
  folder_.makeFolder("elsewhere");
  folder_.write("elsewhere/real.dat", "AAAABBBB");
  fs::create_symlink("elsewhere/real.dat", path_);
  rewrite(1, "XXXX");
  remove(2);
  append("CCCC");
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_FALSE(fs::is_symlink(folder_ / "elsewhere/real.dat"));
  EXPECT_EQ(folder_.read("elsewhere/real.dat"), "XXXXCCCC");
  EXPECT_EQ(folder_.names(), (Names{"data.dat", "elsewhere", "elsewhere/real.dat"}));
}

TEST_F(PosixRecordFileTest, PermissionBitsAreKept) {
  for (const mode_t kept : {0600u, 0664u, 0640u, 0200u}) {
    write("AAAABBBB");
    setMode(kept);
    if (::geteuid() != 0 && kept == 0200u) continue;  // only root opens a file that it may not read
    rewrite(1, "XXXX");
    EXPECT_EQ(mode(), kept);
    remove(2);
    EXPECT_EQ(mode(), kept);
    append("CCCC");
    EXPECT_EQ(mode(), kept);
    setMode(0600);
  }
}

TEST_F(PosixRecordFileTest, ALinkInThePlaceOfTheReplacementIsNotFollowed) {
  write("AAAABBBB");
  folder_.write("precious", "do not empty");
  fs::create_symlink("precious", folder_ / "data.dat.tmp");
  rewrite(2, "XXXX");
  EXPECT_EQ(stored(), "AAAAXXXX");
  EXPECT_EQ(folder_.read("precious"), "do not empty");
  EXPECT_EQ(folder_.names(), (Names{"data.dat", "precious"}));
}

TEST_F(PosixRecordFileTest, ALeftoverReplacementThatIsASecondNameDoesNotEmptyItsFile) {
  write("old1");
  ASSERT_EQ(::link(path_.c_str(), (path_ + ".tmp").c_str()), 0);
  append("more");
  EXPECT_EQ(stored(), "old1more");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

}  // namespace
}  // namespace tarvik::core
