#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

// What single rows come to.

namespace tarvik::test {
namespace {

using core::Ratio;
using exchange::Choices;
using exchange::DistanceUnit;
using exchange::VolumeUnit;
using Why = exchange::UnreadRow::Why;
using testing::ElementsAre;

constexpr const char* kTable = "Dátum;Km;Liter;Ft\n2024.01.05.;48210;41;25575\n2024.01.19.;48866;44;27681\n";

TEST(ARowLeftOut, IsShownWithItsOwnCellsAndWhole) {
  const ReadLog log = readLog(std::string(kTable) + " 2024.13.01.;\"49\n391\";; 12519\n");
  ASSERT_EQ(log.rows.unread.size(), 2U);
  const exchange::UnreadRow& row = log.rows.unread[1];
  EXPECT_EQ(row.head, "Dátum");
  EXPECT_EQ(row.cell, "2024.13.01.");
  EXPECT_EQ(row.day, "2024.13.01.");
  EXPECT_EQ(row.odometer, "49 391");
  EXPECT_EQ(row.volume, "");
  EXPECT_EQ(row.cost, "12519");
  EXPECT_EQ(row.text, "2024.13.01. | 49 391 | 12519");
  const ReadLog trips = readLog(
      "Dátum;Megtett km;Liter;Ft\n2024.01.05.;510;41;25575\n2024.02.05.;510;41;25575\n2024.02.31.;480;4;9\n");
  EXPECT_EQ(trips.rows.unread.at(1).odometer, "480");
  const ReadLog apart =
      readLog("Év;Hónap;Nap;Km;Liter;Ft\n2024;1;5;48210;41;25575\n2024;2;x;48800;41;25575\n");
  EXPECT_EQ(apart.rows.unread.at(1).head, "Nap");
  EXPECT_EQ(apart.rows.unread.at(1).cell, "x");
  EXPECT_EQ(apart.rows.unread.at(1).day, "");
}

TEST(ARow, MayBeAChangeAPartOrItsCostAlone) {
  const ReadLog log = readLog(
      "Dátum;Km;Liter;Ft;Olajcsere;Szűrő;Gyertya;Alkatrész;Alkatrész ára (Ft)\n"
      "2024.01.05.;48210;41;25575;nem;-;;;\n2024.01.19.;48866;44;27681;igen;x;csere;Fékbetét;12500\n"
      "2024.01.20.;48900;;;x;;;;\n2024.01.21.;48910;;;;;;;9000\n2024.01.22.;48920;;;;;;Izzó;\n"
      "2024.01.23.;48930;;;nem;;;;\n");
  const auto entries = planOf(log).entries;
  ASSERT_EQ(entries.size(), 5U);
  const auto flags = [&](std::size_t row) {
    const core::NapiAdat& entry = entries[row].entry;
    return std::array{entry.Olajcsere != 0, entry.Szurocsere != 0, entry.Gyertyacsere != 0};
  };
  EXPECT_THAT(flags(0), ElementsAre(false, false, false));
  EXPECT_THAT(flags(1), ElementsAre(true, true, true));
  EXPECT_EQ(entries[1].entry.Alkatresz.trimmed(), "Fékbetét");
  EXPECT_EQ(entries[1].entry.AlkatreszKtg, 12'500);
  EXPECT_THAT(flags(2), ElementsAre(true, false, false));
  EXPECT_EQ(entries[3].entry.AlkatreszKtg, 9'000);
  EXPECT_EQ(entries[4].entry.Alkatresz.trimmed(), "Izzó");
  EXPECT_EQ(log.rows.unread.back().why, Why::NothingInIt);
}

TEST(ARow, TakesItsCostFromTheColumnThatHasOne) {
  const std::string text = "Dátum;Km;Liter;Ft;EUR\n2024.01.05.;48210;41;25575;\n2024.01.19.;48866;44;;70,5\n";
  EXPECT_TRUE(readLog(text).asks(exchange::Question::Rate));
  const ReadLog log = readLog(text, {.rates = {{"EUR", Ratio(400)}}});
  EXPECT_EQ(log.rows.rows.at(0).forints, 25'575);
  EXPECT_EQ(log.rows.rows.at(1).forints, 28'200);
}

TEST(ARow, WithoutFuelHasTheHeadOfItsCostForANote) {
  const ReadLog log =
      readLog("Dátum;Km;Liter;Ft;Szervizköltség\n2024.01.05.;48210;41;25575;\n2024.01.19.;48866;;;32000\n");
  EXPECT_EQ(log.rows.rows.at(1).note, "Szervizköltség");
  EXPECT_EQ(log.rows.rows.at(1).noteForints, 32'000);
}

TEST(ARow, IsBehindAMissedFillByTheWordsOfTheHeadToo) {
  const ReadLog log = readLog(
      "Date;Odometer (km);Litres;Missed\n2024-01-05;48210;41;no\n2024-01-19;48866;44;missed\n"
      "2024-02-02;49391;40;kimaradt\n2024-02-12;49991;42;so-so\n");
  EXPECT_FALSE(log.rows.rows.at(0).isAfterMissed);
  EXPECT_TRUE(log.rows.rows.at(1).isAfterMissed);
  EXPECT_TRUE(log.rows.rows.at(2).isAfterMissed);
  EXPECT_FALSE(log.rows.rows.at(3).isAfterMissed);
}

TEST(AnOwnRow, WithoutItsPriceHasTheOneOfItsCost) {
  const ReadLog log = readLog(
      "Dátum;Km óra állás;Liter;Tankolt költség (Ft);Tele tankolva;Olajcsere;Szűrőbetét csere;Gyertya csere;"
      "Alkatrész megnevezése;Alkatrész költség (Ft);Megjegyzés;Megjegyzés költsége (Ft);"
      "Fogyasztás (liter/100 km)\n2024-01-05;48210;41,37;25575;igen;nem;nem;nem;;0;Tankolás;0;0\n"
      "2024-01-06;48211;0;0;nem;nem;nem;nem;;0;Mosás;500;0\n");
  ASSERT_TRUE(log.reading.isOwn);
  EXPECT_EQ(log.rows.rows.at(0).own->FtPerLiter.tenThousandths, 6'182'000);  // 25,575 / 41.37 = 618.2016
  EXPECT_EQ(log.rows.rows.at(1).own->FtPerLiter.tenThousandths, 0);
}

TEST(ARowLeftOut, IsShownAsFarAsThreeHundredBytesReach) {
  const auto text = [](std::size_t first) {
    return readLog(std::string(kTable) + ";" + std::string(first, 'x') + ";y\n").rows.unread.at(1).text;
  };
  EXPECT_EQ(text(299), std::string(299, 'x') + " | y");
  EXPECT_EQ(text(300), std::string(300, 'x'));
}

TEST(ARowLeftOut, NamesItsSectionItsVehicleOrTheCellThatTells) {
  const ReadLog sections =
      readLog("## Log\nDate,Odometer,Litres\n2024-01-05,1000,40\n## Costs\nTitle,Money\nWash,5\n");
  EXPECT_EQ(sections.rows.unread.back().why, Why::OtherSection);
  EXPECT_EQ(sections.rows.unread.back().head, "Costs");
  EXPECT_EQ(sections.rows.unread.back().cell, "");
  const std::string cars =
      "Rendszám;Dátum;Km;Liter;Ft\nA;2024.01.05.;48210;41;25575\nB;2024.01.06.;9000;30;18000\n";
  EXPECT_EQ(readLog(cars, {.vehicle = 0}).rows.unread.at(1).head, "B");
  const ReadLog stray = readLog("Date,Odometer (km),Litres,Cost (EUR)\n2024-01-05,1000,40,5,60\n");
  EXPECT_EQ(stray.rows.unread.at(1).why, Why::TooManyCells);
  EXPECT_EQ(stray.rows.unread.at(1).cell, "60");
  EXPECT_EQ(stray.rows.unread.at(1).head, "");
  const ReadLog fuel = readLog(
      "Fuel;Date;Odometer (km);Litres\nDiesel;2024-01-05;1000;40\nCNG "
      "kg;2024-01-06;1100;5\nKG;2024-01-07;1200;4\n");
  EXPECT_THAT(leftOut(fuel), ElementsAre(testing::Pair(4, Why::OtherFuel)));
  EXPECT_EQ(fuel.rows.unread.at(1).cell, "KG");
}

TEST(ARowLeftOut, WasDrivenUpToAHundredThousandKilometres) {
  const auto second = [](const std::string& left) {
    const Choices start{.tripStart = exchange::TripStart{true, Ratio(1'000)}};
    return planOf(readLog("Date;Trip (mi);Litres;Cost (Ft)\n2024-01-05;100;41;25575\n2024-01-09;" + left +
                              ";;\n2024-01-19;100;31;18600\n",
                          start))
        .entries.at(1)
        .entry.KmOra;
  };
  EXPECT_EQ(second("0"), 1'322);         // 1,000 + 2 × 160.9344 = 1,321.8688
  EXPECT_EQ(second("100000"), 162'256);  // and 160,934.4
  EXPECT_EQ(second("100001"), 1'322);
}

TEST(ARow, OfCostAndPriceAloneTookWhatTheyComeTo) {
  const ReadLog log = readLog(
      "Dátum;Km óra;Egységár (Ft/l);Összeg "
      "(Ft);Típus\n2024.01.05.;48210;600;24000;Tankolás\n2024.01.09.;48500;;5000;Tankolás\n"
      "2024.01.12.;48600;600;;Tankolás\n2024.01.19.;48866;600;6000;Szerviz\n");
  ASSERT_EQ(log.rows.rows.size(), 3U);
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(40));
  EXPECT_TRUE(log.rows.rows[1].litres.isZero());
  EXPECT_EQ(log.rows.rows[1].noteForints, Ratio(5'000));
  EXPECT_TRUE(log.rows.rows[2].litres.isZero());
  EXPECT_EQ(log.rows.rows[2].note, "Szerviz");
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(4, Why::NothingInIt)));
  const ReadLog volume = readLog(
      "Dátum;Km óra;Liter;Egységár (Ft/l);Összeg "
      "(Ft)\n2024.01.05.;48210;40;600;24000\n2024.01.09.;48500;;600;5000\n"
      "2024.01.12.;48600;10;600;\n");
  EXPECT_TRUE(volume.rows.rows[1].litres.isZero());
  EXPECT_EQ(volume.rows.rows[2].forints, Ratio(6'000));
}

TEST(ARow, HasItsNotesCostInForints) {
  const ReadLog log =
      readLog("Datum;Kilometerstand;Liter;Betrag (€);Sonstige Kosten\n2024-01-05;48210;41;60;10\n",
              {.rates = {{"EUR", Ratio(400)}}});
  EXPECT_EQ(log.rows.rows.at(0).noteForints, Ratio(4'000));
}

TEST(ARowLeftOut, OfAVehicleThatOnlyReadingsTellNamesNoneAndMayHaveNoReading) {
  std::string text = "Dátum;Km;Liter\n";
  for (int i = 1; i < 4; ++i) {
    const std::string day = "2024.01.0" + std::to_string(i) + ".;";
    text += day + std::to_string(1'000 * i) + ";40\n" + day + std::to_string(90'000 + 1'000 * i) + ";40\n";
  }
  const ReadLog log = readLog(text + "2024.01.09.;;40\n", {.vehicle = 0});
  EXPECT_EQ(log.rows.rows.size(), 3U);
  ASSERT_EQ(leftOut(log).size(), 4U);
  for (std::size_t i = 1; i < log.rows.unread.size(); ++i) {
    EXPECT_EQ(log.rows.unread[i].why, Why::OtherVehicle) << i;
    EXPECT_EQ(log.rows.unread[i].head, "") << i;
  }
}

TEST(ARow, NamesItsOwnUnits) {
  const std::string text =
      "Date,Odometer,Volume,Cost (Ft)\n2024-01-05,1000 km,40 l,24000\n2024-01-09,1000 mi,10 gal,24000\n"
      "2024-01-12,2000 km,10 US gal,24000\n2024-01-19,2500 km,10,24000\n";
  const ReadLog litres = readLog(text);
  EXPECT_EQ(litres.rows.rows[1].litres, Ratio(10) * litresOf(VolumeUnit::UsGallon));
  const ReadLog log = readLog(text, {.distance = DistanceUnit::Kilometre, .volume = VolumeUnit::UkGallon});
  ASSERT_EQ(log.rows.rows.size(), 4U);
  EXPECT_EQ(log.rows.rows[0].litres, Ratio(40));
  EXPECT_EQ(log.rows.rows[1].kilometres, Ratio(1'000) * kilometresOf(DistanceUnit::Mile));
  EXPECT_EQ(log.rows.rows[1].litres, Ratio(10) * litresOf(VolumeUnit::UkGallon));
  EXPECT_EQ(log.rows.rows[2].kilometres, Ratio(2'000));
  EXPECT_EQ(log.rows.rows[2].litres, Ratio(10) * litresOf(VolumeUnit::UsGallon));
  EXPECT_EQ(log.rows.rows[3].litres, Ratio(10) * litresOf(VolumeUnit::UkGallon));
}

TEST(ARow, IsFullByTheWordsOfItsColumn) {
  EXPECT_TRUE(readLog(kTable).rows.rows.at(1).isFull);  // no column tells
  const auto areFull = [](const std::vector<std::string>& words, const Choices& choices = {}) {
    std::string text = "Dátum;Km;Liter;Ft;Tele\n";
    for (std::size_t i = 0; i < words.size(); ++i)
      text += "2024.01.05.;" + std::to_string(48'000 + 500 * i) + ";41;25575;" + words[i] + "\n";
    std::vector<bool> full;
    for (const auto& row : readLog(text, choices).rows.rows) full.push_back(row.isFull);
    return full;
  };
  EXPECT_THAT(areFull({"✓", "", "✗"}, {.fullWord = "✓"}), ElementsAre(true, false, false));
  EXPECT_THAT(areFull({"csurig", "Csurig", "feles"}, {.fullWord = "csurig"}), ElementsAre(true, true, false));
  EXPECT_THAT(areFull({"csurig", "igen"}), ElementsAre(false, true));
  std::vector<std::string> many;
  for (int i = 0; i < 39; ++i) many.push_back("w" + std::to_string(i));
  many.push_back("igen");
  EXPECT_TRUE(areFull(many).back());
  many.insert(many.begin(), "w");
  EXPECT_THAT(areFull(many), testing::Each(false));  // more words than are asked for
}

TEST(ARow, SaysThatAFillUpBeforeItWasMissed) {
  const auto isMissed = [](const std::string& cell) {
    return readLog("Dátum;Km;Liter;Ft;Kimaradt\n2024.01.05.;48210;41;25575;" + cell + "\n")
        .rows.rows.at(0)
        .isAfterMissed;
  };
  for (const char* cell : {"igen", "1", "2", "✓", "+", "3 db"}) EXPECT_TRUE(isMissed(cell)) << cell;
  for (const char* cell : {"", "nem", "0", "-", "–", "00", "talán", "fix"})
    EXPECT_FALSE(isMissed(cell)) << cell;
  EXPECT_FALSE(
      readLog("Dátum;Km;Liter;Ft;Kimaradt\n2024.01.05.;48210;;25575;igen\n").rows.rows.at(0).isAfterMissed);
}

TEST(ARow, HasItsNotesOnOneLineAndAllOfThem) {
  const ReadLog log = readLog(
      "Jegyzet;Dátum;Km;Liter;Ft;Leírás;Megjegyzés;Alkatrész;Típus\n\"a\n\tb\";2024.01.05.;48210;41;25575; "
      "olaj ;;Szűrő;Tankolás\n"
      "jó \xEF\xBF\xBD;2024.01.09.;48300;;5000;;;;Mosás\n;2024.01.12.;48400;;5000;;;;Tankolás\n");
  ASSERT_EQ(log.rows.rows.size(), 3U);
  EXPECT_EQ(log.rows.rows[0].note, "olaj, a  b");
  EXPECT_EQ(log.rows.rows[0].part, "Szűrő");
  EXPECT_FALSE(log.rows.rows[0].isDamaged);
  EXPECT_EQ(log.rows.rows[1].note, "jó \xEF\xBF\xBD");
  EXPECT_TRUE(log.rows.rows[1].isDamaged);
  EXPECT_EQ(log.rows.rows[2].note, "");
}

TEST(ARow, WithACellWithoutADigitOrBelowNothingIsNoFigure) {
  const ReadLog log = readLog(std::string(kTable) +
                              "2024.02.01.;49000;x;5000\n2024.02.02.;49100;40;-5\n2024.02.03.;49200;40;"
                              "0\n2024.02.04.;49300;E10;5000\n-;-;-;-\n");
  ASSERT_EQ(log.rows.rows.size(), 4U);
  EXPECT_TRUE(log.rows.rows[2].litres.isZero());
  EXPECT_TRUE(log.rows.rows[3].forints.isZero());
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(5, Why::FigureNotUnderstood),
                                        testing::Pair(7, Why::FigureNotUnderstood),
                                        testing::Pair(8, Why::DayNotUnderstood)));
  EXPECT_EQ(log.rows.unread.at(1).head, "Ft");
}

// Words behind the numbers of most rows: the column is of money all the same.
TEST(ARow, IsReadToTheRemarkBehindItsFigures) {
  const ReadLog log = readLog(
      "Dátum;Km óra;Liter;Fizetve (Ft)\n2023.02.03;113121 km (szerviz);44,95;27235\n"
      "2023.02.16;113791;46,88 l (tele);28733 (kártya)\n2023.02.24;114463;43,45;26 631 Ft "
      "kártyával\n2023.02.28;114800;20,00;12000 kp\n"
      "2023.03.03;115101;39,71;23425 Ft-ért\n2023.03.17;115532;28,59 - fele;Ft 17323 kártya\n");
  std::vector<Ratio> forints;
  for (const auto& row : log.rows.rows) forints.push_back(row.forints);
  EXPECT_THAT(forints, ElementsAre(Ratio(27'235), Ratio(28'733), Ratio(26'631), Ratio(12'000), Ratio(23'425),
                                   Ratio(17'323)));
  EXPECT_EQ(log.rows.rows.at(0).kilometres, Ratio(113'121));
  EXPECT_EQ(log.rows.rows.at(1).litres, Ratio(4'688, 100));
  EXPECT_EQ(log.rows.rows.at(5).litres, Ratio(2'859, 100));
  EXPECT_TRUE(log.reading.open.empty());
}

TEST(ARow, IsRefusedWhereTheWordsBehindAFigureMayMakeItAnotherOne) {
  for (const char* cell : {"27,2 ezer Ft", "27 e Ft", "27 eFt", "27k", "27 k", "27 (EFT)", "0,027 millió Ft",
                           "27,2 tsd. Ft", "27235 (2 tétel)", "27235 (kp EUR)", "27235 xy", "27 xy (fele)",
                           "27 (e)", "27 (dl)", "27235 Ft/fő", "27235 (10%)"}) {
    const ReadLog log = readLog("Dátum;Km óra;Liter;Ft\n2023.02.03;113121;44,95;" + std::string(cell) +
                                "\n2023.02.16;113791;46,88;" + cell + "\n");
    ASSERT_THAT(leftOut(log), ElementsAre(testing::Pair(2, Why::FigureNotUnderstood),
                                          testing::Pair(3, Why::FigureNotUnderstood)))
        << cell;
    EXPECT_EQ(log.rows.unread.at(1).head, "Ft");
    EXPECT_EQ(log.rows.unread.at(1).cell, cell);
  }
}

// No figures: numbers of bills, kinds of fuel. A unit among the words is none of the figure.
TEST(ARow, TakesNoFigureFromOtherTexts) {
  const ReadLog log = readLog(
      "Dátum;Km óra;Liter;Számla;Üzemanyag\n2023.02.03;113121 (mi);44,95 kg;2023/114;E10\n"
      "2023.02.16;113791;46,88;12345-A;Super 95\n2023.02.24;114463;43,45;A-17;95 benzin\n");
  EXPECT_EQ(log.meaningOf("Számla"), exchange::Meaning::NotNeeded);
  EXPECT_THAT(leftOut(log), ElementsAre(testing::Pair(2, Why::FigureNotUnderstood)));
  EXPECT_EQ(log.rows.rows.at(0).litres, Ratio(4'688, 100));
}

// 37.85411784 litres are ten US gallons, 45.4609 ten of the imperial ones.
TEST(ARow, IsPaidByTheUnitThatItsPriceIsOf) {
  const auto cost = [](const std::string& heads, const std::string& litres, const Choices& choices = {}) {
    Choices said = choices;
    said.rates = {{"USD", Ratio(1)}, {"GBP", Ratio(1)}, {"EUR", Ratio(1)}};
    return readLog(heads + "\n2023-02-03,113121," + litres + ",3.5\n2023-02-16,113791," + litres + ",3.5\n",
                   said)
        .rows.rows.at(0)
        .forints;
  };
  const std::string litres = "Date,Odometer (km),Litres,";
  EXPECT_EQ(cost(litres + "Price per gallon (USD)", "37.85411784"), Ratio(35));
  EXPECT_EQ(cost(litres + "Price per gallon (GBP)", "45.4609"), Ratio(35));
  EXPECT_EQ(cost(litres + "Price/US gal (EUR)", "37.85411784"), Ratio(35));
  EXPECT_EQ(cost(litres + "Price per litre (USD)", "10"), Ratio(35));
  EXPECT_EQ(cost("Date,Odometer (km),US gallons,Price per litre (USD)", "10"),
            Ratio(13'248'941'244, 100'000'000));
  EXPECT_EQ(cost("Date,Odometer (km),Gallons,Price per gallon (USD)", "10", {.volume = VolumeUnit::UkGallon}),
            Ratio(35));
}

TEST(ARow, TakesNoPriceOfAGallonThatIsOpenBesideLitres) {
  const ReadLog log = readLog(
      "Date,Odometer (km),Litres,Price per gallon "
      "(EUR)\n2023-02-03,113121,40,3.5\n2023-02-16,113791,40,3.5\n");
  EXPECT_EQ(log.meaningOf("Price per gallon (EUR)"), exchange::Meaning::NotNeeded);
  EXPECT_TRUE(log.rows.rows.at(0).forints.isZero());
  const ReadLog known = readLog(
      "Date,Odometer (km),Litres,Price per gallon (EUR),MPG (imp gal)\n2023-02-03,113121,45.4609,3.5,\n",
      {.rates = {{"EUR", Ratio(400)}}});
  EXPECT_EQ(known.rows.rows.at(0).forints, Ratio(14'000));
}

TEST(ARowLeftOut, MayBeAFillUpWhereItHasAVolumeOrMoreCellsThanHeads) {
  const auto mayBe = [](exchange::UnreadRow::Why why, const std::string& volume) {
    exchange::UnreadRow row{.why = why};
    row.volume = volume;
    return row.mayBeFillUp();
  };
  EXPECT_TRUE(mayBe(Why::DayNotUnderstood, "40"));
  EXPECT_FALSE(mayBe(Why::DayNotUnderstood, "-"));
  EXPECT_TRUE(mayBe(Why::TooManyCells, ""));
  EXPECT_FALSE(mayBe(Why::Total, "40"));
}

}  // namespace
}  // namespace tarvik::test
