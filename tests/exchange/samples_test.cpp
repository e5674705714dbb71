#include <gmock/gmock.h>

#include <algorithm>

#include "tests/exchange/reading.h"

// The exports of other logbooks, by the structure of their heads. All but the real one at the end hold the
// same ten invented fill-ups: 400.93 litres in all and 41.27 in the first, over 5,888 km, which is 6.11
// litres per 100 km. Whole numbers of the first fill-up's litres count in the shown figure: (400.93 - 41)
// / 58.88 = 6.11.

namespace tarvik::test {
namespace {

using exchange::Choices;
using exchange::DayOrder;
using exchange::DistanceUnit;
using exchange::Question;
using Why = exchange::UnreadRow::Why;
using exchange::VolumeUnit;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kShown = "6,11 Liter/100Km";

// A sample as it is read once its questions are answered, which have to be these.
ReadLog readSample(const std::string& name, const std::vector<Question>& questions = {},
                   const Choices& answers = {}) {
  EXPECT_EQ(readLog(sample(name)).reading.open, questions) << name;
  ReadLog log = readLog(sample(name), answers);
  EXPECT_THAT(log.reading.open, IsEmpty()) << name;
  return log;
}

Choices euros(int rate) {
  return {.currency = "EUR", .rates = {{"EUR", core::Ratio(rate)}}};
}

int countOf(const ReadLog& log, Why why) {
  return static_cast<int>(std::ranges::count(log.rows.unread, why, &exchange::UnreadRow::why));
}

// What every sample must come to, whatever its units.
void expectTheTenFillUps(const core::Logbook& logbook) {
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  const core::NapiAdat first = logbook.record(1);
  EXPECT_EQ(dateOf(first), (core::CalendarDate{2024, 1, 5}));
  EXPECT_EQ(first.KmOra, 48'210);
  EXPECT_EQ(first.Megjegyzes.trimmed(), "első");
  const core::NapiAdat partial = logbook.record(3);
  EXPECT_EQ(dateOf(partial), (core::CalendarDate{2024, 2, 2}));
  EXPECT_EQ(partial.Teletank, 0);
  EXPECT_EQ(logbook.record(4).Teletank, core::kFlagSet);
  EXPECT_EQ(logbook.record(8).Megjegyzes.trimmed(), "idézet: \"jó\", pont; vessző");
  EXPECT_EQ(dateOf(logbook.record(9)), (core::CalendarDate{2024, 5, 13}));
  EXPECT_EQ(logbook.record(9).KmOra, 53'502);
  EXPECT_EQ(logbook.record(10).KmOra, 54'098);
}

TEST(ASampleLog, OfQuotedSectionsWithHashMarksIsUnderstood) {
  const ReadLog log = readSample("hash_sections_quoted.csv", {Question::Currency}, euros(390));
  const auto plan = planOf(log);
  expectTheTenFillUps(logbookOf(plan));
  // "Price" is the total there, because the price of a litre has a column of its own: 65.58 × 390.
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'576);
  EXPECT_EQ(plan.entries[0].entry.TankoltLiter.tenThousandths, 412'700);
  EXPECT_EQ(countOf(log, Why::OtherSection), 4);
  EXPECT_TRUE(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore));
  EXPECT_TRUE(plan.entries[5].entry.Fogyasztas.isZero());
}

TEST(ASampleLog, OfRefuellingServiceAndExpenseSectionsIsUnderstood) {
  Choices answers = euros(400);
  answers.distance = DistanceUnit::Kilometre;
  const ReadLog log =
      readSample("refuelling_service_expense.csv", {Question::DistanceUnit, Question::Currency}, answers);
  const auto plan = planOf(log);
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 26'232);  // 65.58 × 400
  EXPECT_EQ(countOf(log, Why::OtherSection), 4);
}

TEST(ASampleLog, OfNamedRecordSectionsInMilesAndAmericanGallonsIsUnderstood) {
  const ReadLog log =
      readSample("named_record_sections_us.csv", {Question::Rate}, {.rates = {{"USD", core::Ratio(350)}}});
  expectTheTenFillUps(logbookOf(planOf(log)));
  EXPECT_EQ(log.reading.distance, DistanceUnit::Mile);
  EXPECT_EQ(log.reading.volume, VolumeUnit::UsGallon);
  EXPECT_EQ(log.reading.dayOrder, DayOrder::MonthFirst);
}

TEST(ASampleLog, OfOneTableWithMarksForPartialFillUpsIsUnderstood) {
  const auto plan = planOf(readSample("flat_partial_marks.csv", {Question::Currency}, euros(390)));
  expectTheTenFillUps(logbookOf(plan));
  // "price" stands alone and changes little: it is that of a litre. 41.27 × 1.589 × 390 = 25,575.4...
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'575);
  EXPECT_TRUE(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore));
}

TEST(ASampleLog, InGermanWithSemicolonsAndATotalIsUnderstood) {
  const ReadLog log =
      readSample("german_semicolons.csv", {Question::Rate}, {.rates = {{"EUR", core::Ratio(390)}}});
  const core::Logbook logbook = logbookOf(planOf(log));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(logbook.record(1).KmOra, 48'210);
  EXPECT_EQ(logbook.record(3).Teletank, 0);
  EXPECT_EQ(logbook.record(1).TankoltKtg, 25'576);
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(12, Why::Total)));
}

TEST(ASampleLog, OfSectionsInCapitalsWithNotesOverSeveralLinesIsUnderstood) {
  Choices answers = euros(350);
  answers.volume = VolumeUnit::UsGallon;
  const ReadLog log =
      readSample("capital_record_sections.csv", {Question::Gallon, Question::Currency}, answers);
  const core::Logbook logbook = logbookOf(planOf(log));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(log.reading.distance, DistanceUnit::Mile);
  EXPECT_EQ(logbook.record(3).Megjegyzes.trimmed(), "fél  tank");
  EXPECT_EQ(logbook.record(3).Teletank, 0);
  EXPECT_EQ(log.rows.rows[3].line, 12);  // the notes of the rows before it take two lines more each
}

TEST(ASampleLog, WithTheMonthFirstIsUnderstood) {
  Choices answers = euros(350);
  answers.distance = DistanceUnit::Kilometre;
  answers.volume = VolumeUnit::Litre;
  const ReadLog log = readSample("flat_fill_to_full_month_first.csv",
                                 {Question::DistanceUnit, Question::VolumeUnit, Question::Currency}, answers);
  expectTheTenFillUps(logbookOf(planOf(log)));
  EXPECT_EQ(log.reading.dayOrder, DayOrder::MonthFirst);
}

TEST(ASampleLog, WithServicesBetweenTheFillUpsTakesThemAsEntriesWithANoteAndACost) {
  Choices answers = euros(390);
  answers.distance = DistanceUnit::Kilometre;
  const ReadLog log =
      readSample("services_between_fillups.csv", {Question::DistanceUnit, Question::Currency}, answers);
  const auto plan = planOf(log);
  ASSERT_EQ(plan.entries.size(), 12U);
  const core::NapiAdat& oil = plan.entries[5].entry;
  EXPECT_EQ(oil.KmOra, 50'500);
  EXPECT_EQ(oil.Megjegyzes.trimmed(), "Oil Change, 5W-30");
  EXPECT_EQ(oil.MegjKtg, 35'061);  // 89.90 × 390
  EXPECT_TRUE(oil.TankoltLiter.isZero());
  const exchange::PlannedEntry& parking = plan.entries[9];
  EXPECT_EQ(parking.entry.Megjegyzes.trimmed(), "Parking");
  EXPECT_EQ(parking.entry.KmOra, 52'871);  // that of the fill-up before it
  EXPECT_TRUE(parking.doubts.contains(exchange::Doubt::OdometerTaken));
  EXPECT_EQ(shownConsumption(logbookOf(plan)), kShown);
}

TEST(ASampleLog, KeptByHandInHungarianIsUnderstood) {
  const ReadLog log = readSample("hungarian_table.csv");
  const core::Logbook logbook = logbookOf(planOf(log));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(logbook.record(1).TankoltKtg, 25'575);
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(1, Why::Title), testing::Pair(2, Why::Empty),
                                        testing::Pair(14, Why::Total)));
}

TEST(ASampleLog, OfADatabaseWithTwoCarsUnderOneNumberIsToldByItsReadings) {
  Choices answers{.distance = DistanceUnit::Kilometre, .volume = VolumeUnit::Litre, .vehicle = 1};
  answers.currency = "EUR";
  answers.rates = {{"EUR", core::Ratio(390)}};
  const ReadLog log = readSample(
      "database_dump_two_cars.csv",
      {Question::Vehicle, Question::DistanceUnit, Question::VolumeUnit, Question::Currency}, answers);
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[0].rows, 4U);
  const auto plan = planOf(log);
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'576);  // 65.58 × 390
  EXPECT_EQ(countOf(log, Why::OtherVehicle), 4);
}

TEST(ASampleLog, WithDayMonthAndYearApartTakesItsServiceAsANote) {
  Choices answers = euros(390);
  answers.distance = DistanceUnit::Kilometre;
  answers.volume = VolumeUnit::Litre;
  const ReadLog log = readSample("day_month_year_apart.csv",
                                 {Question::DistanceUnit, Question::VolumeUnit, Question::Currency}, answers);
  auto plan = planOf(log);
  ASSERT_EQ(plan.entries.size(), 11U);
  EXPECT_EQ(plan.entries[5].entry.Megjegyzes.trimmed(), "Engine Oil");
  EXPECT_EQ(plan.entries[5].entry.MegjKtg, 35'061);  // 89.90 × 390
  EXPECT_EQ(plan.entries[5].entry.TankoltKtg, 0);
  EXPECT_TRUE(plan.entries[6].doubts.contains(exchange::Doubt::MissedBefore));
  plan.entries[5].isTaken = false;
  expectTheTenFillUps(logbookOf(plan));
}

TEST(ASampleLog, OfSnakeCaseHeadsWithUnitsInCodesIsAskedForTheDistance) {
  Choices answers{.distance = DistanceUnit::Kilometre};
  answers.rates = {{"EUR", core::Ratio(390)}};
  const auto plan =
      planOf(readSample("snake_case_dump.csv", {Question::DistanceUnit, Question::Rate}, answers));
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'576);
  EXPECT_TRUE(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore));
}

// 37.71 × 350 = 13,198.5.
TEST(ASampleLog, KeptByHandInAmericanIsAskedForMilesAndGallons) {
  Choices answers{.distance = DistanceUnit::Mile, .volume = VolumeUnit::UsGallon};
  answers.rates = {{"USD", core::Ratio(350)}};
  const ReadLog log =
      readSample("american_table.csv", {Question::DistanceUnit, Question::Gallon, Question::Rate}, answers);
  const auto plan = planOf(log);
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 13'198);  // 13,198.5, halves to even
  EXPECT_EQ(log.reading.dayOrder, DayOrder::MonthFirst);
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(1, Why::Title), testing::Pair(13, Why::Total)));
}

// 41.27 × 1.499 × 455 = 28,147.9...
TEST(ASampleLog, KeptByHandInBritishCountsPenceAsHundredthsOfPounds) {
  Choices answers{.distance = DistanceUnit::Mile};
  answers.rates = {{"GBP", core::Ratio(455)}};
  const auto plan =
      planOf(readSample("british_table.csv", {Question::DistanceUnit, Question::Rate}, answers));
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 28'148);
}

TEST(ASampleLog, KeptByHandInItalianAndGermanIsAskedForTheRateAlone) {
  const Choices answers{.rates = {{"EUR", core::Ratio(390)}}};
  const ReadLog italian = readSample("italian_table.csv", {Question::Rate}, answers);
  const auto plan = planOf(italian);
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'576);
  EXPECT_THAT(leftOut(italian), ElementsAre(testing::Pair(12, Why::Total)));
  const ReadLog german = readSample("german_table.csv", {Question::Rate}, answers);
  const auto byPrice = planOf(german);
  expectTheTenFillUps(logbookOf(byPrice));
  EXPECT_EQ(byPrice.entries[0].entry.TankoltKtg, 25'575);  // 41.27 × 1.589 × 390 = 25,575.4...
  EXPECT_THAT(leftOut(german), ElementsAre(testing::Pair(1, Why::Title), testing::Pair(13, Why::Total)));
}

// 41.27 × 102.50 = 4,230.18 rupees, × 4.2.
TEST(ASampleLog, KeptByHandInIndianIsAskedForTheRateAlone) {
  const auto plan =
      planOf(readSample("indian_table.csv", {Question::Rate}, {.rates = {{"INR", core::Ratio(42, 10)}}}));
  expectTheTenFillUps(logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 17'767);  // 17,766.756
}

// 3,312.28 litres, 51.29 in the first, over 74,489 km: (3,312.28 - 51) / 744.89 = 4.378.
TEST(ARealLog, OfAnEstateShowsItsTotalLitresOverItsTotalDistance) {
  std::ifstream in(std::string(TARVIK_TEST_DATA) + "/fuel_log_estate.csv");
  const ReadLog file = readLog(std::string(std::istreambuf_iterator<char>(in), {}));
  const core::Logbook logbook = logbookOf(planOf(file));
  ASSERT_EQ(logbook.count(), 78);
  EXPECT_EQ(shownConsumption(logbook), "4,38 Liter/100Km");
  EXPECT_THAT(file.reading.open, IsEmpty());
  EXPECT_THAT(leftOut(file), IsEmpty());
}

}  // namespace
}  // namespace tarvik::test
