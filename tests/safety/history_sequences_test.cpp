#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>

#include "core/failure.h"
#include "core/history.h"
#include "core/record_file.h"
#include "tests/safety/prepared_disk.h"

// Random sequences of all changes, undone and redone, with another program in between and alone.

namespace tarvik::test {
namespace {

constexpr int kRecords = 6;
constexpr int kChangesASequence = 12;

using Files = std::map<std::string, std::string>;

// Every file that an operation changes, with a few records in each.
const std::vector<Operation>& all() {
  static const std::vector<Operation> kAll = operations(kRecords);
  return kAll;
}

MemoryFileSystem household(std::mt19937& random) {
  MemoryFileSystem disk = preparedDisk("", "");
  for (const Operation& operation : all()) {
    const std::string path = operation.file(kDiskFolders);
    if (!disk.has(path) && random() % 5 != 0) disk.put(path, fileOf(operation, kRecords));
    const std::string temporary = operation.temporary(kDiskFolders);
    if (!temporary.empty() && random() % 8 == 0) disk.put(temporary, fileOf(operation, kRecords + 1));
  }
  return disk;
}

// A missing file and an empty one are the same.
Files filesOf(const MemoryFileSystem& disk) {
  Files files;
  for (const Operation& operation : all())
    for (const std::string& path : {operation.file(kDiskFolders), operation.temporary(kDiskFolders)})
      if (!path.empty() && !disk.contents(path).empty()) files[path] = disk.contents(path);
  return files;
}

class Sequence {
 public:
  explicit Sequence(unsigned seed) : random_(seed), disk_(household(random_)) { disk_.watch(&history_); }

  // One action of the person: one to three changes, some of which fail.
  void act() {
    const core::History::Action action(history_, std::to_string(random_()));
    for (auto changes = random_() % 3 + 1; changes > 0; --changes) change();
  }
  void change() {
    try {
      all()[random_() % all().size()].run(disk_, kDiskFolders);
    } catch (const core::Failure&) {  // a record that is not there any more, a plate that is taken
    }
  }
  // Another program's change, which this one's history does not see.
  void changeFromOutside() {
    disk_.watch(nullptr);
    change();
    disk_.watch(&history_);
  }
  std::mt19937& random() { return random_; }
  MemoryFileSystem& disk() { return disk_; }
  core::History& history() { return history_; }

 private:
  std::mt19937 random_;
  MemoryFileSystem disk_;
  core::History history_;
};

constexpr unsigned kSequences = 1'000;

// A soak begins elsewhere each time.
unsigned firstSequence() {
  const char* const wanted = std::getenv("TARVIK_FIRST_SEQUENCE");
  return wanted == nullptr ? 0 : static_cast<unsigned>(std::atol(wanted));
}

TEST(HistorySequencesTest, UndoneToTheStartHaveTheFirstBytesAndRedoneTheLast) {
  std::size_t steps = 0;
  for (unsigned seed = firstSequence(); seed < firstSequence() + kSequences; ++seed) {
    SCOPED_TRACE(seed);
    Sequence sequence(seed);
    const Files first = filesOf(sequence.disk());
    for (int i = 0; i < kChangesASequence; ++i) sequence.act();
    const Files last = filesOf(sequence.disk());
    steps += sequence.history().steps();
    while (sequence.history().canUndo()) sequence.history().undo(sequence.disk());
    ASSERT_EQ(filesOf(sequence.disk()), first);
    while (sequence.history().canRedo()) sequence.history().redo(sequence.disk());
    ASSERT_EQ(filesOf(sequence.disk()), last);
  }
  EXPECT_GT(steps, std::size_t{kSequences} * kChangesASequence / 2);
}

// Undone and redone at any moment, the files are those that they were at that place of the history.
TEST(HistorySequencesTest, UndoneAndRedoneInBetweenHaveTheBytesOfTheirPlace) {
  for (unsigned seed = firstSequence(); seed < firstSequence() + kSequences; ++seed) {
    SCOPED_TRACE(seed);
    Sequence sequence(seed + 500'000);
    std::vector<Files> places{filesOf(sequence.disk())};
    for (int i = 0; i < 3 * kChangesASequence; ++i) {
      core::History& history = sequence.history();
      const auto choice = sequence.random()() % 4;
      if (choice == 0 && history.canUndo()) {
        history.undo(sequence.disk());
      } else if (choice == 1 && history.canRedo()) {
        history.redo(sequence.disk());
      } else {
        const std::size_t before = history.steps();
        sequence.act();
        if (history.steps() > before) places.resize(before + 1), places.push_back(filesOf(sequence.disk()));
      }
      ASSERT_EQ(filesOf(sequence.disk()), places.at(history.steps()));
    }
  }
}

// What a step of the history did.
struct Change {
  Files before{};
  Files after{};
};

std::string contentsIn(const Files& files, const std::string& path) {
  const auto found = files.find(path);
  return found == files.end() ? std::string() : found->second;
}

// A file is taken from the bytes after a step to those before it, or the other way; all others stay.
void expectOnly(const core::Travelled& travelled, const Change& from, const Change& to) {
  Files expected = from.before;
  for (const core::TravelledFile& file : travelled.files) {
    ASSERT_EQ(contentsIn(from.before, file.path), contentsIn(to.before, file.path)) << file.path;
    expected.erase(file.path);
    const std::string contents = contentsIn(to.after, file.path);
    if (!contents.empty()) expected[file.path] = contents;
  }
  ASSERT_EQ(from.after, expected);
}

// What another program changed is there after each undoing and redoing, or it was refused and nothing
// changed.
TEST(HistorySequencesTest, NeverOverwriteAChangeOfAnotherProgram) {
  std::size_t refused = 0;
  std::size_t went = 0;
  for (unsigned seed = firstSequence(); seed < firstSequence() + kSequences; ++seed) {
    SCOPED_TRACE(seed);
    Sequence sequence(seed + 1'000'000);
    core::History& history = sequence.history();
    std::vector<Change> steps;
    for (int i = 0; i < 3 * kChangesASequence; ++i) {
      const Files before = filesOf(sequence.disk());
      const auto choice = sequence.random()() % 4;
      const std::size_t place = history.steps();
      if (choice == 0) {
        sequence.act();
        if (history.steps() == place) continue;
        steps.resize(place);
        steps.push_back({before, filesOf(sequence.disk())});
      } else if (choice == 1) {
        sequence.changeFromOutside();
      } else if (choice == 2 ? history.canUndo() : history.canRedo()) {
        try {
          const core::Travelled travelled =
              choice == 2 ? history.undo(sequence.disk()) : history.redo(sequence.disk());
          const Change& step = steps.at(history.steps() - (choice == 2 ? 0 : 1));
          const Change now{before, filesOf(sequence.disk())};
          expectOnly(travelled, now, choice == 2 ? Change{step.after, step.before} : step);
          ++went;
        } catch (const core::Failure& failure) {
          ASSERT_EQ(failure.kind(), core::FailureKind::FileChanged);
          ASSERT_EQ(filesOf(sequence.disk()), before);
          ++refused;
        }
      }
      if (HasFatalFailure()) return;
    }
  }
  EXPECT_GT(refused, 100U);
  EXPECT_GT(went, 100U);
}

}  // namespace
}  // namespace tarvik::test
