#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

// What a file leaves open: units, money, vehicles, which fills were full.

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::Choices;
using exchange::DecimalSign;
using exchange::DistanceUnit;
using exchange::Question;
using exchange::VolumeUnit;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Question> open(const std::string& text, const Choices& choices = {}) {
  return readLog(text, choices).reading.open;
}

// Money -----------------------------------------------------------------------------------------------------

// Whether costs under Hungarian heads that name no money are asked about, by a fill's litres and its cost.
bool isMoneyAsked(const std::vector<std::string>& litresAndCost) {
  std::string text = "Dátum;Km óra;Liter;Összeg\n";
  for (std::size_t i = 0; i < litresAndCost.size(); ++i)
    text += "2024.01.0" + std::to_string(i + 1) + ".;" + std::to_string(48'000 + 500 * i) + ";" +
            litresAndCost[i] + "\n";
  return readLog(text).asks(Question::Currency);
}

TEST(Money, OfHungarianHeadsAreForintsWhereALitreCostsFrom50To2000) {
  EXPECT_FALSE(isMoneyAsked({"40;2000"}));
  EXPECT_TRUE(isMoneyAsked({"40;1999"}));
  EXPECT_FALSE(isMoneyAsked({"40;80000"}));
  EXPECT_TRUE(isMoneyAsked({"40;80001"}));
  EXPECT_TRUE(isMoneyAsked({"40;1600", "40;2400", "40;1200"}));  // 40, 60, 30: 40 in the middle
  EXPECT_FALSE(isMoneyAsked({"40;1600", "40;2400", "40;1200", "40;2800"}));
  EXPECT_FALSE(isMoneyAsked({"40;2400", "0;9000"}));  // the one without litres does not count
  EXPECT_TRUE(isMoneyAsked({"1;49"}));
  const std::string row = "\n2024.01.05.;48000;40;";
  EXPECT_THAT(open("Dátum;Km óra;Liter;Egységár;Összeg" + row + "600;10"), IsEmpty());
  EXPECT_THAT(open("Dátum;Km óra;Liter;Egységár;Összeg" + row + "10;24000"), ElementsAre(Question::Currency));
  EXPECT_THAT(open("Dátum;Km óra;Liter;Egységár;Összeg" + row + ";10"), ElementsAre(Question::Currency));
  EXPECT_THAT(open("Dátum;Km óra;Liter;Egységár;Összeg" + row + ";24000"), IsEmpty());
  EXPECT_THAT(open("Dátum;Km óra;Liter;Egyéb költség" + row + "5"), IsEmpty());
  EXPECT_THAT(open("Dátum;Km óra;Liter;Összeg" + row + "\n"), IsEmpty());
  EXPECT_FALSE(readLog("Dátum;Km óra;Liter;Összeg" + row + "\n").reading.hasCosts);
  EXPECT_TRUE(readLog("Dátum;Km óra;Liter;Összeg" + row + "5\n").reading.hasCosts);
}

TEST(Money, ThatSomeCellsNameIsAskedForTheOthers) {
  const std::string heads = "Date;Odo (km);Litres;Cost\n2024-01-05;48210;41;";
  const auto text = [&](const std::string& a, const std::string& b, const std::string& c) {
    return heads + a + "\n2024-01-19;48866;44;" + b + "\n2024-02-02;49391;20;" + c + "\n";
  };
  const Choices rates{.rates = {{"EUR", Ratio(400)}, {"CHF", Ratio(410)}}};
  EXPECT_THAT(open(text("€60", "61", "€62"), rates), IsEmpty());
  EXPECT_EQ(readLog(text("€60", "61", "€62"), rates).rows.rows.at(1).forints, Ratio(61 * 400));
  EXPECT_THAT(open(text("€60", "61", "CHF 62"), rates), ElementsAre(Question::Currency));
  EXPECT_THAT(open(text("€60", "", "CHF 62"), rates), IsEmpty());
  EXPECT_THAT(open(text("€60", "CHF 61", "€62"), {.rates = {{"EUR", Ratio(400)}}}),
              ElementsAre(Question::Rate));
  const std::string currencies =
      "Date;Odo (km);Litres;Cost;Currency\n2024-01-05;48210;41;60;EUR\n2024-01-19;48866;44;61;CHF\n";
  EXPECT_THAT(open(currencies, rates), IsEmpty());
  EXPECT_THAT(open(currencies + "2024-02-02;49391;20;62;\n", rates), ElementsAre(Question::Currency));
  EXPECT_EQ(
      readLog("Date;Odo (km);Litres;Cost (EUR);Price (CHF/l)\n2024-01-05;48210;41;60;1.5\n").reading.currency,
      "EUR");
  EXPECT_EQ(readLog(text("60", "61", "62")).reading.currency, "HUF");
}

TEST(Money, ThatThePersonNamesIsTheOnlyOneWhereTheFileNamesOne) {
  const std::string text = "Date;Odo (km);Litres;Cost\n2024-01-05;48210;41;€60\n2024-01-19;48866;44;";
  EXPECT_THAT(readLog(text + "61\n", {.currency = "CHF"}).reading.currencies, ElementsAre("CHF"));
  EXPECT_THAT(readLog(text + "61 USD\n", {.currency = "CHF"}).reading.currencies,
              ElementsAre("EUR", "USD", "CHF"));
  const ReadLog dollars = readLog("Date;Odo (km);Litres;Cost;Price\n2024-01-05;48210;41;CAD 60;$1.5\n");
  EXPECT_EQ(dollars.reading.dollar, "CAD");
}

// Words for full fills --------------------------------------------------------------------------------------

TEST(TheWordsForFull, ThatAreKnownStayWhatTheyAreBesideTheOneThatIsChosen) {
  const std::string text =
      "Dátum;Km;Liter;Tele\n2024.01.01.;48000;40;igen\n2024.01.02.;48500;40;csurig\n2024.01.03.;49000;40;"
      "nem\n"
      "2024.01.04.;49500;40;feles\n2024.01.05.;50000;40;Igen\n2024.01.06.;50500;40;\n";
  const auto areFull = [](const ReadLog& log) {
    std::vector<std::optional<bool>> found;
    for (const auto& word : log.reading.fullWords) found.push_back(word.isFull);
    return found;
  };
  const ReadLog log = readLog(text);
  EXPECT_THAT(areFull(log), ElementsAre(true, std::nullopt, false, std::nullopt, false));
  EXPECT_EQ(log.reading.fullWords[0].rows, 2U);
  EXPECT_EQ(log.reading.fullWords[0].word, "igen");
  EXPECT_THAT(log.reading.open, ElementsAre(Question::FullWord));
  EXPECT_THAT(areFull(readLog(text, {.fullWord = "csurig"})), ElementsAre(true, true, false, false, false));
  EXPECT_THAT(areFull(readLog(text, {.fullWord = "nem"})), ElementsAre(true, false, true, false, false));
  EXPECT_THAT(open(text, {.fullWord = "Zutty"}), ElementsAre(Question::FullWord));
  const std::string known = "Dátum;Km;Liter;Tele\n2024.01.01.;48000;40;igen\n2024.01.02.;48500;40;nem\n";
  EXPECT_THAT(areFull(readLog(known, {.fullWord = "nem"})), ElementsAre(false, true));
  EXPECT_FALSE(readLog("Dátum;Km;Liter;Tele\n2024.01.01.;48000;40;\n").reading.saysWhichAreFull);
  EXPECT_EQ(
      readLog("Dátum;Km;Liter;Tele\n2024.01.01.;48000;40;✓\n2024.01.02.;48500;40;\n2024.01.03.;49000;40;✗\n")
          .reading.fullWords.size(),
      3U);
  const std::string partial = "Dátum;Km;Liter;Partial\n2024.01.01.;48000;40;\n2024.01.02.;48500;40;partial\n";
  EXPECT_THAT(areFull(readLog(partial)), ElementsAre(true, false));
  EXPECT_THAT(areFull(readLog(partial + "2024.01.03.;49000;40;csurig\n")),
              ElementsAre(true, false, std::nullopt));
  EXPECT_THAT(areFull(readLog(partial + "2024.01.03.;49000;40;no\n")), ElementsAre(true, false, true));
}

// Units -----------------------------------------------------------------------------------------------------

// Three fills of so many litres after 1,000 kilometres each.
std::vector<Question> openAfter(const std::string& heads, const std::string& volume,
                                const std::string& more = "") {
  std::string text = heads + "\n";
  for (int i = 1; i < 4; ++i)
    text += "2024-01-0" + std::to_string(i) + ";" + std::to_string(1'000 * i) + ";" + volume + more + "\n";
  return open(text);
}

TEST(Units, ThatNobodyStatesAreTakenWhereCarsUseFrom3Point5To12Point5Litres) {
  const auto distance = ElementsAre(Question::DistanceUnit);
  EXPECT_THAT(openAfter("Datum;Stand;Menge", "35"), IsEmpty());
  EXPECT_THAT(openAfter("Datum;Stand;Menge", "34.9"), distance);
  EXPECT_THAT(openAfter("Datum;Stand;Menge", "125"), IsEmpty());
  EXPECT_THAT(openAfter("Datum;Stand;Menge", "125.1"), distance);
  EXPECT_THAT(openAfter("Datum;Stand;Menge", "1"), distance);
  EXPECT_THAT(open("Datum;Stand;Menge\n2024-01-01;1000;5\n2024-01-02;2000;5\n"), distance);
  EXPECT_THAT(openAfter("Datum;Stand (mi);Menge", "160"), IsEmpty());  // 9.9 for 100 km
  EXPECT_THAT(openAfter("Datum;Stand (km);Menge (l)", "34.9"), IsEmpty());
  EXPECT_THAT(openAfter("Datum;Stand (km);Menge", "34.9"), ElementsAre(Question::VolumeUnit));
  EXPECT_THAT(open("Datum;Gefahren;Menge\n2024-01-01;510;30\n2024-01-02;490;31\n2024-01-03;500;30\n"),
              ElementsAre(Question::TripStart));
  EXPECT_THAT(open("Datum;Gefahren;Menge\n2024-01-01;510;3\n2024-01-02;490;3\n2024-01-03;500;3\n"),
              ElementsAre(Question::DistanceUnit, Question::TripStart));
  // 30 over 10,000 before the readings were in order; what stands without a volume is passed over.
  EXPECT_THAT(open("Datum;Stand;Menge\n2024-01-03;22000;60\n2024-01-01;20000;60\n2024-01-02;21000;60\n2024-"
                   "01-02;21000;x\n"
                   "2024-01-02;21500;0\n"),
              IsEmpty());
  // 6, 60 and 2 for a hundred: the middle one counts.
  EXPECT_THAT(open("Datum;Stand;Menge\n2024-01-01;20000;60\n2024-01-02;21000;60\n2024-01-03;21100;60\n2024-"
                   "01-04;24100;60\n"),
              IsEmpty());
  EXPECT_THAT(open("Datum;Stand;Menge\n2024-01-01;20000;60\n"), IsEmpty());
  // 6 for a hundred alone or beside 2, nothing over no distance, 6,000 over one kilometre, 7 past what took
  // nothing; the distance of one row is enough.
  const std::string rows = "Datum;Stand;Menge\n2024-01-01;20000;60\n2024-01-02;";
  EXPECT_THAT(open(rows + "21000;60\n2024-01-03;24000;60\n"), IsEmpty());
  EXPECT_THAT(open(rows + "21000;60\n2024-01-03;21000;60\n"), IsEmpty());
  EXPECT_THAT(open(rows + "20001;60\n"), distance);
  EXPECT_THAT(open(rows + "20500;0\n2024-01-03;21000;70\n2024-01-04;21500;0\n2024-01-05;22000;70\n"),
              IsEmpty());
  EXPECT_THAT(open("Datum;Gefahren;Menge\n2024-01-01;1000;125\n"), ElementsAre(Question::TripStart));
  EXPECT_THAT(open("Datum;Gefahren;Menge\n2024-01-01;1000;126\n"),
              ElementsAre(Question::DistanceUnit, Question::TripStart));
  const Choices trip{.columns = {{3, exchange::Meaning::Trip}}};
  EXPECT_THAT(open("Datum;Stand;Menge;Zutty\n2024-01-01;20000;60;900\n2024-01-02;21000;60;1000\n", trip),
              IsEmpty());
}

TEST(Units, OfEnglishHeadsAreAskedUnlessTheMoneyTells) {
  const auto asked = [](const std::string& currency) {
    const Choices rate{.rates = {{currency, Ratio(100)}}};
    return open("Date;Odometer;Volume;Cost (" + currency + ")\n2024-01-01;1000;60;5\n2024-01-02;2000;60;5\n",
                rate);
  };
  EXPECT_THAT(asked("PLN"), IsEmpty());
  EXPECT_THAT(asked("EUR"), ElementsAre(Question::DistanceUnit));
  for (const char* currency : {"USD", "GBP"})
    EXPECT_THAT(asked(currency), ElementsAre(Question::DistanceUnit, Question::VolumeUnit)) << currency;
  const Choices zloty{.rates = {{"PLN", Ratio(90)}}};
  for (const char* text :
       {"Date;Odometer;Volume;Cost\n2024-01-01;1000;60;5 PLN\n2024-01-02;2000;60;5 PLN\n",
        "Date;Odometer;Volume;Cost;Currency\n2024-01-01;1000;60;5;PLN\n2024-01-02;2000;60;5;PLN\n",
        "Date;Odometer;Volume;Unit price (PLN)\n2024-01-01;1000;60;5\n2024-01-02;2000;60;5\n"})
    EXPECT_THAT(open(text, zloty), IsEmpty()) << text;
  // Two litres over 100 km, whichever row comes first.
  for (const char* rows :
       {"2024-01-01;1000;20;5\n2024-01-02;2000;20;5\n", "2024-01-02;2000;20;5\n2024-01-01;1000;20;5\n"})
    EXPECT_THAT(open(std::string("Date;Odometer;Volume;Cost (PLN)\n") + rows, zloty),
                ElementsAre(Question::DistanceUnit))
        << rows;
  EXPECT_THAT(openAfter("Date;Odometer (km);Volume", "60"), IsEmpty());
  EXPECT_THAT(openAfter("Date;Odometer;Volume", "60"),
              ElementsAre(Question::DistanceUnit, Question::VolumeUnit));
  EXPECT_THAT(openAfter("Date;Odometer;Gallons", "10"),
              ElementsAre(Question::DistanceUnit, Question::Gallon));
  EXPECT_THAT(openAfter("Date;Odometer (mi);Fuel (US gal)", "10"), IsEmpty());
  EXPECT_THAT(openAfter("Date;Odometer;Volume (l)", "60"), ElementsAre(Question::DistanceUnit));
  EXPECT_THAT(openAfter("Date;Odometer (mi);Volume", "60"), ElementsAre(Question::VolumeUnit));
  EXPECT_THAT(openAfter("Datum;Stand;Menge;MPG", "60", ";30"),
              ElementsAre(Question::DistanceUnit, Question::VolumeUnit));
  EXPECT_THAT(openAfter("Datum;Stand;Menge (US gal)", "10"), ElementsAre(Question::DistanceUnit));
  EXPECT_THAT(openAfter("Datum;Stand;Menge;km/l", "60", ";16"), IsEmpty());
  EXPECT_THAT(openAfter("Datum;Stand;Menge;mi/gal", "10", ";16"), ElementsAre(Question::Gallon));
}

TEST(Units, AreThoseOfTheNearestColumnThatNamesThem) {
  const ReadLog log = readLog(
      "Date;Odometer (mi);Litres;km/l;Distance unit\n2024-01-01;1000;40;8;\n2024-01-02;1500;41;9;km\n");
  EXPECT_EQ(log.reading.distance, DistanceUnit::Kilometre);
  const ReadLog others = readLog("Date;Odometer;Volume;km/l;mi/gal\n2024-01-01;1000;40;8;5\n");
  EXPECT_EQ(others.reading.distance, DistanceUnit::Kilometre);
  EXPECT_EQ(others.reading.volume, VolumeUnit::Litre);
  EXPECT_FALSE(others.asks(Question::Gallon));
  const ReadLog near = readLog("Date;mi/gal;Odometer (km);Litres\n2024-01-01;30;1000;40\n");
  EXPECT_EQ(near.reading.distance, DistanceUnit::Kilometre);
  EXPECT_EQ(near.reading.volume, VolumeUnit::Litre);
  EXPECT_FALSE(near.asks(Question::Gallon));
  const ReadLog cells = readLog("Date;Odometer;Volume\n2024-01-01;1000;10\n2024-01-02;1100 mi;11 UK gal\n");
  EXPECT_EQ(cells.reading.distance, DistanceUnit::Mile);
  EXPECT_EQ(cells.reading.volume, VolumeUnit::UkGallon);
  EXPECT_THAT(cells.reading.open, IsEmpty());
}

// Vehicles --------------------------------------------------------------------------------------------------

// A log of a day of January 2024 and a reading each.
std::vector<exchange::VehicleRows> vehicles(const std::vector<std::pair<int, int>>& stops) {
  std::string text = "Dátum;Km óra;Liter\n";
  for (const auto& [day, reading] : stops)
    text += "2024.01." + std::to_string(10 + day) + ".;" + std::to_string(reading) + ";40\n";
  const ReadLog log = readLog(text);
  EXPECT_EQ(log.asks(Question::Vehicle), !log.reading.vehicles.empty());
  return log.reading.vehicles;
}

TEST(SeveralVehicles, HaveReadingsThatAreNotThoseOfOneWay) {
  // 5,000 from one stop to the next may be one car, more are not.
  const auto near = vehicles(
      {{1, 6'000}, {1, 1'000}, {2, 7'000}, {2, 2'000}, {3, 8'000}, {3, 3'000}, {4, 9'000}, {4, 4'000}});
  ASSERT_EQ(near.size(), 2U);
  EXPECT_EQ(near[0].lowest, 1'000);
  EXPECT_EQ(near[0].highest, 9'000);
  EXPECT_EQ(near[1].lowest, 2'000);
  const auto far = vehicles(
      {{1, 1'000}, {1, 6'001}, {2, 2'000}, {2, 7'001}, {3, 3'000}, {3, 8'001}, {4, 4'000}, {4, 9'001}});
  ASSERT_EQ(far.size(), 2U);
  EXPECT_EQ(far[0].highest, 4'000);
  EXPECT_EQ(far[1].lowest, 6'001);
  EXPECT_EQ(far[1].rows, 4U);
  EXPECT_THAT(vehicles({{1, 1'000}, {2, 1'100}, {3, 1'200}, {1, 90'000}, {2, 90'100}}),
              IsEmpty());  // two slips
  const auto fromNew = vehicles({{1, 1}, {1, 90'000}, {2, 300}, {2, 90'100}, {3, 600}, {3, 90'200}});
  ASSERT_EQ(fromNew.size(), 2U);
  EXPECT_EQ(fromNew[0].rows, 3U);
  // The second one does not move on its second day.
  const auto still = vehicles(
      {{1, 4'000}, {1, 9'500}, {2, 4'600}, {2, 9'500}, {3, 4'700}, {3, 10'000}, {4, 4'800}, {4, 10'500}});
  ASSERT_EQ(still.size(), 2U);
  EXPECT_EQ(still[0].highest, 4'800);
  EXPECT_EQ(still[1].lowest, 9'500);
}

TEST(SeveralVehicles, AreOneThatWasNotWrittenDownForAWhile) {
  const std::vector<std::pair<int, int>> first{{1, 1'000}, {2, 1'100}, {3, 1'200}};
  const auto with = [&](int day, int reading) {
    auto stops = first;
    for (int i = 0; i < 3; ++i) stops.emplace_back(day + i, reading + 100 * i);
    return vehicles(stops).size();
  };
  EXPECT_EQ(with(10, 21'200), 0U);
  EXPECT_EQ(with(10, 21'201), 2U);
  EXPECT_EQ(with(3, 10'000), 0U);
  EXPECT_EQ(with(2, 10'000), 2U);
}

// 5,000 down at most where a reading was corrected. In the last one three were misread between others, and
// 20,000 count from the one before the pause.
TEST(SeveralVehicles, AreOneWhoseReadingWasCorrected) {
  const auto with = [](int reading) {
    return vehicles({{1, 10'000}, {2, 10'100}, {3, 10'200}, {4, reading}, {5, 5'300}, {6, 5'400}}).size();
  };
  EXPECT_EQ(with(5'200), 0U);
  EXPECT_EQ(with(5'199), 2U);
  EXPECT_THAT(vehicles({{1, 1'000},
                        {2, 1'100},
                        {3, 1'200},
                        {4, 500},
                        {5, 510},
                        {6, 520},
                        {7, 1'300},
                        {8, 1'400},
                        {9, 1'500},
                        {10, 21'500},
                        {11, 21'600},
                        {12, 21'700}}),
              IsEmpty());
}

TEST(AVehicle, IsNamedByItsSectionAndAllItsColumns) {
  const ReadLog log = readLog(
      "Make;Model;Date;Odo "
      "(km);Litres\nOpel;Astra;2024-01-05;48210;41\nOpel;;2024-01-06;9000;30\nOpel;Astra;2024-01-07;48800;"
      "40\n"
      ";x;sok;5;5\n");
  ASSERT_EQ(log.reading.vehicles.size(), 2U);
  EXPECT_EQ(log.reading.vehicles[0].name, "Opel Astra");
  EXPECT_EQ(log.reading.vehicles[0].rows, 2U);
  EXPECT_EQ(log.reading.vehicles[1].name, "Opel");
  for (const std::size_t chosen : {0U, 1U, 2U, 3U})  // 2: all rows; there is no 3
    EXPECT_EQ(readLog("Plate;Date;Odo (km);Litres\nA;2024-01-05;48210;41\nB;2024-01-06;9000;30\n",
                      {.vehicle = chosen})
                  .asks(Question::Vehicle),
              chosen == 3);
  EXPECT_THAT(
      readLog("Plate;Date;Odo (km);Litres\nA;2024-01-05;48210;41\nA;2024-01-06;49000;30\n").reading.vehicles,
      IsEmpty());
}

// Days and signs --------------------------------------------------------------------------------------------

TEST(DaysOfALog, InThreeColumnsHaveYearsOfTwoDigitsOrFour) {
  const auto day = [](const std::string& row) {
    const ReadLog log = readLog("Year;Month;Day;Odo (km);Litres\n" + row + ";1000;40\n2024;1;7;1100;40\n");
    return log.rows.rows.empty() || log.rows.rows.size() == 1 ? std::nullopt
                                                              : std::optional(log.rows.rows[0].day);
  };
  EXPECT_EQ(day("24.;1;5."), core::dayOf({2024, 1, 5}));
  EXPECT_EQ(day("2024;január;5"), core::dayOf({2024, 1, 5}));
  EXPECT_EQ(day("99;12;31"), core::dayOf({2099, 12, 31}));
  EXPECT_EQ(day("100;1;5"), core::dayOf({100, 1, 5}));
  for (const char* row : {"x;1;5", "2024;13;5", "2024;1;5x", "2024;1;32", "0;1;5", "2024;;5", "123456;1;5"})
    EXPECT_EQ(day(row), std::nullopt) << row;
}

TEST(DaysOfALog, AreAskedForUnlessOneColumnOrThreeHaveThem) {
  using M = exchange::Meaning;
  const auto asks = [](const std::map<std::size_t, M>& columns) {
    return readLog("a;b;c;d\n1;2;3;4\n5;6;7;8\n", {.columns = columns}).asks(Question::DayColumn);
  };
  EXPECT_FALSE(asks({{0, M::Day}}));
  EXPECT_FALSE(asks({{0, M::Year}, {1, M::Month}, {2, M::DayOfMonth}}));
  for (const auto& [a, b] :
       std::vector<std::pair<M, M>>{{M::Year, M::Month}, {M::Year, M::DayOfMonth}, {M::Month, M::DayOfMonth}})
    EXPECT_TRUE(asks({{0, a}, {1, b}}));
  // A cell behind the last head is none of the three.
  for (const auto& [a, b] :
       std::vector<std::pair<M, M>>{{M::Year, M::Month}, {M::Year, M::DayOfMonth}, {M::Month, M::DayOfMonth}})
    EXPECT_TRUE(readLog("a;b;Km óra;Liter\n4;5;1000;40;6\n3;4;1500;40\n", {.columns = {{0, a}, {1, b}}})
                    .rows.rows.empty());
  const std::string twoOrders = "Date;Odo (km);Litres\n1/2/2024;1000;40\n2/3/2024;2000;60\n";
  EXPECT_TRUE(readLog(twoOrders).asks(Question::DayOrder));
  const ReadLog said = readLog(twoOrders, {.dayOrder = exchange::DayOrder::MonthFirst});
  EXPECT_THAT(said.reading.asked, ElementsAre(Question::DayOrder));
  EXPECT_THAT(said.reading.open, IsEmpty());
  EXPECT_EQ(said.rows.rows[0].day, core::dayOf({2024, 1, 2}));
  // The readings rise with the month first; the rows stand in no order.
  const ReadLog mixed = readLog(
      "Date;Odo (km);Litres\n1/2/2024;1000;40\n3/1/2024;3000;40\n1/9/2024;1500;40\n2/11/2024;2500;40\n"
      "2/3/2024;2000;40\n");
  EXPECT_FALSE(mixed.asks(Question::DayOrder));
  EXPECT_EQ(mixed.rows.rows.at(1).day, core::dayOf({2024, 3, 1}));
  EXPECT_FALSE(
      readLog("Date;Odo (km);Litres\n13/1/2024;1000;40\n1/2/2024;2000;60\n").asks(Question::DayOrder));
}

TEST(TheDecimalSign, IsShownAsThatOfTheVolumes) {
  const auto sign = [](const std::string& text) { return readLog(text).reading.sign; };
  EXPECT_EQ(sign("Datum;Stand;Liter;Kosten\n2024-01-05;1000;40,5;60.10\n"), DecimalSign::Comma);
  EXPECT_EQ(sign("Datum;Stand;Liter;Kosten\n2024-01-05;1000;40.5;60,10\n"), DecimalSign::Point);
  EXPECT_EQ(sign("Datum;Stand;Preis pro Liter;Kosten\n2024-01-05;1000;1.5;60,10\n"), DecimalSign::Point);
  EXPECT_EQ(sign("Datum;Stand;Kosten\n2024-01-05;1000,5;60.10\n"), DecimalSign::Point);
  EXPECT_EQ(sign("Datum;Stand;Zutty\n2024-01-05;1000.5;60,1\n"), DecimalSign::Point);
}

TEST(TheDecimalSign, IsAskedOfFiguresThatTheLogbookKeeps) {
  const auto read = [](const std::string& head, const Choices& choices = {}) {
    return readLog("Dátum\tKm óra\tLiter\t" + head + "\n2024.01.05.\t1000\t40\t1.234\n", choices);
  };
  for (const char* head : {"Ft", "Egyéb költség (Ft)"})
    EXPECT_TRUE(read(head).asks(Question::DecimalSign)) << head;
  for (const char* head : {"Fogyasztás", "Jegyzet"})
    EXPECT_FALSE(read(head).asks(Question::DecimalSign)) << head;
  const ReadLog said = read("Ft", {.sign = DecimalSign::Comma});
  EXPECT_FALSE(said.asks(Question::DecimalSign));
  EXPECT_EQ(said.rows.rows[0].forints, Ratio(1'234));
  EXPECT_TRUE(
      readLog("Ft\tDátum\tKm óra\tLiter\n1.234\t2024.01.05.\t1000\t40\n").asks(Question::DecimalSign));
  EXPECT_TRUE(readLog("Dátum\tKm óra\tFt\tLiter\n2024.01.05.\t1000\t1.234\tkb. 40.123\n")
                  .asks(Question::DecimalSign));  // words tell nothing of figures
}

}  // namespace
}  // namespace tarvik::test
