#include "exchange/import_plan.h"

#include <gmock/gmock.h>

#include "core/entry_editing.h"
#include "core/failure.h"
#include "core/record_file.h"
#include "exchange/own_format.h"
#include "tests/core/entries.h"
#include "tests/exchange/reading.h"
#include "tests/support/expect_failure.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::test {
namespace {

using core::NapiAdat;
using exchange::Doubt;
using exchange::ImportPlan;
using exchange::readLog;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kPath = "/program/napiadat.dat";

MemoryFileSystem emptyDisk() {
  MemoryFileSystem disk;
  disk.putFolder("/program");
  return disk;
}

std::string bytesOf(const core::Logbook& logbook) {
  return {reinterpret_cast<const char*>(logbook.bytes().data()), logbook.bytes().size()};
}

std::vector<int> readings(const ImportPlan& plan) {
  std::vector<int> found;
  for (const auto& planned : plan.entries) found.push_back(planned.entry.KmOra);
  return found;
}

std::string logOf(const std::string& rows) {
  return "Date,Odometer,Litres,Cost,Full,Missed,Notes\n" + rows;
}

TEST(APlan, OrdersEntriesByDayThenReading) {
  const auto plan =
      planOf(readLog(logOf("2024-01-09,1900,40,1,1,0,\n2024-01-09,1500,40,1,1,0,\n"
                           "2024-01-05,1000,40,1,1,0,\n")));
  EXPECT_THAT(readings(plan), ElementsAre(1'000, 1'500, 1'900));
}

TEST(APlan, OfTwoDaysTheLatestFirstSeesNoneRunBackwards) {
  const auto plan = planOf(readLog(logOf("2024-01-09,1500,40,1,1,0,\n2024-01-05,1000,40,1,1,0,\n")));
  EXPECT_THAT(readings(plan), ElementsAre(1'000, 1'500));
  for (const auto& planned : plan.entries)
    EXPECT_THAT(planned.doubts, Not(Contains(Doubt::DayRunsBackwards)));
}

TEST(APlan, MakesEntriesAsTheyWouldBeTypedIn) {
  const auto plan = planOf(readLog(logOf("2024-01-05,1000.5,40.5,16000,1,0,jó\n")), {}, 1);
  const NapiAdat& entry = plan.entries[0].entry;
  EXPECT_EQ(entry.KmOra, 1'000);  // halves to even
  EXPECT_EQ(entry.TankoltLiter.tenThousandths, 405'000);
  EXPECT_EQ(entry.TankoltKtg, 16'000);
  EXPECT_EQ(entry.FtPerLiter.tenThousandths, 3'950'600);  // 16,000 / 40.5 = 395.06
  EXPECT_EQ(entry.Teletank, core::kFlagSet);
  EXPECT_EQ(entry.Megjegyzes.trimmed(), "jó");
  EXPECT_EQ(entry.MegjKtg, 0);
}

// Entry 1 is never a reference; entry 2 is one; 20 + 30 litres over 500 km come to 10.
TEST(APlan, WorksOutConsumptionsAsForEntriesTypedIn) {
  const auto plan =
      planOf(readLog(logOf("2024-01-01,1000,40,1,1,0,\n2024-01-02,1500,40,1,1,0,\n"
                           "2024-01-03,1750,20,1,0,0,\n2024-01-04,2000,30,1,1,0,\n")));
  std::vector<std::int64_t> found;
  for (const auto& planned : plan.entries) found.push_back(planned.entry.Fogyasztas.tenThousandths);
  EXPECT_THAT(found, ElementsAre(0, 0, 80'000, 100'000));
}

TEST(APlan, WorksOutConsumptionsAnewWhenATickChanges) {
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{
      fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true)});
  auto plan = planOf(readLog(logOf("2024-01-01,1000,40,1,1,0,\n2024-01-02,1500,40,1,1,0,\n")), logbook);
  EXPECT_EQ(plan.entries[1].entry.Fogyasztas.tenThousandths, 80'000);
  plan.entries[0].isTaken = false;
  exchange::settle(plan, logbook);
  EXPECT_EQ(plan.entries[1].entry.Fogyasztas.tenThousandths, 40'000);  // 40 litres over 1,000 km
  EXPECT_EQ(plan.taken().size(), 1U);
}

TEST(APlan, NoticesWhatLooksWrong) {
  const core::Logbook logbook =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 1'000, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2023-12-30,900,40,1,1,0,\n2024-01-02,1500,60,1,1,0,\n"
                                         "2024-01-03,6501,40,1,1,1,\n2024-01-04,6400,40,1,1,0,\n"
                                         "2024-01-05,11400,40,1,1,0,\n")),
                           logbook, 1, 55);
  ASSERT_EQ(plan.entries.size(), 5U);
  EXPECT_THAT(plan.entries[0].doubts, ElementsAre(Doubt::DayRunsBackwards, Doubt::OdometerFalls));
  EXPECT_THAT(plan.entries[1].doubts, ElementsAre(Doubt::MoreThanTank));
  EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::OdometerJumps, Doubt::MissedBefore));
  EXPECT_THAT(plan.entries[3].doubts, ElementsAre(Doubt::OdometerFalls));
  EXPECT_THAT(plan.entries[4].doubts, IsEmpty());  // exactly 5,000 km
}

std::vector<std::size_t> runningBackwards(const ImportPlan& plan) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < plan.entries.size(); ++i)
    if (plan.entries[i].doubts.contains(Doubt::DayRunsBackwards)) found.push_back(i);
  return found;
}

// The rows of the days of a January, 100 kilometres a day.
std::string january(const std::vector<int>& days) {
  std::string rows;
  for (const int day : days)
    rows += "2024-01-" + std::to_string(day) + "," + std::to_string(day * 100) + ",40,1,1,0,\n";
  return logOf(rows);
}

TEST(APlan, TakesAFileForOneFromItsLatestRowOnWhereMoreDaysFallThanRise) {
  EXPECT_THAT(runningBackwards(planOf(readLog(january({19, 19, 19, 15})))), IsEmpty());
  EXPECT_THAT(runningBackwards(planOf(readLog(january({15, 15, 15, 19})))), IsEmpty());
  EXPECT_THAT(runningBackwards(planOf(readLog(january({15, 19, 17})))), ElementsAre(1U));
  EXPECT_THAT(runningBackwards(planOf(readLog(january({19, 15, 17, 13})))), ElementsAre(1U));
}

TEST(APlan, NoticesNothingAtTheEdges) {
  const core::Logbook logbook =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 1'000, 400'000, true)});
  EXPECT_THAT(planOf(readLog(logOf("2024-01-01,1500,55,1,1,0,\n")), logbook, 1, 55).entries.at(0).doubts,
              IsEmpty());
  // An empty logbook has no last day or reading.
  EXPECT_THAT(planOf(readLog(logOf("1850-01-01,153796,40,1,1,0,\n"))).entries.at(0).doubts, IsEmpty());
}

TEST(APlan, NoticesEveryEntryThatTheLogbookHas) {
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{
      fuelling({2024, 1, 1}, 1'000, 400'000, true), fuelling({2024, 1, 2}, 1'500, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,1000,40,1,1,0,\n2024-01-02,1500,40,1,1,0,\n")), logbook);
  for (const auto& planned : plan.entries) EXPECT_THAT(planned.doubts, Contains(Doubt::AlreadyThere));
  EXPECT_THAT(plan.taken(), IsEmpty());
}

TEST(APlan, ForgetsDoubtsThatAChangedTickSettles) {
  auto plan =
      planOf(readLog(logOf("2024-01-01,1000,40,1,1,0,\n2024-01-02,9000,40,1,1,0,\n"
                           "2024-01-03,1500,40,1,1,0,\n2024-01-04,1500,5,1,1,0,\n")));
  EXPECT_THAT(plan.entries[1].doubts, ElementsAre(Doubt::OdometerJumps));
  EXPECT_THAT(plan.entries[2].doubts, Contains(Doubt::OdometerFalls));
  EXPECT_THAT(plan.entries[3].doubts, ElementsAre(Doubt::NoConsumption));
  plan.entries[0].isTaken = false;
  plan.entries[1].isTaken = false;
  plan.entries[2].isTaken = false;
  exchange::settle(plan, {});
  for (const auto& planned : plan.entries) EXPECT_THAT(planned.doubts, IsEmpty()) << planned.line;
}

TEST(APlan, GivesARowWithoutAReadingThatOfTheLogbooksLastEntry) {
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{
      fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,,,60,0,0,wash\n")), logbook);
  EXPECT_EQ(plan.entries.at(0).entry.KmOra, 500);
  EXPECT_THAT(plan.entries[0].doubts, Contains(Doubt::OdometerTaken));
}

TEST(APlan, TellsTheRowsThatWereNotReadBeforeThoseThatDoNotFit) {
  const auto plan = planOf(readLog(logOf("2024-01-01,3000000000,40,1,1,0,\nsok,1500,40,1,1,0,\n")));
  ASSERT_EQ(plan.unread.size(), 2U);
  EXPECT_EQ(plan.unread[0].line, 3);
  EXPECT_EQ(plan.unread[1].line, 2);
}

TEST(APlan, OfAnOwnFileKeepsTheOrderOfADayAndAsksForNoVehicle) {
  const std::vector<NapiAdat> entries{fuelling({2024, 1, 5}, 2'000, 400'000, true),
                                      fuelling({2024, 1, 5}, 1'000, 400'000, true)};
  const core::Listing listing{core::Logbook::of(entries), {1, 2}};
  const auto file = readLog(exchange::csvOf(listing).substr(3));
  EXPECT_THAT(readings(exchange::planImport(file, {.forintsPerUnit = 1, .vehicle = "A"}, {}, 0)),
              ElementsAre(2'000, 1'000));
}

TEST(APlan, NoticesADayThatRunsAgainstItsFile) {
  const auto plan =
      planOf(readLog(logOf("2024-01-09,1900,40,1,1,0,\n2024-01-05,1500,40,1,1,0,\n"
                           "2024-01-07,1700,40,1,1,0,\n2024-01-03,1200,40,1,1,0,\n"
                           "2024-01-01,1000,40,1,1,0,\n")));
  EXPECT_THAT(readings(plan), ElementsAre(1'000, 1'200, 1'500, 1'700, 1'900));
  EXPECT_THAT(plan.entries[2].doubts, Contains(Doubt::DayRunsBackwards));
  EXPECT_THAT(plan.entries[3].doubts, Not(Contains(Doubt::DayRunsBackwards)));
}

TEST(APlan, LeavesOutWhatTheLogbookHasAlready) {
  const core::Logbook logbook =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 5}, 1'000, 400'000, true)});
  const auto plan =
      planOf(readLog(logOf("2024-01-05,1000,40,1,1,0,\n2024-01-05,1000,40.1,1,1,0,\n")), logbook);
  EXPECT_FALSE(plan.entries[0].isTaken);
  EXPECT_THAT(plan.entries[0].doubts, Contains(Doubt::AlreadyThere));
  EXPECT_TRUE(plan.entries[1].isTaken);
}

TEST(APlan, TakesAFillUpWithoutADistanceWithoutAConsumption) {
  const auto plan =
      planOf(readLog(logOf("2024-01-01,1000,40,1,1,0,\n2024-01-02,1500,40,1,1,0,\n"
                           "2024-01-03,1500,5,1,1,0,\n")));
  EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::NoConsumption));
  EXPECT_TRUE(plan.entries[2].entry.Fogyasztas.isZero());
  EXPECT_TRUE(plan.entries[2].isTaken);
}

TEST(APlan, NoticesANoteThatTheLogbookCannotKeepWhole) {
  const auto plan = planOf(readLog(logOf("2024-01-01,1000,40,1,1,0," + std::string(51, 'x') +
                                         "\n2024-01-02,1500,40,1,1,0,給油\n2024-01-03,1800,40,1,1,0," +
                                         std::string(50, 'x') + "\n")));
  EXPECT_THAT(plan.entries[0].doubts, ElementsAre(Doubt::NoteCut));
  EXPECT_THAT(plan.entries[1].doubts, ElementsAre(Doubt::LettersLost));
  EXPECT_EQ(plan.entries[1].entry.Megjegyzes.trimmed(), "??");
  EXPECT_THAT(plan.entries[2].doubts, IsEmpty());
}

TEST(APlan, TellsFiguresThatDoNotFitALogbook) {
  const auto plan = planOf(readLog(logOf("2024-01-01,3000000000,40,1,1,0,\n")));
  EXPECT_THAT(plan.entries, IsEmpty());
  ASSERT_EQ(plan.unread.size(), 1U);
  EXPECT_EQ(plan.unread[0].line, 2);
  EXPECT_EQ(plan.unread[0].why, exchange::UnreadRow::Why::FigureTooLarge);
}

TEST(APlan, OfAnOwnFileKeepsTheConsumptionsThatWereRecorded) {
  NapiAdat entry = fuelling({2024, 1, 5}, 1'000, 400'000, true);
  entry.Fogyasztas = {76'300};
  core::Listing listing{core::Logbook::of(std::vector<NapiAdat>{entry}), {1}};
  const auto plan = planOf(readLog(exchange::csvOf(listing).substr(3)));
  EXPECT_EQ(plan.entries[0].entry.Fogyasztas.tenThousandths, 76'300);
}

// Texts that were changed in a spreadsheet: a note of 50 letters and one more, a part that the code page
// lacks.
TEST(APlan, OfAnOwnFileNoticesTextsThatTheLogbookCannotKeepWhole) {
  NapiAdat entry = fuelling({2024, 1, 5}, 1'000, 400'000, true);
  entry.Alkatresz = core::FixedText<50>("PART");
  entry.Megjegyzes = core::FixedText<50>("'=NOTE");
  core::Listing listing{core::Logbook::of(std::vector<NapiAdat>{entry}), {1}};
  const std::string written = exchange::csvOf(listing).substr(3);
  const auto doubtsWith = [&](const std::string& stood, const std::string& put) {
    std::string text = written;
    text.replace(text.find(stood), stood.size(), put);
    return planOf(readLog(text)).entries.at(0).doubts;
  };
  EXPECT_THAT(doubtsWith("PART", "PART"), IsEmpty());
  EXPECT_THAT(doubtsWith("PART", std::string(50, 'x')), IsEmpty());
  EXPECT_THAT(doubtsWith("PART", std::string(51, 'x')), ElementsAre(Doubt::PartCut));
  EXPECT_THAT(doubtsWith("PART", "給油"), ElementsAre(Doubt::PartLettersLost));
  EXPECT_THAT(doubtsWith("NOTE", std::string(48, 'x')), IsEmpty());
  EXPECT_THAT(doubtsWith("NOTE", std::string(49, 'x')), ElementsAre(Doubt::NoteCut));
  EXPECT_THAT(doubtsWith("NOTE", "給油"), ElementsAre(Doubt::LettersLost));
}

TEST(AnImport, PutsTheEntriesBehindThoseThatAreThere) {
  const std::vector<NapiAdat> old{fuelling({2024, 1, 1}, 500, 300'000, true)};
  const std::vector<NapiAdat> added{fuelling({2024, 1, 5}, 1'000, 400'000, true),
                                    fuelling({2024, 1, 9}, 1'400, 400'000, false)};
  MemoryFileSystem disk = emptyDisk();
  const core::Logbook seen = core::Logbook::of(old);
  disk.put(kPath, bytesOf(seen));
  exchange::importEntries(disk, kPath, seen, added);
  EXPECT_EQ(disk.contents(kPath), bytesOf(seen) + bytesOf(core::Logbook::of(added)));
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST(AnImport, IsRefusedWhenTheLogbookIsNoLongerWhatWasSeen) {
  const core::Logbook seen =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 500, 300'000, true)});
  const core::Logbook now =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 501, 300'000, true)});
  for (const std::string& contents : {bytesOf(now), std::string(), bytesOf(seen) + bytesOf(now)}) {
    MemoryFileSystem disk = emptyDisk();
    disk.put(kPath, contents);
    expectFailure(core::FailureKind::FileChanged,
                  [&] { exchange::importEntries(disk, kPath, seen, {seen.record(1)}); });
    EXPECT_EQ(disk.contents(kPath), contents);
  }
}

TEST(AnImport, PastTheHighestRecordNumberIsRefusedBeforeAnythingHappens) {
  const std::vector<NapiAdat> old(3, fuelling({2024, 1, 1}, 500, 300'000, true));
  const core::Logbook seen = core::Logbook::of(old);
  MemoryFileSystem disk = emptyDisk();
  disk.put(kPath, bytesOf(seen));
  const std::vector<NapiAdat> many(core::kHighestRecordNumber - 2, old[0]);
  expectFailure(core::FailureKind::FileFull, [&] { exchange::importEntries(disk, kPath, seen, many); });
  EXPECT_EQ(disk.contents(kPath), bytesOf(seen));
  exchange::importEntries(disk, kPath, seen, {many.begin() + 1, many.end()});
  EXPECT_EQ(disk.contents(kPath).size(), std::size_t{core::kHighestRecordNumber} * NapiAdat::kLength);
}

}  // namespace
}  // namespace tarvik::test
