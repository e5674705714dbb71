#include "exchange/reading.h"

#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::Choices;
using exchange::DayOrder;
using exchange::DistanceUnit;
using exchange::Meaning;
using exchange::Question;
using exchange::VolumeUnit;
using Why = exchange::UnreadRow::Why;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// The plain table that people keep: it asks nothing.
TEST(AHungarianTable, IsUnderstoodWithoutAQuestion) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft\n2024.01.05.;48210;41,27;25575\n2024.01.19.;48866;44,03;27681\n2024.02.02.;49391;20;"
      "12519\n");
  EXPECT_THAT(log.reading.open, IsEmpty());
  EXPECT_THAT(log.reading.asked, IsEmpty());
  ASSERT_EQ(log.rows.rows.size(), 3U);
  EXPECT_EQ(log.rows.rows[0].kilometres, Ratio(48'210));
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(4'127, 100));
  EXPECT_EQ(log.rows.rows[0].forints, Ratio(25'575));
  EXPECT_TRUE(log.rows.rows[2].isFull);
}

TEST(AColumn, OfOctanesIsNoVolume) {
  for (const char* kind : {"E10", "95", "Super 95", "Benzin 95"}) {
    std::string text = "Dátum;Km óra;Benzin;Liter;Ft\n";
    for (int i = 1; i < 5; ++i)
      text += "2024.01.0" + std::to_string(i) + ".;" + std::to_string(1'000 + 500 * i) + ";" + kind +
              ";40,5;24000\n";
    const ReadLog log = readLog(text);
    EXPECT_EQ(log.meaningOf("Benzin"), Meaning::NotNeeded) << kind;
    EXPECT_EQ(log.meaningOf("Liter"), Meaning::Volume) << kind;
  }
}

TEST(AColumn, OfPricesOfTenThousandIsACost) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ár\n2024.01.05.;48210;41,27;15000\n2024.01.19.;48866;44,03;15000\n2024.02.02.;49391;20;"
      "15000\n");
  EXPECT_EQ(log.meaningOf("Ár"), Meaning::TotalCost);
  EXPECT_THAT(log.reading.open, IsEmpty());
}

TEST(AColumn, ThatCouldBePricesOfALitreOrOfAllIsAsked) {
  const std::string text =
      "Datum;Tachometr;Litry;Cena\n2024-01-05;48210;41,27;50\n2024-01-19;48866;44,03;50\n2024-02-02;49391;40;"
      "50\n";
  EXPECT_TRUE(readLog(text).asks(Question::Price));
  EXPECT_EQ(readLog(text).meaningOf("Cena"), Meaning::NotUnderstood);  // so that either can be chosen
  const ReadLog said = readLog(text, {.columns = {{3, Meaning::TotalCost}}});
  EXPECT_FALSE(said.asks(Question::Price));
  EXPECT_EQ(said.rows.rows[0].forints, Ratio(50));
}

TEST(AColumn, IsWhatThePersonSaysItIs) {
  const ReadLog log = readLog("Dátum;Km;Liter;Ft\n2024.01.05.;48210;41,27;25575\n",
                              {.columns = {{3, Meaning::NotNeeded}, {1, Meaning::NotUnderstood}}});
  EXPECT_TRUE(log.asks(Question::OdometerColumn));
  EXPECT_EQ(log.meaningOf("Ft"), Meaning::NotNeeded);
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

TEST(AColumn, OfFiguresThatNothingIsKnownOfIsAskedWhereNoneIsOfMoney) {
  const std::string rows = "2024.01.05.;48210;41;25575\n2024.01.19.;48866;44;27681\n";
  EXPECT_THAT(readLog("Dátum;Km;Liter;Zutty\n" + rows).reading.open, ElementsAre(Question::UnknownColumn));
  EXPECT_THAT(readLog("Dátum;Km;Liter;Ft\n" + rows).reading.open, IsEmpty());
  EXPECT_THAT(readLog("Dátum;Km;Liter;Hatótáv\n" + rows).reading.open, IsEmpty());
}

TEST(AColumn, OfAnswersIsNoMoneyAndOneOfLitresIsNoFullTank) {
  const std::string rows = "2024-01-05,30000,40.5,1,60.1\n2024-01-19,30500,41.5,0,61.2\n";
  const ReadLog fill = readLog("Date,Odometer (km),Litres filled,Fill?,Paid (EUR)\n" + rows);
  EXPECT_EQ(fill.meaningOf("Fill?"), Meaning::Full);
  EXPECT_EQ(fill.meaningOf("Litres filled"), Meaning::Volume);
  EXPECT_FALSE(fill.rows.rows[1].isFull);
}

TEST(AColumn, OfKindsSaysWhichFillsWereFullWhereOneOfItsWordsDoes) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft;Típus\n2024.01.05.;48210;41;25575;tele\n2024.01.19.;48866;44;27681;részleges\n"
      "2024.01.29.;49266;24;17681;kanna\n");
  EXPECT_EQ(log.meaningOf("Típus"), Meaning::Full);
  EXPECT_TRUE(log.asks(Question::FullWord));  // of the third word
}

TEST(AColumn, OfDaysIsTheDayWhateverItsHead) {
  const std::string rows = "2024.01.05.;48210;41;25575\n2024.01.19.;48866;44;27681\n";
  for (const char* head : {"Tankolás", "Zutty", "Filled on", "Teletank"})
    EXPECT_EQ(readLog(std::string(head) + ";Km;Liter;Ft\n" + rows).meaningOf(head), Meaning::Day) << head;
}

TEST(AColumn, OfReadingsIsNoVehicleAndOneOfSmallFiguresNoReading) {
  const ReadLog log = readLog(
      "Date,Mileage,Model,Litres,Paid (INR)\n2024-01-05,18.5,1000,40,4000\n2024-01-19,19.1,1700,41,4100\n"
      "2024-01-29,18.7,2400,42,4200\n2024-02-05,18.1,3100,40,4000\n2024-02-19,19.9,3800,41,4100\n");
  EXPECT_NE(log.meaningOf("Mileage"), Meaning::Odometer);
  EXPECT_NE(log.meaningOf("Model"), Meaning::Vehicle);
  EXPECT_TRUE(log.asks(Question::OdometerColumn));
}

// 40 × 600 = 24,000 and so on.
TEST(AColumn, ThatIsVolumeTimesPriceIsTheCostWhateverItsHead) {
  const std::string rows =
      "2024.01.05.;48210;40;600;24000\n2024.01.19.;48866;44;610;26840\n2024.02.02.;49391;20;620;12400\n";
  EXPECT_EQ(readLog("Dátum;Km;Liter;Egységár;Zutty\n" + rows).meaningOf("Zutty"), Meaning::TotalCost);
  EXPECT_EQ(readLog("Dátum;Km;Zutty;Egységár;Ft\n" + rows).meaningOf("Zutty"), Meaning::Volume);
}

// What the person said is a distance does not hide the readings beside it.
TEST(AColumn, OfDistancesLeavesTheReadingsTheirPlace) {
  const ReadLog log = readLog("Dátum;Km;Liter;Zutty\n2024.01.05.;48210;41;500\n2024.01.19.;48866;44;656\n",
                              {.columns = {{3, Meaning::Trip}}});
  EXPECT_EQ(log.meaningOf("Km"), Meaning::Odometer);
  EXPECT_FALSE(log.asks(Question::TripStart));
}

// Rows longer than the heads: a column that is not there must not be read behind them.
TEST(AColumn, ThatIsNotThereIsNotReadBehindTheLastHead) {
  const ReadLog log = readLog("Dátum;Liter\n2024.01.05.;41;500\n2024.01.09.;;700\n",
                              {.columns = {{0, Meaning::Day}, {1, Meaning::Volume}}});
  EXPECT_TRUE(log.asks(Question::OdometerColumn));
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(2, Why::NoOdometer), Pair(3, Why::NothingInIt)));
}

TEST(TheWordsForFull, AreAskedWhereTheyAreNotKnown) {
  const std::string text =
      "Dátum;Km;Liter;Ft;Teletankolás\n2024.01.05.;48210;41,27;25575;csurig\n2024.01.19.;48866;44,03;27681;"
      "feles\n";
  const ReadLog log = readLog(text);
  EXPECT_TRUE(log.asks(Question::FullWord));
  const ReadLog said = readLog(text, {.fullWord = "csurig"});
  EXPECT_FALSE(said.asks(Question::FullWord));
  EXPECT_TRUE(said.rows.rows[0].isFull);
  EXPECT_FALSE(said.rows.rows[1].isFull);
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

TEST(Units, AreAskedWhereAnEnglishFileDoesNotStateThem) {
  const std::string rows = "2024-01-05,30000,10.5\n2024-01-19,30400,11.2\n2024-02-02,30810,10.9\n";
  const ReadLog log = readLog("date,mileage,volume\n" + rows);
  EXPECT_THAT(log.reading.open, ElementsAre(Question::DistanceUnit, Question::VolumeUnit));
  const ReadLog gallons = readLog("date,odometer,gallons\n" + rows);
  EXPECT_THAT(gallons.reading.open, ElementsAre(Question::DistanceUnit, Question::Gallon));
  const ReadLog miles = readLog("date,Odometer (mi),Fuel (US gal)\n" + rows);
  EXPECT_THAT(miles.reading.open, IsEmpty());
  EXPECT_EQ(miles.rows.rows[0].kilometres, Ratio(30'000) * kilometresOf(DistanceUnit::Mile));
  EXPECT_EQ(miles.rows.rows[0].litres, Ratio(105, 10) * litresOf(VolumeUnit::UsGallon));
  const ReadLog said = readLog("date,mileage,volume\n" + rows,
                               {.distance = DistanceUnit::Kilometre, .volume = VolumeUnit::UkGallon});
  EXPECT_THAT(said.reading.open, IsEmpty());
  EXPECT_EQ(said.rows.rows[0].litres, Ratio(105, 10) * litresOf(VolumeUnit::UkGallon));
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
}

TEST(Money, WithASignOfItsCountryBeforeItIsAFigure) {
  const ReadLog log =
      readLog("Date,Odo (km),Litres,Cost\n2024-01-05,48210,41,R971.70\n2024-01-19,48866,44,R1042.80\n");
  EXPECT_EQ(log.reading.currency, "ZAR");
  EXPECT_EQ(log.meaningOf("Cost"), Meaning::TotalCost);
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

TEST(DaysOfALog, MayStandInThreeColumns) {
  const ReadLog log =
      readLog("Év;Hónap;Nap;Km;Liter;Ft\n2024;január;5;48210;41;25575\n2024;2;30;48800;41;25575\n");
  EXPECT_THAT(log.reading.open, IsEmpty());
  ASSERT_EQ(log.rows.rows.size(), 1U);
  EXPECT_EQ(log.rows.rows[0].day, core::dayOf({2024, 1, 5}));
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(3, Why::DayNotUnderstood)));
}

TEST(DaysOfALog, AreAskedWhereTwoOrdersFit) {
  const std::string text = "Date;Odometer (km);Litres\n01/02/2024;1000;40\n03/04/2024;1600;41\n";
  EXPECT_TRUE(readLog(text).asks(Question::DayOrder));
  const ReadLog log = readLog(text, {.dayOrder = DayOrder::MonthFirst});
  EXPECT_FALSE(log.asks(Question::DayOrder));
  EXPECT_EQ(log.rows.rows[0].day, core::dayOf({2024, 1, 2}));
}

TEST(ADecimalSign, ThatNothingShowsIsAsked) {
  const std::string text =
      "Datum\tTachometr\tLitry\tCena celkem\n2024-01-05\t48210\t41\t1.234\n2024-01-19\t48866\t44\t1.300\n";
  EXPECT_TRUE(readLog(text).asks(Question::DecimalSign));
  const ReadLog log = readLog(text, {.sign = exchange::DecimalSign::Comma, .rates = {{"CZK", Ratio(16)}}});
  EXPECT_FALSE(log.asks(Question::DecimalSign));
  EXPECT_EQ(log.rows.rows[0].forints, Ratio(1'234));
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
}

TEST(ALogOfDistances, ThatRunsPastWhatALogbookKeepsIsLeftOut) {
  const ReadLog log =
      readLog("Dátum;Megtett km;Liter;Ft\n2024.01.05.;640;41;25575\n2024.01.19.;510;31;18600\n",
              {.tripStart = exchange::TripStart{true, Ratio(2'147'483'000)}});
  const auto plan = planOf(log);
  ASSERT_EQ(plan.entries.size(), 1U);
  EXPECT_EQ(plan.entries[0].entry.KmOra, 2'147'483'640);
  EXPECT_EQ(plan.unread.back().why, Why::FigureTooLarge);
  EXPECT_EQ(plan.unread.back().line, 3);
  const exchange::Choices past{.tripStart = exchange::TripStart{true, Ratio(2'147'483'648)}};
  EXPECT_TRUE(
      readLog("Dátum;Megtett km;Liter;Ft\n2024.01.05.;640;41;25575\n", past).asks(Question::TripStart));
}

// 640, then 250 without a fill-up, then 510.
TEST(ALogOfDistances, CountsThoseOfRowsThatAreLeftOut) {
  const std::string rows[] = {"2024.01.05.;640;41;25575\n", "2024.01.09.;250;;\n",
                              "2024.01.19.;510;31;18600\n"};
  const exchange::Choices start{.tripStart = exchange::TripStart{true, Ratio(1'000)}};
  for (const std::string& text : {rows[0] + rows[1] + rows[2], rows[2] + rows[1] + rows[0]}) {
    const auto plan = planOf(readLog("Dátum;Megtett km;Liter;Ft\n" + text, start));
    ASSERT_EQ(plan.entries.size(), 2U);
    EXPECT_EQ(plan.entries[0].entry.KmOra, 1'640);
    EXPECT_EQ(plan.entries[1].entry.KmOra, 2'400);
  }
}

// The consumption is written with a comma, what is kept with a point.
TEST(ADecimalSign, OfWhatIsNotKeptTellsNothingOfTheRest) {
  const ReadLog log = readLog(
      "Dátum,Km,Liter,Egységár,Fogyasztás\n2024.01.05.,48210,41.271,1.589,\"7,1\"\n"
      "2024.01.19.,48866,44.035,1.612,\"6,7\"\n");
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(41'271, 1'000));
}

// Two years under heads of their own: the second one has a note more and no litres before its price.
TEST(Sections, WithOtherHeadsForTheSameComeUnderThoseOfTheFirst) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft\n2023.12.05.;48210;41;25575\n2023.12.19.;48866;44;27681\n\n"
      "Dátum;Km óra;Összeg;Tankolt liter;Megjegyzés\n2024.01.06.;49400;18000;30;havas\n");
  EXPECT_THAT(log.reading.open, IsEmpty());
  ASSERT_EQ(log.rows.rows.size(), 3U);
  EXPECT_EQ(log.rows.rows[2].kilometres, Ratio(49'400));
  EXPECT_EQ(log.rows.rows[2].litres, Ratio(30));
  EXPECT_EQ(log.rows.rows[2].forints, Ratio(18'000));
  EXPECT_EQ(log.rows.rows[2].note, "havas");
}

TEST(Sections, ThatCountInOtherUnitsAreLeftOut) {
  const ReadLog log = readLog(
      "Date,Odo (km),Litres,Cost (EUR)\n2023-12-05,48210,41,60\n2023-12-19,48866,44,61\n\n"
      "Date,Odo (mi),Litres,Cost (EUR)\n2024-01-06,49400,30,50\n");
  EXPECT_EQ(log.rows.rows.size(), 2U);
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(4, Why::Empty), Pair(6, Why::OtherSection)));
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

TEST(ARow, WithAFigureBehindTheLastHeadIsLeftOut) {
  const ReadLog log =
      readLog("Date,Odometer (km),Litres,Cost (EUR)\n2024-01-05,1000,40,5,60\n2024-01-09,1500,41,60\n");
  EXPECT_THAT(leftOut(log), ElementsAre(Pair(2, Why::TooManyCells)));
}

TEST(ARow, OfAServiceIsAnEntryWithANote) {
  const ReadLog log = readLog(
      "Date,Odometer (km),Litres,Cost "
      "(Ft),Type,Notes\n2024-01-05,1000,40,24000,Fuel,\n2024-01-06,1100,1,5000,Service,oil\n"
      "2024-01-07,1200,,5000,Service,\n");
  ASSERT_EQ(log.rows.rows.size(), 3U);
  EXPECT_TRUE(log.rows.rows[1].litres.isZero());
  EXPECT_EQ(log.rows.rows[1].note, "oil");
  EXPECT_EQ(log.rows.rows[2].note, "Service");
}

// Two costs that only together are too much, and a product of 2^128, of which 128 bits would keep a 0.
TEST(ARow, OfFiguresTooLargeToBeWorkedOutIsLeftOut) {
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
}

TEST(ALog, WithoutATableIsNone) {
  for (const char* text : {"", "\n\n", "hello"})
    EXPECT_EQ(readLog(text).table.fault, exchange::LogTable::Fault::NoTable) << text;
  EXPECT_FALSE(readLog("alma;körte\n1;2\n3;4\n").reading.unknownColumn);  // asked for others first
  EXPECT_THAT(readLog("alma;körte\n1;2\n").reading.open,
              ElementsAre(Question::DayColumn, Question::OdometerColumn, Question::VolumeColumn));
}

TEST(ALog, HasItsSeparatorFoundFromAllItsHeads) {
  EXPECT_EQ(readLog("Date;Odometer;Litres\n2024-01-05;1000;40,5\n").table.shape.separator, ';');
  EXPECT_EQ(readLog("Date,Odometer,Litres\n2024-01-05,1000,40.5\n").table.shape.separator, ',');
  EXPECT_EQ(readLog("Date\tOdometer\tLitres\n2024-01-05\t1000\t40.5\n").table.shape.separator, '\t');
  EXPECT_EQ(readLog("Date|Odometer|Litres\n2024-01-05|1000|40.5\n").table.shape.separator, '|');
  EXPECT_EQ(readLog("'Date','Odometer','Litres'\n'2024-01-05','1000','40.5'\n").table.shape.quote, '\'');
  const ReadLog log = readLog("Date;Odometer;Litres;Notes\n2024-01-05;1000;40,5;a,b,c,d,e,f\n");
  EXPECT_EQ(log.table.shape.separator, ';');
  EXPECT_EQ(log.rows.rows[0].note, "a,b,c,d,e,f");
}

TEST(ALog, HasItsUnitsBelowItsHeads) {
  const ReadLog log = readLog("Datum;Stand;Menge;Betrag\n;mi;l;€\n2024-01-05;1000;40,5;60\n");
  EXPECT_EQ(log.reading.distance, DistanceUnit::Mile);
  EXPECT_THAT(log.reading.open, ElementsAre(Question::Rate));
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
