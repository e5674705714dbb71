#include "exchange/log_table.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "core/record_file.h"
#include "core/text.h"
#include "exchange/days.h"
#include "exchange/heads.h"
#include "exchange/measures.h"
#include "exchange/numbers.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

constexpr std::size_t kMostRows = 2 * std::size_t{core::kHighestRecordNumber};
constexpr std::size_t kMostCellsInAll = 2'000'000;

bool isFilled(const std::string& cell) {
  return !core::trimmed(cell).empty();
}

std::size_t filledCells(const CsvRow& row) {
  return static_cast<std::size_t>(std::ranges::count_if(row.cells, isFilled));
}

// Figures among other cells, where the row was parted at another sign than its own, are values as well.
bool isValue(std::string_view cell) {
  return isBareFigure(cell) || isFigureCell(core::trimmed(cell)) ||
         (hasDigit(cell) && (looksLikeDay(cell) || cell.find_first_of(";\t|") != std::string_view::npos));
}

// Whether a row could be the heads of any table: two cells and more, no values among them.
bool couldBeHeads(const CsvRow& row) {
  return filledCells(row) >= 2 && std::ranges::none_of(row.cells, isValue);
}

// Of a row that has one.
std::string_view firstFilled(const CsvRow& row) {
  return core::trimmed(*std::ranges::find_if(row.cells, isFilled));
}

// Marked as a comment or a title; "#1" is a number.
bool isMarked(const CsvRow& row) {
  const std::string_view text = firstFilled(row);
  return text.starts_with('#') && (text.size() < 2 || !core::isDigit(text[1]));
}

std::string titleText(const CsvRow& row) {
  std::string_view text = firstFilled(row);
  while (text.starts_with('#') || text.starts_with(' ')) text.remove_prefix(1);
  return std::string(text);
}

constexpr int kScoreOfNeeded = 100;

// How well the cells of a row serve as the heads of fill-ups: nothing without two of a day, how far the car
// had come and how much was taken.
int headScore(const CsvRow& row) {
  if (!couldBeHeads(row)) return 0;
  std::vector<HeadWord> words;
  for (const std::string& cell : row.cells)
    if (const HeadWord word = readHead(cell).word; word != HeadWord::Unknown) words.push_back(word);
  const auto hasOneOf = [&](std::initializer_list<HeadWord> list) {
    return std::ranges::find_first_of(words, list) == words.end() ? 0 : 1;
  };
  const int needed = hasOneOf({HeadWord::Day, HeadWord::Year}) +
                     hasOneOf({HeadWord::Odometer, HeadWord::Distance, HeadWord::Trip}) +
                     hasOneOf({HeadWord::Volume, HeadWord::Fuel, HeadWord::Amount});
  return needed < 2 ? 0 : kScoreOfNeeded * needed + static_cast<int>(words.size());
}

bool namesDay(const CsvRow& row) {
  return std::ranges::any_of(row.cells,
                             [](const std::string& cell) { return readHead(cell).word == HeadWord::Day; });
}

// A part of the file: its title, its heads and how many rows it has.
struct Section {
  std::string title;
  CsvRow heads;
  int score = 0;
  std::size_t rows = 0;

  std::string name() const { return title.empty() ? std::string(firstFilled(heads)) : title; }
  std::string key() const {
    std::string key;
    for (const std::string& cell : heads.cells) key += folded(cell) + '|';
    return key;
  }
};

// Cuts a file into its sections, row by row.
class Cutter {
 public:
  explicit Cutter(std::vector<CsvRow> rows) : rows_(std::move(rows)) {}

  void cut() {
    for (; at_ < rows_.size(); ++at_) place(rows_[at_]);
  }

  std::vector<Section> sections;
  std::vector<RowKind> kinds;
  std::vector<int> places;  ///< the section of each row, -1 for none

  std::vector<CsvRow> takeRows() { return std::move(rows_); }

 private:
  const CsvRow* following() const {
    for (std::size_t i = at_ + 1; i < rows_.size(); ++i)
      if (filledCells(rows_[i]) > 0) return &rows_[i];
    return nullptr;
  }

  void put(RowKind kind) {
    kinds.push_back(kind);
    places.push_back(static_cast<int>(sections.size()) - 1);
  }

  // A title stands alone in its row, and heads follow it.
  bool isTitle(const CsvRow& row) const {
    const CsvRow* next = following();
    if (filledCells(row) != 1 || next == nullptr || isValue(firstFilled(row))) return false;
    return isMarked(row) ? couldBeHeads(*next) || firstFilled(row).starts_with("##")
                         : couldBeHeads(*next) &&
                               (sections.empty() || namesDay(*next) || headScore(*next) != 0 || isApart());
  }

  bool isApart() const { return filledCells(rows_[at_ - 1]) == 0; }

  void place(const CsvRow& row) {
    if (filledCells(row) == 0) return put(RowKind::Empty);
    if (isTitle(row)) return open(row);
    if (!sections.empty() && isUnitRow(row)) return addUnits(row);
    const int score = headScore(row);
    if (isMarked(row) && score == 0) return put(RowKind::Comment);
    if (isAgain(row)) return put(RowKind::Heads);
    if (score != 0 || (couldBeHeads(row) && (isOpen_ || namesDay(row)))) return begin(row, score);
    if (!sections.empty()) ++sections.back().rows;
    put(sections.empty() || isOpen_ ? RowKind::BeforeTable : RowKind::Data);
  }

  void open(const CsvRow& row) {
    title_ = titleText(row);
    isOpen_ = true;
    kinds.push_back(RowKind::Title);
    places.push_back(-1);
  }

  void begin(const CsvRow& row, int score) {
    sections.push_back({.title = std::exchange(title_, {}), .heads = row, .score = score});
    isOpen_ = false;
    put(RowKind::Heads);
  }

  // Heads that come again, on a further page, begin no other table.
  bool isAgain(const CsvRow& row) const {
    return !isOpen_ && !sections.empty() && sections.back().heads.cells == row.cells;
  }

  // Units may stand in a row of their own below the heads.
  bool isUnitRow(const CsvRow& row) const {
    return sections.back().rows == 0 && std::ranges::all_of(row.cells, [](const std::string& cell) {
             return !isFilled(cell) || isUnitText(cell);
           });
  }

  void addUnits(const CsvRow& row) {
    std::vector<std::string>& heads = sections.back().heads.cells;
    for (std::size_t i = 0; i < std::min(heads.size(), row.cells.size()); ++i)
      if (isFilled(row.cells[i])) heads[i] += " (" + std::string(core::trimmed(row.cells[i])) + ")";
    put(RowKind::Heads);
  }

  std::vector<CsvRow> rows_;
  std::size_t at_ = 0;
  std::string title_;
  bool isOpen_ = false;
};

// How well a file reads with a separator.
struct Fit {
  int heads = 0;
  std::size_t steadyRows = 0;  // that have as many cells as most of them have, times those cells
  bool isApostrophed = false;  // most of the heads are in apostrophes

  friend auto operator<=>(const Fit&, const Fit&) = default;
};

bool isApostrophed(const std::string& cell) {
  return cell.size() >= 2 && cell.starts_with('\'') && cell.ends_with('\'');
}

Fit fitOf(std::string_view text, char separator) {
  constexpr std::size_t kEnough = 400;
  Fit fit;
  std::size_t looked = 0;
  std::map<std::size_t, std::size_t> lengths;
  readCsv(text, {.separator = separator, .quote = '"'}, [&](CsvRow&& row) {
    if (const int heads = headScore(row); heads > fit.heads) {
      fit.heads = heads;
      const auto marked = static_cast<std::size_t>(std::ranges::count_if(row.cells, isApostrophed));
      fit.isApostrophed = 2 * marked > row.cells.size();
    }
    if (row.cells.size() > 1) ++lengths[row.cells.size()];
    return ++looked <= kEnough;
  });
  for (const auto& [cells, count] : lengths)
    fit.steadyRows = std::max(fit.steadyRows, count * std::min<std::size_t>(cells, 8));
  return fit;
}

CsvShape findShape(std::string_view text, std::optional<char> given) {
  CsvShape best;
  Fit bestFit;
  for (const char separator : {';', ',', '\t', '|'}) {
    if (given && *given != separator) continue;
    const Fit fit = fitOf(text, separator);
    if (!given && fit <= bestFit) continue;
    best = {.separator = separator, .quote = fit.isApostrophed ? '\'' : '"'};
    bestFit = fit;
  }
  return best;
}

// Reads all rows; the fault that ends them goes into the table.
std::vector<CsvRow> rowsOf(std::string_view text, LogTable& table) {
  std::vector<CsvRow> rows;
  std::size_t cells = 0;
  const auto isTooMuch = [&] { return rows.size() > kMostRows || cells > kMostCellsInAll; };
  const CsvEnd end = readCsv(text, table.shape, [&](CsvRow&& row) {
    cells += row.cells.size();
    rows.push_back(std::move(row));
    return !isTooMuch();
  });
  if (isTooMuch()) table.fault = LogTable::Fault::TooManyRows;
  if (end.fault == CsvEnd::Fault::RowTooLong) table.fault = LogTable::Fault::RowTooLong;
  table.isCutInQuotes = end.fault == CsvEnd::Fault::OpenQuote;
  table.faultLine = end.line;
  return rows;
}

const Section& bestSection(const std::vector<Section>& sections) {
  return *std::ranges::max_element(sections, {}, [](const Section& found) {
    return std::tuple(found.score / kScoreOfNeeded, found.rows, found.score);
  });
}

// "Km" is a reading where another table of the same file has "Km óra".
HeadWord wordOf(const std::string& head) {
  const HeadWord word = readHead(head).word;
  return word == HeadWord::Distance ? HeadWord::Odometer : word;
}

// Whether two heads stand over the same, in the same units as far as they name any.
bool areAlike(const std::string& a, const std::string& b) {
  if (folded(a) == folded(b)) return true;
  const HeadWord word = wordOf(a);
  if (word == HeadWord::Unknown || word == HeadWord::Known || word != wordOf(b)) return false;
  const UnitHint unit = unitHintOf(a);
  const UnitHint other = unitHintOf(b);
  const auto agree = [](const auto& x, const auto& y) { return !x || !y || *x == *y; };
  const std::string money = currencyOf(a);
  const std::string otherMoney = currencyOf(b);
  return agree(unit.distance, other.distance) && agree(unit.volume, other.volume) &&
         (money.empty() || otherMoney.empty() || money == otherMoney);
}

// Where the columns of a section stand under the heads of the table; heads that only the section has come
// behind those. Nothing where it does not hold fill-ups, or counts them in other units.
std::optional<std::vector<std::size_t>> placesOf(const Section& section, std::vector<std::string>& heads) {
  constexpr int kAllNeeded = 3;
  if (section.score < kAllNeeded * kScoreOfNeeded) return std::nullopt;
  std::vector<std::size_t> places;
  std::vector<std::string> grown = heads;
  for (const std::string& head : section.heads.cells) {
    const HeadWord word = readHead(head).word;
    std::size_t place = 0;
    while (place < heads.size() &&
           (!areAlike(heads[place], head) || std::ranges::find(places, place) != places.end()))
      ++place;
    const bool isNote = word == HeadWord::Unknown || word == HeadWord::Known || word == HeadWord::Note;
    if (place == heads.size() && !isNote) return std::nullopt;
    if (place == heads.size()) {
      place = grown.size();
      grown.push_back(head);
    }
    places.push_back(place);
  }
  heads = std::move(grown);
  return places;
}

// A row of such a section under the heads of the table; cells behind its own heads stay behind all.
void rearrange(CsvRow& row, const std::vector<std::size_t>& places, std::size_t heads) {
  std::vector<std::string> cells(heads);
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    if (i < places.size())
      cells[places[i]] = std::move(row.cells[i]);
    else
      cells.push_back(std::move(row.cells[i]));
  }
  row.cells = std::move(cells);
}

// The sections that belong to the table of fill-ups: the best one, those with the same heads and those whose
// columns can be put under them.
void settleSections(Cutter& cutter, LogTable& table) {
  const Section& best = bestSection(cutter.sections);
  table.heads = best.heads.cells;
  table.hasHeads = true;
  std::vector<std::optional<std::vector<std::size_t>>> places;
  for (const Section& section : cutter.sections) places.push_back(placesOf(section, table.heads));
  std::set<std::string> titles;
  std::vector<CsvRow> rows = cutter.takeRows();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    TableRow row{std::move(rows[i]), cutter.kinds[i], {}};
    if (cutter.places[i] >= 0) {
      const auto at = static_cast<std::size_t>(cutter.places[i]);
      const Section& section = cutter.sections[at];
      const bool isSame = section.key() == best.key();
      const bool isLog = isSame || places[at];
      row.section = section.name();
      if (isLog && row.kind == RowKind::Data) titles.insert(section.title);
      if (!isLog && row.kind == RowKind::Data) row.kind = RowKind::OtherSection;
      if (!isSame && row.kind == RowKind::Data) rearrange(row.row, *places[at], table.heads.size());
    }
    table.rows.push_back(std::move(row));
  }
  table.hasSections = titles.size() > 1;
}

// A file without heads: the rows that have as many cells as most.
void takeUnheaded(std::vector<CsvRow> rows, LogTable& table) {
  std::map<std::size_t, std::size_t> lengths;
  for (const CsvRow& row : rows)
    if (filledCells(row) > 1) ++lengths[row.cells.size()];
  const auto most = std::ranges::max_element(lengths, {}, [](const auto& length) { return length.second; });
  if (most == lengths.end()) {
    table.fault = LogTable::Fault::NoTable;
    return;
  }
  const auto first =
      std::ranges::find_if(rows, [&](const CsvRow& row) { return row.cells.size() == most->first; });
  const std::size_t headsAt = static_cast<std::size_t>(first - rows.begin());
  table.hasHeads = couldBeHeads(*first);
  for (std::size_t i = 1; i <= most->first; ++i)
    table.heads.push_back(table.hasHeads ? first->cells[i - 1] : std::to_string(i) + ". oszlop");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowKind kind = filledCells(rows[i]) == 0        ? RowKind::Empty
                         : isMarked(rows[i])              ? RowKind::Comment
                         : i < headsAt                    ? RowKind::BeforeTable
                         : i == headsAt && table.hasHeads ? RowKind::Heads
                                                          : RowKind::Data;
    table.rows.push_back({std::move(rows[i]), kind, {}});
  }
}

// Objects in braces, alone or in a list, as programs exchange them: no rows of a table.
bool isJson(std::string_view text) {
  const auto takeBlanks = [&] {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  };
  takeBlanks();
  if (text.starts_with('[')) text.remove_prefix(1);
  takeBlanks();
  if (!text.starts_with('{')) return false;
  text.remove_prefix(1);
  takeBlanks();
  return text.starts_with('"') || text.starts_with('}');
}

}  // namespace

LogTable readTable(std::string_view text, std::optional<char> separator) {
  LogTable table;
  if (isJson(text)) {
    table.fault = LogTable::Fault::NoTable;
    return table;
  }
  table.shape = findShape(text, separator);
  std::vector<CsvRow> rows = rowsOf(text, table);
  if (table.fault != LogTable::Fault::None) return table;
  Cutter cutter(std::move(rows));
  cutter.cut();
  if (cutter.sections.empty())
    takeUnheaded(cutter.takeRows(), table);
  else
    settleSections(cutter, table);
  for (std::string& head : table.heads) head = std::string(core::trimmed(head));
  return table;
}

}  // namespace tarvik::exchange
