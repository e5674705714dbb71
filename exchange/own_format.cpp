#include "exchange/own_format.h"

#include <algorithm>
#include <array>
#include <variant>

#include "core/day.h"
#include "core/number_text.h"
#include "core/text.h"
#include "exchange/days.h"
#include "exchange/numbers.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

using core::NapiAdat;

constexpr std::string_view kMark = "\xEF\xBB\xBF";

using Text = core::FixedText<50>;
using Field = std::variant<double NapiAdat::*, std::int32_t NapiAdat::*, core::Amount NapiAdat::*,
                           std::int16_t NapiAdat::*, Text NapiAdat::*>;

// A column of the file, in which a field of the record stands by the field's type: a day, a whole number, an
// amount, a flag or a text.
struct OwnColumn {
  std::string_view head;
  Meaning meaning;
  Field field;
};

constexpr auto kColumns =
    std::to_array<OwnColumn>({{"Dátum", Meaning::Day, &NapiAdat::Datum},
                              {"Km óra állás", Meaning::Odometer, &NapiAdat::KmOra},
                              {"Liter", Meaning::Volume, &NapiAdat::TankoltLiter},
                              {"Tankolt költség (Ft)", Meaning::TotalCost, &NapiAdat::TankoltKtg},
                              {"Üzemanyag ár (Ft/liter)", Meaning::UnitPrice, &NapiAdat::FtPerLiter},
                              {"Tele tankolva", Meaning::Full, &NapiAdat::Teletank},
                              {"Olajcsere", Meaning::OilChange, &NapiAdat::Olajcsere},
                              {"Szűrőbetét csere", Meaning::FilterChange, &NapiAdat::Szurocsere},
                              {"Gyertya csere", Meaning::PlugChange, &NapiAdat::Gyertyacsere},
                              {"Alkatrész megnevezése", Meaning::Part, &NapiAdat::Alkatresz},
                              {"Alkatrész költség (Ft)", Meaning::PartCost, &NapiAdat::AlkatreszKtg},
                              {"Megjegyzés", Meaning::Note, &NapiAdat::Megjegyzes},
                              {"Megjegyzés költsége (Ft)", Meaning::NoteCost, &NapiAdat::MegjKtg},
                              {"Fogyasztás (liter/100 km)", Meaning::Consumption, &NapiAdat::Fogyasztas}});

constexpr std::string_view kYes = "igen";
constexpr std::string_view kNo = "nem";

// Whether a spreadsheet would compute a text, or would without the apostrophes before it.
bool isFormula(std::string_view text) {
  const std::size_t first = text.find_first_not_of("' ");
  return first != std::string_view::npos &&
         std::string_view("=+-@\t\r\n").find(text[first]) != std::string_view::npos;
}

bool needsQuotes(std::string_view cell, char separator) {
  const bool hasOuterSpace = cell.starts_with(' ') || cell.ends_with(' ');
  return hasOuterSpace || cell.find(separator) != std::string_view::npos ||
         cell.find_first_of("\"\r\n\t") != std::string_view::npos;
}

void appendCell(std::string& file, std::string_view cell, char separator) {
  if (!needsQuotes(cell, separator)) {
    file += cell;
    return;
  }
  file += '"';
  for (const char c : cell) {
    if (c == '"') file += '"';
    file += c;
  }
  file += '"';
}

void appendRow(std::string& file, const std::vector<std::string>& cells, char separator,
               std::string_view lineEnd) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) file += separator;
    appendCell(file, cells[i], separator);
  }
  file += lineEnd;
}

// A figure below zero is no text, whatever it begins with.
std::vector<std::string> harmlessCells(std::vector<std::string> cells) {
  for (std::string& cell : cells)
    if (!cell.starts_with('-') || !isBareFigure(cell)) cell = harmless(std::move(cell));
  return cells;
}

std::string twoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string cellOf(double day) {
  return isoDay(day);
}
std::string cellOf(std::int32_t number) {
  return std::to_string(number);
}
std::string cellOf(core::Amount amount) {
  return core::plainText(amount);
}
std::string cellOf(std::int16_t flag) {
  if (flag == core::kFlagSet) return std::string(kYes);
  return flag == 0 ? std::string(kNo) : std::to_string(flag);
}
// With the spaces at its beginning, which the padding at its end is not.
std::string cellOf(const Text& text) {
  std::string stored = text.asStored();
  stored.erase(stored.find_last_not_of(' ') + 1);
  return harmless(std::move(stored));
}

std::vector<std::string> cellsOf(const NapiAdat& entry) {
  std::vector<std::string> cells;
  for (const OwnColumn& column : kColumns)
    cells.push_back(std::visit([&](auto field) { return cellOf(entry.*field); }, column.field));
  return cells;
}

// A figure as a spreadsheet may leave it: a point for the decimal comma, or nothing at all.
std::optional<core::Ratio> numberIn(std::string_view cell) {
  std::string text(core::trimmed(cell));
  if (text.empty()) return core::Ratio(0);
  if (text.find(',') == std::string::npos) std::ranges::replace(text, '.', ',');
  return core::localeNumber(text);
}

// False where a cell is not as cellOf writes it.
bool readCell(std::string_view cell, double& day) {
  const auto read = readDay(cell, DayOrder::YearFirst);
  if (read) day = core::toStored(*read);
  return read.has_value();
}
bool readCell(std::string_view cell, std::int32_t& number) {
  const auto read = numberIn(cell);
  if (!read || !fits<std::int32_t>(*read)) return false;
  number = core::toWhole32(*read);
  return true;
}
bool readCell(std::string_view cell, core::Amount& amount) {
  const auto read = numberIn(cell);
  if (!read || !fits<std::int64_t>(*read, kPartsOfAmount)) return false;
  amount = core::toAmount(*read);
  return true;
}
bool readCell(std::string_view cell, std::int16_t& flag) {
  const std::string word = folded(cell);
  const bool isYes = isListed(word, "IGEN, IGAZ, TRUE");
  if (isYes || isListed(word, "NEM, HAMIS, FALSE")) {
    flag = core::toFlag(isYes);
    return true;
  }
  const auto read = numberIn(cell);
  if (!read || !fits<std::int16_t>(*read)) return false;
  flag = core::toWhole16(*read);
  return true;
}
bool readCell(std::string_view cell, Text& text) {
  text = Text(restored(std::string(cell)));
  return true;
}

// As it is shown while a fill is typed, in whole hundredths.
core::Amount priceOf(std::int32_t cost, const core::Ratio& litres) {
  constexpr std::int64_t kPartsOfAHundredth = 100;
  const auto hundredths = core::roundedAwayFromZero(core::Ratio(cost) / litres, 2);
  return {static_cast<std::int64_t>(hundredths) * kPartsOfAHundredth};
}

}  // namespace

std::string isoDay(double stored) {
  const auto day = core::dayFromStored(stored);
  if (!day) return {};
  const auto [year, month, dayOfMonth] = core::calendarDate(*day);
  const std::string digits = std::to_string(year);
  return std::string(4 - digits.size(), '0') + digits + "-" + twoDigits(month) + "-" + twoDigits(dayOfMonth);
}

std::string harmless(std::string text) {
  if (isFormula(text)) text.insert(text.begin(), '\'');
  return text;
}

std::string restored(std::string text) {
  if (text.starts_with('\'') && isFormula(text)) text.erase(text.begin());
  return text;
}

std::string csvOf(const TextTable& table) {
  std::string file(kMark);
  appendRow(file, table.heads, ';', "\r\n");
  for (const auto& row : table.rows) appendRow(file, harmlessCells(row), ';', "\r\n");
  return file;
}

std::string tabbedOf(const TextTable& table) {
  std::string text;
  if (!table.heads.empty()) appendRow(text, table.heads, '\t', "\n");
  for (const auto& row : table.rows) appendRow(text, harmlessCells(row), '\t', "\n");
  return text;
}

std::string csvOf(const core::Listing& listing) {
  std::vector<std::string> heads;
  for (const OwnColumn& column : kColumns) heads.emplace_back(column.head);
  std::string file(kMark);
  appendRow(file, heads, ';', "\r\n");
  for (int row = 0; row < listing.rows(); ++row) appendRow(file, cellsOf(listing.entry(row)), ';', "\r\n");
  return file;
}

bool areOwnHeads(const std::vector<std::string>& heads) {
  constexpr std::ptrdiff_t kEnough = 10;
  return std::ranges::count_if(kColumns, [&](const OwnColumn& column) {
           return std::ranges::find(heads, column.head) != heads.end();
         }) >= kEnough;
}

std::vector<Meaning> ownMeanings(const std::vector<std::string>& heads) {
  std::vector<Meaning> meanings(heads.size(), Meaning::NotNeeded);
  for (const auto& [head, meaning, field] : kColumns) {
    const auto found = std::ranges::find(heads, head);
    if (found != heads.end()) meanings[static_cast<std::size_t>(found - heads.begin())] = meaning;
  }
  return meanings;
}

OwnRow readOwnRow(const CsvRow& row, const Reading& reading, core::Day day) {
  OwnRow own;
  for (const OwnColumn& column : kColumns) {
    const std::size_t at = reading.columnOf(column.meaning);
    std::string cell = at < reading.columns.size() ? std::string(row.cell(at)) : std::string();
    if (column.meaning == Meaning::Day) cell = isoDay(core::toStored(day));
    const auto read = [&](auto field) { return readCell(cell, own.entry.*field); };
    if (!std::visit(read, column.field)) own.fault = own.fault.value_or(at);
    if (column.meaning == Meaning::Part) own.part = restored(cell);
    if (column.meaning == Meaning::Note) own.note = restored(cell);
  }
  const core::Ratio litres = own.entry.TankoltLiter.ratio();
  if (!reading.has(Meaning::UnitPrice) && litres > 0)
    own.entry.FtPerLiter = priceOf(own.entry.TankoltKtg, litres);
  return own;
}

}  // namespace tarvik::exchange
