#include "reminders/date_reminders.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/machine_file_system.h"
#include "tests/reminders/builders.h"
#include "tests/support/expect_failure.h"

namespace tarvik::reminders {
namespace {

using core::FailureKind;
using test::dateReminder;
using test::fileOf;
using test::kToday;
using test::listOf;
using test::padded;

class DateRemindersTest : public testing::Test {
 protected:
  void store(std::initializer_list<FigyDatumRec> reminders) {
    current_.write("figyDatum.dat", fileOf(reminders));
  }
  std::string stored() const { return current_.read("figyDatum.dat"); }
  std::vector<ReminderRow> rows() { return dateReminderRows(loadDateReminders(files_, folders_)); }
  void remove(int record) {
    deleteDateReminder(files_, folders_, loadDateReminders(files_, folders_).seen(record));
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
  const FigyDatumRec first_ = dateReminder(1, "Műszaki", "ABC-123");
  const FigyDatumRec second_ = dateReminder(2, "Biztosítás", "DEF-456");
  const FigyDatumRec third_ = dateReminder(3, "Adó", "ABC-123");
};

std::vector<std::string> numbersOf(const std::vector<ReminderRow>& rows) {
  std::vector<std::string> numbers;
  for (const ReminderRow& row : rows) numbers.push_back(row.record);
  return numbers;
}

TEST(AddsDateReminder, WhatIsThereAlreadyIsNotNew) {
  const auto known = test::listOf({test::dateReminder(20, "Műszaki", "ABC-123")});
  const core::Day due = core::addDays(kToday, 20);
  EXPECT_FALSE(addsReminder(known, {due, "Műszaki", "ABC-123 "}));
  EXPECT_TRUE(addsReminder(known, {core::addDays(due, 1), "Műszaki", "ABC-123"}));
  EXPECT_TRUE(addsReminder(known, {due, "Műszaki", "DEF-456"}));
  EXPECT_TRUE(addsReminder(known, {due, "", "ABC-123"}));
}

TEST_F(DateRemindersTest, AMissingFileIsCreatedEmptyInTheCurrentFolderAndListsThePlaceholder) {
  EXPECT_EQ(rows(), std::vector<ReminderRow>{placeholderRow()});
  EXPECT_EQ(stored(), "");
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(DateRemindersTest, TheListShowsTheDateAndTheTextsAsStored) {
  store({first_, third_});
  const std::vector<ReminderRow> expected{
      {"2013.07.06.", "Műszaki" + std::string(33, ' '), "ABC-123   ", "1"},
      {"2013.07.08.", "Adó" + std::string(37, ' '), "ABC-123   ", "2"},
  };
  EXPECT_EQ(rows(), expected);
}

TEST_F(DateRemindersTest, OneWithoutATextIsNotListedAndTheOthersKeepTheirNumbers) {
  store({dateReminder(1, "", "ABC-123"), second_});
  EXPECT_EQ(numbersOf(rows()), std::vector<std::string>{"2"});
}

TEST_F(DateRemindersTest, ADamagedDateIsListedAsAQuestionMark) {
  FigyDatumRec damaged = first_;
  damaged.Mikor = std::numeric_limits<double>::infinity();
  store({damaged});
  EXPECT_EQ(rows()[0].date, "?");
}

TEST_F(DateRemindersTest, RecordingAppendsTheseBytes) {
  store({first_});
  recordDateReminder(files_, folders_, {core::dayOf({2013, 7, 19}), "Műszaki", " DEF-456"}, kToday);
  EXPECT_EQ(stored(), fileOf({first_}) + std::string("\x00\x00\x00\x00\x40\x40\xE4\x40", 8) + "2013.07.05" +
                          padded("M\xFBszaki", 40) + " DEF-456  ");
}

TEST_F(DateRemindersTest, AnEmptyTextIsRecordedAtTheEnd) {
  store({first_});
  recordDateReminder(files_, folders_, {kToday, "", "ABC-123"}, kToday);
  EXPECT_EQ(loadDateReminders(files_, folders_).count(), 2);
  EXPECT_EQ(numbersOf(rows()), std::vector<std::string>{"1"});
}

TEST_F(DateRemindersTest, TheFirstDueOneIsFoundForTheCheckAtStart) {
  store({dateReminder(15, "Messze", "A"), dateReminder(14, "Közel", "A"), dateReminder(-3, "Lejárt", "A")});
  EXPECT_EQ(firstDueDateReminder(files_, folders_, kToday), 2);
  store({dateReminder(15, "Messze", "A")});
  EXPECT_EQ(firstDueDateReminder(files_, folders_, kToday), std::nullopt);
}

TEST_F(DateRemindersTest, TheCheckAtStartCreatesAMissingFileAndFindsNothing) {
  EXPECT_EQ(firstDueDateReminder(files_, folders_, kToday), std::nullopt);
  EXPECT_EQ(stored(), "");
}

TEST(DueDate, BeginsFourteenDaysAheadAtMidnightAndNeverEnds) {
  EXPECT_FALSE(isDue(dateReminder(15, "x", "A"), kToday));
  EXPECT_TRUE(isDue(dateReminder(14, "x", "A"), kToday));
  EXPECT_TRUE(isDue(dateReminder(0, "x", "A"), kToday));
  EXPECT_TRUE(isDue(dateReminder(-4000, "x", "A"), kToday));
  FigyDatumRec noon = dateReminder(14, "x", "A");
  noon.Mikor += 0.5;
  EXPECT_FALSE(isDue(noon, kToday));
  EXPECT_TRUE(isDue(noon, core::addDays(kToday, 1)));
}

TEST(DueDate, OfADamagedRecordNeverComes) {
  for (const double damaged : {std::numeric_limits<double>::quiet_NaN(), -1e300, 1e300}) {
    FigyDatumRec reminder = dateReminder(0, "x", "A");
    reminder.Mikor = damaged;
    EXPECT_FALSE(isDue(reminder, kToday));
    test::expectFailure(FailureKind::OutOfRange, [&] { dateReminderDetails(reminder, kToday); });
  }
}

TEST(DueDateRows, AreOfAllVehiclesAndEmptyTextsToo) {
  const auto rows = dueDateRows(listOf({dateReminder(15, "Messze", "A"), dateReminder(14, "Közel", "ABC-123"),
                                        dateReminder(-3, "", "DEF-456")}),
                                kToday);
  const std::vector<ReminderRow> expected{
      {"2013.07.19.", "Közel" + std::string(35, ' '), "ABC-123   ", "2"},
      {"2013.07.02.", std::string(40, ' '), "DEF-456   ", "3", true},
  };
  EXPECT_EQ(rows, expected);
}

TEST(DueDateRows, AreOverdueFromTheDayAfterTheirOwn) {
  const auto rows =
      dueDateRows(listOf({dateReminder(0, "Ma", "A"), dateReminder(-1, "Tegnap", "A")}), kToday);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_FALSE(rows[0].isOverdue);
  EXPECT_TRUE(rows[1].isOverdue);
}

TEST(DueDateRows, HaveNoPlaceholder) {
  EXPECT_TRUE(dueDateRows(listOf<FigyDatumRec>({}), kToday).empty());
}

TEST(DaysLeft, AreToldInThreeForms) {
  EXPECT_EQ(daysLeftText(core::addDays(kToday, 14), kToday), "14 nap múlva esedékes!");
  EXPECT_EQ(daysLeftText(core::addDays(kToday, 5), kToday), "5 nap múlva esedékes!");
  EXPECT_EQ(daysLeftText(core::addDays(kToday, 1), kToday), "1 nap múlva esedékes!");
  EXPECT_EQ(daysLeftText(kToday, kToday), " MA ESEDÉKES!!!!");
  EXPECT_EQ(daysLeftText(core::addDays(kToday, -3), kToday), "-3 nappal túllépve!!!!");
}

TEST(DateReminderDetails, AreTheStoredTextsAndTheTrimmedPlate) {
  const DateReminderDetails expected{"2013.07.10.", "Műszaki" + std::string(33, ' '), "2013.06.01", "ABC-123",
                                     "5 nap múlva esedékes!"};
  EXPECT_EQ(dateReminderDetails(dateReminder(5, "Műszaki", " ABC-123"), kToday), expected);
}

}  // namespace
}  // namespace tarvik::reminders
