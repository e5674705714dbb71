#pragma once

#include <vector>

#include "repairs/repair_log.h"
#include "tyres/tyre_register.h"

namespace tarvik::demo {

/// The household's tyre sets: one on a car, one past its maximum, one put aside.
std::vector<tyres::NewTyreSet> tyreSets();

/// The household's repairs and services, in order of date.
std::vector<repairs::NewRepair> repairEntries();

}  // namespace tarvik::demo
