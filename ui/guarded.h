#pragma once

#include <QString>
#include <functional>

#include "core/failure.h"

class QWidget;

namespace tarvik::ui {

/// What a failure says to the person, in Hungarian: what failed and that nothing was changed.
QString failureText(const core::Failure& failure);

/// Runs one user action. A failure in it ends the action and shows one critical box titled " H i b a !";
/// so does running out of memory. Every handler of every screen runs in it. True when it went through.
bool guarded(QWidget* parent, const std::function<void()>& action);

/// Runs a part of an action that never complains: a failure in it ends that part alone and is not told.
/// True when it went through.
bool quietly(const std::function<void()>& part);

}  // namespace tarvik::ui
