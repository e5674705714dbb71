#pragma once

#include <QObject>
#include <functional>

#include "core/entry_input.h"
#include "core/ratio.h"
#include "ui/base/context.h"
#include "ui/base/guarded.h"

namespace tarvik::ui {

class EntryForm;
class LogbookPane;

/// What recording, modifying and deleting an entry does on the main screen, between the form that is typed
/// into and the list: they ask, change the logbook of the vehicle that is set, and list anew.
class EntryChanges : public QObject {
  Q_OBJECT

 public:
  /// Says that no plate is given, with what cannot be done so, where that is so; false where one is.
  using PlateCheck = std::function<bool(const QString& consequence)>;
  /// The vehicle's plate as it stands on the screen.
  using Plate = std::function<QString()>;

  /// Follows the form's buttons and belongs to the form. All else outlives it.
  EntryChanges(Context& context, EntryForm& form, LogbookPane& pane, Plate plate,
               PlateCheck refusesBlankPlate);

 private:
  void record();
  void modify();
  void remove();
  bool wouldDouble(const core::EntryInput& input) const;
  bool change(const QString& done, const std::function<void()>& make);
  Attempt addDistanceToTyres(const core::Ratio& distance);
  std::string plate() const;

  Context& context_;
  EntryForm& form_;
  LogbookPane& pane_;
  Plate plate_;
  PlateCheck refusesBlankPlate_;
};

}  // namespace tarvik::ui
