#pragma once

#include <span>
#include <string>

#include "print/page.h"

namespace tarvik::print {

// The ruled table on the pages of all print-outs: a heading, the columns' titles, rows from the top.

/// Rows on a full page; every page holds as many, the first one too.
inline constexpr int kRowsPerPage = 40;
/// The size of the table's letters, points.
inline constexpr int kTableSizePt = 8;
/// Where the table begins and ends, in millimetres from the paper's left edge.
inline constexpr int kLeftRuleX = 9;
inline constexpr int kRightRuleX = 280;
/// As far as most printers reach.
inline constexpr int kPaperEnd = 292;

/// A column of the table.
struct RuledColumn {
  const char* title = "";
  int ruleX = 0;          ///< the rule at its left, millimetres
  int end = 0;            ///< how far its texts may go, millimetres
  bool isFigure = false;  ///< whether its texts stand at the right
};

/// How many pages that many rows take; none for no rows.
int pageCount(int rows);

/// The text of a cell, its top at that height.
Text cellOf(const RuledColumn& column, int yMm, std::string text);

/// The top of a row, counted from 0; rows behind the last stand below the table.
int rowY(int rowOnPage);

/// Puts the heading, where there is one, and the titles on a page.
void addHead(Page& page, std::span<const RuledColumn> columns, const std::string& heading);
/// Draws the rule below a row, once its cells are on the page.
void endRow(Page& page, int rowOnPage);
/// Draws the rules between the columns, once all rows are on the page.
void endTable(Page& page, std::span<const RuledColumn> columns);

}  // namespace tarvik::print
