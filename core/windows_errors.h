#pragma once

namespace tarvik::core {

/// The errno by which the rest of the program, and with it the person, knows an error of Windows; EIO for one
/// that has no counterpart.
int errnoOfWindows(unsigned long error);

}  // namespace tarvik::core
