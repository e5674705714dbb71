#include "tyres/tyre_register.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::tyres {
namespace {

using core::FailureKind;
using core::Ratio;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char kFile[] = "Gumik.dat";

TyreSet setOf(std::string_view plate, std::string_view type = "Gislaved", std::int16_t season = kWinter) {
  return {.plate = core::FixedText<10>(plate),
          .kmWhenFitted = 100'000,
          .season = season,
          .type = core::FixedText<30>(type),
          .size = core::FixedText<15>("195/65 R15"),
          .maxKm = 40'000,
          .kmRun = 10'000};
}

TyreSet fitted(TyreSet set) {
  set.onCar = kFitted;
  return set;
}

TyreFields fieldsOf(std::string maxKm) {
  return {.type = "Barum",
          .size = "175/70 R13",
          .maxKm = std::move(maxKm),
          .season = kSummer,
          .kmWhenFitted = "120000",
          .kmRun = "500"};
}

// Those fields with a maximum of 35 000 km, stored as a set on the car.
TyreSet typedSet(std::string_view plate) {
  return {.plate = core::FixedText<10>(plate),
          .kmWhenFitted = 120'000,
          .season = kSummer,
          .type = core::FixedText<30>("Barum"),
          .size = core::FixedText<15>("175/70 R13"),
          .maxKm = 35'000,
          .onCar = kFitted,
          .kmRun = 500};
}

class TyreRegisterTest : public testing::Test {
 protected:
  void store(const std::vector<TyreSet>& sets) {
    std::string bytes;
    for (const TyreSet& set : sets) bytes += test::textOf(core::encoded(set));
    program_.write(kFile, bytes);
  }
  std::int16_t seasonOfTheNext() {
    NewTyreSet typed{.plate = "GHI-789", .fields = fieldsOf("40000")};
    typed.fields.season = std::nullopt;
    tyres_.record(typed);
    return stored().back().season;
  }
  std::vector<TyreSet> stored() {
    const auto sets = core::loadRecords<TyreSet>(files_, program_ / kFile);
    std::vector<TyreSet> all;
    for (int number = 1; number <= sets.count(); ++number) all.push_back(sets.record(number));
    return all;
  }

  core::SeenRecord seen(int number) {
    return core::loadRecords<TyreSet>(files_, program_ / kFile).seen(number);
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
  TyreRegister tyres_{files_, folders_};
};

// Listing and reading

TEST_F(TyreRegisterTest, AMissingFileIsAnEmptyListAndIsCreatedInTheProgramFolder) {
  EXPECT_THAT(tyres_.listAll(), IsEmpty());
  EXPECT_EQ(program_.read(kFile), "");
  EXPECT_THAT(current_.names(), IsEmpty());
}

TEST_F(TyreRegisterTest, ListsOneVehicleOrAll) {
  store({setOf("ABC-123"), setOf("DEF-456"), setOf("ABC-123")});
  EXPECT_THAT(tyres_.listOf("ABC-123 "), ElementsAre(Field(&TyreRow::number, 1), Field(&TyreRow::number, 3)));
  EXPECT_THAT(tyres_.listAll(), SizeIs(3));
}

TEST_F(TyreRegisterTest, ReadsTheSetOfANumber) {
  store({setOf("ABC-123"), setOf("DEF-456")});
  EXPECT_EQ(tyres_.read(1), setOf("ABC-123"));
  EXPECT_EQ(tyres_.read(2), setOf("DEF-456"));
}

TEST_F(TyreRegisterTest, ReadingANumberThatTheFileDoesNotHaveFails) {
  store({setOf("ABC-123")});
  test::expectFailure(FailureKind::RecordMissing, [&] { tyres_.read(0); });
  test::expectFailure(FailureKind::RecordMissing, [&] { tyres_.read(2); });
}

// The record buffer

// What it holds is seen by a set that is recorded without a season.

TEST_F(TyreRegisterTest, TheBufferHoldsTheLastRecordOfTheFileAfterAListingOfAnyVehicle) {
  store({setOf("ABC-123", "a", kSummer), setOf("DEF-456", "b", kAllSeason)});
  tyres_.listOf("ABC-123");
  EXPECT_EQ(seasonOfTheNext(), kAllSeason);
}

TEST_F(TyreRegisterTest, TheBufferHoldsTheSetThatWasWrittenLast) {
  store({setOf("ABC-123", "a", kSummer), setOf("DEF-456", "b", kAllSeason)});
  tyres_.read(1);
  tyres_.setFitted(seen(2), true);
  EXPECT_EQ(seasonOfTheNext(), kAllSeason);
}

TEST_F(TyreRegisterTest, ListingAnEmptyFileLeavesTheBuffer) {
  store({setOf("ABC-123", "a", kSummer)});
  tyres_.listAll();
  tyres_.remove(seen(1));
  tyres_.listAll();
  EXPECT_EQ(seasonOfTheNext(), kSummer);
}

// Recording

TEST_F(TyreRegisterTest, RecordingAppendsTheSetAsTyped) {
  store({setOf("ABC-123")});
  tyres_.record({.plate = " DEF-456", .isFitted = true, .fields = fieldsOf("35000")});
  EXPECT_THAT(stored(), ElementsAre(setOf("ABC-123"), typedSet(" DEF-456")));
}

TEST_F(TyreRegisterTest, RecordingChecksNoOtherFieldThanTheMaximum) {
  tyres_.record(
      {.plate = "",
       .fields = {
           .type = "", .size = "", .maxKm = "0", .season = kWinter, .kmWhenFitted = "", .kmRun = "sok"}});
  EXPECT_EQ(program_.read(kFile),
            std::string(10, ' ') + std::string(6, '\0') + std::string(45, ' ') + std::string(10, '\0'));
}

TEST_F(TyreRegisterTest, RecordingRoundsTheFiguresHalvesToEven) {
  TyreFields fields = fieldsOf("40000,5");
  fields.kmWhenFitted = "12.5";
  fields.kmRun = "13.5 km";
  tyres_.record({.plate = "A", .fields = fields});
  EXPECT_EQ(stored()[0].maxKm, 40'000);
  EXPECT_EQ(stored()[0].kmWhenFitted, 12);
  EXPECT_EQ(stored()[0].kmRun, 14);
}

TEST_F(TyreRegisterTest, AMaximumThatIsNoNumberIsRefusedAndNothingIsWritten) {
  for (const char* maxKm : {"", "sok", "40000 km", "40.5"})
    test::expectFieldFailure(FailureKind::NotANumber, "txtGumiMaxKm",
                             [&] { tyres_.record({.plate = "A", .fields = fieldsOf(maxKm)}); });
  EXPECT_THAT(program_.names(), IsEmpty());
}

TEST_F(TyreRegisterTest, AFigurePastItsFieldIsRefusedByName) {
  test::expectFieldFailure(FailureKind::OutOfRange, "txtGumiMaxKm",
                           [&] { tyres_.record({.plate = "A", .fields = fieldsOf("2147483648")}); });
  TyreFields fields = fieldsOf("40000");
  fields.kmWhenFitted = "2147483648";
  test::expectFieldFailure(FailureKind::OutOfRange, "txtGumiKmFelszerelKor",
                           [&] { tyres_.record({.plate = "A", .fields = fields}); });
  fields = fieldsOf("40000");
  fields.kmRun = "-2147483649";
  test::expectFieldFailure(FailureKind::OutOfRange, "txtGumiAzotaFutottKm",
                           [&] { tyres_.record({.plate = "A", .fields = fields}); });
  EXPECT_THAT(program_.names(), IsEmpty());
}

TEST_F(TyreRegisterTest, RecordingWithoutASeasonStoresTheSeasonLastReadOrWritten) {
  store({setOf("ABC-123", "a", kAllSeason), setOf("ABC-123", "b", kSummer)});
  TyreFields seasonless = fieldsOf("40000");
  seasonless.season = std::nullopt;

  tyres_.record({.plate = "X", .fields = seasonless});
  EXPECT_EQ(stored()[2].season, kWinter) << "nothing was read yet";
  tyres_.read(1);
  tyres_.record({.plate = "X", .fields = seasonless});
  EXPECT_EQ(stored()[3].season, kAllSeason) << "a set was read";
  TyreFields summer = fieldsOf("40000");
  tyres_.record({.plate = "X", .fields = summer});
  tyres_.record({.plate = "X", .fields = seasonless});
  EXPECT_EQ(stored()[5].season, kSummer) << "a set was written";
}

// Fitting and removing

TEST_F(TyreRegisterTest, FittingAndRemovingChangeNothingButTheMark) {
  store({setOf("A"), setOf("B"), setOf("C")});
  tyres_.setFitted(seen(2), true);
  EXPECT_THAT(stored(), ElementsAre(setOf("A"), fitted(setOf("B")), setOf("C")));
  tyres_.setFitted(seen(2), false);
  EXPECT_THAT(stored(), ElementsAre(setOf("A"), setOf("B"), setOf("C")));
}

TEST_F(TyreRegisterTest, WhatIsChangedIsTheSetThatWasListedLast) {
  store({setOf("A"), setOf("B")});
  tyres_.listOf("B");
  const core::SeenRecord listed = tyres_.seen(2);
  EXPECT_EQ(listed.bytes, core::encoded(setOf("B")));
  store({setOf("A"), setOf("C")});
  test::expectFailure(FailureKind::RecordChanged, [&] { tyres_.remove(listed); });
  tyres_.listOf("A");
  tyres_.remove(tyres_.seen(2));
  EXPECT_THAT(stored(), ElementsAre(setOf("A")));
}

// Changing

TEST_F(TyreRegisterTest, ChangingKeepsThePlateAndTheMark) {
  store({setOf("A"), fitted(setOf("ABC-123"))});
  tyres_.change(seen(2), fieldsOf("35 000,4"));
  EXPECT_THAT(stored(), ElementsAre(setOf("A"), typedSet("ABC-123")));
}

TEST_F(TyreRegisterTest, ChangingWithoutASeasonKeepsTheSetsOwn) {
  store({setOf("A", "a", kAllSeason), setOf("B", "b", kSummer)});
  tyres_.read(2);
  TyreFields seasonless = fieldsOf("40000");
  seasonless.season = std::nullopt;
  tyres_.change(seen(1), seasonless);
  EXPECT_EQ(stored()[0].season, kAllSeason);
}

TEST_F(TyreRegisterTest, AChangeThatIsRefusedNamesTheFieldAndWritesNothing) {
  store({setOf("A")});
  test::expectFieldFailure(FailureKind::NotANumber, "txtMMaxKm",
                           [&] { tyres_.change(seen(1), fieldsOf("")); });
  TyreFields fields = fieldsOf("40000");
  fields.kmWhenFitted = "9999999999";
  test::expectFieldFailure(FailureKind::OutOfRange, "txtMKmFelszKor",
                           [&] { tyres_.change(seen(1), fields); });
  fields = fieldsOf("40000");
  fields.kmRun = "9999999999";
  test::expectFieldFailure(FailureKind::OutOfRange, "txtMAzotaFutott",
                           [&] { tyres_.change(seen(1), fields); });
  EXPECT_THAT(stored(), ElementsAre(setOf("A")));
}

// Deleting

// The distance of a fuelling

TEST_F(TyreRegisterTest, ADistanceIsAddedToTheFirstFittedSetOfTheVehicleAlone) {
  store({setOf("ABC-123"), fitted(setOf("DEF-456")), fitted(setOf("ABC-123", "first")),
         fitted(setOf("ABC-123", "second"))});
  addDistance(files_, folders_, " ABC-123 ", 650);
  TyreSet run = fitted(setOf("ABC-123", "first"));
  run.kmRun = 10'650;
  EXPECT_THAT(stored(), ElementsAre(setOf("ABC-123"), fitted(setOf("DEF-456")), run,
                                    fitted(setOf("ABC-123", "second"))));
}

TEST_F(TyreRegisterTest, ADistanceComparesThePlateExactlyAndTheStoredOneTrimmed) {
  store({fitted(setOf(" ABC-123"))});
  addDistance(files_, folders_, "abc-123", 100);
  EXPECT_EQ(stored()[0].kmRun, 10'000);
  addDistance(files_, folders_, "ABC-123", 100);
  EXPECT_EQ(stored()[0].kmRun, 10'100);
}

TEST_F(TyreRegisterTest, ADistanceMayBeNegativeAndIsRoundedHalvesToEven) {
  store({fitted(setOf("A"))});
  addDistance(files_, folders_, "A", -200);
  EXPECT_EQ(stored()[0].kmRun, 9'800);
  addDistance(files_, folders_, "A", Ratio(1, 2));
  EXPECT_EQ(stored()[0].kmRun, 9'800);
  addDistance(files_, folders_, "A", Ratio(3, 2));
  EXPECT_EQ(stored()[0].kmRun, 9'802);
}

TEST_F(TyreRegisterTest, OnlyTheValueOneCountsAsOnTheCar) {
  TyreSet flagged = setOf("A");
  flagged.onCar = -1;
  store({flagged});
  addDistance(files_, folders_, "A", 100);
  EXPECT_THAT(stored(), ElementsAre(flagged));
}

TEST_F(TyreRegisterTest, ASumPastItsFieldIsRefusedAndNothingIsWritten) {
  TyreSet set = fitted(setOf("A"));
  set.kmRun = 2'147'483'600;
  store({set});
  test::expectFieldFailure(FailureKind::OutOfRange, "txtGumiAzotaFutottKm",
                           [&] { addDistance(files_, folders_, "A", 48); });
  EXPECT_THAT(stored(), ElementsAre(set));
}

TEST_F(TyreRegisterTest, ADistanceOfZeroOrWithoutAFittedSetLocksAndWritesNothing) {
  store({setOf("A"), fitted(setOf("B"))});
  const std::string before = program_.read(kFile);
  test::CountingFileSystem files(files_);
  addDistance(files, folders_, "B", 0);
  addDistance(files, folders_, "A", 100);
  addDistance(files, folders_, "C", 100);
  EXPECT_EQ(files.count(test::Call::TryLock), 0);
  EXPECT_EQ(program_.read(kFile), before);
}

// Another program changes the file between the look and the lock.
class ChangedBeforeTheLock : public test::ForwardingFileSystem {
 public:
  ChangedBeforeTheLock(test::TemporaryFolder& folder, std::string bytes)
      : folder_(folder), bytes_(std::move(bytes)) {}
  int tryLock(int descriptor) override {
    if (!std::exchange(changed_, true)) folder_.write(kFile, bytes_);
    return ForwardingFileSystem::tryLock(descriptor);
  }

 private:
  test::TemporaryFolder& folder_;
  std::string bytes_;
  bool changed_ = false;
};

TEST_F(TyreRegisterTest, ADistanceLooksForTheSetAgainOnceTheFileIsLocked) {
  store({fitted(setOf("A", "first")), fitted(setOf("A", "second"))});
  ChangedBeforeTheLock files(program_, test::textOf(core::encoded(setOf("B"))) +
                                           test::textOf(core::encoded(fitted(setOf("A", "second")))));
  addDistance(files, folders_, "A", 1);
  TyreSet run = fitted(setOf("A", "second"));
  run.kmRun = 10'001;
  EXPECT_THAT(stored(), ElementsAre(setOf("B"), run));
}

TEST_F(TyreRegisterTest, ADistanceForASetThatIsGoneMeanwhileIsDropped) {
  store({fitted(setOf("A"))});
  ChangedBeforeTheLock files(program_, test::textOf(core::encoded(setOf("A"))));
  addDistance(files, folders_, "A", 1);
  EXPECT_THAT(stored(), ElementsAre(setOf("A")));
}

}  // namespace
}  // namespace tarvik::tyres
