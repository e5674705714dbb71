#pragma once

#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/day.h"
#include "core/file_system.h"
#include "repairs/repair.h"
#include "repairs/repair_rows.h"

namespace tarvik::repairs {

/// A new entry as a person typed it; no field is checked.
struct NewRepair {
  std::string plate;  ///< cut to 10 characters
  core::Day date;
  std::string description;  ///< cut to 80 characters
  std::string part;         ///< cut to 80 characters
  std::string cost;         ///< its leading number counts, none is 0; Ft
  std::string reading;      ///< its leading number counts, none is 0; km
};

/// Reads all entries; throws as core::loadRecords does.
Repairs loadRepairs(core::FileSystem& files, const core::DataFolders& folders);

/// The repair log, Szerviz.dat in the program folder. Every operation opens the file, finishes with it and
/// closes it; beside what each says, it throws the failures of the record files.
class RepairLog {
 public:
  RepairLog(core::FileSystem& files, const core::DataFolders& folders) : files_(files), folders_(folders) {}

  /// Lists the entries that the filter keeps.
  std::vector<RepairRow> listFiltered(const RepairFilter& filter);
  /// The entry of that number as the last listing read it: what is to be changed.
  core::SeenRecord seen(int number) const { return listed_.seen(number); }
  /// Reads the entry of that number; throws Failure(RecordMissing) when the file has none.
  Repair read(int number) const;

  /// Appends an entry, its two figures rounded to whole numbers, halves to even. A figure past 32 bits
  /// throws Failure(OutOfRange) with the name of the screen's field; nothing is written then.
  void record(const NewRepair& typed) const;
  /// Deletes a seen entry, over xx.dat in the current folder. Throws Failure(RecordChanged) when it is no
  /// longer there.
  void remove(const core::SeenRecord& seen) const;

 private:
  core::FileSystem& files_;
  core::DataFolders folders_;
  Repairs listed_;
};

}  // namespace tarvik::repairs
