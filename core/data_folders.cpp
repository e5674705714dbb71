#include "core/data_folders.h"

#include "core/failure.h"

namespace tarvik::core {
namespace {

std::string_view withoutOuterSpaces(std::string_view plate) {
  const std::size_t first = plate.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return plate.substr(first, plate.find_last_not_of(' ') - first + 1);
}

std::string joined(const std::string& folder, std::string_view name) {
  std::string path = folder;
  path += '/';
  path += name;
  return path;
}

void requireFolder(FileSystem& files, const std::string& path) {
  if (path.empty()) throw Failure(FailureKind::FolderGone);
  FileStatus status;
  if (files.statusOf(path, status) == 0 && status.kind == FileKind::Folder) return;
  throw Failure(FailureKind::FolderUnreadable).file(path);
}

}  // namespace

std::string DataFolders::inProgram(std::string_view name) const {
  return joined(program, name);
}

std::string DataFolders::inCurrent(std::string_view name) const {
  return joined(current, name);
}

std::string DataFolders::vehicleFolder(std::string_view plate) const {
  if (!isUsablePlate(plate)) throw Failure(FailureKind::PlateUnusable).file(std::string(plate));
  return inProgram(withoutOuterSpaces(plate));
}

std::string DataFolders::logbook(std::string_view plate) const {
  return joined(vehicleFolder(plate), "napiadat.dat");
}

std::string DataFolders::logbookTemporary(std::string_view plate) const {
  return joined(vehicleFolder(plate), "napiadatx.dat");
}

void requireFolders(FileSystem& files, const DataFolders& folders) {
  requireFolder(files, folders.program);
  requireFolder(files, folders.current);
}

bool isUsablePlate(std::string_view plate) {
  constexpr std::string_view kForbidden("/\\\0", 3);
  const std::string_view name = withoutOuterSpaces(plate);
  if (name.empty() || name == "." || name == "..") return false;
  return name.find_first_of(kForbidden) == std::string_view::npos;
}

}  // namespace tarvik::core
