#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/ratio.h"
#include "tyres/tyre_rows.h"
#include "tyres/tyre_set.h"

namespace tarvik::tyres {

/// The figures and texts of a set as a person typed them.
struct TyreFields {
  std::string type;                    ///< cut to 30 characters
  std::string size;                    ///< cut to 15 characters
  std::string maxKm;                   ///< must be a number with a decimal comma, if any; km
  std::optional<std::int16_t> season;  ///< nothing when none is chosen
  std::string kmWhenFitted;            ///< its leading number counts, none is 0; km
  std::string kmRun;                   ///< its leading number counts, none is 0; km
};

/// A new set as a person typed it; no field is checked but maxKm.
struct NewTyreSet {
  std::string plate;  ///< cut to 10 characters
  bool isFitted = false;
  TyreFields fields;
};

/// The tyre register as one screen works with it: Gumik.dat in the program folder, and one record buffer.
///
/// Every set that is read or written stays in the buffer, a listing's last one too, and a set recorded
/// without a season takes the buffer's, which nobody chose. Every operation opens the file, finishes with it
/// and closes it; beside what each says, it throws the failures of the record files.
class TyreRegister {
 public:
  TyreRegister(core::FileSystem& files, const core::DataFolders& folders)
      : files_(files), folders_(folders) {}

  /// Lists one vehicle's sets; the plate is compared trimmed and exactly.
  std::vector<TyreRow> listOf(std::string_view plate);
  /// Lists the sets of all vehicles.
  std::vector<TyreRow> listAll();
  /// The set of that number as the last listing read it: what is to be changed.
  core::SeenRecord seen(int number) const { return listed_.seen(number); }
  /// Reads the set of that number; throws Failure(RecordMissing) when the file has none.
  const TyreSet& read(int number);

  /// Appends a set. A maximum that is no number throws Failure(NotANumber), a figure past 32 bits
  /// Failure(OutOfRange), each with the name of the screen's field; nothing is written then.
  void record(const NewTyreSet& typed);
  /// Marks a seen set as fitted or not; its figures stay. Throws Failure(RecordChanged) when it is no longer
  /// there, RecordMissing where none was seen.
  void setFitted(const core::SeenRecord& seen, bool isFitted);
  /// Changes a seen set's fields; plate and fitting stay, the season too when none is chosen. Throws as
  /// record and setFitted do.
  void change(const core::SeenRecord& seen, const TyreFields& typed);
  /// Deletes a seen set, over xx.dat in the current folder. Throws Failure(RecordChanged) when it is no
  /// longer there.
  void remove(const core::SeenRecord& seen);

 private:
  std::vector<TyreRow> list(std::optional<std::string_view> plate);
  template <typename Edit>
  void rewrite(const core::SeenRecord& seen, Edit edit);

  core::FileSystem& files_;
  core::DataFolders folders_;
  TyreSets listed_;
  TyreSet buffer_;
};

/// Reads all sets; throws as core::loadRecords does.
TyreSets loadTyreSets(core::FileSystem& files, const core::DataFolders& folders);

/// Adds a distance in km to the first set that is on the vehicle's car, and only to that one: others marked
/// as fitted keep their kilometres. The sum is rounded, halves to even. A missing file is created; without
/// such a set, and for a distance of 0, nothing is written. Throws Failure(OutOfRange) when the sum leaves 32
/// bits.
void addDistance(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate,
                 const core::Ratio& distance);

}  // namespace tarvik::tyres
