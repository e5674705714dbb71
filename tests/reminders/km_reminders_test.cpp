#include "reminders/km_reminders.h"

#include <gtest/gtest.h>

#include "core/machine_file_system.h"
#include "tests/reminders/builders.h"
#include "tests/support/expect_failure.h"

namespace tarvik::reminders {
namespace {

using core::FailureKind;
using test::deletedKmReminder;
using test::fileOf;
using test::kmReminder;
using test::kToday;
using test::padded;

class KmRemindersTest : public testing::Test {
 protected:
  void store(std::initializer_list<FigyelRec> reminders) { current_.write("figyel.dat", fileOf(reminders)); }
  std::string stored() const { return current_.read("figyel.dat"); }
  std::vector<ReminderRow> rows() { return kmReminderRows(loadKmReminders(files_, folders_)); }
  void record(const KmReminderEntry& entry) { recordKmReminder(files_, folders_, entry, kToday); }

  void blank(int number) {
    blankKmReminder(files_, folders_, loadKmReminders(files_, folders_).seen(number));
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

FigyelRec recordedToday(std::int32_t reading, std::int32_t after, std::string_view text,
                        std::string_view plate) {
  FigyelRec reminder = kmReminder(reading, after, text, plate);
  reminder.RogzDatum = core::FixedText<10>("2013.07.05");
  return reminder;
}

TEST_F(KmRemindersTest, AMissingFileIsCreatedEmptyInTheCurrentFolderAndListsThePlaceholder) {
  EXPECT_EQ(rows(), std::vector<ReminderRow>{placeholderRow()});
  EXPECT_EQ(stored(), "");
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(KmRemindersTest, ThePlaceholderHasSpacesAndItsText) {
  EXPECT_EQ(placeholderRow(), (ReminderRow{" ", "Nincs figyelmeztetés...", " ", " "}));
}

TEST_F(KmRemindersTest, TheListShowsEveryVehicleWithItsPlateAsStored) {
  store({kmReminder(1000, 500, "Olajcsere", "ABC-123"), kmReminder(9000, 100, "Fék", "DEF-456")});
  const std::vector<ReminderRow> expected{
      {"2013.06.01", padded("Olajcsere", 40), "ABC-123   ", "1"},
      {"2013.06.01", "Fék" + std::string(37, ' '), "DEF-456   ", "2"},
  };
  EXPECT_EQ(rows(), expected);
}

TEST_F(KmRemindersTest, DeletedOnesAreNotListedAndTheOthersKeepTheirNumbers) {
  store({deletedKmReminder("ABC-123"), kmReminder(1, 2, "Fék", "DEF-456"), deletedKmReminder("ABC-123")});
  ASSERT_EQ(rows().size(), 1U);
  EXPECT_EQ(rows()[0].record, "2");
  store({deletedKmReminder("ABC-123")});
  EXPECT_EQ(rows(), std::vector<ReminderRow>{placeholderRow()});
}

TEST_F(KmRemindersTest, TheFirstIsRecordedInAMissingFile) {
  record({"Olajcsere", "123 456", "5000", "ABC-123"});
  EXPECT_EQ(stored(), std::string("\x88\x13\x00\x00\x40\xE2\x01\x00", 8) + "2013.07.05" +
                          padded("Olajcsere", 40) + "ABC-123   ");
}

TEST_F(KmRemindersTest, RecordingWithATextAppends) {
  const FigyelRec old = kmReminder(1000, 500, "Régi", "DEF-456");
  store({old});
  record({"Új", "2000", "700", "ABC-123"});
  EXPECT_EQ(stored(), fileOf({old, recordedToday(2000, 700, "Új", "ABC-123")}));
}

TEST_F(KmRemindersTest, RecordingWithAnEmptyTextOverwritesRecordOne) {
  const FigyelRec second = kmReminder(3, 4, "Második", "DEF-456");
  store({kmReminder(1, 2, "Első", "DEF-456"), second});
  record({"", "2000", "700", "ABC-123"});
  EXPECT_EQ(stored(), fileOf({recordedToday(2000, 700, "", "ABC-123"), second}));
}

TEST(AddsReminder, NeitherWhatOverwritesTheFirstNorWhatIsThereAlreadyIsNew) {
  const auto known = test::listOf({kmReminder(12'600, 500, "Olaj", "ABC-123"), deletedKmReminder("ABC-123")});
  EXPECT_FALSE(addsReminder(known, {"", "1", "2", "ABC-123"}));
  EXPECT_FALSE(addsReminder(known, {"  ", "1", "2", "ABC-123"}));
  EXPECT_FALSE(addsReminder(known, {"Olaj", "12 600", "500", "ABC-123 "}));
  EXPECT_TRUE(addsReminder(known, {"Olaj", "12 601", "500", "ABC-123"}));
  EXPECT_TRUE(addsReminder(known, {"Olaj", "12 600", "500", "DEF-456"}));
  EXPECT_TRUE(addsReminder(known, {"Fék", "12 600", "500", "ABC-123"}));
  EXPECT_TRUE(addsReminder({}, {"", "1", "2", "ABC-123"}));
}

TEST_F(KmRemindersTest, ATextOfSpacesCountsAsEmpty) {
  store({kmReminder(1, 2, "Első", "DEF-456")});
  record({"   ", "2000", "700", "ABC-123"});
  EXPECT_EQ(stored(), fileOf({recordedToday(2000, 700, "", "ABC-123")}));
}

TEST_F(KmRemindersTest, AnEmptyTextInAnEmptyFileIsAppended) {
  record({"", "2000", "700", "ABC-123"});
  EXPECT_EQ(stored(), fileOf({recordedToday(2000, 700, "", "ABC-123")}));
}

TEST_F(KmRemindersTest, RecordingAfterADeletionAppendsAndTheBlankSlotStays) {
  store({deletedKmReminder("DEF-456")});
  record({"Új", "2000", "700", "ABC-123"});
  EXPECT_EQ(stored(), fileOf({deletedKmReminder("DEF-456"), recordedToday(2000, 700, "Új", "ABC-123")}));
  EXPECT_EQ(rows().size(), 1U);
}

TEST_F(KmRemindersTest, FiguresThatDoNotConvertKeepThoseOfTheLastRecordRead) {
  const FigyelRec first = kmReminder(11, 12, "Első", "A");
  const FigyelRec last = kmReminder(21, 22, "Utolsó", "A");
  store({first, last});
  record({"Új", "nem szám", "", "B"});
  EXPECT_EQ(stored(), fileOf({first, last, recordedToday(21, 22, "Új", "B")}));
}

TEST_F(KmRemindersTest, WithAnEmptyTextTheLastRecordReadIsRecordOne) {
  const FigyelRec last = kmReminder(21, 22, "Utolsó", "A");
  store({kmReminder(11, 12, "Első", "A"), last});
  record({"", "", "12km", "B"});
  EXPECT_EQ(stored(), fileOf({recordedToday(11, 12, "", "B"), last}));
}

TEST_F(KmRemindersTest, FiguresThatDoNotConvertAreZeroInAnEmptyFile) {
  record({"Új", "x", "y", "B"});
  EXPECT_EQ(stored(), fileOf({recordedToday(0, 0, "Új", "B")}));
}

TEST_F(KmRemindersTest, FiguresRoundHalvesToEvenAndMayBeNegative) {
  const FigyelRec zeros;
  EXPECT_EQ(filledFrom(zeros, {"", "2,5", "3,5", ""}, kToday).KmAllas, 2);
  EXPECT_EQ(filledFrom(zeros, {"", "2,5", "3,5", ""}, kToday).KmMulva, 4);
  EXPECT_EQ(filledFrom(zeros, {"", "-1500", "40,", ""}, kToday).KmAllas, -1500);
  EXPECT_EQ(filledFrom(zeros, {"", "-1500", "40,", ""}, kToday).KmMulva, 40);
}

TEST_F(KmRemindersTest, FiguresPast32BitsDoNotConvert) {
  const FigyelRec before = kmReminder(7, 8, "", "");
  const auto reading = [&](std::string text) {
    return filledFrom(before, {"", text, "", ""}, kToday).KmAllas;
  };
  EXPECT_EQ(reading("2147483647"), 2147483647);
  EXPECT_EQ(reading("2147483648"), 7);
  EXPECT_EQ(reading("2147483647,5"), 7);
  EXPECT_EQ(reading("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(reading("-2147483649"), 7);
  EXPECT_EQ(reading("99999999999999999999999"), 7);
  EXPECT_EQ(reading("1.5"), 7);
}

TEST_F(KmRemindersTest, ThePlateIsStoredAsItStands) {
  record({"Új", "1", "2", " AB 1 "});
  EXPECT_EQ(stored().substr(58), " AB 1     ");
}

TEST_F(KmRemindersTest, DeletingBlanksTheSlotInPlaceAndKeepsThePlate) {
  const FigyelRec first = kmReminder(1, 2, "Első", "ABC-123");
  const FigyelRec third = kmReminder(5, 6, "Harmadik", "ABC-123");
  store({first, kmReminder(3, 4, "Második", "DEF-456"), third});
  blank(2);
  const std::string blanked = std::string(8, '\0') + std::string(50, ' ') + "DEF-456   ";
  EXPECT_EQ(stored(), fileOf({first}) + blanked + fileOf({third}));
  blank(2);
  EXPECT_EQ(stored(), fileOf({first}) + blanked + fileOf({third}));
}

TEST_F(KmRemindersTest, DeletingANumberThatTheFileDoesNotHaveFails) {
  store({kmReminder(1, 2, "Első", "ABC-123")});
  const std::string before = stored();
  test::expectFailure(FailureKind::RecordMissing, [&] { blank(2); });
  test::expectFailure(FailureKind::RecordMissing, [&] { blank(0); });
  EXPECT_EQ(stored(), before);
}

}  // namespace
}  // namespace tarvik::reminders
