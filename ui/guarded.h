#pragma once

#include <QString>
#include <functional>

#include "core/failure.h"

class QWidget;

namespace tarvik::ui {

/// What a failure says of its consequences where no more is said: the data are as they were.
inline const QString kNothingChanged = QStringLiteral("Semmi sem változott.");

/// What a failure says to the person, in Hungarian: what failed and what that means for the data.
QString failureText(const core::Failure& failure, const QString& consequence = kNothingChanged);

/// Runs one user action. A failure in it ends the action and shows one critical box titled " H i b a !";
/// so does running out of memory. Every handler of every screen runs in it. True when it went through.
bool guarded(QWidget* parent, const std::function<void()>& action,
             const QString& consequence = kNothingChanged);

/// Runs a part of an action that never complains: a failure in it ends that part alone and is not told.
/// True when it went through.
bool quietly(const std::function<void()>& part);

}  // namespace tarvik::ui
