#include "settings/menu_entry.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/failure.h"
#include "core/file_steps.h"

namespace tarvik::settings {
namespace {

namespace steps = core::steps;
using core::Failure;
using core::FailureKind;

constexpr std::uint32_t kReadableByAll = 0644;

// The same on every machine and in every version: an entry must be found again.
std::uint32_t fnv1a(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
  return hash;
}

std::string eightHexDigits(std::uint32_t number) {
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789abcdef"[(number >> shift) & 0xF];
  return digits;
}

// A text with another before each of its characters that is one of these.
std::string marked(std::string_view text, std::string_view characters, std::string_view mark) {
  std::string result;
  for (const char letter : text) {
    if (characters.find(letter) != std::string_view::npos) result += mark;
    result += letter;
  }
  return result;
}

// A value of a desktop entry: a backslash counts double, and a space at the end would be lost.
std::string value(std::string_view text) {
  std::string result = marked(text, "\\", "\\");
  if (result.ends_with(' ')) result.replace(result.size() - 1, 1, "\\s");
  return result;
}

// An argument of a command line: quoted, a percent sign doubled, and all of that a value again.
std::string argument(std::string_view text) {
  return value('"' + marked(marked(text, "\\\"`$", "\\"), "%", "%") + '"');
}

// The desktop looks for the first word of a command without reading its doubled percent signs, and an equals
// sign in it would mean something else; so the path is not the first word.
std::string commandLine(const std::string& program) {
  return "/bin/sh -c " + argument("exec \"$0\"") + ' ' + argument(program);
}

bool isControl(char letter) {
  return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
}

std::string entryFile(const MenuPlace& place) {
  return place.folder + '/' + menuEntryName(place) + ".desktop";
}

void makeFolders(core::FileSystem& files, const std::string& path) {
  core::FileStatus status;
  if (files.statusOf(path, status) == 0) return;
  if (const std::string above = steps::folderOf(path); above != path) makeFolders(files, above);
  if (files.makeFolder(path) == 0 || errno == EEXIST) return;
  const int error = errno;
  throw Failure(FailureKind::OpenFailed).file(path).systemError(error);
}

void fill(core::FileSystem& files, const std::string& path, const std::string& text) {
  const core::OpenFile file = steps::createPrivate(files, path);
  try {
    steps::writeAll(files, file, std::as_bytes(std::span(text)), 0, path);
    steps::giveMode(files, file, kReadableByAll, path);
    steps::syncFile(files, file, path);
  } catch (...) {
    files.remove(path);
    throw;
  }
}

}  // namespace

std::string menuEntryName(const MenuPlace& place) {
  return "tarvik-" + eightHexDigits(fnv1a(steps::folderOf(place.program)));
}

std::string menuEntryText(const MenuPlace& place) {
  const std::string folder = steps::folderOf(place.program);
  if (std::ranges::any_of(place.program, isControl)) throw Failure(FailureKind::PathUnusable).file(folder);
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Version=1.1\n"
         "Name=Tarvik\n"
         "GenericName=Car running-cost logbook\n"
         "GenericName[hu]=Gépkocsi költségnapló\n"
         "Comment=" +
         value("Fill-ups, consumption and repairs: " + folder) +
         "\n"
         "Comment[hu]=" +
         value("Tankolások, fogyasztás, javítások: " + folder) +
         "\n"
         "Exec=" +
         commandLine(place.program) +
         "\n"
         "TryExec=" +
         value(place.program) +
         "\n"
         "Path=" +
         value(folder) +
         "\n"
         "Icon=" +
         value(folder + "/program/tarvik.svg") +
         "\n"
         "Terminal=false\n"
         "StartupWMClass=Tarvik\n"
         "Categories=Office;\n"
         "Keywords=car;fuel;consumption;autó;tankolás;fogyasztás;\n";
}

bool isInMenu(core::FileSystem& files, const MenuPlace& place) {
  core::FileStatus status;
  return files.statusOf(entryFile(place), status) == 0;
}

void putIntoMenu(core::FileSystem& files, const MenuPlace& place) {
  const std::string text = menuEntryText(place);
  makeFolders(files, place.folder);
  const std::string path = entryFile(place);
  const std::string beside = path + ".tmp";
  fill(files, beside, text);
  steps::renameOrRemove(files, beside, path);
}

void takeOutOfMenu(core::FileSystem& files, const MenuPlace& place) {
  const std::string path = entryFile(place);
  if (files.remove(path) == 0 || errno == ENOENT) return;
  const int error = errno;
  throw Failure(FailureKind::RemoveFailed).file(path).systemError(error);
}

}  // namespace tarvik::settings
