#include "core/text.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tarvik::core {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

// Rows of eight bytes of the code page and their characters; an entry of the table that is wrong shows
// in its row. The five bytes without a character stand as U+FFFD.
struct Row {
  unsigned char firstByte;
  std::string_view characters;
};

constexpr Row kRows[] = {
    {0x80, "€\uFFFD‚\uFFFD„…†‡"}, {0x88, "\uFFFD‰Š‹ŚŤŽŹ"}, {0x90, "\uFFFD‘’“”•–—"}, {0x98, "\uFFFD™š›śťžź"},
    {0xA0, "\u00A0ˇ˘Ł¤Ą¦§"},      {0xA8, "¨©Ş«¬\u00AD®Ż"}, {0xB0, "°±˛ł´µ¶·"},      {0xB8, "¸ąş»Ľ˝ľż"},
    {0xC0, "ŔÁÂĂÄĹĆÇ"},           {0xC8, "ČÉĘËĚÍÎĎ"},      {0xD0, "ĐŃŇÓÔŐÖ×"},      {0xD8, "ŘŮÚŰÜÝŢß"},
    {0xE0, "ŕáâăäĺćç"},           {0xE8, "čéęëěíîď"},      {0xF0, "đńňóôőö÷"},      {0xF8, "řůúűüýţ˙"},
};

std::string eightBytesFrom(unsigned char first) {
  std::string bytes;
  for (int i = 0; i < 8; ++i) bytes += static_cast<char>(first + i);
  return bytes;
}

constexpr bool hasNoCharacter(char byte) {
  return byte == '\x81' || byte == '\x83' || byte == '\x88' || byte == '\x90' || byte == '\x98';
}

TEST(FromCodePage, WholeUpperHalf) {
  for (const Row& row : kRows) EXPECT_EQ(fromCodePage(eightBytesFrom(row.firstByte)), row.characters);
}

TEST(ToCodePage, WholeUpperHalf) {
  for (const Row& row : kRows) {
    std::string expected = eightBytesFrom(row.firstByte);
    for (char& byte : expected)
      if (hasNoCharacter(byte)) byte = '?';
    EXPECT_EQ(toCodePage(row.characters), expected);
  }
}

TEST(CodePage, AsciiIsItself) {
  std::string ascii;
  for (int i = 0; i < 0x80; ++i) ascii += static_cast<char>(i);
  EXPECT_EQ(toCodePage(ascii), ascii);
  EXPECT_EQ(fromCodePage(ascii), ascii);
  EXPECT_EQ(toCodePage(""), "");
  EXPECT_EQ(fromCodePage(""), "");
}

TEST(CodePage, HungarianSentence) {
  const std::string bytes = "\xC1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3g\xE9p";
  EXPECT_EQ(toCodePage("Árvíztűrő tükörfúrógép"), bytes);
  EXPECT_EQ(fromCodePage(bytes), "Árvíztűrő tükörfúrógép");
}

TEST(ToCodePage, CharacterThatTheCodePageLacksIsOneQuestionMark) {
  EXPECT_EQ(toCodePage("aõb"), "a?b");
  EXPECT_EQ(toCodePage("Ж漢🚗"), "???");
  EXPECT_EQ(toCodePage("\u0080\u0081"), "??");
  EXPECT_EQ(toCodePage("\U0010FFFF"), "?");
}

// Too short ones, overlong ones and those that are forbidden; what follows such a start is not swallowed.
TEST(ToCodePage, MalformedTextIsOneQuestionMarkAByte) {
  for (const char* text : {"\xC3", "\xE2\x82", "\xF0\x9F\x9A", "\xFF\xFE", "\xC0\xAF", "\xC1\xA1",
                           "\xE0\x83\xA1", "\xF0\x80\x83\xA1", "\xED\xA0\x80", "\xED\xBF\xBF",
                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8\x90\x80\x80"})
    EXPECT_EQ(toCodePage(text), std::string(std::strlen(text), '?'));
  EXPECT_EQ(toCodePage("a\x80z"), "a?z");
  EXPECT_EQ(toCodePage("\xC3("), "?(");
  EXPECT_EQ(toCodePage("\xE1\xC3\xA1"), "?\xE1");
}

TEST(Trimmed, TakesSpacesAndZeroBytesAtBothEndsAlone) {
  EXPECT_EQ(trimmed("  ABC-123   "), "ABC-123");
  EXPECT_EQ(trimmed("\0\0 A\0B \0"sv), "A\0B"sv);
  EXPECT_EQ(trimmed("A  B"), "A  B");
  EXPECT_EQ(trimmed("A"), "A");
  EXPECT_EQ(trimmed(""), "");
  EXPECT_EQ(trimmed("    "), "");
  EXPECT_EQ(trimmed("\0\0"sv), "");
  EXPECT_EQ(trimmed("\tA\n"), "\tA\n");
  EXPECT_EQ(trimmed("\u00A0A"), "\u00A0A");
}

TEST(UpperCased, RaisesEveryLetterOfTheCodePage) {
  EXPECT_EQ(upperCased("árvíztűrő tükörfúrógép"), "ÁRVÍZTŰRŐ TÜKÖRFÚRÓGÉP");
  EXPECT_EQ(upperCased("Olajszűrő 2."), "OLAJSZŰRŐ 2.");
  EXPECT_EQ(upperCased("šśťžźłąşľż"), "ŠŚŤŽŹŁĄŞĽŻ");
  EXPECT_EQ(upperCased("ŕâăäĺćçčęëěîďđńňôřůýţ"), "ŔÂĂÄĹĆÇČĘËĚÎĎĐŃŇÔŘŮÝŢ");
  EXPECT_EQ(upperCased("abcdefghijklmnopqrstuvwxyz"), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

TEST(UpperCased, CapitalsOtherCharactersAndMalformedBytesStay) {
  for (const char* text : {"ß", "µ", "÷", "×", "˙", "€", "[`{~@", "õ", "漢", "🚗", ""})
    EXPECT_EQ(upperCased(text), text);
  const std::string capitals = "ABC ÁÉÍÓÖŐÚÜŰ ŠŚŤŽŹŁĄŞĽŻ ŔÂĂÄĹĆÇČĘËĚÎĎĐŃŇÔŘŮÝŢ";
  EXPECT_EQ(upperCased(capitals), capitals);
  EXPECT_EQ(upperCased("a\xC3\xFFő\xE2\x82"), "A\xC3\xFFŐ\xE2\x82"s);
}

}  // namespace
}  // namespace tarvik::core
