#include "exchange/days.h"

#include <gmock/gmock.h>

#include <vector>

namespace tarvik::exchange {
namespace {

using core::dayOf;
using testing::ElementsAre;

ShownDayOrder shown(const std::vector<DatedReading>& days) {
  return shownDayOrder(days);
}

TEST(ADay, ThatBeginsWithItsYearIsReadInAnyOrder) {
  for (const char* text :
       {"2013-07-05", "2013.07.05.", "2013. 07. 05.", "2013/7/5", "20130705", "2013-07-05 14:03",
        "2013-07-05T14:03:00Z", "2013.07.05. 14:03", "20130705140300", "20130705T1403Z0", "2013. július 5.",
        "2013. júl. 5.", "1372982400", "1372982400000", "41460"})
    for (const DayOrder order : {DayOrder::DayFirst, DayOrder::MonthFirst, DayOrder::YearFirst})
      EXPECT_EQ(readDay(text, order), dayOf({2013, 7, 5})) << text;
}

TEST(ADay, ThatEndsWithItsYearFollowsTheOrder) {
  for (const char* text : {"5.7.2013", "05/07/2013", "5-7-13", "05.07.2013 9:30", "9:30 05.07.2013"}) {
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 5})) << text;
    EXPECT_EQ(readDay(text, DayOrder::MonthFirst), dayOf({2013, 5, 7})) << text;
  }
  EXPECT_EQ(readDay("13.07.05.", DayOrder::YearFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readDay("05/07/2013", DayOrder::YearFirst), std::nullopt);
}

TEST(ADay, MayHaveTheNameOfItsMonth) {
  for (const char* text : {"5 July 2013", "July 5, 2013", "Jul 5 2013", "5. Juli 2013", "05-Jul-13",
                           "5th July 2013", "Fri, 5 Jul 2013 10:00", "2013 július 5", "péntek 2013.07.05"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 5})) << text;
  EXPECT_EQ(readDay("13-Jul-05", DayOrder::YearFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readMonth("március"), 3);
  EXPECT_EQ(readMonth("Okt."), 10);
  EXPECT_EQ(readMonth("12"), 12);
  EXPECT_EQ(readMonth("13"), std::nullopt);
}

TEST(ADay, OfATwoDigitYearLiesFrom1980To2079) {
  EXPECT_EQ(readDay("1.2.80", DayOrder::DayFirst), dayOf({1980, 2, 1}));
  EXPECT_EQ(readDay("1.2.79", DayOrder::DayFirst), dayOf({2079, 2, 1}));
}

TEST(ADay, IsNoneWhereItDoesNotExistOrOtherTextStands) {
  for (const char* text :
       {"",           "2013-02-30",  "31.12",         "20131301",      "2013-07-05x",  "2013-07-05 tegnap",
        "1,2,2013",   "99999999",    "2013x7x5",      "2013-07",       "-07-05",       "2013--05",
        "2013 07 05", "02013-07-05", "2013-07-05 14", "2013-07-05:14", "2013-07-05..", "123",
        "400123",     "Foo 5 2013"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(TheOrderOfDays, IsToldByAPartOverTwelveAnywhereInTheFile) {
  EXPECT_THAT(shown({{"1/2/2024", {}}, {"13/4/2024", {}}}).possible, ElementsAre(DayOrder::DayFirst));
  EXPECT_THAT(shown({{"1/2/2024", {}}, {"4/13/2024", {}}}).possible, ElementsAre(DayOrder::MonthFirst));
  EXPECT_THAT(shown({{"24.01.31.", 100},
                     {"24.02.05.", 200},
                     {"24.03.01.", 300},
                     {"24.03.20.", 400},
                     {"24.04.02.", 500}})
                  .possible,
              ElementsAre(DayOrder::YearFirst));
  EXPECT_THAT(shown({{"2024-01-02", {}}, {"", {}}, {"2024. 3. 4.", {}}}).possible,
              ElementsAre(DayOrder::YearFirst));
}

TEST(TheOrderOfDays, StaysOpenWhereNothingTells) {
  EXPECT_THAT(shown({{"1/2/2024", {}}}).possible, ElementsAre(DayOrder::DayFirst, DayOrder::MonthFirst));
  EXPECT_EQ(shown({{"10.11.12.", 100}}).possible.size(), 3U);
  EXPECT_THAT(shown({{"01.02.2024", 100}, {"03.04.2024", 200}}).possible,
              ElementsAre(DayOrder::DayFirst, DayOrder::MonthFirst));
}

// As days of January to March the readings rise; as the first of months from February on they fall twice.
TEST(TheOrderOfDays, IsTheOneInWhichTheReadingsRise) {
  const std::vector<DatedReading> days{
      {"1/2/2024", 100}, {"1/9/2024", 200}, {"2/3/2024", 300}, {"2/11/2024", 400}, {"3/1/2024", 500}};
  EXPECT_THAT(shown(days).possible, ElementsAre(DayOrder::MonthFirst));
  const std::vector<DatedReading> backwards(days.rbegin(), days.rend());
  EXPECT_THAT(shown(backwards).possible, ElementsAre(DayOrder::MonthFirst));
}

TEST(TheOrderOfDays, IsOpenInAFileThatHasBoth) {
  EXPECT_FALSE(
      shown({{"13/1/2024", {}}, {"14/1/2024", {}}, {"1/13/2024", {}}, {"1/14/2024", {}}}).isCertain());
}

}  // namespace
}  // namespace tarvik::exchange
