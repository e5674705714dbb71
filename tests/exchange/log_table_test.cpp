#include "exchange/log_table.h"

#include <gmock/gmock.h>

#include "tests/exchange/reading.h"

// Which rows of a file belong to the table of fill-ups, and what the others are.

namespace tarvik::test {
namespace {

using exchange::LogTable;
using exchange::readTable;
using exchange::RowKind;
using testing::ElementsAre;

std::vector<RowKind> kinds(const LogTable& table) {
  std::vector<RowKind> found;
  for (const auto& row : table.rows) found.push_back(row.kind);
  return found;
}

constexpr const char* kHeads = "Date;Odometer;Litres\n";
constexpr const char* kRow = "2024-01-05;1000;40\n";

TEST(ARowOfAFile, ThatBeginsWithAHashAndADigitIsNoComment) {
  std::string text = kHeads;
  for (const char* first : {"#", "# x", "#/", "#:", "#x", "#0", "#9", "#12"})
    text += std::string(first) + "\n" + kRow;
  const auto found = kinds(readTable(text));
  ASSERT_EQ(found.size(), 17U);
  for (std::size_t i = 1; i < 17; i += 2) EXPECT_EQ(found[i], i < 10 ? RowKind::Comment : RowKind::Data) << i;
}

TEST(ARowOfAFile, IsOfHeadsWithTwoOfDayDistanceAndFuel) {
  const LogTable table = readTable("a;b;1\nOdometer;Litres;Cost\n1000;40;60\n");
  EXPECT_THAT(table.heads, ElementsAre("Odometer", "Litres", "Cost"));
  EXPECT_THAT(kinds(table), ElementsAre(RowKind::BeforeTable, RowKind::Heads, RowKind::Data));
  EXPECT_THAT(readTable("a;b;1\nZutty;Litres;Cost\n1000;40;60\n").heads,
              ElementsAre("1. oszlop", "2. oszlop", "3. oszlop"));
  EXPECT_THAT(readTable("a;b;1\nEv;Trip;Cost\n2024;40;60\n").heads, ElementsAre("Ev", "Trip", "Cost"));
}

TEST(ARowOfAFile, OfWordsIsDataUnlessItNamesADay) {
  const std::string text = std::string(kHeads) + kRow;
  EXPECT_THAT(kinds(readTable(text + "foo;bar;baz\n" + kRow)),
              ElementsAre(RowKind::Heads, RowKind::Data, RowKind::Data, RowKind::Data));
  EXPECT_THAT(kinds(readTable(text + "Date;bar;baz\n" + kRow)),
              ElementsAre(RowKind::Heads, RowKind::Data, RowKind::Heads, RowKind::OtherSection));
  EXPECT_THAT(kinds(readTable(text + kHeads + kRow)),
              ElementsAre(RowKind::Heads, RowKind::Data, RowKind::Heads, RowKind::Data));
}

TEST(ARowOfAFile, OfFiguresWithTheirUnitsIsDataWhateverItsDay) {
  const std::string row = "egyszer;113121 km;44,95 l;27235 Ft\n";
  EXPECT_THAT(kinds(readTable("Dátum;Km óra;Liter;Ft\n" + row + row)),
              ElementsAre(RowKind::Heads, RowKind::Data, RowKind::Data));
  const LogTable table = readTable(row + row);
  EXPECT_FALSE(table.hasHeads);
  EXPECT_THAT(kinds(table), ElementsAre(RowKind::Data, RowKind::Data));
}

TEST(AFile, OfObjectsInBracesIsNoTable) {
  const std::string object = R"({"date": "2023-02-03", "odometer": 113121, "litres": 44.95})";
  for (const std::string& text :
       {object, "[" + object + "," + object + "]", " [\n  " + object + "\n]\n", object + "\n" + object + "\n",
        std::string("{\n \"fills\": []}"), std::string("[{}]")})
    EXPECT_EQ(readTable(text).fault, LogTable::Fault::NoTable) << text;
  for (const std::string text :
       {"[km];{Date};Litres\n1000;2023-02-03;40\n", "{Date};Odometer;Litres\n2023-02-03;1;40\n"})
    EXPECT_EQ(readTable(text).fault, LogTable::Fault::None) << text;
}

TEST(ATitle, StandsAloneApartOrMarkedBeforeHeads) {
  const std::string text = std::string(kHeads) + kRow;
  const auto after = [&](const std::string& rest) {
    auto found = kinds(readTable(text + rest));
    found.erase(found.begin(), found.begin() + 2);
    return found;
  };
  EXPECT_THAT(after("szerviz\nfoo;bar\na;b\n"), ElementsAre(RowKind::Data, RowKind::Data, RowKind::Data));
  EXPECT_THAT(after("\nszerviz\nfoo;bar\na;b\n"),
              ElementsAre(RowKind::Empty, RowKind::Title, RowKind::Heads, RowKind::OtherSection));
  EXPECT_THAT(after("szerviz\nDate;foo\na;b\n"),
              ElementsAre(RowKind::Title, RowKind::Heads, RowKind::OtherSection));
  EXPECT_THAT(after("# szerviz\nfoo;bar\na;b\n"),
              ElementsAre(RowKind::Title, RowKind::Heads, RowKind::OtherSection));
  EXPECT_THAT(after("## szerviz\n1;2\n"), ElementsAre(RowKind::Title, RowKind::BeforeTable));
  EXPECT_THAT(after("# szerviz\n1;2\n"), ElementsAre(RowKind::Comment, RowKind::Data));
  EXPECT_THAT(after("\n5\nfoo;bar\n"), ElementsAre(RowKind::Empty, RowKind::Data, RowKind::Data));
  EXPECT_THAT(after("\nszerviz\n"), ElementsAre(RowKind::Empty, RowKind::Data));
  EXPECT_THAT(after("\nszerviz\nolaj\nfoo;bar\n"),
              ElementsAre(RowKind::Empty, RowKind::Data, RowKind::Data, RowKind::Data));
}

TEST(Units, BelowTheHeadsBelongToThem) {
  const LogTable table = readTable("Menge;Datum;Stand\nl; ;km\n40;2024-01-05;1000\n;;km\n");
  EXPECT_THAT(table.heads, ElementsAre("Menge (l)", "Datum", "Stand (km)"));
  EXPECT_THAT(kinds(table), ElementsAre(RowKind::Heads, RowKind::Heads, RowKind::Data, RowKind::Data));
  EXPECT_THAT(readTable("Menge;Datum;Stand\nl;;km;km\n").heads.back(), "Stand (km)");
  EXPECT_THAT(readTable("Menge;Datum;Stand\nl\n").heads.front(), "Menge (l)");
}

TEST(TheSeparator, IsTheOneWithWhichMostRowsReadAlike) {
  EXPECT_EQ(readTable("1,1;2,1;3,1;4,1;5,1;6,1;7,1;8,1\n").shape.separator, ';');  // eight cells or nine
  std::string text;
  for (int i = 0; i < 10; ++i) text += "x\n";
  EXPECT_EQ(readTable(text + "1|2\n1|2\n1|2\n").shape.separator, '|');
  EXPECT_EQ(readTable("1|2|3;4\n1|2|3;4\n").shape.separator, '|');
  EXPECT_EQ(readTable("1|2|3;4\n1|2|3;4\n", ';').shape.separator, ';');
  EXPECT_EQ(readTable("x\n", '|').shape.separator, '|');
  EXPECT_EQ(readTable("Date\tOdometer\tLitres\n2024-01-05\t1000\t40,5\n").shape.separator, '\t');
  EXPECT_EQ(readTable("Date;Odometer;Litres;Notes\n2024-01-05;1000;40,5;a,b,c,d,e,f\n").shape.separator, ';');
}

TEST(TheQuote, IsAnApostropheWhereMostHeadsHaveIt) {
  const auto quote = [](const std::string& heads) {
    return readTable(heads + "\n2024-01-05;1000;40;x\n").shape.quote;
  };
  EXPECT_EQ(quote("'Date';'Odometer';'Litres';'x'"), '\'');
  EXPECT_EQ(quote("'Date';'Odometer';'';x"), '\'');
  EXPECT_EQ(quote("'Date';'Odometer';Litres;x"), '"');
  EXPECT_EQ(quote("'Date;'Odometer;'Litres;x"), '"');
  EXPECT_EQ(quote("Date';Odometer';Litres';x"), '"');
  EXPECT_EQ(quote("'Date';'Odometer';';x"), '"');
  EXPECT_EQ(readTable("a;b\n1;2\n").shape.quote, '"');
  EXPECT_EQ(readTable("x\n").shape.quote, '"');
  EXPECT_EQ(readTable("'1';'2'\n'3';'4'\n").shape.quote, '"');
}

TEST(TheTable, IsTheOneWithAllThatIsNeededAndMostRows) {
  const LogTable table = readTable(
      "Date;Odo (km);Litres;Note;Station\n2024-01-05;1000;40;;\n\nDate;Odo (mi);Litres\n2024-01-05;1000;40\n"
      "2024-01-09;1100;40\n");
  EXPECT_THAT(table.heads, ElementsAre("Date", "Odo (mi)", "Litres"));
  const LogTable first =
      readTable("Date;Odo (km);Litres\n2024-01-05;1000;40\n\nDate;Odo (mi);Litres\n2024-01-05;1000;40\n");
  EXPECT_THAT(first.heads, ElementsAre("Date", "Odo (km)", "Litres"));
  const LogTable more = readTable(
      "Date;Odo (km)\n2024-01-05;1000\n2024-01-06;1000\n\nDate;Odo (mi);Litres\n2024-01-05;1000;40\n");
  EXPECT_THAT(more.heads, ElementsAre("Date", "Odo (mi)", "Litres"));
}

// A second table under heads of its own, whose rows come under those of the first or are left out.
std::size_t rowsWith(const std::string& heads, const std::string& row) {
  const ReadLog log = readLog("Date;Odo;Litres;Cost\n2023-12-05;48210;41;60\n2023-12-19;48866;44;61\n\n" +
                              heads + "\n" + row + "\n");
  return static_cast<std::size_t>(
      std::ranges::count(log.table.rows, RowKind::Data, &exchange::TableRow::kind));
}

TEST(ASecondTable, IsTakenUnderTheFirstInTheSameUnitsAndMoney) {
  for (const char* heads : {"Date;Odo;Litres;Cost", "Litres;Date;Km;Cost", "Date;Odo (km);Litres;Cost (EUR)",
                            "Date;Odo;Litres;Cost;Zutty", "Date;Odo;Litres;Cost;Station;Note"})
    EXPECT_EQ(rowsWith(heads, "2024-01-06;49400;30;50"), 3U) << heads;
  for (const char* heads : {"Date;Odo;Gallons;Cost", "Date;Odo;Volume (l);Price", "Date;Odo;Litres;Cost;Trip",
                            "Date;Litres;Cost", "Date;Odo;Litres;Litres"})
    EXPECT_EQ(rowsWith(heads, "2024-01-06;49400;30;50"), 2U) << heads;
  const auto rows = [](const char* first, const char* second) {
    const std::string row = "2024-01-06;49400;30;50\n";
    const LogTable table = readTable(std::string(first) + "\n" + row + row + second + "\n" + row);
    return std::ranges::count(table.rows, RowKind::Data, &exchange::TableRow::kind);
  };
  EXPECT_EQ(rows("Date;Odo (km);Litres;Cost (EUR)", "Date;Odo;Litres;Paid (EUR)"), 3);
  EXPECT_EQ(rows("Date;Odo;Litres;Cost (EUR)", "Date;Odo;Litres;Paid"), 3);
  EXPECT_EQ(rows("Date;Odo;Litres;Cost (EUR)", "Date;Odo;Litres;Paid (USD)"), 2);
  EXPECT_EQ(rows("Date;Odo (km);Litres;Cost", "Date;Odo (mi);Litres;Cost"), 2);
  EXPECT_EQ(rows("Date;Odo;Fuel (l);Cost", "Date;Odo;Fuel (gal);Cost"), 2);
}

TEST(ASecondTable, HasItsCellsUnderTheHeadsAndTheRestBehindThem) {
  const LogTable table = readTable(
      "Date;Odo;Litres\n2023-12-05;48210;41\n2023-12-19;48866;44\n\nLitres;Zutty;Date;Km\n30;z;2024-01-06;"
      "49400;behind\n40\n");
  EXPECT_THAT(table.heads, ElementsAre("Date", "Odo", "Litres", "Zutty"));
  EXPECT_THAT(table.rows.at(5).row.cells, ElementsAre("2024-01-06", "49400", "30", "z", "behind"));
  EXPECT_THAT(table.rows.at(6).row.cells, ElementsAre("", "", "40", ""));
  EXPECT_FALSE(table.hasSections);
  const std::string row = "\n2024-01-06;49400;30;x\n";
  EXPECT_THAT(readTable("Date;Odo;Litres;Zutty" + row + "Date;Odo;Litres;Pukk" + row).heads,
              ElementsAre("Date", "Odo", "Litres", "Zutty", "Pukk"));
}

TEST(Sections, TellVehiclesApartOnlyWithRows) {
  const std::string opel = std::string("Opel\n") + kHeads;
  const std::string fiat = std::string("\nFiat\n") + kHeads + kRow;
  EXPECT_FALSE(readTable(opel + fiat).hasSections);
  EXPECT_TRUE(readTable(opel + kRow + fiat).hasSections);
  EXPECT_EQ(readTable(opel + kRow + fiat).rows.back().section, "Fiat");
  EXPECT_EQ(readTable(opel + kRow + fiat).rows.front().section, "");
  EXPECT_EQ(readTable(std::string(kHeads) + kRow).rows.back().section, "Date");
  EXPECT_FALSE(readTable(opel + kRow + "\nCosts\nDate;Money\n2024-01-05;5\n").hasSections);
}

TEST(AFileWithoutHeads, HasTheRowsWithAsManyCellsAsMost) {
  const LogTable table = readTable("my car;x\n1;2;3\n# note;x;y\n4;5;6\n\n7;8\n");
  EXPECT_FALSE(table.hasHeads);
  EXPECT_THAT(table.heads, ElementsAre("1. oszlop", "2. oszlop", "3. oszlop"));
  EXPECT_THAT(kinds(table), ElementsAre(RowKind::BeforeTable, RowKind::Data, RowKind::Comment, RowKind::Data,
                                        RowKind::Empty, RowKind::Data));
  const LogTable named = readTable("1;x;y\nfoo;bar\n1;2\n");
  EXPECT_TRUE(named.hasHeads);
  EXPECT_THAT(named.heads, ElementsAre("foo", "bar"));
  EXPECT_THAT(kinds(named), ElementsAre(RowKind::BeforeTable, RowKind::Heads, RowKind::Data));
  EXPECT_EQ(readTable("1\n;2;\n3\n").fault, LogTable::Fault::NoTable);
}

TEST(AFile, HasTwiceTheRowsOfALogbookAndTwoMillionCellsAtMost) {
  const auto isTooMuch = [](std::size_t rows, std::size_t cells) {
    std::string text;
    for (std::size_t i = 0; i < rows; ++i) text += "1" + std::string(cells - 1, ';') + "\n";
    return readTable(text, ';').fault == LogTable::Fault::TooManyRows;
  };
  EXPECT_FALSE(isTooMuch(65'534, 1));
  EXPECT_TRUE(isTooMuch(65'535, 1));
  EXPECT_FALSE(isTooMuch(4'000, 500));
  EXPECT_TRUE(isTooMuch(4'001, 500));
}

TEST(AFile, ThatEndsInQuotesTellsWhere) {
  const LogTable table = readTable(std::string(kHeads) + kRow + "2024-01-05;\"1000;40\n");
  EXPECT_TRUE(table.isCutInQuotes);
  EXPECT_EQ(table.faultLine, 3);
  EXPECT_FALSE(readTable(std::string(kHeads) + kRow).isCutInQuotes);
}

}  // namespace
}  // namespace tarvik::test
