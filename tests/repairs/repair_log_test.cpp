#include "repairs/repair_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::repairs {
namespace {

using core::FailureKind;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr char kFile[] = "Szerviz.dat";

Repair repairOf(std::string_view plate, std::string_view description = "Olajcsere") {
  return {.plate = core::FixedText<10>(plate),
          .date = 41'460,
          .description = core::FixedText<80>(description),
          .part = core::FixedText<80>("Olaj"),
          .costFt = 15'000,
          .readingKm = 132'450};
}

NewRepair typed(std::string cost, std::string reading = "132450") {
  return {.plate = "ABC-123",
          .date = {41'460},
          .description = "Olajcsere",
          .part = "Olaj",
          .cost = std::move(cost),
          .reading = std::move(reading)};
}

class RepairLogTest : public testing::Test {
 protected:
  void store(const std::vector<Repair>& repairs) {
    std::string bytes;
    for (const Repair& repair : repairs) bytes += test::textOf(core::encoded(repair));
    program_.write(kFile, bytes);
  }
  std::vector<Repair> stored() {
    const auto repairs = core::loadRecords<Repair>(files_, program_ / kFile);
    std::vector<Repair> all;
    for (int number = 1; number <= repairs.count(); ++number) all.push_back(repairs.record(number));
    return all;
  }
  void remove(int number) {
    log_.listFiltered({.isAllVehicles = true});
    log_.remove(log_.seen(number));
  }
  std::int32_t storedCost(std::string text) {
    log_.record(typed(std::move(text)));
    return stored().back().costFt;
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  RepairLog log_{files_, {program_.path(), current_.path()}};
};

TEST_F(RepairLogTest, AMissingFileIsAnEmptyListAndIsCreatedInTheProgramFolder) {
  EXPECT_THAT(log_.listFiltered({.plate = "ABC-123"}), IsEmpty());
  EXPECT_EQ(program_.read(kFile), "");
  EXPECT_THAT(current_.names(), IsEmpty());
}

TEST_F(RepairLogTest, ListsOneVehicleOrWhatAFilterKeeps) {
  store({repairOf("ABC-123"), repairOf("DEF-456"), repairOf("ABC-123", "Mosás")});
  EXPECT_THAT(log_.listFiltered({.plate = "ABC-123 "}),
              ElementsAre(Field(&RepairRow::number, 1), Field(&RepairRow::number, 3)));
  EXPECT_THAT(log_.listFiltered({.isAllVehicles = true, .description = "olaj"}),
              ElementsAre(Field(&RepairRow::number, 1), Field(&RepairRow::number, 2)));
}

TEST_F(RepairLogTest, ReadsTheEntryOfANumber) {
  store({repairOf("ABC-123"), repairOf("DEF-456")});
  EXPECT_EQ(log_.read(1), repairOf("ABC-123"));
  EXPECT_EQ(log_.read(2), repairOf("DEF-456"));
}

TEST_F(RepairLogTest, ReadingANumberThatTheFileDoesNotHaveFails) {
  store({repairOf("ABC-123")});
  test::expectFailure(FailureKind::RecordMissing, [&] { log_.read(0); });
  test::expectFailure(FailureKind::RecordMissing, [&] { log_.read(2); });
}

TEST_F(RepairLogTest, RecordingAppendsTheEntryAsTyped) {
  store({repairOf("DEF-456")});
  log_.record({.plate = " ABC-123",
               .date = {41'461},
               .description = " Fékbetét csere",
               .part = "Fékbetét",
               .cost = "24500 Ft",
               .reading = "132 450"});
  const Repair expected{.plate = core::FixedText<10>(" ABC-123"),
                        .date = 41'461,
                        .description = core::FixedText<80>(" Fékbetét csere"),
                        .part = core::FixedText<80>("Fékbetét"),
                        .costFt = 24'500,
                        .readingKm = 132'450};
  EXPECT_THAT(stored(), ElementsAre(repairOf("DEF-456"), expected));
}

TEST_F(RepairLogTest, RecordingChecksNoField) {
  log_.record({.plate = "", .date = {}, .description = "", .part = "", .cost = "", .reading = ""});
  EXPECT_EQ(program_.read(kFile),
            std::string(10, ' ') + std::string(8, '\0') + std::string(160, ' ') + std::string(8, '\0'));
}

TEST_F(RepairLogTest, ACostIsRoundedHalvesToEven) {
  EXPECT_EQ(storedCost("12.5"), 12);
  EXPECT_EQ(storedCost("13.5"), 14);
}

TEST_F(RepairLogTest, ATextThatIsNoNumberIsStoredAsZero) {
  EXPECT_EQ(storedCost("sok"), 0);
  log_.record(typed("1", "nem tudom"));
  EXPECT_EQ(stored().back().readingKm, 0);
}

TEST_F(RepairLogTest, AFigurePastItsFieldIsRefusedByNameAndNothingIsWritten) {
  test::expectFieldFailure(FailureKind::OutOfRange, "txtSzervizKoltseg",
                           [&] { log_.record(typed("2147483648")); });
  test::expectFieldFailure(FailureKind::OutOfRange, "txtKMora",
                           [&] { log_.record(typed("1", "2147483648")); });
  EXPECT_THAT(program_.names(), IsEmpty());
}

}  // namespace
}  // namespace tarvik::repairs
