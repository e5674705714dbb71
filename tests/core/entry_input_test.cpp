#include "core/entry_input.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFieldFailure;

using Text = std::optional<std::string>;

// A fuelling of 29 February 2024 with every field filled.
EntryInput filledInput() {
  return {.kmOra = "10500",
          .tankoltLiter = "40,5",
          .tankoltKtg = "16200",
          .ftPerLiter = "400,00",
          .alkatresz = "Olajszűrő",
          .alkatreszKtg = "2500",
          .megjegyzes = "Tankolás",
          .megjKtg = "100",
          .datum = dayOf({2024, 2, 29}),
          .teletank = true,
          .olajcsere = true,
          .szurocsere = true,
          .gyertyacsere = true};
}

// The defaults of blank fields.

TEST(EntryDefaults, BlankCostsLitresAndPriceBecomeZeroAndTheRestStays) {
  EntryInput blank;
  blank.tankoltKtg = "   ";
  blank.alkatresz = blank.megjKtg = " ";
  const EntryInput input = withDefaults(blank);
  EXPECT_EQ(input.tankoltLiter, "0");
  EXPECT_EQ(input.tankoltKtg, "0");
  EXPECT_EQ(input.ftPerLiter, "0");
  EXPECT_EQ(input.alkatreszKtg, "0");
  EXPECT_EQ(input.megjKtg, "0");
  EXPECT_EQ(input.kmOra, "");
  EXPECT_EQ(input.alkatresz, " ");
  EXPECT_EQ(input.megjegyzes, "");
  const EntryInput filled = withDefaults(filledInput());
  EXPECT_EQ(filled.tankoltLiter, "40,5");
  EXPECT_EQ(filled.tankoltKtg, "16200");
  EXPECT_EQ(filled.ftPerLiter, "400,00");
  EXPECT_EQ(filled.alkatreszKtg, "2500");
  EXPECT_EQ(filled.megjKtg, "100");
}

// From the fields to the entry.

TEST(EntryFromInput, EveryFieldIsConverted) {
  const NapiAdat expected{.KmOra = 10'500,
                          .Datum = 45'351,
                          .Teletank = -1,
                          .TankoltLiter = {405'000},
                          .TankoltKtg = 16'200,
                          .AlkatreszKtg = 2'500,
                          .FtPerLiter = {4'000'000},
                          .Olajcsere = -1,
                          .Szurocsere = -1,
                          .Gyertyacsere = -1,
                          .Alkatresz = FixedText<50>("Olajszűrő"),
                          .MegjKtg = 100,
                          .Megjegyzes = FixedText<50>("Tankolás")};
  EXPECT_EQ(toEntry(filledInput()), expected);
}

TEST(EntryFromInput, EachBoxHasItsFlagBothWays) {
  const std::pair<bool EntryInput::*, std::int16_t NapiAdat::*> kinds[] = {
      {&EntryInput::teletank, &NapiAdat::Teletank},
      {&EntryInput::olajcsere, &NapiAdat::Olajcsere},
      {&EntryInput::szurocsere, &NapiAdat::Szurocsere},
      {&EntryInput::gyertyacsere, &NapiAdat::Gyertyacsere}};
  for (const auto& [unchecked, clear] : kinds) {
    EntryInput input = filledInput();
    input.*unchecked = false;
    const NapiAdat entry = toEntry(input);
    const EntryInput shown = toInput(entry).input;
    for (const auto& [box, flag] : kinds) {
      EXPECT_EQ(entry.*flag, flag == clear ? kFlagClear : kFlagSet);
      EXPECT_EQ(shown.*box, flag != clear);
    }
  }
}

TEST(EntryFromInput, WholeFieldsRoundHalvesToEven) {
  EntryInput input = filledInput();
  input.kmOra = "10500,5";
  input.tankoltKtg = "16201,5";
  input.alkatreszKtg = "2,51";
  input.megjKtg = "-2,5";
  const NapiAdat entry = toEntry(input);
  EXPECT_EQ(entry.KmOra, 10'500);
  EXPECT_EQ(entry.TankoltKtg, 16'202);
  EXPECT_EQ(entry.AlkatreszKtg, 3);
  EXPECT_EQ(entry.MegjKtg, -2);
}

TEST(EntryFromInput, AmountsKeepFourDecimalsHalvesToEven) {
  EntryInput input = filledInput();
  input.tankoltLiter = "40,12345";
  input.ftPerLiter = "1 234,56775";
  const NapiAdat entry = toEntry(input);
  EXPECT_EQ(entry.TankoltLiter.tenThousandths, 401'234);
  EXPECT_EQ(entry.FtPerLiter.tenThousandths, 12'345'678);
}

TEST(EntryFromInput, OdometerFieldTakesItsWholeRangeAndNoMore) {
  EntryInput input = filledInput();
  input.kmOra = "2147483647";
  EXPECT_EQ(toEntry(input).KmOra, std::numeric_limits<std::int32_t>::max());
  for (const char* tooMuch : {"2147483648", "3000000000", "-3000000000", "99999999999999999999999"}) {
    input.kmOra = tooMuch;
    expectFieldFailure(FailureKind::OutOfRange, "txKmOra", [&] { toEntry(input); });
  }
}

TEST(EntryFromInput, WhatIsNoNumberOrDoesNotFitIsToldByItsField) {
  const std::pair<std::string EntryInput::*, const char*> fields[] = {
      {&EntryInput::kmOra, "txKmOra"},
      {&EntryInput::tankoltLiter, "txTankoltLiter"},
      {&EntryInput::tankoltKtg, "txTankoltKtg"},
      {&EntryInput::ftPerLiter, "lbFtperLiter"},
      {&EntryInput::alkatreszKtg, "txAlkatreszKtg"},
      {&EntryInput::megjKtg, "txMegjKtg"}};
  for (const auto& [member, field] : fields) {
    EntryInput input = filledInput();
    input.*member = "1000000000000000000";
    expectFieldFailure(FailureKind::OutOfRange, field, [&] { toEntry(input); });
    for (const char* text : {"x", "12a", "1.5", "-", "", "1,2,3"}) {
      input.*member = text;
      expectFieldFailure(FailureKind::NotANumber, field, [&] { toEntry(input); });
    }
  }
}

// From the entry to the fields.

TEST(InputFromEntry, EveryFieldIsShownInItsPlainForm) {
  NapiAdat entry = toEntry(filledInput());
  entry.KmOra = 1'234'567;
  entry.TankoltLiter = {405'000};
  entry.FtPerLiter = {4'001'234};
  entry.AlkatreszKtg = -2'500;
  const ShownEntry shown = toInput(entry);
  EXPECT_EQ(shown.input.kmOra, "1234567");
  EXPECT_EQ(shown.input.tankoltLiter, "40,5");
  EXPECT_EQ(shown.input.tankoltKtg, "16200");
  EXPECT_EQ(shown.input.ftPerLiter, "400,1234");
  EXPECT_EQ(shown.input.alkatresz, "Olajszűrő");
  EXPECT_EQ(shown.input.alkatreszKtg, "-2500");
  EXPECT_EQ(shown.input.megjegyzes, "Tankolás");
  EXPECT_EQ(shown.input.megjKtg, "100");
  EXPECT_EQ(shown.datum, dayOf({2024, 2, 29}));
  EXPECT_TRUE(shown.input.teletank && shown.input.olajcsere && shown.input.szurocsere &&
              shown.input.gyertyacsere);
}

TEST(InputFromEntry, AnEntryShownAndTakenAgainIsTheSame) {
  NapiAdat entry = toEntry(filledInput());
  entry.TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
  entry.FtPerLiter = {-1};
  entry.KmOra = std::numeric_limits<std::int32_t>::min();
  entry.MegjKtg = std::numeric_limits<std::int32_t>::max();
  entry.Teletank = entry.Szurocsere = 0;
  const ShownEntry shown = toInput(entry);
  EXPECT_EQ(shown.input.tankoltLiter, "922337203685477,5807");
  EXPECT_EQ(toEntry(shown.input), entry);
}

TEST(InputFromEntry, OnlyTheStoredFormOfSetChecksABox) {
  const ShownEntry shown = toInput({.Teletank = 1, .Olajcsere = 2, .Szurocsere = -2, .Gyertyacsere = 0x7FFF});
  EXPECT_FALSE(shown.input.teletank || shown.input.olajcsere || shown.input.szurocsere ||
               shown.input.gyertyacsere);
}

TEST(InputFromEntry, DamagedDateLeavesTheDateOfTheScreen) {
  EXPECT_EQ(toInput({.Datum = std::numeric_limits<double>::quiet_NaN()}).datum, std::nullopt);
  EXPECT_EQ(toInput({.Datum = 1e300}).datum, std::nullopt);
  EXPECT_EQ(toInput({.Datum = -std::numeric_limits<double>::infinity()}).datum, std::nullopt);
}

TEST(InputFromEntry, TimeOfDayIsDropped) {
  EXPECT_EQ(toInput({.Datum = 45'351.75}).datum, dayOf({2024, 2, 29}));
}

// The consumption that goes with an entry.

TEST(StoredConsumption, IsTheShownFigureAndZeroBelowOneBecauseTheCommaEndsThePlainNumber) {
  const std::vector<std::pair<const char*, std::int64_t>> figures{
      {"7,00", 70'000}, {"12,34", 123'400}, {"-7,50", -75'000}, {"1234,56", 12'345'600}, {"1,00", 10'000}};
  for (const auto& [text, stored] : figures)
    EXPECT_EQ(storedConsumption(text).tenThousandths, stored) << text;
  for (const char* text :
       {"", "Nem volt teletankolva!", "Nem volt tankolás!", ",00", "0,00", ",50", "0,99", "-,75"})
    EXPECT_EQ(storedConsumption(text), Amount{}) << text;
}

// The price while typing.

TEST(PricePerLitre, IsTheCostAsAWholeNumberByLitresHalvesAwayFromZero) {
  struct Price {
    const char* cost;
    const char* litres;
    const char* shown;
  };
  for (const Price& price :
       {Price{"16200", "40,5", "400,00"}, Price{"-16200", "40,5", "-400,00"}, Price{"1", "3", ",33"},
        Price{"2", "3", ",67"}, Price{"1234567", "1", "1234567,00"}, Price{"100,5", "1", "100,00"},
        Price{"101,5", "1", "102,00"}, Price{"0,4", "1", ",00"}, Price{"3501", "200", "17,51"},
        Price{"-3501", "200", "-17,51"}})  // 17.505
    EXPECT_EQ(pricePerLitre(price.cost, price.litres), Text(price.shown)) << price.cost;
}

TEST(PricePerLitre, StaysWhileAFieldIsEmptyZeroOrNoNumber) {
  for (const auto& [cost, litres] : std::vector<std::pair<const char*, const char*>>{
           {"", "40"}, {"16200", ""}, {"0", "40"}, {"16200", "0,00"}, {"16200", "x"}, {"1.5", "40"}})
    EXPECT_EQ(pricePerLitre(cost, litres), std::nullopt) << cost << " " << litres;
}

// What a numeric field keeps; the cursor is behind the first text.

std::string keptOf(std::string typed) {
  const TextAtCursor kept = numericPart({.before = std::move(typed), .behind = ""}, Point::Groups);
  EXPECT_EQ(kept.behind, "");
  return kept.before;
}

TEST(NumericPart, ANumberStaysAsItWasTyped) {
  for (const char* number : {"", "12", "40,", "40,5", "-3", ",5", "1 234", "1\u00A0234"})
    EXPECT_EQ(keptOf(number), number);
}

TEST(NumericPart, LettersAndMalformedBytesGoAlone) {
  const std::vector<std::pair<const char*, const char*>> typedAndKept{
      {"12a", "12"},       {"a", ""},         {"12ő", "12"},        {"40.", "40"},
      {"9x1234", "91234"}, {"12 abc", "12 "}, {"1a2b3", "123"},     {"árvíztűrő", ""},
      {"1,2,3", "1,2"},    {"12\xC5", "12"},  {"\x80\x80\x80", ""}, {"12a\u00A0345", "12\u00A0345"}};
  for (const auto& [typed, kept] : typedAndKept) EXPECT_EQ(keptOf(typed), kept);
}

TEST(NumericPart, AStrayLetterOrASecondCommaGoesWhereItWasTyped) {
  EXPECT_EQ(numericPart({"9x", "1234"}, Point::Groups), (TextAtCursor{"9", "1234"}));
  EXPECT_EQ(numericPart({"9ő", "1234,5"}, Point::Groups), (TextAtCursor{"9", "1234,5"}));
  EXPECT_EQ(numericPart({"x", "12"}, Point::Groups), (TextAtCursor{"", "12"}));
  EXPECT_EQ(numericPart({"12", "x"}, Point::Groups), (TextAtCursor{"12", ""}));
  EXPECT_EQ(numericPart({"1,", "2,5"}, Point::Groups), (TextAtCursor{"1", "2,5"}));
  EXPECT_EQ(numericPart({"12,5,", ""}, Point::Groups), (TextAtCursor{"12,5", ""}));
  EXPECT_EQ(numericPart({"12-", "5"}, Point::Groups), (TextAtCursor{"12", "5"}));
  EXPECT_EQ(numericPart({"", "1,2,3"}, Point::Groups), (TextAtCursor{"", "1,2"}));
}

TEST(NumericPart, APastedPointGroupsOrStandsForTheComma) {
  const auto kept = [](const char* pasted, Point point) { return numericPart({pasted, ""}, point).before; };
  EXPECT_EQ(kept("25.000", Point::Groups), "25000");
  EXPECT_EQ(kept("25.000 Ft", Point::Groups), "25000 ");
  EXPECT_EQ(kept("1.234.567", Point::Groups), "1234567");
  EXPECT_EQ(kept("1.234,5", Point::Groups), "1234,5");
  EXPECT_EQ(kept("40.55", Point::Groups), "40,55");
  EXPECT_EQ(kept("40.5500", Point::Groups), "40,5500");
  EXPECT_EQ(kept("40.550", Point::Comma), "40,550");
  EXPECT_EQ(kept("40.55", Point::Comma), "40,55");
  EXPECT_EQ(kept("1.234.56", Point::Groups), "1");  // no number in either way
  EXPECT_EQ(kept("1.234,5", Point::Comma), "1");
  EXPECT_EQ(kept("40.", Point::Comma), "40");
  EXPECT_EQ(numericPart({"40.", "55"}, Point::Comma), (TextAtCursor{"40", "55"}));
}

// Whether a logbook has what is typed.

TEST(HasEntry, AnEntryThatIsShownAgainIsKnownWhateverItsConsumption) {
  EntryInput typed;
  typed.kmOra = "12600";
  typed.tankoltLiter = "40,5";
  typed.datum = Day{41'460};
  NapiAdat entry = toEntry(withDefaults(typed));
  entry.Fogyasztas = {72'500};
  const Logbook logbook = Logbook::of(std::vector{NapiAdat{}, entry});
  EntryInput shown = toInput(entry).input;
  EXPECT_TRUE(hasEntry(logbook, shown));
  shown.kmOra = "12601";
  EXPECT_FALSE(hasEntry(logbook, shown));
  EXPECT_FALSE(hasEntry({}, shown));
}

TEST(HasEntry, AnEntryWithoutFuelIsKnownThoughItsTankIsTickedFull) {
  EntryInput typed;
  typed.kmOra = "12600";
  typed.megjegyzes = "Mosás";
  typed.datum = Day{41'460};
  const Logbook logbook = Logbook::of(std::vector{toEntry(withDefaults(typed))});
  typed.teletank = true;
  EXPECT_TRUE(hasEntry(logbook, typed));
  typed.tankoltLiter = "0,5";
  typed.teletank = false;
  const Logbook drop = Logbook::of(std::vector{toEntry(withDefaults(typed))});
  typed.teletank = true;
  EXPECT_TRUE(hasEntry(drop, typed));
}

TEST(MayBeMeantFor, AnEntryWhoseDayOrReadingIsTyped) {
  EntryInput typed;
  typed.kmOra = "12600";
  typed.datum = Day{41'460};
  const NapiAdat entry = toEntry(withDefaults(typed));
  typed.tankoltLiter = "40,5";
  EXPECT_TRUE(mayBeMeantFor(entry, typed));
  typed.kmOra = "12601";
  EXPECT_TRUE(mayBeMeantFor(entry, typed));
  typed.datum = Day{41'461};
  EXPECT_FALSE(mayBeMeantFor(entry, typed));
  typed.kmOra = "12600";
  EXPECT_TRUE(mayBeMeantFor(entry, typed));
}

}  // namespace
}  // namespace tarvik::core
