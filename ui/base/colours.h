#pragma once

#include <QColor>

namespace tarvik::ui {

/// A colour between two; share 0 is the first, 1 the second.
inline QColor between(const QColor& first, const QColor& second, double share) {
  const auto mixed = [share](int a, int b) { return static_cast<int>(a + (b - a) * share + 0.5); };
  return {mixed(first.red(), second.red()), mixed(first.green(), second.green()),
          mixed(first.blue(), second.blue())};
}

}  // namespace tarvik::ui
