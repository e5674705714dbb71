#pragma once

#include <optional>
#include <string_view>

#include "core/ratio.h"

namespace tarvik::core {

/// The plain numeric parse: the leading number of a text. Spaces, tabs and line feeds are skipped wherever
/// they stand, a point is the decimal separator, the first other character (a decimal comma too) ends the
/// number, and a text without a number is 0. It reads figures back from a field: "7,63 Liter/100Km" gives 7.
/// Never fails: a magnitude past 10^18 counts as 10^18, decimals past the 18th are dropped.
Ratio plainNumber(std::string_view text);

/// The locale parse: the whole text as a number with a decimal comma. Spaces (plain U+0020 or no-break
/// U+00A0) may surround it and group its whole digits; "40," and ",5" are numbers; letters, a point,
/// a lone sign or comma and the empty text are not. Limits as for plainNumber.
std::optional<Ratio> localeNumber(std::string_view text);

/// The locale parse of a field that must hold a number; throws Failure(NotANumber) with the field's
/// name when it does not.
Ratio requiredNumber(std::string_view text, const char* field);

}  // namespace tarvik::core
