#include "core/dated_copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "core/dated_sets.h"
#include "core/entry_editing.h"
#include "core/record_file.h"
#include "core/safety_net.h"
#include "reminders/figy_datum_rec.h"
#include "reminders/figyel_rec.h"
#include "repairs/repair.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tests/support/expect_failure.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/memory_file_system.h"
#include "tyres/tyre_set.h"

namespace tarvik::core {
namespace {

using test::FixedClock;
using test::MemoryFileSystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

const std::string kSets = "/p/Mentések";

// A household with two cars, started from its own folder.
class DatedCopiesTest : public testing::Test {
 protected:
  DatedCopiesTest() {
    disk_.putFolder("/p");
    putCar("/p", "ABC-123", "entries of the first");
    putCar("/p", "DEF-456", "entries of the second");
    disk_.put("/p/Gumik.dat", "tyres");
    disk_.put("/p/set.dat", "settings");
  }

  void putCar(const std::string& listedIn, const std::string& plate, const std::string& entries) {
    disk_.put(listedIn + "/rendsz.dat", disk_.contents(listedIn + "/rendsz.dat") + plate +
                                            std::string(8 - plate.size(), ' ') + std::string(2, '2'));
    disk_.putFolder("/p/" + plate);
    disk_.put("/p/" + plate + "/napiadat.dat", entries);
  }
  void change(FileSystem& files, const std::string& text = "new") {
    RecordFile(files, "/p/alkatr.dat", 3).append(std::as_bytes(std::span(text.data(), 3)));
  }
  void changeOn(const CalendarDate& date) {
    clock_.day = dayOf(date);
    SafetyNet net(disk_, folders_, clock_);
    change(disk_);
  }
  std::vector<std::string> sets() {
    std::vector<std::string> names;
    if (disk_.hasFolder(kSets)) disk_.list(kSets, names);
    std::erase(names, "zár");
    return names;
  }

  static inline const std::string kToday = kSets + "/2026-03-21";

  MemoryFileSystem disk_;
  DataFolders folders_{.program = "/p", .current = "/p"};
  FixedClock clock_{{2026, 3, 21}};
};

TEST_F(DatedCopiesTest, AreMadeOfASingleByteToo) {
  MemoryFileSystem disk;
  disk.putFolder("/p");
  disk.put("/p/megjegyz.dat", "x");
  SafetyNet net(disk, folders_, clock_);
  change(disk);
  EXPECT_EQ(disk.contents(kToday + "/megjegyz.dat"), "x");
}

TEST_F(DatedCopiesTest, HoldAllFilesAsTheyWereBeforeTheFirstChangeOfTheDay) {
  SafetyNet net(disk_, folders_, clock_);
  EXPECT_THAT(sets(), ElementsAre());
  change(disk_);
  change(disk_);
  EXPECT_THAT(sets(), ElementsAre("2026-03-21"));
  EXPECT_EQ(disk_.contents(kToday + "/rendsz.dat"), "ABC-123 22DEF-456 22");
  EXPECT_EQ(disk_.contents(kToday + "/ABC-123/napiadat.dat"), "entries of the first");
  EXPECT_EQ(disk_.contents(kToday + "/DEF-456/napiadat.dat"), "entries of the second");
  EXPECT_EQ(disk_.contents(kToday + "/Gumik.dat"), "tyres");
  EXPECT_EQ(disk_.contents(kToday + "/set.dat"), "settings");
  EXPECT_EQ(disk_.contents(kToday + "/alkatr.dat"), "");
  EXPECT_EQ(disk_.contents("/p/alkatr.dat"), "newnew");
  EXPECT_FALSE(disk_.has(kToday + "/Szerviz.dat"));
  EXPECT_EQ(net.copies().takeFailure(), std::nullopt);
  EXPECT_EQ(disk_.openFiles(), 0);
}

TEST_F(DatedCopiesTest, AreMadeAnewOnTheNextDayAndNotByASecondRun) {
  changeOn({2026, 3, 21});
  changeOn({2026, 3, 21});
  EXPECT_EQ(disk_.contents(kToday + "/alkatr.dat"), "");
  changeOn({2026, 3, 22});
  EXPECT_THAT(sets(), UnorderedElementsAre("2026-03-21", "2026-03-22"));
  EXPECT_EQ(disk_.contents(kSets + "/2026-03-22/alkatr.dat"), "newnew");
}

TEST_F(DatedCopiesTest, AreMadeWhileTheProgramRunsPastMidnight) {
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  clock_.day = dayOf({2026, 3, 22});
  change(disk_);
  EXPECT_THAT(sets(), UnorderedElementsAre("2026-03-21", "2026-03-22"));
}

TEST_F(DatedCopiesTest, AreNotMadeWithoutAChange) {
  SafetyNet net(disk_, folders_, clock_);
  readRecords(disk_, "/p/Gumik.dat", 5);
  test::expectFailure(FailureKind::RecordChanged, [&] {
    RecordFile(disk_, "/p/Gumik.dat", 5).rewrite({.number = 1, .bytes = std::vector<std::byte>(5)}, {});
  });
  RecordFile file(disk_, "/p/Gumik.dat", 5);
  const SeenRecord seen = file.seen(1);
  file.rewrite(seen, seen.bytes);
  EXPECT_THAT(sets(), ElementsAre());
}

TEST_F(DatedCopiesTest, HoldTheFilesOfACurrentFolderOfItsOwnInAPart) {
  disk_.putFolder("/c");
  putCar("/c", "GHI-789", "entries of the third");
  disk_.put("/c/set.dat", "settings there");
  folders_.current = "/c";
  changeOn({2026, 3, 21});
  EXPECT_EQ(disk_.contents(kToday + "/set.dat"), "settings");
  EXPECT_EQ(disk_.contents(kToday + "/Indítási mappa/set.dat"), "settings there");
  EXPECT_EQ(disk_.contents(kToday + "/Indítási mappa/rendsz.dat"), "GHI-789 22");
  EXPECT_EQ(disk_.contents(kToday + "/GHI-789/napiadat.dat"), "entries of the third");
  EXPECT_EQ(disk_.contents(kToday + "/ABC-123/napiadat.dat"), "entries of the first");
}

TEST_F(DatedCopiesTest, LeaveOutWhatIsNoDataFile) {
  disk_.put("/p/photo.jpg", "photo");
  disk_.putOther("/p/Szerviz.dat");
  disk_.put("/p/figyel.dat", std::string(68 * 32'768, 'x'));  // longer than numbers reach
  changeOn({2026, 3, 21});
  std::vector<std::string> names;
  disk_.list(kToday, names);
  EXPECT_THAT(names,
              UnorderedElementsAre("ABC-123", "DEF-456", "Gumik.dat", "alkatr.dat", "rendsz.dat", "set.dat"));
}

TEST_F(DatedCopiesTest, TellWhatIsThereAndNotInThemOnceADay) {
  disk_.putOther("/p/Szerviz.dat");
  disk_.put("/p/figyel.dat", std::string(68 * 32'768, 'x'));
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  const std::vector<Failure> leftOut = net.copies().takeLeftOut();
  ASSERT_EQ(leftOut.size(), 2U);
  EXPECT_EQ(leftOut[0].file(), "/p/Szerviz.dat");
  EXPECT_EQ(leftOut[0].kind(), FailureKind::NotAFile);
  EXPECT_EQ(leftOut[1].file(), "/p/figyel.dat");
  EXPECT_EQ(leftOut[1].kind(), FailureKind::FileTooLong);
  change(disk_);
  EXPECT_TRUE(net.copies().takeLeftOut().empty());
  clock_.day = dayOf({2026, 3, 22});
  change(disk_);
  EXPECT_EQ(net.copies().takeLeftOut().size(), 2U);
}

// Without its list nobody knows the vehicles.
TEST_F(DatedCopiesTest, TellAVehicleListThatCannotBeRead) {
  disk_.setModeOf("/p/rendsz.dat", 0);
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  const std::vector<Failure> leftOut = net.copies().takeLeftOut();
  ASSERT_EQ(leftOut.size(), 1U);
  EXPECT_EQ(leftOut[0].file(), "/p/rendsz.dat");
  EXPECT_FALSE(disk_.hasFolder(kToday + "/ABC-123"));
  EXPECT_EQ(disk_.contents(kToday + "/Gumik.dat"), "tyres");
}

TEST_F(DatedCopiesTest, KeepThePermissionsOfTheFiles) {
  disk_.setModeOf("/p/Gumik.dat", 0440);
  disk_.setModeOf("/p/set.dat", 0600);
  changeOn({2026, 3, 21});
  EXPECT_EQ(disk_.modeOf(kToday + "/Gumik.dat"), 0640U);  // a set must be able to go again
  EXPECT_EQ(disk_.modeOf(kToday + "/set.dat"), 0600U);
}

TEST_F(DatedCopiesTest, LeaveAForeignThingOfTheDaysNameAloneAndSaySo) {
  disk_.putFolder(kSets);
  disk_.put(kToday, "a letter");
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  EXPECT_EQ(disk_.contents(kToday), "a letter");
  EXPECT_EQ(disk_.contents("/p/alkatr.dat"), "new");
  const auto failure = net.copies().takeFailure();
  ASSERT_TRUE(failure.has_value());
  EXPECT_EQ(failure->systemError(), EEXIST);
  EXPECT_EQ(failure->file(), kToday);
  EXPECT_EQ(net.copies().takeFailure(), std::nullopt);
}

TEST_F(DatedCopiesTest, TakeAwayWhatARunThatWasCutShortLeft) {
  disk_.putFolder(kSets);
  disk_.putFolder(kToday + ".tmp");
  disk_.put(kToday + ".tmp/Gumik.dat", "half");
  disk_.putFolder(kToday + ".tmp/Indítási mappa");
  disk_.put(kToday + ".tmp/Indítási mappa/set.dat", "half");
  disk_.putFolder(kSets + "/2020-01-01.tmp");
  disk_.putFolder(kSets + "/mine.tmp");
  disk_.putFolder(kSets + "/2021-01-01.tmp");
  disk_.put(kSets + "/2021-01-01.tmp/letter.txt", "mine");
  changeOn({2026, 3, 21});
  EXPECT_THAT(sets(), UnorderedElementsAre("2026-03-21", "mine.tmp", "2021-01-01.tmp"));
  EXPECT_EQ(disk_.contents(kToday + "/Gumik.dat"), "tyres");
}

TEST_F(DatedCopiesTest, AreNotMadeOfAHouseholdThatHasNothingYet) {
  MemoryFileSystem disk;
  disk.putFolder("/p");
  disk.put("/p/rendsz.dat", "");
  SafetyNet net(disk, folders_, clock_);
  change(disk);
  EXPECT_FALSE(disk.hasFolder(kSets));
  EXPECT_EQ(net.copies().takeFailure(), std::nullopt);
}

// The rule.

std::set<Day> daysOf(std::initializer_list<CalendarDate> dates) {
  std::set<Day> days;
  for (const CalendarDate& date : dates) days.insert(dayOf(date));
  return days;
}

TEST(KeptDaysTest, AreTheLastFourteenThenTheFirstOfEachMonthThenOfEachYear) {
  std::set<Day> days;
  for (Day day = dayOf({2022, 2, 3}); day <= dayOf({2026, 3, 21}); day = addDays(day, 1)) days.insert(day);
  std::set<Day> expected = daysOf({{2022, 2, 3}, {2023, 1, 1}, {2024, 1, 1}});
  for (int day = 8; day <= 21; ++day) expected.insert(dayOf({2026, 3, day}));
  for (int month = 4; month <= 12; ++month) expected.insert(dayOf({2024, month, 1}));
  for (int month = 1; month <= 12; ++month) expected.insert(dayOf({2025, month, 1}));
  for (int month = 1; month <= 3; ++month) expected.insert(dayOf({2026, month, 1}));
  EXPECT_EQ(keptDays(days), expected);
}

TEST(KeptDaysTest, AreAllOfFourteenWhateverLiesBetweenThem) {
  std::set<Day> days;
  for (int year = 2010; year < 2024; ++year) days.insert(dayOf({year, 2, 28}));
  EXPECT_EQ(keptDays(days), days);
}

TEST(SetNameTest, IsTheDayAsItSorts) {
  EXPECT_EQ(setName(dayOf({2024, 2, 29})), "2024-02-29");
  EXPECT_EQ(dayOfSet("2024-02-29"), dayOf({2024, 2, 29}));
  EXPECT_EQ(dayOfSet("2024-02-29 visszaállítás előtt 2"), dayOf({2024, 2, 29}));
  for (const char* name :
       {"2023-02-29", "2024-02-2", "2024.02.29", "2024-02-29x", "2024-02-29.tmp", "+024-02-29", "2024x02-29",
        "2024-02x29", "202a-02-28", "2024-1a-29", "2024-02-2a", ""})
    EXPECT_EQ(dayOfSet(name), std::nullopt) << name;
}

// Three years of use with gaps, a clock that is set back, and a leap day: after each change exactly the sets
// of the rule are there, and what a person put there stays.
TEST_F(DatedCopiesTest, AreExactlyThoseOfTheRuleThroughThreeYears) {
  disk_.putFolder(kSets);
  disk_.putFolder(kSets + "/Nyaralás");
  disk_.put(kSets + "/Nyaralás/kép.jpg", "photo");
  disk_.putFolder(kSets + "/2019-05-05");  // a day's name with something else in it
  disk_.put(kSets + "/2019-05-05/levél.txt", "letter");
  std::set<Day> made;
  Day day = dayOf({2023, 4, 1});
  for (int i = 0; day < dayOf({2026, 4, 1}); ++i) {
    clock_.day = day;
    if (i == 200) clock_.day = addDays(day, -60);  // set back for one change
    SafetyNet net(disk_, folders_, clock_);
    change(disk_);
    made.insert(clock_.day);
    std::set<Day> expected = made;
    expected.insert(dayOf({2019, 5, 5}));
    expected = keptDays(expected);
    expected.insert(clock_.day);
    expected.insert(dayOf({2019, 5, 5}));
    made.clear();
    std::vector<std::string> names{"Nyaralás"};
    for (const Day kept : expected) {
      names.push_back(setName(kept));
      if (kept != dayOf({2019, 5, 5})) made.insert(kept);
    }
    ASSERT_THAT(sets(), testing::UnorderedElementsAreArray(names)) << setName(clock_.day);
    day = addDays(day, i % 11 == 0 ? 9 : i % 50 == 0 ? 45 : 1);
    if (i == 150) day = dayOf({2024, 2, 29});
  }
  EXPECT_TRUE(disk_.has(kSets + "/Nyaralás/kép.jpg"));
  EXPECT_TRUE(disk_.has(kSets + "/2019-05-05/levél.txt"));
}

// Reading sets.

TEST_F(DatedCopiesTest, AreListedWithTheNewestFirstAndThoseCopiedByHandBehind) {
  changeOn({2026, 3, 20});
  changeOn({2026, 3, 21});
  disk_.putFolder(kSets + "/Régi gép");
  disk_.put(kSets + "/Régi gép/Szerviz.dat", "repairs");
  disk_.putFolder(kSets + "/Régi gép/JKL-012");
  disk_.put(kSets + "/Régi gép/JKL-012/napiadat.dat", "entries");
  disk_.putFolder(kSets + "/Képek");
  const std::vector<DatedSet> found = datedSets(disk_, folders_);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].name, "2026-03-21");
  EXPECT_EQ(found[1].name, "2026-03-20");
  EXPECT_EQ(found[2].name, "Régi gép");
  ASSERT_EQ(found[2].files.size(), 2U);
  EXPECT_EQ(found[2].files[0].plate, "JKL-012");
  EXPECT_EQ(found[2].files[0].place, "/p/JKL-012/napiadat.dat");
  EXPECT_EQ(found[2].files[1].place, "/p/Szerviz.dat");
}

TEST_F(DatedCopiesTest, OfNowAreAsManyAsAreMadeAndComeBeforeTheDaysOwn) {
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  const std::vector<SetFile> wanted = datedSets(disk_, folders_).at(0).files;
  const std::string first = kToday + " visszaállítás előtt";
  EXPECT_EQ(net.copies().copyNow(wanted), first);
  EXPECT_EQ(net.copies().copyNow(wanted), first + " 2");
  EXPECT_EQ(net.copies().copyNow(wanted), first + " 3");
  std::vector<std::string> paths;
  for (const DatedSet& set : datedSets(disk_, folders_)) paths.push_back(set.path);
  EXPECT_THAT(paths, ElementsAre(first + " 3", first + " 2", first, kToday));
}

TEST_F(DatedCopiesTest, AreNotMadeAgainWhereTheDaysHasALogbookAlone) {
  disk_.putFolder(kSets);
  disk_.putFolder(kToday);
  disk_.putFolder(kToday + "/ABC-123");
  disk_.put(kToday + "/ABC-123/napiadat.dat", "kept");
  SafetyNet net(disk_, folders_, clock_);
  change(disk_);
  EXPECT_EQ(net.copies().takeFailure(), std::nullopt);
  EXPECT_EQ(disk_.contents(kToday + "/ABC-123/napiadat.dat"), "kept");
  EXPECT_FALSE(disk_.has(kToday + "/Gumik.dat"));
}

TEST_F(DatedCopiesTest, TakeAFileOfAsManyRecordsAsThereAreNumbersFor) {
  constexpr std::size_t kMost = std::size_t{50} * 32'767;
  disk_.put("/p/alkatr.dat", std::string(kMost, 'x'));
  disk_.put("/p/megjegyz.dat", std::string(kMost + 50, 'x'));
  DatedCopies copies(disk_, folders_, clock_);
  copies.beforeChange();
  EXPECT_EQ(disk_.contents(kToday + "/alkatr.dat").size(), kMost);
  EXPECT_FALSE(disk_.has(kToday + "/megjegyz.dat"));
  EXPECT_EQ(copies.takeLeftOut().size(), 1U);
}

TEST_F(DatedCopiesTest, OfTheNextDaySayNothingOfWhatWasWrongYesterday) {
  disk_.putFolder(kSets);
  disk_.put(kToday, "a letter");
  disk_.putOther("/p/Szerviz.dat");
  DatedCopies copies(disk_, folders_, clock_);
  copies.beforeChange();
  clock_.day = dayOf({2026, 3, 22});
  copies.beforeChange();
  EXPECT_EQ(copies.takeFailure(), std::nullopt);
  disk_.remove("/p/Szerviz.dat");
  clock_.day = dayOf({2026, 3, 23});
  copies.beforeChange();
  EXPECT_TRUE(copies.takeLeftOut().empty());
}

TEST(DataFilesTest, HaveTheLengthsOfTheirRecords) {
  const std::map<std::string_view, std::size_t> lengths{
      {"rendsz.dat", settings::Vehicle::kLength},      {"alkatr.dat", settings::LookupText::kLength},
      {"megjegyz.dat", settings::LookupText::kLength}, {"set.dat", settings::SetRecord::kLength},
      {"figyel.dat", reminders::FigyelRec::kLength},   {"figyDatum.dat", reminders::FigyDatumRec::kLength},
      {"Gumik.dat", tyres::TyreSet::kLength},          {"Szerviz.dat", repairs::Repair::kLength}};
  for (const DataFileKind& kind : kSharedFiles)
    EXPECT_EQ(kind.recordLength, lengths.at(kind.name)) << kind.name;
  EXPECT_EQ(kLogbookFile.recordLength, NapiAdat::kLength);
}

}  // namespace
}  // namespace tarvik::core
