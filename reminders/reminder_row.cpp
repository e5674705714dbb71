#include "reminders/reminder_row.h"

#include "core/number_format.h"
#include "core/number_text.h"

namespace tarvik::reminders {

ReminderRow placeholderRow() {
  return {.date = " ", .text = "Nincs figyelmeztetés...", .plate = " ", .record = " "};
}

std::vector<ReminderRow> orPlaceholder(std::vector<ReminderRow> rows) {
  if (rows.empty()) rows.push_back(placeholderRow());
  return rows;
}

std::int16_t recordNumber(std::string_view hidden) {
  return core::toWhole16(core::plainNumber(hidden));
}

std::string grouped(std::int64_t value) {
  return core::formatted(value, "### ### ###");
}

}  // namespace tarvik::reminders
