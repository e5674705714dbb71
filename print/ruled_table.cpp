#include "print/ruled_table.h"

#include <utility>

namespace tarvik::print {
namespace {

constexpr int kHeadingSizePt = 12;
constexpr int kHeadingX = 10;
constexpr int kHeadingY = 15;
constexpr int kTopRuleY = 25;
constexpr int kTitleY = 26;
constexpr int kRowHeight = 4;
constexpr int kTextToRule = 3;
constexpr int kRuleToText = 1;

Rule acrossAt(int y) {
  return {kLeftRuleX, y, kRightRuleX, y};
}

}  // namespace

int pageCount(int rows) {
  return rows <= 0 ? 0 : (rows - 1) / kRowsPerPage + 1;
}

Text cellOf(const RuledColumn& column, int yMm, std::string text) {
  const int x = column.ruleX + kRuleToText;
  return {x, yMm, kTableSizePt, std::move(text), column.end - x, column.isFigure};
}

int rowY(int rowOnPage) {
  return kTitleY + kRowHeight * (rowOnPage + 1);
}

void addHead(Page& page, std::span<const RuledColumn> columns, const std::string& heading) {
  if (!heading.empty())
    page.texts.push_back({kHeadingX, kHeadingY, kHeadingSizePt, heading, kPaperEnd - kHeadingX});
  for (const RuledColumn& column : columns) page.texts.push_back(cellOf(column, kTitleY, column.title));
  page.rules.push_back(acrossAt(kTopRuleY));
  page.rules.push_back(acrossAt(kTitleY + kTextToRule));
}

void endRow(Page& page, int rowOnPage) {
  page.rules.push_back(acrossAt(rowY(rowOnPage) + kTextToRule));
}

void endTable(Page& page, std::span<const RuledColumn> columns) {
  const int bottom = page.rules.back().toYMm;
  for (const RuledColumn& column : columns)
    page.rules.push_back({column.ruleX, kTopRuleY, column.ruleX, bottom});
  page.rules.push_back({kRightRuleX, kTopRuleY, kRightRuleX, bottom});
}

}  // namespace tarvik::print
