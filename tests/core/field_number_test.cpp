#include "core/field_number.h"

#include <gtest/gtest.h>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

TEST(PlainWhole32, IsRoundedHalvesToEvenAndZeroWithoutANumber) {
  EXPECT_EQ(plainWhole32("12.5", "f"), 12);
  EXPECT_EQ(plainWhole32("13.5", "f"), 14);
  EXPECT_EQ(plainWhole32("-12.5", "f"), -12);
  EXPECT_EQ(plainWhole32("12,9", "f"), 12);  // it ends at the comma
  for (const char* text : {"", "Ft"}) EXPECT_EQ(plainWhole32(text, "f"), 0) << text;
}

TEST(PlainWhole32, ReachesBothEndsOf32BitsAndPastThemNamesTheField) {
  EXPECT_EQ(plainWhole32("2147483647", "f"), 2'147'483'647);
  EXPECT_EQ(plainWhole32("-2147483648", "f"), -2'147'483'647 - 1);
  for (const char* text : {"2147483648", "-2147483649"})
    test::expectFieldFailure(FailureKind::OutOfRange, "txt", [&] { plainWhole32(text, "txt"); });
}

TEST(RequiredWhole32, TakesADecimalCommaAndRoundsHalvesToEven) {
  EXPECT_EQ(requiredWhole32("40000", "f"), 40'000);
  EXPECT_EQ(requiredWhole32("40 000", "f"), 40'000);
  EXPECT_EQ(requiredWhole32("12,5", "f"), 12);
  EXPECT_EQ(requiredWhole32("13,5", "f"), 14);
}

TEST(RequiredWhole32, ATextThatIsNoNumberOrPast32BitsNamesTheField) {
  for (const char* text : {"", " ", "40e", "40 km", "40.5", "-"})
    test::expectFieldFailure(FailureKind::NotANumber, "txt", [&] { requiredWhole32(text, "txt"); });
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
