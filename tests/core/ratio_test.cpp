#include "core/ratio.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFailure;

constexpr Int128 kPower126 = Int128{1} << 126;
constexpr Int128 kLowest = -kPower126 - kPower126;
constexpr Int128 kHighest = -(kLowest + 1);
constexpr std::int64_t kLowest64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighest64 = std::numeric_limits<std::int64_t>::max();

// GoogleTest cannot print 128 bits; the tests compare fractions as truth values.
bool is(const Ratio& value, Int128 numerator, Int128 denominator) {
  return value.numerator() == numerator && value.denominator() == denominator;
}

TEST(Ratio, IsKeptInLowestTermsWithTheSignInTheNumerator) {
  EXPECT_TRUE(is(Ratio(), 0, 1));
  EXPECT_TRUE(Ratio().isZero());
  EXPECT_TRUE(is(Ratio(-42), -42, 1));
  EXPECT_FALSE(Ratio(-42).isZero());
  EXPECT_TRUE(is(Ratio(17505, 1000), 3501, 200));
  EXPECT_TRUE(is(Ratio(0, 7), 0, 1));
  EXPECT_TRUE(is(Ratio(10, 5), 2, 1));
  EXPECT_TRUE(is(Ratio(1, -2), -1, 2));
  EXPECT_TRUE(is(Ratio(-1, -2), 1, 2));
  EXPECT_TRUE(is(Ratio(kPower126, kPower126), 1, 1));
  EXPECT_TRUE(is(Ratio(3 * (Int128{1} << 100), Int128{1} << 101), 3, 2));
  EXPECT_TRUE(is(Ratio(Int128{1} << 100, 6), Int128{1} << 99, 3));
}

TEST(Ratio, LowestNumberIsSafeAsEitherTerm) {
  EXPECT_TRUE(is(Ratio(kLowest, 1), kLowest, 1));
  EXPECT_TRUE(is(Ratio(kLowest, 2), -kPower126, 1));
  EXPECT_TRUE(is(Ratio(kLowest, kLowest), 1, 1));
  EXPECT_TRUE(is(Ratio(2, kLowest), -1, kPower126));
  expectFailure(FailureKind::OutOfRange, [] { Ratio(kLowest, -1); });
  expectFailure(FailureKind::OutOfRange, [] { Ratio(1, kLowest); });
}

TEST(Ratio, ZeroDenominatorFails) {
  expectFailure(FailureKind::DivisionByZero, [] { Ratio(1, 0); });
  expectFailure(FailureKind::DivisionByZero, [] { Ratio(0, 0); });
}

TEST(RatioArithmetic, IsExact) {
  EXPECT_TRUE(is(Ratio(2) + Ratio(3), 5, 1));
  EXPECT_TRUE(is(Ratio(1, 2) + Ratio(1, 2), 1, 1));
  EXPECT_TRUE(is(Ratio(1, 6) + Ratio(1, 10), 4, 15));
  EXPECT_TRUE(is(Ratio(-1, 3) + Ratio(1, 3), 0, 1));
  EXPECT_TRUE(is(Ratio(705, 10) - Ratio(40), 61, 2));
  EXPECT_TRUE(is(Ratio(1, 4) - Ratio(1, 2), -1, 4));
  EXPECT_TRUE(is(Ratio(61, 2) * Ratio(1, 400) * Ratio(100), 61, 8));
  EXPECT_TRUE(is(Ratio(-2, 3) * Ratio(3, 4), -1, 2));
  EXPECT_TRUE(is(Ratio(0) * Ratio(5, 7), 0, 1));
  EXPECT_TRUE(is(Ratio(kPower126, 3) * Ratio(3, kPower126), 1, 1));
  EXPECT_TRUE(is(Ratio(35) / (Ratio(500) / Ratio(100)), 7, 1));
  EXPECT_TRUE(is(Ratio(1, 2) / Ratio(-3, 4), -2, 3));
}

TEST(RatioArithmetic, DivisionByZeroFails) {
  expectFailure(FailureKind::DivisionByZero, [] { Ratio(1) / Ratio(0); });
}

TEST(RatioArithmetic, FailsOutsideTheRangeAndNotAtItsEnd) {
  const Ratio highest(kHighest, 1);
  const Ratio lowest(kLowest, 1);
  expectFailure(FailureKind::OutOfRange, [&] { highest + Ratio(1); });
  expectFailure(FailureKind::OutOfRange, [&] { lowest - Ratio(1); });
  expectFailure(FailureKind::OutOfRange, [&] { Ratio(0) - lowest; });
  expectFailure(FailureKind::OutOfRange, [&] { highest* Ratio(2); });
  expectFailure(FailureKind::OutOfRange, [&] { lowest* Ratio(-1); });
  expectFailure(FailureKind::OutOfRange, [&] { highest / Ratio(1, 2); });
  expectFailure(FailureKind::OutOfRange, [&] { highest + Ratio(1, 3); });
  expectFailure(FailureKind::OutOfRange, [] { Ratio(1, kPower126) + Ratio(1, kPower126 - 1); });
  EXPECT_TRUE(is(Ratio(kLowest, 1) * Ratio(1), kLowest, 1));
  EXPECT_TRUE(is(Ratio(kLowest, 1) + Ratio(0), kLowest, 1));
}

TEST(RatioComparison, OrdersByValue) {
  EXPECT_TRUE(Ratio(1, 3) < Ratio(1, 2));
  EXPECT_TRUE(Ratio(-1, 2) < Ratio(-1, 3));
  EXPECT_TRUE(Ratio(-1, 3) < Ratio(1, 7));
  EXPECT_TRUE(Ratio(7, 2) > Ratio(10, 3));
  EXPECT_TRUE(Ratio(2) > Ratio(1));
  EXPECT_TRUE(Ratio(5, 2) > Ratio(2));
  EXPECT_TRUE(Ratio(4, 2) == Ratio(2));
  EXPECT_TRUE((Ratio(2, 4) <=> Ratio(1, 2)) == std::strong_ordering::equal);
}

TEST(RatioComparison, NeverLeavesTheRange) {
  // Neighbours whose cross products need 250 bits: 1 - 1/n is less than 1 - 1/(n + 1).
  EXPECT_TRUE(Ratio(kPower126 - 1, kPower126) < Ratio(kPower126, kPower126 + 1));
  EXPECT_TRUE(Ratio(-kPower126, kPower126 + 1) < Ratio(1 - kPower126, kPower126));
  EXPECT_TRUE(Ratio(kLowest, 1) < Ratio(kLowest, 3));
  EXPECT_TRUE(Ratio(kHighest, 2) > Ratio(kHighest, 3));
}

TEST(ToWhole, HalvesGoToTheEvenNeighbourAndOthersToTheNearest) {
  EXPECT_EQ(toWhole(Ratio(5, 2)), 2);
  EXPECT_EQ(toWhole(Ratio(7, 2)), 4);
  EXPECT_EQ(toWhole(Ratio(1, 2)), 0);
  EXPECT_EQ(toWhole(Ratio(-1, 2)), 0);
  EXPECT_EQ(toWhole(Ratio(-3, 2)), -2);
  EXPECT_EQ(toWhole(Ratio(-5, 2)), -2);
  EXPECT_EQ(toWhole(Ratio(249, 100)), 2);
  EXPECT_EQ(toWhole(Ratio(251, 100)), 3);
  EXPECT_EQ(toWhole(Ratio(-251, 100)), -3);
  EXPECT_EQ(toWhole(Ratio(10)), 10);
}

TEST(ToWhole, FailsPastItsBits) {
  EXPECT_EQ(toWhole(Ratio(kHighest64)), kHighest64);
  EXPECT_EQ(toWhole(Ratio(kLowest64)), kLowest64);
  EXPECT_EQ(toWhole(Ratio(kLowest64) - Ratio(1, 2)), kLowest64);
  expectFailure(FailureKind::OutOfRange, [] { toWhole(Ratio(kHighest64) + Ratio(1, 2)); });
  expectFailure(FailureKind::OutOfRange, [] { toWhole(Ratio(kLowest64) - Ratio(1)); });
  EXPECT_EQ(toWhole32(Ratio(2'147'483'647)), 2'147'483'647);
  EXPECT_EQ(toWhole32(Ratio(-2'147'483'648)), -2'147'483'647 - 1);
  expectFailure(FailureKind::OutOfRange, [] { toWhole32(Ratio(2'147'483'648)); });
  expectFailure(FailureKind::OutOfRange, [] { toWhole32(Ratio(-2'147'483'649)); });
  EXPECT_EQ(toWhole16(Ratio(32'767)), 32'767);
  EXPECT_EQ(toWhole16(Ratio(-32'768)), -32'768);
  expectFailure(FailureKind::OutOfRange, [] { toWhole16(Ratio(32'768)); });
  expectFailure(FailureKind::OutOfRange, [] { toWhole16(Ratio(-32'769)); });
}

TEST(RoundedAwayFromZero, HalvesLeaveZeroAndOthersGoToTheNearest) {
  EXPECT_TRUE(roundedAwayFromZero(Ratio(17505, 1000), 2) == 1751);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(-17505, 1000), 2) == -1751);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(5, 2), 0) == 3);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(-1, 2), 0) == -1);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(1, 3), 9) == 333'333'333);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(2, 3), 1) == 7);
  EXPECT_TRUE(roundedAwayFromZero(Ratio(-49, 100), 0) == 0);
}

TEST(RoundedAwayFromZero, EachDecimalIsTenTimesTheOneBefore) {
  Int128 tenfold = 1;
  for (int decimals = 0; decimals <= 9; ++decimals, tenfold *= 10)
    EXPECT_TRUE(roundedAwayFromZero(Ratio(1), decimals) == tenfold) << decimals;
}

TEST(RoundedAwayFromZero, RefusesOtherDecimalsAndTooLargeValues) {
  expectFailure(FailureKind::OutOfRange, [] { roundedAwayFromZero(Ratio(1), -1); });
  expectFailure(FailureKind::OutOfRange, [] { roundedAwayFromZero(Ratio(1), 10); });
  expectFailure(FailureKind::OutOfRange, [] { roundedAwayFromZero(Ratio(kHighest, 1), 1); });
}

TEST(WholeQuotient, RoundsTheOperandsThenTruncates) {
  EXPECT_EQ(wholeQuotient(Ratio(7), Ratio(2)), 3);
  EXPECT_EQ(wholeQuotient(Ratio(-7), Ratio(2)), -3);
  // 7.5 counts as 8 and 2.5 as 2.
  EXPECT_EQ(wholeQuotient(Ratio(15, 2), Ratio(5, 2)), 4);
  // 714.28 counts as 714.
  EXPECT_EQ(wholeQuotient(Ratio(5000, 7), Ratio(51)), 14);
}

TEST(WholeQuotient, FailsOfADivisorThatRoundsToZeroAndPast64Bits) {
  expectFailure(FailureKind::DivisionByZero, [] { wholeQuotient(Ratio(1), Ratio(0)); });
  expectFailure(FailureKind::DivisionByZero, [] { wholeQuotient(Ratio(1), Ratio(1, 2)); });
  EXPECT_EQ(wholeQuotient(Ratio(kLowest64), Ratio(1)), kLowest64);
  expectFailure(FailureKind::OutOfRange, [] { wholeQuotient(Ratio(kLowest64), Ratio(-1)); });
}

TEST(CheckedSum, FailsInsteadOfWrapping) {
  EXPECT_EQ(checkedSum(2'147'483'646, 1), 2'147'483'647);
  expectFailure(FailureKind::OutOfRange, [] { checkedSum(2'147'483'647, 1); });
  expectFailure(FailureKind::OutOfRange, [] { checkedSum(-2'147'483'647, -2); });
}

TEST(CheckedDifference, FailsInsteadOfWrapping) {
  EXPECT_EQ(checkedDifference(-2'147'483'647, 1), -2'147'483'647 - 1);
  expectFailure(FailureKind::OutOfRange, [] { checkedDifference(-2'147'483'647, 2); });
  expectFailure(FailureKind::OutOfRange, [] { checkedDifference(0, -2'147'483'647 - 1); });
}

}  // namespace
}  // namespace tarvik::core
