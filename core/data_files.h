#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"

namespace tarvik::core {

/// What a data file is for.
enum class Register {
  Entries,  ///< the logbook of one vehicle
  Vehicles,
  PartNames,
  Notes,
  StartSettings,
  KmReminders,
  DateReminders,
  Tyres,
  Repairs,
};

/// A kind of data file.
struct DataFileKind {
  Register reg;
  std::string_view name;
  std::size_t recordLength;             ///< bytes
  std::optional<std::size_t> day = {};  ///< where a record has the day that it is of, if it has one
  bool isOfProgramFolder = false;       ///< read from there, or from the current folder
};

/// The logbook, one in each vehicle's folder.
inline constexpr DataFileKind kLogbookFile{Register::Entries, "napiadat.dat", 156, 4, true};

/// The files that the whole household has one of, in the order in which a person reads them.
inline constexpr std::array<DataFileKind, 8> kSharedFiles{
    DataFileKind{Register::Vehicles, "rendsz.dat", 10},
    DataFileKind{Register::Tyres, "Gumik.dat", 71, std::nullopt, true},
    DataFileKind{Register::Repairs, "Szerviz.dat", 186, 10, true},
    DataFileKind{Register::KmReminders, "figyel.dat", 68},
    DataFileKind{Register::DateReminders, "figyDatum.dat", 68, 0},
    DataFileKind{Register::PartNames, "alkatr.dat", 50},
    DataFileKind{Register::Notes, "megjegyz.dat", 50},
    DataFileKind{Register::StartSettings, "set.dat", 12},
};

/// The plates of the vehicle list in that folder that can name a folder, trimmed, each once and in the list's
/// order; none where the list is missing. Throws Failure(OpenFailed or ReadFailed) where it cannot be read.
std::vector<std::string> platesIn(FileSystem& files, const std::string& folder);

}  // namespace tarvik::core
