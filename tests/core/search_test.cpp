#include "core/search.h"

#include <gtest/gtest.h>

#include "tests/core/entries.h"

namespace tarvik::core {
namespace {

using Rows = std::vector<int>;

NapiAdat noted(std::string_view part, std::string_view note) {
  NapiAdat entry = test::fuelling({2013, 7, 5}, 123'456, 405'000, true);
  entry.Alkatresz = FixedText<50>(part);
  entry.Megjegyzes = FixedText<50>(note);
  return entry;
}

bool finds(std::string_view typed, const NapiAdat& entry) {
  return !rowsThatHold(typed, 1, [&](int) { return searchedText(entry); }).empty();
}

Rows foundIn(const std::vector<std::string>& texts, std::string_view typed) {
  return rowsThatHold(typed, static_cast<int>(texts.size()),
                      [&](int row) { return texts[static_cast<std::size_t>(row)]; });
}

TEST(SearchedText, IsTheDayThePartAndTheNoteAndNoFigures) {
  EXPECT_EQ(searchedText(noted("  Fékbetét ", "Autópálya-matrica")),
            "2013.07.05.\nFékbetét\nAutópálya-matrica");
  EXPECT_FALSE(finds("123456", noted("", "")));
  EXPECT_FALSE(finds("40,5", noted("", "")));
}

TEST(SearchedText, HasAQuestionMarkForADamagedDay) {
  NapiAdat entry = noted("", "");
  entry.Datum = 1e15;
  EXPECT_EQ(searchedText(entry), "?\n\n");
}

TEST(SearchedText, HoldsTheWordsOfEachMarkInItsStoredForm) {
  NapiAdat entry = noted("", "Tankolás");
  for (const char* word : {"olaj", "szűrő", "szürő", "gyertya"}) EXPECT_FALSE(finds(word, entry)) << word;
  entry.Olajcsere = 1;
  EXPECT_FALSE(finds("olaj", entry));
  entry.Olajcsere = kFlagSet;
  for (const char* word : {"olaj", "Olajcsere", "OLAJ CSERE"}) EXPECT_TRUE(finds(word, entry)) << word;
  EXPECT_FALSE(finds("szűrő", entry));
  entry.Szurocsere = kFlagSet;
  for (const char* word : {"szűrő", "Szűrőbetét csere", "szűrőcsere", "szürő"})
    EXPECT_TRUE(finds(word, entry)) << word;
  EXPECT_FALSE(finds("gyertya", entry));
  entry.Gyertyacsere = kFlagSet;
  for (const char* word : {"gyertya", "Gyertya csere", "gyertyacsere"})
    EXPECT_TRUE(finds(word, entry)) << word;
}

TEST(Search, TakesDaysByTheirBeginningAndInTheMiddle) {
  const NapiAdat entry = noted("", "");
  for (const char* day : {"2013", "2013.07", "2013.07.05.", "07.05"}) EXPECT_TRUE(finds(day, entry)) << day;
  EXPECT_FALSE(finds("2013.08", entry));
}

TEST(Search, LetterCaseDoesNotCountInAccentedLettersEither) {
  EXPECT_TRUE(finds("ŐSZI ÁTVIZSGÁLÁS", noted("", "őszi átvizsgálás")));
  EXPECT_TRUE(finds("őszi átvizsgálás", noted("", "ŐSZI ÁTVIZSGÁLÁS")));
  EXPECT_FALSE(finds("oszi", noted("", "őszi átvizsgálás")));
}

TEST(Search, DoesNotRunFromOneTextIntoTheNext) {
  EXPECT_FALSE(finds("betétTank", noted("Fékbetét", "Tankolás")));
}

TEST(Search, FindsFromTheLastRowToTheFirst) {
  EXPECT_EQ(foundIn({"mosás", "matrica", "Mosás", "", "kézi mosás"}, "mosás"), (Rows{4, 2, 0}));
}

TEST(Search, SpacesAroundWhatWasTypedDoNotCount) {
  EXPECT_EQ(foundIn({"téli gumi", "téligumi"}, "  téli gumi "), (Rows{0}));
}

TEST(Search, NothingTypedFindsNothing) {
  EXPECT_EQ(foundIn({"mosás", ""}, ""), Rows{});
  EXPECT_EQ(foundIn({"mosás", "  "}, "   "), Rows{});
  EXPECT_EQ(foundIn({}, "mosás"), Rows{});
}

}  // namespace
}  // namespace tarvik::core
