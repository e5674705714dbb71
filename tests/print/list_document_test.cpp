#include "print/list_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "core/day.h"
#include "core/failure.h"

namespace tarvik::print {
namespace {

using core::Logbook;
using core::NapiAdat;
using ::testing::ElementsAre;

NapiAdat fuelling(std::int32_t km, std::int64_t litresTenThousandths) {
  NapiAdat entry;
  entry.KmOra = km;
  entry.Datum = core::toStored(core::dayOf({2013, 7, 5}));
  entry.TankoltLiter = {litresTenThousandths};
  return entry;
}

// So many fuellings of 10 litres, 100 km apart from 1,000 km on.
Logbook logbookOf(int count) {
  std::vector<NapiAdat> entries;
  for (int i = 0; i < count; ++i) entries.push_back(fuelling(1'000 + 100 * i, 100'000));
  return Logbook::of(entries);
}

ListedRows allRowsOf(const Logbook& logbook) {
  ListedRows rows;
  rows.records.resize(static_cast<std::size_t>(logbook.count()));
  std::iota(rows.records.begin(), rows.records.end(), 1);
  rows.firstKmOra = std::to_string(logbook.record(1).KmOra);
  rows.lastKmOra = std::to_string(logbook.record(logbook.count()).KmOra);
  return rows;
}

std::vector<Text> textsAt(const Page& page, int y) {
  std::vector<Text> found;
  for (const Text& text : page.texts)
    if (text.yMm == y) found.push_back(text);
  return found;
}

std::vector<std::string> wordsAt(const Page& page, int y) {
  std::vector<std::string> words;
  for (const Text& text : textsAt(page, y)) words.push_back(text.text);
  return words;
}

std::vector<Rule> verticalRules(const Page& page) {
  std::vector<Rule> found;
  for (const Rule& rule : page.rules)
    if (rule.fromXMm == rule.toXMm) found.push_back(rule);
  return found;
}

std::vector<int> horizontalRuleYs(const Page& page) {
  std::vector<int> found;
  for (const Rule& rule : page.rules)
    if (rule.fromYMm == rule.toYMm) found.push_back(rule.fromYMm);
  return found;
}

// The texts of one entry's row, alone in its list.
std::vector<std::string> rowOf(const NapiAdat& entry) {
  const Logbook logbook = Logbook::of(std::vector{entry});
  return wordsAt(ListDocument(logbook, allRowsOf(logbook), "").page(1), 30);
}

// The two totals of a list.
std::vector<Text> totalsOf(const Logbook& logbook, const ListedRows& rows) {
  const ListDocument document(logbook, rows, "");
  const Page page = document.page(document.pageCount());
  return {page.texts.end() - 2, page.texts.end()};
}

TEST(ListDocument, HasFortyRowsOnEveryPage) {
  EXPECT_EQ(pageCount(0), 0);
  EXPECT_EQ(pageCount(1), 1);
  EXPECT_EQ(pageCount(39), 1);
  EXPECT_EQ(pageCount(40), 1);
  EXPECT_EQ(pageCount(41), 2);
  EXPECT_EQ(pageCount(80), 2);
  EXPECT_EQ(pageCount(81), 3);
  EXPECT_EQ(pageCount(32'767), 820);
}

TEST(ListDocument, WithoutRowsHasNoPage) {
  const Logbook logbook;
  EXPECT_EQ(ListDocument(logbook, {}, "Fejléc").pageCount(), 0);
}

TEST(ListDocument, SetsOneRowToTheMillimetreAndCharacter) {
  NapiAdat entry = fuelling(123'456, 405'000);
  entry.Olajcsere = core::kFlagSet;
  entry.Gyertyacsere = core::kFlagSet;
  entry.Alkatresz = core::FixedText<50>("  Ékszíj");
  entry.Megjegyzes = core::FixedText<50>("Hűtőfolyadék");
  const Logbook logbook = Logbook::of(std::vector{entry});

  const Page page = ListDocument(logbook, allRowsOf(logbook), "Őszi lista").page(1);

  EXPECT_THAT(page.texts, ElementsAre(Text{10, 15, 12, "Őszi lista", 282}, Text{10, 26, 8, "Dátum", 19},  //
                                      Text{30, 26, 8, "Km. óra", 19},                                     //
                                      Text{50, 26, 8, "Tankolás", 19},                                    //
                                      Text{70, 26, 8, "Olajcsere", 14},                                   //
                                      Text{85, 26, 8, "L. szűrő", 14},                                    //
                                      Text{100, 26, 8, "Gyertya", 14},                                    //
                                      Text{115, 26, 8, "Alkatrész", 74},                                  //
                                      Text{190, 26, 8, "Megjegyzés", 102},                                //
                                      Text{10, 30, 8, "2013.07.05.", 19},                                 //
                                      Text{30, 30, 8, "123456", 19},                                      //
                                      Text{50, 30, 8, "    40,50", 19},                                   //
                                      Text{70, 30, 8, "   csere", 14},                                    //
                                      Text{85, 30, 8, " ", 14},                                           //
                                      Text{100, 30, 8, "   csere", 14},                                   //
                                      Text{115, 30, 8, "Ékszíj", 74},                                     //
                                      Text{190, 30, 8, "Hűtőfolyadék" + std::string(38, ' '), 102},
                                      Text{50, 34, 8, "Kilométer összesen:  km.", 230},
                                      Text{50, 38, 8, "Tankolás összesen:  40,50 liter", 230}));
  EXPECT_THAT(page.rules,
              ElementsAre(Rule{9, 25, 280, 25}, Rule{9, 29, 280, 29}, Rule{9, 33, 280, 33},
                          Rule{9, 25, 9, 33}, Rule{29, 25, 29, 33}, Rule{49, 25, 49, 33},
                          Rule{69, 25, 69, 33}, Rule{84, 25, 84, 33}, Rule{99, 25, 99, 33},
                          Rule{114, 25, 114, 33}, Rule{189, 25, 189, 33}, Rule{280, 25, 280, 33}));
}

TEST(ListDocument, AnEmptyHeadingIsNotPrinted) {
  const Logbook logbook = logbookOf(1);
  const Page page = ListDocument(logbook, allRowsOf(logbook), "").page(1);
  EXPECT_EQ(page.texts.front(), (Text{10, 26, 8, "Dátum", 19}));
}

TEST(ListDocument, LitresAreFilledToNineCharactersAndNeverCut) {
  EXPECT_EQ(rowOf(fuelling(1, 0))[2], "      ,00");
  EXPECT_EQ(rowOf(fuelling(1, 50'000))[2], "     5,00");
  EXPECT_EQ(rowOf(fuelling(1, -70'000))[2], "    -7,00");
  EXPECT_EQ(rowOf(fuelling(1, 1'234'567'800))[2], "123456,78");
  EXPECT_EQ(rowOf(fuelling(1, 12'345'678'900))[2], "1234567,89");
}

TEST(ListDocument, EachFlagHasItsColumnAndOnlyTheStoredMinusOneIsSet) {
  NapiAdat entry;
  entry.Olajcsere = 1;
  entry.Szurocsere = -1;
  entry.Gyertyacsere = 2;
  const auto row = rowOf(entry);
  EXPECT_THAT((std::vector<std::string>{row[3], row[4], row[5]}), ElementsAre(" ", "   csere", " "));
}

TEST(ListDocument, APartHasRoomUpToTheNoteAndANoteUpToTheEndOfThePaper) {
  NapiAdat entry;
  const std::string fifty(50, 'W');
  entry.Alkatresz = core::FixedText<50>(fifty);
  entry.Megjegyzes = core::FixedText<50>(fifty);
  const Logbook logbook = Logbook::of(std::vector{entry});
  const auto texts = textsAt(ListDocument(logbook, allRowsOf(logbook), "").page(1), 30);
  EXPECT_EQ(texts[6], (Text{115, 30, 8, fifty, 74}));
  EXPECT_EQ(texts[7], (Text{190, 30, 8, fifty, 102}));
}

TEST(ListDocument, APartWithoutANoteBesideItHasTheRestOfThePaper) {
  NapiAdat entry;
  entry.Alkatresz = core::FixedText<50>("Fék");
  entry.Megjegyzes = core::FixedText<50>("");
  const Logbook logbook = Logbook::of(std::vector{entry});
  const auto texts = textsAt(ListDocument(logbook, allRowsOf(logbook), "").page(1), 30);
  EXPECT_EQ(texts[6], (Text{115, 30, 8, "Fék", 177}));
}

TEST(ListDocument, AFullLastPageHasItsTotalsUnderTheTable) {
  const Logbook logbook = logbookOf(40);
  const ListDocument document(logbook, allRowsOf(logbook), "");
  ASSERT_EQ(document.pageCount(), 1);
  const Page page = document.page(1);

  std::vector<int> ys{25};
  for (int y = 29; y <= 189; y += 4) ys.push_back(y);
  EXPECT_EQ(horizontalRuleYs(page), ys);
  for (const Rule& rule : verticalRules(page)) {
    EXPECT_EQ(rule.fromYMm, 25);
    EXPECT_EQ(rule.toYMm, 189);
  }
  EXPECT_EQ(wordsAt(page, 186)[1], "4900");
  EXPECT_EQ(totalsOf(logbook, allRowsOf(logbook)),
            (std::vector{Text{50, 190, 8, "Kilométer összesen: -3 900 km.", 230},
                         Text{50, 194, 8, "Tankolás összesen:  400,00 liter", 230}}));
}

TEST(ListDocument, RowFortyOneStartsASecondPageWithTheWholeHead) {
  const Logbook logbook = logbookOf(41);
  const ListDocument document(logbook, allRowsOf(logbook), "Fejléc");
  ASSERT_EQ(document.pageCount(), 2);

  const Page first = document.page(1);
  EXPECT_EQ(wordsAt(first, 30)[1], "1000");
  EXPECT_EQ(first.texts.back().yMm, 186) << "no totals before the last row";
  EXPECT_EQ(first.texts.size(), 1u + 8u + 40u * 8u);

  const Page second = document.page(2);
  EXPECT_EQ(wordsAt(second, 15), wordsAt(first, 15));
  EXPECT_EQ(textsAt(second, 26), textsAt(first, 26));
  EXPECT_EQ(wordsAt(second, 30)[1], "5000");
  EXPECT_THAT(horizontalRuleYs(second), ElementsAre(25, 29, 33));
  EXPECT_EQ(verticalRules(second).size(), 9u);
  EXPECT_EQ(wordsAt(second, 34), std::vector<std::string>{"Kilométer összesen: -4 000 km."});
  EXPECT_EQ(wordsAt(second, 38), std::vector<std::string>{"Tankolás összesen:  410,00 liter"});
}

TEST(ListDocument, RowsKeepTheListsOrderAndRecordNumbers) {
  const Logbook logbook = logbookOf(5);
  const ListDocument document(logbook, {{5, 2}, "1400", "1100"}, "");
  const Page page = document.page(1);
  EXPECT_EQ(wordsAt(page, 30)[1], "1400");
  EXPECT_EQ(wordsAt(page, 34)[1], "1100");
  EXPECT_EQ(wordsAt(page, 42), std::vector<std::string>{"Tankolás összesen:  20,00 liter"});
}

TEST(ListDocument, TheDistanceIsPositiveWhenTheNewestRowIsFirst) {
  const Logbook logbook = logbookOf(2);
  EXPECT_EQ(totalsOf(logbook, {{2, 1}, "235400", "100400"})[0].text, "Kilométer összesen: 135 000 km.");
}

TEST(ListDocument, TheDistanceIsNegativeWhenTheOldestRowIsFirst) {
  const Logbook logbook = logbookOf(2);
  EXPECT_EQ(totalsOf(logbook, {{1, 2}, "1000", "1100"})[0].text, "Kilométer összesen: -100 km.");
}

TEST(ListDocument, TheDistanceOfTheWidestReadingsIsExact) {
  const Logbook logbook = logbookOf(2);
  EXPECT_EQ(totalsOf(logbook, {{2, 1}, "2147483647", "-2147483648"})[0].text,
            "Kilométer összesen: 4294967 295 km.");
}

TEST(ListDocument, TheLitresTotalIsGroupedInThrees) {
  const Logbook logbook = Logbook::of(std::vector{fuelling(1, 12'000'050'000), fuelling(2, 345'678'000)});
  EXPECT_EQ(totalsOf(logbook, allRowsOf(logbook))[1].text, "Tankolás összesen:  1234 572,80 liter");
}

TEST(ListDocument, LitresPastTheirTypeAreRefused) {
  const auto most = std::numeric_limits<std::int64_t>::max();
  const Logbook logbook = Logbook::of(std::vector{fuelling(1, most), fuelling(2, most)});
  EXPECT_THROW(ListDocument(logbook, allRowsOf(logbook), ""), core::Failure);
}

TEST(ListDocument, ARecordThatIsGonePrintsAsZeros) {
  const Logbook logbook = logbookOf(1);
  const auto row = wordsAt(ListDocument(logbook, {{7}, "1000", "1000"}, "").page(1), 30);
  EXPECT_THAT(row, ElementsAre("1899.12.30.", "0", "      ,00", " ", " ", " ", "", std::string(50, ' ')));
}

}  // namespace
}  // namespace tarvik::print
