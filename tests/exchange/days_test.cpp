#include "exchange/days.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvik::exchange {
namespace {

using core::dayOf;

ShownDayOrder shown(std::vector<std::string_view> days, DayOrder guess = DayOrder::DayFirst) {
  return shownDayOrder(days, guess);
}

TEST(ADay, ThatBeginsWithItsYearIsReadInAnyOrder) {
  for (const char* text : {"2013-07-05", "2013.07.05.", "2013. 07. 05.", "2013/7/5", "20130705",
                           "2013-07-05 14:03", "2013-07-05T14:03:00Z", "2013.07.05. 14:03"})
    for (const DayOrder order : {DayOrder::DayFirst, DayOrder::MonthFirst})
      EXPECT_EQ(readDay(text, order), dayOf({2013, 7, 5})) << text;
}

TEST(ADay, ThatEndsWithItsYearFollowsTheOrder) {
  for (const char* text : {"5.7.2013", "05/07/2013", "5-7-13", "05.07.2013 9:30"}) {
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 5})) << text;
    EXPECT_EQ(readDay(text, DayOrder::MonthFirst), dayOf({2013, 5, 7})) << text;
  }
}

TEST(ADay, OfATwoDigitYearLiesFrom1980To2079) {
  EXPECT_EQ(readDay("1.2.80", DayOrder::DayFirst), dayOf({1980, 2, 1}));
  EXPECT_EQ(readDay("1.2.79", DayOrder::DayFirst), dayOf({2079, 2, 1}));
}

TEST(ADay, IsNoneWhereItDoesNotExistOrOtherTextStands) {
  for (const char* text : {"", "2013-02-30", "31.12", "12345678901", "20131301", "5 July 2013", "2013-07-05x",
                           "2013-07-05 tegnap", "1,2,2013", "99999999"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, OfThreeDigitsInItsYearIsOfThatYear) {
  EXPECT_EQ(readDay("1.2.100", DayOrder::DayFirst), dayOf({100, 2, 1}));
}

TEST(ADay, HasATimeOfDayBehindItOnlyWithDigitsAndAColonSetApart) {
  for (const char* text : {"2013-07-05, 14:03", "2013-07-05T14:03", "2013-07-05 14:03", "2013-07-05. 14:03"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 5})) << text;
  for (const char* text : {"2013-07-05 14", "2013-07-05 :", "2013-07-05 x:y", "2013-07-05:14", "2013-07-05..",
                           "2013-07-05x14:03"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, HasThreeNumbersWithPointsSlashesOrDashesBetweenThem) {
  for (const char* text : {"2013x7x5", "2013-07", "2013-07-", "-07-05", "2013--05", "2013 07 05",
                           "02013-07-05", "2013070x", "201307050"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
  EXPECT_EQ(readDay(" 2013-  7-  5 ", DayOrder::DayFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readDay("20131129", DayOrder::DayFirst), dayOf({2013, 11, 29}));
}

TEST(TheOrderOfDays, IsThatOfMostPartsOverTwelve) {
  EXPECT_EQ(shown({"13/1/2024", "14/1/2024", "1/13/2024"}, DayOrder::MonthFirst).order, DayOrder::DayFirst);
  EXPECT_EQ(shown({"1/13/2024", "1/14/2024", "13/1/2024"}).order, DayOrder::MonthFirst);
  EXPECT_TRUE(shown({"13/1/2024"}, DayOrder::MonthFirst).isCertain);
  for (const char* text : {"12/1/2024", "1/12/2024"}) EXPECT_FALSE(shown({text}).isCertain) << text;
  EXPECT_FALSE(shown({"13/1/2024", "1/13/2024"}).isCertain);
}

TEST(TheOrderOfDays, MayBeDayFirstBecauseFewerRunBackwards) {
  const ShownDayOrder order = shown({"2/1/2024", "9/1/2024", "3/2/2024", "1/3/2024"}, DayOrder::MonthFirst);
  EXPECT_EQ(order.order, DayOrder::DayFirst);
  EXPECT_FALSE(order.isCertain);
}

TEST(TheOrderOfDays, IsToldByAPartOverTwelveAnywhereInTheFile) {
  EXPECT_EQ(shown({"1/2/2024", "3/4/2024", "13/4/2024"}).order, DayOrder::DayFirst);
  EXPECT_EQ(shown({"1/2/2024", "3/4/2024", "4/13/2024"}).order, DayOrder::MonthFirst);
  EXPECT_TRUE(shown({"1/2/2024", "4/13/2024"}).isCertain);
}

TEST(TheOrderOfDays, IsTheOneInWhichFewerRunBackwardsWhereNoneTells) {
  const ShownDayOrder order = shown({"1/2/2024", "1/9/2024", "2/3/2024", "3/1/2024"});
  EXPECT_EQ(order.order, DayOrder::MonthFirst);
  EXPECT_FALSE(order.isCertain);
}

TEST(TheOrderOfDays, IsDayFirstWithPointsAndAGuessOtherwise) {
  EXPECT_EQ(shown({"1.2.2024"}, DayOrder::MonthFirst).order, DayOrder::DayFirst);
  EXPECT_TRUE(shown({"1.2.2024"}).isCertain);
  EXPECT_EQ(shown({"1/2/2024"}, DayOrder::MonthFirst).order, DayOrder::MonthFirst);
  EXPECT_FALSE(shown({"1/2/2024"}).isCertain);
  EXPECT_TRUE(shown({"2024-01-02"}).isCertain);
  EXPECT_TRUE(shown({}).isCertain);
}

}  // namespace
}  // namespace tarvik::exchange
