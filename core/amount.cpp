#include "core/amount.h"

#include "core/failure.h"
#include "core/number_format.h"

namespace tarvik::core {

Amount operator+(Amount a, Amount b) {
  Amount sum;
  if (__builtin_add_overflow(a.tenThousandths, b.tenThousandths, &sum.tenThousandths))
    throw Failure(FailureKind::OutOfRange);
  return sum;
}

Amount toAmount(const Ratio& value) {
  return {toWhole(value * Ratio(10'000))};
}

std::string plainText(Amount amount) {
  const bool isWhole = amount.tenThousandths % 10'000 == 0;
  return formatted(amount.ratio(), isWhole ? "0" : "0.####");
}

}  // namespace tarvik::core
