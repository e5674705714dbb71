#pragma once

#include <vector>

#include "core/day.h"
#include "core/napi_adat.h"

namespace tarvik::test {

/// A date as an entry stores it.
inline double stored(int year, int month, int day) {
  return core::toStored(core::dayOf({year, month, day}));
}

/// An entry of a day without any fuel.
inline core::NapiAdat note(double date) {
  core::NapiAdat entry;
  entry.Datum = date;
  return entry;
}

/// A fuelling of a day: what was paid for it, Ft, and the odometer reading, km.
inline core::NapiAdat fuelling(double date, int paid, int reading = 0) {
  core::NapiAdat entry = note(date);
  entry.TankoltKtg = paid;
  entry.KmOra = reading;
  return entry;
}

inline core::Logbook logbookOf(const std::vector<core::NapiAdat>& entries) {
  return core::Logbook::of(entries);
}

}  // namespace tarvik::test
