#pragma once

#include "settings/menu_entry.h"

namespace tarvik::app {

/// The person's own menu of programs as the environment names it, and this program, when its full path
/// (UTF-8) is given. Without a folder on a system whose menu takes no entries of this kind.
settings::MenuPlace menuPlace(const std::string& program);

}  // namespace tarvik::app
