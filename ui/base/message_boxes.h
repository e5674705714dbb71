#pragma once

#include <QString>
#include <optional>

class QDialog;
class QWidget;

namespace tarvik::ui {

/// The answer that Enter gives to a question: No where Yes overwrites, empties, deletes or doubles something
/// that exists, else Yes. Escape is No.
enum class DefaultAnswer { Yes, No };

/// Asks a question with Yes and No; true for Yes.
bool ask(QWidget* parent, const QString& title, const QString& prompt, DefaultAnswer byDefault);

/// Tells of an error with an OK button and the critical icon.
void tellError(QWidget* parent, const QString& title, const QString& prompt);

/// Asks for a line of text; nothing when the person gave up.
std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt);

/// Makes a dialog that was given its title and parts at least as wide as the title needs.
void makeRoomForTitle(QDialog& dialog);

}  // namespace tarvik::ui
