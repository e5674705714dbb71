#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "core/file_system.h"
#include "core/napi_adat.h"
#include "exchange/log_reader.h"

namespace tarvik::exchange {

/// What is noticed of an entry that could be taken over.
enum class Doubt {
  AlreadyThere,      ///< the logbook has an entry of the same day, reading and litres
  DayRunsBackwards,  ///< against the order of its file, or before the last day of the logbook
  OdometerFalls,
  OdometerJumps,  ///< by more than kGreatestStep
  MoreThanTank,
  MissedBefore,   ///< the file says that a fill-up before it is missing
  NoConsumption,  ///< no distance since the full fill before it: its consumption cannot be told
  OdometerTaken,  ///< the file has no reading: that of the entry before it
  NoteCut,        ///< longer than the logbook keeps
  LettersLost,    ///< letters of the note that the logbook cannot keep
  PartCut,        ///< as NoteCut, of the part's name
  PartLettersLost,
};

/// The longest distance between two entries that is not noticed, km.
inline constexpr std::int32_t kGreatestStep = 5'000;

/// An entry as it would come into the logbook.
struct PlannedEntry {
  int line = 0;
  core::NapiAdat entry{};
  std::set<Doubt> doubts{};
  bool isTaken = true;
};

/// What the person answered, preset by what the file says.
struct Answers {
  DistanceUnit distance = DistanceUnit::Kilometre;
  VolumeUnit volume = VolumeUnit::Litre;
  core::Ratio forintsPerUnit = 1;  ///< forints for one of the file's currency
  std::string vehicle;             ///< of a file with several; empty = all rows
};

/// The entries that a file offers, in the order in which they would stand behind the logbook's.
struct ImportPlan {
  bool isOwn = false;  ///< of a file that this program wrote: the consumptions stay as they are
  std::vector<PlannedEntry> entries;
  std::vector<UnreadRow> unread;  ///< the file's, and rows whose figures do not fit the logbook

  std::vector<core::NapiAdat> taken() const;
};

/// Makes entries of a file's rows: in kilometres, litres and whole forints, in the order of their days; on
/// one day in the order of their readings, and then as the file goes. Each is compared with the one before
/// it, of the logbook or the plan. Entries that the logbook has already are not ticked. tankLitres is 0 when
/// not known. An entry of a file that this program wrote keeps every field, the consumption too.
ImportPlan planImport(const LogFile& file, const Answers& answers, const core::Logbook& logbook,
                      std::int16_t tankLitres);

/// Brings up to date what depends on the ticks: the steps of the readings from one ticked entry to the next,
/// and the consumptions, as each entry would get its own when it was typed in behind those before it. Called
/// whenever a tick changes; planImport does it as well.
void settle(ImportPlan& plan, const core::Logbook& logbook);

/// Puts entries behind those of the logbook in one step. Throws Failure(FileFull) when they are too many,
/// Failure(FileChanged) when the logbook is no longer what was seen, and as RecordFile does; the file then is
/// as it was.
void importEntries(core::FileSystem& files, const std::string& path, const core::Logbook& seen,
                   const std::vector<core::NapiAdat>& entries);

}  // namespace tarvik::exchange
