#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "settings/lookup_list.h"

class QComboBox;
class QLineEdit;

namespace tarvik::ui {

/// The keyboard rules of the note field: coming to it selects its text ("Tankolás" when it is empty), and
/// typing at its end offers the note that goes on like this, the part not yet typed selected.
class NoteTypeAhead : public QObject {
 public:
  /// Finds the note that goes on from a typed text and a key.
  using Finder =
      std::function<std::optional<settings::CompletedNote>(const QString& typed, const QString& key)>;

  NoteTypeAhead(QComboBox* field, Finder find);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void selectWhole(Qt::FocusReason reason);
  bool complete(const QString& key);

  QLineEdit* edit_;
  Finder find_;
};

}  // namespace tarvik::ui
