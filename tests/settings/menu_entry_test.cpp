#include "settings/menu_entry.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "tests/support/expect_failure.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::settings {
namespace {

using core::FailureKind;
using test::expectFailure;

const MenuPlace kPlace{.folder = "/home/elek/.local/share/applications",
                       .program = "/home/elek/Tarvik/Tarvik"};
const MenuPlace kStick{.folder = kPlace.folder, .program = "/media/stick/Tarvik/Tarvik-pendrive.com"};
const std::string kEntry = kPlace.folder + "/tarvik-4c187743.desktop";
const std::string kStickEntry = kPlace.folder + "/tarvik-e04ae571.desktop";

MenuPlace placeOf(const std::string& program) {
  return {.folder = kPlace.folder, .program = program};
}

std::string lineOf(const std::string& text, const std::string& key) {
  const std::size_t start = text.find("\n" + key + "=") + 1;
  return text.substr(start, text.find('\n', start) - start);
}

class MenuEntryTest : public testing::Test {
 protected:
  MenuEntryTest() { files_.putFolder("/home/elek"); }

  test::MemoryFileSystem files_;
};

TEST(MenuEntryText, StartsTheProgramInItsFolder) {
  EXPECT_EQ(menuEntryText(kPlace),
            "[Desktop Entry]\n"
            "Type=Application\n"
            "Version=1.1\n"
            "Name=Tarvik\n"
            "GenericName=Car running-cost logbook\n"
            "GenericName[hu]=Gépkocsi költségnapló\n"
            "Comment=Fill-ups, consumption and repairs: /home/elek/Tarvik\n"
            "Comment[hu]=Tankolások, fogyasztás, javítások: /home/elek/Tarvik\n"
            "Exec=/bin/sh -c \"exec \\\\\"\\\\$0\\\\\"\" \"/home/elek/Tarvik/Tarvik\"\n"
            "TryExec=/home/elek/Tarvik/Tarvik\n"
            "Path=/home/elek/Tarvik\n"
            "Icon=/home/elek/Tarvik/program/tarvik.svg\n"
            "Terminal=false\n"
            "StartupWMClass=Tarvik\n"
            "Categories=Office;\n"
            "Keywords=car;fuel;consumption;autó;tankolás;fogyasztás;\n");
}

TEST(MenuEntryText, KeepsEveryLetterThatACommandLineWouldTakeForItsOwn) {
  const std::string text = menuEntryText(placeOf("/a \"b\" `c` $d \\e 100% f=g ő /Tarvik"));
  const std::string end = "\"/a \\\\\"b\\\\\" \\\\`c\\\\` \\\\$d \\\\\\\\e 100%% f=g ő /Tarvik\"";
  EXPECT_TRUE(lineOf(text, "Exec").ends_with(" " + end)) << text;
  EXPECT_EQ(lineOf(text, "TryExec"), "TryExec=/a \"b\" `c` $d \\\\e 100% f=g ő /Tarvik");
  EXPECT_EQ(lineOf(text, "Path"), "Path=/a \"b\" `c` $d \\\\e 100% f=g ő\\s");
}

TEST(MenuEntryText, RefusesAPathWithALineBreakOrAnotherControlCharacter) {
  for (const std::string letter : {"\n", "\r", "\t", "\x01", "\x7F"})
    expectFailure(FailureKind::PathUnusable,
                  [&] { menuEntryText(placeOf("/home/a" + letter + "b/Tarvik")); });
}

TEST(MenuEntryName, IsOneForEachFolderWhateverTheProgramIsCalled) {
  EXPECT_EQ(menuEntryName(kPlace), "tarvik-4c187743");
  EXPECT_EQ(menuEntryName(kStick), "tarvik-e04ae571");
  EXPECT_EQ(menuEntryName(placeOf("/media/stick/Tarvik/Tarvik")), "tarvik-e04ae571");
}

TEST_F(MenuEntryTest, IsPutIntoAFolderThatIsMadeWhereItIsMissing) {
  EXPECT_FALSE(isInMenu(files_, kPlace));
  putIntoMenu(files_, kPlace);
  EXPECT_TRUE(isInMenu(files_, kPlace));
  EXPECT_EQ(files_.contents(kEntry), menuEntryText(kPlace));
  EXPECT_EQ(files_.modeOf(kEntry), 0644u);
  EXPECT_FALSE(files_.has(kEntry + ".tmp"));
}

TEST_F(MenuEntryTest, IsRenewedWhenItIsThere) {
  files_.putFolder(kPlace.folder);
  files_.put(kEntry, "something longer that stood there before, much longer than an entry could ever be");
  putIntoMenu(files_, kPlace);
  EXPECT_EQ(files_.contents(kEntry), menuEntryText(kPlace));
}

TEST_F(MenuEntryTest, IsNeverWrittenThroughALink) {
  files_.putFolder(kPlace.folder);
  files_.put("/home/elek/letter", "Dear Anna");
  files_.putLink(kEntry, "/home/elek/letter");
  files_.putLink(kEntry + ".tmp", "/home/elek/letter");
  putIntoMenu(files_, kPlace);
  EXPECT_EQ(files_.contents("/home/elek/letter"), "Dear Anna");
  files_.put("/home/elek/letter", "");
  EXPECT_EQ(files_.contents(kEntry), menuEntryText(kPlace));
}

TEST_F(MenuEntryTest, NothingIsMadeOfAPathThatAnEntryCannotHold) {
  expectFailure(FailureKind::PathUnusable, [&] { putIntoMenu(files_, placeOf("/home/a\nb/Tarvik")); });
  EXPECT_FALSE(files_.has("/home/elek/.local"));
}

TEST_F(MenuEntryTest, TwoCopiesHaveTwoEntriesAndEachTakesOutItsOwn) {
  putIntoMenu(files_, kPlace);
  putIntoMenu(files_, kStick);
  errno = EROFS;  // of another call, long ago
  takeOutOfMenu(files_, kPlace);
  EXPECT_FALSE(files_.has(kEntry));
  EXPECT_EQ(files_.contents(kStickEntry), menuEntryText(kStick));
}

TEST_F(MenuEntryTest, TakingOutWhatIsNotThereIsNoFault) {
  takeOutOfMenu(files_, kPlace);
  EXPECT_FALSE(isInMenu(files_, kPlace));
}

TEST_F(MenuEntryTest, StaysAsItWasWhicheverCallFails) {
  putIntoMenu(files_, kPlace);
  files_.setModeOf(kEntry, 0600);
  int failures = 0;
  for (int nth = 1; nth < 40; ++nth) {
    test::FailingFileSystem failing(files_, {.nth = nth, .error = ENOSPC});
    try {
      putIntoMenu(failing, kPlace);
    } catch (const core::Failure&) {
      ++failures;
      EXPECT_EQ(files_.modeOf(kEntry), 0600u) << nth;
      EXPECT_EQ(files_.contents(kEntry), menuEntryText(kPlace)) << nth;
    }
    EXPECT_FALSE(files_.has(kEntry + ".tmp")) << nth;
    files_.setModeOf(kEntry, 0600);
  }
  EXPECT_GE(failures, 5);
}

TEST_F(MenuEntryTest, ARefusedRemovalIsTold) {
  putIntoMenu(files_, kPlace);
  test::FailingFileSystem failing(files_, {.nth = 1, .error = EROFS});
  expectFailure(FailureKind::RemoveFailed, [&] { takeOutOfMenu(failing, kPlace); });
  EXPECT_TRUE(isInMenu(files_, kPlace));
}

}  // namespace
}  // namespace tarvik::settings
