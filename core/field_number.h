#pragma once

#include <cstdint>
#include <string_view>

#include "core/amount.h"
#include "core/failure.h"
#include "core/ratio.h"

namespace tarvik::core {

// The figures of a screen's fields. All of them round to the nearest value, halves to even, and every
// failure carries the field's name: OutOfRange for a figure that the record's field cannot hold.

/// What a computation gives; a Failure that it throws names the field.
template <typename Compute>
auto inField(const char* field, Compute compute) {
  try {
    return compute();
  } catch (Failure& failure) {
    failure.field(field);
    throw;
  }
}

/// A field's figure in 32 bits; throws Failure(OutOfRange).
std::int32_t fieldWhole32(const Ratio& value, const char* field);

/// The leading number of a text (plainNumber) in 32 bits, 0 for a text without one; throws
/// Failure(OutOfRange).
std::int32_t plainWhole32(std::string_view text, const char* field);

/// The whole text as a number with a decimal comma (localeNumber) in 32 bits; throws
/// Failure(NotANumber) or Failure(OutOfRange).
std::int32_t requiredWhole32(std::string_view text, const char* field);

/// As requiredWhole32, as an amount.
Amount requiredAmount(std::string_view text, const char* field);

}  // namespace tarvik::core
