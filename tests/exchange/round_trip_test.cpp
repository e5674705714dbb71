#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/listing.h"
#include "core/text.h"
#include "exchange/own_format.h"
#include "tests/exchange/reading.h"
#include "tests/support/bytes.h"
#include "tests/support/memory_file_system.h"

// What goes out comes in again unchanged, record for record.

namespace tarvik::test {
namespace {

using core::NapiAdat;

// Every byte that is a character of the code page; the zero byte is padding and no text holds it.
std::string allCharacters() {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    if (core::toCodePage(core::fromCodePage(one)) == one) bytes += one;
  }
  return bytes;
}

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  std::int64_t number(std::int64_t least, std::int64_t most) {
    return std::uniform_int_distribution<std::int64_t>(least, most)(random_);
  }
  std::int32_t whole32() { return static_cast<std::int32_t>(number(INT32_MIN, INT32_MAX)); }
  core::Amount amount() { return {number(INT64_MIN, INT64_MAX)}; }
  std::int16_t flag() { return core::toFlag(number(0, 1) == 1); }

  core::FixedText<50> text() {
    static const std::string kCharacters = allCharacters();
    static const std::string kAwkward = "=+-@'\";\t\r\n ,";
    const std::string& from = number(0, 2) == 0 ? kAwkward : kCharacters;
    std::string bytes;
    for (auto length = number(0, 50); length > 0; --length)
      bytes += from[static_cast<std::size_t>(number(0, static_cast<std::int64_t>(from.size()) - 1))];
    return core::FixedText<50>(core::fromCodePage(bytes));
  }

  NapiAdat entry(std::int32_t day) {
    NapiAdat entry;
    entry.KmOra = whole32();
    entry.Datum = day;
    entry.Teletank = flag();
    entry.TankoltLiter = amount();
    entry.TankoltKtg = whole32();
    entry.AlkatreszKtg = whole32();
    entry.FtPerLiter = amount();
    entry.Olajcsere = flag();
    entry.Szurocsere = flag();
    entry.Gyertyacsere = flag();
    entry.Alkatresz = text();
    entry.MegjKtg = whole32();
    entry.Megjegyzes = text();
    entry.Fogyasztas = amount();
    return entry;
  }

  std::vector<NapiAdat> logbook(bool isInOrder) {
    std::vector<NapiAdat> entries;
    std::int64_t day = core::kFirstDay.number;
    for (auto count = number(1, 60); count > 0; --count) {
      day = isInOrder ? number(day, core::kLastDay.number)
                      : number(core::kFirstDay.number, core::kLastDay.number);
      entries.push_back(entry(static_cast<std::int32_t>(day)));
    }
    return entries;
  }

 private:
  std::mt19937 random_;
};

std::string fileOf(const std::vector<NapiAdat>& entries) {
  core::Listing listing{core::Logbook::of(entries), {}};
  listing.numbers = core::listedEntries(listing.logbook, {});
  return exchange::csvOf(listing);
}

std::string textOf(std::string_view file) {
  EXPECT_TRUE(file.starts_with("\xEF\xBB\xBF"));
  return std::string(file.substr(3));
}

TEST(ALogbook, ComesBackRecordForRecordWhateverItHolds) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    Generator generator(seed);
    const std::vector<NapiAdat> entries = generator.logbook(false);
    const ReadLog file = readLog(textOf(fileOf(entries)));
    ASSERT_TRUE(file.reading.isOwn) << seed;
    ASSERT_TRUE(leftOut(file).empty()) << seed << ": line " << leftOut(file)[0].first;
    ASSERT_EQ(file.rows.rows.size(), entries.size()) << seed;
    for (std::size_t i = 0; i < entries.size(); ++i) ASSERT_EQ(*file.rows.rows[i].own, entries[i]) << seed;
  }
}

TEST(ALogbook, InTheOrderOfItsDaysComesBackByteForByteIntoAnEmptyOne) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    Generator generator(seed);
    const std::vector<NapiAdat> entries = generator.logbook(true);
    MemoryFileSystem disk;
    disk.putFolder("/program");
    const exchange::ImportPlan plan = planOf(readLog(textOf(fileOf(entries))));
    exchange::importEntries(disk, "/program/napiadat.dat", {}, plan.whole);
    ASSERT_EQ(disk.contents("/program/napiadat.dat"), test::textOf(core::Logbook::of(entries).bytes()))
        << seed;
  }
}

TEST(ALogbook, IsWrittenAsASpreadsheetOpensIt) {
  NapiAdat entry;
  entry.KmOra = 12'345;
  entry.Datum = core::toStored(core::dayOf({2013, 7, 5}));
  entry.Teletank = core::kFlagSet;
  entry.TankoltLiter = {405'000};
  entry.TankoltKtg = 16'000;
  entry.FtPerLiter = {3'950'600};
  entry.Olajcsere = core::kFlagSet;
  entry.Alkatresz = core::FixedText<50>("szűrő; \"jó\"");
  entry.AlkatreszKtg = 1'200;
  entry.Megjegyzes = core::FixedText<50>("=1+1");
  entry.MegjKtg = -5;
  entry.Fogyasztas = {76'300};
  EXPECT_EQ(
      fileOf({entry}),
      "\xEF\xBB\xBF"
      "Dátum;Km óra állás;Liter;Tankolt költség (Ft);Üzemanyag ár (Ft/liter);Tele tankolva;Olajcsere;"
      "Szűrőbetét csere;Gyertya csere;Alkatrész megnevezése;Alkatrész költség (Ft);Megjegyzés;"
      "Megjegyzés költsége (Ft);Fogyasztás (liter/100 km)\r\n"
      "2013-07-05;12345;40,5;16000;395,06;igen;igen;nem;nem;\"szűrő; \"\"jó\"\"\";1200;'=1+1;-5;7,63\r\n");
}

TEST(ALogbook, WithADamagedDayOrFlagGoesOutAsFarAsItCan) {
  NapiAdat damaged;
  damaged.Datum = 1e300;
  NapiAdat odd;
  odd.Datum = 41'000;
  odd.Teletank = 7;
  const ReadLog file = readLog(textOf(fileOf({damaged, odd})));
  ASSERT_EQ(file.rows.rows.size(), 1U);
  EXPECT_EQ(file.rows.rows[0].own->Teletank, 7);
  EXPECT_EQ(leftOut(file), (std::vector{std::pair(2, exchange::UnreadRow::Why::NoDay)}));
}

TEST(ALogbook, ThatWasChangedTellsWhichCellsItCannotRead) {
  NapiAdat entry;
  entry.KmOra = 12'345;
  entry.Datum = core::toStored(core::dayOf({2013, 7, 5}));
  entry.Alkatresz = core::FixedText<50>("=part");
  entry.Megjegyzes = core::FixedText<50>("-note");
  const std::string written = textOf(fileOf({entry}));
  const auto readWith = [&](const std::string& stood, const std::string& put) {
    std::string text = written;
    return readLog(text.replace(text.find(stood), stood.size(), put));
  };
  const ReadLog whole = readLog(written);
  ASSERT_EQ(whole.rows.rows.size(), 1U);
  EXPECT_EQ(whole.rows.rows[0].line, 2);
  EXPECT_EQ(whole.rows.rows[0].day, core::dayOf({2013, 7, 5}));
  EXPECT_EQ(whole.rows.rows[0].part, "=part");
  EXPECT_EQ(whole.rows.rows[0].note, "-note");
  EXPECT_EQ(whole.reading.currency, "HUF");
  EXPECT_TRUE(whole.reading.saysWhichAreFull);
  const exchange::UnreadRow day = readWith("2013-07-05", "2013-13-05").rows.unread.at(1);
  EXPECT_EQ(day.why, exchange::UnreadRow::Why::DayNotUnderstood);
  EXPECT_EQ(day.head, "Dátum");
  EXPECT_EQ(day.cell, "2013-13-05");
  EXPECT_EQ(readWith("2013-07-05", "").rows.unread.at(1).why, exchange::UnreadRow::Why::NoDay);
  const exchange::UnreadRow reading = readWith("12345", "sok").rows.unread.at(1);
  EXPECT_EQ(reading.why, exchange::UnreadRow::Why::FigureNotUnderstood);
  EXPECT_EQ(reading.head, "Km óra állás");
  EXPECT_EQ(reading.cell, "sok");
  EXPECT_EQ(readWith("nem", "talán").rows.unread.at(1).head, "Tele tankolva");
  EXPECT_EQ(readWith("12345;0;0;0;nem", "12345;x;0;0;talán").rows.unread.at(1).head, "Liter");
}

// The marks as spreadsheets turn them round.
TEST(ALogbook, HasItsMarksAsASpreadsheetLeavesThem) {
  NapiAdat entry;
  entry.Datum = 41'000;
  std::string text = textOf(fileOf({entry}));
  const auto markOf = [&](const std::string& word) {
    std::string changed = text;
    changed.replace(changed.find("nem"), 3, word);
    return readLog(changed).rows.rows.at(0).own->Teletank;
  };
  for (const char* word : {"igen", "Igen ", "IGAZ", "TRUE", "-1"})
    EXPECT_EQ(markOf(word), core::kFlagSet) << word;
  for (const char* word : {"nem", "NEM", "HAMIS", "false", "", "0"}) EXPECT_EQ(markOf(word), 0) << word;
}

TEST(ADay, IsWrittenWithFourTwoAndTwoDigits) {
  const auto written = [](core::CalendarDate date) {
    return exchange::isoDay(core::toStored(core::dayOf(date)));
  };
  EXPECT_EQ(written({2013, 7, 5}), "2013-07-05");
  EXPECT_EQ(written({2013, 10, 10}), "2013-10-10");
  EXPECT_EQ(written({2013, 9, 9}), "2013-09-09");
  EXPECT_EQ(written({987, 12, 31}), "0987-12-31");
  EXPECT_EQ(exchange::isoDay(1e300), "");
}

TEST(ACell, StandsInQuotesOnlyWhereItNeedsThem) {
  const auto written = [](const std::string& cell) {
    return exchange::tabbedOf({.heads = {}, .rows = {{cell}}});
  };
  for (const std::string cell : {"x", "a b", "a;b", "a,b", ""}) EXPECT_EQ(written(cell), cell + "\n");
  for (const std::string cell : {" a", "a ", "a\tb", "a\rb", "a\nb"})
    EXPECT_EQ(written(cell), "\"" + cell + "\"\n");
  EXPECT_EQ(written("a\"b"), "\"a\"\"b\"\n");
}

TEST(AFigureBelowZero, IsNoTextThatASpreadsheetWouldCompute) {
  EXPECT_EQ(exchange::tabbedOf({.heads = {}, .rows = {{"-5", "-5,5", "-x", "+5", "-5+x", "5"}}}),
            "-5\t-5,5\t'-x\t'+5\t'-5+x\t5\n");
}

TEST(ATextThatASpreadsheetWouldCompute, IsMadeHarmlessAndRestored) {
  for (const std::string text : {"=A1", "+36", "-5", "@x", " =A1", "'=A1"})
    EXPECT_EQ(exchange::harmless(text), "'" + text);
  for (const std::string text : {"a=b", "x=1", "'x", "'90-es évek", ""})
    EXPECT_EQ(exchange::harmless(text), text);
  for (const std::string text : {"x=1", "'a=b"}) EXPECT_EQ(exchange::restored(text), text);
  for (const std::string text : {"=A1", "'=A1", "''=A1", " =A1", "' =A1", "'x", "'", "\t=", "\n", "x"})
    EXPECT_EQ(exchange::restored(exchange::harmless(text)), text);
}

TEST(ATable, OfTextsIsWrittenWithSemicolonsAndForTheClipboardWithTabs) {
  const exchange::TextTable table{.heads = {"Rendszám", "Megnevezés"},
                                  .rows = {{"ABC123", "fék; tárcsa"}, {"XYZ789", "két\nsor"}, {"-7", "=2"}}};
  EXPECT_EQ(exchange::csvOf(table),
            "\xEF\xBB\xBFRendszám;Megnevezés\r\nABC123;\"fék; tárcsa\"\r\nXYZ789;\"két\nsor\"\r\n-7;'=2\r\n");
  EXPECT_EQ(exchange::tabbedOf(table),
            "Rendszám\tMegnevezés\nABC123\tfék; tárcsa\nXYZ789\t\"két\nsor\"\n-7\t'=2\n");
  EXPECT_EQ(exchange::tabbedOf({.heads = {}, .rows = {{"a", "b"}}}), "a\tb\n");
}

}  // namespace
}  // namespace tarvik::test
