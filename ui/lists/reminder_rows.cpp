#include "ui/lists/reminder_rows.h"

#include "ui/base/text.h"

namespace tarvik::ui {

std::vector<TextRow> toTextRows(const std::vector<reminders::ReminderRow>& rows) {
  std::vector<TextRow> texts;
  texts.reserve(rows.size());
  for (const reminders::ReminderRow& row : rows)
    texts.push_back({.cells = {toQt(row.date), toQt(row.text), toQt(row.plate)}, .record = toQt(row.record)});
  return texts;
}

}  // namespace tarvik::ui
