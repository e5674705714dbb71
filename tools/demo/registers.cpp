#include "tools/demo/registers.h"

#include <string>

#include "tools/demo/household.h"

namespace tarvik::demo {
namespace {

core::Day day(int year, int month, int dayOfMonth) {
  return core::dayOf({year, month, dayOfMonth});
}

repairs::NewRepair repair(const char* plate, core::Day date, const char* description, const char* part,
                          int cost, int reading) {
  return {.plate = plate,
          .date = date,
          .description = description,
          .part = part,
          .cost = std::to_string(cost),
          .reading = std::to_string(reading)};
}

}  // namespace

std::vector<tyres::NewTyreSet> tyreSets() {
  return {{.plate = "KLM456",
           .isFitted = false,
           .fields = {.type = "Nyári országúti",
                      .size = "205/55 R16",
                      .maxKm = "45000",
                      .season = tyres::kSummer,
                      .kmWhenFitted = "211744",
                      .kmRun = "47820"}},
          {.plate = "KLM456",
           .isFitted = true,
           .fields = {.type = "Téli hegyi",
                      .size = "205/55 R16",
                      .maxKm = "40000",
                      .season = tyres::kWinter,
                      .kmWhenFitted = "240649",
                      .kmRun = "770"}},
          {.plate = "ABC123",
           .isFitted = false,
           .fields = {.type = "Négyévszakos városi",
                      .size = "185/65 R15",
                      .maxKm = "50000",
                      .season = tyres::kAllSeason,
                      .kmWhenFitted = "85640",
                      .kmRun = "8900"}}};
}

std::vector<repairs::NewRepair> repairEntries(core::Day today) {
  std::vector<repairs::NewRepair> entries{
      repair("KLM456", day(2020, 3, 6), "Első fékbetét csere", "Fékbetét első", 18'900, 216'480),
      repair("KLM456", day(2020, 7, 10), "Nagyszerviz", "Olajszűrő, levegőszűrő, gyertya", 34'600, 219'420),
      repair("KLM456", day(2020, 9, 30), "Vezérműszíj csere", "Vezérműszíj készlet, vízpumpa", 86'500,
             222'300),
      repair("ABC123", day(2020, 12, 4), "Olajcsere", "Olaj, olajszűrő", 19'400, 86'960),
      repair("XYZ789", day(2021, 3, 19), "Olajcsere", "Olaj, olajszűrő", 18'700, 42'560),
      repair("KLM456", day(2021, 3, 20), "Akkumulátor csere", "Akkumulátor", 32'500, 226'560),
      repair("KLM456", day(2021, 6, 11), "Olajcsere", "Olaj, olajszűrő", 24'300, 228'310),
      repair("KLM456", day(2021, 9, 24), "Hátsó fékbetét csere", "Fékbetét hátsó", 16'400, 232'505),
      repair("XYZ789", day(2022, 1, 9), "Akkumulátor csere", "Akkumulátor", 36'900, 49'300),
      repair("ABC123", day(2022, 1, 19), "Első fékbetét csere", "Fékbetét első", 15'800, 96'900),
      repair("ABC123", day(2022, 5, 25), "Nagyszerviz", "Olajszűrő, levegőszűrő, gyertya", 33'900, 99'650),
      repair("KLM456", day(2022, 6, 20), "Nagyszerviz", "Olajszűrő, levegőszűrő, gyertya", 29'700, 237'510),
  };
  for (repairs::NewRepair& entry : entries) entry.date = moved(entry.date, today);
  return entries;
}

std::vector<Entered<reminders::KmReminderEntry>> kmReminders(core::Day today) {
  std::vector<Entered<reminders::KmReminderEntry>> all{
      {day(2022, 6, 20), {"Olajcsere, olajszűrő", "237510", "5000", "KLM456"}},
      {day(2020, 9, 30), {"Vezérműszíj csere", "222300", "90000", "KLM456"}},
      {day(2020, 12, 4), {"Fékfolyadék csere", "86960", "10000", "ABC123"}},
      {day(2022, 5, 25), {"Olajcsere, olajszűrő", "99650", "15000", "ABC123"}},
  };
  for (auto& reminder : all) reminder.on = moved(reminder.on, today);
  return all;
}

std::vector<Entered<reminders::DateReminderEntry>> dateReminders(core::Day today) {
  const core::Day entered = core::addDays(today, -60);
  return {
      {entered, {core::addDays(today, 5), "Műszaki vizsga", "KLM456"}},
      {entered, {core::addDays(today, -3), "Kötelező biztosítás", "ABC123"}},
      {entered, {core::addDays(today, 200), "Autópálya matrica", "XYZ789"}},
  };
}

}  // namespace tarvik::demo
