#include "core/piece.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/bytes.h"

namespace tarvik::core {
namespace {

using test::bytesOf;
using test::textOf;

TEST(DifferingPieceTest, IsTheSmallest) {
  const Piece piece = differingPiece(bytesOf("aabbcc"), bytesOf("aaxcc"));
  EXPECT_EQ(piece.at, 2U);
  EXPECT_EQ(textOf(piece.removed), "bb");
  EXPECT_EQ(textOf(piece.added), "x");
  EXPECT_EQ(textOf(differingPiece(bytesOf("aaa"), bytesOf("aaaa")).added), "a");
  EXPECT_EQ(textOf(differingPiece(bytesOf("aaaa"), bytesOf("aaa")).removed), "a");
  EXPECT_TRUE(differingPiece(bytesOf("aaa"), bytesOf("aaa")).isEmpty());
  EXPECT_TRUE(differingPiece({}, {}).isEmpty());
}

// Long contents are compared in blocks; one byte at any place of them is found all the same.
TEST(DifferingPieceTest, IsFoundAtAnyPlaceOfLongContents) {
  const std::string before(20'000, 'a');
  for (const std::size_t at : {0U, 1U, 4'095U, 4'096U, 4'097U, 8'191U, 8'192U, 15'903U, 15'904U, 19'999U}) {
    std::string after = before;
    after[at] = 'b';
    const Piece piece = differingPiece(bytesOf(before), bytesOf(after));
    EXPECT_EQ(piece.at, at);
    EXPECT_EQ(textOf(piece.removed), "a") << at;
    EXPECT_EQ(textOf(piece.added), "b") << at;
    EXPECT_EQ(textOf(differingPiece(bytesOf(after), bytesOf(before)).removed), "b") << at;
    EXPECT_FALSE(isEqual(bytesOf(before), bytesOf(after))) << at;
  }
  EXPECT_TRUE(isEqual(bytesOf(before), bytesOf(std::string(20'000, 'a'))));
  EXPECT_FALSE(isEqual(bytesOf(before), bytesOf(std::string(19'999, 'a'))));
}

TEST(PieceTest, LeadsFromTheBytesBeforeToThoseAfterAndBack) {
  for (const auto& [before, after] : {std::pair("aabbcc", "aaxcc"), std::pair("aacc", "aaxyzcc"),
                                      std::pair("", "xyz"), std::pair("xyz", ""), std::pair("abc", "xyz")}) {
    const Patch patch(differingPiece(bytesOf(before), bytesOf(after)));
    EXPECT_EQ(textOf(applied(patch.forth(), bytesOf(before))), after);
    EXPECT_EQ(textOf(applied(patch.back(), bytesOf(after))), before);
    std::vector<std::byte> inPlace(bytesOf(before).begin(), bytesOf(before).end());
    applyInPlace(patch.forth(), inPlace);
    EXPECT_EQ(textOf(inPlace), after);
    applyInPlace(patch.back(), inPlace);
    EXPECT_EQ(textOf(inPlace), before);
  }
}

}  // namespace
}  // namespace tarvik::core
