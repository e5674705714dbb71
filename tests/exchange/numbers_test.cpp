#include "exchange/numbers.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvik::exchange {
namespace {

using core::Ratio;

// Two signs: the last one; one that groups: the other one; not three digits behind it, or no group before it.
TEST(TheDecimalSign, IsTheOneThatAFigureShows) {
  for (const std::string_view figure : {"1.234,50", "1.234.567", "40,5", "40, l", ",500", "1.234,567"})
    EXPECT_EQ(shownDecimalSign(std::array{figure}), DecimalSign::Comma) << figure;
  for (const std::string_view figure :
       {"1,234.50", "1,234,567", "40.50", "0.500", "1234.567", "1,234.567", "1.5 x 2"})
    EXPECT_EQ(shownDecimalSign(std::array{figure}), DecimalSign::Point) << figure;
}

TEST(TheDecimalSign, IsThatOfMostFiguresOrStaysOpen) {
  using Figures = std::vector<std::string_view>;
  for (const Figures& figures : std::vector<Figures>{{"24.639", "27.861", "27.1"}, {"1,5", "1.5", "2.5"}})
    EXPECT_EQ(shownDecimalSign(figures), DecimalSign::Point) << figures.front();
  for (const Figures& figures :
       std::vector<Figures>{{"1.234", "24.639", "40"}, {"123.456"}, {"1,5", "1.5"}, {}})
    EXPECT_EQ(shownDecimalSign(figures), std::nullopt) << figures.size();
}

TEST(AFigure, IsReadWithItsGroupsSignsAndUnits) {
  const std::vector<std::pair<const char*, std::optional<Ratio>>> withComma{
      {"1 234,50 Ft", Ratio(12'345, 10)},
      {"1.234,5", Ratio(12'345, 10)},
      {"153796", Ratio(153'796)},
      {",5", Ratio(1, 2)},
      {"5,", Ratio(5)},
      {"5.", std::nullopt},
      {".500", std::nullopt},
      {"-5", Ratio(-5)},
      {"\u22125", Ratio(-5)},
      {"€ -5", Ratio(-5)}};
  const std::vector<std::pair<const char*, std::optional<Ratio>>> withPoint{
      {"1,234.5", Ratio(12'345, 10)},  {"12'345.60", Ratio(123'456, 10)},
      {"€40.10", Ratio(401, 10)},      {".5", Ratio(1, 2)},
      {"ca. .5", Ratio(1, 2)},         {"5. l", Ratio(5)},
      {",500", std::nullopt},          {"1,23,456.50", Ratio(1'234'565, 10)},  // as in India
      {"12,34,567", Ratio(1'234'567)}, {"1,23,45", std::nullopt},
      {"123,45,678", std::nullopt}};
  for (const auto& [text, value] : withComma) EXPECT_EQ(readFigure(text, DecimalSign::Comma), value) << text;
  for (const auto& [text, value] : withPoint) EXPECT_EQ(readFigure(text, DecimalSign::Point), value) << text;
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

}  // namespace
}  // namespace tarvik::exchange
