#pragma once

#include "exchange/columns.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// Finds the vehicles of a table: by its columns of vehicles, by the titles of its sections, or by runs of
/// readings that cannot be those of one car. Asks which one is meant where there are several.
void findVehicles(const LogTable& table, const std::vector<ColumnFacts>& facts, const Choices& choices,
                  Reading& reading);

/// The vehicle that a row names; empty for none.
std::string vehicleOf(const TableRow& row, const LogTable& table, const Reading& reading);

/// The day of a row as a reading takes it, from one column or from three.
std::optional<core::Day> dayOfRow(const CsvRow& row, const Reading& reading);

}  // namespace tarvik::exchange
