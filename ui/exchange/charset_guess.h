#pragma once

#include <QByteArray>
#include <string>

namespace tarvik::ui {

/// The name of the encoding that a text is most likely in ("WINDOWS-1251"); empty where there is no telling.
std::string guessedCharset(const QByteArray& bytes);

}  // namespace tarvik::ui
