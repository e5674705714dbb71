#include <gmock/gmock.h>

#include <algorithm>

#include "core/totals.h"
#include "tests/core/entries.h"
#include "tests/exchange/reading.h"

// The exports of other logbooks, by the structure of their heads. All but the real one at the end hold the
// same ten invented fill-ups: 400.93 litres in all and 41.27 in the first, over 5,888 km, which is 6.11
// litres per 100 km. Whole numbers of the first fill-up's litres count in the shown figure: (400.93 - 41)
// / 58.88 = 6.11.

namespace tarvik::test {
namespace {

using exchange::Choices;
using exchange::DistanceUnit;
using exchange::Question;
using Why = exchange::UnreadRow::Why;
using exchange::VolumeUnit;
using testing::ElementsAre;
using testing::IsEmpty;

using Entries = std::vector<core::NapiAdat>;

constexpr const char* kShown = "6,11 Liter/100Km";

int countOf(const ReadLog& log, Why why) {
  return static_cast<int>(std::ranges::count(log.rows.unread, why, &exchange::UnreadRow::why));
}

// The average consumption that the main screen shows of a logbook.
std::string shownConsumption(const Entries& entries) {
  core::Totals totals;
  core::updateTotals(listingOf(entries), totals);
  return totals.fogyaszt.value_or("");
}

core::CalendarDate dateOf(const core::NapiAdat& entry) {
  return core::calendarDate(core::dayFromStored(entry.Datum).value());
}

// What every sample must come to, whatever its units.
void expectTheTenFillUps(const Entries& entries) {
  ASSERT_EQ(entries.size(), 10U);
  EXPECT_EQ(shownConsumption(entries), kShown);
  const core::NapiAdat& first = entries[0];
  EXPECT_EQ(dateOf(first), (core::CalendarDate{2024, 1, 5}));
  EXPECT_EQ(first.KmOra, 48'210);
  EXPECT_EQ(first.Megjegyzes.trimmed(), "első");
  const core::NapiAdat& partial = entries[2];
  EXPECT_EQ(dateOf(partial), (core::CalendarDate{2024, 2, 2}));
  EXPECT_EQ(partial.Teletank, 0);
  EXPECT_EQ(entries[3].Teletank, core::kFlagSet);
  EXPECT_EQ(entries[7].Megjegyzes.trimmed(), "idézet: \"jó\", pont; vessző");
  EXPECT_EQ(dateOf(entries[8]), (core::CalendarDate{2024, 5, 13}));
  EXPECT_EQ(entries[8].KmOra, 53'502);
  EXPECT_EQ(entries[9].KmOra, 54'098);
}

// A sample, what it asks and what is answered, and what its first fill-up then cost in forints.
struct Sample {
  const char* name;
  std::vector<Question> questions;
  Choices answers;
  int forints = 0;
  bool tellsMissed = false;  // that a fill-up is missing before the sixth one
  std::vector<std::pair<int, Why>> leftOut{};
};

ReadLog readSample(const Sample& read) {
  EXPECT_EQ(readLog(sample(read.name)).reading.open, read.questions) << read.name;
  ReadLog log = readLog(sample(read.name), read.answers);
  EXPECT_THAT(log.reading.open, IsEmpty()) << read.name;
  return log;
}

std::map<std::string, core::Ratio> rate(const char* currency, core::Ratio forints) {
  return {{currency, forints}};
}

constexpr auto kKilometre = DistanceUnit::Kilometre;
constexpr auto kMile = DistanceUnit::Mile;
constexpr auto kLitre = VolumeUnit::Litre;
constexpr auto kUsGallon = VolumeUnit::UsGallon;

// The bill of the first fill-up is 65.58; its price of a litre, 1.589, makes 65.578 of 41.27 litres.
const Sample kSamples[] = {
    {.name = "hash_sections_quoted.csv",  // "Price" is the bill: the price of a litre has a column of its own
     .questions = {Question::Currency},
     .answers = {.currency = "EUR", .rates = rate("EUR", 390)},
     .forints = 25'576,
     .tellsMissed = true},
    {.name = "refuelling_service_expense.csv",
     .questions = {Question::DistanceUnit, Question::Currency},
     .answers = {.distance = kKilometre, .currency = "EUR", .rates = rate("EUR", 400)},
     .forints = 26'232},
    {.name = "named_record_sections_us.csv",  // 37.71 dollars
     .questions = {Question::Rate},
     .answers = {.rates = rate("USD", 350)},
     .forints = 13'198,
     .tellsMissed = true},
    {.name = "flat_partial_marks.csv",  // "price" changes little: it is that of a litre
     .questions = {Question::Currency},
     .answers = {.currency = "EUR", .rates = rate("EUR", 390)},
     .forints = 25'575,
     .tellsMissed = true},
    {.name = "flat_fill_to_full_month_first.csv",
     .questions = {Question::DistanceUnit, Question::VolumeUnit, Question::Currency},
     .answers = {.distance = kKilometre, .volume = kLitre, .currency = "EUR", .rates = rate("EUR", 350)},
     .forints = 22'953,
     .tellsMissed = true},
    {.name = "database_dump_two_cars.csv",
     .questions = {Question::Vehicle, Question::DistanceUnit, Question::VolumeUnit, Question::Currency},
     .answers = {.distance = kKilometre,
                 .volume = kLitre,
                 .vehicle = 1,
                 .currency = "EUR",
                 .rates = rate("EUR", 390)},
     .forints = 25'576},
    {.name = "snake_case_dump.csv",
     .questions = {Question::DistanceUnit, Question::Rate},
     .answers = {.distance = kKilometre, .rates = rate("EUR", 390)},
     .forints = 25'576,
     .tellsMissed = true},
    {.name = "hungarian_table.csv",
     .questions = {},
     .answers = {},
     .forints = 25'575,
     .leftOut = {{1, Why::Title}, {2, Why::Empty}, {14, Why::Total}}},
    {.name = "american_table.csv",  // 37.71 × 350 = 13,198.5, halves to even
     .questions = {Question::DistanceUnit, Question::Gallon, Question::Rate},
     .answers = {.distance = kMile, .volume = kUsGallon, .rates = rate("USD", 350)},
     .forints = 13'198,
     .leftOut = {{1, Why::Title}, {13, Why::Total}}},
    {.name = "british_table.csv",  // 41.27 × 149.9 pence × 455 = 28,147.9
     .questions = {Question::DistanceUnit, Question::Rate},
     .answers = {.distance = kMile, .rates = rate("GBP", 455)},
     .forints = 28'148},
    {.name = "italian_table.csv",
     .questions = {Question::Rate},
     .answers = {.rates = rate("EUR", 390)},
     .forints = 25'576,
     .leftOut = {{12, Why::Total}}},
    {.name = "german_table.csv",
     .questions = {Question::Rate},
     .answers = {.rates = rate("EUR", 390)},
     .forints = 25'575,
     .leftOut = {{1, Why::Title}, {13, Why::Total}}},
    {.name = "indian_table.csv",  // 41.27 × 102.50 = 4,230.18 rupees: 17,766.756
     .questions = {Question::Rate},
     .answers = {.rates = rate("INR", core::Ratio(42, 10))},
     .forints = 17'767}};

TEST(ASampleLog, ComesToTheTenFillUps) {
  for (const Sample& read : kSamples) {
    SCOPED_TRACE(read.name);
    const ReadLog log = readSample(read);
    const auto plan = planOf(log);
    expectTheTenFillUps(plan.taken());
    EXPECT_EQ(plan.entries[0].entry.TankoltKtg, read.forints);
    EXPECT_EQ(plan.entries[5].doubts.contains(exchange::Doubt::MissedBefore), read.tellsMissed);
    EXPECT_EQ(plan.entries[5].entry.Fogyasztas.isZero(), read.tellsMissed);
    EXPECT_TRUE(read.leftOut.empty() || read.leftOut == leftOut(log));
  }
}

TEST(ASampleLog, OfSeveralSectionsLeavesTheOthersOut) {
  for (const char* name : {"hash_sections_quoted.csv", "refuelling_service_expense.csv"})
    EXPECT_EQ(countOf(readLog(sample(name)), Why::OtherSection), 4) << name;
}

TEST(ASampleLog, OfTwoCarsUnderOneNumberIsToldByItsReadings) {
  const ReadLog log = readLog(sample("database_dump_two_cars.csv"), {.vehicle = 1});
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[0].rows, 4U);
  EXPECT_EQ(countOf(log, Why::OtherVehicle), 4);
}

TEST(ASampleLog, InGermanWithSemicolonsAndATotalIsUnderstood) {
  const ReadLog log = readSample({.name = "german_semicolons.csv",
                                  .questions = {Question::Rate},
                                  .answers = {.rates = rate("EUR", 390)}});
  const Entries entries = planOf(log).taken();
  ASSERT_EQ(entries.size(), 10U);
  EXPECT_EQ(shownConsumption(entries), kShown);
  EXPECT_EQ(entries[0].KmOra, 48'210);
  EXPECT_EQ(entries[2].Teletank, 0);
  EXPECT_EQ(entries[0].TankoltKtg, 25'576);
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(12, Why::Total)));
}

TEST(ASampleLog, OfSectionsInCapitalsWithNotesOverSeveralLinesIsUnderstood) {
  const ReadLog log =
      readSample({.name = "capital_record_sections.csv",
                  .questions = {Question::Gallon, Question::Currency},
                  .answers = {.volume = kUsGallon, .currency = "EUR", .rates = rate("EUR", 350)}});
  const Entries entries = planOf(log).taken();
  ASSERT_EQ(entries.size(), 10U);
  EXPECT_EQ(shownConsumption(entries), kShown);
  EXPECT_EQ(log.reading.distance, DistanceUnit::Mile);
  EXPECT_EQ(entries[2].Megjegyzes.trimmed(), "fél  tank");
  EXPECT_EQ(entries[2].Teletank, 0);
  EXPECT_EQ(log.rows.rows[3].line, 12);  // the notes of the rows before it take two lines more each
}

TEST(ASampleLog, WithServicesBetweenTheFillUpsTakesThemAsEntriesWithANoteAndACost) {
  const ReadLog log =
      readSample({.name = "services_between_fillups.csv",
                  .questions = {Question::DistanceUnit, Question::Currency},
                  .answers = {.distance = kKilometre, .currency = "EUR", .rates = rate("EUR", 390)}});
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
  EXPECT_EQ(shownConsumption(plan.taken()), kShown);
}

TEST(ASampleLog, WithDayMonthAndYearApartTakesItsServiceAsANote) {
  const ReadLog log = readSample(
      {.name = "day_month_year_apart.csv",
       .questions = {Question::DistanceUnit, Question::VolumeUnit, Question::Currency},
       .answers = {.distance = kKilometre, .volume = kLitre, .currency = "EUR", .rates = rate("EUR", 390)}});
  auto plan = planOf(log);
  ASSERT_EQ(plan.entries.size(), 11U);
  EXPECT_EQ(plan.entries[5].entry.Megjegyzes.trimmed(), "Engine Oil");
  EXPECT_EQ(plan.entries[5].entry.MegjKtg, 35'061);  // 89.90 × 390
  EXPECT_EQ(plan.entries[5].entry.TankoltKtg, 0);
  EXPECT_TRUE(plan.entries[6].doubts.contains(exchange::Doubt::MissedBefore));
  plan.entries[5].isTaken = false;
  expectTheTenFillUps(plan.taken());
}

// 3,312.28 litres, 51.29 in the first, over 74,489 km: (3,312.28 - 51) / 744.89 = 4.378.
TEST(ARealLog, OfAnEstateShowsItsTotalLitresOverItsTotalDistance) {
  std::ifstream in(std::string(TARVIK_TEST_DATA) + "/fuel_log_estate.csv");
  const ReadLog file = readLog(std::string(std::istreambuf_iterator<char>(in), {}));
  const Entries entries = planOf(file).taken();
  ASSERT_EQ(entries.size(), 78U);
  EXPECT_EQ(shownConsumption(entries), "4,38 Liter/100Km");
  EXPECT_THAT(file.reading.open, IsEmpty());
  EXPECT_THAT(leftOut(file), IsEmpty());
}

}  // namespace
}  // namespace tarvik::test
