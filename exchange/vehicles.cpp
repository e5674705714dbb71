#include "exchange/vehicles.h"

#include <algorithm>

#include "core/text.h"
#include "exchange/units.h"

namespace tarvik::exchange {
namespace {

// A reading of a row of data, by its place among them.
struct Stop {
  std::size_t row = 0;
  core::Day day{};
  double reading = 0;
};

// Stops that may be those of one car.
struct Run {
  std::vector<Stop> stops;

  double lowest() const { return stops.front().reading; }
  double highest() const { return stops.back().reading; }
};

std::vector<Stop> stopsOf(const LogTable& table, const std::vector<ColumnFacts>& facts,
                          const Reading& reading) {
  std::vector<Stop> stops;
  const std::size_t column = reading.columnOf(Meaning::Odometer);
  if (column >= facts.size()) return stops;
  const std::vector<const CsvRow*> rows = dataRows(table);
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (const auto day = dayOfRow(*rows[i], reading); day && facts[column].figures[i])
      stops.push_back({i, *day, *facts[column].figures[i]});
  std::ranges::stable_sort(stops, [](const Stop& a, const Stop& b) {
    return a.day != b.day ? a.day < b.day : a.reading < b.reading;
  });
  return stops;
}

// Puts each stop behind the nearest one that it may follow.
std::vector<Run> runsOf(const std::vector<Stop>& stops) {
  constexpr double kFurthest = 5'000;
  constexpr std::size_t kMost = 40;
  std::vector<Run> runs;
  for (const Stop& stop : stops) {
    Run* nearest = nullptr;
    for (Run& run : runs) {
      const double step = stop.reading - run.highest();
      if (step >= 0 && step <= kFurthest && (nearest == nullptr || run.highest() > nearest->highest()))
        nearest = &run;
    }
    if (nearest != nullptr)
      nearest->stops.push_back(stop);
    else if (runs.size() < kMost)
      runs.push_back({{stop}});
  }
  return runs;
}

// Runs of which one goes on where the other ended are those of one car that was not written down for a while.
void joinRuns(std::vector<Run>& runs) {
  constexpr double kLongestGap = 20'000;
  for (std::size_t i = 0; i < runs.size(); ++i)
    for (std::size_t j = 0; j < runs.size(); ++j) {
      if (i == j) continue;
      const double gap = runs[j].lowest() - runs[i].highest();
      if (runs[i].stops.back().day > runs[j].stops.front().day || gap < 0 || gap > kLongestGap) continue;
      runs[i].stops.insert(runs[i].stops.end(), runs[j].stops.begin(), runs[j].stops.end());
      runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(j));
      return joinRuns(runs);
    }
}

// The run whose readings lie nearest to a stop that belongs to none of its own.
std::size_t nearestRun(const std::vector<Run>& runs, double reading) {
  const auto distance = [&](const Run& run) {
    return std::max({run.lowest() - reading, reading - run.highest(), 0.0});
  };
  return static_cast<std::size_t>(std::ranges::min_element(runs, {}, distance) - runs.begin());
}

void findRuns(const LogTable& table, const std::vector<ColumnFacts>& facts, Reading& reading) {
  constexpr std::size_t kFewest = 3;  // fewer are slips of the pen
  const std::vector<Stop> stops = stopsOf(table, facts, reading);
  std::vector<Run> runs = runsOf(stops);
  std::erase_if(runs, [](const Run& run) { return run.stops.size() < kFewest && run.stops.size() > 0; });
  joinRuns(runs);
  if (runs.size() < 2) return;
  std::ranges::sort(runs, {}, [](const Run& run) { return run.stops.front().row; });
  reading.vehicleOfRow.assign(dataRows(table).size(), runs.size());
  for (const Run& run : runs)
    reading.vehicles.push_back({.name = {}, .rows = 0, .lowest = run.lowest(), .highest = run.highest()});
  for (const Stop& stop : stops) {
    const std::size_t run = nearestRun(runs, stop.reading);
    reading.vehicleOfRow[stop.row] = run;
    ++reading.vehicles[run].rows;
  }
}

void countNamed(const LogTable& table, Reading& reading) {
  for (const TableRow& row : table.rows) {
    if (row.kind != RowKind::Data || !dayOfRow(row.row, reading)) continue;
    std::string name = vehicleOf(row, table, reading);
    const auto found = std::ranges::find(reading.vehicles, name, &VehicleRows::name);
    if (found != reading.vehicles.end())
      ++found->rows;
    else
      reading.vehicles.push_back({.name = std::move(name), .rows = 1});
  }
}

int wholeOf(std::string_view cell) {
  int number = 0;
  for (const char c : core::trimmed(cell)) {
    if (c == '.') continue;
    if (c < '0' || c > '9' || number > 9'999) return 0;
    number = number * 10 + (c - '0');
  }
  return number;
}

}  // namespace

std::string vehicleOf(const TableRow& row, const LogTable& table, const Reading& reading) {
  std::string name = table.hasSections ? row.section : std::string();
  for (std::size_t i = 0; i < reading.columns.size(); ++i) {
    if (reading.columns[i].meaning != Meaning::Vehicle) continue;
    const std::string_view cell = core::trimmed(row.row.cell(i));
    if (!cell.empty()) name += (name.empty() ? "" : " ") + std::string(cell);
  }
  return name;
}

std::optional<core::Day> dayOfRow(const CsvRow& row, const Reading& reading) {
  if (const std::size_t day = reading.columnOf(Meaning::Day); day < reading.columns.size())
    return readDay(row.cell(day), reading.dayOrder);
  if (!reading.has(Meaning::Year) || !reading.has(Meaning::Month) || !reading.has(Meaning::DayOfMonth))
    return std::nullopt;
  const auto month = readMonth(row.cell(reading.columnOf(Meaning::Month)));
  const int year = wholeOf(row.cell(reading.columnOf(Meaning::Year)));
  if (!month || year == 0) return std::nullopt;
  return core::existingDay(
      {year < 100 ? 2'000 + year : year, *month, wholeOf(row.cell(reading.columnOf(Meaning::DayOfMonth)))});
}

void findVehicles(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
                  Reading& reading) {
  if (table.hasSections || reading.has(Meaning::Vehicle)) countNamed(table, reading);
  if (reading.vehicles.size() < 2) {
    reading.vehicles.clear();
    findRuns(table, facts, reading);
  }
  if (reading.vehicles.size() < 2) return;
  const bool isAnswered = choices.vehicle && *choices.vehicle <= reading.vehicles.size();
  ask(reading, Question::Vehicle, isAnswered);
  if (isAnswered) reading.vehicle = choices.vehicle;
}

}  // namespace tarvik::exchange
