#pragma once

#include <vector>

#include "core/day.h"
#include "core/listing.h"
#include "core/napi_adat.h"

namespace tarvik::test {

/// A fuelling: litres in ten-thousandths.
inline core::NapiAdat fuelling(core::CalendarDate date, std::int32_t km, std::int64_t litres, bool full) {
  return {.KmOra = km,
          .Datum = core::toStored(core::dayOf(date)),
          .Teletank = core::toFlag(full),
          .TankoltLiter = {litres}};
}

/// The logbook of these entries, whole.
inline core::Listing listingOf(const std::vector<core::NapiAdat>& entries, core::ListFilter filter = {}) {
  core::Listing listing{core::Logbook::of(entries), {}};
  listing.numbers = core::listedEntries(listing.logbook, filter);
  return listing;
}

}  // namespace tarvik::test
