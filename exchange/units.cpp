#include "exchange/units.h"

#include <algorithm>
#include <array>

#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

std::string currencyStated(const LogTable& table, const std::vector<ColumnFacts>& facts,
                           const Reading& reading) {
  for (const Meaning meaning :
       {Meaning::Currency, Meaning::TotalCost, Meaning::UnitPrice, Meaning::NoteCost}) {
    const std::size_t column = reading.columnOf(meaning);
    if (column >= facts.size()) continue;
    if (std::string currency = currencyOf(table.heads[column]); !currency.empty()) return currency;
    for (const std::string_view cell : facts[column].cells)
      if (std::string currency = currencyOf(cell); !currency.empty()) return currency;
  }
  return {};
}

// What a column states of units: its head, else the first of its cells that says something.
UnitHint hintOf(const LogTable& table, const std::vector<ColumnFacts>& facts, std::size_t column) {
  if (column >= facts.size()) return {};
  if (const UnitHint hint = unitHintOf(table.heads[column]); hint.distance || hint.volume) return hint;
  for (const std::string_view cell : facts[column].cells)
    if (const UnitHint hint = unitHintOf(cell); hint.distance || hint.volume) return hint;
  return {};
}

bool namesMpg(const LogTable& table) {
  return std::ranges::any_of(
      table.heads, [](const std::string& head) { return folded(head).find("MPG") != std::string::npos; });
}

// What the heads of the other columns, such as that of a consumption, state.
UnitHint hintOfOthers(const LogTable& table) {
  UnitHint all;
  for (const std::string& head : table.heads) {
    const UnitHint hint = unitHintOf(head);
    if (!all.distance) all.distance = hint.distance;
    if (!all.volume) {
      all.volume = hint.volume;
      all.isGallonOpen = hint.isGallonOpen;
    }
  }
  return all;
}

// The hints on distance and volume, the nearest first.
UnitHint statedHint(const LogTable& table, const std::vector<ColumnFacts>& facts, const Reading& reading) {
  UnitHint all;
  std::vector<UnitHint> hints;
  for (const Meaning meaning : {Meaning::DistanceUnit, Meaning::Odometer, Meaning::Trip, Meaning::VolumeUnit,
                                Meaning::Volume, Meaning::UnitPrice})
    hints.push_back(hintOf(table, facts, reading.columnOf(meaning)));
  hints.push_back(hintOfOthers(table));
  for (const UnitHint& hint : hints) {
    if (!all.distance) all.distance = hint.distance;
    if (all.volume || !hint.volume) continue;
    all.volume = hint.volume;
    all.isGallonOpen = hint.isGallonOpen;
  }
  return all;
}

// Litres per hundred kilometres from one row to the next, in the middle; nothing where there is no telling.
// There are volumes, and readings or distances.
std::optional<double> middleConsumption(const std::vector<ColumnFacts>& facts, const Reading& reading) {
  const std::size_t volume = reading.columnOf(Meaning::Volume);
  const std::size_t odometer = reading.columnOf(Meaning::Odometer);
  const std::size_t trip = reading.columnOf(Meaning::Trip);
  std::vector<std::pair<double, double>> fills;
  const ColumnFacts& distances = facts[std::min(odometer, trip)];
  for (std::size_t i = 0; i < distances.figures.size(); ++i)
    if (distances.figures[i] && facts[volume].figures[i] && *facts[volume].figures[i] > 0)
      fills.emplace_back(*distances.figures[i], *facts[volume].figures[i]);
  std::ranges::sort(fills);
  std::vector<double> found;
  const bool areTrips = trip < odometer;
  for (std::size_t i = areTrips ? 0 : 1; i < fills.size(); ++i) {
    const double distance = fills[i].first - (areTrips ? 0 : fills[i - 1].first);
    if (distance > 0) found.push_back(fills[i].second / distance * 100);
  }
  if (found.empty()) return std::nullopt;
  std::ranges::sort(found);
  const core::Ratio units = litresOf(reading.volume) / kilometresOf(reading.distance);
  return found[found.size() / 2] * static_cast<double>(units.numerator()) /
         static_cast<double>(units.denominator());
}

// Whether units that nobody stated give what most cars use; others are asked about.
bool isPlausible(std::optional<double> consumption) {
  constexpr double kLeast = 3.5;
  constexpr double kMost = 12.5;
  return !consumption || (*consumption >= kLeast && *consumption <= kMost);
}

// Whose gallon prices are of that only say "gallon": other heads or the money tell. Nothing where they do
// not.
std::optional<VolumeUnit> gallonOf(const LogTable& table, const std::string& currency) {
  for (const std::string& head : table.heads)
    if (const UnitHint hint = unitHintOf(head);
        hint.volume && *hint.volume != VolumeUnit::Litre && !hint.isGallonOpen)
      return hint.volume;
  if (currency == "USD") return VolumeUnit::UsGallon;
  return currency == "GBP" ? std::optional(VolumeUnit::UkGallon) : std::nullopt;
}

// Prices may be of another unit than the volumes ("price per gallon" beside litres). Such a column is not
// needed where it is open which.
void findPriceVolume(const LogTable& table, const std::vector<ColumnFacts>& facts,
                     const std::string& currency, Reading& reading) {
  const std::size_t column = reading.columnOf(Meaning::UnitPrice);
  const UnitHint price = hintOf(table, facts, column);
  const bool areGallons = reading.volume != VolumeUnit::Litre;
  if (!price.volume || *price.volume == reading.volume || (price.isGallonOpen && areGallons)) return;
  reading.priceVolume = price.isGallonOpen ? gallonOf(table, currency) : price.volume;
  if (!reading.priceVolume) reading.columns[column].meaning = Meaning::NotNeeded;
}

bool isEnglishColumn(const LogTable& table, std::size_t column) {
  return !table.hasHeads || isEnglishHead(table.heads[column]);
}

}  // namespace

void ask(Reading& reading, Question question, bool isAnswered) {
  reading.asked.push_back(question);
  if (!isAnswered) reading.open.push_back(question);
}

void findUnits(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
               Reading& reading) {
  const UnitHint stated = statedHint(table, facts, reading);
  const std::size_t distances =
      std::min(reading.columnOf(Meaning::Odometer), reading.columnOf(Meaning::Trip));
  if (distances >= facts.size() || reading.columnOf(Meaning::Volume) >= facts.size()) return;
  const std::string currency = currencyStated(table, facts, reading);
  const bool isEnglish = isEnglishColumn(table, distances);
  const bool hasGallons = stated.volume && *stated.volume != VolumeUnit::Litre;
  reading.distance = choices.distance.value_or(stated.distance.value_or(DistanceUnit::Kilometre));
  reading.volume = choices.volume.value_or(stated.volume.value_or(VolumeUnit::Litre));
  findPriceVolume(table, facts, currency, reading);
  const bool isVolumeOpen = !stated.volume && !isMoneyOfLitres(currency) &&
                            !(stated.distance == DistanceUnit::Kilometre) && (isEnglish || namesMpg(table));
  bool isDistanceOpen =
      !stated.distance && (hasGallons || namesMpg(table) || (isEnglish && !isMoneyOfKilometres(currency)));
  if (!isDistanceOpen && !stated.distance && !isVolumeOpen)
    isDistanceOpen = !isPlausible(middleConsumption(facts, reading));
  if (stated.isGallonOpen) ask(reading, Question::Gallon, choices.volume.has_value());
  if (isVolumeOpen) ask(reading, Question::VolumeUnit, choices.volume.has_value());
  if (isDistanceOpen) ask(reading, Question::DistanceUnit, choices.distance.has_value());
  const bool isDistanceKnown = !isDistanceOpen || choices.distance;
  if (!stated.volume && !isVolumeOpen && isDistanceKnown && !isPlausible(middleConsumption(facts, reading)))
    ask(reading, Question::VolumeUnit, choices.volume.has_value());
}

}  // namespace tarvik::exchange
