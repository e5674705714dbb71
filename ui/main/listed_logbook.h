#pragma once

#include <cstdint>
#include <string>

#include "core/listing.h"

namespace tarvik::ui {

/// The logbook that the list shows, and which of its entries is chosen. The pane owns the one value of it.
struct ListedLogbook {
  std::string plate;  ///< whose logbook, without the spaces around it; empty = none is listed
  core::ListFilter filter = {};
  core::Listing listing = {};  ///< its entries as they were when the list was filled
  bool isRead = true;          ///< false = it could not be read, or is not there
  std::int16_t selected = 0;   ///< record number of the chosen entry, 0 = none
};

}  // namespace tarvik::ui
