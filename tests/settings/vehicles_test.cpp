#include "settings/vehicles.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/machine_file_system.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::settings {
namespace {

using test::TemporaryFolder;

constexpr std::size_t kRecord = 10;

/// Keeps the folders apart, as they are when the program is started from elsewhere.
class VehiclesTest : public testing::Test {
 protected:
  void add(std::string_view plate, std::string_view tank) { addVehicle(files_, folders_, plate, tank); }
  void remove(int number) { removeVehicle(files_, folders_, loadVehicles(files_, folders_).seen(number)); }
  std::string stored() const { return current_.read("rendsz.dat"); }

  TemporaryFolder program_;
  TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

Vehicles listOf(std::initializer_list<Vehicle> vehicles) {
  return Vehicles::of(std::vector<Vehicle>(vehicles));
}

Vehicle vehicle(std::string_view plate, std::int16_t tank) {
  return {.plate = core::FixedText<8>(plate), .tankSize = tank};
}

TEST(VehicleRecord, HasTheseTenBytes) {
  EXPECT_EQ(test::textOf(core::encoded(vehicle("ABC123", 45))), std::string("ABC123  \x2D\x00", 10));
  EXPECT_EQ(test::textOf(core::encoded(vehicle("ŐŰ-1", -5))), "\xD5\xDB-1    \xFB\xFF");
}

TEST_F(VehiclesTest, AMissingFileCountsAsNoVehiclesAndIsCreatedEmpty) {
  EXPECT_EQ(loadVehicles(files_, folders_).count(), 0);
  EXPECT_EQ(stored(), "");
}

TEST_F(VehiclesTest, TheStatisticsReadTheListOfTheProgramFolder) {
  current_.write("rendsz.dat", std::string("HERE    \x01\x00", kRecord));
  program_.write("rendsz.dat", std::string("THERE   \x02\x00", kRecord));
  EXPECT_EQ(loadVehicles(files_, folders_).record(1), vehicle("HERE", 1));
  EXPECT_EQ(loadVehiclesOfProgramFolder(files_, folders_).record(1), vehicle("THERE", 2));
}

TEST_F(VehiclesTest, AddingAppendsTheRecordAndMakesTheFolderInTheProgramFolder) {
  add("ABC123", "45");
  add("DEF456", "60");
  EXPECT_EQ(stored(), std::string("ABC123  \x2D\x00"
                                  "DEF456  \x3C\x00",
                                  2 * kRecord));
  EXPECT_EQ(program_.names(), (std::vector<std::string>{"ABC123", "DEF456"}));
  EXPECT_EQ(current_.names(), (std::vector<std::string>{"rendsz.dat"}));
}

TEST_F(VehiclesTest, ATankSizeIsRoundedToWholeLitresHalvesToEven) {
  for (const char* tank : {"45.6", "45.5", "44.5", "0.4", "45,6", "45 liter", "-5"}) add("A", tank);
  const std::vector<std::int16_t> expected{46, 46, 44, 0, 45, 45, -5};
  const Vehicles vehicles = loadVehicles(files_, folders_);
  ASSERT_EQ(vehicles.count(), 7);
  for (int number = 1; number <= 7; ++number)
    EXPECT_EQ(vehicles.record(number).tankSize, expected[static_cast<std::size_t>(number - 1)]);
}

TEST_F(VehiclesTest, ATankSizePastTheFieldFailsAndChangesNothing) {
  for (const char* tank : {"32768", "32767.5", "-32769", "99999999999999999999"}) {
    SCOPED_TRACE(tank);
    test::expectFieldFailure(core::FailureKind::OutOfRange, "txTank", [&] { add("ABC123", tank); });
  }
  EXPECT_TRUE(program_.names().empty());
  EXPECT_TRUE(current_.names().empty());
}

TEST_F(VehiclesTest, ALeadingSpaceIsStoredButNotPartOfTheFolderName) {
  add(" ABC123 ", "45");
  EXPECT_EQ(stored(), std::string(" ABC123 \x2D\x00", kRecord));
  EXPECT_EQ(program_.names(), (std::vector<std::string>{"ABC123"}));
}

TEST_F(VehiclesTest, AnExistingPlateIsAppendedOnceMoreAndItsFolderLeftAlone) {
  add("ABC123", "45");
  program_.write("ABC123/napiadat.dat", "logbook");
  add("ABC123", "50");
  EXPECT_EQ(stored(), std::string("ABC123  \x2D\x00"
                                  "ABC123  \x32\x00",
                                  2 * kRecord));
  EXPECT_EQ(program_.read("ABC123/napiadat.dat"), "logbook");
}

TEST_F(VehiclesTest, APlateThatLeadsOutOfTheProgramFolderIsRecordedWithoutAFolder) {
  for (const char* plate : {"..", ".", "a/b", "a\\b", "/tmp/x"}) add(plate, "45");
  EXPECT_EQ(loadVehicles(files_, folders_).count(), 5);
  EXPECT_EQ(loadVehicles(files_, folders_).record(1).plate.trimmed(), "..");
  EXPECT_TRUE(program_.names().empty());
}

TEST_F(VehiclesTest, APlateOfFortyLettersIsCutInTheListAndWholeInTheFolderName) {
  const std::string plate(40, 'X');
  add(plate, "45");
  EXPECT_EQ(stored(), std::string("XXXXXXXX\x2D\x00", kRecord));
  EXPECT_EQ(program_.names(), (std::vector<std::string>{plate}));
}

TEST_F(VehiclesTest, LettersOutsideTheCodePageAreStoredAsQuestionMarks) {
  add("Жó本", "45");
  EXPECT_EQ(stored(), std::string("?\xF3?     \x2D\x00", kRecord));
  EXPECT_EQ(program_.names(), (std::vector<std::string>{"Жó本"}));
}

TEST_F(VehiclesTest, AFolderThatCannotBeMadeIsNoFailure) {
  program_.write("ABC123", "a file has the folder's name");
  add("ABC123", "45");
  add(std::string(300, 'X'), "45");
  EXPECT_EQ(loadVehicles(files_, folders_).count(), 2);
  EXPECT_EQ(program_.names(), (std::vector<std::string>{"ABC123"}));
}

TEST_F(VehiclesTest, DeletingLeavesTheVehiclesFolderAndLogbook) {
  add("ABC123", "45");
  program_.write("ABC123/napiadat.dat", "logbook");
  remove(1);
  EXPECT_EQ(stored(), "");
  EXPECT_EQ(program_.read("ABC123/napiadat.dat"), "logbook");
}

/// Notes the folders that are synced and can refuse to sync one.
class WatchedFolders final : public test::ForwardingFileSystem {
 public:
  int syncFolder(const std::string& path) override {
    synced.push_back(path);
    return path == refused ? -1 : ForwardingFileSystem::syncFolder(path);
  }

  std::vector<std::string> synced;
  std::string refused;
};

TEST_F(VehiclesTest, ANewVehicleFolderIsPutOnTheDiskWithItsName) {
  WatchedFolders watched;
  addVehicle(watched, folders_, "ABC123", "45");
  EXPECT_EQ(watched.synced, (std::vector<std::string>{current_.path(), program_.path()}));
}

TEST_F(VehiclesTest, AProgramFolderThatCannotBeSyncedIsNoFailure) {
  WatchedFolders watched;
  watched.refused = program_.path();
  addVehicle(watched, folders_, "ABC123", "45");
  EXPECT_EQ(loadVehicles(files_, folders_).count(), 1);
  EXPECT_TRUE(program_.has("ABC123"));
}

TEST_F(VehiclesTest, APlateThatDiffersFromAListedOneInCaseAloneIsAddedLikeAnEqualOne) {
  add("ABC123", "45");
  add("abc123", "60");
  add("ŐRI 01", "50");
  add("őri 01", "55");
  const std::string expected(
      "ABC123  -\x00"
      "abc123  <\x00"
      "\xD5RI 01  2\x00"
      "\xF5ri 01  7\x00",
      4 * kRecord);
  EXPECT_EQ(stored(), expected);
}

TEST(VehicleInput, ATankSizeOfZeroEmptyOrWithoutANumberIsMissing) {
  for (const char* text : {"", "0", " 0 ", "0.0", "-0", ",5", "liter", "x45"})
    EXPECT_TRUE(isTankSizeMissing(text)) << text;
}

TEST(VehicleInput, AnyOtherLeadingNumberIsATankSize) {
  for (const char* text : {"45", "-5", "45.6", "45,6", "0.4", "45 liter", " 4 5"})
    EXPECT_FALSE(isTankSizeMissing(text)) << text;
}

TEST(VehicleInput, APlateOfOnlySpacesIsMissing) {
  EXPECT_TRUE(isPlateMissing(""));
  EXPECT_TRUE(isPlateMissing("    "));
  EXPECT_FALSE(isPlateMissing("  A "));
  EXPECT_FALSE(isPlateMissing(".."));
}

TEST(TankSize, IsFoundByThePlateWithoutTheSpacesAroundIt) {
  const Vehicles vehicles = listOf({vehicle(" ABC123", 45), vehicle("DEF456", 60)});
  EXPECT_EQ(tankSizeOf(vehicles, "ABC123  "), 45);
  EXPECT_EQ(tankSizeOf(vehicles, "  DEF456"), 60);
}

TEST(TankSize, OfSeveralEqualPlatesTheLastOneCounts) {
  const Vehicles vehicles = listOf({vehicle("ABC123", 45), vehicle("DEF456", 60), vehicle("ABC123", 50)});
  EXPECT_EQ(tankSizeOf(vehicles, "ABC123"), 50);
}

TEST(TankSize, OfAnUnknownPlateIsZeroAndCaseCounts) {
  const Vehicles vehicles = listOf({vehicle("ABC123", 45)});
  EXPECT_EQ(tankSizeOf(vehicles, "abc123"), 0);
  EXPECT_EQ(tankSizeOf(vehicles, "ABC12"), 0);
  EXPECT_EQ(tankSizeOf(Vehicles(), "ABC123"), 0);
}

TEST(VehicleListText, ShowsThePlateAsStoredAndTheTank) {
  EXPECT_EQ(listText(vehicle("ABC123", 45)), "ABC123   - 45");
  EXPECT_EQ(listText(vehicle(" ŐŰ-1234", -5)), " ŐŰ-1234 - -5");
}

}  // namespace
}  // namespace tarvik::settings
