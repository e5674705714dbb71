#pragma once

#include <QString>
#include <string>

class QAction;
class QDialog;
class QLineEdit;

namespace tarvik::ui {

/// Puts a menu bar with one item over a dialog's parts; the item closes the dialog.
void addClosingMenu(QDialog& dialog, QAction* close);

/// A whole number as digits.
QString numberText(int number);

/// Fills a field; a text that is too long for its width shows its beginning.
void fillField(QLineEdit* field, const std::string& text);

}  // namespace tarvik::ui
