#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/napi_adat.h"

namespace tarvik::core {

/// What of an entry is searched, a line each: its day as listed, part, note, and the words of its marks
/// ("Olajcsere", "Szűrőbetét csere", "Gyertya csere", and how else a person or the list calls them).
std::string searchedText(const NapiAdat& entry);

/// Whether a text holds what is wanted, which is upper-cased already; letter case does not count, accented
/// letters included.
bool holdsUpperCased(std::string_view text, std::string_view wanted);

/// The rows whose text holds what a person typed, from the last row to the first; letter case and the spaces
/// around what was typed do not count. None where nothing was typed.
std::vector<int> rowsThatHold(std::string_view typed, int rows,
                              const std::function<std::string(int)>& textOf);

}  // namespace tarvik::core
