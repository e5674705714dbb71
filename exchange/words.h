#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::exchange {

/// A text in capitals of the plain alphabet, without accents, signs and double spaces; the words of a name in
/// camel or snake case are parted: "Megjegyzés költsége (Ft)" becomes "MEGJEGYZES KOLTSEGE FT", "isFullTank"
/// "IS FULL TANK". Cyrillic letters become the Latin ones that sound alike.
std::string folded(std::string_view text);

/// The words of a folded text.
std::vector<std::string> wordsOf(std::string_view foldedText);

/// Words written as one.
std::string squeezed(std::string_view foldedText);

/// Whether a text is one of a list: "YES, FULL TANK, X". No empty text is.
bool isListed(std::string_view text, std::string_view list);

/// Whether one of a list begins with a text.
bool beginsListed(std::string_view text, std::string_view list);

/// Whether one of the words is one of a list.
bool hasListed(std::span<const std::string> words, std::string_view list);

/// Whether a text has a digit.
bool hasDigit(std::string_view text);

}  // namespace tarvik::exchange
