#pragma once

#include <QString>

class QKeyEvent;

namespace tarvik::ui {

/// Whether a key writes something, and is no command.
bool isTyped(const QKeyEvent& event);

/// Whether a key that was not for the field may run a command, which is to find what the field shows.
bool mayRunCommand(const QKeyEvent& event);

/// Whether what was typed only ends a part of a day: points, hyphens, slashes, spaces.
bool endsPart(const QString& keys);

}  // namespace tarvik::ui
