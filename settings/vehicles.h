#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::settings {

/// One vehicle of the household. 10 bytes in rendsz.dat, in the order in which the vehicles were added.
struct Vehicle {
  static constexpr std::size_t kLength = 10;

  core::FixedText<8> plate;   ///< registration plate as typed; of a longer one the first 8 characters
  std::int16_t tankSize = 0;  ///< fuel tank, litres

  /// In the order of the file.
  static constexpr std::tuple kFields{core::Field{"plate", &Vehicle::plate},
                                      core::Field{"tankSize", &Vehicle::tankSize}};

  friend bool operator==(const Vehicle&, const Vehicle&) = default;
};

/// The vehicles in file order. Equal plates may be in it more than once.
using Vehicles = core::RecordList<Vehicle>;

/// The vehicles of the current folder, which every screen lists. A missing file is created empty. Throws
/// as core::readRecords does.
Vehicles loadVehicles(core::FileSystem& files, const core::DataFolders& folders);

/// The vehicles of the program folder, which only the statistics and an import read, for the tank size.
/// Throws as core::readRecords does.
Vehicles loadVehiclesOfProgramFolder(core::FileSystem& files, const core::DataFolders& folders);

/// Whether the typed tank size counts as not given: its leading number is exactly 0. A negative size counts
/// as given (the expected day then runs back); so does one that only rounds to 0.
bool isTankSizeMissing(std::string_view tankText);

/// Whether the typed plate counts as not given: nothing but spaces.
bool isPlateMissing(std::string_view plateText);

/// Appends a vehicle to the list of the current folder and makes its folder. The texts are as typed and
/// not missing as above.
///
/// The record gets the first eight characters of the plate, spaces in front included, and the leading
/// number of the tank text in whole litres (halves to even). The vehicle's folder has the whole plate
/// without the spaces around it as its name; that it cannot be made (it exists already, or the plate
/// cannot name a folder) is no failure. Equal plates are not looked for: two of them share a folder, and on a
/// disk that takes capital and small letters for the same so do two that differ in their case alone. Throws
/// Failure(OutOfRange) with the field "txTank" for a tank past 16 bits, and as core::RecordFile does; nothing
/// is changed then.
void addVehicle(core::FileSystem& files, const core::DataFolders& folders, std::string_view plateText,
                std::string_view tankText);

/// Removes a seen vehicle from the list of the current folder. Its folder and logbook stay. Throws as
/// core::RecordFile does: RecordChanged when it is no longer there.
void removeVehicle(core::FileSystem& files, const core::DataFolders& folders, const core::SeenRecord& seen);

/// The tank of the vehicle with that plate in litres, the spaces around both plates aside. Of several
/// vehicles with that plate the last one counts, of none 0.
std::int16_t tankSizeOf(const Vehicles& vehicles, std::string_view plate);

/// How the settings list a vehicle: the plate's eight characters as stored and the tank ("ABC123   - 45").
std::string listText(const Vehicle& vehicle);

}  // namespace tarvik::settings
