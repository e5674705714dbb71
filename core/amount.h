#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "core/ratio.h"

namespace tarvik::core {

/// A fixed-point amount of four exact decimals: litres, prices per litre, consumptions. Stored in the
/// files as a signed 64-bit integer that holds the value × 10,000.
struct Amount {
  std::int64_t tenThousandths = 0;

  /// The amount as an exact fraction.
  Ratio ratio() const { return Ratio(tenThousandths, 10'000); }
  bool isZero() const { return tenThousandths == 0; }

  friend auto operator<=>(const Amount&, const Amount&) = default;
};

/// a + b; throws Failure(OutOfRange) past 64 bits.
Amount operator+(Amount a, Amount b);

/// The nearest amount, halves to even; throws Failure(OutOfRange) past 64 bits.
Amount toAmount(const Ratio& value);

/// The amount as plain text in the Hungarian form: no groups, a decimal comma, as many decimals as
/// needed ("40,5", "400", "-0,0001").
std::string plainText(Amount amount);

}  // namespace tarvik::core
