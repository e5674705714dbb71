#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/amount.h"
#include "core/day.h"

namespace tarvik::demo {

/// What happened to a car on one day: a fill-up, a service, a note, or a mix of them.
struct Event {
  core::Day day;
  std::int32_t km = 0;        ///< odometer reading
  core::Amount litres;        ///< fuel taken, 0 for none
  std::int32_t fuelCost = 0;  ///< Ft
  bool isFull = false;        ///< filled to the brim
  std::string service;        ///< letters of what was changed: 'o' oil, 's' filter, 'g' spark plugs
  std::string part;
  std::int32_t partCost = 0;  ///< Ft
  std::string note;
  std::int32_t noteCost = 0;  ///< Ft
};

/// A car of the household with its whole story in order.
struct Car {
  std::string plate;
  std::int16_t tankLitres = 0;
  std::vector<Event> events;
};

/// The day of the household's story as it is told today: all days are moved alike, so that the real log's
/// last fill-up was four days ago.
core::Day moved(core::Day when, core::Day today);

/// The household: two made-up cars and, between them, the one whose fill-ups the file holds, as far as they
/// are without a gap. Throws std::runtime_error when the file is not the log it should be.
std::vector<Car> household(const std::filesystem::path& estateLog, core::Day today);

/// The names that the part and note lists offer.
std::vector<std::string> partNames();
std::vector<std::string> noteTexts();

}  // namespace tarvik::demo
