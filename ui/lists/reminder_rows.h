#pragma once

#include <vector>

#include "reminders/reminder_row.h"
#include "ui/lists/text_list_model.h"

namespace tarvik::ui {

/// The reminders as rows of a list: date, text and plate, with the record number in the hidden column.
std::vector<TextRow> toTextRows(const std::vector<reminders::ReminderRow>& rows);

}  // namespace tarvik::ui
