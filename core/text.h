#pragma once

#include <string>
#include <string_view>

namespace tarvik::core {

// Texts are UTF-8 in memory and Windows-1250 in the files. UTF-8 that is malformed is read as one
// unknown character a byte.

/// The text in Windows-1250, one byte a character; a character the code page lacks becomes '?'.
std::string toCodePage(std::string_view utf8);

/// The text of Windows-1250 bytes in UTF-8. The five bytes without a character (81, 83, 88, 90, 98 hex)
/// become U+FFFD.
std::string fromCodePage(std::string_view bytes);

/// Whether the character is one of 0 to 9.
constexpr bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// The text without the spaces and zero bytes at both its ends.
std::string_view trimmed(std::string_view text);

/// The UTF-8 text with every letter of the code page upper-cased ("ő" to "Ő"); other characters stay.
std::string upperCased(std::string_view utf8);

}  // namespace tarvik::core
