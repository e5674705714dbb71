#include "print/table_document.h"

#include <algorithm>
#include <utility>

namespace tarvik::print {
namespace {

constexpr int kTextToRule = 1;

}  // namespace

TableDocument::TableDocument(std::vector<std::string> heads, std::vector<std::vector<std::string>> rows,
                             std::string heading)
    : heads_(std::move(heads)), rows_(std::move(rows)), heading_(std::move(heading)) {}

int TableDocument::pageCount() const {
  return print::pageCount(static_cast<int>(rows_.size()));
}

std::vector<RuledColumn> TableDocument::columns() const {
  const int count = static_cast<int>(heads_.size());
  const auto ruleX = [&](int column) { return kLeftRuleX + (kRightRuleX - kLeftRuleX) * column / count; };
  std::vector<RuledColumn> columns;
  for (int i = 0; i < count; ++i)
    columns.push_back(
        {heads_[static_cast<std::size_t>(i)].c_str(), ruleX(i), ruleX(i + 1) - kTextToRule, i > 0});
  return columns;
}

Page TableDocument::page(int number) const {
  const std::vector<RuledColumn> columns = this->columns();
  const auto first = static_cast<std::size_t>(number - 1) * kRowsPerPage;
  const std::size_t end = std::min(first + kRowsPerPage, rows_.size());
  Page page;
  addHead(page, columns, heading_);
  for (std::size_t row = first; row < end; ++row) {
    const int onPage = static_cast<int>(row - first);
    for (std::size_t i = 0; i < columns.size(); ++i)
      page.texts.push_back(cellOf(columns[i], rowY(onPage), rows_[row][i]));
    endRow(page, onPage);
  }
  endTable(page, columns);
  return page;
}

}  // namespace tarvik::print
