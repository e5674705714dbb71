#include "core/field_number.h"

#include <gtest/gtest.h>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

TEST(PlainWhole32, RoundsHalvesToEven) {
  EXPECT_EQ(plainWhole32("12.5", "f"), 12);
  EXPECT_EQ(plainWhole32("13.5", "f"), 14);
  EXPECT_EQ(plainWhole32("-12.5", "f"), -12);
}

TEST(PlainWhole32, EndsAtADecimalComma) {
  EXPECT_EQ(plainWhole32("12,9", "f"), 12);
}

TEST(PlainWhole32, ATextWithoutANumberIsZero) {
  EXPECT_EQ(plainWhole32("", "f"), 0);
  EXPECT_EQ(plainWhole32("Ft", "f"), 0);
}

TEST(PlainWhole32, ReachesBothEndsOf32Bits) {
  EXPECT_EQ(plainWhole32("2147483647", "f"), 2'147'483'647);
  EXPECT_EQ(plainWhole32("-2147483648", "f"), -2'147'483'647 - 1);
}

TEST(PlainWhole32, PastThemNamesTheField) {
  test::expectFieldFailure(FailureKind::OutOfRange, "txt", [] { plainWhole32("2147483648", "txt"); });
  test::expectFieldFailure(FailureKind::OutOfRange, "txt", [] { plainWhole32("-2147483649", "txt"); });
}

TEST(RequiredWhole32, TakesADecimalCommaAndRoundsHalvesToEven) {
  EXPECT_EQ(requiredWhole32("40000", "f"), 40'000);
  EXPECT_EQ(requiredWhole32("40 000", "f"), 40'000);
  EXPECT_EQ(requiredWhole32("12,5", "f"), 12);
  EXPECT_EQ(requiredWhole32("13,5", "f"), 14);
}

TEST(RequiredWhole32, ATextThatIsNoNumberNamesTheField) {
  for (const char* text : {"", " ", "40e", "40 km", "40.5", "-"})
    test::expectFieldFailure(FailureKind::NotANumber, "txt", [&] { requiredWhole32(text, "txt"); });
}

TEST(RequiredWhole32, Past32BitsNamesTheField) {
  test::expectFieldFailure(FailureKind::OutOfRange, "txt", [] { requiredWhole32("2147483648", "txt"); });
}

TEST(RequiredAmount, KeepsFourDecimalsRoundedHalvesToEven) {
  EXPECT_EQ(requiredAmount("40,5", "f"), Amount{405'000});
  EXPECT_EQ(requiredAmount("0,00005", "f"), Amount{0});
  EXPECT_EQ(requiredAmount("0,00015", "f"), Amount{2});
}

TEST(RequiredAmount, AFailureNamesTheField) {
  test::expectFieldFailure(FailureKind::NotANumber, "txt", [] { requiredAmount("sok", "txt"); });
  test::expectFieldFailure(FailureKind::OutOfRange, "txt", [] { requiredAmount("922337203685478", "txt"); });
}

}  // namespace
}  // namespace tarvik::core
