#pragma once

#include <QList>
#include <QString>

namespace tarvik::ui {

/// The value axis: from `lower` to `upper`, numbered at the multiples of a readable step between them with
/// `decimals` places.
struct ValueScale {
  double lower = 0;
  double upper = 1;
  double step = 1;
  int decimals = 0;

  /// Lists the values that carry a number and a grid line, ascending; an end is one of them when it is a
  /// multiple of the step.
  QList<double> ticks() const;
};

/// Whether an axis has to reach zero (bars and areas) or may show the values' own range (lines).
enum class Baseline { Zero, Free };

/// Fits a scale to the finite values: about `maximumSteps` steps (at least four), each 1, 2, 2.5 or 5 times a
/// power of ten, and at most a tenth of the values' span beyond the outermost one. A free baseline still
/// takes zero in when the values reach far down towards it. Without a finite value the scale runs from 0
/// to 1.
ValueScale valueScale(const QList<double>& values, Baseline baseline, int maximumSteps);

/// The number in the Hungarian form with the given decimal places: decimal comma, groups of three parted by
/// no-break spaces, no minus before a zero.
QString decimalText(double value, int decimals);

/// The number in the Hungarian form with up to four decimal places, none of them a trailing zero.
QString shortNumberText(double value);

/// The same without groups.
QString plainNumberText(double value);

}  // namespace tarvik::ui
