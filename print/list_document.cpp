#include "print/list_document.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "core/day.h"
#include "core/listing.h"
#include "core/number_format.h"
#include "core/number_text.h"

namespace tarvik::print {
namespace {

constexpr int kTotalsX = 50;

constexpr std::size_t kLitresWidth = 9;

// The figure with spaces before it up to nine characters, so that litres stand roughly in line.
std::string litresText(const core::NapiAdat& entry) {
  const std::string figure = core::literText(entry);
  return std::string(kLitresWidth - std::min(kLitresWidth, figure.size()), ' ') + figure;
}

std::string flagText(std::int16_t flag) {
  return flag == core::kFlagSet ? "   csere" : " ";
}

using Entry = core::NapiAdat;

// The last column has the rest of the paper.
constexpr std::array<RuledColumn, 8> kColumns{{{"Dátum", 9, 29},
                                               {"Km. óra", 29, 49},
                                               {"Tankolás", 49, 69},
                                               {"Olajcsere", 69, 84},
                                               {"L. szűrő", 84, 99},
                                               {"Gyertya", 99, 114},
                                               {"Alkatrész", 114, 189},
                                               {"Megjegyzés", 189, kPaperEnd}}};

std::array<std::string, kColumns.size()> cellsOf(const Entry& entry) {
  return {core::shortDateOfStored(entry.Datum),
          std::to_string(entry.KmOra),
          litresText(entry),
          flagText(entry.Olajcsere),
          flagText(entry.Szurocsere),
          flagText(entry.Gyertyacsere),
          entry.Alkatresz.trimmed(),
          entry.Megjegyzes.asStored()};
}

// A part has the paper of the note too where there is none.
void addRow(std::vector<Text>& texts, const Entry& entry, int y) {
  auto cells = cellsOf(entry);
  for (std::size_t i = 0; i < cells.size(); ++i) texts.push_back(cellOf(kColumns[i], y, std::move(cells[i])));
  if (entry.Megjegyzes.isBlank()) texts[texts.size() - 2].widthMm += kPaperEnd - kColumns.back().ruleX;
}

core::Amount totalLitres(const core::Logbook& logbook, const std::vector<int>& records) {
  core::Amount total;
  for (const int number : records) total = total + logbook.record(number).TankoltLiter;
  return total;
}

}  // namespace

ListDocument::ListDocument(const core::Logbook& logbook, ListedRows rows, std::string heading)
    : logbook_(logbook),
      rows_(std::move(rows)),
      heading_(std::move(heading)),
      litres_(totalLitres(logbook, rows_.records)) {}

int ListDocument::pageCount() const {
  return print::pageCount(static_cast<int>(rows_.records.size()));
}

Page ListDocument::page(int number) const {
  const int first = (number - 1) * kRowsPerPage;
  const int end = std::min(first + kRowsPerPage, static_cast<int>(rows_.records.size()));
  Page page;
  addHead(page, kColumns, heading_);
  addRows(page, first, end);
  endTable(page, kColumns);
  if (number == pageCount()) addTotals(page, end - first);
  return page;
}

void ListDocument::addRows(Page& page, int first, int end) const {
  for (int row = first; row < end; ++row) {
    const Entry entry = logbook_.record(rows_.records[static_cast<std::size_t>(row)]);
    addRow(page.texts, entry, rowY(row - first));
    endRow(page, row - first);
  }
}

// The distance is first minus last, so that it is negative on paper when the oldest row is first.
void ListDocument::addTotals(Page& page, int rowsOnPage) const {
  const core::Ratio distance = core::plainNumber(rows_.firstKmOra) - core::plainNumber(rows_.lastKmOra);
  const auto add = [&](int y, std::string text) {
    page.texts.push_back({kTotalsX, y, kTableSizePt, std::move(text), kRightRuleX - kTotalsX});
  };
  add(rowY(rowsOnPage), "Kilométer összesen: " + core::formatted(distance, "### ###") + " km.");
  add(rowY(rowsOnPage + 1),
      "Tankolás összesen:  " + core::formatted(litres_.ratio(), "### ###.00") + " liter");
}

}  // namespace tarvik::print
