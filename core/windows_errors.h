#pragma once

namespace tarvik::core {

/// The errno by which the rest of the program, and with it the person, knows an error of Windows; EIO for one
/// that has no counterpart.
int errnoOfWindows(unsigned long error);

/// Whether an error of Windows means that this system or this disk does not know a call, not that it refused
/// what was asked.
bool isUnknownCall(unsigned long error);

}  // namespace tarvik::core
