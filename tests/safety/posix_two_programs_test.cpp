#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <set>

#include "core/failure.h"
#include "core/history.h"
#include "core/record_file.h"
#include "core/record_list.h"
#include "tests/support/bytes.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/shared_memory_folder.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::test {
namespace {

constexpr int kChangesAProgram = 5'000;

// A kind of record that holds nothing but an identity. One kind ends in a zero byte and is added in place,
// the other is not and never is.
struct Kind {
  const char* file;
  const char* temporary;
  std::size_t length;
  char last;
};
constexpr Kind kKinds[] = {{"inplace.dat", "inplacex.dat", 156, '\0'},
                           {"replaced.dat", "replacedx.dat", 50, ' '}};

std::string recordOf(const Kind& kind, const std::string& identity) {
  std::string record = padded(identity, kind.length);
  record.back() = kind.last;
  return record;
}

std::string identityIn(std::string_view record) {
  return std::string(record.substr(0, record.find(' ')));
}

// Waits for the other program a moment only, so that the two take turns as often as can be.
class ImpatientFileSystem final : public ForwardingFileSystem {
 public:
  void pause(int) override { ForwardingFileSystem::pause(1); }
};

// One program: it adds, rewrites and removes, takes some of it back again, and notes in a file of its own
// what it did to which record.
class Program {
 public:
  Program(const std::string& folder, char name)
      : folder_(folder), name_(name), random_(static_cast<unsigned>(name)) {
    notes_ = std::fopen((folder + "/notes-" + name).c_str(), "w");
    files_.watch(&history_);
  }
  ~Program() { std::fclose(notes_); }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void run() {
    for (int change = 0; change < kChangesAProgram;) {
      try {
        if (makeOne(kKinds[random_() % std::size(kKinds)], name_ + std::to_string(change))) ++change;
        if (random_() % 4 == 0) takeBack();
      } catch (const core::Failure& failure) {
        if (failure.kind() != core::FailureKind::FileBusy) throw;
        std::fputs("busy\n", notes_);
      }
    }
  }

 private:
  // False when the record that was listed was another one by the time that its turn came.
  bool makeOne(const Kind& kind, const std::string& identity) {
    const core::ByteBlock listed = core::readRecords(files_, folder_ + "/" + kind.file, kind.length);
    const auto count = listed.size / kind.length;
    const auto choice = random_() % 10;
    // As many go as come once there are some hundred, so that the files stay small.
    if (count == 0 || (count < 200 ? choice < 6 : choice < 3)) return add(kind, identity);
    const auto number = random_() % count + 1;
    const auto bytes = listed.span().subspan((number - 1) * kind.length, kind.length);
    const core::SeenRecord seen{.number = static_cast<std::int64_t>(number),
                                .bytes = {bytes.begin(), bytes.end()}};
    try {
      if (choice == 9) return rewrite(kind, seen, identity);
      return remove(kind, seen);
    } catch (const core::Failure& failure) {
      if (failure.kind() != core::FailureKind::RecordChanged) throw;
      std::fputs("changed\n", notes_);
      return false;
    }
  }

  core::RecordFile opened(const Kind& kind) {
    return core::RecordFile(files_, folder_ + "/" + kind.file, kind.length);
  }

  // The last change that is not taken back yet, unless the other program has changed its file since.
  void takeBack() {
    if (!history_.canUndo()) return;
    try {
      history_.undo(files_);
    } catch (const core::Failure& failure) {
      if (failure.kind() != core::FailureKind::FileChanged) throw;
      std::fputs("refused\n", notes_);
      return;
    }
    std::fputs("undone\n", notes_);
    for (const Noted& noted : done_[history_.steps()]) write(noted.what == '+' ? '-' : '+', noted.record);
    done_.resize(history_.steps());
  }

  bool add(const Kind& kind, const std::string& identity) {
    opened(kind).append(bytesOf(recordOf(kind, identity)));
    note('+', kind, identity);
    return true;
  }

  bool rewrite(const Kind& kind, const core::SeenRecord& seen, const std::string& identity) {
    opened(kind).rewrite(seen, bytesOf(recordOf(kind, identity)));
    note('+', kind, identity);
    note('-', kind, identityIn(textOf(seen.bytes)));
    return true;
  }

  bool remove(const Kind& kind, const core::SeenRecord& seen) {
    opened(kind).remove(seen, folder_ + "/" + kind.temporary);
    note('-', kind, identityIn(textOf(seen.bytes)));
    return true;
  }

  struct Noted {
    char what;
    std::string record;
  };

  // What belongs to the step that was made last.
  void note(char what, const Kind& kind, const std::string& identity) {
    const std::string record = std::to_string(kind.length) + ":" + identity;
    done_.resize(history_.steps());
    done_.back().push_back({what, record});
    write(what, record);
  }
  void write(char what, const std::string& record) { std::fprintf(notes_, "%c%s\n", what, record.c_str()); }

  std::string folder_;
  char name_;
  std::mt19937 random_;
  ImpatientFileSystem files_;
  core::History history_;
  std::vector<std::vector<Noted>> done_;
  std::FILE* notes_;
};

std::string contentsOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

pid_t started(const std::string& folder, char name) {
  const pid_t child = ::fork();
  if (child != 0) return child;
  try {
    Program(folder, name).run();
  } catch (...) {
    ::_exit(1);
  }
  ::_exit(0);
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
    lines.push_back(text.substr(at, text.find('\n', at) - at));
  return lines;
}

TEST(TwoProgramsTest, LoseNothingAndDoubleNothing) {
  const TemporaryFolder onDisk;
  const SharedMemoryFolder inMemory(onDisk);  // where the system has one: it saves the waiting for a disk
  const std::string folder = inMemory.isApartFrom(onDisk) ? inMemory.path() : onDisk.path();
  const pid_t programs[] = {started(folder, 'a'), started(folder, 'b')};
  for (const pid_t program : programs) {
    int status = 0;
    ASSERT_EQ(::waitpid(program, &status, 0), program);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }

  std::map<std::string, int> times;  // that a record came, less those that it went
  long busy = 0;
  long changed = 0;
  long undone = 0;
  long refused = 0;
  for (const std::string& line : linesOf(contentsOf(folder + "/notes-a") + contentsOf(folder + "/notes-b"))) {
    if (line == "busy") ++busy;
    if (line == "changed") ++changed;
    if (line == "undone") ++undone;
    if (line == "refused") ++refused;
    if (line.front() == '-') --times[line.substr(1)];
    if (line.front() == '+') ++times[line.substr(1)];
  }
  std::set<std::string> expected;
  for (const auto& [record, count] : times) {
    EXPECT_TRUE(count == 0 || count == 1) << record << " " << count;
    if (count == 1) expected.insert(record);
  }

  std::set<std::string> found;
  for (const Kind& kind : kKinds) {
    const std::string contents = contentsOf(folder + "/" + kind.file);
    ASSERT_EQ(contents.size() % kind.length, 0U);
    for (std::size_t at = 0; at < contents.size(); at += kind.length) {
      const std::string record = contents.substr(at, kind.length);
      const std::string identity = identityIn(record);
      EXPECT_EQ(record, recordOf(kind, identity));
      EXPECT_TRUE(found.insert(std::to_string(kind.length) + ":" + identity).second)
          << identity << " is doubled";
    }
    EXPECT_FALSE(std::filesystem::exists(folder + "/" + kind.file + ".tmp"));
  }
  EXPECT_EQ(found, expected);
  EXPECT_GT(undone, 0);
  EXPECT_GT(refused, 0);
  EXPECT_GT(changed, 0) << "no record was another one by the time that its turn came";
  std::printf(
      "%zu records at the end, %ld times the other program was busy for too long, %ld times the "
      "record that was listed was another one, %ld changes taken back, %ld such refused\n",
      found.size(), busy, changed, undone, refused);
}

}  // namespace
}  // namespace tarvik::test
