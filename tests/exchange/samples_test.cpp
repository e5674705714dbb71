#include <gmock/gmock.h>

#include <algorithm>

#include "tests/exchange/reading.h"

// The exports of other logbooks, by the structure of their heads. All but the real one at the end hold the
// same ten invented fill-ups: 400.93 litres in all and 41.27 in the first, over 5,888 km, which is 6.11
// litres per 100 km. Whole numbers of the first fill-up's litres count in the shown figure: (400.93 - 41)
// / 58.88 = 6.11.

namespace tarvik::test {
namespace {

using exchange::DayOrder;
using exchange::DistanceUnit;
using exchange::LogFile;
using exchange::SkippedSection;
using exchange::VolumeUnit;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kShown = "6,11 Liter/100Km";

LogFile readSample(const std::string& name) {
  return exchange::readLog(sample(name));
}

// What every sample must come to, whatever its units.
void expectTheTenFillUps(const LogFile& file, const core::Logbook& logbook) {
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
  EXPECT_THAT(unreadLines(file), IsEmpty());
}

TEST(ASampleLog, OfQuotedSectionsWithHashMarksIsUnderstood) {
  const LogFile file = readSample("hash_sections_quoted.csv");
  const auto plan = planOf(file, {}, 390);
  expectTheTenFillUps(file, logbookOf(plan));
  EXPECT_EQ(file.distance, DistanceUnit::Kilometre);
  EXPECT_EQ(file.volume, VolumeUnit::Litre);
  EXPECT_TRUE(file.saysWhichAreFull);
  // "Price" is the total there, because the price of a litre has a column of its own: 65.58 × 390.
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'576);
  EXPECT_EQ(plan.entries[0].entry.TankoltLiter.tenThousandths, 412'700);
  EXPECT_THAT(file.skipped,
              ElementsAre(SkippedSection{"Vehicle", 2, 1}, SkippedSection{"CostCategories", 17, 2},
                          SkippedSection{"Costs", 21, 1}));
  EXPECT_TRUE(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore));
}

TEST(ASampleLog, OfRefuellingServiceAndExpenseSectionsIsUnderstood) {
  const LogFile file = readSample("refuelling_service_expense.csv");
  const auto plan = planOf(file);
  expectTheTenFillUps(file, logbookOf(plan));
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 66);  // 65.58 of its own currency, not yet exchanged
  EXPECT_THAT(file.skipped, ElementsAre(SkippedSection{"Service", 15, 1}, SkippedSection{"Expense", 19, 2},
                                        SkippedSection{"Vehicle", 24, 1}));
}

TEST(ASampleLog, OfNamedRecordSectionsInMilesAndAmericanGallonsIsUnderstood) {
  const LogFile file = readSample("named_record_sections_us.csv");
  expectTheTenFillUps(file, logbookOf(planOf(file, {}, 350)));
  EXPECT_EQ(file.distance, DistanceUnit::Mile);
  EXPECT_EQ(file.volume, VolumeUnit::UsGallon);
  EXPECT_FALSE(file.isGallonOpen);
  EXPECT_EQ(file.currency, "USD");
  EXPECT_EQ(file.dayOrder.order, DayOrder::MonthFirst);
  EXPECT_TRUE(file.dayOrder.isCertain);
  EXPECT_EQ(file.skipped.size(), 3U);
  EXPECT_EQ(file.skipped.back().name, "Event Records");
}

TEST(ASampleLog, OfOneTableWithMarksForPartialFillUpsIsUnderstood) {
  const LogFile file = readSample("flat_partial_marks.csv");
  const auto plan = planOf(file, {}, 390);
  expectTheTenFillUps(file, logbookOf(plan));
  // "price" stands alone and changes little: it is that of a litre. 41.27 × 1.589 × 390 = 25,575.4...
  EXPECT_EQ(plan.entries[0].entry.TankoltKtg, 25'575);
  EXPECT_TRUE(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore));
}

TEST(ASampleLog, InGermanWithSemicolonsAndATotalIsUnderstood) {
  const LogFile file = readSample("german_semicolons.csv");
  const core::Logbook logbook = logbookOf(planOf(file, {}, 390));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(logbook.record(1).KmOra, 48'210);
  EXPECT_EQ(logbook.record(3).Teletank, 0);
  EXPECT_EQ(logbook.record(1).TankoltKtg, 25'576);
  EXPECT_EQ(file.currency, "EUR");
  EXPECT_EQ(file.shape.separator, ';');
  ASSERT_THAT(unreadLines(file), ElementsAre(12));
  EXPECT_EQ(file.unread[0].why, exchange::UnreadRow::Why::Total);
}

TEST(ASampleLog, OfSectionsInCapitalsWithNotesOverSeveralLinesIsUnderstood) {
  const LogFile file = readSample("capital_record_sections.csv");
  const core::Logbook logbook = logbookOf(planOf(file, {}, 350));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(file.distance, DistanceUnit::Mile);
  EXPECT_TRUE(file.isGallonOpen);  // "Gal" could be either
  EXPECT_EQ(logbook.record(3).Megjegyzes.trimmed(), "fél  tank");
  EXPECT_EQ(logbook.record(3).Teletank, 0);
  EXPECT_EQ(file.rows[3].line, 12);  // the notes of the rows before it take two lines more each
}

TEST(ASampleLog, WithTheMonthFirstIsUnderstood) {
  const LogFile file = readSample("flat_fill_to_full_month_first.csv");
  expectTheTenFillUps(file, logbookOf(planOf(file)));
  EXPECT_EQ(file.dayOrder.order, DayOrder::MonthFirst);
  EXPECT_EQ(file.currency, "");
}

TEST(ASampleLog, WithServicesBetweenTheFillUpsTakesThemAsEntriesWithANoteAndACost) {
  const LogFile file = readSample("services_between_fillups.csv");
  const auto plan = planOf(file, {}, 390);
  ASSERT_EQ(plan.entries.size(), 12U);
  const core::NapiAdat& oil = plan.entries[5].entry;
  EXPECT_EQ(oil.KmOra, 50'500);
  EXPECT_EQ(oil.Megjegyzes.trimmed(), "Oil Change, 5W-30");
  EXPECT_EQ(oil.MegjKtg, 35'061);  // 89.90 × 390
  EXPECT_TRUE(oil.TankoltLiter.isZero());
  EXPECT_EQ(oil.Teletank, 0);
  const exchange::PlannedEntry& parking = plan.entries[9];
  EXPECT_EQ(parking.entry.Megjegyzes.trimmed(), "Parking");
  EXPECT_EQ(parking.entry.KmOra, 52'871);  // that of the fill-up before it
  EXPECT_TRUE(parking.doubts.contains(exchange::Doubt::OdometerTaken));
  EXPECT_EQ(shownConsumption(logbookOf(plan)), kShown);
  EXPECT_EQ(file.dayOrder.order, DayOrder::DayFirst);
}

TEST(ASampleLog, KeptByHandInHungarianIsUnderstood) {
  const LogFile file = readSample("hungarian_table.csv");
  const core::Logbook logbook = logbookOf(planOf(file));
  ASSERT_EQ(logbook.count(), 10);
  EXPECT_EQ(shownConsumption(logbook), kShown);
  EXPECT_EQ(file.currency, "HUF");
  EXPECT_EQ(logbook.record(1).TankoltKtg, 25'575);
  ASSERT_THAT(unreadLines(file), ElementsAre(14));
  EXPECT_EQ(file.unread[0].why, exchange::UnreadRow::Why::Total);
}

// 3,312.28 litres, 51.29 in the first, over 74,489 km: (3,312.28 - 51) / 744.89 = 4.378.
TEST(ARealLog, OfAnEstateShowsItsTotalLitresOverItsTotalDistance) {
  std::ifstream in(std::string(TARVIK_TEST_DATA) + "/fuel_log_estate.csv");
  const LogFile file = exchange::readLog(std::string(std::istreambuf_iterator<char>(in), {}));
  const core::Logbook logbook = logbookOf(planOf(file));
  ASSERT_EQ(logbook.count(), 78);
  EXPECT_EQ(shownConsumption(logbook), "4,38 Liter/100Km");
  EXPECT_EQ(file.currency, "HUF");
  EXPECT_THAT(unreadLines(file), IsEmpty());
}

}  // namespace
}  // namespace tarvik::test
