#include "exchange/own_format.h"

#include <algorithm>
#include <array>
#include <limits>

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

constexpr std::array<std::string_view, 14> kHeads = {"Dátum",
                                                     "Km óra állás",
                                                     "Liter",
                                                     "Tankolt költség (Ft)",
                                                     "Üzemanyag ár (Ft/liter)",
                                                     "Tele tankolva",
                                                     "Olajcsere",
                                                     "Szűrőbetét csere",
                                                     "Gyertya csere",
                                                     "Alkatrész megnevezése",
                                                     "Alkatrész költség (Ft)",
                                                     "Megjegyzés",
                                                     "Megjegyzés költsége (Ft)",
                                                     "Fogyasztás (liter/100 km)"};

constexpr std::size_t kPartColumn = 9;
constexpr std::size_t kNoteColumn = 11;

constexpr auto kMeaningsOfHeads = std::to_array<Meaning>(
    {Meaning::Day, Meaning::Odometer, Meaning::Volume, Meaning::TotalCost, Meaning::UnitPrice, Meaning::Full,
     Meaning::OilChange, Meaning::FilterChange, Meaning::PlugChange, Meaning::Part, Meaning::PartCost,
     Meaning::Note, Meaning::NoteCost, Meaning::Consumption});

constexpr std::string_view kYes = "igen";
constexpr std::string_view kNo = "nem";

// Where the part of a text begins that a spreadsheet would compute; npos where it has none.
std::size_t computedFrom(std::string_view text) {
  const std::size_t first = text.find_first_not_of("' ");
  if (first == std::string_view::npos) return first;
  return std::string_view("=+-@\t\r\n").find(text[first]) == std::string_view::npos ? std::string_view::npos
                                                                                    : first;
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

std::string flagText(std::int16_t flag) {
  if (flag == core::kFlagSet) return std::string(kYes);
  return flag == 0 ? std::string(kNo) : std::to_string(flag);
}

// The text of a record with the spaces at its beginning, which the padding at its end is not.
std::string textOf(const core::FixedText<50>& text) {
  std::string stored = text.asStored();
  stored.erase(stored.find_last_not_of(' ') + 1);
  return harmless(std::move(stored));
}

std::vector<std::string> cellsOf(const NapiAdat& entry) {
  return {isoDay(entry.Datum),
          std::to_string(entry.KmOra),
          core::plainText(entry.TankoltLiter),
          std::to_string(entry.TankoltKtg),
          core::plainText(entry.FtPerLiter),
          flagText(entry.Teletank),
          flagText(entry.Olajcsere),
          flagText(entry.Szurocsere),
          flagText(entry.Gyertyacsere),
          textOf(entry.Alkatresz),
          std::to_string(entry.AlkatreszKtg),
          textOf(entry.Megjegyzes),
          std::to_string(entry.MegjKtg),
          core::plainText(entry.Fogyasztas)};
}

bool isFlagPlace(std::size_t place) {
  constexpr std::size_t kFirst = 5;
  constexpr std::size_t kLast = 8;
  return place >= kFirst && place <= kLast;
}

// A cell as it was written: a spreadsheet may have put a point for the decimal comma, a space between the
// groups or nothing at all.
std::string ownCell(std::string cell, std::size_t place, bool isThere) {
  if (place == kPartColumn || place == kNoteColumn) return cell;
  cell = std::string(core::trimmed(cell));
  if (cell.empty()) return isFlagPlace(place) ? std::string(kNo) : isThere || place != 1 ? "0" : "";
  if (isFlagPlace(place) && (folded(cell) == "IGEN" || folded(cell) == "TRUE" || folded(cell) == "IGAZ"))
    return std::string(kYes);
  if (isFlagPlace(place) && (folded(cell) == "NEM" || folded(cell) == "FALSE" || folded(cell) == "HAMIS"))
    return std::string(kNo);
  if (cell.find(',') == std::string::npos) std::ranges::replace(cell, '.', ',');
  return cell;
}

// A figure that lies within the limits of a field, both of them in it.
std::optional<core::Ratio> numberWithin(std::string_view cell, const core::Ratio& lowest,
                                        const core::Ratio& highest) {
  const auto number = core::localeNumber(cell);
  return number && *number >= lowest && *number <= highest ? number : std::nullopt;
}

// Reads the cells of a row one after the other, and notes the first that is not as it was written.
class OwnRow {
 public:
  explicit OwnRow(const CsvRow& row) : row_(row) {}

  std::optional<std::size_t> fault() const { return fault_; }

  double day() {
    const auto day = readDay(next(), DayOrder::DayFirst);
    return core::toStored(day ? *day : missing<core::Day>());
  }
  std::int32_t whole() {
    const auto number = numberWithin(next(), std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max());
    return core::toWhole32(number ? *number : missing<core::Ratio>());
  }
  core::Amount amount() {
    constexpr core::Int128 kUnits = 10'000;
    const auto number = numberWithin(next(), {std::numeric_limits<std::int64_t>::min(), kUnits},
                                     {std::numeric_limits<std::int64_t>::max(), kUnits});
    return core::toAmount(number ? *number : missing<core::Ratio>());
  }
  std::int16_t flag() {
    const std::string_view cell = next();
    if (cell == kYes || cell == kNo) return core::toFlag(cell == kYes);
    const auto number = numberWithin(cell, std::numeric_limits<std::int16_t>::min(),
                                     std::numeric_limits<std::int16_t>::max());
    return core::toWhole16(number ? *number : missing<core::Ratio>());
  }
  core::FixedText<50> text() { return core::FixedText<50>(restored(std::string(next()))); }

 private:
  std::string_view next() { return row_.cell(following_++); }

  template <typename Value>
  Value missing() {
    if (!fault_) fault_ = following_ - 1;
    return {};
  }

  const CsvRow& row_;
  std::optional<std::size_t> fault_;
  std::size_t following_ = 0;
};

NapiAdat readEntry(OwnRow& row) {
  NapiAdat entry;
  entry.Datum = row.day();
  entry.KmOra = row.whole();
  entry.TankoltLiter = row.amount();
  entry.TankoltKtg = row.whole();
  entry.FtPerLiter = row.amount();
  entry.Teletank = row.flag();
  entry.Olajcsere = row.flag();
  entry.Szurocsere = row.flag();
  entry.Gyertyacsere = row.flag();
  entry.Alkatresz = row.text();
  entry.AlkatreszKtg = row.whole();
  entry.Megjegyzes = row.text();
  entry.MegjKtg = row.whole();
  entry.Fogyasztas = row.amount();
  return entry;
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
  if (computedFrom(text) != std::string::npos) text.insert(text.begin(), '\'');
  return text;
}

std::string restored(std::string text) {
  if (text.starts_with('\'') && computedFrom(std::string_view(text).substr(1)) != std::string::npos)
    text.erase(text.begin());
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
  std::string file(kMark);
  appendRow(file, {kHeads.begin(), kHeads.end()}, ';', "\r\n");
  for (int row = 0; row < listing.rows(); ++row) appendRow(file, cellsOf(listing.entry(row)), ';', "\r\n");
  return file;
}

bool areOwnHeads(const std::vector<std::string>& heads) {
  constexpr std::ptrdiff_t kEnough = 10;
  const auto isThere = [&](std::string_view own) { return std::ranges::find(heads, own) != heads.end(); };
  return std::ranges::count_if(kHeads, isThere) >= kEnough;
}

std::vector<Meaning> ownMeanings(const std::vector<std::string>& heads) {
  std::vector<Meaning> meanings(heads.size(), Meaning::NotNeeded);
  for (std::size_t i = 0; i < kHeads.size(); ++i) {
    const auto found = std::ranges::find(heads, kHeads[i]);
    if (found != heads.end()) meanings[static_cast<std::size_t>(found - heads.begin())] = kMeaningsOfHeads[i];
  }
  return meanings;
}

std::size_t ownColumn(const Reading& reading, std::size_t place) {
  return place < kMeaningsOfHeads.size() ? reading.columnOf(kMeaningsOfHeads[place]) : reading.columns.size();
}

CsvRow ownRow(const CsvRow& row, const Reading& reading, core::Day day) {
  CsvRow own{.line = row.line, .cells = {isoDay(core::toStored(day))}};
  for (std::size_t place = 1; place < kHeads.size(); ++place) {
    const std::size_t column = ownColumn(reading, place);
    const bool isThere = column < reading.columns.size();
    own.cells.push_back(ownCell(isThere ? std::string(row.cell(column)) : std::string(), place, isThere));
  }
  return own;
}

OwnTexts ownTexts(const CsvRow& row) {
  return {.part = restored(std::string(row.cell(kPartColumn))),
          .note = restored(std::string(row.cell(kNoteColumn)))};
}

std::optional<NapiAdat> ownEntry(const CsvRow& row, std::size_t& column) {
  OwnRow reader(row);
  const NapiAdat entry = readEntry(reader);
  if (!reader.fault()) return entry;
  column = *reader.fault();
  return std::nullopt;
}

}  // namespace tarvik::exchange
