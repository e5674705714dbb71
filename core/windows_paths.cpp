#include "core/windows_paths.h"

#include <windows.h>

#include <algorithm>

namespace tarvik::core {
namespace {

constexpr std::wstring_view kShareMark = L"\\\\?\\UNC\\";
constexpr std::wstring_view kMark = L"\\\\?\\";

// A folder's path is to leave room for a name of the oldest kind, eight letters, a dot and three more.
constexpr std::size_t kLongestPlainPath = MAX_PATH - 13;

std::wstring wide(const std::string& text) {
  const int bytes = static_cast<int>(text.size());
  std::wstring name(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, name.data(), static_cast<int>(name.size()));
  return name;
}

}  // namespace

std::wstring systemPath(const std::string& path) {
  std::wstring name = wide(path);
  if (name.size() <= kLongestPlainPath) return name;
  std::ranges::replace(name, L'/', L'\\');
  if (name.starts_with(kMark)) return name;
  if (name.starts_with(L"\\\\")) return std::wstring(kShareMark) + name.substr(2);
  return name[1] == L':' ? std::wstring(kMark) + name : name;
}

std::string narrow(std::wstring_view name) {
  const int units = static_cast<int>(name.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, name.data(), units, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, name.data(), units, text.data(), bytes, nullptr, nullptr);
  return text;
}

std::string pathOf(std::wstring_view resolved) {
  std::string path;
  if (resolved.starts_with(kShareMark))
    path = "//" + narrow(resolved.substr(kShareMark.size()));
  else
    path = narrow(resolved.starts_with(kMark) ? resolved.substr(kMark.size()) : resolved);
  for (char& letter : path)
    if (letter == '\\') letter = '/';
  return path;
}

bool hasTooLongName(std::wstring_view path) {
  constexpr std::size_t kLongestName = 255;
  while (path.size() > kLongestName) {
    const std::size_t slash = path.find_first_of(L"/\\");
    if (std::min(slash, path.size()) > kLongestName) return true;
    path.remove_prefix(slash + 1);
  }
  return false;
}

}  // namespace tarvik::core
