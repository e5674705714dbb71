#pragma once

#include <QString>
#include <functional>

#include "core/failure.h"

class QWidget;

namespace tarvik::ui {

/// What a failure says of its consequences where no more is said: the data are as they were.
inline const QString kNothingChanged = QStringLiteral("Semmi sem változott.");

/// What a save that the system did not confirm says: it may be done or not.
inline const QString kLookAtTheList = QStringLiteral("Nézd meg a listát, mielőtt megismétled!");

/// What a failure means for the data, in the words of its box.
struct Consequence {
  QString failed = kNothingChanged;  ///< when the action was not done
  QString unsure = kLookAtTheList;   ///< when the system could not confirm whether it was
};

/// What a failure says to the person, in Hungarian: what failed and what that means for the data.
QString failureText(const core::Failure& failure, const Consequence& consequence = {});

/// What became of an action.
enum class Outcome {
  Done,     ///< it went through
  Refused,  ///< what was typed cannot be used; no file was touched
  Failed,   ///< it failed on the way
};
/// An outcome, with what is to be told of it when it is not Done.
struct [[nodiscard]] Attempt {
  Outcome outcome = Outcome::Done;
  QString text = {};
  QString field = {};  ///< the control whose text was refused, by its name

  bool isDone() const { return outcome == Outcome::Done; }
};

/// Runs an action and catches its failure, running out of memory too, without telling it.
Attempt attempted(const std::function<void()>& action, const Consequence& consequence = {});

/// Tells what came of an action that was not done: one critical box titled " H i b a !".
void tell(QWidget* parent, const QString& failure);

/// Runs one user action; a failure ends it and is told. Every handler of every screen runs in it. True when
/// it went through.
bool guarded(QWidget* parent, const std::function<void()>& action, const Consequence& consequence = {});

/// An action that comes again and again, as a timer's or a key's does.
class ToldOnce {
 public:
  /// As guarded; but a failure that was told is not told again until the action has gone through.
  bool run(QWidget* parent, const std::function<void()>& action);

 private:
  QString told_;
};

/// Runs a part of an action that never complains: a failure in it ends that part alone and is not told.
/// True when it went through.
bool quietly(const std::function<void()>& part);

}  // namespace tarvik::ui
