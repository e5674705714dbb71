#pragma once

#include <QList>
#include <QString>
#include <string>

class QAction;
class QDialog;
class QLineEdit;

namespace tarvik::ui {

/// Puts a menu bar over a dialog's parts, with an item that closes the dialog and others behind it.
void addClosingMenu(QDialog& dialog, QAction* close, const QList<QAction*>& others = {});

/// A whole number as digits.
QString numberText(int number);

/// Fills a field; a text that is too long for its width shows its beginning.
void fillField(QLineEdit* field, const std::string& text);

}  // namespace tarvik::ui
