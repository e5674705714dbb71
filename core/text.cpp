#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tarvik::core {
namespace {

constexpr char16_t kNoCharacter = 0xFFFD;
constexpr char kUnknown = '?';

// The characters of the bytes 80 to FF, eight a row.
constexpr std::array<char16_t, 128> kUpperHalf = {
    0x20AC, 0xFFFD, 0x201A, 0xFFFD, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0xFFFD, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,  // 88
    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0xFFFD, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,  // 98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // A0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,  // A8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // B0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,  // B8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // C0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,  // C8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // D0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,  // D8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // E0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,  // E8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // F0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,  // F8
};

struct CodePageEntry {
  char16_t character;
  unsigned char byte;
};

// The table above turned round, in the order of the characters.
constexpr auto kByCharacter = [] {
  std::array<CodePageEntry, kUpperHalf.size()> entries{};
  for (std::size_t i = 0; i < entries.size(); ++i)
    entries[i] = {kUpperHalf[i], static_cast<unsigned char>(0x80 + i)};
  std::ranges::sort(entries, {}, &CodePageEntry::character);
  return entries;
}();

constexpr bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

/// The first character of a text that is not empty, and how many bytes it takes.
struct FirstCharacter {
  char32_t codePoint;
  std::size_t length;
};

constexpr FirstCharacter kMalformed{kNoCharacter, 1};

// How many bytes the character takes that begins with this byte; 0 for a byte that begins none.
constexpr std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

// Whether a code point read from that many bytes needs them all and is a character.
constexpr bool isWellFormed(char32_t codePoint, std::size_t length) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  return codePoint >= kSmallest[length] && codePoint <= 0x10FFFF && !isSurrogate;
}

FirstCharacter firstCharacter(std::string_view utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = sequenceLength(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || length > utf8.size()) return kMalformed;
  char32_t codePoint = lead & (0x7Fu >> length);
  for (const char c : utf8.substr(1, length - 1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0u) != 0x80u) return kMalformed;
    codePoint = (codePoint << 6) | (byte & 0x3Fu);
  }
  return isWellFormed(codePoint, length) ? FirstCharacter{codePoint, length} : kMalformed;
}

// The code page's byte for a character; '?' when it has none.
char toByte(char32_t codePoint) {
  if (codePoint < 0x80) return static_cast<char>(codePoint);
  const auto found = std::ranges::lower_bound(kByCharacter, codePoint, {},
                                              [](CodePageEntry e) { return char32_t{e.character}; });
  if (codePoint == kNoCharacter || found == kByCharacter.end() || found->character != codePoint)
    return kUnknown;
  return static_cast<char>(found->byte);
}

// Every character of the code page lies in the basic plane: three bytes at most.
void appendCharacter(std::string& utf8, char byte) {
  if (isAscii(byte)) {
    utf8 += byte;
    return;
  }
  const unsigned character = kUpperHalf[static_cast<unsigned char>(byte) & 0x7Fu];
  if (character >= 0x800) {
    utf8 += static_cast<char>(0xE0u | (character >> 12));
    utf8 += static_cast<char>(0x80u | ((character >> 6) & 0x3Fu));
  } else {
    utf8 += static_cast<char>(0xC0u | (character >> 6));
  }
  utf8 += static_cast<char>(0x80u | (character & 0x3Fu));
}

// Upper-cases one byte of the code page. ß and µ have no capital in it.
constexpr char upperCasedByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  const auto moved = [byte](int by) { return static_cast<char>(byte + by); };
  if (byte >= 'a' && byte <= 'z') return moved(-0x20);
  if (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7) return moved(-0x20);
  switch (byte) {
    case 0x9A:  // š
    case 0x9C:  // ś
    case 0x9D:  // ť
    case 0x9E:  // ž
    case 0x9F:  // ź
    case 0xB3:  // ł
    case 0xBA:  // ş
    case 0xBF:  // ż
      return moved(-0x10);
    case 0xB9:  // ą
      return moved(-0x14);
    case 0xBE:  // ľ
      return moved(-0x02);
    default:
      return c;
  }
}

// Upper-cases the first character of utf8 into result; returns how many bytes it took.
std::size_t appendUpperCased(std::string& result, std::string_view utf8) {
  const auto [codePoint, length] = firstCharacter(utf8);
  const char byte = toByte(codePoint);
  const char upper = upperCasedByte(byte);
  if (upper == byte)
    result += utf8.substr(0, length);
  else
    appendCharacter(result, upper);
  return length;
}

}  // namespace

std::string toCodePage(std::string_view utf8) {
  const auto firstAccent = std::ranges::find_if_not(utf8, isAscii);
  std::string bytes(utf8.begin(), firstAccent);
  utf8.remove_prefix(bytes.size());
  while (!utf8.empty()) {
    const auto [codePoint, length] = firstCharacter(utf8);
    bytes += toByte(codePoint);
    utf8.remove_prefix(length);
  }
  return bytes;
}

std::string fromCodePage(std::string_view bytes) {
  const auto firstAccent = std::ranges::find_if_not(bytes, isAscii);
  std::string utf8(bytes.begin(), firstAccent);
  for (const char byte : bytes.substr(utf8.size())) appendCharacter(utf8, byte);
  return utf8;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kPadding(" \0", 2);
  const std::size_t first = text.find_first_not_of(kPadding);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kPadding) - first + 1);
}

std::string upperCased(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  while (!utf8.empty()) utf8.remove_prefix(appendUpperCased(result, utf8));
  return result;
}

}  // namespace tarvik::core
