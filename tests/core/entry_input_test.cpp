#include "core/entry_input.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

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

TEST(EntryDefaults, BlankCostsLitresAndPriceBecomeZero) {
  EntryInput blank;
  blank.tankoltKtg = "   ";
  blank.megjKtg = " ";
  const EntryInput input = withDefaults(blank);
  EXPECT_EQ(input.tankoltLiter, "0");
  EXPECT_EQ(input.tankoltKtg, "0");
  EXPECT_EQ(input.ftPerLiter, "0");
  EXPECT_EQ(input.alkatreszKtg, "0");
  EXPECT_EQ(input.megjKtg, "0");
}

TEST(EntryDefaults, BlankOdometerAndTextsStay) {
  EntryInput blank;
  blank.alkatresz = " ";
  const EntryInput input = withDefaults(blank);
  EXPECT_EQ(input.kmOra, "");
  EXPECT_EQ(input.alkatresz, " ");
  EXPECT_EQ(input.megjegyzes, "");
}

TEST(EntryDefaults, FilledFieldsStay) {
  const EntryInput input = withDefaults(filledInput());
  EXPECT_EQ(input.tankoltLiter, "40,5");
  EXPECT_EQ(input.tankoltKtg, "16200");
  EXPECT_EQ(input.ftPerLiter, "400,00");
  EXPECT_EQ(input.alkatreszKtg, "2500");
  EXPECT_EQ(input.megjKtg, "100");
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

TEST(EntryFromInput, FigureThatDoesNotFitIsToldByItsField) {
  const auto failing = [](std::string EntryInput::*member, const char* field) {
    EntryInput input = filledInput();
    input.*member = "1000000000000000000";
    expectFieldFailure(FailureKind::OutOfRange, field, [&] { toEntry(input); });
  };
  failing(&EntryInput::tankoltLiter, "txTankoltLiter");
  failing(&EntryInput::tankoltKtg, "txTankoltKtg");
  failing(&EntryInput::ftPerLiter, "lbFtperLiter");
  failing(&EntryInput::alkatreszKtg, "txAlkatreszKtg");
  failing(&EntryInput::megjKtg, "txMegjKtg");
}

TEST(EntryFromInput, TextThatIsNoNumberIsToldByItsField) {
  const auto failing = [](std::string EntryInput::*member, const char* field) {
    for (const char* text : {"x", "12a", "1.5", "-", "", "1,2,3"}) {
      EntryInput input = filledInput();
      input.*member = text;
      expectFieldFailure(FailureKind::NotANumber, field, [&] { toEntry(input); });
    }
  };
  failing(&EntryInput::kmOra, "txKmOra");
  failing(&EntryInput::tankoltLiter, "txTankoltLiter");
  failing(&EntryInput::tankoltKtg, "txTankoltKtg");
  failing(&EntryInput::ftPerLiter, "lbFtperLiter");
  failing(&EntryInput::alkatreszKtg, "txAlkatreszKtg");
  failing(&EntryInput::megjKtg, "txMegjKtg");
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

TEST(StoredConsumption, IsTheShownFigure) {
  EXPECT_EQ(storedConsumption("7,00").tenThousandths, 70'000);
  EXPECT_EQ(storedConsumption("12,34").tenThousandths, 123'400);
  EXPECT_EQ(storedConsumption("-7,50").tenThousandths, -75'000);
  EXPECT_EQ(storedConsumption("1234,56").tenThousandths, 12'345'600);
}

TEST(StoredConsumption, IsZeroForATextWithoutAFigure) {
  for (const char* text : {"", "Nem volt teletankolva!", "Nem volt tankolás!", ",00", "0,00"})
    EXPECT_EQ(storedConsumption(text), Amount{}) << text;
}

TEST(StoredConsumption, IsZeroBelowOneBecauseTheCommaEndsThePlainNumber) {
  EXPECT_EQ(storedConsumption(",50"), Amount{});
  EXPECT_EQ(storedConsumption("0,99"), Amount{});
  EXPECT_EQ(storedConsumption("-,75"), Amount{});
  EXPECT_EQ(storedConsumption("1,00").tenThousandths, 10'000);
}

// The price while typing.

TEST(PricePerLitre, IsCostByLitres) {
  EXPECT_EQ(pricePerLitre("16200", "40,5"), Text("400,00"));
  EXPECT_EQ(pricePerLitre("1", "3"), Text(",33"));
  EXPECT_EQ(pricePerLitre("2", "3"), Text(",67"));
  EXPECT_EQ(pricePerLitre("1234567", "1"), Text("1234567,00"));
  EXPECT_EQ(pricePerLitre("-16200", "40,5"), Text("-400,00"));
}

TEST(PricePerLitre, TakesACostWithFractionAsAWholeNumber) {
  EXPECT_EQ(pricePerLitre("100,5", "1"), Text("100,00"));
  EXPECT_EQ(pricePerLitre("101,5", "1"), Text("102,00"));
  EXPECT_EQ(pricePerLitre("0,4", "1"), Text(",00"));
}

TEST(PricePerLitre, RoundsHalvesAwayFromZeroOnTheTrueFraction) {
  EXPECT_EQ(pricePerLitre("3501", "200"), Text("17,51"));  // 17.505
  EXPECT_EQ(pricePerLitre("-3501", "200"), Text("-17,51"));
}

TEST(PricePerLitre, StaysWhileAFieldIsEmptyZeroOrNoNumber) {
  EXPECT_EQ(pricePerLitre("", "40"), std::nullopt);
  EXPECT_EQ(pricePerLitre("16200", ""), std::nullopt);
  EXPECT_EQ(pricePerLitre("0", "40"), std::nullopt);
  EXPECT_EQ(pricePerLitre("16200", "0,00"), std::nullopt);
  EXPECT_EQ(pricePerLitre("16200", "x"), std::nullopt);
  EXPECT_EQ(pricePerLitre("1.5", "40"), std::nullopt);
}

// What a numeric field keeps; the cursor is behind the first text.

std::string keptOf(std::string typed) {
  const TextAtCursor kept = numericPart({.before = std::move(typed), .behind = ""});
  EXPECT_EQ(kept.behind, "");
  return kept.before;
}

TEST(NumericPart, ALetterIsRemovedAtOnce) {
  EXPECT_EQ(keptOf("12a"), "12");
  EXPECT_EQ(keptOf("a"), "");
  EXPECT_EQ(keptOf("12ő"), "12");
  EXPECT_EQ(keptOf("40.5"), "40");
}

TEST(NumericPart, ANumberStaysAsItWasTyped) {
  for (const char* number : {"", "12", "40,", "40,5", "-3", ",5", "1 234",
                             "1\xC2\xA0"
                             "234"})
    EXPECT_EQ(keptOf(number), number);
}

TEST(NumericPart, AStrayLetterGoesAloneWhereverItStands) {
  EXPECT_EQ(numericPart({"9x", "1234"}), (TextAtCursor{"9", "1234"}));
  EXPECT_EQ(numericPart({"9ő", "1234,5"}), (TextAtCursor{"9", "1234,5"}));
  EXPECT_EQ(numericPart({"x", "12"}), (TextAtCursor{"", "12"}));
  EXPECT_EQ(numericPart({"12", "x"}), (TextAtCursor{"12", ""}));
}

TEST(NumericPart, ASecondCommaGoesWhereItWasTyped) {
  EXPECT_EQ(numericPart({"1,", "2,5"}), (TextAtCursor{"1", "2,5"}));
  EXPECT_EQ(numericPart({"12,5,", ""}), (TextAtCursor{"12,5", ""}));
  EXPECT_EQ(numericPart({"12-", "5"}), (TextAtCursor{"12", "5"}));
  EXPECT_EQ(numericPart({"", "1,2,3"}), (TextAtCursor{"", "1,2"}));
}

TEST(NumericPart, PastedTextLosesItsLettersAlone) {
  EXPECT_EQ(keptOf("9x1234"), "91234");
  EXPECT_EQ(keptOf("12 abc"), "12 ");
  EXPECT_EQ(keptOf("1a2b3"), "123");
  EXPECT_EQ(keptOf("árvíztűrő"), "");
  EXPECT_EQ(keptOf("1,2,3"), "1,2");
}

TEST(NumericPart, MalformedTextGoesWithoutACrash) {
  EXPECT_EQ(keptOf("12\xC5"), "12");
  EXPECT_EQ(keptOf("\x80\x80\x80"), "");
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

}  // namespace
}  // namespace tarvik::core
