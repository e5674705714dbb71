#include "core/number_text.h"

#include <gtest/gtest.h>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

constexpr std::int64_t kLimit = 1'000'000'000'000'000'000;

TEST(PlainNumber, LeadingNumber) {
  EXPECT_TRUE(plainNumber("12") == Ratio(12));
  EXPECT_TRUE(plainNumber("12a") == Ratio(12));
  EXPECT_TRUE(plainNumber("12.5 liter") == Ratio(25, 2));
  EXPECT_TRUE(plainNumber("007") == Ratio(7));
}

TEST(PlainNumber, TextWithoutANumberIsZero) {
  for (const char* text :
       {"", " ", "abc", "-", "+", ".", "-.", ",5", "Ft 5", "Nem volt tankolás!", "--5", "+-5"})
    EXPECT_TRUE(plainNumber(text).isZero()) << text;
}

TEST(PlainNumber, DecimalCommaEndsIt) {
  EXPECT_TRUE(plainNumber("7,63 Liter/100Km") == Ratio(7));
  EXPECT_TRUE(plainNumber("40,50") == Ratio(40));
}

TEST(PlainNumber, SkipsSpacesTabsAndLineFeeds) {
  EXPECT_TRUE(plainNumber("1 234 567 Ft.") == Ratio(1'234'567));
  EXPECT_TRUE(plainNumber(" \t\n1\t2\n3 . 5 5") == Ratio(12'355, 100));
}

TEST(PlainNumber, OtherBlanksEndIt) {
  EXPECT_TRUE(plainNumber("12\u00A0345,00 Ft.") == Ratio(12));
  EXPECT_TRUE(plainNumber("\u00A05").isZero());
  EXPECT_TRUE(plainNumber("12\r3") == Ratio(12));
}

TEST(PlainNumber, Point) {
  EXPECT_TRUE(plainNumber("5.") == Ratio(5));
  EXPECT_TRUE(plainNumber(".5") == Ratio(1, 2));
  EXPECT_TRUE(plainNumber("1.2.3") == Ratio(6, 5));
  EXPECT_TRUE(plainNumber("1..3") == Ratio(1));
}

TEST(PlainNumber, Sign) {
  EXPECT_TRUE(plainNumber("-5") == Ratio(-5));
  EXPECT_TRUE(plainNumber("+5") == Ratio(5));
  EXPECT_TRUE(plainNumber("  - 5") == Ratio(-5));
  EXPECT_TRUE(plainNumber("-.5") == Ratio(-1, 2));
  EXPECT_TRUE(plainNumber("5-3") == Ratio(5));
  EXPECT_TRUE(plainNumber(".-3").isZero());
}

TEST(PlainNumber, NoExponentAndNoOtherBase) {
  EXPECT_TRUE(plainNumber("1e5") == Ratio(1));
  EXPECT_TRUE(plainNumber("0x1F").isZero());
  EXPECT_TRUE(plainNumber("&HFF").isZero());
}

TEST(PlainNumber, StopsAtTheLargestMagnitude) {
  EXPECT_TRUE(plainNumber("999999999999999999") == Ratio(kLimit - 1));
  EXPECT_TRUE(plainNumber("1000000000000000000") == Ratio(kLimit));
  EXPECT_TRUE(plainNumber("1000000000000000000.5") == Ratio(kLimit));
  EXPECT_TRUE(plainNumber("-99999999999999999999999999999999999999999") == Ratio(-kLimit));
}

TEST(PlainNumber, DropsDecimalsPastThe18th) {
  EXPECT_TRUE(plainNumber("0.0000000000000000019") == Ratio(1, kLimit));
  EXPECT_TRUE(plainNumber("0.00000000000000000099999999999999").isZero());
  EXPECT_TRUE(plainNumber("999999999999999999.999999999999999999") ==
              Ratio(Int128{kLimit} * kLimit - 1, kLimit));
}

void expectNumber(std::string_view text, const Ratio& expected) {
  const std::optional<Ratio> number = localeNumber(text);
  ASSERT_TRUE(number.has_value()) << text;
  EXPECT_TRUE(*number == expected) << text;
}

TEST(LocaleNumber, DecimalComma) {
  expectNumber("12", Ratio(12));
  expectNumber("40,5", Ratio(81, 2));
  expectNumber("0", Ratio(0));
  expectNumber("007,50", Ratio(15, 2));
}

TEST(LocaleNumber, CommaAtEitherEnd) {
  expectNumber("40,", Ratio(40));
  expectNumber(",5", Ratio(1, 2));
  expectNumber("-,5", Ratio(-1, 2));
}

TEST(LocaleNumber, Sign) {
  expectNumber("-40,5", Ratio(-81, 2));
  expectNumber("+40", Ratio(40));
  expectNumber(" -1 000 ", Ratio(-1000));
}

TEST(LocaleNumber, SpacesAround) {
  expectNumber("  12 ", Ratio(12));
  expectNumber("\u00A012,5\u00A0 ", Ratio(25, 2));
  expectNumber("40, ", Ratio(40));
}

TEST(LocaleNumber, SpacesGroupTheWholeDigits) {
  expectNumber("1 234 567", Ratio(1'234'567));
  expectNumber("1\u00A0234,5", Ratio(2469, 2));
  expectNumber("12 3", Ratio(123));
  expectNumber("1  2", Ratio(12));
}

TEST(LocaleNumber, SpacesElsewhereAreNotAllowed) {
  for (const char* text : {"- 5", "5 ,5", "5, 5", "5,5 5", "5,5\u00A05", "-\u00A05", "5\u00A0,5", ", 5"})
    EXPECT_FALSE(localeNumber(text).has_value()) << text;
}

TEST(LocaleNumber, OtherTextsAreNoNumbers) {
  for (const char* text : {"",
                           " ",
                           "\u00A0",
                           "-",
                           "+",
                           ",",
                           "-,",
                           "1.5",
                           "1e5",
                           "12a",
                           "a12",
                           "--1",
                           "+-1",
                           "1-",
                           "1,2,3",
                           "1,,2",
                           "0x1F",
                           "12 Ft",
                           "\t12",
                           "12\n",
                           "1\t2",
                           "1\xC2",
                           "\xA0",
                           "1\xC2\xA1"
                           "2",
                           "nan",
                           "inf",
                           "½"})
    EXPECT_FALSE(localeNumber(text).has_value()) << text;
}

TEST(LocaleNumber, ZeroByteIsNoDigit) {
  EXPECT_FALSE(localeNumber(std::string_view("12\0", 3)).has_value());
}

TEST(LocaleNumber, StopsAtTheLargestMagnitude) {
  expectNumber("1000000000000000000,5", Ratio(kLimit));
  expectNumber("-99999999999999999999999999999", Ratio(-kLimit));
  expectNumber("0,0000000000000000019", Ratio(1, kLimit));
}

TEST(RequiredNumber, GivesTheNumber) {
  EXPECT_TRUE(requiredNumber("40,5", "txTankoltLiter") == Ratio(81, 2));
}

TEST(RequiredNumber, NamesTheFieldThatHoldsNone) {
  test::expectFieldFailure(FailureKind::NotANumber, "txKmOra", [] { requiredNumber("12a", "txKmOra"); });
}

}  // namespace
}  // namespace tarvik::core
