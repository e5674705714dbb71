#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/day.h"
#include "core/listing.h"
#include "core/napi_adat.h"
#include "exchange/csv_rows.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// A table of texts to be written: heads and rows of as many cells.
struct TextTable {
  std::vector<std::string> heads;
  std::vector<std::vector<std::string>> rows;
};

/// The table as a CSV file in UTF-8: a mark at its beginning, semicolons, CR LF, quotes where RFC 4180 asks
/// for them and around outer spaces. Texts that a spreadsheet would compute are made harmless.
std::string csvOf(const TextTable& table);

/// The table as a spreadsheet takes it from the clipboard: tabs and line feeds, quotes where needed, without
/// a mark. Texts are made harmless as for csvOf. Without heads when there are none.
std::string tabbedOf(const TextTable& table);

/// The listed entries with every field, as csvOf writes them: ISO days, decimal commas, "igen" and "nem".
std::string csvOf(const core::Listing& listing);

/// The day of a stored date as "2013-07-05"; empty when it holds none.
std::string isoDay(double stored);

/// A text that a spreadsheet takes for a text: an apostrophe stands before one that begins (spaces and
/// apostrophes aside) with = + - @, a tab or a line break. restored gives the text back.
std::string harmless(std::string text);
std::string restored(std::string text);

/// Whether these are the heads of a file that csvOf wrote of a listing, as a spreadsheet may have left them:
/// most of them, in any order, and others between.
bool areOwnHeads(const std::vector<std::string>& heads);

/// What the columns under such heads are; those that csvOf does not write are not needed.
std::vector<Meaning> ownMeanings(const std::vector<std::string>& heads);

/// A row under such heads as csvOf writes it: its columns in their order, what is missing with nothing in it,
/// days and figures in csvOf's form.
CsvRow ownRow(const CsvRow& row, const Reading& reading, core::Day day);

/// Where a file has the column that csvOf writes at that place; columns.size() for nowhere.
std::size_t ownColumn(const Reading& reading, std::size_t place);

/// The entry of a row as csvOf writes it, field for field, the consumption too; nothing where a cell is not
/// so, and column tells which then.
std::optional<core::NapiAdat> ownEntry(const CsvRow& row, std::size_t& column);

/// The texts of such a row whole, as somebody may have changed them: the entry keeps what fits its fields.
struct OwnTexts {
  std::string part;
  std::string note;
};
OwnTexts ownTexts(const CsvRow& row);

}  // namespace tarvik::exchange
