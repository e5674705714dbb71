#include "core/entry_editing.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "core/machine_file_system.h"
#include "tests/core/entries.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::core {
namespace {

using test::expectFailure;
using test::expectFieldFailure;

constexpr double k5July2013 = 41'460;

// A fuelling of 5 July 2013 as it is typed; the costs are left blank.
EntryInput typed(std::string km, std::string litres, bool full = true) {
  EntryInput input;
  input.kmOra = std::move(km);
  input.tankoltLiter = std::move(litres);
  input.megjegyzes = "Tankolás";
  input.datum = dayOf({2013, 7, 5});
  input.teletank = full;
  return input;
}

// The same as it must be stored; litres and consumption in ten-thousandths.
NapiAdat stored(std::int32_t km, std::int64_t litres, bool full, std::int64_t consumption = 0) {
  return {.KmOra = km,
          .Datum = k5July2013,
          .Teletank = toFlag(full),
          .TankoltLiter = {litres},
          .Alkatresz = FixedText<50>(""),
          .Megjegyzes = FixedText<50>("Tankolás"),
          .Fogyasztas = {consumption}};
}

std::string fileOf(const std::vector<NapiAdat>& entries) {
  std::string bytes;
  for (const NapiAdat& entry : entries) bytes += test::textOf(encoded(entry));
  return bytes;
}

class EntryEditing : public testing::Test {
 protected:
  EntryEditing() { folder_.makeFolder("ABC123"); }

  Ratio record(const EntryInput& input) { return recordEntry(files_, folders_, "ABC123", input); }
  void modify(int number, const EntryInput& input, std::string_view consumption = "") {
    modifyEntry(files_, folders_, "ABC123", seen(number), input, consumption);
  }
  void remove(int number) { deleteEntry(files_, folders_, "ABC123", seen(number)); }
  // As it was listed; where nothing can be listed, nothing was seen.
  SeenRecord seen(int number) {
    try {
      return load().seen(number);
    } catch (const Failure&) {
      return {.number = number};
    }
  }
  void open() { openDeletion(files_, folders_, "ABC123"); }
  Logbook load(const std::string& plate = "ABC123") { return loadLogbook(files_, folders_, plate); }

  void write(std::string_view contents) { folder_.write("ABC123/napiadat.dat", contents); }
  void write(const std::vector<NapiAdat>& entries) { write(fileOf(entries)); }
  std::string file() const { return folder_.read("ABC123/napiadat.dat"); }
  std::int64_t recordedConsumption(const EntryInput& input) {
    record(input);
    const Logbook logbook = load();
    return logbook.record(logbook.count()).Fogyasztas.tenThousandths;
  }

  test::TemporaryFolder folder_;
  test::TemporaryFolder current_;
  MachineFileSystem files_;
  DataFolders folders_{folder_.path(), current_.path()};
};

using Names = std::vector<std::string>;

// Loading.

TEST_F(EntryEditing, PlateTooLongForAFolderSaysSo) {
  const std::string plate(300, 'A');
  expectFailure(FailureKind::OpenFailed, [&] { load(plate); });
  expectFailure(FailureKind::OpenFailed, [&] { recordEntry(files_, folders_, plate, typed("1", "1")); });
}

TEST_F(EntryEditing, AFullLogbookSaysWhichEntryItCannotTake) {
  folder_.write("ABC123/napiadat.dat", std::string(32'767 * NapiAdat::kLength, '\0'));
  expectFailure(
      FailureKind::FileFull, [&] { record(typed("1", "1")); },
      [](const Failure& failure) { EXPECT_EQ(failure.record(), 32'768); });
}

TEST_F(EntryEditing, LongAndForeignPlatesAreFoldersLikeAnyOther) {
  for (const std::string& plate : {std::string(40, 'A'), std::string("日本語"), std::string("ŐŰ-123")}) {
    EXPECT_EQ(load(plate).count(), 0);
    folder_.makeFolder(plate);
    recordEntry(files_, folders_, plate, typed("10000", "40"));
    EXPECT_EQ(load(plate).count(), 1);
  }
}

// Recording.

TEST_F(EntryEditing, FirstEntryIsRecordedWithAllItsFields) {
  EntryInput input = typed("10000", "40,5");
  input.tankoltKtg = "16200";
  input.ftPerLiter = "400,00";
  input.alkatresz = "Olajszűrő";
  input.alkatreszKtg = "2500";
  input.megjKtg = "-100";
  input.olajcsere = input.gyertyacsere = true;
  const Ratio distance = record(input);

  NapiAdat expected = stored(10'000, 405'000, true);
  expected.TankoltKtg = 16'200;
  expected.FtPerLiter = {4'000'000};
  expected.Alkatresz = FixedText<50>("Olajszűrő");
  expected.AlkatreszKtg = 2'500;
  expected.MegjKtg = -100;
  expected.Olajcsere = expected.Gyertyacsere = kFlagSet;
  EXPECT_EQ(file(), fileOf({expected}));
  EXPECT_EQ(distance, Ratio(0));
  EXPECT_EQ(folder_.names(), (Names{"ABC123", "ABC123/napiadat.dat"}));
}

TEST_F(EntryEditing, SecondEntryHasNoConsumptionThoughTheFirstWasAFullFill) {
  record(typed("10000", "40"));
  EXPECT_EQ(record(typed("10500", "35")), Ratio(0));
  EXPECT_EQ(file(), fileOf({stored(10'000, 400'000, true), stored(10'500, 350'000, true)}));
}

TEST_F(EntryEditing, ConsumptionCountsAllFuelSinceTheLastFullFill) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true), stored(10'300, 200'000, false)});
  EXPECT_EQ(record(typed("10500", "15")), Ratio(500));
  EXPECT_EQ(file(), fileOf({stored(9'000, 300'000, true), stored(10'000, 400'000, true),
                            stored(10'300, 200'000, false), stored(10'500, 150'000, true, 70'000)}));
  EXPECT_EQ(recordedConsumption(typed("11000", "30")), 60'000);  // and nothing from before it
}

TEST_F(EntryEditing, EntryThatIsNoFullFillCarriesAConsumptionToo) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  EXPECT_EQ(recordedConsumption(typed("10500", "35", false)), 70'000);
}

TEST_F(EntryEditing, EntryWithoutFuelCarriesTheConsumptionOfTheFuelBefore) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true), stored(10'300, 350'000, false)});
  EXPECT_EQ(recordedConsumption(typed("10500", "")), 70'000);
}

TEST_F(EntryEditing, BlankLitresAreStoredAsZeroAndNeverAsAFullFill) {
  record(typed("10000", "  "));
  EXPECT_EQ(file(), fileOf({stored(10'000, 0, false)}));
}

TEST_F(EntryEditing, LitresBelowOneAreNeverAFullFillBecauseTheCommaEndsThePlainNumber) {
  record(typed("10000", "0,5"));
  record(typed("10001", ",5"));
  record(typed("10002", "1,5"));
  EXPECT_EQ(file(), fileOf({stored(10'000, 5'000, false), stored(10'001, 5'000, false),
                            stored(10'002, 15'000, true)}));
}

TEST_F(EntryEditing, FullFillWithoutLitresIsSkippedAndAddsNothing) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true), stored(10'200, 0, true)});
  EXPECT_EQ(record(typed("10500", "35")), Ratio(500));
}

TEST_F(EntryEditing, SearchNeverReadsEntryOne) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, false), stored(10'200, 100'000, false)});
  EXPECT_EQ(record(typed("10500", "35")), Ratio(0));
  EXPECT_EQ(load().record(4).Fogyasztas, Amount{});
}

TEST_F(EntryEditing, SearchGoesBackAsFarAsItMust) {
  std::vector<NapiAdat> entries{stored(9'000, 300'000, true), stored(10'000, 400'000, true)};
  for (int i = 1; i <= 200; ++i) entries.push_back(stored(10'000 + i, 10'000, false));  // 1 litre each
  write(entries);
  EXPECT_EQ(record(typed("11000", "50")), Ratio(1'000));
  EXPECT_EQ(load().record(203).Fogyasztas.tenThousandths, 250'000);  // (200 + 50) / 10
}

TEST_F(EntryEditing, ConsumptionRoundsHalvesAwayFromZeroToTwoDecimals) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  EXPECT_EQ(recordedConsumption(typed("11000", "75,05")), 75'100);  // 7.505
}

TEST_F(EntryEditing, ConsumptionBelowOneIsStoredAsNone) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  EXPECT_EQ(record(typed("20000", "50")), Ratio(10'000));
  EXPECT_EQ(load().record(3).Fogyasztas, Amount{});  // shown as ",50"
}

TEST_F(EntryEditing, ReadingBelowTheFullFillGivesANegativeConsumption) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  EXPECT_EQ(record(typed("9500", "35")), Ratio(-500));
  EXPECT_EQ(load().record(3).Fogyasztas.tenThousandths, -70'000);
}

TEST_F(EntryEditing, FractionOfAReadingCountsInTheDistance) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  EXPECT_EQ(record(typed("10500,5", "35")), Ratio(1'001, 2));
  EXPECT_EQ(load().record(3).KmOra, 10'500);
}

TEST_F(EntryEditing, ReadingOfTheLastFullFillRecordsNothing) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true)});
  const std::string before = file();
  expectFieldFailure(FailureKind::DivisionByZero, "txKmOra", [&] { record(typed("10000", "35")); });
  EXPECT_EQ(file(), before);
  record(typed("10001", "35"));
  EXPECT_EQ(load().count(), 3);
}

TEST(FullFillTrail, LeavesDamagedFlagsOutOfTheFullFills) {
  FullFillTrail trail;
  trail.pass(test::fuelling({2013, 1, 1}, 9'000, 100'000, true));
  trail.pass(test::fuelling({2013, 1, 2}, 10'000, 100'000, true));
  NapiAdat damaged = test::fuelling({2013, 1, 3}, 10'100, 100'000, true);
  damaged.Teletank = 1;
  trail.pass(damaged);
  const FullFillSearch found = trail.reach(10, 10'500).value();
  EXPECT_EQ(found.distance, Ratio(500));
  EXPECT_EQ(found.consumption, "4,00");   // 10 + 10 litres on 500 km
  EXPECT_FALSE(trail.reach(10, 10'000));  // no distance
}

TEST(FullFillTrail, FindsNothingBehindTheFirstEntry) {
  FullFillTrail trail;
  EXPECT_EQ(trail.reach(40, 10'000).value().consumption, "");
  trail.pass(test::fuelling({2013, 1, 1}, 9'000, 100'000, true));
  EXPECT_EQ(trail.reach(40, 10'000).value().distance, Ratio(0));
}

// Modifying.

TEST_F(EntryEditing, ModifyingOverwritesOneEntryAndTakesTheShownConsumption) {
  write({stored(9'000, 300'000, true), stored(10'000, 400'000, true), stored(10'500, 350'000, true, 70'000)});
  modify(2, typed("10100", "41,25", false), "6,54");
  EXPECT_EQ(file(), fileOf({stored(9'000, 300'000, true), stored(10'100, 412'500, false, 65'400),
                            stored(10'500, 350'000, true, 70'000)}));
  EXPECT_EQ(folder_.names(), (Names{"ABC123", "ABC123/napiadat.dat"}));
}

TEST_F(EntryEditing, ModifyingWithoutAShownFigureStoresNoConsumption) {
  for (const char* shown : {"", "Nem volt teletankolva!", "Nem volt tankolás!", ",75"}) {
    write({stored(10'000, 400'000, true, 70'000)});
    modify(1, typed("10000", "40"), shown);
    EXPECT_EQ(file(), fileOf({stored(10'000, 400'000, true)})) << shown;
  }
}

TEST_F(EntryEditing, ModifyingGivesBlankFieldsTheirDefaultsAndKeepsTheFullTankFlag) {
  write({stored(10'000, 400'000, true)});
  modify(1, typed("10000", ""));
  EXPECT_EQ(file(), fileOf({stored(10'000, 0, true)}));
}

TEST_F(EntryEditing, ModifyingWithAFigureThatDoesNotFitChangesNothing) {
  write({stored(10'000, 400'000, true)});
  const std::string before = file();
  expectFieldFailure(FailureKind::OutOfRange, "txKmOra", [&] { modify(1, typed("3000000000", "1")); });
  expectFieldFailure(FailureKind::NotANumber, "txKmOra", [&] { modify(1, typed("", "1")); });
  EXPECT_EQ(file(), before);
}

// Deleting.

std::vector<NapiAdat> fiveEntries() {
  std::vector<NapiAdat> entries;
  for (int i = 1; i <= 5; ++i) entries.push_back(stored(10'000 * i, 400'000, true));
  return entries;
}

TEST_F(EntryEditing, DecliningLeavesTheLogbookAndAnEmptyTemporaryFile) {
  write(fiveEntries());
  open();
  EXPECT_EQ(file(), fileOf(fiveEntries()));
  EXPECT_EQ(folder_.read("ABC123/napiadatx.dat"), "");
}

TEST_F(EntryEditing, OpeningADeletionLeavesWhatTheTemporaryFileHolds) {
  write(fiveEntries());
  folder_.write("ABC123/napiadatx.dat", "left over");
  open();
  EXPECT_EQ(folder_.read("ABC123/napiadatx.dat"), "left over");
}

}  // namespace
}  // namespace tarvik::core
