#include "core/data_files.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "core/failure.h"
#include "core/record_codec.h"
#include "core/record_file.h"

namespace tarvik::core {
namespace {

constexpr std::size_t kPlateLength = 8;

// Without making the list where it is missing.
ByteBlock vehicleList(FileSystem& files, const std::string& path, std::size_t recordLength) {
  FileStatus status;
  if (files.statusOf(path, status) == 0) return readRecords(files, path, recordLength);
  if (errno == ENOENT || errno == ENOTDIR) return {};
  throw std::move(Failure(FailureKind::OpenFailed).file(path).systemError(errno));
}

}  // namespace

std::vector<std::string> platesIn(FileSystem& files, const std::string& folder) {
  constexpr const DataFileKind& kList = kSharedFiles[0];
  std::vector<std::string> plates;
  const ByteBlock list = vehicleList(files, folder + "/" + std::string(kList.name), kList.recordLength);
  for (std::size_t at = 0; at + kList.recordLength <= list.size; at += kList.recordLength) {
    std::string plate = readField<FixedText<kPlateLength>>(list.span(), at).trimmed();
    if (isUsablePlate(plate) && std::ranges::find(plates, plate) == plates.end())
      plates.push_back(std::move(plate));
  }
  return plates;
}

}  // namespace tarvik::core
