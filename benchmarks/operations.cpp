// tarvik_bench_operations FOLDER ROUNDS: the logic's operations beside their floors and peers. Makes its
// files in FOLDER, writes the rows of the table.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "benchmarks/floors.h"
#include "benchmarks/logbook.h"
#include "benchmarks/rows.h"
#include "benchmarks/sqlite_peer.h"
#include "core/clock.h"
#include "core/dated_copies.h"
#include "core/entry_editing.h"
#include "core/failure.h"
#include "core/history.h"
#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "core/statistics.h"
#include "core/totals.h"
#include "print/list_document.h"
#include "reminders/km_alert.h"
#include "settings/vehicles.h"

namespace tarvik::bench {
namespace {

constexpr int kReminders = 1'000;
constexpr int kDurableActs = 5;
constexpr double kMillisecond = 1e6;

core::EntryInput typedEntry(int km) {
  return {.kmOra = std::to_string(km),
          .tankoltLiter = "40,5",
          .tankoltKtg = "16200",
          .ftPerLiter = "400,00",
          .alkatresz = "",
          .alkatreszKtg = "0",
          .megjegyzes = "Tankolás",
          .megjKtg = "0",
          .datum = core::dayOf({2029, 12, 31}),
          .teletank = true};
}

/// The operations on one vehicle's folder, as the screens call them, with the history of a run behind them.
class Operations {
 public:
  Operations(std::string folder, int entries)
      : folder_(std::move(folder)),
        entries_(entries),
        bytes_(logbookBytes(entries)),
        folders_{folder_, folder_} {
    makeFolder(folder_, entries, kReminders);
    files_.watch(&history_);
  }

  std::string logbookFolder() const { return folder_ + "/" + kPlate; }
  std::string logbookPath() const { return logbookFolder() + "/napiadat.dat"; }

  /// Puts the logbook back as it was made, with room for as many entries more.
  void restore(int room) {
    std::vector<std::byte> shorter = bytes_;
    shorter.resize(bytes_.size() - static_cast<std::size_t>(room) * core::NapiAdat::kLength);
    writeFile(logbookPath(), shorter);
    settle();
  }
  /// Puts it back as the person does.
  void takeBack() {
    while (history_.canUndo()) history_.undo(files_);
    settle();
  }

  void load() {
    const core::Logbook logbook = core::loadLogbook(files_, folders_, kPlate);
    for (int number = 1; number <= logbook.count(); ++number) {
      core::NapiAdat entry = logbook.record(number);
      benchmark::DoNotOptimize(entry);
    }
  }
  void filter(core::ListMode mode) {
    core::Listing listing{core::loadLogbook(files_, folders_, kPlate), {}};
    const core::ListFilter filter{mode, core::addDays(core::dayOf({1940, 1, 1}), entries_ - 1)};
    listing.numbers = core::listedEntries(listing.logbook, filter);
    core::Totals totals;
    core::updateTotals(listing, totals);
    benchmark::DoNotOptimize(totals);
  }
  void click() {
    const core::Logbook logbook = core::loadLogbook(files_, folders_, kPlate);
    const auto vehicles = settings::loadVehiclesOfProgramFolder(files_, folders_);
    auto found = core::statisticsOf(logbook, {.selected = logbook.count(),
                                              .tankSize = settings::tankSizeOf(vehicles, kPlate),
                                              .average = "6,5 Liter/100Km",
                                              .today = core::dayOf({2029, 12, 31})});
    auto shown = core::toInput(logbook.record(logbook.count()));
    benchmark::DoNotOptimize(found);
    benchmark::DoNotOptimize(shown);
  }
  void checkKm() {
    auto found = reminders::checkKm(files_, folders_, kPlate);
    benchmark::DoNotOptimize(found);
  }
  core::SeenRecord middle() {
    return core::RecordFile(files_, folders_.logbook(kPlate), core::NapiAdat::kLength).seen(entries_ / 2);
  }
  void record() { core::recordEntry(files_, folders_, kPlate, typedEntry(++km_)); }
  void modify() { core::modifyEntry(files_, folders_, kPlate, middle(), typedEntry(km_), "6,50"); }
  void remove() { core::deleteEntry(files_, folders_, kPlate, middle()); }
  void makePages() {
    const core::Logbook logbook = core::loadLogbook(files_, folders_, kPlate);
    print::ListedRows rows;
    for (int number = 1; number <= logbook.count(); ++number) rows.records.push_back(number);
    const print::ListDocument document(logbook, std::move(rows), "Fejléc");
    for (int number = 1; number <= document.pageCount(); ++number) {
      print::Page page = document.page(number);
      benchmark::DoNotOptimize(page);
    }
  }

 private:
  std::string folder_;
  int entries_;
  std::vector<std::byte> bytes_;
  core::MachineFileSystem files_;
  core::History history_;
  core::DataFolders folders_;
  int km_ = 2'000'000;
};

/// A clock on which every look is another day.
class DayAfterDay final : public core::Clock {
 public:
  core::Day today() const override { return day_ = core::addDays(day_, 1); }

 private:
  mutable core::Day day_ = core::dayOf({2029, 1, 1});
};

/// A household with three full logbooks, and what keeps its changes from being for good.
class Household {
 public:
  explicit Household(const std::string& folder) : folders_{folder, folder} {
    makeFolder(folder, kFullLogbook, kReminders);
    for (const char* plate : {"CAR-2", "CAR-3"}) {
      settings::addVehicle(files_, folders_, plate, "45");
      writeFile(folders_.logbook(plate), logbookBytes(kFullLogbook));
    }
    files_.watch(&history_);
    core::RecordFile(files_, folders_.logbook("CAR-3"), core::NapiAdat::kLength)
        .exchange(logbookBytes(kFullLogbook), {});
  }

  void copy() { copies_.beforeChange(); }
  void undoOrRedo() { history_.canUndo() ? history_.undo(files_) : history_.redo(files_); }
  /// Makes a thousand changes of a full logbook; returns what they take, bytes.
  std::size_t changeAThousandTimes() {
    const std::size_t before = history_.bytes();
    for (int number = 1; number <= 1'000; ++number) {
      core::RecordFile file(files_, folders_.logbook("CAR-2"), core::NapiAdat::kLength);
      file.rewrite(file.seen(number), core::encoded(entryOf(number + 1)));
    }
    return history_.bytes() - before;
  }

 private:
  core::MachineFileSystem files_;
  core::DataFolders folders_;
  DayAfterDay clock_;
  core::DatedCopies copies_{files_, folders_, clock_};
  core::History history_;
};

/// The measurements in one place: each takes its times and writes its rows.
class Measurements {
 public:
  Measurements(std::string folder, int rounds) : folder_(std::move(folder)), rounds_(rounds) {}

  /// The operations on logbooks of four sizes.
  void operations() {
    const std::vector<int> sizes{1'024, 4'096, 16'384, kFullLogbook};
    std::map<std::string, std::vector<double>> medians;
    Times full;
    for (const int size : sizes) {
      full = timesAt(size, size == kFullLogbook ? rounds_ : (rounds_ + 1) / 2);
      for (const auto& [name, times] : full) medians[name].push_back(median(times.wall));
    }
    writeFull(full);
    const auto writeGrown = [&](const char* name, const char* floor) {
      writeGrowth(name + std::string(" at 1 k / 4 k / 16 k / 32 k"), sizes, medians.at(name),
                  medians.at(floor));
    };
    for (const char* name : {kLoad, kFilter, kClick, kKmCheck, kPages}) writeGrown(name, kRead);
    writeGrown(kAppend, kRawAppend);
    for (const char* name : {kModify, kDelete}) writeGrown(name, kRawReplace);
  }

  void takingBack() {
    Household household(folder_ + "/household");
    Operations bare(folder_ + "/floor", kFullLogbook);
    const auto replace = [&] { replaceBarely(bare.logbookFolder(), "napiadat.dat"); };
    const auto replaceThree = [&] {
      for (int logbook = 0; logbook < 3; ++logbook) replace();
    };
    const Times times = takeTimes({{.name = "copy", .act = [&] { household.copy(); }, .acts = 1},
                                   {.name = "three", .act = replaceThree, .acts = 1},
                                   {.name = "undo", .act = [&] { household.undoOrRedo(); }, .acts = 2},
                                   {.name = "one", .act = replace, .acts = 2}},
                                  rounds_);
    writeAgainstFloor("the copies before a day's first change, three logbooks", times.at("copy").wall,
                      {"three raw copies, synced and renamed", times.at("three").wall}, 1.5);
    writeAgainstFloor("undoing a change of all entries", times.at("undo").wall,
                      {"one raw copy, synced and renamed", times.at("one").wall}, 2);
    const double megabytes = static_cast<double>(household.changeAThousandTimes()) / 1e6;
    writeRow({.figure = "memory of 1,000 changes to be undone",
              .measured = numberText(megabytes, "MB"),
              .goal = "≤ 1.00 MB",
              .met = megabytes <= 1});
  }

 private:
  static constexpr const char* kLoad = "load and decode";
  static constexpr const char* kFilter = "filter to a year";
  static constexpr const char* kClick = "click with statistics";
  static constexpr const char* kKmCheck = "km check, 1,000 reminders";
  static constexpr const char* kPages = "print-out of everything as pages";
  static constexpr const char* kAppend = "durable append";
  static constexpr const char* kModify = "durable modify";
  static constexpr const char* kDelete = "durable delete";
  static constexpr const char* kRead = "one read + barest decoding";
  static constexpr const char* kRawAppend = "raw write + sync";
  static constexpr const char* kRawReplace = "raw copy + sync + rename + folder sync";
  static constexpr const char* kSelect = "SQLite SELECT";
  static constexpr const char* kInsert = "SQLite insert";

  static Measured durable(const char* name, std::function<void()> act, std::function<void()> prepare) {
    return {.name = name, .act = std::move(act), .prepare = std::move(prepare), .acts = kDurableActs};
  }

  Times timesAt(int size, int rounds) {
    Operations sized(folder_ + "/sized", size);
    sized.restore(kDurableActs);
    const auto restore = [&] { sized.takeBack(); };
    const std::string logbook = sized.logbookPath();
    Operations bare(folder_ + "/floor", size);
    const auto restoreBare = [&] { bare.restore(kDurableActs); };
    const std::vector<std::byte> record = core::encoded(entryOf(1));
    SqlitePeer peer(folder_ + "/peer.sqlite", size);
    return takeTimes(
        {{.name = kLoad, .act = [&] { sized.load(); }},
         {.name = kRead, .act = [&] { readBarely(logbook); }},
         {.name = kFilter, .act = [&] { sized.filter(core::kYearList); }},
         {.name = kClick, .act = [&] { sized.click(); }},
         {.name = kKmCheck, .act = [&] { sized.checkKm(); }},
         {.name = kPages, .act = [&] { sized.makePages(); }},
         {.name = kSelect, .act = [&] { peer.select(); }},
         durable(
             kAppend, [&] { sized.record(); }, restore),
         durable(
             kRawAppend, [&] { appendBarely(bare.logbookPath(), record); }, restoreBare),
         durable(
             kInsert, [&] { peer.insert(); }, settle),
         durable(
             kModify, [&] { sized.modify(); }, restore),
         durable(
             kRawReplace, [&] { replaceBarely(bare.logbookFolder(), "napiadat.dat"); }, restoreBare),
         durable(
             kDelete, [&] { sized.remove(); }, restore)},
        rounds);
  }

  static void writeFull(const Times& times) {
    const auto against = [&](const char* floor, const char* name, double mostTimes) {
      writeAgainstFloor(name, times.at(name).wall, {floor, times.at(floor).wall}, mostTimes);
    };
    const auto againstPeer = [&](const char* peer, const char* name, double leastTimesFaster) {
      writeAgainstPeer(name, times.at(name).wall, {peer, times.at(peer).wall}, leastTimesFaster);
    };
    against(kRead, kLoad, 1.25);
    againstPeer(kSelect, kLoad, 5);
    for (const char* name : {kFilter, kClick, kKmCheck}) against(kRead, name, 1.5);
    against(kRawAppend, kAppend, 1.5);
    againstPeer(kInsert, kAppend, 3);
    for (const char* name : {kModify, kDelete}) against(kRawReplace, name, 1.25);
    writeTime(kPages, times.at(kPages), 1'000 * kMillisecond);
  }

  std::string folder_;
  int rounds_;
};

}  // namespace
}  // namespace tarvik::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: tarvik_bench_operations FOLDER ROUNDS\n", stderr);
    return 2;
  }
  try {
    tarvik::bench::Measurements measurements(argv[1], std::atoi(argv[2]));
    measurements.operations();
    measurements.takingBack();
  } catch (const tarvik::core::Failure& failure) {
    std::fprintf(stderr, "failure %d at %s %s, system error %d\n", static_cast<int>(failure.kind()),
                 failure.file().c_str(), failure.field().c_str(), failure.systemError());
    return 1;
  }
  return 0;
}
