#include "core/number_format.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace tarvik::core {
namespace {

__extension__ typedef unsigned __int128 UInt128;

constexpr std::string_view kGroupSeparator = "\xC2\xA0";

/// What a pattern asks for as a whole.
struct Layout {
  int wholePlaces = 0;
  int requiredWhole = 0;  ///< whole digits shown at least
  int decimalPlaces = 0;
  int requiredDecimals = 0;  ///< decimals shown at least
  bool grouped = false;
};

void addPlaceholder(Layout& layout, bool required, bool afterPoint) {
  if (afterPoint) {
    ++layout.decimalPlaces;
    if (required) layout.requiredDecimals = layout.decimalPlaces;
    return;
  }
  ++layout.wholePlaces;
  // Every place to the right of a required one is shown too.
  if (required || layout.requiredWhole > 0) ++layout.requiredWhole;
}

Layout layoutOf(std::string_view pattern) {
  Layout layout;
  bool afterPoint = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\\')
      ++i;
    else if (c == '.')
      afterPoint = true;
    else if (c == ',')
      layout.grouped = true;
    else if (c == '#' || c == '0')
      addPlaceholder(layout, c == '0', afterPoint);
  }
  return layout;
}

char lastDigit(std::uint64_t value) {
  return static_cast<char>('0' + value % 10);
}

// The digits of a magnitude, with zeros before them up to that many; none at all for 0 and 0.
std::string digitsOf(UInt128 value, int atLeast) {
  std::array<char, 64> buffer{};
  auto first = buffer.end();
  for (; value > std::numeric_limits<std::uint64_t>::max(); value /= 10)
    *--first = lastDigit(static_cast<std::uint64_t>(value % 10));
  for (auto small = static_cast<std::uint64_t>(value); small != 0; small /= 10) *--first = lastDigit(small);
  std::string digits(first, buffer.end());
  const auto length = static_cast<std::size_t>(atLeast);
  if (digits.size() < length) digits.insert(0, length - digits.size(), '0');
  return digits;
}

/// Writes the text of one figure while the pattern is walked from left to right.
class FigureWriter {
 public:
  FigureWriter(const Layout& layout, Int128 rounded) : place_(layout.wholePlaces), grouped_(layout.grouped) {
    const bool negative = rounded < 0;
    const auto magnitude =
        negative ? UInt128{0} - static_cast<UInt128>(rounded) : static_cast<UInt128>(rounded);
    digits_ = digitsOf(magnitude, layout.requiredWhole + layout.decimalPlaces);
    wholeLeft_ = static_cast<int>(digits_.size()) - layout.decimalPlaces;
    dropOptionalZeros(layout.decimalPlaces - layout.requiredDecimals);
    if (negative) text_ = '-';
  }

  void literal(char c) { text_ += c; }
  void space() {
    if (next_ > 0 || afterPoint_) text_ += ' ';
  }
  void point() {
    writeWholeDigitsFrom(1);
    text_ += ',';
    afterPoint_ = true;
  }
  void placeholder() {
    if (!afterPoint_)
      writeWholeDigitsFrom(place_--);
    else if (next_ < digits_.size())
      text_ += digits_[next_++];
  }
  std::string text() && { return std::move(text_); }

 private:
  void dropOptionalZeros(int atMost) {
    for (; atMost > 0 && digits_.back() == '0'; --atMost) digits_.pop_back();
  }
  // Places count from the right. The first placeholder meets the digits beyond all placeholders here.
  void writeWholeDigitsFrom(int place) {
    while (wholeLeft_ >= place) {
      text_ += digits_[next_++];
      --wholeLeft_;
      if (grouped_ && wholeLeft_ > 0 && wholeLeft_ % 3 == 0) text_ += kGroupSeparator;
    }
  }

  std::string digits_;
  std::string text_;
  std::size_t next_ = 0;
  int wholeLeft_ = 0;
  int place_;
  bool grouped_;
  bool afterPoint_ = false;
};

}  // namespace

std::string formatted(const Ratio& value, std::string_view pattern) {
  const Layout layout = layoutOf(pattern);
  FigureWriter writer(layout, roundedAwayFromZero(value, layout.decimalPlaces));
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\\') {
      if (++i < pattern.size()) writer.literal(pattern[i]);
    } else if (c == '#' || c == '0') {
      writer.placeholder();
    } else if (c == '.') {
      writer.point();
    } else if (c == ' ') {
      writer.space();
    } else if (c != ',') {
      writer.literal(c);
    }
  }
  return std::move(writer).text();
}

}  // namespace tarvik::core
