#pragma once

#include <compare>
#include <cstdint>

namespace tarvik::core {

/// A signed whole number of 128 bits, wide enough for every sum and product of the program's figures.
__extension__ typedef __int128 Int128;

/// An exact fraction. Every figure that a person reads is rounded from one of these, once, so that a
/// half is decided on its true value and never on the nearest binary number.
///
/// Always in lowest terms with a denominator of at least 1. Arithmetic that leaves 128 bits throws
/// Failure(OutOfRange); a division by zero throws Failure(DivisionByZero).
class Ratio {
 public:
  constexpr Ratio() = default;
  /// The whole number itself.
  constexpr Ratio(std::int64_t whole) : numerator_(whole) {}  // NOLINT: a whole number is a ratio
  /// numerator / denominator; throws Failure(DivisionByZero) when the denominator is 0.
  Ratio(Int128 numerator, Int128 denominator);

  Int128 numerator() const { return numerator_; }
  Int128 denominator() const { return denominator_; }
  bool isZero() const { return numerator_ == 0; }

  friend Ratio operator+(const Ratio& a, const Ratio& b);
  friend Ratio operator-(const Ratio& a, const Ratio& b);
  friend Ratio operator*(const Ratio& a, const Ratio& b);
  friend Ratio operator/(const Ratio& a, const Ratio& b);
  friend bool operator==(const Ratio& a, const Ratio& b) = default;
  friend std::strong_ordering operator<=>(const Ratio& a, const Ratio& b);

 private:
  Int128 numerator_ = 0;
  Int128 denominator_ = 1;
};

/// The nearest whole number, halves to the even neighbour; throws Failure(OutOfRange) past 64 bits.
std::int64_t toWhole(const Ratio& value);
/// As toWhole, for a 32-bit field: throws Failure(OutOfRange) past it.
std::int32_t toWhole32(const Ratio& value);
/// As toWhole, for a 16-bit field: throws Failure(OutOfRange) past it.
std::int16_t toWhole16(const Ratio& value);

/// value × 10^decimals rounded to a whole number, halves away from zero (how figures are shown).
/// Throws Failure(OutOfRange) for decimals outside 0 to 9 and past 128 bits.
Int128 roundedAwayFromZero(const Ratio& value, int decimals);

/// Integer division as the logbook's figures use it: both operands are first rounded to whole numbers
/// (halves to even), then the quotient is truncated toward zero. A divisor that rounds to 0 throws
/// Failure(DivisionByZero).
std::int64_t wholeQuotient(const Ratio& dividend, const Ratio& divisor);

/// a + b, a − b in 32 bits; throw Failure(OutOfRange) instead of wrapping around.
std::int32_t checkedSum(std::int32_t a, std::int32_t b);
std::int32_t checkedDifference(std::int32_t a, std::int32_t b);

}  // namespace tarvik::core
