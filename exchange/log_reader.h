#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/day.h"
#include "core/napi_adat.h"
#include "core/ratio.h"
#include "exchange/days.h"
#include "exchange/heads.h"
#include "exchange/log_table.h"

namespace tarvik::exchange {

/// A fill-up or a service of a file, in the file's own units and currency.
struct LogRow {
  int line = 0;
  core::Day day{};
  std::optional<core::Ratio> odometer{};
  core::Ratio volume = 0;     ///< 0: no fill-up
  core::Ratio totalCost = 0;  ///< worked out from the price of a unit where the file has only that
  bool isFull = false;
  bool isAfterMissed = false;  ///< a fill-up before it is not in the file
  std::string note{};
  std::string part{};  ///< of a file that this program wrote
  std::string vehicle{};
  std::optional<core::NapiAdat> own{};  ///< the entry itself, of a file that this program wrote
};

/// A row of the table that is no entry, and why.
struct UnreadRow {
  enum class Why {
    NoDay,
    DayNotUnderstood,
    NoOdometer,  ///< a fill-up without a reading
    FigureNotUnderstood,
    FigureTooLarge,  ///< for the fields of a logbook
    NothingInIt,     ///< neither fuel nor cost nor note
    Total,           ///< a sum or an average under the table
  };
  int line = 0;
  Why why = Why::NoDay;
  std::string head;  ///< the column that could not be read
  std::string cell;  ///< what stands there
};

/// Why a file has no entries to offer at all.
enum class LogFault {
  None,
  RowTooLong,   ///< an endless line, a quote that is never closed
  TooManyRows,  ///< more rows than a logbook takes
  NoTable,      ///< no heads for a day, a reading and a volume
};

/// What a text was found to hold.
struct LogFile {
  LogFault fault = LogFault::None;
  int faultLine = 0;
  CsvShape shape;
  bool isOwn = false;             ///< written by this program
  bool isCutInQuotes = false;     ///< the file ends inside a quoted cell, from faultLine on
  bool saysWhichAreFull = false;  ///< otherwise every fill-up counts as full
  ShownDayOrder dayOrder;
  DistanceUnit distance = DistanceUnit::Kilometre;
  VolumeUnit volume = VolumeUnit::Litre;
  bool isGallonOpen = false;  ///< gallons, but not whose
  std::string currency;       ///< three letters; empty: the file names none
  bool hasCosts = false;
  std::vector<ColumnReading> columns;
  std::vector<SkippedSection> skipped;
  std::vector<std::string> vehicles;  ///< in the order of their first rows; one or none as a rule
  std::vector<LogRow> rows;           ///< in the order of the file
  std::vector<UnreadRow> unread;
};

/// Understands a logbook that this program or another wrote as CSV, from the whole of its text (UTF-8,
/// without a mark). Separator, quote, decimal sign, order of the days and units are found out; dayOrder says
/// the order where the person has. Never throws but for memory.
LogFile readLog(std::string_view text, std::optional<DayOrder> dayOrder = std::nullopt);

/// Whether the costs of a file are surely not forints: it names another currency, or none while half of its
/// fuel costs less than kCheapestForints a litre.
bool costsAreForeign(const LogFile& file);
inline constexpr int kCheapestForints = 50;

/// The separator and quote under which most heads of a table of fill-ups are found.
CsvShape findShape(std::string_view text);

}  // namespace tarvik::exchange
