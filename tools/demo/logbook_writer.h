#pragma once

#include <vector>

#include "core/napi_adat.h"
#include "tools/demo/household.h"

namespace tarvik::demo {

/// The logbook entries of a car's story, with the prices per litre and consumptions that the program
/// itself would have recorded, entry after entry. Throws core::Failure when a figure does not fit.
std::vector<core::NapiAdat> logbookOf(const std::vector<Event>& events);

}  // namespace tarvik::demo
