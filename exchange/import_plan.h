#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/file_system.h"
#include "core/napi_adat.h"
#include "exchange/log_reader.h"

namespace tarvik::exchange {

/// What is noticed of an entry that could be taken over.
enum class Doubt {
  AlreadyThere,      ///< the logbook has an entry of the same day, reading and litres, or nearly
  TwiceInFile,       ///< the file has it already, further up
  DayRunsBackwards,  ///< against the order of its file
  DayInFuture,
  DayTooEarly,  ///< before 1950
  OdometerFalls,
  OdometerJumps,  ///< by more than kGreatestStep
  MoreThanTank,
  ConsumptionOdd,  ///< less than 2 or more than 30 litres per 100 km
  PriceOdd,        ///< a litre for less than 50 or more than 2,000 forints
  MissedBefore,    ///< the file says that a fill-up before it is missing
  LeftOutBefore,   ///< a row before it that may be a fill-up is left out
  UntickedBefore,  ///< an entry before it was not ticked
  NoConsumption,   ///< no distance since the full fill before it: its consumption cannot be told
  OdometerTaken,   ///< the file has no reading: that of the entry before it
  LettersDamaged,  ///< some could not be decoded
  NoteCut,         ///< longer than the logbook keeps
  LettersLost,     ///< letters of the note that the logbook cannot keep
  PartCut,         ///< as NoteCut, of the part's name
  PartLettersLost,
};

/// The longest distance between two entries that is not noticed, km.
inline constexpr std::int32_t kGreatestStep = 3'000;
/// What cars use for 100 km, litres: less and more is noticed, as it is of the price of a litre.
inline constexpr int kLeastConsumption = 2;
inline constexpr int kGreatestConsumption = 30;

/// An entry as it would come into the logbook.
struct PlannedEntry {
  int line = 0;
  core::NapiAdat entry{};
  std::set<Doubt> doubts{};
  bool isTaken = true;
  std::int64_t distance =
      0;  ///< km from the entry before it among those that are taken and those that are there
};

/// Where the entries come in a logbook that has some: between those that are there, by day and reading, or
/// behind.
enum class Place { InOrder, AtEnd };

/// What an import comes to.
struct PlanContext {
  const core::Logbook& logbook;  ///< the one that the entries are to come into
  std::int16_t tankLitres = 0;   ///< 0: not known
  core::Day today = core::kLastDay;
  Place place = Place::InOrder;
};

/// The entries that a file offers, in the order of their days, and the rows that are none, in the file's
/// order. Together they are as many as the rows of the file.
struct ImportPlan {
  bool isOwn = false;  ///< of a file that this program wrote: recorded consumptions stay as they are
  std::vector<PlannedEntry> entries;
  std::vector<UnreadRow> unread;
  std::vector<core::NapiAdat> whole;  ///< the logbook as it would be with what is taken
  int changed = 0;                    ///< entries of the logbook that get another consumption
  bool doPlacesDiffer = false;        ///< whether the places give another order

  std::vector<core::NapiAdat> taken() const;
};

/// Makes entries of a file's rows, in the order of their days; on one day in the order of their readings, and
/// then as the file goes. Entries that the logbook or the file has already are not ticked.
ImportPlan planImport(const LogRows& rows, const Reading& reading, const PlanContext& context);

/// Brings up to date what depends on the ticks: the steps of the readings from one ticked entry to the next,
/// the consumptions, as each entry would get its own when it was typed in behind those before it, and those
/// of the logbook's entries behind which something came. Called whenever a tick changes; planImport does it
/// as well.
void settle(ImportPlan& plan, const PlanContext& context);

/// Puts a whole logbook in the place of the one that was seen, in one step. Throws Failure(FileFull) when it
/// is too long, Failure(FileChanged) when the logbook is no longer what was seen, and as RecordFile does; the
/// file then is as it was.
void importEntries(core::FileSystem& files, const std::string& path, const core::Logbook& seen,
                   const std::vector<core::NapiAdat>& whole);

}  // namespace tarvik::exchange
