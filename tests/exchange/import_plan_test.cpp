#include "exchange/import_plan.h"

#include <gmock/gmock.h>

#include <limits>

#include "core/entry_editing.h"
#include "core/failure.h"
#include "core/record_file.h"
#include "exchange/own_format.h"
#include "tests/core/entries.h"
#include "tests/exchange/reading.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/memory_file_system.h"

namespace tarvik::test {
namespace {

using core::NapiAdat;
using exchange::Doubt;
using exchange::ImportPlan;
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

std::vector<int> readings(const ImportPlan& plan) {
  std::vector<int> found;
  for (const auto& planned : plan.entries) found.push_back(planned.entry.KmOra);
  return found;
}

TEST(APlan, OrdersEntriesByDayThenReading) {
  const auto plan =
      planOf(readLog(logOf("2024-01-09,1900,40,24000,1,0,\n2024-01-09,1500,40,24000,1,0,\n"
                           "2024-01-05,1000,40,24000,1,0,\n")));
  EXPECT_THAT(readings(plan), ElementsAre(1'000, 1'500, 1'900));
  const auto twice = planOf(readLog(logOf("2024-01-09,1000,40,24000,1,0,\n2024-01-09,1000,30,18000,1,0,\n")));
  EXPECT_EQ(twice.entries.at(0).entry.TankoltLiter.tenThousandths, 400'000);  // then as the file goes
}

TEST(APlan, MakesEntriesAsTheyWouldBeTypedIn) {
  const auto plan = planOf(readLog(logOf("2024-01-05,1000.5,40.5,16000,1,0,jó\n")));
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
      planOf(readLog(logOf("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n"
                           "2024-01-03,1750,20,12000,0,0,\n2024-01-04,2000,30,18000,1,0,\n")));
  std::vector<std::int64_t> found;
  for (const auto& planned : plan.entries) found.push_back(planned.entry.Fogyasztas.tenThousandths);
  EXPECT_THAT(found, ElementsAre(0, 0, 80'000, 100'000));
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
    rows += "2024-01-" + std::to_string(day) + "," + std::to_string(day * 100) + ",40,24000,1,0,\n";
  return logOf(rows);
}

TEST(APlan, TakesAFileForOneFromItsLatestRowOnWhereMoreDaysFallThanRise) {
  EXPECT_THAT(runningBackwards(planOf(readLog(january({19, 15})))), IsEmpty());
  EXPECT_THAT(runningBackwards(planOf(readLog(january({19, 19, 19, 15})))), IsEmpty());
  EXPECT_THAT(runningBackwards(planOf(readLog(january({15, 15, 15, 19})))), IsEmpty());
  EXPECT_THAT(runningBackwards(planOf(readLog(january({15, 19, 17})))), ElementsAre(1U));
  EXPECT_THAT(runningBackwards(planOf(readLog(january({19, 15, 17, 13})))), ElementsAre(1U));
}

TEST(APlan, GivesARowWithoutAReadingThatOfTheLogbooksLastEntry) {
  const core::Logbook logbook = core::Logbook::of(std::vector<NapiAdat>{
      fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,,,60,0,0,wash\n")), logbook);
  EXPECT_EQ(plan.entries.at(0).entry.KmOra, 500);
  EXPECT_THAT(plan.entries[0].doubts, Contains(Doubt::OdometerTaken));
}

TEST(APlan, NoticesADayThatRunsAgainstItsFile) {
  const auto plan =
      planOf(readLog(logOf("2024-01-09,1900,40,24000,1,0,\n2024-01-05,1500,40,24000,1,0,\n"
                           "2024-01-07,1700,40,24000,1,0,\n2024-01-03,1200,40,24000,1,0,\n"
                           "2024-01-01,1000,40,24000,1,0,\n")));
  EXPECT_THAT(readings(plan), ElementsAre(1'000, 1'200, 1'500, 1'700, 1'900));
  EXPECT_THAT(plan.entries[2].doubts, Contains(Doubt::DayRunsBackwards));
  EXPECT_THAT(plan.entries[3].doubts, Not(Contains(Doubt::DayRunsBackwards)));
}

TEST(APlan, TakesAFillUpWithoutADistanceWithoutAConsumption) {
  const auto plan =
      planOf(readLog(logOf("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n"
                           "2024-01-03,1500,5,3000,1,0,\n")));
  EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::NoConsumption));
  EXPECT_TRUE(plan.entries[2].entry.Fogyasztas.isZero());
  EXPECT_TRUE(plan.entries[2].isTaken);
}

TEST(APlan, NoticesANoteThatTheLogbookCannotKeepWhole) {
  const auto plan = planOf(
      readLog(logOf("2024-01-01,1000,40,24000,1,0," + std::string(51, 'x') +
                    "\n2024-01-02,1500,40,24000,1,0,給油\n2024-01-03,1800,40,24000,1,0," +
                    std::string(50, 'x') + "\n2024-01-04,2300,40,24000,1,0," + std::string(51, 'x') + "\n")));
  EXPECT_THAT(plan.entries[0].doubts, ElementsAre(Doubt::NoteCut));
  EXPECT_THAT(plan.entries[1].doubts, ElementsAre(Doubt::LettersLost));
  EXPECT_EQ(plan.entries[1].entry.Megjegyzes.trimmed(), "??");
  EXPECT_THAT(plan.entries[2].doubts, IsEmpty());
  EXPECT_EQ(plan.entries[3].entry.Fogyasztas.tenThousandths, 80'000);
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

TEST(AnImport, IsRefusedWhenTheLogbookIsNoLongerWhatWasSeen) {
  const core::Logbook seen =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 500, 300'000, true)});
  const core::Logbook now =
      core::Logbook::of(std::vector<NapiAdat>{fuelling({2024, 1, 1}, 501, 300'000, true)});
  for (const std::string& contents :
       {textOf(now.bytes()), std::string(), textOf(seen.bytes()) + textOf(now.bytes())}) {
    MemoryFileSystem disk = emptyDisk();
    disk.put(kPath, contents);
    expectFailure(core::FailureKind::FileChanged,
                  [&] { exchange::importEntries(disk, kPath, seen, {seen.record(1)}); });
    EXPECT_EQ(disk.contents(kPath), contents);
  }
}

core::Logbook bookOf(const std::vector<NapiAdat>& entries) {
  return core::Logbook::of(entries);
}

TEST(APlan, WorksOutConsumptionsAnewWhenATickChanges) {
  const core::Logbook logbook =
      bookOf({fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true)});
  auto plan =
      planOf(readLog(logOf("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n")), logbook);
  EXPECT_EQ(plan.entries[1].entry.Fogyasztas.tenThousandths, 80'000);
  plan.entries[0].isTaken = false;
  exchange::settle(plan, {.logbook = logbook});
  EXPECT_TRUE(plan.entries[1].entry.Fogyasztas.isZero());  // fuel was taken that is not known of
  EXPECT_THAT(plan.entries[1].doubts, Contains(Doubt::UntickedBefore));
  EXPECT_EQ(plan.taken().size(), 1U);
  EXPECT_EQ(plan.whole.size(), 3U);
}

TEST(APlan, NoticesWhatLooksWrong) {
  const core::Logbook logbook = bookOf({fuelling({2023, 1, 1}, 1'000, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-02,1500,60,36000,1,0,\n2024-01-03,4501,40,24000,1,1,\n"
                                         "2024-01-04,4400,40,24000,1,0,\n2024-01-05,7400,40,24000,1,0,\n"
                                         "2024-01-06,7500,40,24000,1,0,\n2024-01-07,9500,40,1200,1,0,\n"
                                         "2027-01-08,10000,40,24000,1,0,\n")),
                           logbook, exchange::Place::InOrder, 55);
  ASSERT_EQ(plan.entries.size(), 7U);
  EXPECT_THAT(plan.entries[0].doubts, ElementsAre(Doubt::MoreThanTank));
  EXPECT_THAT(plan.entries[1].doubts, ElementsAre(Doubt::OdometerJumps, Doubt::MissedBefore));
  EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::OdometerFalls));
  EXPECT_TRUE(plan.entries[2].entry.Fogyasztas.isZero());
  EXPECT_THAT(plan.entries[3].doubts, ElementsAre(Doubt::ConsumptionOdd));  // 40 litres over exactly 3,000 km
  EXPECT_THAT(plan.entries[4].doubts, ElementsAre(Doubt::ConsumptionOdd));  // 40 litres over 100 km
  EXPECT_THAT(plan.entries[5].doubts, ElementsAre(Doubt::PriceOdd));
  EXPECT_THAT(plan.entries[6].doubts, ElementsAre(Doubt::DayInFuture));
}

TEST(APlan, NoticesNothingAtTheEdges) {
  const core::Logbook logbook = bookOf({fuelling({2024, 1, 1}, 1'000, 400'000, true)});
  EXPECT_THAT(planOf(readLog(logOf("2024-01-01,1500,55,33000,1,0,\n")), logbook, exchange::Place::InOrder, 55)
                  .entries.at(0)
                  .doubts,
              IsEmpty());
  EXPECT_THAT(planOf(readLog(logOf("1950-01-01,153796,40,24000,1,0,\n"))).entries.at(0).doubts, IsEmpty());
  EXPECT_THAT(planOf(readLog(logOf("2026-05-30,1000,40,24000,1,0,\n2026-05-31,1500,40,24000,1,0,\n"
                                   "2026-06-01,2000,150,90000,1,0,\n")))
                  .entries.at(2)
                  .doubts,
              IsEmpty());  // today, and 30 litres
  EXPECT_THAT(planOf(readLog(logOf("1949-12-31,153796,40,24000,1,0,\n"))).entries.at(0).doubts,
              ElementsAre(Doubt::DayTooEarly));
}

TEST(APlan, NoticesEveryEntryThatTheLogbookHasOrNearly) {
  const core::Logbook logbook =
      bookOf({fuelling({2024, 1, 1}, 1'000, 412'700, true), fuelling({2024, 1, 2}, 1'500, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,1000,41.3,24000,1,0,\n2024-01-02,1501,40,24000,1,0,\n"
                                         "2024-01-02,1500,40.1,24000,1,0,\n2024-01-03,1900,30,18000,1,0,\n"
                                         "2024-01-03,1900,30.04,18000,1,0,\n")),
                           logbook);
  ASSERT_EQ(plan.entries.size(), 5U);
  EXPECT_THAT(plan.entries[0].doubts, ElementsAre(Doubt::AlreadyThere));  // and no word on its consumption
  EXPECT_TRUE(plan.entries[1].isTaken);  // 1500 km and 40.1 litres: a tenth more is another fill-up
  EXPECT_THAT(plan.entries[2].doubts, Contains(Doubt::AlreadyThere));
  EXPECT_THAT(plan.entries[4].doubts, ElementsAre(Doubt::TwiceInFile));
  EXPECT_FALSE(plan.entries[4].isTaken);
  EXPECT_EQ(plan.taken().size(), 2U);
}

TEST(APlan, GivesNoConsumptionBehindARowThatIsLeftOut) {
  using Why = exchange::UnreadRow::Why;
  for (const auto& [row, why] : std::vector<std::pair<std::string, Why>>{
           {"2024-31-03,2000,40,24000", Why::DayNotUnderstood},
           {"2024-01-03,3000000000,40,24000", Why::FigureTooLarge},
           {"2024-01-03,123456789012345678,40,24000", Why::FigureTooLarge},
           {"2024-01-03,2000,1000000000000000,24000", Why::FigureTooLarge},
           {"2024-01-03,2000,40,3000000000", Why::FigureTooLarge}}) {
    const auto plan =
        planOf(readLog(logOf("2024-01-01,1000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n" + row +
                             ",1,0,\n2024-01-04,2500,20,12000,0,0,\n2024-01-05,3000,40,24000,1,0,\n"
                             "2024-01-06,3500,40,24000,1,0,\n")));
    ASSERT_EQ(plan.entries.size(), 5U) << row;
    EXPECT_THAT(plan.entries[2].doubts, ElementsAre(Doubt::LeftOutBefore)) << row;
    EXPECT_TRUE(plan.entries[2].entry.Fogyasztas.isZero()) << row;
    EXPECT_TRUE(plan.entries[3].entry.Fogyasztas.isZero()) << row;  // the full fill behind a part fill
    EXPECT_EQ(plan.entries[4].entry.Fogyasztas.tenThousandths, 80'000) << row;
    ASSERT_EQ(plan.unread.size(), 2U) << row;  // the heads, too
    EXPECT_EQ(plan.unread[1].why, why) << row;
    EXPECT_EQ(plan.unread[1].day, row.substr(0, 10)) << row;
  }
}

// A row that is left out lacks before the next one up.
TEST(APlan, GivesNoConsumptionAboveARowThatIsLeftOutOfAFileFromItsLatestRowOn) {
  const auto plan =
      planOf(readLog(logOf("2024-01-06,3500,40,24000,1,0,\n2024-01-05,3000,40,24000,1,0,\n"
                           "2024-31-03,2000,40,24000,1,0,\n2024-01-02,1500,40,24000,1,0,\n"
                           "2024-01-01,1000,40,24000,1,0,\n")));
  ASSERT_EQ(plan.entries.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_EQ(plan.entries[i].doubts.contains(Doubt::LeftOutBefore), i == 2) << i;
}

// 9,223,372,036 litres over one kilometre: a hundred times that is more than a record keeps.
TEST(APlan, LeavesAnEntryAloneWhoseConsumptionNoRecordCanKeep) {
  const core::Logbook logbook =
      bookOf({fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true),
              fuelling({2023, 12, 3}, 501, std::numeric_limits<std::int64_t>::max(), true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,1000,40,24000,1,0,\n")), logbook);
  EXPECT_EQ(plan.changed, 0);
  EXPECT_EQ(plan.whole.size(), 4U);
}

// Its third entry would have got 8 litres when it was typed in; that nothing stands there is nobody's matter.
TEST(APlan, LeavesTheConsumptionsOfEntriesBeforeItsOwnAlone) {
  const core::Logbook logbook =
      bookOf({fuelling({2023, 12, 1}, 100, 400'000, true), fuelling({2023, 12, 2}, 500, 400'000, true),
              fuelling({2023, 12, 3}, 1'000, 400'000, true)});
  const auto plan = planOf(readLog(logOf("2024-01-01,1500,40,24000,1,0,\n")), logbook);
  EXPECT_EQ(plan.changed, 0);
  EXPECT_TRUE(plan.whole.at(2).Fogyasztas.isZero());
}

// January to March into a logbook from April on: 500 km a month. The first entry that is there had no
// consumption and the second none either, since entry 1 is never a reference; now both have a full fill
// before them.
TEST(APlan, PutsThePastBeforeWhatIsThere) {
  const core::Logbook logbook =
      bookOf({fuelling({2024, 4, 1}, 2'500, 400'000, true), fuelling({2024, 5, 1}, 3'000, 400'000, true),
              fuelling({2024, 6, 1}, 3'500, 400'000, true)});
  const auto log = readLog(
      logOf("2024-01-01,1000,40,24000,1,0,\n2024-02-01,1500,40,24000,1,0,\n2024-03-01,2000,40,24000,1,0,\n"));
  const auto plan = planOf(log, logbook);
  std::vector<int> readingsOfWhole;
  for (const NapiAdat& entry : plan.whole) readingsOfWhole.push_back(entry.KmOra);
  EXPECT_THAT(readingsOfWhole, ElementsAre(1'000, 1'500, 2'000, 2'500, 3'000, 3'500));
  EXPECT_TRUE(plan.doPlacesDiffer);
  EXPECT_EQ(plan.whole[3].Fogyasztas.tenThousandths, 80'000);
  EXPECT_EQ(plan.whole[4].Fogyasztas.tenThousandths, 80'000);
  EXPECT_EQ(plan.changed, 2);
  const auto atEnd = planOf(log, logbook, exchange::Place::AtEnd);
  EXPECT_EQ(atEnd.whole[3].KmOra, 1'000);
  EXPECT_EQ(atEnd.changed, 0);
  EXPECT_TRUE(atEnd.doPlacesDiffer);
  EXPECT_FALSE(planOf(readLog(logOf("2024-07-01,4000,40,24000,1,0,\n")), logbook).doPlacesDiffer);
  auto none = plan;
  for (auto& planned : none.entries) planned.isTaken = false;
  exchange::settle(none, {.logbook = logbook});
  EXPECT_FALSE(none.doPlacesDiffer);
}

TEST(APlan, OfAnOwnFileKeepsTheOrderOfADay) {
  const std::vector<NapiAdat> entries{fuelling({2024, 1, 5}, 2'000, 400'000, true),
                                      fuelling({2024, 1, 5}, 1'000, 400'000, true)};
  const core::Listing listing{core::Logbook::of(entries), {1, 2}};
  EXPECT_THAT(readings(planOf(readLog(exchange::csvOf(listing).substr(3)))), ElementsAre(2'000, 1'000));
}

std::string replaced(std::string text, const std::string& stood, const std::string& put) {
  for (std::size_t at = 0; (at = text.find(stood, at)) != std::string::npos; at += put.size())
    text.replace(at, stood.size(), put);
  return text;
}

// As a spreadsheet of another country leaves it: points for commas, another separator, a column more, one
// without anything, one gone.
TEST(APlan, OfAnOwnFileAfterASpreadsheetKeepsItsPartsMarksAndConsumption) {
  NapiAdat entry = fuelling({2024, 1, 5}, 1'000, 405'000, true);
  entry.Alkatresz = core::FixedText<50>("SZŰRŐ");
  entry.Megjegyzes = core::FixedText<50>("");
  entry.AlkatreszKtg = 1'200;
  entry.Olajcsere = core::kFlagSet;
  entry.MegjKtg = 300;
  entry.Fogyasztas = {76'300};
  const core::Listing listing{core::Logbook::of(std::vector<NapiAdat>{entry}), {1}};
  std::string text = replaced(replaced(exchange::csvOf(listing).substr(3), ",", "."), ";", "\t");
  text = replaced(text, "Dátum\t", "Sorszám\tDátum\t");
  text = replaced(text, "2024-01-05\t", "1\t2024-01-05\t");
  text = replaced(replaced(text, "Gyertya csere\t", ""), "igen\tnem\tnem\tSZ", "igen\tnem\tSZ");
  const ReadLog log = readLog(text);
  EXPECT_TRUE(log.reading.isOwn);
  EXPECT_THAT(log.reading.open, IsEmpty());
  const auto plan = planOf(log);
  ASSERT_EQ(plan.entries.size(), 1U) << text;
  EXPECT_EQ(plan.entries[0].entry, entry);
}

TEST(AnImport, PutsTheWholeLogbookInThePlaceOfTheOneThatWasSeen) {
  const core::Logbook seen = bookOf({fuelling({2024, 1, 1}, 500, 300'000, true)});
  const std::vector<NapiAdat> whole{fuelling({2023, 1, 5}, 100, 400'000, true), seen.record(1),
                                    fuelling({2024, 1, 9}, 1'400, 400'000, false)};
  MemoryFileSystem disk = emptyDisk();
  disk.put(kPath, textOf(seen.bytes()));
  exchange::importEntries(disk, kPath, seen, whole);
  EXPECT_EQ(disk.contents(kPath), textOf(core::Logbook::of(whole).bytes()));
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST(AnImport, PastTheHighestRecordNumberIsRefusedBeforeAnythingHappens) {
  const core::Logbook seen = bookOf({fuelling({2024, 1, 1}, 500, 300'000, true)});
  MemoryFileSystem disk = emptyDisk();
  disk.put(kPath, textOf(seen.bytes()));
  const std::vector<NapiAdat> many(core::kHighestRecordNumber + 1, seen.record(1));
  expectFailure(core::FailureKind::FileFull, [&] { exchange::importEntries(disk, kPath, seen, many); });
  EXPECT_EQ(disk.contents(kPath), textOf(seen.bytes()));
}

}  // namespace
}  // namespace tarvik::test
