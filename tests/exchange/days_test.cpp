#include "exchange/days.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace tarvik::exchange {
namespace {

using core::dayOf;
using testing::ElementsAre;

ShownDayOrder shown(const std::vector<DatedReading>& days) {
  return shownDayOrder(days);
}

TEST(ADay, ThatBeginsWithItsYearIsReadInAnyOrder) {
  for (const char* text : {"2013-07-05", "2013.07.05.", "2013. 07. 05.", "2013/7/5", "20130705",
                           "2013-07-05 14:03", "2013-07-05T14:03:00Z", "2013.07.05. 14:03", "20130705140300",
                           "20130705T1403Z0", "2013. július 5.", "2013. júl. 5.", "1372975200", "1373061599",
                           "1372982400000", "41460", "2013/Jul/5", "среда 2013.07.05", "2013-07-05, 14:03"})
    for (const DayOrder order : {DayOrder::DayFirst, DayOrder::MonthFirst, DayOrder::YearFirst})
      EXPECT_EQ(readDay(text, order), dayOf({2013, 7, 5})) << text;
}

TEST(ADay, CountedInSecondsIsTheOneInHungary) {
  const auto day = [](const char* seconds) { return readDay(seconds, DayOrder::DayFirst); };
  EXPECT_EQ(day("1704495599"), dayOf({2024, 1, 5}));  // an hour ahead in winter
  EXPECT_EQ(day("1704495600"), dayOf({2024, 1, 6}));
  EXPECT_EQ(day("1704063600"), dayOf({2024, 1, 1}));      // the year's first moment
  EXPECT_EQ(day("1711839600000"), dayOf({2024, 3, 31}));  // the day on which summer begins, and its eve
  EXPECT_EQ(day("1711839599999"), dayOf({2024, 3, 30}));
  EXPECT_EQ(day("1711922399"), dayOf({2024, 3, 31}));  // two hours ahead in summer
  EXPECT_EQ(day("1711922400"), dayOf({2024, 4, 1}));
  EXPECT_EQ(day("1729979999"), dayOf({2024, 10, 26}));
  EXPECT_EQ(day("1729980000"), dayOf({2024, 10, 27}));  // the day on which it ends
  EXPECT_EQ(day("1730069999"), dayOf({2024, 10, 27}));
  EXPECT_EQ(day("1730070000"), dayOf({2024, 10, 28}));
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
  for (const char* text :
       {"5 July 2013", "July 5, 2013", "Jul 5 2013", "5. Juli 2013", "05-Jul-13", "5th July 2013",
        "July 5th, 2013", "2013.5.July", "Fri, 5 Jul 2013 10:00", "2013 július 5", "péntek 2013.07.05"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 5})) << text;
  EXPECT_EQ(readDay("13-Jul-05", DayOrder::YearFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readDay("05-Jul-2013", DayOrder::YearFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readDay("5-MARZO-2013", DayOrder::YearFirst), dayOf({2013, 3, 5}));
  for (const char* text : {"1st July 2013", "1 July 2013"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2013, 7, 1})) << text;
  EXPECT_EQ(readDay("2nd July 2013", DayOrder::DayFirst), dayOf({2013, 7, 2}));
  EXPECT_EQ(readDay("3rd July 2013", DayOrder::DayFirst), dayOf({2013, 7, 3}));
  EXPECT_EQ(readMonth("1"), 1);
  for (const char* text : {"0", "5x", "", "x"}) EXPECT_EQ(readMonth(text), std::nullopt) << text;
  EXPECT_EQ(readMonth("március"), 3);
  EXPECT_EQ(readMonth("Okt."), 10);
  EXPECT_EQ(readMonth("12"), 12);
  EXPECT_EQ(readMonth("13"), std::nullopt);
}

TEST(ADay, MayHaveItsDayOfTheWeekBehindIt) {
  for (const char* text :
       {"2023. február 3., péntek", "2023.02.03. (péntek)", "2023.02.03. péntek", "2023.02.03.péntek",
        "2023.02.03. P", "2023-02-03 P.", "2023.02.03, Pén", "03.02.2023 Fri", "03.02.2023 (Freitag)",
        "3 Feb 2023, Friday", "2023.02.03. péntek 14:05"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2023, 2, 3})) << text;
  for (const char* text : {"2023.02.03 Foo", "2023.02.03. péntek este", "2023-02-03P", "2023.02.03. péntek 2",
                           "2023.02.03 ()", "2023.02.03. pénteken"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, MayHaveItsMonthInRomanNumeralsBetweenTheOthers) {
  for (const char* text :
       {"2023. II. 3.", "2023.II.3", "3.II.2023", "3. II. 2023.", "3/II/2023", "2023 II 3"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2023, 2, 3})) << text;
  const std::vector<const char*> numerals{"I",   "II",   "III", "IV", "V",  "VI",
                                          "VII", "VIII", "IX",  "X",  "XI", "XII"};
  for (int month = 1; month <= 12; ++month)
    EXPECT_EQ(readDay("2023." + std::string(numerals[static_cast<std::size_t>(month - 1)]) + ".3.",
                      DayOrder::DayFirst),
              dayOf({2023, month, 3}));
  for (const char* text :
       {"2023.ii.3", "2023.IIII.3", "12V2013", "2023X.3", "2023.X3", "II.3.2023", "3.2023.II", "2023.XIII.3"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, MayHaveAHungarianEnding) {
  for (const char* text : {"2023. február 3-án", "2023. február 3-i", "2023. február 3-ai", "2023.02.03-án",
                           "2023. február 3-án, péntek", "2023. február 3-án 14:05"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), dayOf({2023, 2, 3})) << text;
  EXPECT_EQ(readDay("2023. február 1-jén", DayOrder::DayFirst), dayOf({2023, 2, 1}));
  EXPECT_EQ(readDay("2023. február 4-én", DayOrder::DayFirst), dayOf({2023, 2, 4}));
  for (const char* text : {"2023. február 3-ig", "2023-02-03-x", "2023. február 3-án este", "2023-02-03-"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, OfATwoDigitYearOrASpreadsheetsCountLiesFrom1980To2079) {
  EXPECT_EQ(readDay("1.2.80", DayOrder::DayFirst), dayOf({1980, 2, 1}));
  EXPECT_EQ(readDay("1.2.79", DayOrder::DayFirst), dayOf({2079, 2, 1}));
  EXPECT_EQ(readDay("1.2.99", DayOrder::DayFirst), dayOf({1999, 2, 1}));
  EXPECT_EQ(readDay("1.2.100", DayOrder::DayFirst), dayOf({100, 2, 1}));
  EXPECT_EQ(readDay("29221", DayOrder::DayFirst), dayOf({1980, 1, 1}));
  EXPECT_EQ(readDay("65745", DayOrder::DayFirst), dayOf({2079, 12, 31}));
}

TEST(ADay, IsNoneWhereItDoesNotExistOrOtherTextStands) {
  for (const char* text :
       {"", "31.12", "20131301", "1,2,2013", "99999999", "2013x7x5", "2013-07", "-07-05", "2013--05", "123",
        "400123", "July 5th", "5.7.02013", "201307.05", "29220", "65746"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
  for (const char* text :
       {"2013-02-30", "2013-07-05x", "2013-07-05 tegnap", "2013 07 05", "02013-07-05", "2013-07-05 14",
        "2013-07-05:14", "2013-07-05..", "Foo 5 2013", "5xJuly 2013", "2013-07-05 x:y", "2013-07-05X14:03",
        "Fri x5.7.2013", "123:45 5.7.2013", "2013. xx07. 05.", "1990112xT140300", "14:03:000 5.7.2013",
        "5 July August", "1372982400123456789"})
    EXPECT_EQ(readDay(text, DayOrder::DayFirst), std::nullopt) << text;
}

TEST(ADay, WithItsYearFirstHasTwoOrFourDigitsThere) {
  for (const char* text : {"123.4.5", "13.7.005"})
    EXPECT_EQ(readDay(text, DayOrder::YearFirst), std::nullopt) << text;
}

TEST(ADay, HasAtMostSixtyCharacters) {
  const std::string text = "2013-07-05 14:03 ";
  EXPECT_EQ(readDay(text + std::string(43, 'x'), DayOrder::DayFirst), dayOf({2013, 7, 5}));
  EXPECT_EQ(readDay(text + std::string(44, 'x'), DayOrder::DayFirst), std::nullopt);
}

// Days of a year with the month first, and readings that rise from row to row.
std::vector<DatedReading> rising(const std::vector<std::string_view>& days) {
  std::vector<DatedReading> rows;
  for (const std::string_view day : days) rows.push_back({day, 100.0 * static_cast<double>(rows.size())});
  return rows;
}

TEST(TheOrderOfDays, IsWorseWithTwoFallsAndMoreThanThreeTimesThoseOfTheBest) {
  const auto monthFirst = ElementsAre(DayOrder::MonthFirst);
  // With the day first one, two, and beside one of the best three and four.
  EXPECT_EQ(shown(rising({"1/9/2024", "2/3/2024", "3/9/2024"})).possible.size(), 2U);
  EXPECT_THAT(shown(rising({"1/9/2024", "2/3/2024", "3/9/2024", "4/3/2024"})).possible, monthFirst);
  EXPECT_EQ(
      shown(rising({"3/9/2024", "4/3/2024", "5/9/2024", "6/3/2024", "7/9/2024", "8/3/2024", "7/4/2024"}))
          .possible.size(),
      2U);
  EXPECT_THAT(shown(rising({"1/9/2024", "2/3/2024", "3/9/2024", "4/3/2024", "5/9/2024", "6/3/2024",
                            "7/9/2024", "8/3/2024", "7/4/2024"}))
                  .possible,
              monthFirst);
  EXPECT_THAT(shown(rising({"1/9/2024", "2/3/2024", "3/9/2024", "4/3/2024", "4/3/2024"})).possible,
              monthFirst);
}

TEST(TheOrderOfDays, IsTheOneInWhichTheyTurnBackLeastWhereThereAreNoReadings) {
  const std::vector<std::string_view> days{"1/2/2024",  "1/9/2024", "2/3/2024",
                                           "2/11/2024", "3/1/2024", "3/1/2024"};
  std::vector<DatedReading> rows;
  for (const std::string_view day : days) rows.push_back({day, {}});
  EXPECT_THAT(shown(rows).possible, ElementsAre(DayOrder::MonthFirst));
  std::ranges::reverse(rows);
  EXPECT_THAT(shown(rows).possible, ElementsAre(DayOrder::MonthFirst));
  EXPECT_THAT(shown({{"zutty", {}}}).possible, ElementsAre(DayOrder::DayFirst));
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
  EXPECT_THAT(shown({{"2024-01-02", {}}}).possible, ElementsAre(DayOrder::YearFirst));
  EXPECT_THAT(shown({{"13.01.2024", {}}, {"2024-02-01", {}}}).possible, ElementsAre(DayOrder::DayFirst));
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
  EXPECT_EQ(
      shown({{"13/1/2024", {}}, {"14/1/2024", {}}, {"15/1/2024", {}}, {"1/13/2024", {}}, {"1/14/2024", {}}})
          .possible.size(),
      2U);
  EXPECT_TRUE(
      shown({{"13/1/2024", {}}, {"14/1/2024", {}}, {"15/1/2024", {}}, {"1/14/2024", {}}}).isCertain());
  EXPECT_FALSE(
      shown({{"13/1/2024", {}}, {"14/1/2024", {}}, {"1/13/2024", {}}, {"1/14/2024", {}}}).isCertain());
  EXPECT_FALSE(
      shown({{"1/13/2024", {}}, {"13/1/2024", {}}, {"14/1/2024", {}}, {"15/1/2024", {}}, {"1/14/2024", {}}})
          .isCertain());
}

}  // namespace
}  // namespace tarvik::exchange
