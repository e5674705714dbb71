#include "exchange/row_reader.h"

#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::DayOrder;
using exchange::DistanceUnit;
using exchange::LogFile;
using exchange::LogRow;
using exchange::Meaning;
using exchange::readLog;
using exchange::UnreadRow;
using exchange::VolumeUnit;

// What the column of prices is taken for when the rows have these volumes and prices.
Meaning meaningOfPrices(const std::string& volumesAndPrices) {
  std::string text = "Date;Odometer;Litres;Price\n";
  for (std::size_t begin = 0; begin < volumesAndPrices.size();) {
    const std::size_t end = std::min(volumesAndPrices.find(' ', begin), volumesAndPrices.size());
    text += "2024-01-05;1000;" + volumesAndPrices.substr(begin, end - begin) + ";\n";
    begin = end + 1;
  }
  return readLog(text).columns.at(3).meaning;
}

LogRow onlyRow(const std::string& text) {
  const LogFile file = readLog(text);
  EXPECT_EQ(file.rows.size(), 1U) << text;
  return file.rows.empty() ? LogRow{} : file.rows[0];
}

TEST(Prices, AreThoseOfALitreWhereTheyChangeLessThanWhatALitreWouldCost) {
  EXPECT_EQ(meaningOfPrices("20;1,5 40;1,55"), Meaning::UnitPrice);
  EXPECT_EQ(meaningOfPrices("40;600 20;610"), Meaning::UnitPrice);
  EXPECT_EQ(meaningOfPrices("40;60 20;31"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrices("40;1,5 40;1,5"), Meaning::UnitPrice);
}

// The prices 1, 1, 2, 2 lie 2 from their middle one, 2, in all, which is 1 of it; the quotients 0.5, 1, 1, 2
// lie 1.5 from theirs, 1.
TEST(Prices, AreMeasuredFromTheMiddleOneOfTheUpperHalf) {
  EXPECT_EQ(meaningOfPrices("2;2 1;2 1;1 2;1"), Meaning::UnitPrice);
}

TEST(Prices, OfRowsWithoutOneOrWithoutFuelDoNotCount) {
  EXPECT_EQ(meaningOfPrices("40;60 20;31 ;500"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrices("40;60 40;0"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrices("40;60 40;"), Meaning::TotalCost);
}

TEST(Prices, OfOneRowAreThoseOfALitreWhereThatWouldCostLessThanAHalf) {
  EXPECT_EQ(meaningOfPrices("1;0,4"), Meaning::UnitPrice);
  EXPECT_EQ(meaningOfPrices("40;1,5"), Meaning::UnitPrice);
  EXPECT_EQ(meaningOfPrices("40;20"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrices("40;60"), Meaning::TotalCost);
  EXPECT_EQ(meaningOfPrices(""), Meaning::TotalCost);
}

TEST(Prices, BesideACostOrAPriceOfALitreAreTheOtherOne) {
  const std::string heads = "Date;Odometer;Litres;Price;";
  EXPECT_EQ(readLog(heads + "Cost\n2024-01-05;1000;40;60;60\n").columns[3].meaning, Meaning::UnitPrice);
  EXPECT_EQ(readLog(heads + "Unit price\n2024-01-05;1000;40;1,5;1,5\n").columns[3].meaning,
            Meaning::TotalCost);
  EXPECT_EQ(readLog(heads + "Cost;Unit price\n2024-01-05;1000;40;60;60;1,5\n").columns[3].meaning,
            Meaning::Ignored);
}

TEST(AFigureOfALog, ThatShowsNoDecimalSignHasThatOfTheOtherColumns) {
  const LogRow row = onlyRow("Date\tOdometer\tLitres\tCost\n2024-01-05\t12.345\t40\t60,5\n");
  EXPECT_EQ(row.odometer, Ratio(12'345));
  EXPECT_EQ(row.totalCost, Ratio(605, 10));
}

TEST(AFigureOfALog, HasAPointForDecimalsUnlessSemicolonsSeparateWhereNothingTells) {
  EXPECT_EQ(onlyRow("Date;Odometer;Litres;Cost\n2024-01-05;1000;40;1.234\n").totalCost, Ratio(1'234));
  EXPECT_EQ(onlyRow("Date,Odometer,Litres,Cost\n2024-01-05,1000,40,1.234\n").totalCost, Ratio(1'234, 1'000));
}

TEST(AFigureOfALog, HasTheSignOfTheVolumesNotALetterBeforeIt) {
  EXPECT_EQ(onlyRow("Date;Odometer;Litres\n2024-01-05;1000;max 40.123\n").volume, Ratio(40'123, 1'000));
}

TEST(AFigureOfALog, BelowZeroIsNotUnderstood) {
  const LogFile file = readLog("Date;Odometer;Litres\n2024-01-05;-1000;40\n2024-01-06;0;40\n");
  ASSERT_EQ(file.unread.size(), 1U);
  EXPECT_EQ(file.unread[0].head, "Odometer");
  EXPECT_EQ(file.unread[0].cell, "-1000");
  ASSERT_EQ(file.rows.size(), 1U);
  EXPECT_EQ(file.rows[0].odometer, Ratio(0));
}

TEST(TheUnitOfALog, IsThatOfItsOwnHeadBeforeThatOfOthers) {
  const LogFile file = readLog("Date;Range (mi);Gal left;Odometer (km);Fuel (l)\n2024-01-05;1;2;1000;40\n");
  EXPECT_EQ(file.distance, DistanceUnit::Kilometre);
  EXPECT_EQ(file.volume, VolumeUnit::Litre);
}

TEST(TheUnitOfALog, IsThatOfAnotherHeadWhereItsOwnSaysNothing) {
  const LogFile file = readLog("Date;Odometer;Fuel;Trip (mi);Gal left\n2024-01-05;1000;40;1;2\n");
  EXPECT_EQ(file.distance, DistanceUnit::Mile);
  EXPECT_EQ(file.volume, VolumeUnit::UsGallon);
}

TEST(TheCurrencyOfALog, IsThatOfItsColumnElseOfAHeadElseOfACell) {
  const std::string heads = "Date;Odometer;Litres;";
  EXPECT_EQ(readLog(heads + "Cost (EUR);Currency\n2024-01-05;1000;40;60 CHF;PLN\n").currency, "PLN");
  EXPECT_EQ(readLog(heads + "Cost (EUR);Currency\n2024-01-05;1000;40;60 CHF;\n").currency, "EUR");
  EXPECT_EQ(readLog(heads + "Cost\n2024-01-05;1000;40;60\n2024-01-06;1001;40;60 CHF\n").currency, "CHF");
  EXPECT_EQ(readLog(heads + "Unit price\n2024-01-05;1000;40;1,5 CHF\n").currency, "CHF");
  EXPECT_EQ(readLog(heads + "Cost (EUR);Unit price (CHF)\n2024-01-05;1000;40;60;1,5\n").currency, "EUR");
  EXPECT_EQ(readLog(heads + "Price (CHF)\n2024-01-05;1000;40;60\n").currency, "CHF");
}

TEST(TheDaysOfALog, HaveTheMonthFirstWithAmericanGallonsOrMoneyWhereNothingTells) {
  const auto orderOf = [](const std::string& volume, const std::string& cost) {
    return readLog("Date;Odometer;" + volume + ";" + cost + "\n1/2/2024;1000;40;60\n").dayOrder.order;
  };
  EXPECT_EQ(orderOf("Litres", "Cost (EUR)"), DayOrder::DayFirst);
  EXPECT_EQ(orderOf("Litres", "Cost (USD)"), DayOrder::MonthFirst);
  EXPECT_EQ(orderOf("Gallons (US)", "Cost (EUR)"), DayOrder::MonthFirst);
  EXPECT_EQ(orderOf("Gallons (UK)", "Cost (EUR)"), DayOrder::DayFirst);
}

TEST(ARowOfALog, HasCostsWhereItHasAColumnOfThem) {
  const std::string heads = "Date;Odometer;Litres";
  EXPECT_FALSE(readLog(heads + "\n2024-01-05;1000;40\n").hasCosts);
  EXPECT_TRUE(readLog(heads + ";Cost\n2024-01-05;1000;40;60\n").hasCosts);
  EXPECT_TRUE(readLog(heads + ";Unit price\n2024-01-05;1000;40;1,5\n").hasCosts);
}

TEST(ARowOfALog, CostsItsTotalAndOnlyWithoutOneItsPriceTimesItsVolume) {
  const std::string heads = "Date;Odometer;Litres;Cost;Unit price\n";
  EXPECT_EQ(onlyRow(heads + "2024-01-05;1000;40;61;1,5\n").totalCost, Ratio(61));
  EXPECT_EQ(onlyRow("Date;Odometer;Litres;Unit price\n2024-01-05;1000;40;1,5\n").totalCost, Ratio(60));
}

TEST(ARowOfALog, IsFullAsItsMarkSays) {
  const std::string full = "Date;Odometer;Litres;Full\n2024-01-05;1000;40;";
  EXPECT_TRUE(onlyRow(full + "yes\n").isFull);
  EXPECT_FALSE(onlyRow(full + "no\n").isFull);
  const std::string partial = "Date;Odometer;Litres;Partial\n2024-01-05;1000;40;";
  EXPECT_FALSE(onlyRow(partial + "yes\n").isFull);
  EXPECT_FALSE(onlyRow(partial + "Partial\n").isFull);
  EXPECT_TRUE(onlyRow(partial + "no\n").isFull);
  EXPECT_TRUE(readLog(full + "no\n").saysWhichAreFull);
  EXPECT_TRUE(readLog(partial + "no\n").saysWhichAreFull);
}

TEST(ARowOfALog, WithoutFuelIsNeitherFullNorBehindAMissedOne) {
  const LogRow row = onlyRow("Date;Odometer;Litres;Cost;Full;Missed\n2024-01-05;1000;;60;yes;yes\n");
  EXPECT_FALSE(row.isFull);
  EXPECT_FALSE(row.isAfterMissed);
}

TEST(ARowOfALog, HasItsDescriptionAndItsNoteOnOneLine) {
  const std::string heads = "Date;Odometer;Litres;Cost;Description;Notes;Type\n2024-01-05;1000;;60;";
  EXPECT_EQ(onlyRow(heads + "Oil;5W;Service\n").note, "Oil, 5W");
  EXPECT_EQ(onlyRow(heads + "Oil;;Service\n").note, "Oil");
  EXPECT_EQ(onlyRow(heads + ";5W;Service\n").note, "5W");
  EXPECT_EQ(onlyRow(heads + ";;Service\n").note, "Service");
  EXPECT_EQ(onlyRow(heads + ";;Gas\n").note, "");
  EXPECT_EQ(onlyRow(heads + "\"a\tb\";\"c d\ne\x1F\";x\n").note, "a b, c d e");
  EXPECT_EQ(onlyRow("Date;Odometer;Litres;Type\n2024-01-05;1000;40;Service\n").note, "");
}

TEST(ARowOfALog, HasNothingOfCellsBehindItsHeads) {
  const LogRow row = onlyRow("Date;Odometer;Litres\n2024-01-05;1000;40;yes\n");
  EXPECT_FALSE(row.isAfterMissed);
  EXPECT_TRUE(row.isFull);
  EXPECT_EQ(row.note, "");
  EXPECT_EQ(row.totalCost, Ratio(0));
}

TEST(ARowOfALog, HasNoFigureInAWord) {
  EXPECT_TRUE(onlyRow("Date;Odometer;Litres;Cost\n2024-01-01;1;max;60\n").volume.isZero());
}

TEST(ARowOfALog, WithANoteAloneIsRead) {
  EXPECT_EQ(onlyRow("Date;Odometer;Litres;Notes\n2024-01-05;;;wash\n").note, "wash");
}

TEST(ARowOfALog, ThatNamesATotalIsOneOnlyWithoutADay) {
  EXPECT_EQ(onlyRow("Date;Odometer;Litres;Notes\n2024-01-05;1000;40;total\n").note, "total");
  const LogFile file = readLog("Date;Odometer;Litres;Notes\n2024-01-05;1000;40;\n;;40;Total\n");
  ASSERT_EQ(file.unread.size(), 1U);
  EXPECT_EQ(file.unread[0].why, UnreadRow::Why::Total);
  EXPECT_EQ(file.unread[0].line, 3);
  EXPECT_EQ(file.unread[0].head, "");
  EXPECT_EQ(file.unread[0].cell, "");
}

// A product of 72 digits is more than any figure holds.
TEST(ARowOfALog, WhoseFiguresAreTooLargeToMultiplyIsNotUnderstood) {
  const std::string huge = "999999999999999999,999999999999999997";
  const LogFile file =
      readLog("Date;Odometer;Litres;Unit price\n2024-01-05;1000;" + huge + ";" + huge + "\n");
  ASSERT_EQ(file.unread.size(), 1U);
  EXPECT_EQ(file.unread[0].why, UnreadRow::Why::FigureNotUnderstood);
  EXPECT_EQ(file.unread[0].head, "Litres");
}

}  // namespace
}  // namespace tarvik::test
