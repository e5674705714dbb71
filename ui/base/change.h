#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace tarvik::ui {

/// What is said when a list, or what is computed from it, could not be read to its end.
inline const QString kListIncomplete = QStringLiteral("A lista vagy az összesítése nem teljes.");

/// A change of the data and the listing after it, which are two steps: the one can be done where the other
/// fails, and the person is told which.
struct Change {
  QString done = {};                     ///< the sentence that says that it is done, where it is listed then
  std::function<void()> make;            ///< makes it, and sets the fields as they are after it
  std::function<void()> forget = {};     ///< lets go of what was chosen, when it failed
  std::function<void()> list;            ///< reads the list anew, with nothing chosen in it
  QString incomplete = kListIncomplete;  ///< said when list fails
  QString listed = {};                   ///< said with a failure of make once list has gone through
};

/// Carries a change out and lists anew, whether it was made or not, before anything is told: what a box says
/// to look at is what is there. What was typed and cannot be used changes nothing, the choice that it belongs
/// to stays, and the keyboard goes to its field. True when the change was made.
bool carryOut(QWidget* screen, const Change& change);

}  // namespace tarvik::ui
