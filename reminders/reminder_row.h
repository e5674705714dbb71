#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::reminders {

/// A reminder as a list shows it. Texts are those stored, with their padding.
struct ReminderRow {
  std::string date;        ///< first column
  std::string text;        ///< second column, 40 characters
  std::string plate;       ///< third column, 10 characters
  std::string record;      ///< hidden: the record number; one space in the placeholder row
  bool isOverdue = false;  ///< its day is past; told where what is due is listed

  friend bool operator==(const ReminderRow&, const ReminderRow&) = default;
};

/// The row that stands for an empty list: "Nincs figyelmeztetés..." between columns of one space.
ReminderRow placeholderRow();

/// The same rows, or the placeholder row alone when there are none.
std::vector<ReminderRow> orPlaceholder(std::vector<ReminderRow> rows);

/// The record number that a hidden text holds; 0 for the placeholder's. Throws Failure(OutOfRange) past
/// 16 bits.
std::int16_t recordNumber(std::string_view hidden);

/// The numbers of the reminder screens in groups of three ("12 500"); 0 is the empty text.
std::string grouped(std::int64_t value);

}  // namespace tarvik::reminders
