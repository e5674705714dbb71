#include "ui/look/day_keys.h"

#include <QKeyEvent>
#include <algorithm>

namespace tarvik::ui {

bool isTyped(const QKeyEvent& event) {
  constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return !event.text().isEmpty() && event.text().front().isPrint() && !(event.modifiers() & kCommands);
}

bool mayRunCommand(const QKeyEvent& event) {
  return !event.isAccepted() && (event.modifiers() & Qt::AltModifier);
}

bool endsPart(const QString& keys) {
  return std::all_of(keys.begin(), keys.end(),
                     [](QChar key) { return QStringLiteral(" .-/").contains(key); });
}

}  // namespace tarvik::ui
