#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/day.h"
#include "core/napi_adat.h"
#include "core/ratio.h"
#include "exchange/log_table.h"
#include "exchange/reading.h"

namespace tarvik::exchange {

/// A fill-up or a service of a file, in kilometres, litres and forints.
struct LogRow {
  int line = 0;
  core::Day day{};
  std::optional<core::Ratio> kilometres{};  ///< the reading
  std::optional<core::Ratio> trip{};        ///< since the last fill, of a file without readings
  core::Ratio litres = 0;                   ///< 0: no fill-up
  core::Ratio forints = 0;      ///< worked out from the price of a unit where the file has only that
  core::Ratio noteForints = 0;  ///< what the note cost: beside the fuel, or all where there is none
  core::Ratio partForints = 0;
  bool isFull = false;
  bool isAfterMissed = false;  ///< a fill-up before it is not in the file
  bool isOilChange = false;
  bool isFilterChange = false;
  bool isPlugChange = false;
  bool isDamaged = false;  ///< letters of it could not be decoded
  std::string note{};
  std::string part{};
  std::optional<core::NapiAdat> own{};  ///< the entry itself, of a file that this program wrote
};

/// A row of the file that is no entry, and why.
struct UnreadRow {
  enum class Why {
    NoDay,
    DayNotUnderstood,
    NoOdometer,  ///< a fill-up without a reading
    FigureNotUnderstood,
    FigureTooLarge,  ///< for the fields of a logbook
    NothingInIt,     ///< neither fuel nor cost nor note
    OtherFuel,       ///< counted in something else than litres (kWh, kg), or no fuel (AdBlue)
    Total,           ///< a sum or an average, named or known by its volume
    TooManyCells,    ///< more than heads: a decimal comma parts them
    OtherVehicle,    ///< than the chosen one
    OtherSection,    ///< of the file, with something else than fill-ups
    Heads,
    Title,
    Comment,
    BeforeTable,
    Empty,
  };
  int line = 0;
  Why why = Why::NoDay;
  std::string head{};  ///< the column that could not be read; of another section its name; the vehicle
  std::string cell{};  ///< what stands there
  std::string day{};   ///< its own values as they stand, and the whole row
  std::string odometer{};
  std::string volume{};
  std::string cost{};
  std::string text{};
  core::Day readDay{};   ///< of a row with a distance, where a log has no readings
  core::Ratio trip = 0;  ///< km: the car was driven, whatever else the row lacks

  /// Whether a fill-up may be lost with it, so that the entry behind it has no consumption to be told.
  bool mayBeFillUp() const;
};

/// The rows of a file: entries and those that are none, together as many as the file has, each in its order.
struct LogRows {
  std::vector<LogRow> rows;
  std::vector<UnreadRow> unread;
};

/// Reads the rows of a table as a reading says. Never throws but for memory.
LogRows readRows(const LogTable& table, const Reading& reading);

}  // namespace tarvik::exchange
