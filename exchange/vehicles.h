#pragma once

#include "exchange/columns.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// Finds the vehicles of a table: by its columns of vehicles and the titles of its sections, and among the
/// rows of one name, or of none, by runs of readings that cannot be those of one car: side by side, or one
/// behind the other where a reading falls by more than a correction. Asks which one is meant where there are
/// several.
void findVehicles(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
                  Reading& reading);

/// The day of a row as a reading takes it, from one column or from three.
std::optional<core::Day> dayOfRow(const CsvRow& row, const Reading& reading);

}  // namespace tarvik::exchange
