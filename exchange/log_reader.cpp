#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>
#include <variant>

#include "core/text.h"
#include "exchange/cell_words.h"
#include "exchange/columns.h"
#include "exchange/heads.h"
#include "exchange/log_reader.h"
#include "exchange/own_format.h"
#include "exchange/totals.h"
#include "exchange/vehicles.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

using Why = UnreadRow::Why;

// Notes of other programs may have several lines, a list has one.
std::string onOneLine(std::string_view text) {
  std::string line(core::trimmed(text));
  std::ranges::replace_if(
      line, [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
  return std::string(core::trimmed(line));
}

void join(std::string& text, const std::string& more) {
  if (!text.empty() && !more.empty()) text += ", ";
  text += more;
}

std::string wholeText(const CsvRow& row) {
  constexpr std::size_t kLongest = 300;
  std::string text;
  for (const std::string& cell : row.cells)
    if (!core::trimmed(cell).empty() && text.size() < kLongest)
      text += (text.empty() ? "" : " | ") + onOneLine(cell);
  return text;
}

// The figures of a row in the file's own units, as far as it has them.
using RowFigures = std::map<Meaning, core::Ratio>;

core::Ratio figureIn(const RowFigures& figures, Meaning meaning) {
  const auto found = figures.find(meaning);
  return found == figures.end() ? core::Ratio() : found->second;
}

// Works a row's figures out exactly, and notes whether one became too large for that.
class Reckoning {
 public:
  core::Ratio product(const core::Ratio& a, const core::Ratio& b) {
    const auto above = product(a.numerator(), b.numerator());
    const auto below = product(a.denominator(), b.denominator());
    return isTooLarge_ ? core::Ratio() : core::Ratio(above, below);
  }
  core::Ratio quotient(const core::Ratio& a, const core::Ratio& b) {
    return product(a, {b.denominator(), b.numerator()});
  }
  bool isTooLarge() const { return isTooLarge_; }

 private:
  core::Int128 product(core::Int128 a, core::Int128 b) {
    core::Int128 product = 0;
    if (__builtin_mul_overflow(a, b, &product)) isTooLarge_ = true;
    return product;
  }

  bool isTooLarge_ = false;
};

// Whether the fields of a logbook hold a row's figures.
bool fitsLogbook(const LogRow& row) {
  return fits<std::int32_t>(row.kilometres.value_or(0)) && fits<std::int32_t>(row.trip.value_or(0)) &&
         fits<std::int64_t>(row.litres, kPartsOfAmount) && fits<std::int32_t>(row.forints) &&
         fits<std::int32_t>(row.noteForints) && fits<std::int32_t>(row.partForints);
}

class RowReader {
 public:
  RowReader(const LogTable& table, const Reading& reading) : table_(table), reading_(reading) {}

  std::variant<LogRow, UnreadRow> read(const TableRow& row, std::size_t place) const {
    if (const auto why = whyNoData(row)) return unread(row, *why, row.section, {});
    const CsvRow& cells = row.row;
    const auto day = dayOfRow(cells, reading_);
    if (!day && isTotal(cells)) return unread(row, Why::Total, {}, {});
    if (!day) return unreadDay(row);
    if (!isWanted(place)) return unread(row, Why::OtherVehicle, vehicleName(place), {});
    if (reading_.isOwn) return readOwn(row, *day);
    if (const auto fuel = otherFuel(cells)) return unread(row, Why::OtherFuel, {}, std::string(*fuel));
    if (hasStrayFigure(cells)) return unread(row, Why::TooManyCells, {}, cells.cells.back());
    auto read = readFigures(row, *day);
    if (auto* unread = std::get_if<UnreadRow>(&read)) noteTrip(cells, *day, *unread);
    return read;
  }

  // A row without a day and a reading that has the sum of the volumes above it is no fill-up.
  void noticeSum(const TableRow& row, VolumesAbove& above, std::variant<LogRow, UnreadRow>& read) const {
    auto* unread = std::get_if<UnreadRow>(&read);
    const auto volume = volumeOf(row);
    const bool isOpen =
        unread != nullptr && (unread->why == Why::NoDay || unread->why == Why::DayNotUnderstood);
    if (isOpen && volume && !hasDigit(cell(row.row, Meaning::Odometer)) && above.comeTo(*volume))
      *unread = this->unread(row, Why::Total, {}, {});
    if (unread != nullptr && unread->why == Why::Total)
      above.beginPart();
    else if (volume)
      above.add(*volume);
  }

 private:
  std::optional<double> volumeOf(const TableRow& row) const {
    const auto volume = row.kind == RowKind::Data ? figure(row.row, Meaning::Volume) : std::nullopt;
    if (!volume || !*volume) return std::nullopt;
    return static_cast<double>((*volume)->numerator()) / static_cast<double>((*volume)->denominator());
  }

  // A row that is left out was driven all the same.
  void noteTrip(const CsvRow& row, core::Day day, UnreadRow& unread) const {
    constexpr int kLongest = 100'000;
    const auto trip = figure(row, Meaning::Trip);
    if (!trip || !*trip || **trip > kLongest) return;
    unread.readDay = day;
    unread.trip = **trip * kilometresOf(distanceUnitOf(row));
  }

  static std::optional<Why> whyNoData(const TableRow& row) {
    switch (row.kind) {
      case RowKind::Data:
        return std::nullopt;
      case RowKind::Empty:
        return Why::Empty;
      case RowKind::Heads:
        return Why::Heads;
      case RowKind::Title:
        return Why::Title;
      case RowKind::Comment:
        return Why::Comment;
      case RowKind::BeforeTable:
        return Why::BeforeTable;
      case RowKind::OtherSection:
        return Why::OtherSection;
    }
    return std::nullopt;
  }

  // Of several columns of a meaning the one that the row has something in, else the first; past the columns
  // for none.
  std::size_t columnOf(const CsvRow& row, Meaning meaning) const {
    const std::size_t first = reading_.columnOf(meaning);
    for (std::size_t i = first; i < reading_.columns.size(); ++i)
      if (reading_.columns[i].meaning == meaning && !core::trimmed(row.cell(i)).empty()) return i;
    return first;
  }

  std::string_view cell(const CsvRow& row, Meaning meaning) const {
    const std::size_t column = columnOf(row, meaning);
    if (column >= reading_.columns.size()) return {};
    const std::string_view text = core::trimmed(row.cell(column));
    return std::ranges::find(kFigures, meaning) == kFigures.end() ? text : withoutRemark(text);
  }

  UnreadRow unread(const TableRow& row, Why why, std::string head, std::string cellText) const {
    UnreadRow unread{.line = row.row.line, .why = why, .head = std::move(head), .cell = std::move(cellText)};
    unread.text = wholeText(row.row);
    if (row.kind != RowKind::Data) return unread;
    unread.day = onOneLine(cell(row.row, Meaning::Day));
    unread.odometer =
        onOneLine(cell(row.row, reading_.has(Meaning::Odometer) ? Meaning::Odometer : Meaning::Trip));
    unread.volume = onOneLine(cell(row.row, Meaning::Volume));
    unread.cost = onOneLine(cell(row.row, Meaning::TotalCost));
    return unread;
  }

  UnreadRow unreadCell(const TableRow& row, Why why, std::size_t column) const {
    const bool isThere = column < reading_.columns.size();
    return unread(row, why, isThere ? reading_.columns[column].head : std::string(),
                  isThere ? std::string(core::trimmed(row.row.cell(column))) : std::string());
  }

  UnreadRow unreadDay(const TableRow& row) const {
    const Meaning meaning = reading_.has(Meaning::Day) ? Meaning::Day : Meaning::DayOfMonth;
    return unreadCell(row, cell(row.row, meaning).empty() ? Why::NoDay : Why::DayNotUnderstood,
                      reading_.columnOf(meaning));
  }

  bool isWanted(std::size_t place) const {
    return !reading_.vehicle || *reading_.vehicle >= reading_.vehicles.size() ||
           reading_.vehicleOfRow[place] == *reading_.vehicle;
  }

  // Empty where only the readings tell vehicles apart.
  std::string vehicleName(std::size_t place) const {
    const std::size_t vehicle = reading_.vehicleOfRow[place];
    return vehicle < reading_.vehicles.size() ? reading_.vehicles[vehicle].name : std::string();
  }

  // What a row took in that is no fuel in litres, if a cell names it: alone, or in a column that is not for
  // notes beside other words.
  std::optional<std::string_view> otherFuel(const CsvRow& row) const {
    if (!hasDigit(cell(row, Meaning::Volume))) return std::nullopt;
    for (std::size_t i = 0; i < reading_.columns.size(); ++i) {
      const std::string_view text = core::trimmed(row.cell(i));
      const bool isNote = reading_.columns[i].meaning == Meaning::Note;
      if (isNote ? isOtherFuel(text) : namesOtherFuel(text)) return text;
    }
    return std::nullopt;
  }

  // A figure behind the last head comes of a decimal comma that was taken for a separator.
  bool hasStrayFigure(const CsvRow& row) const {
    const auto behind = std::span(row.cells).subspan(std::min(table_.heads.size(), row.cells.size()));
    return table_.shape.separator == ',' && std::ranges::any_of(behind, isFigureCell);
  }

  // Nothing for an empty cell; one without a digit ("-", "n/a") is as good as empty.
  std::optional<std::optional<core::Ratio>> figure(const CsvRow& row, Meaning meaning) const {
    const std::string_view text = cell(row, meaning);
    if (!hasDigit(text)) return std::nullopt;
    auto value =
        isFigureCell(text) ? readFigure(text, reading_.columns[columnOf(row, meaning)].sign) : std::nullopt;
    if (value && *value < 0) value.reset();
    return value;
  }

  std::variant<LogRow, UnreadRow> readFigures(const TableRow& row, core::Day day) const {
    RowFigures figures;
    for (const Meaning meaning : kFigures) {
      const auto found = figure(row.row, meaning);
      if (found && !*found) return unreadCell(row, Why::FigureNotUnderstood, columnOf(row.row, meaning));
      if (found) figures[meaning] = **found;
    }
    LogRow read{.line = row.row.line, .day = day};
    if (namesService(cell(row.row, Meaning::Kind))) figures.erase(Meaning::Volume);
    if (!convert(row.row, figures, read) || !fitsLogbook(read))
      return unreadCell(row, Why::FigureTooLarge, reading_.columnOf(Meaning::Volume));
    if (!read.litres.isZero() && !read.kilometres && !read.trip)
      return unreadCell(row, Why::NoOdometer,
                        std::min(reading_.columnOf(Meaning::Odometer), reading_.columnOf(Meaning::Trip)));
    readWords(row.row, read);
    if (!hasAnything(read)) return unreadCell(row, Why::NothingInIt, reading_.columnOf(Meaning::Volume));
    return read;
  }

  static bool hasAnything(const LogRow& read) {
    return !read.litres.isZero() || !read.forints.isZero() || !read.noteForints.isZero() ||
           !read.partForints.isZero() || read.isOilChange || read.isFilterChange || read.isPlugChange ||
           !read.note.empty() || !read.part.empty();
  }

  // False where a figure is too large to be worked out.
  [[nodiscard]] bool convert(const CsvRow& row, const RowFigures& figures, LogRow& read) const {
    Reckoning reckoning;
    const core::Ratio kilometres = kilometresOf(distanceUnitOf(row));
    if (const auto odometer = figures.find(Meaning::Odometer); odometer != figures.end())
      read.kilometres = reckoning.product(odometer->second, kilometres);
    const auto trip = figures.find(Meaning::Trip);
    if (trip != figures.end() && !reading_.has(Meaning::Odometer))
      read.trip = reckoning.product(trip->second, kilometres);
    core::Ratio volume = figureIn(figures, Meaning::Volume);
    core::Ratio price = reckoning.quotient(figureIn(figures, Meaning::UnitPrice), reading_.priceShare);
    if (reading_.priceVolume)
      price = reckoning.product(price, litresOf(volumeUnitOf(row)) / litresOf(*reading_.priceVolume));
    core::Ratio cost = figureIn(figures, Meaning::TotalCost);
    const bool isService = namesService(cell(row, Meaning::Kind));
    if (volume.isZero() && !cost.isZero() && !price.isZero() && !reading_.has(Meaning::Volume) && !isService)
      volume = reckoning.quotient(cost, price);
    if (cost.isZero()) cost = reckoning.product(price, volume);
    const core::Ratio rate = rateOf(row);
    const core::Ratio noteCost = figureIn(figures, Meaning::NoteCost);
    read.litres = reckoning.product(volume, litresOf(volumeUnitOf(row)));
    read.forints = volume.isZero() ? 0 : reckoning.product(cost, rate);
    read.noteForints = reckoning.product(volume.isZero() ? noteCost + cost : noteCost, rate);
    read.partForints = reckoning.product(figureIn(figures, Meaning::PartCost), rate);
    return !reckoning.isTooLarge();
  }

  DistanceUnit distanceUnitOf(const CsvRow& row) const {
    for (const Meaning meaning : {Meaning::DistanceUnit, Meaning::Odometer, Meaning::Trip})
      if (const auto unit = unitHintOf(cell(row, meaning)).distance) return *unit;
    return reading_.distance;
  }

  VolumeUnit volumeUnitOf(const CsvRow& row) const {
    for (const Meaning meaning : {Meaning::VolumeUnit, Meaning::Volume}) {
      const UnitHint hint = unitHintOf(cell(row, meaning));
      if (!hint.volume) continue;
      return hint.isGallonOpen && reading_.volume != VolumeUnit::Litre ? reading_.volume : *hint.volume;
    }
    return reading_.volume;
  }

  core::Ratio rateOf(const CsvRow& row) const {
    std::string currency;
    for (const Meaning meaning : {Meaning::Currency, Meaning::TotalCost, Meaning::UnitPrice})
      if (currency.empty() && !reading_.isCurrencySaid)
        currency = isBareDollar(cell(row, meaning)) ? reading_.dollar : currencyOf(cell(row, meaning));
    const std::size_t cost = columnOf(row, Meaning::TotalCost);
    if (currency.empty() && cost != reading_.columnOf(Meaning::TotalCost))
      currency = currencyOf(reading_.columns[cost].head);
    if (currency.empty()) currency = reading_.currency;
    const auto found = reading_.rates.find(currency);
    return found == reading_.rates.end() ? core::Ratio(1) : found->second;
  }

  bool isFull(const CsvRow& row) const {
    if (!reading_.saysWhichAreFull) return true;
    const std::string_view text = cell(row, reading_.has(Meaning::Full) ? Meaning::Full : Meaning::Partial);
    const std::string key = folded(text);
    for (const FullWord& word : reading_.fullWords)
      if (word.word == text || (!key.empty() && folded(word.word) == key)) return word.isFull.value_or(false);
    return false;
  }

  static bool isFilledIn(std::string_view text) { return !text.empty() && text != "-" && text != "–"; }

  static bool saysMissed(std::string_view text) {
    if (const auto answer = yesOrNo(text)) return *answer;
    if (folded(text).empty()) return isFilledIn(text);  // a mark
    return wholeHead(folded(text)) == HeadWord::Missed ||
           text.find_first_of("123456789") != std::string_view::npos;
  }

  // "x", "igen", "csere".
  bool saysChanged(const CsvRow& row, Meaning meaning) const {
    const std::string_view text = cell(row, meaning);
    return yesOrNo(text).value_or(isFilledIn(text));
  }

  void readWords(const CsvRow& row, LogRow& read) const {
    const bool isFuelling = !read.litres.isZero();
    read.isFull = isFuelling && isFull(row);
    read.isAfterMissed = isFuelling && saysMissed(cell(row, Meaning::Missed));
    read.isDamaged = std::ranges::any_of(
        row.cells, [](const std::string& text) { return text.find("\xEF\xBF\xBD") != std::string::npos; });
    read.part = onOneLine(cell(row, Meaning::Part));
    read.isOilChange = saysChanged(row, Meaning::OilChange);
    read.isFilterChange = saysChanged(row, Meaning::FilterChange);
    read.isPlugChange = saysChanged(row, Meaning::PlugChange);
    read.note = onOneLine(cell(row, Meaning::Description));
    for (std::size_t i = 0; i < reading_.columns.size(); ++i)
      if (reading_.columns[i].meaning == Meaning::Note) join(read.note, onOneLine(row.cell(i)));
    if (read.note.empty() && !isFuelling && !namesFuelling(cell(row, Meaning::Kind)))
      read.note = onOneLine(cell(row, Meaning::Kind));
    // What only its column's head names: "Szervizköltség".
    if (read.note.empty() && !isFuelling && hasDigit(cell(row, Meaning::NoteCost)))
      read.note = onOneLine(reading_.columns[reading_.columnOf(Meaning::NoteCost)].head);
  }

  std::variant<LogRow, UnreadRow> readOwn(const TableRow& row, core::Day day) const {
    OwnRow own = readOwnRow(row.row, reading_, day);
    if (own.fault) return unreadCell(row, Why::FigureNotUnderstood, *own.fault);
    return LogRow{.line = row.row.line,
                  .day = day,
                  .kilometres = core::Ratio(own.entry.KmOra),
                  .litres = own.entry.TankoltLiter.ratio(),
                  .note = std::move(own.note),
                  .part = std::move(own.part),
                  .own = own.entry};
  }

  const LogTable& table_;
  const Reading& reading_;
};

}  // namespace

bool UnreadRow::mayBeFillUp() const {
  constexpr auto kNone =
      std::to_array<Why>({Why::NothingInIt, Why::OtherFuel, Why::Total, Why::OtherVehicle, Why::OtherSection,
                          Why::Heads, Why::Title, Why::Comment, Why::BeforeTable, Why::Empty});
  return std::ranges::find(kNone, why) == kNone.end() && (hasDigit(volume) || why == Why::TooManyCells);
}

LogRows readRows(const LogTable& table, const Reading& reading) {
  const RowReader reader(table, reading);
  VolumesAbove above;
  LogRows rows;
  std::size_t place = 0;
  for (const TableRow& row : table.rows) {
    auto read = reader.read(row, place);
    reader.noticeSum(row, above, read);
    if (row.kind == RowKind::Data) ++place;
    if (auto* unread = std::get_if<UnreadRow>(&read))
      rows.unread.push_back(std::move(*unread));
    else
      rows.rows.push_back(std::get<LogRow>(std::move(read)));
  }
  return rows;
}

}  // namespace tarvik::exchange
