#include "tools/demo/registers.h"

#include <string>

namespace tarvik::demo {
namespace {

repairs::NewRepair repair(const char* plate, const core::CalendarDate& date, const char* description,
                          const char* part, int cost, int reading) {
  return {.plate = plate,
          .date = core::dayOf(date),
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
                      .kmWhenFitted = "229080",
                      .kmRun = "47820"}},
          {.plate = "KLM456",
           .isFitted = true,
           .fields = {.type = "Téli hegyi",
                      .size = "205/55 R16",
                      .maxKm = "40000",
                      .season = tyres::kWinter,
                      .kmWhenFitted = "276900",
                      .kmRun = "2580"}},
          {.plate = "ABC123",
           .isFitted = false,
           .fields = {.type = "Négyévszakos városi",
                      .size = "185/65 R15",
                      .maxKm = "50000",
                      .season = tyres::kAllSeason,
                      .kmWhenFitted = "85640",
                      .kmRun = "8900"}}};
}

std::vector<repairs::NewRepair> repairEntries() {
  return {
      repair("KLM456", {2019, 11, 25}, "Olajcsere", "Olaj, olajszűrő", 21'800, 208'390),
      repair("KLM456", {2020, 3, 6}, "Első fékbetét csere", "Fékbetét első", 18'900, 216'480),
      repair("KLM456", {2021, 3, 20}, "Akkumulátor csere", "Akkumulátor", 32'500, 226'560),
      repair("KLM456", {2021, 9, 24}, "Hátsó fékbetét csere", "Fékbetét hátsó", 16'400, 232'505),
      repair("ABC123", {2024, 5, 3}, "Olajcsere", "Olaj, olajszűrő", 19'400, 86'960),
      repair("XYZ789", {2024, 8, 16}, "Olajcsere", "Olaj, olajszűrő", 18'700, 42'560),
      repair("KLM456", {2024, 9, 10}, "Vezérműszíj csere", "Vezérműszíj készlet, vízpumpa", 86'500, 261'560),
      repair("KLM456", {2025, 3, 28}, "Első féktárcsa csere", "Féktárcsa első, fékbetét első", 41'800,
             268'290),
      repair("XYZ789", {2025, 6, 8}, "Akkumulátor csere", "Akkumulátor", 36'900, 49'300),
      repair("ABC123", {2025, 6, 18}, "Első fékbetét csere", "Fékbetét első", 15'800, 96'900),
      repair("ABC123", {2025, 10, 22}, "Nagyszerviz", "Olajszűrő, levegőszűrő, gyertya", 33'900, 99'650),
      repair("KLM456", {2026, 3, 2}, "Gyertya csere", "Gyertya", 19'600, 279'480),
  };
}

std::vector<Entered<reminders::KmReminderEntry>> kmReminders() {
  return {
      {core::dayOf({2021, 6, 11}), {"Fékfolyadék csere", "228310", "50000", "KLM456"}},
      {core::dayOf({2025, 9, 1}), {"Olajcsere, olajszűrő", "273610", "7000", "KLM456"}},
      {core::dayOf({2024, 9, 10}), {"Vezérműszíj csere", "261560", "90000", "KLM456"}},
      {core::dayOf({2025, 10, 22}), {"Olajcsere, olajszűrő", "99650", "15000", "ABC123"}},
  };
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
