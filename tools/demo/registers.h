#pragma once

#include <vector>

#include "core/day.h"
#include "reminders/date_reminders.h"
#include "reminders/km_reminders.h"
#include "repairs/repair_log.h"
#include "tyres/tyre_register.h"

namespace tarvik::demo {

/// The household's tyre sets: one on a car, one past its maximum, one put aside.
std::vector<tyres::NewTyreSet> tyreSets();

/// The household's repairs and services, in order of date.
std::vector<repairs::NewRepair> repairEntries(core::Day today);

/// A reminder and the day on which it was entered.
template <typename Entry>
struct Entered {
  core::Day on;
  Entry entry;
};

/// The household's km reminders: first those of KLM456, the car that is shown first and whose log the screen
/// of reminders reckons with, one that soon will be passed and one far off; then of ABC123 one passed and one
/// not.
std::vector<Entered<reminders::KmReminderEntry>> kmReminders(core::Day today);

/// The household's date reminders: one due in a few days, one overdue and one far off from today.
std::vector<Entered<reminders::DateReminderEntry>> dateReminders(core::Day today);

}  // namespace tarvik::demo
