#pragma once

#include <string>
#include <string_view>

#include "core/file_system.h"

namespace tarvik::core {

/// Where the data lie. The two folders are the same when the program is started from its own folder; they are
/// kept apart all the same: files of the first kind follow the program, files of the second the folder it was
/// started in. Paths are UTF-8 without a final slash, a root aside.
struct DataFolders {
  std::string program;  ///< the folder of the executable: vehicle folders, Gumik.dat, Szerviz.dat
  std::string current;  ///< the current folder: rendsz, alkatr, megjegyz, set, figyel, figyDatum

  /// The full path of a file in the program folder.
  std::string inProgram(std::string_view name) const;
  /// The full path of a file in the current folder.
  std::string inCurrent(std::string_view name) const;
  /// A vehicle's folder: the program folder and the plate without the spaces around it. Throws
  /// Failure(PlateUnusable) for a plate that cannot name one.
  std::string vehicleFolder(std::string_view plate) const;
  /// A vehicle's logbook, napiadat.dat in its folder; throws as vehicleFolder does.
  std::string logbook(std::string_view plate) const;
  /// The temporary file of a deletion from that logbook, napiadatx.dat; throws as vehicleFolder does.
  std::string logbookTemporary(std::string_view plate) const;
};

/// Whether both are one folder, by whatever paths: the program was started in its own folder.
bool isOneFolder(FileSystem& files, const DataFolders& folders);

/// Makes sure, before anything is read, that both folders are there under the paths given. A path may be
/// empty (the program was started in a folder that is gone) or lead nowhere (a name that is no text). Throws
/// Failure(FolderGone) or FolderUnreadable: data must not turn up in the root of the disk instead.
void requireFolders(FileSystem& files, const DataFolders& folders);

/// Whether a plate, the spaces around it aside, can name a vehicle folder: it would neither lead outside the
/// program folder nor be a name that Linux or Windows cannot keep, wherever the program runs. Empty, with a
/// dot at the end, with one of <>:"/\|?* or a control character, and the names of Windows' devices (CON, NUL,
/// LPT1 and their like, in any case and with any ending) are none.
bool isUsablePlate(std::string_view plate);

}  // namespace tarvik::core
