#include "core/typed_day.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tarvik::core {
namespace {

const Day kShown = dayOf({2013, 7, 5});

std::optional<Day> whole(std::string_view text, Day shown = kShown, DayPart last = DayPart::Day) {
  return dayOfText(text, shown, last);
}

// What stands in the field after some keys, "-" for no day.
std::string typed(std::string_view keys, DayPart first, Day shown = kShown, DayPart last = DayPart::Day) {
  const auto parts = partsTyped(keys, first, last);
  const auto day = parts ? dayOfParts(*parts, shown, last) : std::nullopt;
  return day ? shortDate(*day) : "-";
}

std::string two(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

// The day in every form that people type.
std::vector<std::string> formsOf(const CalendarDate& date) {
  const std::string y = std::to_string(date.year);
  const std::string m = two(date.month);
  const std::string d = two(date.day);
  std::vector<std::string> forms{y + m + d};
  for (const char* gap : {".", " ", "-", "/", ". ", " - ", "\t", "\u00A0"})
    for (const bool isShort : {false, true}) {
      const std::string text = isShort ? y + gap + std::to_string(date.month) + gap + std::to_string(date.day)
                                       : y + gap + m + gap + d;
      forms.insert(forms.end(), {text, text + ".", text + ". "});
    }
  return forms;
}

TEST(DayOfText, UnderstandsEveryFormOfADay) {
  for (const CalendarDate& date :
       {CalendarDate{2013, 6, 21}, CalendarDate{2024, 2, 29}, CalendarDate{1000, 1, 1},
        CalendarDate{1999, 12, 31}, CalendarDate{2010, 10, 10}, CalendarDate{9999, 12, 31}})
    for (const std::string& form : formsOf(date)) EXPECT_EQ(whole(form), dayOf(date)) << form;
}

TEST(DayOfText, UnderstandsEveryDayAsItIsShown) {
  for (Day day = dayOf({2011, 12, 1}); day < dayOf({2013, 2, 1}); ++day.number) {
    EXPECT_EQ(whole(shortDate(day)), day);
    EXPECT_EQ(whole("\n " + shortDate(day) + "\r\n"), day);
  }
}

TEST(DayOfText, UnderstandsAMonthByItsName) {
  const Day day = dayOf({2013, 6, 21});
  for (const char* text :
       {"2013. június 21.", "2013. JÚNIUS 21", "2013 jún. 21.", "2013-jún-21", "2013.Június.21"})
    EXPECT_EQ(whole(text), day) << text;
  int month = 0;
  for (const std::string name : {"január", "február", "március", "április", "május", "június", "július",
                                 "augusztus", "szeptember", "október", "november", "december"}) {
    EXPECT_EQ(monthName(++month), name);
    EXPECT_EQ(whole("2013. " + name + " 1."), dayOf({2013, month, 1}));
  }
  EXPECT_EQ(whole("2013. MÁRCIUS 1."), dayOf({2013, 3, 1}));
  EXPECT_EQ(whole("2013. Aug. 1."), dayOf({2013, 8, 1}));
  EXPECT_EQ(whole("2013. márc. 1."), dayOf({2013, 3, 1}));
  EXPECT_EQ(whole("2013. máj. 1."), dayOf({2013, 5, 1}));
}

TEST(DayOfText, WhatIsNoDayIsNone) {
  for (const char* text : {"", ".", "2013", "2013.06", "06.21", "201306", "2013062", "20130631", "13.06.21",
                           "130621", "0612", "15", "06120621"})
    EXPECT_EQ(whole(text), std::nullopt) << text;
  for (const char* text :
       {"201306211",   "2013.02.29",       "2013.13.01",   "2013.00.10",   "2013.06.00",   "2013.06.32",
        "2013..06.21", "2013.06..21",      "2013.06.21..", "0612.06.21",   "21.06.2013",   "06/21/2013",
        "2013.06.21x", "x2013.06.21",      "2o13.06.21",   "2013.06.2l",   "2013,06,21",   "-2013.06.21",
        ".2013.06.21", "2013.06.21-",      "12013.06.21",  "2013.006.21",  "2013.06.021",  "2013. jú 21.",
        "2013. ma 1.", "2013. junius 21.", "június 21.",   "2013. június", "2013 06 21 7", "2013-06-21-07",
        "٢٠١٣.06.21",  "2013.\xC3.21"})
    EXPECT_EQ(whole(text), std::nullopt) << text;
}

TEST(DayOfText, TheShownYearMayBeginWithZero) {
  EXPECT_EQ(whole("0612.04.03.", dayOf({612, 3, 3})), dayOf({612, 4, 3}));
  EXPECT_EQ(whole("0612.04.03.", dayOf({613, 3, 3})), std::nullopt);
}

TEST(DayOfText, WhereAMonthIsShownYearAndMonthWillDo) {
  for (const char* text :
       {"2014.02", "2014. 2.", "201402", "2014 02", "2014-2", "2014. február", "2014. Febr."})
    EXPECT_EQ(whole(text, dayOf({2013, 7, 31}), DayPart::Month), dayOf({2014, 2, 28})) << text;
  EXPECT_EQ(whole("2014.02.03", kShown, DayPart::Month), dayOf({2014, 2, 3}));
  EXPECT_EQ(whole("2014.02.30", kShown, DayPart::Month), std::nullopt);
  EXPECT_EQ(whole("2014", kShown, DayPart::Month), std::nullopt);
  EXPECT_EQ(whole("20142", kShown, DayPart::Month), std::nullopt);
}

TEST(DayOfText, WhereAYearIsShownTheYearWillDo) {
  for (const char* text : {"2015", "2015.", " 2015 "})
    EXPECT_EQ(whole(text, dayOf({2012, 2, 29}), DayPart::Year), dayOf({2015, 2, 28})) << text;
  EXPECT_EQ(whole("2015.06", kShown, DayPart::Year), dayOf({2015, 6, 5}));
  for (const char* text : {"15", "0612", "612", "20155", "2o15"})
    EXPECT_EQ(whole(text, kShown, DayPart::Year), std::nullopt) << text;
}

// A text is a day only where its digits, read in order, are that day's: nothing is added, dropped or swapped.
TEST(DayOfText, OfAnyCharactersItIsTheWrittenDayOrNone) {
  std::mt19937 chance(20130621);
  constexpr std::string_view kSigns = "00112234567890123.. -/\tx";
  int days = 0;
  for (int round = 0; round < 400'000; ++round) {
    std::string text;
    const auto length = 6 + chance() % 6;
    while (text.size() < length) text += kSigns[chance() % kSigns.size()];
    const auto day = whole(text);
    if (!day) continue;
    ++days;
    std::string digits;
    for (const char c : text)
      if (c >= '0' && c <= '9') digits += c;
    const CalendarDate date = calendarDate(*day);
    const std::string y = std::to_string(date.year);
    const bool isWritten = digits == y + two(date.month) + two(date.day) ||
                           digits == y + std::to_string(date.month) + two(date.day) ||
                           digits == y + two(date.month) + std::to_string(date.day) ||
                           digits == y + std::to_string(date.month) + std::to_string(date.day);
    EXPECT_TRUE(isWritten) << text;
    EXPECT_EQ(text.find('x'), std::string::npos) << text;
  }
  EXPECT_GT(days, 100);
}

TEST(PartsTyped, AWholeDayFromTheYearOn) {
  for (const CalendarDate& date :
       {CalendarDate{2013, 6, 21}, CalendarDate{2024, 2, 29}, CalendarDate{1999, 1, 1}})
    for (const std::string& form : formsOf(date)) {
      if (form.find("\u00A0") != std::string::npos) continue;
      EXPECT_EQ(typed(form, DayPart::Year), shortDate(dayOf(date))) << form;
    }
}

TEST(PartsTyped, PartsThatWereNotTypedStay) {
  EXPECT_EQ(typed("2014", DayPart::Year), "2014.07.05.");
  EXPECT_EQ(typed("2014.", DayPart::Year), "2014.07.05.");
  EXPECT_EQ(typed("201406", DayPart::Year), "2014.06.05.");
  EXPECT_EQ(typed("2014\t6", DayPart::Year), "2014.06.05.");
  EXPECT_EQ(typed("6", DayPart::Month), "2013.06.05.");
  EXPECT_EQ(typed("6\t21", DayPart::Month), "2013.06.21.");
  EXPECT_EQ(typed("0621", DayPart::Month), "2013.06.21.");
  EXPECT_EQ(typed("21", DayPart::Day), "2013.07.21.");
  EXPECT_EQ(typed("21.", DayPart::Day), "2013.07.21.");
}

TEST(PartsTyped, AShownPartOfOneDigitHoldsWhicheverKeyLedToIt) {
  EXPECT_EQ(typed("2013062", DayPart::Year), "2013.06.02.");
  EXPECT_EQ(typed("20131", DayPart::Year), "2013.01.05.");
  EXPECT_EQ(typed("20136\t21", DayPart::Year), "2013.06.21.");
  EXPECT_EQ(typed("025", DayPart::Month), "2013.02.05.");
  EXPECT_EQ(typed("2013.045", DayPart::Year), "2013.04.05.");
}

TEST(PartsTyped, WhatIsNoDayIsNone) {
  for (const char* keys : {"15", "0612", "201", "15\t06\t21", "0612.06.21", "2013.2.31", "20130631",
                           "2013..21", "2013.x", "2013.06.21.5", "2013.06.2.5", "2013.jún5", "2013.!",
                           "2013.06.2x", "20130", "20130.", "20130 ", "201300"})
    EXPECT_EQ(typed(keys, DayPart::Year), "-") << keys;
  for (const char* keys : {"13", "00", "0", "2013", "6.32", "6.00", "6.0", "062113", "2"})
    EXPECT_EQ(typed(keys, DayPart::Month, dayOf({2013, 1, 31})), "-") << keys;
  for (const char* keys : {"32", "00", "0", "201", "5.6", "x", "5-"})
    EXPECT_EQ(typed(keys, DayPart::Day), "-") << keys;
}

TEST(PartsTyped, AKeyThatLeadsToNoMonthOrDayDoesNotFit) {
  const auto fits = [](const char* keys) {
    return partsTyped(keys, DayPart::Year, DayPart::Day).has_value();
  };
  for (const char* keys :
       {"2013.0", "2013.01", "2013.12", "2013.12.0", "2013.12.01", "2013.12.13", "2013.12.31"})
    EXPECT_TRUE(fits(keys)) << keys;
  for (const char* keys : {"2013.00", "2013.13", "2013.12.00", "2013.12.32", "20130.", "20130 ", "2013.!"})
    EXPECT_FALSE(fits(keys)) << keys;
}

TEST(PartsTyped, SaysWhichPartWasReached) {
  EXPECT_EQ(partsTyped("2013", DayPart::Year, DayPart::Day)->at, DayPart::Year);
  EXPECT_EQ(partsTyped("2013.", DayPart::Year, DayPart::Day)->at, DayPart::Month);
  EXPECT_EQ(partsTyped("20130", DayPart::Year, DayPart::Day)->at, DayPart::Month);
  EXPECT_EQ(partsTyped("2013. ", DayPart::Year, DayPart::Day)->at, DayPart::Month);
  EXPECT_EQ(partsTyped("2013.06.21.", DayPart::Year, DayPart::Day)->at, DayPart::Day);
  EXPECT_EQ(partsTyped("2013", DayPart::Year, DayPart::Year)->at, DayPart::Year);
}

TEST(PartsTyped, StopsBehindTheLastShownPart) {
  EXPECT_EQ(typed("2014", DayPart::Year, dayOf({2012, 2, 29}), DayPart::Year), "2014.02.28.");
  EXPECT_EQ(typed("201406", DayPart::Year, kShown, DayPart::Year), "-");
  EXPECT_EQ(typed("2014.06", DayPart::Year, kShown, DayPart::Year), "-");
  EXPECT_EQ(typed("2014. február", DayPart::Year, dayOf({2013, 7, 31}), DayPart::Month), "2014.02.28.");
  EXPECT_EQ(typed("feb", DayPart::Month, dayOf({2013, 7, 31}), DayPart::Month), "2013.02.28.");
  EXPECT_EQ(typed("20140621", DayPart::Year, kShown, DayPart::Month), "-");
}

TEST(Stepped, GoesByYearsMonthsAndDays) {
  EXPECT_EQ(stepped(kShown, DayPart::Year, -1), dayOf({2012, 7, 5}));
  EXPECT_EQ(stepped(kShown, DayPart::Year, 3), dayOf({2016, 7, 5}));
  EXPECT_EQ(stepped(kShown, DayPart::Month, 6), dayOf({2014, 1, 5}));
  EXPECT_EQ(stepped(kShown, DayPart::Month, -7), dayOf({2012, 12, 5}));
  EXPECT_EQ(stepped(kShown, DayPart::Day, -5), dayOf({2013, 6, 30}));
  EXPECT_EQ(stepped(dayOf({2012, 2, 29}), DayPart::Year, 1), dayOf({2013, 2, 28}));
  EXPECT_EQ(stepped(dayOf({2013, 1, 31}), DayPart::Month, 1), dayOf({2013, 2, 28}));
}

TEST(Stepped, StaysWithinTheDaysThatHaveAText) {
  EXPECT_EQ(stepped(dayOf({100, 2, 15}), DayPart::Month, -1), dayOf({100, 1, 15}));
  for (const DayPart part : {DayPart::Year, DayPart::Month, DayPart::Day}) {
    EXPECT_EQ(stepped(kLastDay, part, 1), kLastDay);
    EXPECT_EQ(stepped(kFirstDay, part, -1), kFirstDay);
    EXPECT_LT(kFirstDay, stepped(kFirstDay, part, 1));
    EXPECT_LT(stepped(kLastDay, part, -1), kLastDay);
  }
}

}  // namespace
}  // namespace tarvik::core
