#include "tools/demo/household.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/number_text.h"
#include "tools/demo/registers.h"

namespace tarvik::demo {
namespace {

using core::Day;

constexpr auto* kLog = TARVIK_TEST_DATA "/fuel_log_estate.csv";
const Day kToday = core::dayOf({2026, 11, 21});

std::vector<Car> cars() {
  return household(kLog, kToday);
}

const Car& carOf(const std::vector<Car>& all, const std::string& plate) {
  return *std::find_if(all.begin(), all.end(), [&](const Car& car) { return car.plate == plate; });
}

std::vector<Event> fillUpsOf(const Car& car) {
  std::vector<Event> fillUps;
  for (const Event& event : car.events) {
    if (event.litres.tenThousandths > 0) fillUps.push_back(event);
  }
  return fillUps;
}

bool isPassed(const reminders::KmReminderEntry& entry, const Car& car) {
  const auto number = [](const std::string& text) { return core::toWhole32(core::plainNumber(text)); };
  return car.events.back().km > number(entry.reading) + number(entry.after);
}

TEST(Household, LastFillUpOfTheFirstCarWasFourDaysAgo) {
  const auto all = cars();
  EXPECT_EQ(carOf(all, "KLM456").events.back().day, core::dayOf({2026, 11, 17}));
}

TEST(Household, NothingHappensAfterToday) {
  for (const Car& car : cars()) EXPECT_LT(car.events.back().day, kToday) << car.plate;
  for (const auto& entry : repairEntries(kToday)) EXPECT_LT(entry.date, kToday) << entry.description;
}

TEST(Household, NoCarIsWithoutFillUpForThreeMonths) {
  for (const Car& car : cars()) {
    const auto fillUps = fillUpsOf(car);
    for (std::size_t i = 1; i < fillUps.size(); ++i)
      EXPECT_LT(core::daysBetween(fillUps[i - 1].day, fillUps[i].day), 90)
          << car.plate << ' ' << fillUps[i].km;
  }
}

TEST(Household, EveryFullFillUpGivesAConsumptionThatACarCanHave) {
  for (const Car& car : cars()) {
    std::int64_t sinceFull = 0;
    std::int32_t lastFullKm = 0;
    for (const Event& fillUp : fillUpsOf(car)) {
      sinceFull += fillUp.litres.tenThousandths;
      if (!fillUp.isFull) continue;
      if (lastFullKm > 0) {
        const double litresPer100Km = static_cast<double>(sinceFull) / 100.0 / (fillUp.km - lastFullKm);
        EXPECT_GT(litresPer100Km, 3.5) << car.plate << ' ' << fillUp.km;
        EXPECT_LT(litresPer100Km, 9.5) << car.plate << ' ' << fillUp.km;
      }
      sinceFull = 0;
      lastFullKm = fillUp.km;
    }
  }
}

TEST(Household, OnlyAnotherCarThanTheFirstHasAPassedKmReminder) {
  const auto all = cars();
  std::vector<std::string> passed;
  for (const auto& reminder : kmReminders(kToday)) {
    if (isPassed(reminder.entry, carOf(all, reminder.entry.plate))) passed.push_back(reminder.entry.plate);
  }
  EXPECT_THAT(passed, testing::ElementsAre("ABC123"));
}

// The screen of reminders reckons with the log of the car on the main screen, whosever reminder it is.
TEST(Household, TheFirstKmReminderIsOfTheCarThatIsShownFirst) {
  EXPECT_EQ(kmReminders(kToday).front().entry.plate, "KLM456");
}

TEST(Household, RepairsStandInTheLogbooksOfTheirDay) {
  const auto all = cars();
  for (const auto& repair : repairEntries(kToday)) {
    const auto& events = carOf(all, repair.plate).events;
    EXPECT_TRUE(std::any_of(events.begin(), events.end(),
                            [&](const Event& event) {
                              return event.day == repair.date && std::to_string(event.km) == repair.reading;
                            }))
        << repair.plate << ' ' << repair.reading;
  }
}

}  // namespace
}  // namespace tarvik::demo
