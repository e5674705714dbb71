#include "exchange/vehicles.h"

#include <algorithm>
#include <span>
#include <utility>

#include "core/text.h"
#include "exchange/units.h"

namespace tarvik::exchange {
namespace {

// So far a reading may lie from the one before it: above it, or below where one of them was misread.
constexpr double kFurthest = 5'000;
constexpr std::size_t kNoVehicle = static_cast<std::size_t>(-1);

// A reading of a row of data, by its place among them.
struct Stop {
  std::size_t row = 0;
  core::Day day{};
  double reading = 0;
  std::size_t order = 0;  // among the stops of its name, by day and reading
};

// Stops that may be those of one car, in their order.
struct Run {
  std::vector<Stop> stops;

  double lowest() const { return std::ranges::min_element(stops, {}, &Stop::reading)->reading; }
  double highest() const { return std::ranges::max_element(stops, {}, &Stop::reading)->reading; }
};

// The rows of one name that have a day; all of them where nothing names vehicles.
struct Named {
  std::string name;
  std::vector<std::size_t> rows;
  std::vector<Stop> stops;
};

// The vehicle that a row names; empty for none.
std::string nameOf(const TableRow& row, const LogTable& table, const Reading& reading) {
  std::string name = table.hasSections ? row.section : std::string();
  for (std::size_t i = 0; i < reading.columns.size(); ++i) {
    if (reading.columns[i].meaning != Meaning::Vehicle) continue;
    const std::string_view cell = core::trimmed(row.row.cell(i));
    if (!cell.empty()) name += (name.empty() ? "" : " ") + std::string(cell);
  }
  return name;
}

std::vector<Named> namedRows(const LogTable& table, const std::vector<ColumnFacts>& facts,
                             const Reading& reading) {
  const std::size_t odometer = reading.columnOf(Meaning::Odometer);
  std::vector<Named> found;
  std::size_t place = 0;
  for (const TableRow& row : table.rows) {
    if (row.kind != RowKind::Data) continue;
    const std::size_t at = place++;
    const auto day = dayOfRow(row.row, reading);
    if (!day) continue;
    const std::string name = nameOf(row, table, reading);
    auto named = std::ranges::find(found, name, &Named::name);
    if (named == found.end()) named = found.insert(found.end(), {.name = name, .rows = {}, .stops = {}});
    named->rows.push_back(at);
    const auto figure = odometer < facts.size() ? facts[odometer].figures[at] : std::nullopt;
    if (figure.value_or(0) > 0) named->stops.push_back({.row = at, .day = *day, .reading = *figure});
  }
  return found;
}

void putInOrder(std::vector<Stop>& stops) {
  std::ranges::stable_sort(stops, {}, [](const Stop& stop) { return std::pair(stop.day, stop.reading); });
  for (std::size_t i = 0; i < stops.size(); ++i) stops[i].order = i;
}

// Puts each stop behind the nearest one that it may follow.
std::vector<Run> runsOf(const std::vector<Stop>& stops) {
  constexpr std::size_t kMost = 40;
  std::vector<Run> runs;
  for (const Stop& stop : stops) {
    Run* nearest = nullptr;
    for (Run& run : runs) {
      const double last = run.stops.back().reading;
      if (stop.reading >= last && stop.reading <= last + kFurthest &&
          (nearest == nullptr || last > nearest->stops.back().reading))
        nearest = &run;
    }
    if (nearest != nullptr)
      nearest->stops.push_back(stop);
    else if (runs.size() < kMost)
      runs.push_back({{stop}});
  }
  return runs;
}

// Whether a run goes on with another one, whose stops all stand between two of its own or behind its last: a
// little lower where a reading was corrected, or after a while that was not written down.
bool goesOn(const Run& run, const Run& other) {
  constexpr double kLongestGap = 20'000;
  const auto next = std::ranges::upper_bound(run.stops, other.stops.front().order, {}, &Stop::order);
  if (next == run.stops.begin()) return false;
  if (next != run.stops.end() && next->order < other.stops.back().order) return false;
  const double gap = other.stops.front().reading - std::prev(next)->reading;
  return gap >= -kFurthest && gap <= (next == run.stops.end() ? kLongestGap : 0);
}

void joinRuns(std::vector<Run>& runs) {
  for (std::size_t i = 0; i < runs.size(); ++i)
    for (std::size_t j = 0; j < runs.size(); ++j) {
      if (i == j || !goesOn(runs[i], runs[j])) continue;
      runs[i].stops.insert(runs[i].stops.end(), runs[j].stops.begin(), runs[j].stops.end());
      std::ranges::sort(runs[i].stops, {}, &Stop::order);
      runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(j));
      return joinRuns(runs);
    }
}

// Few stops between those of other cars are slips of the pen.
bool areSlips(const Run& run) {
  constexpr std::size_t kFewest = 3;
  const bool isUnbroken = run.stops.back().order - run.stops.front().order + 1 == run.stops.size();
  return run.stops.size() < (isUnbroken ? kFewest - 1 : kFewest);
}

// The runs of stops that cannot be those of one car, in the order of the file.
std::vector<Run> carsOf(const std::vector<Stop>& stops) {
  std::vector<Run> runs = runsOf(stops);
  joinRuns(runs);
  std::erase_if(runs, areSlips);
  std::ranges::sort(runs, {}, [](const Run& run) { return run.stops.front().row; });
  return runs;
}

// Which of the vehicles has readings nearest to that of a stop that belongs to none.
std::size_t nearestOf(std::span<const VehicleRows> vehicles, const Stop& stop) {
  const auto distance = [&](const VehicleRows& vehicle) {
    return std::max({vehicle.lowest - stop.reading, stop.reading - vehicle.highest, 0.0});
  };
  return static_cast<std::size_t>(std::ranges::min_element(vehicles, {}, distance) - vehicles.begin());
}

// One vehicle of a name, or several where its readings are those of several cars.
void addVehicles(Named named, Reading& reading) {
  putInOrder(named.stops);
  const std::vector<Run> cars = carsOf(named.stops);
  const std::size_t first = reading.vehicles.size();
  if (cars.size() < 2) {
    for (const std::size_t row : named.rows) reading.vehicleOfRow[row] = first;
    reading.vehicles.push_back({.name = std::move(named.name), .rows = named.rows.size()});
    return;
  }
  const auto put = [&](const Stop& stop, std::size_t car) {
    reading.vehicleOfRow[stop.row] = first + car;
    ++reading.vehicles[first + car].rows;
  };
  for (std::size_t car = 0; car < cars.size(); ++car) {
    reading.vehicles.push_back(
        {.name = named.name, .rows = 0, .lowest = cars[car].lowest(), .highest = cars[car].highest()});
    for (const Stop& stop : cars[car].stops) put(stop, car);
  }
  for (const Stop& stop : named.stops)
    if (reading.vehicleOfRow[stop.row] == kNoVehicle)
      put(stop, nearestOf(std::span(reading.vehicles).subspan(first), stop));
}

int wholeOf(std::string_view cell) {
  int number = 0;
  for (const char c : core::trimmed(cell)) {
    if (c == '.') continue;
    if (!core::isDigit(c) || number > 9'999) return 0;
    number = number * 10 + (c - '0');
  }
  return number;
}

}  // namespace

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
  reading.vehicleOfRow.assign(table.rows.size(), kNoVehicle);
  std::vector<Named> named = namedRows(table, facts, reading);
  if (named.size() == 1) named.front().name.clear();  // it tells nothing apart
  for (Named& one : named) addVehicles(std::move(one), reading);
  if (reading.vehicles.size() < 2) {
    reading.vehicles.clear();
    return;
  }
  const bool isAnswered = choices.vehicle && *choices.vehicle <= reading.vehicles.size();
  ask(reading, Question::Vehicle, isAnswered);
  if (isAnswered) reading.vehicle = choices.vehicle;
}

}  // namespace tarvik::exchange
