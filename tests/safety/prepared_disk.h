#pragma once

#include <string>

#include "core/data_folders.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/operations.h"

namespace tarvik::test {

/// The data folders on a disk in memory.
inline const core::DataFolders kDiskFolders{.program = "/program", .current = "/current"};

/// A disk in memory with the two folders, the vehicle's folder, and a file in them.
inline MemoryFileSystem preparedDisk(const std::string& file, const std::string& contents) {
  MemoryFileSystem disk;
  for (const std::string& folder :
       {kDiskFolders.program, kDiskFolders.current, kDiskFolders.vehicleFolder(kOperationPlate)})
    disk.putFolder(folder);
  if (!file.empty()) disk.put(file, contents);
  return disk;
}

/// The disk before an operation: its file with so many records, and no other.
inline MemoryFileSystem preparedDisk(const Operation& operation, int count) {
  return preparedDisk(operation.file(kDiskFolders), fileOf(operation, count));
}

}  // namespace tarvik::test
