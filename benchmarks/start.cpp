// tarvik_bench_start PROGRAM BARE FORMS FIRST_PAINT FOLDER ROUNDS PLATFORM...: how long a program takes from
// its start to its first painted window, and how much memory, beside a bare window of Qt and beside the forms
// of its own window. The program is copied into FOLDER, where its data are. Writes the rows of the table.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "benchmarks/logbook.h"
#include "benchmarks/rows.h"
#include "core/napi_adat.h"

namespace tarvik::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kReportDescriptor = 3;
constexpr double kBytesAKilobyte = 1'024;
constexpr double kBytesAMegabyte = kBytesAKilobyte * kBytesAKilobyte;
constexpr double kFileBytes = double{kFullLogbook} * core::NapiAdat::kLength;

[[noreturn]] void fail(const char* what) {
  std::perror(what);
  std::exit(1);
}

struct Start {
  double nanoseconds = 0;
  double processorNanoseconds = 0;
  double peakBytes = 0;
};

[[noreturn]] void become(const std::string& program, int report) {
  const std::string folder = std::filesystem::path(program).parent_path().string();
  if (dup2(report, kReportDescriptor) < 0 || chdir(folder.c_str()) != 0) fail("start");
  execl(program.c_str(), program.c_str(), nullptr);
  fail(program.c_str());
}

double nanosecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
}

Start startOnce(const std::string& program) {
  int report[2];
  if (pipe(report) != 0) fail("pipe");
  const auto before = Clock::now();
  const pid_t child = fork();
  if (child < 0) fail("fork");
  if (child == 0) become(program, report[1]);
  close(report[1]);
  char painted = 0;
  const bool wasPainted = read(report[0], &painted, 1) == 1;
  const std::chrono::duration<double, std::nano> took = Clock::now() - before;
  close(report[0]);
  struct rusage used {};
  if (wait4(child, nullptr, 0, &used) != child || !wasPainted) fail(program.c_str());
  return {took.count(), nanosecondsOf(used.ru_utime) + nanosecondsOf(used.ru_stime),
          static_cast<double>(used.ru_maxrss) * kBytesAKilobyte};
}

/// The starts of one program.
struct Starts {
  std::vector<double> nanoseconds;
  std::vector<double> processorNanoseconds;
  std::vector<double> peakBytes;

  void add(const Start& start) {
    nanoseconds.push_back(start.nanoseconds);
    processorNanoseconds.push_back(start.processorNanoseconds);
    peakBytes.push_back(start.peakBytes);
  }
};

std::string megabytes(double bytes) {
  return numberText(bytes / kBytesAMegabyte, " MB");
}

void writeMemory(const std::string& platform, const Starts& bare, const Starts& empty, const Starts& full) {
  const double ratio = medianRatio(empty.peakBytes, bare.peakBytes);
  writeRow({.figure = "peak memory, empty folder" + platform,
            .measured = megabytes(median(empty.peakBytes)),
            .floor = megabytes(median(bare.peakBytes)) + " bare window",
            .ratio = numberText(ratio, " ×"),
            .goal = "≤ 1.25 ×",
            .met = ratio <= 1.25});
  const double more = (median(full.peakBytes) - median(empty.peakBytes)) / kFileBytes;
  writeRow({.figure = "peak memory, full logbook" + platform,
            .measured = megabytes(median(full.peakBytes)),
            .floor = megabytes(kFileBytes) + " the file",
            .ratio = numberText(more, " × the file more"),
            .goal = "≤ 1.50 × more",
            .met = more <= 1.5});
}

// Leaves nothing but the program: the first start makes files.
void emptyFolderOf(const std::string& program) {
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(program).parent_path()))
    if (entry.path() != program) std::filesystem::remove_all(entry);
}

std::string programIn(const std::string& folder, const std::string& program, int entries) {
  makeFolder(folder, entries, 0);
  std::filesystem::copy_file(program, folder + "/Tarvik");
  return folder + "/Tarvik";
}

/// The bare window, the bare forms, and the program over its two folders.
struct Programs {
  std::string bare;
  std::string forms;
  std::string empty;
  std::string full;
};

/// The programs on one platform, in turns.
void measure(const std::string& platform, const Programs& programs, int rounds) {
  setenv("QT_QPA_PLATFORM", platform.c_str(), 1);
  Starts bare, forms, first, empty, full;
  for (const auto& program : {programs.bare, programs.forms, programs.empty, programs.full})
    startOnce(program);  // into the caches
  for (int round = 0; round < rounds; ++round) {
    bare.add(startOnce(programs.bare));
    forms.add(startOnce(programs.forms));
    emptyFolderOf(programs.empty);
    first.add(startOnce(programs.empty));
    empty.add(startOnce(programs.empty));
    full.add(startOnce(programs.full));
  }
  const Beside floor{"bare window", bare.nanoseconds};
  const std::string where = " (" + platform + ")";
  const std::string figure = "start to first painted window, ";
  writeAgainstFloor(figure + "empty folder" + where, empty.nanoseconds, floor, 1.5);
  writeAgainstFloor(figure + "the very first in it" + where, first.nanoseconds, floor, 1.5);
  writeAgainstFloor(figure + "full logbook" + where, full.nanoseconds, floor, 1.75);
  writeAgainstFloor(figure + "empty folder" + where, empty.nanoseconds,
                    {"its forms alone", forms.nanoseconds}, 1.15);
  const Beside work{"bare window", bare.processorNanoseconds};
  const std::string cost = "the same start's processor time, ";
  writeAgainstFloor(cost + "empty folder" + where, empty.processorNanoseconds, work, 1.5);
  writeAgainstFloor(cost + "full logbook" + where, full.processorNanoseconds, work, 1.75);
  writeMemory(where, bare, empty, full);
}

}  // namespace
}  // namespace tarvik::bench

int main(int argc, char** argv) {
  using namespace tarvik::bench;
  if (argc < 8) {
    std::fputs("usage: tarvik_bench_start PROGRAM BARE FORMS FIRST_PAINT FOLDER ROUNDS PLATFORM...\n",
               stderr);
    return 2;
  }
  const std::string folder = std::filesystem::absolute(argv[5]).string();
  const Programs programs{.bare = std::filesystem::absolute(argv[2]).string(),
                          .forms = std::filesystem::absolute(argv[3]).string(),
                          .empty = programIn(folder + "/start-empty", argv[1], 0),
                          .full = programIn(folder + "/start-full", argv[1], kFullLogbook)};
  setenv("LD_PRELOAD", std::filesystem::absolute(argv[4]).c_str(), 1);
  for (int i = 7; i < argc; ++i) measure(argv[i], programs, std::atoi(argv[6]));
  return 0;
}
