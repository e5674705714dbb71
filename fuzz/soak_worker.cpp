#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "core/machine_file_system.h"
#include "core/record_file.h"

// The program that ./soak kills, and the check of what it left.
//
//   soak_worker run FOLDER LOG SEED        changes the files in FOLDER until it is killed; says in LOG what
//                                          it is about to do and, once the change has returned, that it is
//                                          done
//   soak_worker check FOLDER LOG STATE     compares FOLDER with STATE and the LOG since: what was said to be
//                                          done is there, the one change that was not may be
//   soak_worker settle FOLDER LOG STATE    the same, and takes FOLDER for the new STATE

namespace {

using tarvik::core::MachineFileSystem;
using tarvik::core::RecordFile;

// One kind ends in a zero byte and is added in place, the other never is.
struct Kind {
  const char* file;
  std::size_t length;
  char last;
};
constexpr Kind kKinds[] = {{"inplace.dat", 156, '\0'}, {"replaced.dat", 186, ' '}};
constexpr std::size_t kKindCount = std::size(kKinds);
constexpr std::int64_t kFewRecords = 120;

using Identities = std::vector<std::string>;
struct Model {
  Identities kinds[kKindCount];
};

struct Change {
  char what = 'A';  // add, rewrite, delete
  std::size_t kind = 0;
  std::size_t number = 0;
  std::string identity;
};

std::string recordOf(const Kind& kind, std::string identity) {
  identity.resize(kind.length, ' ');
  identity.back() = kind.last;
  return identity;
}

std::string contentsOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void make(const Change& change, const std::string& folder) {
  MachineFileSystem files;
  const Kind& kind = kKinds[change.kind];
  RecordFile file(files, folder + "/" + kind.file, kind.length);
  const std::string record = recordOf(kind, change.identity);
  const auto number = static_cast<std::int64_t>(change.number);
  if (change.what == 'A') file.append(std::as_bytes(std::span(record)));
  if (change.what == 'R') file.rewrite(file.seen(number), std::as_bytes(std::span(record)));
  if (change.what == 'D') file.remove(file.seen(number), folder + "/" + kind.file + "x");
}

void apply(const Change& change, Model& model) {
  Identities& records = model.kinds[change.kind];
  if (change.what == 'A') {
    records.push_back(change.identity);
    return;
  }
  const auto at = records.begin() + static_cast<std::ptrdiff_t>(change.number) - 1;
  if (change.what == 'R') *at = change.identity;
  if (change.what == 'D') records.erase(at);
}

Change chosen(std::mt19937& random, const std::string& folder, const std::string& identity) {
  Change change{.kind = random() % kKindCount, .identity = identity};
  const auto size = contentsOf(folder + "/" + kKinds[change.kind].file).size();
  const auto count = static_cast<std::int64_t>(size / kKinds[change.kind].length);
  const auto choice = random() % 10;
  if (count == 0 || choice < (count < kFewRecords ? 5 : 3)) return change;
  change.what = choice < 7 ? 'D' : 'R';
  change.number = random() % static_cast<unsigned long>(count) + 1;
  return change;
}

void say(std::FILE* log, const std::string& line) {
  if (::write(::fileno(log), line.data(), line.size()) != std::ssize(line)) std::abort();
}

[[noreturn]] void run(const std::string& folder, const std::string& logName, unsigned seed) {
  std::FILE* const log = std::fopen(logName.c_str(), "a");
  std::mt19937 random(seed);
  for (int count = 0;; ++count) {
    const Change change = chosen(random, folder, std::to_string(seed) + "-" + std::to_string(count));
    std::ostringstream line;
    line << change.what << ' ' << change.kind << ' ' << change.number << ' ' << change.identity << '\n';
    say(log, line.str());
    make(change, folder);
    say(log, "done\n");
  }
}

Model stateIn(const std::string& name) {
  Model model;
  std::ifstream in(name);
  std::size_t kind = 0;
  std::string identity;
  while (in >> kind >> identity) model.kinds[kind].push_back(identity);
  return model;
}

void keep(const Model& model, const std::string& name) {
  std::ofstream out(name);
  for (std::size_t kind = 0; kind < kKindCount; ++kind)
    for (const std::string& identity : model.kinds[kind]) out << kind << ' ' << identity << '\n';
}

bool isOnDisk(const Model& model, const std::string& folder) {
  return std::ranges::all_of(kKinds, [&](const Kind& kind) {
    std::string expected;
    for (const std::string& identity : model.kinds[&kind - kKinds]) expected += recordOf(kind, identity);
    const std::string found = contentsOf(folder + "/" + kind.file);
    return found.starts_with(expected) && found.size() - expected.size() < kind.length;
  });
}

int check(const std::string& folder, const std::string& log, const std::string& state, bool settles) {
  Model model = stateIn(state);
  std::ifstream in(log);
  Change open;
  bool isOpen = false;
  for (std::string line; std::getline(in, line);) {
    if (line == "done") {
      apply(open, model);
      isOpen = false;
      continue;
    }
    isOpen =
        static_cast<bool>(std::istringstream(line) >> open.what >> open.kind >> open.number >> open.identity);
  }
  bool isGood = isOnDisk(model, folder);
  if (!isGood && isOpen) {
    apply(open, model);
    isGood = isOnDisk(model, folder);
  }
  if (!isGood) {
    std::cerr << "soak: the files in " << folder << " are neither as before nor as after the last change\n";
    return 1;
  }
  if (settles) {
    keep(model, state);
    std::ofstream(log, std::ios::trunc);
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> given(arguments + 1, arguments + count);
  if (given.size() == 4 && given[0] == "run")
    run(given[1], given[2], static_cast<unsigned>(std::stoul(given[3])));
  if (given.size() == 4 && (given[0] == "check" || given[0] == "settle"))
    return check(given[1], given[2], given[3], given[0] == "settle");
  std::cerr << "usage: soak_worker run FOLDER LOG SEED | check|settle FOLDER LOG STATE\n";
  return 2;
}
