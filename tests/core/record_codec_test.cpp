#include "core/record_codec.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

namespace tarvik::core {
namespace {

using namespace std::string_view_literals;

using Bytes = std::vector<std::byte>;

Bytes bytesOf(std::initializer_list<int> values) {
  Bytes bytes;
  for (const int value : values) bytes.push_back(static_cast<std::byte>(value));
  return bytes;
}

Bytes bytesOf(std::string_view text) {
  Bytes bytes;
  for (const char c : text) bytes.push_back(static_cast<std::byte>(c));
  return bytes;
}

// Bytes of a record before something is written in its middle: what lies beside must stay.
Bytes marked(std::size_t size) {
  return Bytes(size, std::byte{0xAA});
}

TEST(Int16, IsLittleEndianTwosComplement) {
  Bytes bytes = marked(4);
  writeField<std::int16_t>(bytes, 1, 0x1234);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0x34, 0x12, 0xAA}));
  EXPECT_EQ(readField<std::int16_t>(bytes, 1), 0x1234);
  writeField<std::int16_t>(bytes, 1, -2);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0xFE, 0xFF, 0xAA}));
  EXPECT_EQ(readField<std::int16_t>(bytes, 1), -2);
  EXPECT_EQ(readField<std::int16_t>(bytesOf({0x00, 0x80}), 0), -32'768);
}

TEST(Int32, IsLittleEndianTwosComplement) {
  Bytes bytes = marked(6);
  writeField<std::int32_t>(bytes, 1, 0x12345678);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0x78, 0x56, 0x34, 0x12, 0xAA}));
  EXPECT_EQ(readField<std::int32_t>(bytes, 1), 0x12345678);
  writeField<std::int32_t>(bytes, 1, -2'500);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0x3C, 0xF6, 0xFF, 0xFF, 0xAA}));
  EXPECT_EQ(readField<std::int32_t>(bytes, 1), -2'500);
  EXPECT_EQ(readField<std::int32_t>(bytesOf({0x00, 0x00, 0x00, 0x80}), 0),
            std::numeric_limits<std::int32_t>::min());
}

TEST(AmountField, IsTenThousandthsInEightBytes) {
  Bytes bytes = marked(10);
  writeField<Amount>(bytes, 1, {70'000});
  EXPECT_EQ(bytes, bytesOf({0xAA, 0x70, 0x11, 0x01, 0, 0, 0, 0, 0, 0xAA}));
  EXPECT_EQ(readField<Amount>(bytes, 1), Amount{70'000});
  writeField<Amount>(bytes, 1, {-1});
  EXPECT_EQ(bytes, bytesOf({0xAA, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xAA}));
  EXPECT_EQ(readField<Amount>(bytes, 1), Amount{-1});
}

TEST(DateField, IsADoubleOfDays) {
  Bytes bytes = marked(10);
  writeField<double>(bytes, 1, 1.0);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F, 0xAA}));
  EXPECT_EQ(readField<double>(bytes, 1), 1.0);
  writeField<double>(bytes, 1, -1.25);
  EXPECT_EQ(bytes, bytesOf({0xAA, 0, 0, 0, 0, 0, 0, 0xF4, 0xBF, 0xAA}));
  EXPECT_EQ(readField<double>(bytes, 1), -1.25);
}

TEST(DateField, DamagedOneIsReadAsItIs) {
  const Bytes noNumber = bytesOf({0, 0, 0, 0, 0, 0, 0xF8, 0x7F});
  const double value = readField<double>(noNumber, 0);
  EXPECT_NE(value, value);
}

TEST(Flag, IsMinusOneOrZero) {
  EXPECT_EQ(toFlag(true), -1);
  EXPECT_EQ(toFlag(false), 0);
}

template <std::size_t N>
Bytes written(const FixedText<N>& text) {
  Bytes bytes = marked(N + 2);
  writeField(bytes, 1, text);
  return bytes;
}

TEST(FixedText, ShortTextIsPaddedWithSpaces) {
  EXPECT_EQ(written(FixedText<8>("ABC-1")), bytesOf("\xAA"
                                                    "ABC-1   \xAA"));
  EXPECT_EQ(written(FixedText<4>("")), bytesOf("\xAA    \xAA"));
}

TEST(FixedText, LongTextIsCutToItsFirstCharacters) {
  EXPECT_EQ(written(FixedText<4>("ABCDEF")), bytesOf("\xAA"
                                                     "ABCD\xAA"));
  EXPECT_EQ(written(FixedText<4>("őőőőő")), bytesOf("\xAA\xF5\xF5\xF5\xF5\xAA"));
}

TEST(FixedText, TextOfTheFullLength) {
  const FixedText<4> text("ABCD");
  EXPECT_EQ(written(text), bytesOf("\xAA"
                                   "ABCD\xAA"));
  EXPECT_EQ(text.trimmed(), "ABCD");
}

TEST(FixedText, IsStoredInTheCodePage) {
  EXPECT_EQ(written(FixedText<6>("Űr漢")), bytesOf("\xAA\xDBr?   \xAA"));
}

TEST(FixedText, IsReadBackTrimmedAndWhole) {
  const FixedText<8> text = readField<FixedText<8>>(bytesOf("x  sz\xFBr\xF5 x"), 1);
  EXPECT_EQ(text.trimmed(), "szűrő");
  EXPECT_EQ(text.asStored(), "  szűrő ");
  EXPECT_FALSE(text.isBlank());
  EXPECT_EQ(written(text), bytesOf("\xAA  sz\xFBr\xF5 \xAA"));
}

TEST(FixedText, NeverWrittenOneIsBlankZeroBytes) {
  const FixedText<3> text;
  EXPECT_TRUE(text.isBlank());
  EXPECT_EQ(text.trimmed(), "");
  EXPECT_EQ(text.asStored(), "   ");
  EXPECT_EQ(written(text), bytesOf("\xAA\0\0\0\xAA"sv));
}

TEST(FixedText, ZeroBytesInsideShowAsSpacesWhenWhole) {
  const auto text = readField<FixedText<5>>(bytesOf("\0A\0B\0"sv), 0);
  EXPECT_EQ(text.asStored(), " A B ");
  EXPECT_EQ(text.trimmed(), "A\0B"sv);
}

TEST(FixedText, ComparesTheStoredBytes) {
  EXPECT_EQ(FixedText<4>("AB"), FixedText<4>("AB  "));
  EXPECT_NE(FixedText<4>("AB"), FixedText<4>(" AB"));
  EXPECT_NE(FixedText<4>(), FixedText<4>(""));
}

}  // namespace
}  // namespace tarvik::core
