#include "exchange/column_values.h"

#include <gmock/gmock.h>

#include "tests/exchange/columns.h"

namespace tarvik::exchange {
namespace {

using test::Column;
using testing::ElementsAre;
using Cells = std::vector<std::string>;

Column column(const Cells& cells) {
  return {"Zutty", cells};
}

// 100, 200 ... with falls of 50 after the rises.
Cells rising(int rises, int falls) {
  Cells cells{"1000"};
  int figure = 1'000;
  for (int i = 0; i < rises + falls; ++i) {
    figure += i < rises ? 100 : -50;
    cells.push_back(std::to_string(figure));
  }
  return cells;
}

TEST(Figures, AreAsSteadyAsTheirStepsGoOneWay) {
  EXPECT_DOUBLE_EQ(steadiness(column({"1", "2", "3", "2"})), 2.0 / 3);
  EXPECT_DOUBLE_EQ(steadiness(column({"3", "2", "1", "2"})), 2.0 / 3);
  EXPECT_DOUBLE_EQ(steadiness(column({"1", "", "2", "1"})), 0.5);
  for (const Cells& cells : std::vector<Cells>{{"5", "5"}, {"5", "5", "6"}, {"5", "5", "4"}})
    EXPECT_DOUBLE_EQ(steadiness(column(cells)), 1) << cells.back();
}

TEST(Distances, AreReadingsOrNotByTheirSizeAndTheirGrowth) {
  const auto kind = [](const char* head, const Cells& cells) { return distanceKind(Column(head, cells)); };
  EXPECT_EQ(kind("Km", {}), DistanceKind::Either);
  EXPECT_EQ(kind("Km", {"", ""}), DistanceKind::Either);
  EXPECT_EQ(kind("Km", {"sok", "kevés"}), DistanceKind::None);
  EXPECT_EQ(kind("Km", {"59", "59"}), DistanceKind::None);
  EXPECT_EQ(kind("Km", {"59"}), DistanceKind::Either);
  EXPECT_EQ(kind("Km", {"60", "60"}), DistanceKind::Either);
  EXPECT_EQ(kind("Km", {"3000", "3000"}), DistanceKind::Either);
  EXPECT_EQ(kind("Km", {"3001", "3001"}), DistanceKind::Reading);
  EXPECT_EQ(kind("Km", {"500", "400", "450"}), DistanceKind::Trip);
  EXPECT_EQ(kind("Km", rising(4, 0)), DistanceKind::Either);
  EXPECT_EQ(kind("Km", rising(5, 0)), DistanceKind::Reading);
  EXPECT_EQ(kind("Km", rising(19, 1)), DistanceKind::Trip);
  EXPECT_EQ(kind("Km", rising(20, 1)), DistanceKind::Reading);
  EXPECT_EQ(kind("Km óra", rising(7, 3)), DistanceKind::Trip);
  EXPECT_EQ(kind("Km óra", rising(8, 3)), DistanceKind::Reading);
  EXPECT_EQ(kind("Km óra", rising(2, 2)), DistanceKind::Either);
  EXPECT_EQ(kind("Km óra", {"100", "200", "300", "250", "150", "350"}), DistanceKind::Trip);
  EXPECT_EQ(kind("Km óra", {"100", "200", "300", "250", "150"}), DistanceKind::Either);
}

TEST(Sums, RunOnFromFiveOnToMoreThanThreeTimesTheFirst) {
  EXPECT_TRUE(areRunningSums(column({"100", "150", "", "200", "250", "301"})));
  EXPECT_TRUE(areRunningSums(column({"301", "250", "200", "150", "100"})));
  EXPECT_FALSE(areRunningSums(column({"100", "150", "200", "250", "300"})));
  EXPECT_FALSE(areRunningSums(column({"100", "150", "200", "301"})));
  EXPECT_FALSE(areRunningSums(column({"100", "150", "200", "250", "301", "301"})));
  EXPECT_FALSE(areRunningSums(column({"100", "200", "150", "250", "301"})));
}

TEST(Octanes, AreFourWholeNumbersFrom80To100) {
  EXPECT_TRUE(areOctanes(column({"80", "95", "98", "100", ""})));
  for (const Cells& cells : std::vector<Cells>{{"80", "91", "95", "98", "100"}, {"79"}, {"101"}, {"95.5"}})
    EXPECT_FALSE(areOctanes(column(cells))) << cells.front();
}

TEST(Answers, AreThreeWordsOrMarksOfYesAndNo) {
  for (const Cells& cells :
       std::vector<Cells>{{"yes", "no", "", "x"}, {"✓", "----", "+"}, {"i", "I", "n", "N"}})
    EXPECT_TRUE(areAnswers(column(cells))) << cells.front();
  for (const Cells& cells : std::vector<Cells>{
           {"yes", "no", "x", "1"}, {"✓", "✗", "-", "+"}, {"-----"}, {"Zutty"}, {"igen", "2"}, {"", ""}})
    EXPECT_FALSE(areAnswers(column(cells))) << cells.front();
}

TEST(TwoKinds, AreAnswersOrShortContentsThatComeAgain) {
  const std::string longest(20, 'A');
  for (const Cells& cells :
       std::vector<Cells>{{"i", "n"}, {"A", "B", "A", "B"}, {"A", "", "A", ""}, {longest, "B", "B", "B"}})
    EXPECT_TRUE(areTwoKinds(column(cells))) << cells.front();
  for (const Cells& cells : std::vector<Cells>{{"i", "i"},
                                               {"A", "B", "A"},
                                               {"A", "B", "C", "A"},
                                               {"A", "A", "A", "A"},
                                               {longest + "A", "B", "B", "B"}})
    EXPECT_FALSE(areTwoKinds(column(cells))) << cells.front();
}

TEST(Words, AndNamesMayBeFewFigures) {
  const Cells four{"1", "2", "3", "4"};
  const Cells five{"1", "2", "3", "4", "5"};
  EXPECT_TRUE(areWords(column({"a", "b", "c", "d", "e"})));
  EXPECT_TRUE(areWords(column(four)));
  EXPECT_FALSE(areWords(column(five)));
  EXPECT_TRUE(areNames(column({"a", "b", "c", "d", "e"})));
  EXPECT_TRUE(areNames(column(four)));
  EXPECT_FALSE(areNames(column(five)));
  EXPECT_FALSE(areNames(column({"1", "2", "3", "4", "5", "1", "2", "3", "4"})));
  EXPECT_TRUE(areNames(column({"1", "2", "3", "4", "5", "1", "2", "3", "4", "5"})));
}

TEST(Fills, AreNamedByOneOfSixWords) {
  for (const Cells& cells :
       std::vector<Cells>{{"tele", "a", "b", "c", "d", "e", "", "a"}, {"részleges", "a"}})
    EXPECT_TRUE(namesFills(column(cells))) << cells.front();
  for (const Cells& cells : std::vector<Cells>{
           {"tele", "a", "b", "c", "d", "e", "f"}, {"a", "b"}, {"Zutty tele volt"}, {"Liter"}, {"i", "n"}})
    EXPECT_FALSE(namesFills(column(cells))) << cells.front();
  EXPECT_TRUE(tellsFills(column({"tele", "a"})));
  EXPECT_TRUE(tellsFills(column({"i", "n"})));
  for (const Cells& cells : std::vector<Cells>{{"i"}, {"i", "n", "1"}, {"i", "Zutty"}})
    EXPECT_FALSE(tellsFills(column(cells))) << cells.back();
}

TEST(Values, LieAsFarFromTheMiddleOneAsTheyDoInAll) {
  EXPECT_EQ(spread({}), 0);
  EXPECT_EQ(spread({0, 0}), 0);
  EXPECT_EQ(spread({3, 1, 2}), 1);        // 1 + 0 + 1, in shares of 2
  EXPECT_EQ(spread({4, 1, 2, 8}), 2.25);  // 3 + 2 + 0 + 4, in shares of 4
}

TEST(Money, IsSetBesideTheVolumesAboveNothing) {
  const Paid paid = paidOf(column({"10", "1", "0", "30", "x", "2"}), column({"4", "5", "6", "0", "7", "1"}));
  EXPECT_THAT(paid.money, ElementsAre(10, 1, 2));
  EXPECT_THAT(paid.perVolume, ElementsAre(2.5, 0.2, 2));
}

// The figures that are not kept tell, where the kept ones could be read either way.
TEST(TheSignOfAColumn, IsThatOfTheOthersOrUsual) {
  const auto signs = [](const std::vector<std::vector<std::string>>& columns) {
    std::vector<DecimalSign> found;
    for (const ColumnFacts& facts : lookAt(test::tableOf(columns), std::nullopt)) found.push_back(facts.sign);
    return found;
  };
  const std::vector<std::string> open{"Ft", "1.234", "1.300"};
  EXPECT_THAT(signs({open}), ElementsAre(DecimalSign::Point));
  EXPECT_THAT(signs({open, {"Fogyasztás", "7,1", "6,7"}}),
              ElementsAre(DecimalSign::Comma, DecimalSign::Comma));
  EXPECT_THAT(signs({open, {"Fogyasztás", "7,1", "6,7"}, {"Zutty", "1.5", "2.5"}}),
              ElementsAre(DecimalSign::Point, DecimalSign::Comma, DecimalSign::Point));
  EXPECT_THAT(signs({open, {"Jegyzet", "7,1", "a", "b"}}),
              ElementsAre(DecimalSign::Point, DecimalSign::Comma));
  EXPECT_EQ(signs({open, {"Hely", "M3 12,5 km", "M7"}})[0], DecimalSign::Point);
  EXPECT_THAT(signs({{"Liter", "1,234"}, {"Ft", "1.234"}}),
              ElementsAre(DecimalSign::Comma, DecimalSign::Comma));
  EXPECT_THAT(signs({{"Km óra", "48.210", "x"}, {"Ft", "1,234"}}),
              ElementsAre(DecimalSign::Comma, DecimalSign::Point));
  EXPECT_THAT(signs({{"Km óra", "48,210"}}), ElementsAre(DecimalSign::Point));
  EXPECT_THAT(signs({{"Km", "48.210"}}), ElementsAre(DecimalSign::Comma));
  EXPECT_THAT(signs({{"Km", "n.a.", "48000", "48,210"}}), ElementsAre(DecimalSign::Point));
}

TEST(AColumn, IsOfFiguresOrDaysWhereMoreThanHalfOfItsCellsAre) {
  const auto facts = [](const char* head, const Cells& cells) {
    const Column column(head, cells);
    const ColumnFacts& found = column;
    return std::pair(found.areFigures(), found.areDays());
  };
  EXPECT_EQ(facts("Zutty", {"1", "x"}), std::pair(false, false));
  EXPECT_EQ(facts("Zutty", {"1", "2", "x", ""}), std::pair(true, false));
  EXPECT_EQ(facts("Zutty", {"2024.01.05.", "x"}), std::pair(false, false));
  EXPECT_EQ(facts("Zutty", {"2024.01.05.", "2024.01.06.", "x"}), std::pair(false, true));
  EXPECT_EQ(facts("Zutty", {"41460", "41461"}), std::pair(true, false));
  EXPECT_EQ(facts("Dátum", {"41460", "41461"}), std::pair(true, true));
  EXPECT_EQ(facts("Zutty", {"20240105"}), std::pair(true, true));
  EXPECT_EQ(facts("Zutty", {"20240105120000"}).second, true);
  EXPECT_EQ(facts("Zutty", {""}), std::pair(false, false));
  const Column kinds("Zutty", {"40", "E10"});
  const ColumnFacts& read = kinds;
  EXPECT_THAT(read.figures, ElementsAre(40, std::nullopt));
  EXPECT_TRUE(isFigureCell("40,5 l"));
  EXPECT_TRUE(isFigureCell("+1'234.5"));
  EXPECT_TRUE(isFigureCell("R971.70"));
  for (const char* cell : {"E10", "Super 95", "l", "", "40 zutty"}) EXPECT_FALSE(isFigureCell(cell)) << cell;
}

}  // namespace
}  // namespace tarvik::exchange
