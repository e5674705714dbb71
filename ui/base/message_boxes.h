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
[[nodiscard]] bool ask(QWidget* parent, const QString& title, const QString& prompt, DefaultAnswer byDefault);

/// What a person answers who may also give up what led to the question.
enum class Answer { Yes, No, Cancel };

/// Asks a question with Yes, No and Cancel; Enter is Yes, Escape is Cancel.
Answer askOrCancel(const QString& title, const QString& prompt);

/// Tells of something that was done, with an OK button and the information icon.
void tellDone(QWidget* parent, const QString& title, const QString& prompt);

/// Tells of an error with an OK button and the critical icon.
void tellError(QWidget* parent, const QString& title, const QString& prompt);

/// Asks for a line of text; nothing when the person gave up.
std::optional<QString> askText(QWidget* parent, const QString& title, const QString& prompt);

/// Makes a dialog that was given its title and parts at least as wide as the title needs.
void makeRoomForTitle(QDialog& dialog);

}  // namespace tarvik::ui
