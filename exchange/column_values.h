#pragma once

#include <vector>

#include "exchange/columns.h"

namespace tarvik::exchange {

/// The share of the steps between the figures of a column, in the order of the file, that go the way most of
/// them go; 1 where there are none.
double steadiness(const ColumnFacts& facts);

/// How a column of distances is to be taken by its values.
enum class DistanceKind { Reading, Trip, Either, None };
DistanceKind distanceKind(const ColumnFacts& facts);

/// Few values, all whole and from 80 to 100: those are octane numbers.
bool areOctanes(const ColumnFacts& facts);

/// How far values lie from their middle one in all, in shares of it.
double spread(std::vector<double> values);

/// Money beside the volumes of the same rows.
struct Paid {
  std::vector<double> money;
  std::vector<double> perVolume;
};
Paid paidOf(const ColumnFacts& money, const ColumnFacts& volume);

}  // namespace tarvik::exchange
