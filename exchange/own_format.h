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

/// A row under such heads.
struct OwnRow {
  core::NapiAdat entry{};  ///< field for field, the consumption too
  std::string part{};      ///< whole, as somebody may have changed it: the entry keeps what fits its field
  std::string note{};
  std::optional<std::size_t> fault{};  ///< the first column whose cell is not as csvOf writes it
};

/// Reads a row of a day; what is missing has nothing in it, and figures are taken as a spreadsheet leaves
/// them.
OwnRow readOwnRow(const CsvRow& row, const Reading& reading, core::Day day);

}  // namespace tarvik::exchange
