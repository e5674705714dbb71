#include "tyres/tyre_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik::tyres {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

TyreSet setOf(std::string_view plate, std::int32_t maxKm = 40'000, std::int32_t kmRun = 10'000) {
  return {.plate = core::FixedText<10>(plate),
          .type = core::FixedText<30>(" Gislaved "),
          .size = {},
          .maxKm = maxKm,
          .kmRun = kmRun};
}

std::string lifeOf(std::int32_t maxKm, std::int32_t kmRun) {
  return remainingLifeText(setOf("A", maxKm, kmRun));
}

TEST(RemainingLife, OfAQuarterRunIsSeventyFive) {
  EXPECT_EQ(lifeOf(40'000, 10'000), "75%-os");
}

TEST(RemainingLife, OfAnUnusedSetIsAHundred) {
  EXPECT_EQ(lifeOf(40'000, 0), "100%-os");
}

TEST(RemainingLife, PastTheMaximumIsNegative) {
  EXPECT_EQ(lifeOf(40'000, 48'000), "-20%-os");
}

TEST(RemainingLife, RoundsTheHundredthHalvesToEven) {
  EXPECT_EQ(lifeOf(150, 100), "50%-os");  // 1.5 → 2
  EXPECT_EQ(lifeOf(250, 100), "50%-os");  // 2.5 → 2
  EXPECT_EQ(lifeOf(350, 100), "75%-os");  // 3.5 → 4
}

TEST(RemainingLife, DropsTheFractionOfThePercentUsed) {
  EXPECT_EQ(lifeOf(300, 2), "100%-os");   // 2 ÷ 3 = 0.67 → 0
  EXPECT_EQ(lifeOf(300, -4), "101%-os");  // −4 ÷ 3 = −1.33 → −1
}

TEST(RemainingLife, HasNoFigureWhenTheHundredthRoundsToZero) {
  for (const int maxKm : {0, 1, 49, 50, -1, -50}) EXPECT_EQ(lifeOf(maxKm, 100), "–") << maxKm;
}

TEST(RemainingLife, HasAFigureFromFiftyOneKilometres) {
  EXPECT_EQ(lifeOf(51, 30), "70%-os");
  EXPECT_EQ(lifeOf(-51, 30), "130%-os");
}

TEST(RemainingLife, OfTheLargestFiguresDoesNotOverflow) {
  EXPECT_EQ(lifeOf(51, -2'147'483'647 - 1), "2147483748%-os");
  EXPECT_EQ(lifeOf(-100, -2'147'483'647 - 1), "-2147483548%-os");
}

TEST(SeasonText, OfAllSeasonHasALeadingSpace) {
  EXPECT_EQ(seasonText(0), "Téli");
  EXPECT_EQ(seasonText(1), "Nyári");
  EXPECT_EQ(seasonText(2), " 4 évszak");
}

TEST(SeasonText, OfAnUnknownSeasonIsEmpty) {
  EXPECT_EQ(seasonText(3), "");
  EXPECT_EQ(seasonText(-1), "");
}

TEST(TyreRows, ShowThePlateAsStoredAndTheTypeTrimmed) {
  const TyreSet sets[] = {{.plate = core::FixedText<10>("ABC-123"),
                           .season = kAllSeason,
                           .type = core::FixedText<30>(" Gislaved "),
                           .size = {},
                           .maxKm = 40'000,
                           .onCar = kFitted,
                           .kmRun = 1'234'567}};
  EXPECT_THAT(rowsOf(TyreSets::of(sets), std::nullopt), ElementsAre(TyreRow{.plate = "ABC-123   ",
                                                                            .type = "Gislaved",
                                                                            .season = " 4 évszak",
                                                                            .kmRun = "1234567",
                                                                            .remainingLife = "-2986%-os",
                                                                            .isFitted = true,
                                                                            .number = 1}));
}

TEST(TyreRows, OfOneVehicleKeepTheirRecordNumbersInFileOrder) {
  const TyreSet sets[] = {setOf("ABC-123"), setOf("DEF-456"), setOf(" ABC-123")};
  EXPECT_THAT(rowsOf(TyreSets::of(sets), " ABC-123  "),
              ElementsAre(Field(&TyreRow::number, 1), Field(&TyreRow::number, 3)));
}

TEST(TyreRows, CompareThePlateExactly) {
  const TyreSet sets[] = {setOf("ABC-123")};
  EXPECT_THAT(rowsOf(TyreSets::of(sets), "abc-123"), IsEmpty());
  EXPECT_THAT(rowsOf(TyreSets::of(sets), "ABC-12"), IsEmpty());
}

TEST(TyreRows, OfAllVehiclesAreAllRecords) {
  const TyreSet sets[] = {setOf("ABC-123"), setOf("DEF-456"), setOf("")};
  EXPECT_THAT(rowsOf(TyreSets::of(sets), std::nullopt), SizeIs(3));
}

TEST(TyreRows, GoOnBehindASetWithoutAUsableMaximum) {
  const TyreSet sets[] = {setOf("A"), setOf("A", 50), setOf("A")};
  EXPECT_THAT(rowsOf(TyreSets::of(sets), "A"),
              ElementsAre(Field(&TyreRow::remainingLife, "75%-os"), Field(&TyreRow::remainingLife, "–"),
                          Field(&TyreRow::remainingLife, "75%-os")));
}

TEST(TyreRows, MarkOnlyTheValueOneAsFitted) {
  TyreSet sets[] = {setOf("A"), setOf("A"), setOf("A")};
  sets[1].onCar = 1;
  sets[2].onCar = -1;
  EXPECT_THAT(rowsOf(TyreSets::of(sets), "A"),
              ElementsAre(Field(&TyreRow::isFitted, false), Field(&TyreRow::isFitted, true),
                          Field(&TyreRow::isFitted, false)));
}

}  // namespace
}  // namespace tarvik::tyres
