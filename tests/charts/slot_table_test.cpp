#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

#include "charts/scroll_view.h"
#include "charts/series.h"
#include "entries.h"

// A second computation of all series, kept apart from the first on purpose: one plain routine over a table
// of slots with its own calendar and rounding, compared with the first over real and generated logs.

namespace tarvik::test {
namespace {

using charts::ChartPoint;
using core::NapiAdat;
using Entries = std::vector<NapiAdat>;

struct Slot {
  std::int64_t value = 0;
  std::string label;
};

struct Calendar {
  int year, month, day;
};

// Counts the days up from 1 January 1900, which is day 2.
Calendar calendarOf(double date) {
  int rest = static_cast<int>(std::floor(date)) - 2;
  static constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int year = 1900;; ++year) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    for (int month = 1; month <= 12; ++month) {
      const int days = kDays[static_cast<std::size_t>(month) - 1] + (leap && month == 2 ? 1 : 0);
      if (rest < days) return {year, month, rest + 1};
      rest -= days;
    }
  }
}

std::string twoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string dateLabel(double date) {
  const Calendar c = calendarOf(date);
  return std::to_string(c.year) + "." + twoDigits(c.month) + "." + twoDigits(c.day) + ".";
}

std::vector<ChartPoint> shown(const std::vector<Slot>& slots, int k) {
  std::vector<ChartPoint> points;
  for (int j = 1; j <= k; ++j)
    points.push_back({slots[static_cast<std::size_t>(j)].label, {slots[static_cast<std::size_t>(j)].value}});
  return points;
}

std::vector<ChartPoint> perRecord(const Entries& entries, int first, int last, bool prices) {
  std::vector<Slot> slots(entries.size() + 103);
  int k = 0;
  for (int i = first; i <= last; ++i) {
    const NapiAdat& entry = entries[static_cast<std::size_t>(i) - 1];
    const std::int64_t value = prices ? entry.FtPerLiter.tenThousandths : entry.Fogyasztas.tenThousandths;
    if (value <= 0) continue;
    k = k + 1;
    slots[static_cast<std::size_t>(k)] = {value, dateLabel(entry.Datum)};
  }
  return shown(slots, k);
}

// The quotient's nearest whole number, halves to even, by remainder.
std::int64_t rounded(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  const std::int64_t twice = 2 * (dividend % divisor);
  const bool up = twice > divisor || (twice == divisor && quotient % 2 != 0);
  return quotient + (up ? 1 : 0);
}

std::vector<ChartPoint> perMonth(int choice, const Entries& entries, int wholeAverage) {
  const int n = static_cast<int>(entries.size());
  std::vector<Slot> slots(103);
  std::size_t k = 0;
  std::int64_t sum = 0, count = 0, previousKm = 0, d = 0;
  int previousMonth = 0;
  for (int i = n < 100 ? 2 : n - 99; i <= n; ++i) {
    const NapiAdat& entry = entries[static_cast<std::size_t>(i) - 1];
    const Calendar date = calendarOf(entry.Datum);
    if (entry.TankoltKtg > 0) {
      if (previousKm > 0) d = entry.KmOra - previousKm;
      previousKm = entry.KmOra;
      if (!(i == 1 || date.month == previousMonth)) {
        k = k + 1;
        sum = 0;
        count = 0;
      }
      count = count + 1;
      if (choice == 3) sum += std::int64_t{entry.TankoltKtg} * 10'000;
      if (choice == 4) sum += d * 10'000;
      if (choice == 5) sum += entry.TankoltLiter.tenThousandths;
      if (choice == 6) sum += entry.Fogyasztas.tenThousandths;
      slots[k].value = sum;
      if (choice == 6) slots[k].value = rounded(sum, count);
      if (choice == 7) slots[k].value = entry.FtPerLiter.tenThousandths * wholeAverage;
      slots[k].label = std::to_string(date.year) + ". " + std::to_string(date.month) + ". hó";
    }
    previousMonth = date.month;
  }
  return shown(slots, static_cast<int>(k));
}

std::vector<ChartPoint> slotTable(int choice, const Entries& entries, int wholeAverage) {
  const int n = static_cast<int>(entries.size());
  if (choice == 1) return perRecord(entries, n < 50 ? 2 : n - 49, n, false);
  if (choice == 2) return perRecord(entries, n < 100 ? 1 : n - 99, n, true);
  return perMonth(choice, entries, wholeAverage);
}

void expectAllSeriesAlike(const Entries& entries, int wholeAverage) {
  const core::Logbook logbook = logbookOf(entries);
  const std::string average = std::to_string(wholeAverage) + ",63 Liter/100Km";
  for (int choice = 1; choice <= 7; ++choice)
    ASSERT_EQ(charts::seriesOf(choice, logbook, average), slotTable(choice, entries, wholeAverage))
        << "chart " << choice << " of " << entries.size() << " entries";
}

// Reads "51.29" as ten-thousandths.
std::int64_t tenThousandths(const std::string& text) {
  const std::size_t point = text.find('.');
  std::string decimals = point == std::string::npos ? "" : text.substr(point + 1);
  decimals.resize(4, '0');
  return std::stoll(text.substr(0, point)) * 10'000 + std::stoll(decimals);
}

// The published log as the program would have recorded it, after an entry for the car's first reading.
Entries realLog() {
  std::ifstream file(std::string(TARVIK_TEST_DATA) + "/fuel_log_estate.csv");
  Entries entries{note(stored(2019, 10, 1))};
  std::string line, date, km, litres, cost, full;
  std::getline(file, line);
  int lastKm = 0;
  std::int64_t litresSince = 0;
  while (std::getline(file, line)) {
    std::istringstream cells(line);
    for (std::string* cell : {&date, &km, &litres, &cost, &full}) std::getline(cells, *cell, ',');
    NapiAdat entry = fuelling(
        stored(std::stoi(date.substr(0, 4)), std::stoi(date.substr(5, 2)), std::stoi(date.substr(8, 2))),
        std::stoi(cost), std::stoi(km));
    entry.TankoltLiter = {tenThousandths(litres)};
    entry.FtPerLiter = {entry.TankoltKtg * 100'000'000LL / entry.TankoltLiter.tenThousandths};
    litresSince += entry.TankoltLiter.tenThousandths;
    if (full[0] == '1') {
      if (lastKm > 0 && entry.KmOra > lastKm) entry.Fogyasztas = {litresSince * 100 / (entry.KmOra - lastKm)};
      lastKm = entry.KmOra;
      litresSince = 0;
    }
    entries.push_back(entry);
  }
  return entries;
}

TEST(SlotTable, AgreesOverARealLog) {
  Entries entries = realLog();
  ASSERT_EQ(entries.size(), 79u);
  expectAllSeriesAlike(entries, 6);
  entries.insert(entries.end(), entries.begin(), entries.end());
  expectAllSeriesAlike(entries, 6);
}

// Numbers that depend on the seed alone, whatever the library.
class Numbers {
 public:
  explicit Numbers(unsigned seed) : engine_(seed) {}
  int below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }
  bool oneIn(int bound) { return below(bound) == 0; }

 private:
  std::mt19937 engine_;
};

int generatedSize(Numbers& numbers) {
  static constexpr std::array kThresholds{0, 1, 2, 49, 50, 51, 99, 100, 101, 150};
  return numbers.oneIn(2) ? kThresholds[static_cast<std::size_t>(numbers.below(kThresholds.size()))]
                          : numbers.below(220);
}

NapiAdat generatedEntry(Numbers& numbers, double date, int km) {
  NapiAdat entry = note(date);
  entry.KmOra = numbers.oneIn(12) ? 0 : km;
  if (numbers.oneIn(4)) return entry;
  entry.TankoltKtg = numbers.oneIn(15) ? -1 : 1 + numbers.below(40'000);
  entry.TankoltLiter = {numbers.below(700'000)};
  entry.FtPerLiter = {numbers.oneIn(6) ? 0 : numbers.below(6'000'000)};
  entry.Fogyasztas = {numbers.oneIn(3) ? 0 : numbers.below(120'000)};
  return entry;
}

Entries generatedLog(Numbers& numbers) {
  Entries entries;
  double date = 36'526 + numbers.below(5'000);
  int km = numbers.below(200'000);
  const int longestPause = numbers.oneIn(2) ? 12 : 400;
  for (int rest = generatedSize(numbers); rest > 0; --rest) {
    date += numbers.below(longestPause);
    km += numbers.below(900);
    entries.push_back(generatedEntry(numbers, date + numbers.below(4) * 0.25, km));
  }
  return entries;
}

TEST(SlotTable, AgreesOverAThousandGeneratedLogs) {
  for (unsigned seed = 1; seed <= 1'000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Numbers numbers(seed);
    ASSERT_NO_FATAL_FAILURE(expectAllSeriesAlike(generatedLog(numbers), numbers.below(20)));
  }
}

TEST(SlotTable, AgreesOverAThousandScrolledViews) {
  for (unsigned seed = 1; seed <= 1'000; ++seed) {
    Numbers numbers(seed);
    const Entries entries = generatedLog(numbers);
    const int n = static_cast<int>(entries.size());
    const int position = 1 + numbers.below(std::max(1, n - 1));
    const int box = 5 + numbers.below(80);
    const bool limited = numbers.oneIn(2);
    const int first = n < 50 ? 2 : position;
    const int last = limited && first + box <= n ? first + box : n;
    ASSERT_EQ(charts::consumptionsFrom(logbookOf(entries), {position, std::to_string(box), limited}),
              perRecord(entries, first, last, false))
        << "seed " << seed;
  }
}

}  // namespace
}  // namespace tarvik::test
