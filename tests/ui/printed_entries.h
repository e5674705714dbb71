#pragma once

#include <numeric>
#include <string>

#include "core/day.h"
#include "core/napi_adat.h"
#include "print/list_document.h"

namespace tarvik::test {

/// The entry of a number: 100 km and a day after the one before, the first with a service and texts.
inline core::NapiAdat entryOf(int number) {
  core::NapiAdat entry;
  entry.KmOra = 205'300 + 100 * number;
  entry.Datum = core::toStored(core::dayOf({2019, 10, 18})) + number % 1'000;
  entry.TankoltLiter = {512'900};
  entry.Olajcsere = core::toFlag(number == 1);
  entry.Alkatresz = core::FixedText<50>(number == 1 ? "Légszűrő" : "");
  entry.Megjegyzes = core::FixedText<50>(number == 1 ? "Árvíztűrő tükörfúrógép" : "");
  return entry;
}

/// So many rows of a list of these.
inline print::ListedRows allRows(int count) {
  print::ListedRows rows;
  rows.records.resize(static_cast<std::size_t>(count));
  std::iota(rows.records.begin(), rows.records.end(), 1);
  rows.firstKmOra = std::to_string(entryOf(1).KmOra);
  rows.lastKmOra = std::to_string(entryOf(count).KmOra);
  return rows;
}

}  // namespace tarvik::test
