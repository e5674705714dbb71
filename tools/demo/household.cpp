#include "tools/demo/household.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "core/number_text.h"
#include "core/ratio.h"

namespace tarvik::demo {
namespace {

using core::Day;

Day day(int year, int month, int dayOfMonth) {
  return core::dayOf({year, month, dayOfMonth});
}

std::int32_t wholeCell(const std::string& cell) {
  return core::toWhole32(core::plainNumber(cell));
}

Event fillUpOfLine(const std::string& line) {
  std::istringstream cells(line);
  std::string date, km, litres, cost, full;
  std::getline(cells, date, ',');
  std::getline(cells, km, ',');
  std::getline(cells, litres, ',');
  std::getline(cells, cost, ',');
  if (!std::getline(cells, full) || date.size() != 10) throw std::runtime_error("no fill-up: " + line);
  Event event;
  event.day = day(wholeCell(date.substr(0, 4)), wholeCell(date.substr(5, 2)), wholeCell(date.substr(8, 2)));
  event.km = wholeCell(km);
  event.litres = core::toAmount(core::plainNumber(litres));
  event.fuelCost = wholeCell(cost);
  event.isFull = full.starts_with('1');
  return event;
}

std::vector<Event> fillUpsOfFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);  // the column names
  std::vector<Event> fillUps;
  while (std::getline(file, line)) fillUps.push_back(fillUpOfLine(line));
  if (fillUps.empty()) throw std::runtime_error("no fuel log: " + path.string());
  return fillUps;
}

Event eventAt(Day when, std::int32_t km) {
  Event event;
  event.day = when;
  event.km = km;
  return event;
}

/// How a made-up car is driven.
struct Habits {
  Day start;
  std::int32_t startKm = 0;
  int fillUps = 0;
  int decilitresPer100Km = 0;
  int pricePerLitre = 0;  ///< Ft, at the start
  std::uint32_t seed = 0;
};

std::vector<Event> madeUpFillUps(const Habits& habits) {
  std::mt19937 numbers(habits.seed);
  const auto between = [&](int low, int high) {
    return low + static_cast<int>(numbers() % static_cast<unsigned>(high - low + 1));
  };
  std::vector<Event> fillUps;
  Event event = eventAt(habits.start, habits.startKm);
  int missing = 0;  // centilitres short of a full tank
  int price = habits.pricePerLitre;
  for (int i = 0; i < habits.fillUps; ++i) {
    const int distance = missing > 0 ? between(170, 320) : between(380, 560);
    event.km += distance;
    event.day.number += between(distance / 30, distance / 18);
    event.isFull = i % 9 != 5;
    const int needed = missing + distance * habits.decilitresPer100Km * between(92, 108) / 1000;
    const int taken = event.isFull ? needed : 1500;
    missing = needed - taken;
    price += between(-9, 10);
    event.litres = {std::int64_t{taken} * 100};
    event.fuelCost = (taken * price + 50) / 100;
    fillUps.push_back(event);
  }
  return fillUps;
}

// A fill-up's note goes by its place in the log, so that the lists show some variety.
void addFillUpNotes(std::vector<Event>& fillUps) {
  for (std::size_t i = 0; i < fillUps.size(); ++i) {
    const bool hasWash = i % 7 == 3;
    fillUps[i].note = hasWash ? "Tankolás + mosás" : i % 3 == 0 ? "" : "Tankolás";
    fillUps[i].noteCost = hasWash ? 2'500 : 0;
  }
}

std::vector<Event> merged(std::vector<Event> fillUps, const std::vector<Event>& others) {
  addFillUpNotes(fillUps);
  std::vector<Event> all;
  std::merge(fillUps.begin(), fillUps.end(), others.begin(), others.end(), std::back_inserter(all),
             [](const Event& a, const Event& b) { return a.km < b.km; });
  const auto earlier = [](const Event& a, const Event& b) { return a.day < b.day; };
  const auto wrong = std::is_sorted_until(all.begin(), all.end(), earlier);
  if (wrong != all.end())
    throw std::logic_error("the odometer is past its day on " + core::shortDate(wrong->day));
  return all;
}

/// A service or part change: the letters of Event::service, the part and its cost.
Event service(Day when, std::int32_t km, std::string letters, std::string part, std::int32_t cost) {
  Event event = eventAt(when, km);
  event.service = std::move(letters);
  event.part = std::move(part);
  event.partCost = cost;
  return event;
}

Event note(Day when, std::int32_t km, std::string text, std::int32_t cost) {
  Event event = eventAt(when, km);
  event.note = std::move(text);
  event.noteCost = cost;
  return event;
}

std::vector<Event> estateOtherEvents() {
  return {
      note(day(2020, 1, 15), 212'020, "Autópálya matrica", 42'980),
      service(day(2020, 3, 6), 216'480, "", "Fékbetét első", 18'900),
      note(day(2020, 4, 2), 217'150, "Kötelező biztosítás", 38'400),
      service(day(2020, 7, 10), 219'420, "osg", "Gyertya", 34'600),
      service(day(2020, 9, 30), 222'300, "", "Vezérműszíj készlet", 86'500),
      note(day(2021, 1, 18), 224'960, "Autópálya matrica", 43'490),
      service(day(2021, 3, 20), 226'560, "", "Akkumulátor", 32'500),
      note(day(2021, 4, 5), 226'740, "Kötelező biztosítás", 39'900),
      service(day(2021, 6, 11), 228'310, "os", "Olajszűrő", 24'300),
      service(day(2021, 9, 24), 232'505, "", "Fékbetét hátsó", 16'400),
      note(day(2021, 10, 8), 232'790, "Műszaki vizsga", 24'900),
      note(day(2022, 1, 14), 234'860, "Autópálya matrica", 47'520),
      note(day(2022, 4, 4), 235'930, "Kötelező biztosítás", 44'200),
      service(day(2022, 6, 20), 237'510, "osg", "Levegőszűrő", 29'700),
      service(day(2022, 9, 12), 240'150, "", "Izzó H7", 3'490),
  };
}

std::vector<Event> smallCarOtherEvents() {
  return {
      service(day(2020, 12, 4), 86'960, "os", "Olajszűrő", 19'400),
      note(day(2021, 9, 10), 93'990, "Autópálya matrica", 43'490),
      service(day(2022, 1, 19), 96'900, "", "Fékbetét első", 15'800),
      service(day(2022, 5, 25), 99'650, "osg", "Olajszűrő", 33'900),
  };
}

std::vector<Event> cityCarOtherEvents() {
  return {
      service(day(2021, 3, 19), 42'560, "os", "Olajszűrő", 18'700),
      note(day(2021, 9, 13), 46'500, "Kötelező biztosítás", 41'600),
      service(day(2022, 1, 9), 49'300, "", "Akkumulátor", 36'900),
  };
}

// The part of the log that is whole: before it a fill-up to the brim of a fifth of what was used, after it
// nothing for two years.
const Day kWholeFrom = day(2020, 1, 11);
const Day kWholeTo = day(2022, 10, 23);
constexpr int kDaysSinceLastFillUp = 4;

std::vector<Event> wholePart(std::vector<Event> fillUps) {
  std::erase_if(fillUps,
                [](const Event& fillUp) { return fillUp.day < kWholeFrom || kWholeTo < fillUp.day; });
  return fillUps;
}

}  // namespace

Day moved(Day when, Day today) {
  return core::addDays(when, core::daysBetween(kWholeTo, today) - kDaysSinceLastFillUp);
}

std::vector<Car> household(const std::filesystem::path& estateLog, Day today) {
  const Habits small{day(2020, 10, 2), 85'640, 34, 64, 412, 11};
  const Habits city{day(2021, 1, 16), 41'300, 26, 56, 418, 23};
  std::vector<Car> cars{{"ABC123", 45, merged(madeUpFillUps(small), smallCarOtherEvents())},
                        {"KLM456", 55, merged(wholePart(fillUpsOfFile(estateLog)), estateOtherEvents())},
                        {"XYZ789", 40, merged(madeUpFillUps(city), cityCarOtherEvents())}};
  for (Car& car : cars) {
    for (Event& event : car.events) event.day = moved(event.day, today);
  }
  return cars;
}

std::vector<std::string> partNames() {
  return {"Olajszűrő",          "Levegőszűrő", "Pollenszűrő", "Fékbetét első",    "Fékbetét hátsó",
          "Féktárcsa első",     "Gyertya",     "Akkumulátor", "Ablaktörlő lapát", "Izzó H7",
          "Vezérműszíj készlet"};
}

std::vector<std::string> noteTexts() {
  return {"Tankolás", "Tankolás + mosás", "Autópálya matrica", "Kötelező biztosítás", "Műszaki vizsga"};
}

}  // namespace tarvik::demo
