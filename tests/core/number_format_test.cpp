#include "core/number_format.h"

#include <gtest/gtest.h>

#include "core/failure.h"

namespace tarvik::core {
namespace {

constexpr const char* kForints = R"(### ### ###\ \F\t\.)";
constexpr const char* kLitres = R"(### ###.##\ \L\i\t\e\r)";
constexpr const char* kGroupedForints = R"(###,###.00\ \F\t\.)";

TEST(TwoDecimals, AreAlwaysShownAndDigitsBeyondThePlaceholdersToo) {
  EXPECT_EQ(formatted(Ratio(0), "##.00"), ",00");
  EXPECT_EQ(formatted(Ratio(5), "##.00"), "5,00");
  EXPECT_EQ(formatted(Ratio(7625, 1000), "##.00"), "7,63");
  EXPECT_EQ(formatted(Ratio(-7), "##.00"), "-7,00");
  EXPECT_EQ(formatted(Ratio(1, 20), "##.00"), ",05");
  EXPECT_EQ(formatted(Ratio(12345), "##.00"), "12345,00");
  EXPECT_EQ(formatted(Ratio(4205, 10), "###.00"), "420,50");
}

TEST(Rounding, HalvesAreDecidedOnTheTrueValueAndCarried) {
  // The nearest binary numbers of these lie below the half.
  EXPECT_EQ(formatted(Ratio(17505, 1000), "##.00"), "17,51");
  EXPECT_EQ(formatted(Ratio(1005, 1000), "##.00"), "1,01");
  EXPECT_EQ(formatted(Ratio(-17505, 1000), "##.00"), "-17,51");
  EXPECT_EQ(formatted(Ratio(9995, 1000), "##.00"), "10,00");
  EXPECT_EQ(formatted(Ratio(9994, 1000), "##.00"), "9,99");
  EXPECT_EQ(formatted(Ratio(1999, 2), "### ###"), "1 000");
}

TEST(Minus, StandsAtTheVeryFrontAndNotBeforeAZero) {
  EXPECT_EQ(formatted(Ratio(-1234567), kForints), "-1 234 567 Ft.");
  EXPECT_EQ(formatted(Ratio(-5), "###,00"), "-05");
  EXPECT_EQ(formatted(Ratio(-1, 2), "##.00"), "-,50");
  EXPECT_EQ(formatted(Ratio(-5), R"(\K##0)"), "-K5");
  EXPECT_EQ(formatted(Ratio(-4, 1000), "##.00"), ",00");
  EXPECT_EQ(formatted(Ratio(-49, 100), "### ### ##0"), "0");
  EXPECT_EQ(formatted(Ratio(-5, 1000), "##.00"), "-,01");
}

TEST(RequiredDigit, IsShownForZero) {
  EXPECT_EQ(formatted(Ratio(0), "### ### ##0"), "0");
  EXPECT_EQ(formatted(Ratio(0), "##0.00"), "0,00");
  EXPECT_EQ(formatted(Ratio(5, 4), "##0.00"), "1,25");
  EXPECT_EQ(formatted(Ratio(5), "0##"), "005");
}

TEST(SpacedGroups, FillFromTheRightAndDigitsBeyondThemGoBeforeTheFirst) {
  EXPECT_EQ(formatted(Ratio(1234567), "### ### ##0"), "1 234 567");
  EXPECT_EQ(formatted(Ratio(12), "### ### ##0"), "12");
  EXPECT_EQ(formatted(Ratio(1234), "### ### ###"), "1 234");
  EXPECT_EQ(formatted(Ratio(1000000), "### ### ###"), "1 000 000");
  EXPECT_EQ(formatted(Ratio(123456), "### ###"), "123 456");
  EXPECT_EQ(formatted(Ratio(0), "### ### ###"), "");
  EXPECT_EQ(formatted(Ratio(2, 5), "### ###"), "");
  EXPECT_EQ(formatted(Ratio(1234567890), "### ### ##0"), "1234 567 890");
  EXPECT_EQ(formatted(Ratio(1234567), "### ###"), "1234 567");
  EXPECT_EQ(formatted(Ratio(1234567), "### ###.00"), "1234 567,00");
  EXPECT_EQ(formatted(Ratio(14455, 10), "### ###.00"), "1 445,50");
  EXPECT_EQ(formatted(Ratio(0), "### ###.00"), ",00");
}

TEST(Pattern, ShowsQuotedCharactersAlwaysAndOthersAsTheyStand) {
  EXPECT_EQ(formatted(Ratio(1234567), kForints), "1 234 567 Ft.");
  EXPECT_EQ(formatted(Ratio(0), kForints), " Ft.");
  EXPECT_EQ(formatted(Ratio(400), R"(### ### ###\ \K\m\.)"), "400 Km.");
  EXPECT_EQ(formatted(Ratio(7625, 1000), R"(### ###.##\ \L\i\t\e\r\/\1\0\0\K\m)"), "7,63 Liter/100Km");
  EXPECT_EQ(formatted(Ratio(294, 10), R"(### ###.##\ \F\t\/\K\m)"), "29,4 Ft/Km");
  EXPECT_EQ(formatted(Ratio(12345), "###,###.00\\ \\F\\t\\"), "12\u00A0345,00 Ft");
  EXPECT_EQ(formatted(Ratio(5), "### km"), "5 km");
  EXPECT_EQ(formatted(Ratio(0), "### km"), "km");
  EXPECT_EQ(formatted(Ratio(0), "#.# km"), ", km");
  EXPECT_EQ(formatted(Ratio(1225, 100), ".00"), "12,25");
  EXPECT_EQ(formatted(Ratio(12), ""), "");
  EXPECT_EQ(formatted(Ratio(12), "km"), "km");
  EXPECT_EQ(formatted(Ratio(3), "##0 év"), "3 év");
  EXPECT_EQ(formatted(Ratio(3), R"(##0\ \év)"), "3 év");
}

TEST(OptionalDecimals, DropZerosAndKeepTheCommaAndRequiredOnes) {
  EXPECT_EQ(formatted(Ratio(705, 10), kLitres), "70,5 Liter");
  EXPECT_EQ(formatted(Ratio(70), kLitres), "70, Liter");
  EXPECT_EQ(formatted(Ratio(7055, 100), kLitres), "70,55 Liter");
  EXPECT_EQ(formatted(Ratio(7005, 100), kLitres), "70,05 Liter");
  EXPECT_EQ(formatted(Ratio(1234567, 1000), kLitres), "1 234,57 Liter");
  EXPECT_EQ(formatted(Ratio(0), kLitres), ", Liter");
  EXPECT_EQ(formatted(Ratio(5), "0.0##"), "5,0");
  EXPECT_EQ(formatted(Ratio(5125, 1000), "0.0##"), "5,125");
  EXPECT_EQ(formatted(Ratio(5), "0.#0"), "5,00");
}

TEST(CommaGroups, AreSeparatedByANoBreakSpaceAndCountRequiredDigits) {
  EXPECT_EQ(formatted(Ratio(12345), kGroupedForints), "12\u00A0345,00 Ft.");
  EXPECT_EQ(formatted(Ratio(999), kGroupedForints), "999,00 Ft.");
  EXPECT_EQ(formatted(Ratio(123456789), kGroupedForints), "123\u00A0456\u00A0789,00 Ft.");
  EXPECT_EQ(formatted(Ratio(-1234567), kGroupedForints), "-1\u00A0234\u00A0567,00 Ft.");
  EXPECT_EQ(formatted(Ratio(763, 100), R"(###,###.00\ \l\i\t\e\r)"), "7,63 liter");
  EXPECT_EQ(formatted(Ratio(0), R"(###,###.00\ \K\m\.)"), ",00 Km.");
  EXPECT_EQ(formatted(Ratio(454, 10), "###,00"), "45");
  EXPECT_EQ(formatted(Ratio(5), "###,00"), "05");
  EXPECT_EQ(formatted(Ratio(0), "###,00"), "00");
  EXPECT_EQ(formatted(Ratio(12345, 10), "###,00"), "1\u00A0235");
  EXPECT_EQ(formatted(Ratio(12344, 10), "###,00"), "1\u00A0234");
  EXPECT_EQ(formatted(Ratio(1234567), "###,00"), "1\u00A0234\u00A0567");
  EXPECT_EQ(formatted(Ratio(5), "0,000"), "0\u00A0005");
}

TEST(LargeValues, PastSixtyFourBitsAreWhole) {
  const Ratio value = Ratio(1'000'000'000'000'000'000) * Ratio(1'234'567);
  EXPECT_EQ(formatted(value, "##.00"), "1234567000000000000000000,00");
  EXPECT_EQ(formatted(Ratio(0) - value, "0,000"),
            "-1\u00A0234\u00A0567\u00A0000\u00A0000\u00A0000\u00A0000\u00A0000\u00A0000");
  const Int128 power126 = Int128{1} << 126;
  EXPECT_EQ(formatted(Ratio(-power126 - power126, 1), "0"), "-170141183460469231731687303715884105728");
}

TEST(LargeValues, WhatCannotBeScaledFails) {
  EXPECT_THROW(formatted(Ratio(Int128{1} << 126, 1), "0.00"), Failure);
  EXPECT_THROW(formatted(Ratio(1), "0.0000000000"), Failure);
}

}  // namespace
}  // namespace tarvik::core
