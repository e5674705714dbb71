#include "exchange/numbers.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/number_text.h"

namespace tarvik::exchange {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kDecimals = 9;

// The part of a text from its first digit, sign or decimal sign to its last digit or decimal sign. A word
// with a digit of its own behind the figure ("12 m3") makes it no figure further on.
std::string_view figurePart(std::string_view text) {
  std::size_t begin = text.find_first_of(kDigits);
  if (begin == std::string_view::npos) return {};
  const std::string_view before = text.substr(0, begin);
  if (before.ends_with('.') || before.ends_with(',')) --begin;
  std::size_t end = text.find_last_of(kDigits) + 1;
  const std::string_view behind = text.substr(end);
  if (behind.starts_with('.') || behind.starts_with(',')) ++end;
  return text.substr(begin, end - begin);
}

bool hasLetter(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

// Whether what stands around the figure is a unit: a few letters or signs, on one side only.
bool areUnits(std::string_view before, std::string_view behind) {
  constexpr std::size_t kLongestUnit = 12;
  const auto isShort = [](std::string_view text) {
    return text.size() <= kLongestUnit && text.find_first_of("/:#") == std::string_view::npos;
  };
  return isShort(before) && isShort(behind) && !(hasLetter(before) && hasLetter(behind));
}

// How many bytes the space or apostrophe takes that groups digits; 0 where the text begins with none.
std::size_t groupingLength(std::string_view text) {
  constexpr auto kGroupings =
      std::to_array<std::string_view>({" ", "'", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "\xE2\x80\x99"});
  for (const std::string_view grouping : kGroupings)
    if (text.starts_with(grouping)) return grouping.size();
  return 0;
}

std::size_t leadingDigits(std::string_view text) {
  return std::min(text.find_first_not_of(kDigits), text.size());
}

// Whether whole digits are grouped as people group them: by three, or in India by two before the last three.
bool areGroups(std::span<const std::size_t> lengths) {
  if (lengths.size() == 1) return true;
  const auto middle = lengths.subspan(1, lengths.size() - 2);
  if (lengths.back() != 3 || lengths[0] == 0) return false;
  const auto areAll = [&](std::size_t length) {
    return std::ranges::all_of(middle, [&](std::size_t found) { return found == length; });
  };
  return (lengths[0] <= 3 && areAll(3)) || (lengths[0] <= 2 && areAll(2));
}

// Reads whole digits, in groups or not, and takes them off the text.
bool takeWhole(std::string_view& text, char group, std::string& digits) {
  std::vector<std::size_t> lengths;
  for (;;) {
    const std::size_t taken = leadingDigits(text);
    digits += text.substr(0, taken);
    lengths.push_back(taken);
    text.remove_prefix(taken);
    const std::size_t grouping = text.starts_with(group) ? 1 : groupingLength(text);
    if (grouping == 0) break;
    text.remove_prefix(grouping);
  }
  return areGroups(lengths);
}

bool isNegative(std::string_view before) {
  return before.find('-') != std::string_view::npos || before.find("\xE2\x88\x92") != std::string_view::npos;
}

// What one figure shows of the decimal sign.
std::optional<DecimalSign> signOf(std::string_view figure) {
  const std::string_view text = figurePart(figure);
  const std::size_t last = text.find_last_of(".,");
  if (last == std::string_view::npos) return std::nullopt;
  const char sign = text[last];
  const auto count = std::ranges::count(text, sign);
  const bool hasOther = text.find(sign == '.' ? ',' : '.') != std::string_view::npos;
  if (count > 1) return sign == '.' ? DecimalSign::Comma : DecimalSign::Point;
  const std::size_t behind = text.size() - last - 1;
  const bool couldBeGroup = behind == 3 && last >= 1 && last <= 3 && text.front() != '0';
  if (couldBeGroup && !hasOther) return std::nullopt;
  return sign == '.' ? DecimalSign::Point : DecimalSign::Comma;
}

}  // namespace

std::optional<DecimalSign> shownDecimalSign(std::span<const std::string_view> figures) {
  int commas = 0;
  int points = 0;
  for (const std::string_view figure : figures)
    if (const auto sign = signOf(figure)) ++(*sign == DecimalSign::Comma ? commas : points);
  if (commas > points) return DecimalSign::Comma;
  return points > commas ? std::optional(DecimalSign::Point) : std::nullopt;
}

std::optional<core::Ratio> readFigure(std::string_view text, DecimalSign sign) {
  const char decimal = sign == DecimalSign::Comma ? ',' : '.';
  const char group = sign == DecimalSign::Comma ? '.' : ',';
  std::string_view rest = figurePart(text);
  if (rest.empty()) return std::nullopt;
  const std::string_view before = text.substr(0, static_cast<std::size_t>(rest.data() - text.data()));
  const std::string_view behind = text.substr(before.size() + rest.size());
  if (!areUnits(before, behind)) return std::nullopt;
  std::string digits;
  if (!takeWhole(rest, group, digits)) return std::nullopt;
  std::string number = (isNegative(before) ? "-" : "") + digits;
  if (rest.empty()) return core::localeNumber(number);
  const std::string_view decimals = rest.substr(1);
  if (rest.front() != decimal || leadingDigits(decimals) != decimals.size()) return std::nullopt;
  number += ',';
  number += decimals.substr(0, kDecimals);
  return core::localeNumber(number);
}

bool isBareFigure(std::string_view text) {
  return !hasLetter(text) && looksLikeFigure(text);
}

bool looksLikeFigure(std::string_view text) {
  return readFigure(text, DecimalSign::Comma).has_value() || readFigure(text, DecimalSign::Point).has_value();
}

}  // namespace tarvik::exchange
