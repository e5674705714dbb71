#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <set>

#include "core/failure.h"
#include "core/history.h"
#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "tests/support/operations.h"
#include "tests/support/temporary_folder.h"

namespace {

// How many allocations of this program are granted before one is refused; negative: all of them.
int granted = -1;
int asked = 0;

bool isRefused() {
  ++asked;
  if (granted < 0) return false;
  return granted-- == 0;
}

void* allocated(std::size_t size) {
  if (isRefused()) throw std::bad_alloc();
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return allocated(size);
}
void* operator new[](std::size_t size) {
  return allocated(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return isRefused() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace tarvik::test {
namespace {

long openDescriptors() {
  long count = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

class MemoryRunsOutTest : public testing::TestWithParam<int> {
 protected:
  MemoryRunsOutTest() { folder_.makeFolder(kOperationPlate); }

  std::string nameOf(const Operation& operation) const {
    return operation.file(folders_).substr(folder_.path().size() + 1);
  }

  // Runs the operation with so many allocations granted; whether it was stopped.
  bool isStopped(const Operation& operation, int allocations) {
    granted = allocations;
    asked = 0;
    try {
      operation.run(files_, folders_);
    } catch (const std::bad_alloc&) {
      granted = -1;
      return true;
    } catch (const core::Failure&) {
    }
    granted = -1;
    return false;
  }

  TemporaryFolder folder_;
  const core::DataFolders folders_{.program = folder_.path(), .current = folder_.path()};
  core::MachineFileSystem files_;
};

TEST_P(MemoryRunsOutTest, EndsOldOrNewAndLeavesNothingOpen) {
  int cases = 0;
  for (const Operation& operation : operations(GetParam())) {
    const std::string old = fileOf(operation, GetParam());
    folder_.write(nameOf(operation), old);
    core::History counted;
    files_.watch(&counted);
    ASSERT_FALSE(isStopped(operation, -1));
    const int allocations = asked;
    const std::string changed = folder_.read(nameOf(operation));
    const long open = openDescriptors();
    for (int nth = 0; nth < allocations; ++nth, ++cases) {
      folder_.write(nameOf(operation), old);
      core::History history;
      files_.watch(&history);
      const bool stopped = isStopped(operation, nth);
      const std::string now = folder_.read(nameOf(operation));
      EXPECT_TRUE(now == changed || (stopped && now == old)) << operation.name << ", allocation " << nth;
      EXPECT_EQ(openDescriptors(), open) << operation.name << ", allocation " << nth;
      EXPECT_EQ(history.canUndo(), now != old) << operation.name << ", allocation " << nth;
      if (history.canUndo()) history.undo(files_);
      EXPECT_EQ(folder_.read(nameOf(operation)), old) << operation.name << ", allocation " << nth;
    }
  }
  std::printf("%d cases\n", cases);
}

INSTANTIATE_TEST_SUITE_P(Files, MemoryRunsOutTest, testing::Values(0, 1, 105),
                         [](const auto& files) { return "With" + std::to_string(files.param) + "Records"; });

// A step of two files, taken back with so many allocations granted.
class MemoryRunsOutInUndoingTest : public testing::Test {
 protected:
  MemoryRunsOutInUndoingTest() { files_.watch(&history_); }

  void append(const std::string& name) {
    constexpr std::string_view kRecord("aaa\0", 4);
    core::RecordFile(files_, folder_.path() + "/" + name, kRecord.size())
        .append(std::as_bytes(std::span(kRecord)));
  }
  void makeStep() {
    const core::History::Action action(history_, "kettő");
    append("one.dat");
    append("two.dat");
  }
  std::string contents() { return folder_.read("one.dat") + "|" + folder_.read("two.dat"); }

  // Whether the memory sufficed.
  bool undo(int allocations) {
    granted = allocations;
    bool isWhole = false;
    try {
      isWhole = !history_.undo(files_).failure;
    } catch (const std::bad_alloc&) {
    }
    granted = -1;
    return isWhole;
  }

  TemporaryFolder folder_;
  core::MachineFileSystem files_;
  core::History history_;
};

TEST_F(MemoryRunsOutInUndoingTest, PartsTheStepInWhatIsBackAndWhatIsNot) {
  const std::string record("aaa\0", 4);
  std::set<std::string> seen;
  bool isWhole = false;
  for (int allocations = 0; !isWhole; ++allocations) {
    makeStep();
    ASSERT_LT(allocations, 1'000);
    isWhole = undo(allocations);
    seen.insert(contents());
    EXPECT_TRUE(!isWhole || contents() == "|") << allocations;
    if (history_.canUndo()) history_.undo(files_);  // the rest, with memory
    ASSERT_EQ(contents(), "|") << allocations;
    while (history_.canRedo()) history_.redo(files_);
    ASSERT_EQ(contents(), record + "|" + record) << allocations;
    while (history_.canUndo()) history_.undo(files_);
  }
  EXPECT_EQ(seen, (std::set<std::string>{"|", record + "|", record + "|" + record}));
}

}  // namespace
}  // namespace tarvik::test
