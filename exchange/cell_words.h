#pragma once

#include <optional>
#include <string_view>

namespace tarvik::exchange {

/// What a cell answers to a question of yes or no: yes, true, 1, full and their like in many languages;
/// nothing for a word that is not known.
std::optional<bool> yesOrNo(std::string_view cell);

/// Whether a cell names a total or an average: such a row is no entry.
bool namesTotal(std::string_view cell);

/// Whether a cell names something that is taken in but is no fuel in litres (kWh, AdBlue, CNG in kg), among
/// other words, or alone.
bool namesOtherFuel(std::string_view cell);
bool isOtherFuel(std::string_view cell);

/// Whether the kind of a row is a fill-up: a word for fuel or refuelling, or nothing.
bool namesFuelling(std::string_view kind);

/// Whether the kind of a row is a service or an expense, beside fill-ups in one table.
bool namesService(std::string_view kind);

}  // namespace tarvik::exchange
