#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "core/record_list.h"
#include "reminders/km_alert.h"
#include "reminders/reminder_row.h"
#include "ui/base/text.h"
#include "ui/lists/text_list_model.h"

class QLabel;
class QWidget;

namespace tarvik::ui {

class ListView;

/// Puts a list of reminders on a view under three headers (date, text, plate), wide enough for what
/// reminders hold; the model belongs to the view.
TextListModel* prepareReminderList(ListView* view, const QStringList& headers);

/// The reminders as rows of that list.
std::vector<TextRow> toTextRows(const std::vector<reminders::ReminderRow>& rows);

/// Shows a text on a label that stands for a figure or a stored text, to assistive tools too.
void showCaption(QLabel* label, const QString& text);

/// The text of a reminder that was seen, as a step names it; empty where there was none.
template <typename Reminder>
QString reminderText(const core::SeenRecord& seen) {
  return toQt(core::recordOf<Reminder>(seen).Szoveg.trimmed());
}

/// Tells that no row was chosen to be deleted.
void tellNothingSelected(QWidget* screen);

/// Tells of the reminders that the km check cannot check, each once: the check finds them at every tick.
class UncheckedTold {
 public:
  void tell(QWidget* screen, const std::vector<reminders::UncheckedReminder>& found);

 private:
  std::vector<reminders::UncheckedReminder> told_;
};

}  // namespace tarvik::ui
