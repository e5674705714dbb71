#pragma once

#include <string>

#include "ui/base/context.h"

namespace tarvik::ui {

/// Refuses to let a document take the place of the program's data: a path that leads to one of its files, by
/// whatever spelling, link or second name, or that ends in .dat as all of them do. Throws Failure(DataFile).
void refuseDataFile(const Context& context, const std::string& path);

}  // namespace tarvik::ui
