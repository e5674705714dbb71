#pragma once

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

}  // namespace tarvik::exchange
