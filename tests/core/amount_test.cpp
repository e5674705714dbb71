#include "core/amount.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using test::expectFailure;

constexpr Amount kLowest{std::numeric_limits<std::int64_t>::min()};
constexpr Amount kHighest{std::numeric_limits<std::int64_t>::max()};

TEST(Amount, IsTenThousandths) {
  EXPECT_TRUE(Amount{405'000}.ratio() == Ratio(81, 2));
  EXPECT_TRUE(kLowest.ratio() == Ratio(kLowest.tenThousandths, 10'000));
  EXPECT_TRUE(Amount{}.isZero());
  EXPECT_FALSE(Amount{1}.isZero());
  EXPECT_LT(Amount{-1}, Amount{0});
}

TEST(Amount, SumFailsPast64Bits) {
  EXPECT_EQ(Amount{405'000} + Amount{-5'000}, Amount{400'000});
  EXPECT_EQ(kHighest + Amount{0}, kHighest);
  expectFailure(FailureKind::OutOfRange, [] { kHighest + Amount{1}; });
  expectFailure(FailureKind::OutOfRange, [] { kLowest + Amount{-1}; });
}

TEST(ToAmount, KeepsFourDecimalsRoundedHalvesToEven) {
  EXPECT_EQ(toAmount(Ratio(7)), Amount{70'000});
  EXPECT_EQ(toAmount(Ratio(-81, 2)), Amount{-405'000});
  EXPECT_EQ(toAmount(Ratio(1, 3)), Amount{3'333});
  EXPECT_EQ(toAmount(Ratio(2, 3)), Amount{6'667});
  EXPECT_EQ(toAmount(Ratio(5, 100'000)), Amount{0});
  EXPECT_EQ(toAmount(Ratio(15, 100'000)), Amount{2});
  EXPECT_EQ(toAmount(Ratio(25, 100'000)), Amount{2});
  EXPECT_EQ(toAmount(Ratio(-15, 100'000)), Amount{-2});
}

TEST(ToAmount, FailsPast64Bits) {
  EXPECT_EQ(toAmount(kHighest.ratio()), kHighest);
  EXPECT_EQ(toAmount(kLowest.ratio()), kLowest);
  expectFailure(FailureKind::OutOfRange, [] { toAmount(kHighest.ratio() + Ratio(1, 10'000)); });
  expectFailure(FailureKind::OutOfRange, [] { toAmount(Ratio(1'000'000'000'000'000)); });
}

TEST(PlainText, HasAsManyDecimalsAsNeededAndNoGroups) {
  const std::vector<std::pair<std::int64_t, const char*>> cases{
      {0, "0"},
      {4'000'000, "400"},
      {405'000, "40,5"},
      {405'600, "40,56"},
      {4'051'234, "405,1234"},
      {5'000, "0,5"},
      {1, "0,0001"},
      {-1, "-0,0001"},
      {-70'000, "-7"},
      {12'345'675'000, "1234567,5"},
      {kHighest.tenThousandths, "922337203685477,5807"},
      {kLowest.tenThousandths, "-922337203685477,5808"}};
  for (const auto& [amount, text] : cases) EXPECT_EQ(plainText({amount}), text);
}

}  // namespace
}  // namespace tarvik::core
