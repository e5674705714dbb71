#include "core/number_text.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

constexpr std::int64_t kLimit = 1'000'000'000'000'000'000;

void expectPlain(const std::vector<std::pair<std::string_view, Ratio>>& cases) {
  for (const auto& [text, number] : cases) EXPECT_TRUE(plainNumber(text) == number) << text;
}

TEST(PlainNumber, IsTheNumberAtTheBeginningWithASignAndAPoint) {
  expectPlain({{"12", 12},
               {"12a", 12},
               {"12.5 liter", Ratio(25, 2)},
               {"007", 7},
               {"5.", 5},
               {".5", Ratio(1, 2)},
               {"1.2.3", Ratio(6, 5)},
               {"1..3", 1},
               {"-5", -5},
               {"+5", 5},
               {"  - 5", -5},
               {"-.5", Ratio(-1, 2)},
               {"5-3", 5},
               {".-3", 0}});
}

TEST(PlainNumber, TextWithoutANumberIsZero) {
  for (const char* text :
       {"", " ", "abc", "-", "+", ".", "-.", ",5", "Ft 5", "Nem volt tankolás!", "--5", "+-5"})
    EXPECT_TRUE(plainNumber(text).isZero()) << text;
}

TEST(PlainNumber, DecimalCommaEndsIt) {
  expectPlain({{"7,63 Liter/100Km", 7}, {"40,50", 40}});
}

TEST(PlainNumber, SkipsSpacesTabsAndLineFeedsAndEndsAtOtherSigns) {
  expectPlain({{"1 234 567 Ft.", 1'234'567},
               {" \t\n1\t2\n3 . 5 5", Ratio(12'355, 100)},
               {"12\u00A0345,00 Ft.", 12},
               {"\u00A05", 0},
               {"12\r3", 12},
               {"1e5", 1},
               {"0x1F", 0},
               {"&HFF", 0}});
}

TEST(PlainNumber, StopsAtTheLargestMagnitudeAndDropsDecimalsPastThe18th) {
  expectPlain({{"999999999999999999", kLimit - 1},
               {"1000000000000000000", kLimit},
               {"1000000000000000000.5", kLimit},
               {"-99999999999999999999999999999999999999999", -kLimit},
               {"0.0000000000000000019", Ratio(1, kLimit)},
               {"0.00000000000000000099999999999999", 0},
               {"999999999999999999.999999999999999999", Ratio(Int128{kLimit} * kLimit - 1, kLimit)}});
}

void expectNumbers(const std::vector<std::pair<std::string_view, Ratio>>& cases) {
  for (const auto& [text, expected] : cases) {
    const std::optional<Ratio> number = localeNumber(text);
    ASSERT_TRUE(number.has_value()) << text;
    EXPECT_TRUE(*number == expected) << text;
  }
}

TEST(LocaleNumber, HasASignAndADecimalComma) {
  expectNumbers({{"12", 12},
                 {"40,5", Ratio(81, 2)},
                 {"0", 0},
                 {"007,50", Ratio(15, 2)},
                 {"40,", 40},
                 {",5", Ratio(1, 2)},
                 {"-,5", Ratio(-1, 2)},
                 {"-40,5", Ratio(-81, 2)},
                 {"+40", 40}});
}

TEST(LocaleNumber, MayHaveSpacesAroundItAndGroupingItsWholeDigits) {
  expectNumbers({{"  12 ", 12},
                 {"\u00A012,5\u00A0 ", Ratio(25, 2)},
                 {"40, ", 40},
                 {" -1 000 ", -1000},
                 {"1 234 567", 1'234'567},
                 {"1\u00A0234,5", Ratio(2469, 2)},
                 {"12 3", 123},
                 {"1  2", 12}});
}

TEST(LocaleNumber, SpacesElsewhereAreNotAllowed) {
  for (const char* text : {"- 5", "5 ,5", "5, 5", "5,5 5", "5,5\u00A05", "-\u00A05", "5\u00A0,5", ", 5"})
    EXPECT_FALSE(localeNumber(text).has_value()) << text;
}

TEST(LocaleNumber, OtherTextsAreNoNumbers) {
  for (const char* text : {"",     " ",    "\u00A0", "-",     "+",    ",",        "-,",   "1.5",  "1e5",
                           "12a",  "a12",  "--1",    "+-1",   "1-",   "1,2,3",    "1,,2", "0x1F", "12 Ft",
                           "\t12", "12\n", "1\t2",   "1\xC2", "\xA0", "1\u00A12", "nan",  "inf",  "½"})
    EXPECT_FALSE(localeNumber(text).has_value()) << text;
  EXPECT_FALSE(localeNumber(std::string_view("12\0", 3)).has_value());
}

TEST(LocaleNumber, StopsAtTheLargestMagnitude) {
  expectNumbers({{"1000000000000000000,5", kLimit},
                 {"-99999999999999999999999999999", -kLimit},
                 {"0,0000000000000000019", Ratio(1, kLimit)}});
}

TEST(RequiredNumber, GivesTheNumber) {
  EXPECT_TRUE(requiredNumber("40,5", "txTankoltLiter") == Ratio(81, 2));
}

TEST(RequiredNumber, NamesTheFieldThatHoldsNone) {
  test::expectFieldFailure(FailureKind::NotANumber, "txKmOra", [] { requiredNumber("12a", "txKmOra"); });
}

}  // namespace
}  // namespace tarvik::core
