#pragma once

#include <string>
#include <string_view>

namespace tarvik::core {

/// A path as Windows takes it, from one in UTF-8 with slashes. A full one that is longer than the system
/// takes by its plain name gets the mark in front behind which it takes any length, and backslashes.
std::wstring systemPath(const std::string& path);

/// A name that the system gives, in UTF-8.
std::string narrow(std::wstring_view name);

/// A path that the system resolved, as the rest of the program writes paths: UTF-8, slashes, no mark.
std::string pathOf(std::wstring_view resolved);

/// Whether one of the names in a path is longer than a disk keeps.
bool hasTooLongName(std::wstring_view path);

}  // namespace tarvik::core
