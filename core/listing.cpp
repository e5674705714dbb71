#include "core/listing.h"

#include <limits>

#include "core/number_format.h"

namespace tarvik::core {
namespace {

// The stored dates of a filter: from the first day up to, not including, the last.
struct DateRange {
  double from;
  double before;
};

DateRange yearOf(Day picked) {
  const int year = calendarDate(picked).year;
  return {toStored(dayOf({year, 1, 1})), toStored(dayOf({year, 12, 31})) + 1};
}

DateRange monthOf(Day picked) {
  const CalendarDate date = calendarDate(picked);
  const Day first = dayOf({date.year, date.month, 1});
  const bool isDecember = date.month == 12;
  if (isDecember) return {toStored(first), toStored(first) + 31};
  return {toStored(first), toStored(dayOf({date.year, date.month + 1, 1}))};
}

std::string flagText(std::int16_t flag) {
  return flag == kFlagSet ? "X" : "";
}

std::string distanceText(std::int32_t previousKm, std::int32_t km) {
  if (previousKm == 0) return "0";
  return std::to_string(std::int64_t{km} - previousKm);
}

}  // namespace

std::vector<std::uint16_t> listedEntries(const Logbook& logbook, const ListFilter& filter) {
  const bool filtered = filter.mode == kYearList || filter.mode == kMonthList;
  const DateRange range = filter.mode == kYearList ? yearOf(filter.picked) : monthOf(filter.picked);
  std::vector<std::uint16_t> numbers;
  numbers.reserve(filtered ? 0 : static_cast<std::size_t>(logbook.count()));
  for (int number = 1; number <= logbook.count(); ++number) {
    if (filtered) {
      const double datum = logbook.record(number).Datum;
      if (!(datum >= range.from && datum < range.before)) continue;
    }
    numbers.push_back(static_cast<std::uint16_t>(number));
  }
  return numbers;
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
      return distanceText(row == 0 ? 0 : entry(row - 1).KmOra, shown.KmOra);
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
