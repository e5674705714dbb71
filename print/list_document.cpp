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

constexpr int kHeadingSizePt = 12;
constexpr int kTableSizePt = 8;

constexpr int kHeadingX = 10;
constexpr int kHeadingY = 15;
constexpr int kTopRuleY = 25;
constexpr int kTitleY = 26;
constexpr int kRowHeight = 4;
constexpr int kTextToRule = 3;
constexpr int kLeftRuleX = 9;
constexpr int kRightRuleX = 280;
// As far as most printers reach.
constexpr int kPaperEnd = 292;
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

struct Column {
  const char* title;
  int textX;
  int ruleX;
  std::string (*content)(const core::NapiAdat&);
};

using Entry = core::NapiAdat;

const std::array<Column, 8> kColumns{{
    {"Dátum", 10, 9, [](const Entry& e) { return core::shortDateOfStored(e.Datum); }},
    {"Km. óra", 30, 29, [](const Entry& e) { return std::to_string(e.KmOra); }},
    {"Tankolás", 50, 49, litresText},
    {"Olajcsere", 70, 69, [](const Entry& e) { return flagText(e.Olajcsere); }},
    {"L. szűrő", 85, 84, [](const Entry& e) { return flagText(e.Szurocsere); }},
    {"Gyertya", 100, 99, [](const Entry& e) { return flagText(e.Gyertyacsere); }},
    {"Alkatrész", 115, 114, [](const Entry& e) { return e.Alkatresz.trimmed(); }},
    {"Megjegyzés", 190, 189, [](const Entry& e) { return e.Megjegyzes.asStored(); }},
}};

constexpr std::size_t kNoteColumn = kColumns.size() - 1;

// How far a cell's text may go: the last column has the rest of the paper.
int endOf(std::size_t column) {
  return column < kNoteColumn ? kColumns[column + 1].ruleX : kPaperEnd;
}

Text cell(std::size_t column, int y, std::string text) {
  const int x = kColumns[column].textX;
  return {x, y, kTableSizePt, std::move(text), endOf(column) - x};
}

// A part has the paper of the note too where there is none.
void addRow(std::vector<Text>& texts, const Entry& entry, int y) {
  for (std::size_t i = 0; i < kColumns.size(); ++i) texts.push_back(cell(i, y, kColumns[i].content(entry)));
  if (entry.Megjegyzes.isBlank()) texts[texts.size() - 2].widthMm += kPaperEnd - kColumns[kNoteColumn].ruleX;
}

Rule acrossAt(int y) {
  return {kLeftRuleX, y, kRightRuleX, y};
}

int rowY(int rowOnPage) {
  return kTitleY + kRowHeight * (rowOnPage + 1);
}

void addHead(Page& page, const std::string& heading) {
  if (!heading.empty())
    page.texts.push_back({kHeadingX, kHeadingY, kHeadingSizePt, heading, kPaperEnd - kHeadingX});
  for (std::size_t i = 0; i < kColumns.size(); ++i) page.texts.push_back(cell(i, kTitleY, kColumns[i].title));
  page.rules.push_back(acrossAt(kTopRuleY));
  page.rules.push_back(acrossAt(kTitleY + kTextToRule));
}

void addVerticalRules(Page& page) {
  const int bottom = page.rules.back().toYMm;
  for (const Column& column : kColumns) page.rules.push_back({column.ruleX, kTopRuleY, column.ruleX, bottom});
  page.rules.push_back({kRightRuleX, kTopRuleY, kRightRuleX, bottom});
}

core::Amount totalLitres(const core::Logbook& logbook, const std::vector<int>& records) {
  core::Amount total;
  for (const int number : records) total = total + logbook.record(number).TankoltLiter;
  return total;
}

}  // namespace

int pageCount(int rows) {
  return rows <= 0 ? 0 : (rows - 1) / kRowsPerPage + 1;
}

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
  addHead(page, heading_);
  addRows(page, first, end);
  addVerticalRules(page);
  if (number == pageCount()) addTotals(page, end - first);
  return page;
}

void ListDocument::addRows(Page& page, int first, int end) const {
  for (int row = first; row < end; ++row) {
    const Entry entry = logbook_.record(rows_.records[static_cast<std::size_t>(row)]);
    const int y = rowY(row - first);
    addRow(page.texts, entry, y);
    page.rules.push_back(acrossAt(y + kTextToRule));
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
