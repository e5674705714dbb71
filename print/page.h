#pragma once

#include <string>
#include <vector>

namespace tarvik::print {

// Lengths on paper are whole millimetres, counted from the upper left corner of an A4 sheet in landscape
// (297 × 210 mm). Nothing here knows a printer: whoever has one paints these pages on it.

/// One line of text.
struct Text {
  int xMm = 0;             ///< left edge of the text
  int yMm = 0;             ///< top of the text
  int sizePt = 0;          ///< size of the letters, points
  std::string text;        ///< UTF-8; leading spaces count, they align figures
  int widthMm = 0;         ///< the room up to what stands beside it; a longer text gets narrower letters
  bool isAtRight = false;  ///< whether it ends where its room does

  friend bool operator==(const Text&, const Text&) = default;
};

/// One straight rule, horizontal or vertical, between two points.
struct Rule {
  int fromXMm = 0;
  int fromYMm = 0;
  int toXMm = 0;
  int toYMm = 0;

  friend bool operator==(const Rule&, const Rule&) = default;
};

/// What stands on one sheet.
struct Page {
  std::vector<Text> texts;  ///< heading, column titles, rows from the top, totals
  std::vector<Rule> rules;  ///< the horizontal ones from the top, then the vertical ones from the left
};

}  // namespace tarvik::print
