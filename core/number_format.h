#pragma once

#include <string>
#include <string_view>

#include "core/ratio.h"

namespace tarvik::core {

/// The value in a format pattern, in the Hungarian form.
///
/// '#' is a digit shown only when significant, '0' a digit always shown, '.' the decimal comma (always
/// printed), ',' among the placeholders asks for groups of three separated by a no-break space
/// (U+00A0), a space is a literal space that is left out while neither digit nor decimal comma stands
/// before it, and a backslash makes the next character literal (at the pattern's end it adds nothing).
/// Any other character stands for itself. Digits fill from the right; digits beyond the placeholders go
/// before the first one. Optional decimals drop their zeros from the right. Halves round away from
/// zero; a value that rounds to zero has no minus, which otherwise stands first. A pattern of more than
/// nine decimals and a value too large to scale throw Failure(OutOfRange).
///
/// "##.00": 0 → ",00", 7.625 → "7,63"; "### ### ##0": 1234567 → "1 234 567";
/// "###,###.00\ \F\t\.": 12345 → "12 345,00 Ft."; "###,00": 5 → "05", 1234.5 → "1 235".
std::string formatted(const Ratio& value, std::string_view pattern);

}  // namespace tarvik::core
