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

/// Nothing but a clock's counts of seconds or thousandths since 1970, from 2001 to 2033: no reading and no
/// amount is as large.
bool areTimeStamps(const ColumnFacts& facts);

/// Few values, all whole and from 80 to 100: those are octane numbers.
bool areOctanes(const ColumnFacts& facts);

/// Nothing but answers of yes or no, marks among them ("✓"): that is no figure, whatever its head says.
bool areAnswers(const ColumnFacts& facts);

/// Answers that are not all alike, or two short contents that come again, of which an empty cell may be one:
/// they may say which fills were full.
bool areTwoKinds(const ColumnFacts& facts);

/// Words, or so few figures that they may be codes.
bool areWords(const ColumnFacts& facts);

/// What may name vehicles: figures of which hardly two are alike do not.
bool areNames(const ColumnFacts& facts);

/// Few words, one of them for a full tank or a part fill.
bool namesFills(const ColumnFacts& facts);

/// As namesFills, or just two answers of yes or no.
bool tellsFills(const ColumnFacts& facts);

/// Sums that run on from row to row, up or down the file.
bool areRunningSums(const ColumnFacts& facts);

/// How far values lie from their middle one in all, in shares of it.
double spread(std::vector<double> values);

/// Money beside the volumes of the same rows.
struct Paid {
  std::vector<double> money;
  std::vector<double> perVolume;
};
Paid paidOf(const ColumnFacts& money, const ColumnFacts& volume);

}  // namespace tarvik::exchange
