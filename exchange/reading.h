#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/ratio.h"
#include "exchange/days.h"
#include "exchange/log_table.h"
#include "exchange/measures.h"
#include "exchange/numbers.h"

namespace tarvik::exchange {

/// What a column of a file is read as.
enum class Meaning {
  NotUnderstood,
  NotNeeded,
  Day,
  Year,
  Month,
  DayOfMonth,
  Odometer,
  Trip,  ///< the distance since the last fill
  Volume,
  TotalCost,
  UnitPrice,
  Full,
  Partial,  ///< the same words, saying the opposite
  Missed,
  Note,
  NoteCost,
  Description,  ///< stands before the note
  Part,
  PartCost,
  OilChange,
  FilterChange,
  PlugChange,
  Consumption,  ///< as this program recorded it
  Kind,
  DistanceUnit,
  VolumeUnit,
  Currency,
  Vehicle,
};
inline constexpr int kMeanings = static_cast<int>(Meaning::Vehicle) + 1;

/// The columns whose figures a row is made of.
inline constexpr std::array kFigures = {Meaning::Odometer,  Meaning::Trip,      Meaning::Volume,
                                        Meaning::TotalCost, Meaning::UnitPrice, Meaning::NoteCost,
                                        Meaning::PartCost};

/// A column and how it is read.
struct ColumnReading {
  std::string head;
  Meaning meaning = Meaning::NotUnderstood;
  DecimalSign sign = DecimalSign::Point;

  friend bool operator==(const ColumnReading&, const ColumnReading&) = default;
};

/// A vehicle of a file with several, and how many rows it has.
struct VehicleRows {
  std::string name;  ///< empty: rows that name none
  std::size_t rows = 0;
  double lowest = 0;  ///< of its readings, where these tell vehicles of one name apart
  double highest = 0;
};

/// A word of the column that says which fills were full, and whether it says so.
struct FullWord {
  std::string word;  ///< as it first stands in the file; empty for an empty cell
  std::size_t rows = 0;
  std::optional<bool> isFull;  ///< nothing: not known
};

/// Where the readings of a log of distances begin: at the reading before its first fill, or so that its last
/// one is that.
struct TripStart {
  bool isAtStart;
  core::Ratio reading;

  friend bool operator==(const TripStart&, const TripStart&) = default;
};

/// What has to be known before anything can be taken over, in the order in which it is asked.
enum class Question {
  DayColumn,
  OdometerColumn,
  VolumeColumn,
  Price,          ///< whether a column holds the price of a litre or of all
  UnknownColumn,  ///< what a column holds that may say which fills were full, or what they cost
  Vehicle,
  DayOrder,
  DistanceUnit,
  VolumeUnit,
  Gallon,  ///< gallons, but not whose
  TripStart,
  FullWord,
  Currency,
  Rate,
  DecimalSign,
};

/// What a person said of a file; the rest is proposed.
struct Choices {
  std::map<std::size_t, Meaning> columns{};
  std::optional<DayOrder> dayOrder{};
  std::optional<DecimalSign> sign{};
  std::optional<DistanceUnit> distance{};
  std::optional<VolumeUnit> volume{};
  std::optional<std::string> fullWord{};  ///< this word means full, the others that are not known do not
  std::optional<std::size_t> vehicle{};   ///< one of the vehicles, or behind them: all rows
  std::optional<TripStart> tripStart{};
  std::optional<std::string> currency{};       ///< of costs that name none, three letters
  std::map<std::string, core::Ratio> rates{};  ///< forints for one of a currency
};

/// How a file is read: what was found out from its heads and values, and what a person said instead. A plain
/// value; reading again with other choices gives another.
struct Reading {
  bool isOwn = false;  ///< written by this program
  bool hasCosts = false;
  bool isCurrencySaid = false;    ///< the person named the only one: what cells name does not count
  bool saysWhichAreFull = false;  ///< otherwise every fill-up counts as full
  DayOrder dayOrder = DayOrder::DayFirst;
  DecimalSign sign = DecimalSign::Point;
  DistanceUnit distance = DistanceUnit::Kilometre;
  VolumeUnit volume = VolumeUnit::Litre;
  std::vector<ColumnReading> columns;
  std::string currency;                 ///< of costs that name none
  std::vector<std::string> currencies;  ///< foreign ones, each with a rate to be known
  std::map<std::string, core::Ratio> rates;
  std::string dollar = "USD";             ///< whose dollars they are where only their sign stands
  std::int64_t priceShare = 1;            ///< 100 where prices of a litre are in cents or pence
  std::optional<VolumeUnit> priceVolume;  ///< what a price is of, where volumes are in another unit
  std::vector<FullWord> fullWords;
  std::vector<VehicleRows> vehicles;      ///< empty: one
  std::vector<std::size_t> vehicleOfRow;  ///< of each row of the table's data; past the vehicles for none
  std::optional<std::size_t> vehicle;     ///< the chosen one; vehicles.size(): all rows
  std::optional<TripStart> tripStart;
  std::optional<std::size_t> unknownColumn;  ///< the column that Price or UnknownColumn asks about
  std::vector<Question> asked;               ///< what the file leaves open, answered or not
  std::vector<Question> open;                ///< of these, what nobody answered yet

  /// Where the first column of that meaning is; columns.size() for none.
  std::size_t columnOf(Meaning meaning) const;
  bool has(Meaning meaning) const { return columnOf(meaning) < columns.size(); }
  bool isOpen(Question question) const;
};

/// Finds out how a table is read, as far as the person has not said it. What two readings fit is asked. Never
/// throws but for memory.
Reading understand(const LogTable& table, const Choices& choices = {});

}  // namespace tarvik::exchange
