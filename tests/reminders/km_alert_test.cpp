#include "reminders/km_alert.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/machine_file_system.h"
#include "tests/reminders/builders.h"

namespace tarvik::reminders {
namespace {

using test::deletedKmReminder;
using test::entry;
using test::fileOf;
using test::kmReminder;
using test::listOf;
using test::padded;

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(PassedReminder, IsStrictlyBehindTheReading) {
  const FigyelRec reminder = kmReminder(10000, 5000, "Olaj", "ABC-123");
  EXPECT_EQ(isPassed(reminder, 14999), false);
  EXPECT_EQ(isPassed(reminder, 15000), false);
  EXPECT_EQ(isPassed(reminder, 15001), true);
}

TEST(PassedReminder, IsNeverADeletedOne) {
  EXPECT_EQ(isPassed(deletedKmReminder("ABC-123"), 15001), false);
  EXPECT_EQ(isPassed(kmReminder(0, 5000, "Olaj", "A"), 15001), false);
  EXPECT_EQ(isPassed(kmReminder(-1, 5000, "Olaj", "A"), 15001), false);
  EXPECT_EQ(isPassed(kmReminder(1, 5000, "Olaj", "A"), 15001), true);
}

TEST(PassedReminder, IsOfItsOwnVehicleByTheTrimmedPlate) {
  const FigyelRec reminder = kmReminder(10000, 5000, "Olaj", " ABC-123");
  EXPECT_EQ(isPassedFor(reminder, "ABC-123", 15001), true);
  EXPECT_EQ(isPassedFor(reminder, "  ABC-123   ", 15001), true);
  EXPECT_EQ(isPassedFor(reminder, "ABC-12", 15001), false);
  EXPECT_EQ(isPassedFor(reminder, "", 15001), false);
}

TEST(PassedReminder, IsUnknownWhenTheDueReadingLeaves32Bits) {
  EXPECT_EQ(isPassed(kmReminder(kHighest - 1, 1, "x", "A"), kHighest), false);
  EXPECT_EQ(isPassed(kmReminder(kHighest, 1, "x", "A"), 5), std::nullopt);
  EXPECT_EQ(isPassedFor(kmReminder(kHighest, 1, "x", "A"), "A", 5), std::nullopt);
  EXPECT_EQ(isPassedFor(kmReminder(kHighest, 1, "x", "A"), "B", 5), false);
}

TEST(CurrentReading, IsTheLastOtherThanZero) {
  EXPECT_EQ(currentReading(listOf({entry(100, 1), entry(200, 2)})), 200);
  EXPECT_EQ(currentReading(listOf({entry(100, 1), entry(200, 2), entry(0, 3), entry(0, 4)})), 200);
  EXPECT_EQ(currentReading(listOf({entry(100, 1), entry(0, 2)})), 100);
}

TEST(CurrentReading, IsZeroWhenAllAre) {
  EXPECT_EQ(currentReading(listOf({entry(0, 1), entry(0, 2)})), 0);
}

class KmCheckTest : public testing::Test {
 protected:
  void storeLogbook(std::initializer_list<core::NapiAdat> entries) {
    program_.makeFolder("ABC-123");
    program_.write("ABC-123/napiadat.dat", fileOf(entries));
  }
  void store(std::initializer_list<FigyelRec> reminders) { current_.write("figyel.dat", fileOf(reminders)); }
  KmCheck check(std::string_view plate) { return checkKm(files_, folders_, plate); }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

TEST_F(KmCheckTest, FindsTheFirstPassedReminderOfTheVehicle) {
  storeLogbook({entry(100, 1), entry(15001, 2), entry(0, 3)});
  store({kmReminder(1, 1, "Másé", "DEF-456"), kmReminder(10000, 5000, "Olaj", "ABC-123"),
         deletedKmReminder("ABC-123"), kmReminder(10000, 5001, "Fék", "ABC-123"),
         kmReminder(1, 1, "Szűrő", "ABC-123")});
  EXPECT_EQ(check(" ABC-123 "), (KmCheck{true, true, 15001, 2}));
}

TEST_F(KmCheckTest, FindsNothingAtTheDueReading) {
  storeLogbook({entry(15000, 2)});
  store({kmReminder(10000, 5000, "Olaj", "ABC-123"), kmReminder(1, 1, "Másé", "DEF-456")});
  EXPECT_EQ(check("ABC-123"), (KmCheck{true, true, 15000, std::nullopt}));
}

TEST_F(KmCheckTest, OfAnEmptyLogbookLooksAtNoReminder) {
  storeLogbook({});
  EXPECT_EQ(check("ABC-123"), (KmCheck{true, false, 0, std::nullopt}));
  EXPECT_TRUE(current_.names().empty());
}

TEST_F(KmCheckTest, TakesAMissingFolderAndAnUnusablePlateForNoLogbook) {
  EXPECT_EQ(check("XYZ-999"), (KmCheck{false, false, 0, std::nullopt}));
  EXPECT_EQ(check(""), KmCheck{});
  EXPECT_EQ(check("../ABC"), KmCheck{});
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(KmCheckTest, CreatesMissingRemindersEmpty) {
  storeLogbook({entry(15000, 2)});
  EXPECT_EQ(check("ABC-123"), (KmCheck{true, true, 15000, std::nullopt}));
  EXPECT_EQ(current_.read("figyel.dat"), "");
}

TEST_F(KmCheckTest, GoesPastDueReadingsThatLeave32BitsAndNamesThem) {
  storeLogbook({entry(15001, 2)});
  store({kmReminder(kHighest, 1, "Olaj ", "ABC-123"), kmReminder(kHighest, 1, "Másé", "DEF-456"),
         kmReminder(10000, 5000, "Fék", "ABC-123"), kmReminder(1, kHighest, "", "ABC-123")});
  EXPECT_EQ(check("ABC-123"), (KmCheck{true, true, 15001, 3, {{1, "Olaj"}, {4, ""}}}));
}

TEST_F(KmCheckTest, WithNothingButSuchAReminderFindsNonePassed) {
  storeLogbook({entry(15001, 2)});
  store({kmReminder(kHighest, 1, "Olaj", "ABC-123")});
  EXPECT_EQ(check("ABC-123"), (KmCheck{true, true, 15001, std::nullopt, {{1, "Olaj"}}}));
}

const std::string kOlajLine = "2013.06.01  " + padded("Olaj", 40) + "       ";

TEST(AlertLine, HasItsFixedLayout) {
  const std::vector<FigyelRec> records{kmReminder(1, 2, "Olaj", "ABC-123")};
  EXPECT_EQ(alertLinesOfAll(KmReminders::of(records), 4), std::vector<std::string>{kOlajLine + "1"});
  EXPECT_EQ(kOlajLine.size(), 59U);
}

TEST(AlertLine, GivesTheLastFourDigitsOfItsRecordNumberBack) {
  EXPECT_EQ(recordOfAlertLine(kOlajLine + "7"), 7);
  EXPECT_EQ(recordOfAlertLine(kOlajLine + "123"), 123);
  EXPECT_EQ(recordOfAlertLine(kOlajLine + "9999"), 9999);
  EXPECT_EQ(recordOfAlertLine(kOlajLine + "12345"), 2345);
  EXPECT_EQ(recordOfAlertLine(""), 0);
  EXPECT_EQ(recordOfAlertLine("12"), 12);
}

class AlertLinesTest : public testing::Test {
 protected:
  const KmReminders reminders_ = listOf({
      kmReminder(15000, 1, "Még nem", "ABC-123"),
      kmReminder(10000, 5000, "Olaj", "ABC-123"),
      deletedKmReminder("ABC-123"),
      kmReminder(100, 1, "Másé", "DEF-456"),
      kmReminder(100, 200, "Olaj", "ABC-123 "),
  });
};

TEST_F(AlertLinesTest, AtOpeningAreTheVehiclesOwnInFileOrder) {
  EXPECT_EQ(alertLines(reminders_, "ABC-123", 15001),
            (std::vector<std::string>{kOlajLine + "2", kOlajLine + "5"}));
}

TEST_F(AlertLinesTest, AfterADeletionAreThoseOfEveryVehicle) {
  const std::string other = "2013.06.01  Másé" + std::string(36, ' ') + "       4";
  EXPECT_EQ(alertLinesOfAll(reminders_, 15001),
            (std::vector<std::string>{kOlajLine + "2", other, kOlajLine + "5"}));
}

TEST(KmAlertFigures, AreTheDistancesAgainstTheReadingAndEmptyOfZero) {
  EXPECT_EQ(kmAlertFigures(kmReminder(10000, 5000, "Olaj", "A"), 16234),
            (KmAlertFigures{"6 234", "1 234", "16 234"}));
  EXPECT_EQ(kmAlertFigures(kmReminder(10000, 0, "Olaj", "A"), 10000), (KmAlertFigures{"", "", "10 000"}));
  EXPECT_EQ(kmAlertFigures(FigyelRec{}, 0), KmAlertFigures{});
  EXPECT_EQ(kmAlertFigures(kmReminder(12000, 5000, "Olaj", "A"), 10000),
            (KmAlertFigures{"-2 000", "-7 000", "10 000"}));
}

TEST(KmAlertFigures, AreUnknownWhenTheDistanceRunLeaves32Bits) {
  EXPECT_EQ(kmAlertFigures(kmReminder(kHighest, 0, "x", "A"), -2), (KmAlertFigures{"?", "?", "-2"}));
  EXPECT_EQ(kmAlertFigures(kmReminder(kHighest, 0, "x", "A"), -1).runSince, "-2147 483 648");
}

TEST(AlertLines, OneThatCannotBeComputedSaysSoAmongTheOthers) {
  const std::vector<FigyelRec> records{kmReminder(kHighest, 1, "Fék", "ABC-123"),
                                       kmReminder(10'000, 5'000, "Olaj", "ABC-123")};
  const auto stored = KmReminders::of(records);
  const std::string broken = "2013.06.01  Fék" + std::string(37, ' ') + "   ?   1";
  const std::vector<std::string> lines{broken, kOlajLine + "2"};
  EXPECT_EQ(alertLines(stored, "ABC-123", 20'000), lines);
  EXPECT_EQ(alertLinesOfAll(stored, 20'000), lines);
  EXPECT_EQ(recordOfAlertLine(broken), 1);
  EXPECT_TRUE(alertLines(stored, "DEF-456", 20'000).empty());
}

}  // namespace
}  // namespace tarvik::reminders
