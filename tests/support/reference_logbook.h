#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvik::test {

// What a logbook file must hold, worked out from plain figures with nothing of the program's own code:
// its bytes are packed, its days counted and its figures rounded here once more, in whole numbers.

/// An entry in whole numbers: amounts in ten-thousandths, the day counted from 30 December 1899, texts in
/// Windows-1250.
struct PlainEntry {
  std::int32_t km = 0;
  std::int32_t day = 0;
  bool full = false;
  std::int64_t litres = 0;
  std::int32_t fuelCost = 0;
  std::int32_t partCost = 0;
  std::int64_t price = 0;
  bool oil = false;
  bool filter = false;
  bool plugs = false;
  std::string part;
  std::int32_t noteCost = 0;
  std::string note;
  std::int64_t consumption = 0;
};

/// The 156 bytes of an entry.
std::string bytesOf(const PlainEntry& entry);

/// A date as the fuel log writes it.
struct PlainDate {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// Days from 30 December 1899 to a date in 1900 or later.
std::int32_t daysSinceDayZero(const PlainDate& date);

/// A fill-up as a person writes it down.
struct FillUp {
  PlainDate date;
  std::int32_t km = 0;                ///< odometer reading
  std::string litres;                 ///< as written, with a point: "46.4"
  std::int32_t litresHundredths = 0;  ///< the same in hundredths: 4640
  std::int32_t costFt = 0;            ///< whole forints
  bool full = false;                  ///< filled to the brim
};

/// The fill-ups of a fuel log: a heading, then date,odometer_km,litres,cost_ft,full on each line.
std::vector<FillUp> readFuelLog(const std::string& path);

/// The bytes of the logbook file after the fill-ups were recorded one after the other into an empty
/// logbook, with "Tankolás" as note. Readings must grow and litres be above 0.
std::string referenceLogbook(const std::vector<FillUp>& fillUps);

}  // namespace tarvik::test
