#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/data_folders.h"
#include "core/entry_input.h"
#include "core/file_system.h"
#include "core/napi_adat.h"

namespace tarvik::core {

/// What a new entry finds behind it.
struct FullFillSearch {
  Ratio distance = 0;       ///< km since the last full fill before it; 0 when there is none
  std::string consumption;  ///< litres per 100 km since then, "##.00"; empty when there is none
};

/// Looks for the reference full fill of a new entry: the last earlier entry that is a full fill with litres,
/// entry 1 left out, so that entry 2 gets no consumption. It is taken past the entries of a logbook from the
/// first on.
class FullFillTrail {
 public:
  /// Begins behind that many entries, which it is not taken past: it then sees what came after a full fill
  /// that it passes itself.
  explicit FullFillTrail(std::int64_t passed = 0) : passed_(passed) {}

  /// Goes on past the next entry.
  void pass(const NapiAdat& entry);
  /// Forgets the full fill passed last: what was taken since then is not known whole.
  void breakOff() { reference_.reset(); }
  /// Whether it passed a full fill.
  bool hasPassedFullFill() const { return reference_.has_value(); }
  /// What a new entry behind those passed finds: the litres of the entries between count together with its
  /// own. Nothing when the distance is 0.
  std::optional<FullFillSearch> reach(const Ratio& litres, const Ratio& kmOra) const;

 private:
  std::int64_t passed_;
  std::optional<std::int32_t> reference_;  // the reading of the last full fill
  Ratio since_ = 0;                        // litres since then
};

/// The logbook of a vehicle; nothing where the plate names no folder or the folder is not there. A missing
/// file is created empty. Throws Failure(OpenFailed) or ReadFailed.
std::optional<Logbook> foundLogbook(FileSystem& files, const DataFolders& folders, std::string_view plate);

/// The logbook of a vehicle, to be listed or computed with: one without entries where foundLogbook finds
/// none. Throws as foundLogbook does.
Logbook loadLogbook(FileSystem& files, const DataFolders& folders, std::string_view plate);

/// Appends the entry that the input stands for, with its consumption; an entry without fuel is never a
/// full fill. Returns the distance since the reference full fill, to be added to the fitted tyres.
/// Throws Failure for a text that does not convert, a distance of 0, a full or unwritable file, a missing
/// vehicle folder; nothing is recorded then.
Ratio recordEntry(FileSystem& files, const DataFolders& folders, const std::string& plate, EntryInput input);

/// Overwrites a seen entry with what the input stands for. Its consumption is the figure that was shown
/// beside it. Throws Failure as recordEntry does, RecordChanged when that number has another entry by now,
/// and RecordMissing where none was seen.
void modifyEntry(FileSystem& files, const DataFolders& folders, const std::string& plate,
                 const SeenRecord& seen, const EntryInput& input, std::string_view shownConsumption);

/// Opens the deletion of an entry: makes its temporary file where there is none, empty, which stays when the
/// person declines. Throws Failure for a missing folder or file.
void openDeletion(FileSystem& files, const DataFolders& folders, const std::string& plate);

/// Removes a seen entry; later entries move up by one. Throws Failure as modifyEntry does; a number that had
/// no entry and has none removes nothing.
void deleteEntry(FileSystem& files, const DataFolders& folders, const std::string& plate,
                 const SeenRecord& seen);

}  // namespace tarvik::core
