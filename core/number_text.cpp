#include "core/number_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/failure.h"
#include "core/text.h"

namespace tarvik::core {
namespace {

constexpr std::string_view kNoBreakSpace = "\xC2\xA0";

/// Puts a decimal number together digit by digit, within the limits of the two parses.
class DecimalNumber {
 public:
  void setSign(char sign) { negative_ = sign == '-'; }
  void addWholeDigit(char digit) {
    whole_ = std::min(whole_ * 10 + valueOf(digit), kLimit);
    hasDigits_ = true;
  }
  void addDecimalDigit(char digit) {
    hasDigits_ = true;
    if (scale_ == kLimit) return;
    decimals_ = decimals_ * 10 + valueOf(digit);
    scale_ *= 10;
  }
  bool hasDigits() const { return hasDigits_; }
  Ratio value() const {
    if (whole_ == kLimit) return signedRatio(kLimit, 1);
    return signedRatio(Int128{whole_} * scale_ + decimals_, scale_);
  }

 private:
  static constexpr std::uint64_t kLimit = 1'000'000'000'000'000'000;

  static std::uint64_t valueOf(char digit) { return static_cast<std::uint64_t>(digit - '0'); }
  Ratio signedRatio(Int128 numerator, std::uint64_t denominator) const {
    return Ratio(negative_ ? -numerator : numerator, denominator);
  }

  bool negative_ = false;
  bool hasDigits_ = false;
  std::uint64_t whole_ = 0;
  std::uint64_t decimals_ = 0;
  std::uint64_t scale_ = 1;
};

constexpr bool isSkipped(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

constexpr bool isSign(char c) {
  return c == '-' || c == '+';
}

// How many bytes the space takes that the text begins with; 0 when it begins with none.
std::size_t leadingSpace(std::string_view text) {
  if (text.starts_with(' ')) return 1;
  return text.starts_with(kNoBreakSpace) ? kNoBreakSpace.size() : 0;
}

std::size_t trailingSpace(std::string_view text) {
  if (text.ends_with(' ')) return 1;
  return text.ends_with(kNoBreakSpace) ? kNoBreakSpace.size() : 0;
}

std::string_view withoutOuterSpaces(std::string_view text) {
  while (const std::size_t space = leadingSpace(text)) text.remove_prefix(space);
  while (const std::size_t space = trailingSpace(text)) text.remove_suffix(space);
  return text;
}

// Reads digits with spaces between them; false for anything else in the text.
bool readWholeDigits(std::string_view text, DecimalNumber& number) {
  if (leadingSpace(text) != 0 || trailingSpace(text) != 0) return false;
  while (!text.empty()) {
    const std::size_t space = leadingSpace(text);
    if (space == 0 && !isDigit(text.front())) return false;
    if (space == 0) number.addWholeDigit(text.front());
    text.remove_prefix(std::max<std::size_t>(space, 1));
  }
  return true;
}

bool readDecimalDigits(std::string_view text, DecimalNumber& number) {
  if (!std::ranges::all_of(text, isDigit)) return false;
  for (const char digit : text) number.addDecimalDigit(digit);
  return true;
}

}  // namespace

Ratio plainNumber(std::string_view text) {
  DecimalNumber number;
  bool begun = false;
  bool afterPoint = false;
  for (const char c : text) {
    if (isSkipped(c)) continue;
    if (isSign(c) && !begun)
      number.setSign(c);
    else if (c == '.' && !afterPoint)
      afterPoint = true;
    else if (!isDigit(c))
      break;
    else if (afterPoint)
      number.addDecimalDigit(c);
    else
      number.addWholeDigit(c);
    begun = true;
  }
  return number.value();
}

std::optional<Ratio> localeNumber(std::string_view text) {
  DecimalNumber number;
  text = withoutOuterSpaces(text);
  if (!text.empty() && isSign(text.front())) {
    number.setSign(text.front());
    text.remove_prefix(1);
  }
  const std::size_t comma = std::min(text.find(','), text.size());
  const std::string_view decimals = text.substr(std::min(comma + 1, text.size()));
  const bool isNumber = readWholeDigits(text.substr(0, comma), number) && readDecimalDigits(decimals, number);
  if (!isNumber || !number.hasDigits()) return std::nullopt;
  return number.value();
}

Ratio requiredNumber(std::string_view text, const char* field) {
  const std::optional<Ratio> number = localeNumber(text);
  if (!number) throw Failure(FailureKind::NotANumber).field(field);
  return *number;
}

}  // namespace tarvik::core
