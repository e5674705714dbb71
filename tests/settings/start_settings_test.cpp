#include "settings/start_settings.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "core/machine_file_system.h"
#include "core/record_list.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::settings {
namespace {

class StartSettingsTest : public testing::Test {
 protected:
  SetRecord load() { return loadStartSettings(files_, folders_); }
  void save(std::int16_t remindersOn, std::string_view plate) {
    saveStartSettings(files_, folders_, {.remindersOn = remindersOn, .plate = core::FixedText<10>(plate)});
  }
  std::string stored() const { return current_.read("set.dat"); }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

TEST(SetRecordBytes, AreTheseTwelve) {
  const SetRecord on{.remindersOn = core::kFlagSet, .plate = core::FixedText<10>("ŐŰ-123")};
  EXPECT_EQ(test::textOf(core::encoded(on)), "\xFF\xFF\xD5\xDB-123    ");
  EXPECT_EQ(core::decoded<SetRecord>(core::encoded(on)), on);
}

TEST_F(StartSettingsTest, MissingSettingsAreARecordOfZeros) {
  EXPECT_EQ(load(), SetRecord());
  EXPECT_EQ(load().plate.trimmed(), "");
  EXPECT_EQ(load().remindersOn, core::kFlagClear);
  EXPECT_EQ(stored(), "");
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(StartSettingsTest, ACutRecordIsARecordOfZeros) {
  current_.write("set.dat",
                 "\xFF\xFF"
                 "ABC123");
  EXPECT_EQ(load(), SetRecord());
  save(core::kFlagSet, "DEF456");
  EXPECT_EQ(stored(),
            "\xFF\xFF"
            "DEF456    ");
}

TEST_F(StartSettingsTest, SavingWritesRecordOneAndLaterRewritesIt) {
  save(core::kFlagSet, "ABC123");
  EXPECT_EQ(stored(),
            "\xFF\xFF"
            "ABC123    ");
  save(core::kFlagClear, "DEF456");
  EXPECT_EQ(stored(), std::string("\x00\x00"
                                  "DEF456    ",
                                  12));
  EXPECT_EQ(load().plate.asStored(), "DEF456    ");
}

TEST_F(StartSettingsTest, TheReminderFlagIsWrittenAloneAndThePlateKept) {
  save(core::kFlagClear, " ABC123");
  saveReminderFlag(files_, folders_, core::kFlagSet);
  EXPECT_EQ(stored(), "\xFF\xFF ABC123   ");
  saveReminderFlag(files_, folders_, core::kFlagClear);
  EXPECT_EQ(stored(), std::string("\x00\x00 ABC123   ", 12));
}

TEST_F(StartSettingsTest, TheReminderFlagOfMissingSettingsGoesWithAnEmptyPlate) {
  saveReminderFlag(files_, folders_, core::kFlagSet);
  EXPECT_EQ(stored(), std::string("\xFF\xFF", 2) + std::string(10, '\0'));
  EXPECT_EQ(load().plate.trimmed(), "");
}

TEST_F(StartSettingsTest, TheReminderFlagOfMissingSettingsIsWrittenWhenItIsOffToo) {
  saveReminderFlag(files_, folders_, core::kFlagClear);
  EXPECT_EQ(stored(), std::string(12, '\0'));
}

}  // namespace
}  // namespace tarvik::settings
