#include "exchange/numbers.h"

#include <gtest/gtest.h>

namespace tarvik::exchange {
namespace {

using core::Ratio;

std::optional<DecimalSign> shown(std::vector<std::string_view> figures) {
  return shownDecimalSign(figures);
}

TEST(TheDecimalSign, IsTheLastOfTwoSigns) {
  EXPECT_EQ(shown({"1.234,50"}), DecimalSign::Comma);
  EXPECT_EQ(shown({"1,234.50"}), DecimalSign::Point);
}

TEST(TheDecimalSign, IsTheOtherOneWhereOneGroups) {
  EXPECT_EQ(shown({"1.234.567"}), DecimalSign::Comma);
  EXPECT_EQ(shown({"1,234,567"}), DecimalSign::Point);
}

TEST(TheDecimalSign, HasNotThreeDigitsBehindItOrStandsWhereNoGroupBegins) {
  EXPECT_EQ(shown({"40,5"}), DecimalSign::Comma);
  EXPECT_EQ(shown({"40.50"}), DecimalSign::Point);
  EXPECT_EQ(shown({"0.500"}), DecimalSign::Point);
  EXPECT_EQ(shown({",500"}), DecimalSign::Comma);
  EXPECT_EQ(shown({"1234.567"}), DecimalSign::Point);
  EXPECT_EQ(shown({"1.234,567"}), DecimalSign::Comma);
  EXPECT_EQ(shown({"1,234.567"}), DecimalSign::Point);
}

TEST(TheDecimalSign, StaysOpenWhereEveryFigureCouldBeReadEitherWay) {
  EXPECT_EQ(shown({"1.234", "24.639", "40"}), std::nullopt);
  EXPECT_EQ(shown({"123.456"}), std::nullopt);
  EXPECT_EQ(shown({"1,5", "1.5"}), std::nullopt);
  EXPECT_EQ(shown({}), std::nullopt);
}

TEST(TheDecimalSign, IsFoundFromAllFiguresAndNotTheFirst) {
  EXPECT_EQ(shown({"24.639", "27.861", "27.1"}), DecimalSign::Point);
  EXPECT_EQ(shown({"1,5", "1.5", "2.5"}), DecimalSign::Point);
}

TEST(AFigure, IsReadWithItsGroupsAndUnits) {
  EXPECT_EQ(readFigure("1 234,50 Ft", DecimalSign::Comma), Ratio(12'345, 10));
  EXPECT_EQ(readFigure("1.234,5", DecimalSign::Comma), Ratio(12'345, 10));
  EXPECT_EQ(readFigure("1,234.5", DecimalSign::Point), Ratio(12'345, 10));
  EXPECT_EQ(readFigure("1\xC2\xA0"
                       "234\xE2\x80\xAF"
                       "567",
                       DecimalSign::Comma),
            Ratio(1'234'567));
  EXPECT_EQ(readFigure("12'345.60", DecimalSign::Point), Ratio(123'456, 10));
  EXPECT_EQ(readFigure("€40.10", DecimalSign::Point), Ratio(401, 10));
  EXPECT_EQ(readFigure("-5", DecimalSign::Comma), Ratio(-5));
  EXPECT_EQ(readFigure("153796", DecimalSign::Comma), Ratio(153'796));
  EXPECT_EQ(readFigure(".5", DecimalSign::Point), Ratio(1, 2));
}

TEST(TheDecimalSign, IsNoLetter) {
  EXPECT_EQ(shown({"1.5 x 2"}), DecimalSign::Point);
}

TEST(AFigure, HasGroupsOfThreeDigitsWithASpaceOrAnApostropheBetweenThem) {
  for (const char* sign : {" ", "'", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "\xE2\x80\x99"}) {
    const std::string between = sign;
    EXPECT_EQ(readFigure("1" + between + "234", DecimalSign::Comma), Ratio(1'234)) << between;
    EXPECT_EQ(readFigure("123" + between + "456" + between + "789", DecimalSign::Comma), Ratio(123'456'789))
        << between;
    for (const std::string& text : {"1234" + between + "567", "1" + between + "23", "1" + between + "2345"})
      EXPECT_EQ(readFigure(text, DecimalSign::Comma), std::nullopt) << text;
  }
}

TEST(AFigure, HasNoGroupWithoutDigitsBeforeIt) {
  EXPECT_EQ(readFigure(".500", DecimalSign::Comma), std::nullopt);
  EXPECT_EQ(readFigure(",500", DecimalSign::Point), std::nullopt);
}

TEST(AFigure, MayBeginOrEndWithItsDecimalSign) {
  EXPECT_EQ(readFigure(",5", DecimalSign::Comma), Ratio(1, 2));
  EXPECT_EQ(readFigure("ca. .5", DecimalSign::Point), Ratio(1, 2));
  EXPECT_EQ(readFigure("5,", DecimalSign::Comma), Ratio(5));
  EXPECT_EQ(readFigure("5. l", DecimalSign::Point), Ratio(5));
}

TEST(AFigure, BelowZeroHasADashOrAMinusBeforeIt) {
  EXPECT_EQ(readFigure("\xE2\x88\x92"
                       "5",
                       DecimalSign::Comma),
            Ratio(-5));
  EXPECT_EQ(readFigure("€ -5", DecimalSign::Comma), Ratio(-5));
}

TEST(AFigure, MayHaveAUnitOfTwelveCharactersOnOneSide) {
  const std::string unit(12, 'x');
  for (const std::string& text : std::vector<std::string>{"x5", "5x", "(5)", "($5)", unit + "5", "5" + unit})
    EXPECT_EQ(readFigure(text, DecimalSign::Comma), Ratio(5)) << text;
  for (const std::string& text :
       std::vector<std::string>{unit + "x5", "5" + unit + "x", "a5a", "z5z", "A5A", "Z5Z"})
    EXPECT_EQ(readFigure(text, DecimalSign::Comma), std::nullopt) << text;
  for (const char* text : {"/5", "5/", ":5", "5:", "#5", "5#"})
    EXPECT_EQ(readFigure(text, DecimalSign::Comma), std::nullopt) << text;
}

TEST(AFigure, IsNoneWithWrongGroupsOrOtherText) {
  for (const char* text :
       {"", "-", "abc", "12:30", "1/2", "2024-01-05", "1.23,45.6", "Tank1Capacity", "1 23"})
    EXPECT_EQ(readFigure(text, DecimalSign::Comma), std::nullopt) << text;
  EXPECT_EQ(readFigure("12.34", DecimalSign::Comma), std::nullopt);
}

TEST(AFigure, IsBareWithoutLetters) {
  EXPECT_TRUE(isBareFigure("40.5"));
  EXPECT_TRUE(isBareFigure("€ 40,5"));
  EXPECT_FALSE(isBareFigure("Tank 2"));
  EXPECT_FALSE(isBareFigure("€"));
  EXPECT_TRUE(looksLikeFigure("40.5 l"));
  EXPECT_TRUE(looksLikeFigure("40,5 l"));
  EXPECT_FALSE(looksLikeFigure("litres"));
}

TEST(AFigure, FitsAFieldUpToBothItsEnds) {
  for (const std::int64_t whole : {std::int64_t{-2'147'483'648}, std::int64_t{2'147'483'647}})
    EXPECT_TRUE(fits<std::int32_t>(Ratio(whole))) << whole;
  for (const std::int64_t whole : {-2'147'483'649, 2'147'483'648})
    EXPECT_FALSE(fits<std::int32_t>(Ratio(whole))) << whole;
  EXPECT_TRUE(fits<std::int32_t>(Ratio(-2'147'483'648, 10), 10));
  EXPECT_FALSE(fits<std::int32_t>(Ratio(2'147'483'648, 10), 10));
}

TEST(AFigure, MayBeGroupedAsInIndia) {
  EXPECT_EQ(readFigure("1,23,456.50", DecimalSign::Point), Ratio(1'234'565, 10));
  EXPECT_EQ(readFigure("12,34,567", DecimalSign::Point), Ratio(1'234'567));
  EXPECT_EQ(readFigure("1,23,45", DecimalSign::Point), std::nullopt);
  EXPECT_EQ(readFigure("123,45,678", DecimalSign::Point), std::nullopt);
}

}  // namespace
}  // namespace tarvik::exchange
