#include "core/data_folders.h"

#include <algorithm>
#include <array>

#include "core/failure.h"
#include "core/text.h"

namespace tarvik::core {
namespace {

// A zero byte stays and makes the name unusable.
std::string_view folderName(std::string_view plate) {
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

// No folder name on one of the two systems, so on neither: a household is carried from one to the other.
constexpr bool isForbidden(char character) {
  constexpr std::string_view kForbidden = "<>:\"/\\|?*";
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || kForbidden.find(character) != std::string_view::npos;
}

// COM1 to COM9 and LPT1 to LPT9; the raised digits ¹²³ count there too.
bool isPort(std::string_view name) {
  if (!name.starts_with("COM") && !name.starts_with("LPT")) return false;
  const std::string_view digit = name.substr(3);
  if (digit.size() == 1) return digit[0] >= '1' && digit[0] <= '9';
  return digit == "¹" || digit == "²" || digit == "³";
}

// Windows keeps these names for its devices, whatever ending they have ("NUL.txt").
bool isDevice(std::string_view plate) {
  constexpr std::array<std::string_view, 6> kDevices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  const std::string upper = upperCased(plate.substr(0, plate.find('.')));
  const std::string_view name = folderName(upper);
  return std::ranges::find(kDevices, name) != kDevices.end() || isPort(name);
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
  return inProgram(folderName(plate));
}

std::string DataFolders::logbook(std::string_view plate) const {
  return joined(vehicleFolder(plate), "napiadat.dat");
}

std::string DataFolders::logbookTemporary(std::string_view plate) const {
  return joined(vehicleFolder(plate), "napiadatx.dat");
}

bool isOneFolder(FileSystem& files, const DataFolders& folders) {
  FileStatus program;
  FileStatus current;
  if (folders.program == folders.current) return true;
  return files.statusOf(folders.program, program) == 0 && files.statusOf(folders.current, current) == 0 &&
         program.inode != 0 && program.inode == current.inode && program.device == current.device;
}

void requireFolders(FileSystem& files, const DataFolders& folders) {
  requireFolder(files, folders.program);
  requireFolder(files, folders.current);
}

bool isUsablePlate(std::string_view plate) {
  const std::string_view name = folderName(plate);
  if (name.empty() || name.back() == '.' || isDevice(name)) return false;
  return std::ranges::none_of(name, isForbidden);
}

}  // namespace tarvik::core
