#include "core/data_folders.h"

#include <gtest/gtest.h>

#include "tests/support/expect_failure.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::core {
namespace {

using test::expectFailure;
using namespace std::string_view_literals;

const DataFolders kFolders{.program = "/opt/tarvik", .current = "/home/elek/napló"};

constexpr std::string_view kUnusable[] = {
    "",     "   ",    ".",    "..", " .. ",     "/",    "a/b",     "/etc",
    "../x", "..\\..", "a\\b", "\\", "ABC-123/", "\0"sv, "ABC\0"sv, "A\0B"sv,
};

TEST(DataFolders, FilesFollowTheirFolder) {
  EXPECT_EQ(kFolders.inProgram("Gumik.dat"), "/opt/tarvik/Gumik.dat");
  EXPECT_EQ(kFolders.inCurrent("set.dat"), "/home/elek/napló/set.dat");
}

TEST(DataFolders, VehicleFolderIsNamedByThePlateWithoutTheSpacesAroundIt) {
  EXPECT_EQ(kFolders.vehicleFolder("ABC-123"), "/opt/tarvik/ABC-123");
  EXPECT_EQ(kFolders.vehicleFolder("  ABC 123  "), "/opt/tarvik/ABC 123");
}

TEST(DataFolders, LogbookLiesInTheVehicleFolder) {
  EXPECT_EQ(kFolders.logbook(" ABC-123 "), "/opt/tarvik/ABC-123/napiadat.dat");
  EXPECT_EQ(kFolders.logbookTemporary("ABC-123"), "/opt/tarvik/ABC-123/napiadatx.dat");
}

TEST(DataFolders, UnusablePlateNeverLeadsOutOfTheProgramFolder) {
  for (const std::string_view plate : kUnusable) {
    expectFailure(FailureKind::PlateUnusable, [plate] { kFolders.vehicleFolder(plate); });
    expectFailure(FailureKind::PlateUnusable, [plate] { kFolders.logbook(plate); });
    expectFailure(FailureKind::PlateUnusable, [plate] { kFolders.logbookTemporary(plate); });
  }
}

TEST(IsUsablePlate, PlateThatIsNoPlainFolderNameIsNot) {
  for (const std::string_view plate : kUnusable) EXPECT_FALSE(isUsablePlate(plate)) << plate;
}

TEST(IsUsablePlate, AnyOtherPlateIs) {
  for (const std::string_view plate :
       {"ABC-123", " ABC-123 ", ".x", "ŐRI 01", "A.B", "~", "-", "\x7F", "\u00A0", "CONT", "COM", "COM0",
        "COM10", "LPT-1", "NULLA", "XCON", "com12", "A CON"})
    EXPECT_TRUE(isUsablePlate(plate)) << plate;
}

TEST(IsUsablePlate, NameThatWindowsGivesToADeviceIsNot) {
  for (const std::string_view plate :
       {"CON", "con", "Prn", "AUX", "NUL", "COM1", "com9", "LPT1", "lpt9", "COM¹", "LPT²", "lpt³", "CONIN$",
        "conout$", " NUL ", "NUL.txt", "con.a.b", "LPT1 .x"})
    EXPECT_FALSE(isUsablePlate(plate)) << plate;
}

TEST(IsUsablePlate, NameThatWindowsCannotKeepIsNot) {
  for (const std::string_view plate :
       {"X.", "X..", "...", "X. ", "a<b", "a>b", "a:b", "a\"b", "a|b", "a?b", "a*b", "\x01", "A\tB", "A\x1F"})
    EXPECT_FALSE(isUsablePlate(plate)) << plate;
}

class RequiredFoldersTest : public testing::Test {
 protected:
  RequiredFoldersTest() {
    disk_.putFolder("/program");
    disk_.putFolder("/current");
    disk_.put("/file", "");
  }
  test::MemoryFileSystem disk_;
};

TEST_F(RequiredFoldersTest, ThatAreThereAreFine) {
  requireFolders(disk_, {"/program", "/current"});
}

TEST_F(RequiredFoldersTest, AreOneByWhateverPathsTheyAreNamed) {
  disk_.putLink("/link", "/program");
  EXPECT_TRUE(isOneFolder(disk_, {"/program", "/program"}));
  EXPECT_TRUE(isOneFolder(disk_, {"/program", "/link"}));
  EXPECT_FALSE(isOneFolder(disk_, {"/program", "/current"}));
  EXPECT_FALSE(isOneFolder(disk_, {"/program", "/gone"}));
}

// Some file systems of the network number nothing: all their files have the number 0.
TEST_F(RequiredFoldersTest, AreNotOneBecauseNeitherHasANumber) {
  struct Unnumbered final : test::InterceptedFileSystem {
    using InterceptedFileSystem::InterceptedFileSystem;
    bool admitted(test::Call) override { return true; }
    int statusOf(const std::string& path, FileStatus& status) override {
      const int result = InterceptedFileSystem::statusOf(path, status);
      status.inode = 0;
      return result;
    }
  } files(disk_);
  EXPECT_FALSE(isOneFolder(files, {"/program", "/current"}));
}

TEST_F(RequiredFoldersTest, AreToldToBeGoneWhereTheSystemHasNoPathForThem) {
  expectFailure(FailureKind::FolderGone, [&] { requireFolders(disk_, {"/program", ""}); });
}

TEST_F(RequiredFoldersTest, AreNamedWhereTheirPathLeadsNowhereOrToAFile) {
  for (const char* path : {"/gone", "/file"}) {
    expectFailure(FailureKind::FolderUnreadable, [&] { requireFolders(disk_, {"/program", path}); });
    expectFailure(FailureKind::FolderUnreadable, [&] { requireFolders(disk_, {path, "/current"}); });
  }
}

}  // namespace
}  // namespace tarvik::core
