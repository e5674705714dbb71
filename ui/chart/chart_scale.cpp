#include "ui/chart/chart_scale.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

namespace tarvik::ui {
namespace {

constexpr int kAmountDecimals = 4;
// Shares of the values' span that an axis reaches beyond them.
constexpr double kLeastAir = 0.03;
constexpr double kAir = 0.05;
constexpr double kMostAir = 0.1;
// With fewer, a scale might show a single number.
constexpr int kFewestSteps = 4;
constexpr double kTolerance = 1e-9;

struct Range {
  double lower;
  double upper;
};

Range finiteRange(const QList<double>& values) {
  Range range{HUGE_VAL, -HUGE_VAL};
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    range.lower = std::min(range.lower, value);
    range.upper = std::max(range.upper, value);
  }
  return range.lower > range.upper ? Range{} : range;
}

// A line may leave zero out only while its values stay within the farther 60 % of the way from it.
bool staysAwayFromZero(const Range& range) {
  if (range.lower == range.upper) return false;
  return range.lower > 0.4 * range.upper || range.upper < 0.4 * range.lower;
}

Range covered(Range range, Baseline baseline) {
  const bool free = baseline == Baseline::Free && staysAwayFromZero(range);
  if (!free) range = {std::min(range.lower, 0.0), std::max(range.upper, 0.0)};
  if (range.lower == range.upper) range.upper = 1;
  return range;
}

double readableStep(double smallest) {
  const double power = std::pow(10.0, std::floor(std::log10(smallest)));
  for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
    if (factor * power >= smallest * (1 - kTolerance)) return factor * power;
  }
  return 10 * power;
}

int decimalsOf(double step) {
  int decimals = 0;
  for (double scaled = step; decimals < 9 && std::abs(scaled - std::round(scaled)) > 1e-6 * scaled;
       scaled *= 10) {
    ++decimals;
  }
  return decimals;
}

// Where an axis ends beyond its outermost value: on the next step when that is near, so that a grid line
// closes the plot, and else after a little air, so that the point's marker is not cut and no room is wasted.
double endBeyond(double value, double step, double span) {
  if (value == 0) return 0;
  const double next = std::ceil(value / step) * step;
  const bool isNear = next >= value + span * kLeastAir && next <= value + span * kMostAir;
  return isNear ? next : value + span * kAir;
}

}  // namespace

QList<double> ValueScale::ticks() const {
  QList<double> values;
  const auto first = std::llround(std::ceil(lower / step - kTolerance));
  const auto last = std::llround(std::floor(upper / step + kTolerance));
  for (auto index = first; index <= last; ++index) values.append(static_cast<double>(index) * step);
  return values;
}

ValueScale valueScale(const QList<double>& values, Baseline baseline, int maximumSteps) {
  const Range range = covered(finiteRange(values), baseline);
  const double span = range.upper - range.lower;
  ValueScale scale;
  scale.step = readableStep(span / std::max(maximumSteps, kFewestSteps));
  scale.lower = -endBeyond(-range.lower, scale.step, span);
  scale.upper = endBeyond(range.upper, scale.step, span);
  scale.decimals = decimalsOf(scale.step);
  return scale;
}

QString decimalText(double value, int decimals) {
  const QLocale hungarian(QLocale::Hungarian, QLocale::Hungary);
  const QString text = hungarian.toString(value, 'f', decimals);
  const QString zero = hungarian.toString(0.0, 'f', decimals);
  return text == hungarian.negativeSign() + zero ? zero : text;
}

QString shortNumberText(double value) {
  QString text = decimalText(value, kAmountDecimals);
  while (text.endsWith('0')) text.chop(1);
  if (text.endsWith(',')) text.chop(1);
  return text;
}

QString plainNumberText(double value) {
  return shortNumberText(value).remove(QChar::Nbsp);
}

}  // namespace tarvik::ui
