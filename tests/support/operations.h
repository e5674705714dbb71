#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"

namespace tarvik::test {

/// The vehicle that the operations concern.
inline constexpr const char* kOperationPlate = "ABC-123";

/// One of the program's changes, as the screens make it.
struct Operation {
  std::string name{};
  std::function<std::string(const core::DataFolders&)> file{};     ///< what it changes
  std::function<std::string(const core::DataFolders&)> temporary;  ///< a deletion's; empty otherwise
  std::size_t recordLength = 0;
  std::function<std::string(int)> record;  ///< the bytes of the file's record of that number, from 1
  std::function<void(core::FileSystem&, const core::DataFolders&)> run{};
};

/// The record that those operations concern that change one: the second, or the first where there is no more.
inline constexpr int kChangedRecord = 2;

/// Every operation that changes a file, as it is asked for by somebody who saw the file with so many records.
std::vector<Operation> operations(int count);

/// The bytes of a file of that operation with so many records.
std::string fileOf(const Operation& operation, int count);

}  // namespace tarvik::test
