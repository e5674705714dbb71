#include "core/ratio.h"

#include <array>
#include <limits>
#include <numeric>

#include "core/failure.h"

namespace tarvik::core {
namespace {

__extension__ typedef unsigned __int128 UInt128;

constexpr UInt128 kHighest128 = ~UInt128{0} >> 1;
constexpr UInt128 kHighest64 = std::numeric_limits<std::uint64_t>::max();

[[noreturn]] void failOutOfRange() {
  throw Failure(FailureKind::OutOfRange);
}

// Works for the lowest value too, whose magnitude has no signed form.
constexpr UInt128 magnitude(Int128 value) {
  return value < 0 ? -static_cast<UInt128>(value) : static_cast<UInt128>(value);
}

// The figures of daily use need the 64-bit division alone, which is several times faster.
UInt128 greatestCommonDivisor(UInt128 a, UInt128 b) {
  while (b > kHighest64 || (a > kHighest64 && b != 0)) {
    const UInt128 rest = a % b;
    a = b;
    b = rest;
  }
  if (b == 0) return a;
  return std::gcd(static_cast<std::uint64_t>(a), static_cast<std::uint64_t>(b));
}

Int128 withSign(UInt128 size, bool negative) {
  if (size > kHighest128 + (negative ? 1 : 0)) failOutOfRange();
  return static_cast<Int128>(negative ? -size : size);
}

Int128 checkedProduct(Int128 a, Int128 b) {
  Int128 product = 0;
  if (__builtin_mul_overflow(a, b, &product)) failOutOfRange();
  return product;
}

Int128 checkedSum128(Int128 a, Int128 b) {
  Int128 sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) failOutOfRange();
  return sum;
}

Int128 negated(Int128 value) {
  Int128 result = 0;
  if (__builtin_sub_overflow(Int128{0}, value, &result)) failOutOfRange();
  return result;
}

// The divisor is 1 at least, so that the result fits whenever the value does.
Int128 commonDivisor(Int128 value, Int128 denominator) {
  return static_cast<Int128>(greatestCommonDivisor(magnitude(value), magnitude(denominator)));
}

/// A quotient rounded down and what is left, 0 or more and less than the denominator.
struct Floored {
  Int128 quotient;
  Int128 rest;
};

Floored floored(Int128 numerator, Int128 denominator) {
  const Int128 quotient = numerator / denominator;
  const Int128 rest = numerator % denominator;
  if (rest >= 0) return {quotient, rest};
  return {quotient - 1, rest + denominator};
}

std::strong_ordering ordering(Int128 a, Int128 b) {
  if (a == b) return std::strong_ordering::equal;
  return a < b ? std::strong_ordering::less : std::strong_ordering::greater;
}

// Compares a / b with c / d without a product: the whole parts first, then the remainders' reciprocals
// the other way round. Cross products of large fractions would leave 128 bits.
std::strong_ordering compareByQuotients(Int128 a, Int128 b, Int128 c, Int128 d) {
  while (true) {
    const Floored left = floored(a, b);
    const Floored right = floored(c, d);
    if (left.quotient != right.quotient) return ordering(left.quotient, right.quotient);
    if (left.rest == 0 || right.rest == 0) return ordering(left.rest, right.rest);
    a = d;
    c = b;
    b = right.rest;
    d = left.rest;
  }
}

enum class Halves { ToEven, AwayFromZero };

Int128 nearest(Int128 numerator, Int128 denominator, Halves halves) {
  const Int128 truncated = numerator / denominator;
  const UInt128 below = magnitude(numerator % denominator);
  const UInt128 above = static_cast<UInt128>(denominator) - below;
  const bool halfStays = halves == Halves::ToEven && truncated % 2 == 0;
  if (below < above || (below == above && halfStays)) return truncated;
  return truncated + (numerator < 0 ? -1 : 1);
}

template <typename Whole>
Whole narrowed(const Ratio& value) {
  const Int128 whole = nearest(value.numerator(), value.denominator(), Halves::ToEven);
  if (whole < std::numeric_limits<Whole>::min() || whole > std::numeric_limits<Whole>::max())
    failOutOfRange();
  return static_cast<Whole>(whole);
}

constexpr std::array<std::int64_t, 10> kPowersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

}  // namespace

Ratio::Ratio(Int128 numerator, Int128 denominator) : numerator_(numerator) {
  if (denominator == 1) return;
  if (denominator == 0) throw Failure(FailureKind::DivisionByZero);
  const UInt128 divisor = greatestCommonDivisor(magnitude(numerator), magnitude(denominator));
  numerator_ = withSign(magnitude(numerator) / divisor, (numerator < 0) != (denominator < 0));
  denominator_ = withSign(magnitude(denominator) / divisor, false);
}

Ratio operator+(const Ratio& a, const Ratio& b) {
  if (a.denominator_ == b.denominator_)
    return Ratio(checkedSum128(a.numerator_, b.numerator_), a.denominator_);
  const Int128 common = commonDivisor(a.denominator_, b.denominator_);
  const Int128 left = checkedProduct(a.numerator_, b.denominator_ / common);
  const Int128 right = checkedProduct(b.numerator_, a.denominator_ / common);
  return Ratio(checkedSum128(left, right), checkedProduct(a.denominator_ / common, b.denominator_));
}

Ratio operator-(const Ratio& a, const Ratio& b) {
  return a + Ratio(negated(b.numerator_), b.denominator_);
}

// Reduced across before it is multiplied: the product is then in lowest terms and as small as can be.
Ratio operator*(const Ratio& a, const Ratio& b) {
  const Int128 first = commonDivisor(a.numerator_, b.denominator_);
  const Int128 second = commonDivisor(b.numerator_, a.denominator_);
  Ratio product;
  product.numerator_ = checkedProduct(a.numerator_ / first, b.numerator_ / second);
  product.denominator_ = checkedProduct(a.denominator_ / second, b.denominator_ / first);
  return product;
}

Ratio operator/(const Ratio& a, const Ratio& b) {
  return a * Ratio(b.denominator_, b.numerator_);
}

std::strong_ordering operator<=>(const Ratio& a, const Ratio& b) {
  if (a.denominator_ == b.denominator_) return ordering(a.numerator_, b.numerator_);
  return compareByQuotients(a.numerator_, a.denominator_, b.numerator_, b.denominator_);
}

std::int64_t toWhole(const Ratio& value) {
  return narrowed<std::int64_t>(value);
}

std::int32_t toWhole32(const Ratio& value) {
  return narrowed<std::int32_t>(value);
}

std::int16_t toWhole16(const Ratio& value) {
  return narrowed<std::int16_t>(value);
}

Int128 roundedAwayFromZero(const Ratio& value, int decimals) {
  if (decimals < 0 || decimals >= static_cast<int>(kPowersOfTen.size())) failOutOfRange();
  const Int128 scale = kPowersOfTen[static_cast<std::size_t>(decimals)];
  return nearest(checkedProduct(value.numerator(), scale), value.denominator(), Halves::AwayFromZero);
}

std::int64_t wholeQuotient(const Ratio& dividend, const Ratio& divisor) {
  const std::int64_t wholeDividend = toWhole(dividend);
  const std::int64_t wholeDivisor = toWhole(divisor);
  if (wholeDivisor == 0) throw Failure(FailureKind::DivisionByZero);
  if (wholeDividend == std::numeric_limits<std::int64_t>::min() && wholeDivisor == -1) failOutOfRange();
  return wholeDividend / wholeDivisor;
}

std::int32_t checkedSum(std::int32_t a, std::int32_t b) {
  std::int32_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) failOutOfRange();
  return sum;
}

std::int32_t checkedDifference(std::int32_t a, std::int32_t b) {
  std::int32_t difference = 0;
  if (__builtin_sub_overflow(a, b, &difference)) failOutOfRange();
  return difference;
}

}  // namespace tarvik::core
