#include "core/listing.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/number_format.h"

namespace tarvik::core {
namespace {

// The days of a filter, both ends included.
struct DayRange {
  Day first;
  Day last;

  bool holds(double stored) const {
    const std::optional<Day> day = dayFromStored(stored);
    return day && *day >= first && *day <= last;
  }
};

DayRange yearOf(Day picked) {
  const int year = calendarDate(picked).year;
  return {dayOf({year, 1, 1}), dayOf({year, 12, 31})};
}

DayRange monthOf(Day picked) {
  const auto [year, month, day] = calendarDate(picked);
  const Day first = dayOf({year, month, 1});
  if (month == 12) return {first, dayOf({year, month, 31})};
  return {first, addDays(dayOf({year, month + 1, 1}), -1)};
}

std::string flagText(std::int16_t flag) {
  return flag == kFlagSet ? "X" : "";
}

std::int64_t distance(std::int32_t previousKm, std::int32_t km) {
  return previousKm == 0 ? 0 : std::int64_t{km} - previousKm;
}

}  // namespace

std::vector<std::uint16_t> listedEntries(const Logbook& logbook, const ListFilter& filter) {
  const bool filtered = filter.mode == kYearList || filter.mode == kMonthList;
  const DayRange range = filter.mode == kYearList ? yearOf(filter.picked) : monthOf(filter.picked);
  std::vector<std::uint16_t> numbers;
  numbers.reserve(filtered ? 0 : static_cast<std::size_t>(logbook.count()));
  for (int number = 1; number <= logbook.count(); ++number) {
    if (filtered && !range.holds(logbook.record(number).Datum)) continue;
    numbers.push_back(static_cast<std::uint16_t>(number));
  }
  return numbers;
}

std::string longestDistance(const Listing& listing) {
  std::int64_t most = 0;
  std::int64_t least = 0;
  std::int32_t previous = 0;
  for (const std::uint16_t number : listing.numbers) {
    const std::int32_t km = listing.logbook.record(number).KmOra;
    const std::int64_t driven = distance(std::exchange(previous, km), km);
    most = std::max(most, driven);
    least = std::min(least, driven);
  }
  return std::ranges::max(std::to_string(most), std::to_string(least), {}, &std::string::size);
}

std::string literText(const NapiAdat& entry) {
  return formatted(entry.TankoltLiter.ratio(), "##.00");
}

std::string Listing::cell(int row, int column) const {
  const NapiAdat shown = entry(row);
  switch (column) {
    case kDatumColumn:
      return shortDateOfStored(shown.Datum);
    case kKmOraColumn:
      return std::to_string(shown.KmOra);
    case kLiterColumn:
      return literText(shown);
    case kKmColumn:
      return std::to_string(distance(row == 0 ? 0 : entry(row - 1).KmOra, shown.KmOra));
    case kOlajColumn:
      return flagText(shown.Olajcsere);
    case kSzuroColumn:
      return flagText(shown.Szurocsere);
    case kGyertyaColumn:
      return flagText(shown.Gyertyacsere);
    case kAlkatreszColumn:
      return shown.Alkatresz.trimmed();
    case kMegjegyzesColumn:
      return shown.Megjegyzes.trimmed();
    case kRecColumn:
      return std::to_string(number(row));
    default:
      return {};
  }
}

}  // namespace tarvik::core
