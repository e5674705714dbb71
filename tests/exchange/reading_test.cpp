#include "exchange/reading.h"

#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::Choices;
using exchange::DistanceUnit;
using exchange::Meaning;
using exchange::Question;
using exchange::VolumeUnit;
using Why = exchange::UnreadRow::Why;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(AColumn, ThatCouldBePricesOfALitreOrOfAllIsAsked) {
  const std::string text =
      "Datum;Tachometr;Litry;Cena\n2024-01-05;48210;41,27;50\n2024-01-19;48866;44,03;50\n2024-02-02;49391;40;"
      "50\n";
  EXPECT_TRUE(readLog(text).asks(Question::Price));
  EXPECT_EQ(readLog(text).meaningOf("Cena"), Meaning::NotUnderstood);  // so that either can be chosen
  EXPECT_EQ(readLog(text).reading.unknownColumn, 3U);
  const ReadLog said = readLog(text, {.columns = {{3, Meaning::TotalCost}}});
  EXPECT_FALSE(said.asks(Question::Price));
  EXPECT_EQ(said.rows.rows[0].forints, Ratio(50));
}

// What a read past the end of the heads once came from: a volume without figures beside a column of prices.
TEST(AColumn, OfVolumesWithoutFiguresBesidePricesIsAskedFor) {
  const ReadLog log =
      readLog("Date,Odometer,Litres,Price\n2024-01-05,1000,sok,60\n2024-01-09,1500,kevés,62\n");
  EXPECT_TRUE(log.asks(Question::VolumeColumn));
  EXPECT_EQ(log.rows.rows.size() + log.rows.unread.size(), 3U);
}

// Under a head that nobody knows: what may say which fills were full must not be passed over.
TEST(AColumn, OfTwoAnswersThatNothingIsKnownOfIsAsked) {
  const std::string text =
      "Dátum;Km;Liter;Ft;Pukk;Zutty\n2024.01.05.;48210;41;25575;i;M7\n2024.01.19.;48866;44;27681;n;\n"
      "2024.02.02.;49391;20;12519;i;Győr\n2024.02.09.;49991;40;25000;i;\n";
  const ReadLog log = readLog(text);
  EXPECT_THAT(log.reading.open, ElementsAre(Question::UnknownColumn));
  EXPECT_EQ(log.reading.unknownColumn, 4U);
  const ReadLog full = readLog(text, {.columns = {{4, Meaning::Full}}});
  EXPECT_THAT(full.reading.open, IsEmpty());
  EXPECT_FALSE(full.rows.rows[1].isFull);
  EXPECT_THAT(readLog(text, {.columns = {{4, Meaning::NotNeeded}}}).reading.open, IsEmpty());
}

// Rows longer than the heads: a column that is not there must not be read behind them.
TEST(AColumn, ThatIsNotThereIsNotReadBehindTheLastHead) {
  const ReadLog log = readLog("Dátum;Liter\n2024.01.05.;41;500\n2024.01.09.;;700\n",
                              {.columns = {{0, Meaning::Day}, {1, Meaning::Volume}}});
  EXPECT_TRUE(log.asks(Question::OdometerColumn));
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(2, Why::NoOdometer), Pair(3, Why::NothingInIt)));
  EXPECT_EQ(log.rows.unread.at(1).head + log.rows.unread.at(1).cell, "");
}

TEST(TheWordsForFull, AreTurnedRoundInAColumnOfPartFills) {
  const auto isFull = [](const std::string& word) {
    return readLog("Dátum;Km;Liter;Ft;Partial\n2024.01.05.;48210;41;25575;" + word + "\n")
        .rows.rows.at(0)
        .isFull;
  };
  for (const char* word : {"1", "yes", "Partial", "full", "TRUE"}) EXPECT_FALSE(isFull(word)) << word;
  EXPECT_TRUE(isFull("no"));
  const ReadLog both = readLog(
      "Dátum;Km;Liter;Ft;Partial\n2024.01.05.;48210;41;25575;full\n2024.01.19.;48866;44;27681;partial\n");
  EXPECT_TRUE(both.asks(Question::FullWord));
}

// 11 of a volume over 400 miles: litres would be 1.7 for 100 km.
TEST(Units, ThatAreNotStatedAreAskedWhereAnAnswerMakesThemIncredible) {
  const std::string text =
      "date,odometer,volume,total "
      "(Ft)\n2024-01-05,30000,10.5,16000\n2024-01-19,30400,11.2,17000\n2024-02-02,30810,10.9,16500\n";
  EXPECT_THAT(readLog(text, {.distance = DistanceUnit::Mile}).reading.open,
              ElementsAre(Question::VolumeUnit));
}

TEST(Units, ThatChangeInTheFileAreTakenRowByRow) {
  const ReadLog log = readLog(
      "Date,Odometer (km),Volume,Unit,Cost,Currency\n2024-01-05,30000,40,L,60,EUR\n2024-01-19,30400,10,US "
      "gal,15000,HUF\n",
      {.rates = {{"EUR", Ratio(400)}}});
  EXPECT_THAT(log.reading.open, IsEmpty());
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(40));
  EXPECT_EQ(log.rows.rows[0].forints, Ratio(24'000));
  EXPECT_EQ(log.rows.rows[1].litres, Ratio(10) * litresOf(VolumeUnit::UsGallon));
  EXPECT_EQ(log.rows.rows[1].forints, Ratio(15'000));
}

TEST(Money, HasARateOrIsAskedFor) {
  const std::string row = "\n2024-01-05;48210;41;60\n";
  EXPECT_THAT(readLog("Datum;Kilometerstand;Liter;Betrag (€)" + row).reading.open,
              ElementsAre(Question::Rate));
  EXPECT_THAT(readLog("Datum;Kilometerstand;Liter;Betrag" + row).reading.open,
              ElementsAre(Question::Currency));
  const ReadLog log =
      readLog("Datum;Kilometerstand;Liter;Betrag" + row, {.currency = "EUR", .rates = {{"EUR", Ratio(400)}}});
  EXPECT_THAT(log.reading.open, IsEmpty());
  EXPECT_EQ(log.rows.rows[0].forints, Ratio(24'000));
}

// Dollars are paid for litres in Canada and Australia, too.
TEST(Money, InDollarsForLitresIsAskedFor) {
  const std::string rows = "2024-01-05,48210,41,60\n2024-01-19,48866,44,61\n";
  EXPECT_TRUE(readLog("Date,Odo (km),Litres,Cost ($)\n" + rows).asks(Question::Currency));
  EXPECT_FALSE(readLog("Date,Odo (km),Litres,Cost (US$)\n" + rows).asks(Question::Currency));
  EXPECT_FALSE(readLog("Date,Odo (mi),Gallons (US),Cost ($)\n" + rows).asks(Question::Currency));
  EXPECT_EQ(readLog("Date,Odo (km),Litres,Cost (C$)\n" + rows).reading.currency, "CAD");
}

// "$51.77" below "Cost AUD" are Australian ones, and what the person says goes before the sign of a cell.
TEST(Money, InDollarsIsThatOfTheHeadOrOfThePerson) {
  const std::string rows = "2024-01-05,48210,41,$60\n2024-01-19,48866,44,$61\n";
  const ReadLog head = readLog("Date,Odo (km),Litres,Cost AUD\n" + rows, {.rates = {{"AUD", Ratio(235)}}});
  EXPECT_THAT(head.reading.open, IsEmpty());
  EXPECT_EQ(head.rows.rows[0].forints, Ratio(60 * 235));
  const ReadLog said = readLog("Date,Odo (km),Litres,Cost\n" + rows,
                               {.currency = "CAD", .rates = {{"CAD", Ratio(260)}, {"USD", Ratio(350)}}});
  EXPECT_EQ(said.rows.rows[0].forints, Ratio(60 * 260));
}

TEST(Money, OfAPriceAboveWhatALitreCostsIsInHundredthsOfIt) {
  const auto share = [](const std::string& currency, const std::string& price) {
    return readLog("Date,Odo (km),Litres,PPL\n2024-01-05,48210,41," + price + "\n", {.currency = currency})
        .reading.priceShare;
  };
  EXPECT_EQ(share("GBP", "149.9"), 100);
  EXPECT_EQ(share("GBP", "1.499"), 1);
  EXPECT_EQ(share("INR", "101.2"), 1);
  EXPECT_EQ(share("HUF", "612.9"), 1);
  EXPECT_EQ(share("EUR", "20"), 1);
  EXPECT_EQ(share("EUR", "20.1"), 100);
}

TEST(Money, ThatRunsOnFromRowToRowIsNoCostOfAFillUp) {
  std::string text = "Dátum;Km;Liter;Összesen;Ft\n";
  for (int i = 1; i < 7; ++i)
    text += "2024.01.0" + std::to_string(i) + ".;" + std::to_string(1'000 + 500 * i) + ";40;" +
            std::to_string(24'000 * i) + ";24000\n";
  const ReadLog log = readLog(text);
  EXPECT_EQ(log.meaningOf("Ft"), Meaning::TotalCost);
  EXPECT_NE(log.meaningOf("Összesen"), Meaning::TotalCost);
}

TEST(Money, OfALitreInPenceIsTurnedIntoPounds) {
  const ReadLog log = readLog("Date,Odometer (miles),Litres,Pence per litre\n2024-01-05,48210,40,150\n",
                              {.rates = {{"GBP", Ratio(450)}}});
  EXPECT_THAT(log.reading.open, IsEmpty());
  EXPECT_EQ(log.rows.rows[0].forints, Ratio(27'000));  // 60 pounds
}

TEST(ALogOfDistances, IsAskedForItsReading) {
  const std::string text =
      "Dátum;Megtett "
      "km;Liter;Ft\n2024.01.19.;510;31;18600\n2024.01.05.;640;41;25575\n2024.02.02.;480;30,5;18000\n";
  EXPECT_THAT(readLog(text).reading.open, ElementsAre(Question::TripStart));
  const auto readings = [&](bool isAtStart, int reading) {
    std::vector<int> found;
    const ReadLog log = readLog(text, {.tripStart = exchange::TripStart{isAtStart, Ratio(reading)}});
    for (const auto& planned : planOf(log).entries) found.push_back(planned.entry.KmOra);
    return found;
  };
  EXPECT_THAT(readings(true, 1'000), ElementsAre(1'640, 2'150, 2'630));
  EXPECT_THAT(readings(false, 10'000), ElementsAre(9'010, 9'520, 10'000));
  const ReadLog both = readLog("Dátum;Km;Liter;Zutty\n2024.01.05.;48210;41;500\n2024.01.19.;48866;44;656\n",
                               {.columns = {{3, Meaning::Trip}}});
  EXPECT_EQ(both.meaningOf("Km"), Meaning::Odometer);
  EXPECT_FALSE(both.asks(Question::TripStart));
  EXPECT_EQ(planOf(both).entries.at(1).entry.KmOra, 48'866);
}

TEST(ALogOfDistances, ThatRunsPastWhatALogbookKeepsIsLeftOutInTheOrderOfItsRows) {
  const std::string text = "Dátum;Megtett km;Liter;Ft\n2024.01.05.;640;41;25575\n";
  const auto startingAt = [&](const std::string& rows, std::int64_t reading) {
    return readLog(text + rows, {.tripStart = exchange::TripStart{true, Ratio(reading)}});
  };
  const auto plan = planOf(startingAt("2024.01.19.;510;31;18600\n2024.02.31.;640;41;25575\n", 2'147'483'000));
  ASSERT_EQ(plan.entries.size(), 1U);
  EXPECT_EQ(plan.entries[0].entry.KmOra, 2'147'483'640);
  std::vector<std::pair<int, Why>> unread;
  for (const auto& row : plan.unread) unread.emplace_back(row.line, row.why);
  EXPECT_THAT(unread,
              ElementsAre(Pair(1, Why::Heads), Pair(3, Why::FigureTooLarge), Pair(4, Why::DayNotUnderstood)));
  EXPECT_TRUE(startingAt("", 2'147'483'648).asks(Question::TripStart));
}

// 640, then 250 without a fill-up on the same day or another one, then 510.
TEST(ALogOfDistances, CountsThoseOfRowsThatAreLeftOut) {
  const std::string first = "2024.01.05.;640;41;25575\n";
  const std::string last = "2024.01.19.;510;31;18600\n";
  const exchange::Choices start{.tripStart = exchange::TripStart{true, Ratio(1'000)}};
  for (const std::string between : {"2024.01.05.;250;;\n", "2024.01.09.;250;;\n"})
    for (const std::string& text : {first + between + last, last + between + first}) {
      const auto plan = planOf(readLog("Dátum;Megtett km;Liter;Ft\n" + text, start));
      ASSERT_EQ(plan.entries.size(), 2U);
      EXPECT_EQ(plan.entries[0].entry.KmOra, 1'640) << text;
      EXPECT_EQ(plan.entries[1].entry.KmOra, 2'400) << text;
    }
}

// The consumption is written with a comma, what is kept with a point.
TEST(ADecimalSign, OfWhatIsNotKeptTellsNothingOfTheRest) {
  const ReadLog log = readLog(
      "Dátum,Km,Liter,Egységár,Fogyasztás\n2024.01.05.,48210,41.271,1.589,\"7,1\"\n"
      "2024.01.19.,48866,44.035,1.612,\"6,7\"\n");
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(41'271, 1'000));
}

TEST(ARow, IsLeftOutForWhatItIs) {
  const ReadLog log = readLog(
      "Autónk\n\nDátum;Km;Liter;Ft\n2024.01.05.;48210;41;25575\n# szerviz "
      "volt\n;;;\n2024.02.31.;48500;40;24000\n"
      ";48600;40;24000\n2024.02.05.;;40;24000\n2024.02.06.;48700;4x0;24000\n2024.02.07.;48800;;\n"
      "Dátum;Km;Liter;Ft\nÖsszesen;;41;25575\n");
  EXPECT_THAT(
      leftOut(log),
      ElementsAre(Pair(1, Why::Title), Pair(2, Why::Empty), Pair(5, Why::Comment), Pair(6, Why::Empty),
                  Pair(7, Why::DayNotUnderstood), Pair(8, Why::NoDay), Pair(9, Why::NoOdometer),
                  Pair(10, Why::FigureNotUnderstood), Pair(11, Why::NothingInIt), Pair(13, Why::Total)));
  EXPECT_EQ(log.rows.rows.size(), 1U);
  EXPECT_EQ(log.rows.rows.size() + log.rows.unread.size(), 13U);
}

TEST(ARow, OfSomethingElseThanFuelInLitresIsLeftOut) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft;Üzemanyag;Megjegyzés\n2024.01.05.;48210;41;25575;Dízel;\n"
      "2024.01.09.;48400;10;6000;AdBlue;\n2024.01.11.;48500;10;6000;;AdBlue\n"
      "2024.01.12.;48600;21 kWh;3000;;\n2024.01.19.;48866;44;27681;Dízel;AdBlue is kellene\n");
  EXPECT_THAT(leftOut(log),
              ElementsAre(Pair(3, Why::OtherFuel), Pair(4, Why::OtherFuel), Pair(5, Why::OtherFuel)));
  EXPECT_FALSE(log.rows.unread[1].mayBeFillUp());
  EXPECT_TRUE(
      readLog("Date,Odo (km),Energy (kWh),Fuel (kWh)\n2024-01-05,1000,40,5\n").asks(Question::VolumeColumn));
}

// Two costs that only together are too much, and a product of 2^128, of which 128 bits would keep a 0.
TEST(ARow, OfFiguresTooLargeToBeWorkedOutIsLeftOut) {
  EXPECT_THAT(leftOut(readLog("Date,Odometer (mi),Litres (l),Cost (Ft)\n2024-01-05,1000,40,24000\n"
                              "2024-01-09,999999999999999999,40,24000\n")),
              ElementsAre(Pair(3, Why::FigureTooLarge)));
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft;Megjegyzés;Megjegyzés költsége\n2024.01.05.;48210;;2000000000;olaj;147483647\n"
      "2024.01.06.;48211;;2000000000;olaj;147483648\n");
  ASSERT_EQ(log.rows.rows.size(), 1U);
  EXPECT_EQ(log.rows.rows[0].noteForints, Ratio(2'147'483'647));
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(3, Why::FigureTooLarge)));
  EXPECT_THAT(leftOut(readLog("Dátum;Km;Liter;Ft/l\n2024.01.05.;48210;302231454903657,293676544;"
                              "576460752303423488\n",
                              {.columns = {{3, Meaning::UnitPrice}}})),
              ElementsAre(Pair(2, Why::FigureTooLarge)));
}

// As a program writes that counts in binary: 41.27 litres at 1.589, 65.578 euros.
TEST(ARow, MayHaveFiguresWithMoreDecimalsThanTellAnything) {
  const ReadLog log =
      readLog("Dátum;Km;Liter;€/l\n2024.01.05.;48210;41,270000000000003126;1,588999999999999968\n",
              {.rates = {{"EUR", Ratio(390'123'456, 1'000'000)}}});
  ASSERT_EQ(log.rows.rows.size(), 1U);
  EXPECT_EQ(core::toWhole(log.rows.rows[0].forints), 25'584);  // 25,583.5
}

TEST(ALog, WithoutHeadsIsUnderstoodByItsValues) {
  const ReadLog log = readLog(
      "2024.01.05.;48210;40,00;600;24000\n2024.01.19.;48866;44,00;610;26840\n2024.02.02.;49391;20,00;620;"
      "12400\n"
      "2024.02.12.;49991;41,00;600;24600\n");
  EXPECT_EQ(log.meaningOf("1. oszlop"), Meaning::Day);
  EXPECT_EQ(log.meaningOf("2. oszlop"), Meaning::Odometer);
  EXPECT_EQ(log.meaningOf("3. oszlop"), Meaning::Volume);
  EXPECT_EQ(log.meaningOf("5. oszlop"), Meaning::TotalCost);
  EXPECT_TRUE(log.asks(Question::DistanceUnit));
}

TEST(ALog, WithoutATableIsNone) {
  for (const char* text : {"", "\n\n", "hello"})
    EXPECT_EQ(readLog(text).table.fault, exchange::LogTable::Fault::NoTable) << text;
  EXPECT_FALSE(readLog("alma;körte\n1;2\n3;4\n").reading.unknownColumn);  // asked for others first
  EXPECT_THAT(readLog("alma;körte\n1;2\n").reading.open,
              ElementsAre(Question::DayColumn, Question::OdometerColumn, Question::VolumeColumn));
}

TEST(ALog, OfEndlessRowsOrTooManyIsRefused) {
  EXPECT_EQ(readLog("Date,Odometer\n2024-01-05,\"" + std::string(10'000'000, '\n')).table.fault,
            exchange::LogTable::Fault::RowTooLong);
  std::string rows = "Date,Odometer,Litres\n";
  for (int row = 0; row < 70'000; ++row) rows += "2024-01-05,1000,1\n";
  EXPECT_EQ(readLog(rows).table.fault, exchange::LogTable::Fault::TooManyRows);
}

}  // namespace
}  // namespace tarvik::test
