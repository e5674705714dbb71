#include "exchange/reading.h"

#include <algorithm>

#include "exchange/columns.h"
#include "exchange/own_format.h"
#include "exchange/units.h"
#include "exchange/vehicles.h"

namespace tarvik::exchange {
namespace {

void readColumns(const LogTable& table, const std::vector<ColumnFacts>& facts,
                 const std::vector<Meaning>& meanings, Reading& reading) {
  for (std::size_t i = 0; i < table.heads.size(); ++i)
    reading.columns.push_back({table.heads[i], meanings[i], facts[i].sign});
}

// The sign that a person sees as the file's: that of the volumes, else of any other figures.
void showSign(Reading& reading) {
  for (const Meaning meaning : {Meaning::Volume, Meaning::UnitPrice, Meaning::TotalCost, Meaning::Odometer})
    if (reading.has(meaning)) {
      reading.sign = reading.columns[reading.columnOf(meaning)].sign;
      return;
    }
}

void findDayOrder(const std::vector<ColumnFacts>& facts, const Choices& choices, Reading& reading) {
  const std::size_t day = reading.columnOf(Meaning::Day);
  if (day >= facts.size()) return;
  const std::size_t odometer = reading.columnOf(Meaning::Odometer);
  std::vector<DatedReading> rows;
  for (std::size_t i = 0; i < facts[day].cells.size(); ++i)
    rows.push_back(
        {facts[day].cells[i], odometer < facts.size() ? facts[odometer].figures[i] : std::nullopt});
  const ShownDayOrder shown = shownDayOrder(rows);
  reading.dayOrder = choices.dayOrder.value_or(shown.order());
  if (!shown.isCertain()) ask(reading, Question::DayOrder, choices.dayOrder.has_value());
}

void askForColumns(Reading& reading) {
  const bool hasDay =
      reading.has(Meaning::Day) ||
      (reading.has(Meaning::Year) && reading.has(Meaning::Month) && reading.has(Meaning::DayOfMonth));
  const bool hasVolume =
      reading.has(Meaning::Volume) || (reading.has(Meaning::TotalCost) && reading.has(Meaning::UnitPrice));
  if (!hasDay) ask(reading, Question::DayColumn, false);
  if (!reading.has(Meaning::Odometer) && !reading.has(Meaning::Trip))
    ask(reading, Question::OdometerColumn, false);
  if (!hasVolume) ask(reading, Question::VolumeColumn, false);
}

// Of columns that lack what the first ones ask for, nothing else is asked.
void askForUnknown(const ProposedMeanings& proposed, Reading& reading) {
  if (!reading.open.empty()) return;
  if (proposed.priceColumn) ask(reading, Question::Price, false);
  if (proposed.unknownColumn && !proposed.priceColumn) ask(reading, Question::UnknownColumn, false);
  if (!reading.open.empty())
    reading.unknownColumn = proposed.priceColumn ? proposed.priceColumn : proposed.unknownColumn;
}

bool isSignOpen(const std::vector<ColumnFacts>& facts, const Reading& reading) {
  for (std::size_t i = 0; i < facts.size(); ++i)
    if (facts[i].isSignOpen && std::ranges::find(kFigures, reading.columns[i].meaning) != kFigures.end())
      return true;
  return false;
}

Reading ownReading(const LogTable& table, const Choices& choices) {
  Reading reading;
  reading.isOwn = true;
  const std::vector<ColumnFacts> facts = lookAt(table, choices.sign);
  std::vector<Meaning> meanings = ownMeanings(table.heads);
  for (const auto& [column, meaning] : choices.columns)
    if (column < meanings.size()) meanings[column] = meaning;
  readColumns(table, facts, meanings, reading);
  reading.hasCosts = true;
  reading.currency = kForint;
  reading.saysWhichAreFull = true;
  showSign(reading);
  askForColumns(reading);
  findDayOrder(facts, choices, reading);
  return reading;
}

}  // namespace

std::size_t Reading::columnOf(Meaning meaning) const {
  const auto found = std::ranges::find(columns, meaning, &ColumnReading::meaning);
  return static_cast<std::size_t>(found - columns.begin());
}

bool Reading::isOpen(Question question) const {
  return std::ranges::find(open, question) != open.end();
}

Reading understand(const LogTable& table, const Choices& choices) {
  if (areOwnHeads(table.heads)) return ownReading(table, choices);
  Reading reading;
  const std::vector<ColumnFacts> facts = lookAt(table, choices.sign);
  const ProposedMeanings proposed = proposeMeanings(facts, choices.columns);
  readColumns(table, facts, proposed.meanings, reading);
  askForColumns(reading);
  askForUnknown(proposed, reading);
  findDayOrder(facts, choices, reading);
  showSign(reading);
  if (isSignOpen(facts, reading)) ask(reading, Question::DecimalSign, choices.sign.has_value());
  findUnits(table, facts, choices, reading);
  findFullWords(facts, choices, reading);
  findVehicles(table, facts, choices, reading);
  if (choices.tripStart && fits<std::int32_t>(choices.tripStart->reading))
    reading.tripStart = choices.tripStart;
  if (reading.has(Meaning::Trip) && !reading.has(Meaning::Odometer))
    ask(reading, Question::TripStart, reading.tripStart.has_value());
  findMoney(table, facts, choices, reading);
  std::ranges::sort(reading.open);
  return reading;
}

}  // namespace tarvik::exchange
