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

// A value is written as these bytes between two others, and read back.
template <typename T>
void expectBytes(T value, std::initializer_list<int> expected) {
  Bytes bytes = marked(expected.size() + 2);
  writeField<T>(bytes, 1, value);
  Bytes whole = bytesOf(expected);
  whole.insert(whole.begin(), std::byte{0xAA});
  whole.push_back(std::byte{0xAA});
  EXPECT_EQ(bytes, whole);
  EXPECT_EQ(readField<T>(bytes, 1), value);
}

TEST(IntegerField, IsLittleEndianTwosComplement) {
  expectBytes<std::int16_t>(0x1234, {0x34, 0x12});
  expectBytes<std::int16_t>(-2, {0xFE, 0xFF});
  expectBytes<std::int16_t>(-32'768, {0x00, 0x80});
  expectBytes<std::int32_t>(0x12345678, {0x78, 0x56, 0x34, 0x12});
  expectBytes<std::int32_t>(-2'500, {0x3C, 0xF6, 0xFF, 0xFF});
  expectBytes<std::int32_t>(std::numeric_limits<std::int32_t>::min(), {0x00, 0x00, 0x00, 0x80});
}

TEST(AmountField, IsTenThousandthsInEightBytes) {
  expectBytes<Amount>({70'000}, {0x70, 0x11, 0x01, 0, 0, 0, 0, 0});
  expectBytes<Amount>({-1}, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
}

TEST(DateField, IsADoubleOfDays) {
  expectBytes<double>(1.0, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F});
  expectBytes<double>(-1.25, {0, 0, 0, 0, 0, 0, 0xF4, 0xBF});
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
