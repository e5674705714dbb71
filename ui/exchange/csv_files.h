#pragma once

#include <QString>
#include <functional>
#include <string>

#include "core/napi_adat.h"
#include "ui/base/context.h"

class QWidget;

namespace tarvik::ui {

/// Asks where a CSV file is to be saved and puts it there whole or not at all, which is told. Its name is
/// proposed from what it holds, the vehicle first where it is one's alone, and the day.
void saveCsvFile(Context& context, const QString& what, const std::string& bytes, QWidget* parent);

/// Asks for a CSV file of this program or another, shows what it would bring into a vehicle's logbook and
/// takes over what the person ticks; true when entries were taken over. list lists that logbook anew, after
/// each try to take entries over. A file that holds no logbook is told in a box. Throws Failure when a file
/// cannot be read.
bool importCsvFile(Context& context, const std::string& plate, QWidget* parent,
                   const std::function<void()>& list);

/// As importCsvFile, of a file that was chosen already.
bool importCsvFileAt(Context& context, const std::string& plate, const QString& path, QWidget* parent,
                     const std::function<void()>& list);

}  // namespace tarvik::ui
