#include "core/history.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/intercepted_file_system.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::core {
namespace {

using test::bytesOf;
using test::expectFailure;

constexpr std::size_t kLength = 4;

// Records of four characters in the files /f/a and /f/b.
class HistoryTest : public testing::Test {
 protected:
  HistoryTest() {
    disk_.putFolder("/f");
    disk_.watch(&history_);
  }

  RecordFile opened(const std::string& name) { return RecordFile(disk_, "/f/" + name, kLength); }
  void add(const std::string& name, std::string_view record) { opened(name).append(bytesOf(record)); }
  void rewrite(const std::string& name, std::int64_t number, std::string_view record) {
    RecordFile file = opened(name);
    file.rewrite(file.seen(number), bytesOf(record));
  }
  void remove(const std::string& name, std::int64_t number) {
    RecordFile file = opened(name);
    file.remove(file.seen(number), "/f/x");
  }
  std::string at(const std::string& name) { return disk_.contents("/f/" + name); }
  // What another program writes.
  void foreign(const std::string& name, const std::string& contents) { disk_.put("/f/" + name, contents); }
  Travelled undo() { return history_.undo(disk_); }
  Travelled redo() { return history_.redo(disk_); }

  test::MemoryFileSystem disk_;
  History history_;
};

TEST_F(HistoryTest, TakesChangesBackOneByOneAndMakesThemAgain) {
  add("a", "aaaa");
  add("a", std::string("bbb\0", 4));
  rewrite("a", 1, "AAAA");
  remove("a", 2);
  EXPECT_EQ(at("a"), "AAAA");

  undo();
  EXPECT_EQ(at("a"), std::string("AAAAbbb\0", 8));
  undo();
  EXPECT_EQ(at("a"), std::string("aaaabbb\0", 8));
  undo();
  EXPECT_EQ(at("a"), "aaaa");
  undo();
  EXPECT_EQ(at("a"), "");
  EXPECT_FALSE(history_.canUndo());

  redo();
  EXPECT_EQ(at("a"), "aaaa");
  redo();
  redo();
  EXPECT_EQ(at("a"), std::string("AAAAbbb\0", 8));
  redo();
  EXPECT_EQ(at("a"), "AAAA");
  EXPECT_FALSE(history_.canRedo());
}

TEST_F(HistoryTest, TakesAnActionOfSeveralFilesBackInOneStepAndInReverseOrder) {
  {
    const History::Action action(history_, "rögzítés");
    add("a", "aaaa");
    add("b", "bbbb");
    add("a", "cccc");
    EXPECT_TRUE(action.hasChanged());
  }
  EXPECT_EQ(history_.undoName(), "rögzítés");
  EXPECT_EQ(history_.steps(), 1U);

  const Travelled undone = undo();
  EXPECT_EQ(undone.name, "rögzítés");
  ASSERT_EQ(undone.files.size(), 2U);
  EXPECT_EQ(undone.files[0].path, "/f/a");
  EXPECT_EQ(undone.files[1].path, "/f/b");
  EXPECT_EQ(at("a"), "");
  EXPECT_EQ(at("b"), "");

  redo();
  EXPECT_EQ(at("a"), "aaaacccc");
  EXPECT_EQ(at("b"), "bbbb");
}

TEST_F(HistoryTest, NamesNoStepAfterAnActionThatIsOver) {
  EXPECT_EQ(history_.undoName(), "");
  EXPECT_EQ(history_.redoName(), "");
  {
    const History::Action action(history_, "rögzítés");
    add("a", "aaaa");
  }
  add("b", "bbbb");
  EXPECT_EQ(history_.undoName(), "");
  undo();
  EXPECT_EQ(history_.undoName(), "rögzítés");
}

// It is compared a piece at a time.
TEST_F(HistoryTest, SeesWhatAnotherProgramChangedAnywhereInALongFile) {
  constexpr std::size_t kSize = std::size_t{12} * 32'000;
  foreign("a", std::string(kSize, 'a'));
  {
    RecordFile file(disk_, "/f/a", 12);
    file.rewrite(file.seen(5), bytesOf("AAAAAAAAAAAA"));
  }
  EXPECT_LT(history_.bytes(), 1'000U);
  const std::string ours = at("a");
  for (const std::size_t place : {std::size_t{0}, std::size_t{262'143}, std::size_t{262'144}, kSize - 1}) {
    std::string theirs = ours;
    theirs[place] = 'z';
    foreign("a", theirs);
    expectFailure(FailureKind::FileChanged, [&] { undo(); });
  }
  foreign("a", ours);
  undo();
  EXPECT_EQ(at("a"), std::string(kSize, 'a'));
}

TEST_F(HistoryTest, MakesNoStepOfAnActionThatChangesNothingOrFails) {
  foreign("a", "aaaa");
  {
    const History::Action action(history_, "semmi");
    rewrite("a", 1, "aaaa");
    expectFailure(FailureKind::RecordChanged, [&] {
      opened("a").rewrite({.number = 1, .bytes = std::vector<std::byte>(4)}, bytesOf("bbbb"));
    });
    EXPECT_FALSE(action.hasChanged());
  }
  EXPECT_FALSE(history_.canUndo());
}

TEST_F(HistoryTest, MakesNoStepOfAWriteThatTheDiskRefused) {
  for (int nth = 1; nth <= 20; ++nth) {
    test::MemoryFileSystem disk;
    disk.putFolder("/f");
    disk.put("/f/a", "aaaa");
    test::FailingFileSystem failing(disk, {.nth = nth, .error = ENOSPC});
    History history;
    failing.watch(&history);
    try {
      RecordFile(failing, "/f/a", kLength).append(bytesOf("bbbb"));
    } catch (const Failure&) {
    }
    EXPECT_EQ(history.canUndo(), disk.contents("/f/a") == "aaaabbbb") << nth;
  }
}

TEST_F(HistoryTest, SaysWhichRecordsCameBack) {
  for (const char* record : {"aaaa", "abbb", "cccc"}) add("a", record);
  remove("a", 1);
  const Travelled undone = undo();
  ASSERT_EQ(undone.files.size(), 1U);
  EXPECT_EQ(undone.files[0].at / kLength, 0U);  // the first record
  EXPECT_EQ(undone.files[0].inserted, 4U);
}

TEST_F(HistoryTest, DropsWhatCouldBeRedoneAtTheNextChange) {
  add("a", "aaaa");
  undo();
  add("a", "bbbb");
  EXPECT_FALSE(history_.canRedo());
  undo();
  EXPECT_EQ(at("a"), "");
}

TEST_F(HistoryTest, RefusesWhereAnotherProgramChangedTheFileSince) {
  add("a", "aaaa");
  foreign("a", "aaaazzzz");
  expectFailure(FailureKind::FileChanged, [&] { undo(); });
  EXPECT_EQ(at("a"), "aaaazzzz");
  EXPECT_TRUE(history_.canUndo());

  foreign("a", "aaaa");  // it took its own change back
  undo();
  EXPECT_EQ(at("a"), "");
  foreign("a", "yyyy");
  expectFailure(FailureKind::FileChanged, [&] { redo(); });
  EXPECT_EQ(at("a"), "yyyy");
}

// Ours, theirs, ours: ours goes back, theirs stays, and what was ours before it is refused.
TEST_F(HistoryTest, KeepsAChangeOfAnotherProgramBetweenTwoOfOurs) {
  add("a", "aaaa");
  foreign("a", "aaaazzzz");
  add("a", "bbbb");
  undo();
  EXPECT_EQ(at("a"), "aaaazzzz");
  expectFailure(FailureKind::FileChanged, [&] { undo(); });
  EXPECT_EQ(at("a"), "aaaazzzz");
  redo();
  EXPECT_EQ(at("a"), "aaaazzzzbbbb");
  undo();
  foreign("a", "aaaa");
  undo();
  EXPECT_EQ(at("a"), "");
}

TEST_F(HistoryTest, PartsAnActionWhereAnotherProgramChangedItsFileBetween) {
  {
    const History::Action action(history_, "kettő");
    add("a", "aaaa");
    foreign("a", "aaaazzzz");
    add("a", "bbbb");
  }
  EXPECT_EQ(history_.steps(), 2U);
  undo();
  EXPECT_EQ(at("a"), "aaaazzzz");
}

TEST_F(HistoryTest, ChangesNoFileOfAStepWhenOneIsRefused) {
  {
    const History::Action action(history_, "kettő");
    add("a", "aaaa");
    add("b", "bbbb");
  }
  foreign("a", "zzzz");
  expectFailure(FailureKind::FileChanged, [&] { undo(); });
  EXPECT_EQ(at("b"), "bbbb");
  foreign("a", "aaaa");
  undo();
  EXPECT_EQ(at("a") + at("b"), "");
}

TEST_F(HistoryTest, RefusesAFileThatIsLocked) {
  add("a", "aaaa");
  const RecordFile other = opened("a");
  expectFailure(FailureKind::FileBusy, [&] { undo(); });
  EXPECT_EQ(at("a"), "aaaa");
}

TEST_F(HistoryTest, PutsADeletionsTemporaryFileBackToo) {
  foreign("a", "aaaabbbb");
  foreign("x", "....ssss");
  remove("a", 1);
  EXPECT_EQ(at("a"), "bbbbssss");
  EXPECT_FALSE(disk_.has("/f/x"));
  undo();
  EXPECT_EQ(at("a"), "aaaabbbb");
  EXPECT_EQ(at("x"), "....ssss");
  redo();
  EXPECT_EQ(at("a"), "bbbbssss");
  EXPECT_EQ(at("x"), "");
}

TEST_F(HistoryTest, SaysWhatIsBackAndWhatIsNotAfterAFailureHalfWay) {
  {
    const History::Action action(history_, "kettő");
    add("a", "aaaa");
    add("b", "bbbb");
  }
  bool wasParted = false;
  for (int nth = 1; nth <= 60 && !wasParted; ++nth) {
    test::FailingFileSystem failing(disk_, {.nth = nth, .error = EIO, .staysBroken = true});
    try {
      const Travelled undone = history_.undo(failing);
      if (undone.left.empty()) break;
      wasParted = true;
      EXPECT_EQ(undone.files.at(0).path, "/f/b");
      EXPECT_EQ(undone.left.at(0), "/f/a");
      EXPECT_TRUE(undone.failure.has_value());
    } catch (const Failure&) {
      ASSERT_EQ(at("a") + at("b"), "aaaabbbb");
    }
  }
  ASSERT_TRUE(wasParted);
  EXPECT_EQ(at("a") + at("b"), "aaaa");
  undo();  // the rest
  EXPECT_EQ(at("a"), "");
  redo();
  redo();
  EXPECT_EQ(at("a") + at("b"), "aaaabbbb");
}

// A clock that stands still, as between two changes in one of its ticks.
class TicklessFileSystem final : public test::InterceptedFileSystem {
 public:
  using InterceptedFileSystem::InterceptedFileSystem;
  int status(int descriptor, FileStatus& status) override {
    const int result = InterceptedFileSystem::status(descriptor, status);
    status.changed = 1;
    return result;
  }

 private:
  bool admitted(test::Call) override { return true; }
};

TEST_F(HistoryTest, RefusesWhereItTookAFileForUntouchedThatAnotherProgramHadChanged) {
  TicklessFileSystem files(disk_);
  files.watch(&history_);
  const auto addZ = [&](const char* name) {
    RecordFile(files, std::string("/f/") + name, kLength).append(bytesOf(std::string_view("zzz\0", 4)));
  };
  foreign("a", "aaaa");
  addZ("a");
  const int other = disk_.open("/f/a", OpenMode::Create);
  disk_.write(other, bytesOf("AAAA"), 0);  // the same file, as long as before
  disk_.close(other);
  addZ("a");
  const std::string changed = at("a");
  EXPECT_EQ(changed, std::string("AAAAzzz\0zzz\0", 12));
  expectFailure(FailureKind::FileChanged, [&] { history_.undo(files); });
  EXPECT_EQ(at("a"), changed);
}

TEST_F(HistoryTest, ForgetsTheOldestStepsPastItsBoundAndNeverTheNewest) {
  History small(2'000);
  disk_.watch(&small);
  for (int i = 0; i < 100; ++i) add("a", "aaaa");
  EXPECT_LT(small.steps(), 20U);
  EXPECT_LE(small.bytes(), 2'000U);
  opened("a").replaceAll(bytesOf(at("a") + std::string(8'000, 'b')));
  EXPECT_EQ(small.steps(), 1U);
  small.undo(disk_);
  EXPECT_EQ(at("a"), std::string(400, 'a'));
}

TEST_F(HistoryTest, KeepsTheStepsThatFillItsBoundWhole) {
  for (int i = 0; i < 3; ++i) add("a", "aaaa");
  for (const std::size_t lacking : {0U, 1U}) {
    History full(history_.bytes() - lacking);
    disk_.watch(&full);
    foreign("a", "");
    for (int i = 0; i < 3; ++i) add("a", "aaaa");
    EXPECT_EQ(full.steps(), 3U - lacking);
  }
}

TEST_F(HistoryTest, KeepsAThousandChangesOfALongFileSmall) {
  foreign("a", std::string(32'000 * kLength, 'a'));
  for (int i = 0; i < 1'000; ++i) rewrite("a", 16'000 + i, "bbbb");
  EXPECT_EQ(history_.steps(), 1'000U);
  EXPECT_LT(history_.bytes(), 1'000'000U);
}

}  // namespace
}  // namespace tarvik::core
