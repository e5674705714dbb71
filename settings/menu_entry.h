#pragma once

#include <string>

#include "core/file_system.h"

namespace tarvik::settings {

/// Where the person's own menu of programs takes its entries from, and the program that an entry is to start.
/// Paths are UTF-8 and full.
struct MenuPlace {
  std::string folder;   ///< of the person's own entries; empty where the system has no such menu
  std::string program;  ///< the program file
};

/// The name of this copy's entry, without its ending: one for each folder that a copy lies in, so that two
/// copies can both be in the menu. It is the name that a window gives to find its entry by.
std::string menuEntryName(const MenuPlace& place);

/// What the entry says: what starts the program in its own folder. While the program file is not there, the
/// desktop shows no entry. Throws Failure(PathUnusable) for a path with a line break or another control
/// character, which an entry cannot hold.
std::string menuEntryText(const MenuPlace& place);

/// Whether this copy is in the menu.
bool isInMenu(core::FileSystem& files, const MenuPlace& place);

/// Puts this copy into the menu, or renews its entry; folders that are missing on the way are made. The entry
/// is written beside its place and takes it in one step: what stood there, a link too, is replaced and never
/// written through. Throws as menuEntryText does, and Failure(OpenFailed), WriteFailed, SyncFailed or
/// ReplaceFailed; the entry is then as it was.
void putIntoMenu(core::FileSystem& files, const MenuPlace& place);

/// Takes this copy out of the menu, and no other; nothing happens when it is not there. Throws
/// Failure(RemoveFailed).
void takeOutOfMenu(core::FileSystem& files, const MenuPlace& place);

}  // namespace tarvik::settings
