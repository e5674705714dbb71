#include "exchange/log_reader.h"

#include <gmock/gmock.h>

#include "core/record_file.h"
#include "tests/exchange/reading.h"

namespace tarvik::test {
namespace {

using exchange::LogFault;
using exchange::LogFile;
using exchange::Meaning;
using exchange::readLog;
using exchange::SkippedSection;
using exchange::UnreadRow;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ALog, OfHeadsAloneHasNoEntriesAndNoFault) {
  const LogFile file = readLog("Date;Odometer;Litres;Cost\n");
  EXPECT_EQ(file.fault, LogFault::None);
  EXPECT_THAT(file.rows, IsEmpty());
  EXPECT_EQ(file.columns.size(), 4U);
  EXPECT_EQ(file.columns[2].meaning, Meaning::Volume);
}

TEST(ALog, WithoutAUsefulTableIsNone) {
  for (const char* text : {"", "\n\n", "hello", "a,b,c\n1,2,3\n", "Date,Cost\n2024-01-01,5\n"})
    EXPECT_EQ(readLog(text).fault, LogFault::NoTable) << text;
}

TEST(ALog, HasItsSeparatorFoundFromAllItsHeads) {
  EXPECT_EQ(readLog("Date;Odometer;Litres\n2024-01-05;1000;40,5\n").shape.separator, ';');
  EXPECT_EQ(readLog("Date,Odometer,Litres\n2024-01-05,1000,40.5\n").shape.separator, ',');
  EXPECT_EQ(readLog("Date\tOdometer\tLitres\n2024-01-05\t1000\t40.5\n").shape.separator, '\t');
  EXPECT_EQ(readLog("Date|Odometer|Litres\n2024-01-05|1000|40.5\n").shape.separator, '|');
  EXPECT_EQ(readLog("'Date','Odometer','Litres'\n'2024-01-05','1000','40.5'\n").shape.quote, '\'');
  // More commas than semicolons in the notes change nothing.
  const LogFile file = readLog("Date;Odometer;Litres;Notes\n2024-01-05;1000;40,5;a,b,c,d,e,f\n");
  EXPECT_EQ(file.shape.separator, ';');
  EXPECT_EQ(file.rows[0].note, "a,b,c,d,e,f");
}

// Nothing but the volumes tells: 40.123 could be forty litres or forty thousand, 12,345 twelve kilometres.
TEST(ALog, TakesTheSignInItsVolumesForDecimalsWhereNothingElseTells) {
  const LogFile points = readLog(
      "Date;Odometer;Litres;Price/l\n2024-01-05;12,345;40.123;1.459\n2024-01-09;12,945;38.456;1.479\n");
  ASSERT_EQ(points.rows.size(), 2U);
  EXPECT_EQ(points.rows[0].volume, core::Ratio(40'123, 1'000));
  EXPECT_EQ(points.rows[0].odometer, core::Ratio(12'345));
  EXPECT_EQ(points.rows[0].totalCost, core::Ratio(40'123, 1'000) * core::Ratio(1'459, 1'000));
  const LogFile commas = readLog("Date,Odometer,Litres\n2024-01-05,12345,\"40,123\"\n");
  EXPECT_EQ(commas.rows[0].volume, core::Ratio(40'123, 1'000));
}

TEST(ALog, SkipsEmptyColumnsBlankLinesAndRepeatedHeads) {
  const LogFile file = readLog(
      "Date,,Odometer,Litres,Total cost,\n\n2024-01-05,,1000,40.5,,\n,,,,,\nDate,,Odometer,Litres,Total "
      "cost,\n2024-01-09,,1500,30,,\n");
  ASSERT_EQ(file.rows.size(), 2U);
  EXPECT_EQ(file.rows[1].line, 6);
  EXPECT_FALSE(file.hasCosts);
  EXPECT_THAT(file.unread, IsEmpty());
}

TEST(ALog, TellsWhyEachRowThatItCannotReadIsNone) {
  const LogFile file = readLog(
      "Date,Odometer,Litres,Cost,Notes\n"
      "2024-01-05,1000,40.5,60,\n"
      ",1100,20,30,\n"
      "2024-02-31,1200,20,30,\n"
      "2024-02-03,,20,30,\n"
      "2024-02-04,1300,sok,30,\n"
      "2024-02-05,1400,,,\n"
      "2024-02-06,1500,-20,30,\n"
      "Total,,60.5,90,\n");
  std::vector<std::pair<int, UnreadRow::Why>> told;
  for (const UnreadRow& row : file.unread) told.emplace_back(row.line, row.why);
  EXPECT_THAT(
      told,
      ElementsAre(std::pair(3, UnreadRow::Why::NoDay), std::pair(4, UnreadRow::Why::DayNotUnderstood),
                  std::pair(5, UnreadRow::Why::NoOdometer), std::pair(7, UnreadRow::Why::NothingInIt),
                  std::pair(8, UnreadRow::Why::FigureNotUnderstood), std::pair(9, UnreadRow::Why::Total)));
  EXPECT_EQ(file.unread[1].head, "Date");
  EXPECT_EQ(file.unread[1].cell, "2024-02-31");
  ASSERT_EQ(file.rows.size(), 2U);
  EXPECT_TRUE(file.rows[1].volume.isZero());  // "sok" is no figure: a cost without fuel
}

TEST(ALog, WithTwoTablesTellsTheOtherOneEvenWithoutATitle) {
  const LogFile file = readLog(
      "Date,Odometer,Litres\n2024-01-05,1000,40.5\n\nDate,Service,Cost,Garage\n2024-01-06,Oil,20,X\n");
  EXPECT_EQ(file.rows.size(), 1U);
  EXPECT_THAT(file.skipped, ElementsAre(SkippedSection{"Date", 4, 1}));
}

TEST(ALog, OfSeveralVehiclesNamesThem) {
  const LogFile file = readLog(
      "Vehicle,Date,Odometer,Litres\nA,2024-01-05,1000,40\nB,2024-01-06,900,30\nA,2024-01-09,1500,41\n");
  EXPECT_THAT(file.vehicles, ElementsAre("A", "B"));
  const auto plan = exchange::planImport(file, {.forintsPerUnit = 1, .vehicle = "A"}, {}, 0);
  EXPECT_EQ(plan.entries.size(), 2U);
}

TEST(ALog, ReadsItsDaysInTheOrderThatThePersonSays) {
  const std::string text = "Date,Odometer,Litres\n1/2/2024,1000,40\n";
  EXPECT_EQ(readLog(text).rows[0].day, core::dayOf({2024, 2, 1}));
  EXPECT_EQ(readLog(text, exchange::DayOrder::MonthFirst).rows[0].day, core::dayOf({2024, 1, 2}));
}

TEST(ALog, OfASinglePriceTakesItForATotalUnlessItIsFarBelowTheVolume) {
  const auto meaningOfPrice = [](const char* row) {
    return readLog(std::string("Date,Odometer,Litres,Price\n2024-01-05,1000,") + row + "\n")
        .columns[3]
        .meaning;
  };
  EXPECT_EQ(meaningOfPrice("40,60"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrice("40,1.5"), Meaning::UnitPrice);
  EXPECT_EQ(meaningOfPrice("40,620\n2024-01-09,1500,20,610"), Meaning::UnitPrice);
}

TEST(ALog, TakesTheKindOfAServiceForItsNoteAndOfAFuellingForNone) {
  const LogFile file = readLog(
      "Date,Odometer,Litres,Cost,Type,Notes\n2024-01-05,1000,40,60,Service,\n2024-01-06,1100,,60,Service,\n"
      "2024-01-07,1200,,60,Service,wheels\n2024-01-08,1300,,60,Fuel,\n");
  std::vector<std::string> notes;
  for (const auto& row : file.rows) notes.push_back(row.note);
  EXPECT_THAT(notes, ElementsAre("", "Service", "wheels", ""));
}

TEST(ALog, OfPricesThatGoWithTheVolumeTakesThemForTotals) {
  const LogFile file = readLog("Date,Odometer,Litres,Price\n2024-01-05,1000,40,60\n2024-01-09,1500,20,31\n");
  EXPECT_EQ(file.columns[3].meaning, Meaning::TotalCost);
  const LogFile units =
      readLog("Date,Odometer,Litres,Price\n2024-01-05,1000,40,1.5\n2024-01-09,1500,20,1.6\n");
  EXPECT_EQ(units.columns[3].meaning, Meaning::UnitPrice);
  EXPECT_EQ(units.rows[0].totalCost, core::Ratio(60));
}

TEST(ALog, CostsForeignMoneyWhereItNamesACurrencyOrALitreCostsLittle) {
  const std::string heads = "Date,Odometer,Litres,Total cost";
  EXPECT_TRUE(costsAreForeign(readLog(heads + " (EUR)\n2024-01-05,1000,40,24000\n")));
  EXPECT_FALSE(costsAreForeign(readLog(heads + " (Ft)\n2024-01-05,1000,40,60\n")));
  EXPECT_TRUE(costsAreForeign(readLog(heads + "\n2024-01-05,1000,40,60\n")));
  EXPECT_FALSE(costsAreForeign(readLog(heads + "\n2024-01-05,1000,40,24000\n")));
  EXPECT_FALSE(costsAreForeign(readLog("Date,Odometer,Litres\n2024-01-05,1000,40\n")));
  // Figures too long to be multiplied show no price.
  EXPECT_FALSE(costsAreForeign(readLog(
      "Date,Odometer,Gallons,Total cost\n2024-01-05,1000,999999999999999999.999999999999999997,1\n")));
}

std::string fillUps(const std::vector<std::string>& volumesAndCosts, const std::string& volume = "Litres") {
  std::string text = "Date;Odometer;" + volume + ";Cost\n";
  for (const std::string& cells : volumesAndCosts) text += "2024-01-05;1000;" + cells + "\n";
  return text;
}

TEST(ALog, CostsForeignMoneyWhereMoreThanHalfOfItsFillUpsCostLessThanFiftyForintsALitre) {
  EXPECT_FALSE(costsAreForeign(readLog(fillUps({"40;2000"}))));
  EXPECT_TRUE(costsAreForeign(readLog(fillUps({"40;1999"}))));
  // 4.54609 litres for 227.3045 forints are exactly fifty each.
  EXPECT_FALSE(costsAreForeign(readLog(fillUps({"1;227,3045"}, "Gallons (UK)"))));
  EXPECT_TRUE(costsAreForeign(readLog(fillUps({"1;227,3044"}, "Gallons (UK)"))));
  EXPECT_FALSE(costsAreForeign(readLog(fillUps({"40;60", "40;24000"}))));
  EXPECT_FALSE(costsAreForeign(readLog(fillUps({"40;60", "40;61", "40;24000", "40;24001", "40;24002"}))));
  EXPECT_TRUE(costsAreForeign(readLog(fillUps({"40;60", "40;61", "40;24000"}))));
}

TEST(ALog, HasNoPricesInRowsWithoutFuelOrWithoutACost) {
  EXPECT_TRUE(costsAreForeign(readLog(fillUps({"40;60", ";24000"}))));
  EXPECT_FALSE(costsAreForeign(readLog(fillUps({"40;24000", "40;", "40;"}))));
}

TEST(ALog, HasApostrophesForQuotesWhereMostOfItsHeadsStandInThem) {
  const auto quoteOf = [](const std::string& heads) { return exchange::findShape(heads + "\n").quote; };
  EXPECT_EQ(quoteOf("'Date';'Odometer';'Litres'"), '\'');
  EXPECT_EQ(quoteOf("Date;Odometer;Litres;'a';'b';'c'"), '"');
  EXPECT_EQ(quoteOf("Date;Odometer;Litres;'a';'b'"), '"');
  EXPECT_EQ(quoteOf("Date;Odometer;Litres;'a';'b';'c';'d'"), '\'');
  EXPECT_EQ(quoteOf("Date;Odometer;Litres;'';'';'';''"), '\'');
  for (const std::string cells : {";';';';'", ";'a;'b;'c;'d", ";a';b';c';d'"})
    EXPECT_EQ(quoteOf("Date;Odometer;Litres" + cells), '"') << cells;
}

TEST(ALog, HasTheShapeOfTheFirstOfItsBestHeads) {
  EXPECT_EQ(exchange::findShape("hello"), exchange::CsvShape{});
  EXPECT_EQ(exchange::findShape("'Date';'Odometer';'Litres'\nDate;Odometer;Litres\n").quote, '\'');
  EXPECT_EQ(exchange::findShape("Date,Odometer,Litres\nDate;Odometer;Litres\n").separator, ';');
  EXPECT_EQ(exchange::findShape("Date;Odometer;Litres\nDate,Odometer,Litres,Cost\n").separator, ',');
}

TEST(ALog, WithoutMarksForFullFillUpsTakesEachForOne) {
  const LogFile file = readLog("Date,Odometer,Litres\n2024-01-05,1000,40\n");
  EXPECT_FALSE(file.saysWhichAreFull);
  EXPECT_TRUE(file.rows[0].isFull);
}

TEST(ALog, InUkGallonsAndMilesIsConverted) {
  const LogFile file = readLog("Date,Odometer (miles),Gallons (UK)\n2024-01-05,1000,10\n");
  const auto plan = planOf(file);
  EXPECT_EQ(plan.entries[0].entry.KmOra, 1'609);
  EXPECT_EQ(plan.entries[0].entry.TankoltLiter.tenThousandths, 454'609);
}

TEST(ALog, ThatEndsInsideQuotesSaysWhere) {
  const LogFile file = readLog("Date,Odometer,Litres,Notes\n2024-01-05,1000,40,\"a\n2024-01-06,1100,40,b\n");
  EXPECT_TRUE(file.isCutInQuotes);
  EXPECT_EQ(file.faultLine, 2);
}

TEST(ALog, TooLargeForALogbookIsRefusedAtOnce) {
  EXPECT_EQ(readLog(std::string(1'000'000, 'x')).fault, LogFault::RowTooLong);
}

TEST(ALog, MayHaveTwiceAsManyRowsAsALogbook) {
  std::string text = "Date,Odometer,Litres\n";
  for (int i = 1; i < 2 * core::kHighestRecordNumber; ++i) text += "2024-01-05,1,2\n";
  EXPECT_EQ(readLog(text).fault, LogFault::None);
  EXPECT_EQ(readLog(text + "2024-01-05,1,2\n").fault, LogFault::TooManyRows);
}

TEST(ALog, HasItsHeadsLookedForInAsManyRowsAndOneMore) {
  std::string text;
  for (int i = 0; i < 2 * core::kHighestRecordNumber; ++i) text += "x\n";
  const std::string heads = "Date|Odometer|Litres\n";
  EXPECT_EQ(exchange::findShape(text + heads).separator, '|');
  EXPECT_EQ(exchange::findShape(text + "x\n" + heads).separator, ',');
}

// 4,000 rows of 500 cells are two million.
TEST(ALog, MayHaveTwoMillionCells) {
  std::string text = "Date,Odometer,Litres" + std::string(497, ',') + "\n";
  for (int i = 1; i < 4'000; ++i) text += std::string(499, ',') + "\n";
  EXPECT_EQ(readLog(text).fault, LogFault::None);
  EXPECT_EQ(readLog(text + "x\n").fault, LogFault::TooManyRows);
}

}  // namespace
}  // namespace tarvik::test
