#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/napi_adat.h"

namespace tarvik::bench {

inline constexpr int kFullLogbook = 32'767;
inline constexpr const char* kPlate = "ABC123";

/// The entry of that number, from 1: one a day from 1940 on, the same each time.
core::NapiAdat entryOf(int number);

/// A logbook of that many entries as its file holds it.
std::vector<std::byte> logbookBytes(int entries);

/// Writes a file, replacing what is there.
void writeFile(const std::string& path, const std::vector<std::byte>& bytes);

/// A program folder with one vehicle, chosen at start, its logbook of that many entries (none for 0: an
/// empty folder) and that many km reminders, none of them passed. Replaces what is there.
void makeFolder(const std::string& path, int entries, int reminders);

}  // namespace tarvik::bench
