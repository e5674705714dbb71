#pragma once

#include <concepts>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/ratio.h"

namespace tarvik::exchange {

/// The sign that stands before the decimals of a column's figures.
enum class DecimalSign { Comma, Point };

/// What the figures of a column say of their decimal sign: nothing where each of them could be read with
/// either. "1.234,5" and "40,5" show a comma, "1,234.5" and "40.5" a point, "1.234" could be both.
std::optional<DecimalSign> shownDecimalSign(std::span<const std::string_view> figures);

/// A figure as other programs write it: digits with a decimal sign, grouped by spaces, apostrophes or the
/// other sign, with a unit or currency before or behind ("1 234,50 Ft", "€40.10"). Nothing for a text that is
/// no such figure; groups that are not of three digits are none. Decimals past the ninth do not count.
std::optional<core::Ratio> readFigure(std::string_view text, DecimalSign sign);

/// Whether a figure lies within the field of a record: a whole number, of kilometres or forints, or one that
/// counts so many parts of one, as litres are kept.
template <std::integral Whole>
bool fits(const core::Ratio& figure, core::Int128 parts = 1) {
  return figure >= core::Ratio(std::numeric_limits<Whole>::min(), parts) &&
         figure <= core::Ratio(std::numeric_limits<Whole>::max(), parts);
}
/// The parts of a litre, and of the consumption, that a record counts.
inline constexpr core::Int128 kPartsOfAmount = 10'000;

/// Whether the text is a figure with one decimal sign or the other.
bool looksLikeFigure(std::string_view text);
/// As looksLikeFigure, without letters before or behind it.
bool isBareFigure(std::string_view text);

}  // namespace tarvik::exchange
