#include "core/statistics.h"

#include "core/failure.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/ratio.h"

namespace tarvik::core {
namespace {

// An entry of the logbook; nothing past its ends.
std::optional<NapiAdat> existing(const Logbook& logbook, int number) {
  if (number < 1 || number > logbook.count()) return std::nullopt;
  return logbook.record(number);
}

// 0 where there is none.
int lastFuelling(const Logbook& logbook) {
  for (int number = logbook.count(); number > 0; --number) {
    const NapiAdat entry = logbook.record(number);
    if (!entry.TankoltLiter.isZero() && entry.KmOra != 0) return number;
  }
  return 0;
}

// From entry 2 to the last fuelling; 0 where there is no telling.
std::int64_t kmPerDay(const Logbook& logbook, int lastNumber) {
  if (lastNumber == 0 || logbook.count() < 2) return 0;
  const NapiAdat start = logbook.record(2);
  const NapiAdat last = logbook.record(lastNumber);
  const auto from = dayFromStored(start.Datum);
  const auto to = dayFromStored(last.Datum);
  if (!from || !to || *from == *to) return 0;
  return wholeQuotient(Ratio(last.KmOra) - start.KmOra, daysBetween(*from, *to));
}

// How the walk back from the clicked entry ended.
struct Walk {
  NapiAdat lastRead;                   // the entry read last
  std::optional<std::string> caption;  // nothing: the bound was reached
};

// Nothing for a full fill at the reading of the one before.
std::optional<std::string> consumptionCaption(const NapiAdat& clicked, const NapiAdat& previousFull,
                                              const Ratio& litres) {
  if (clicked.Teletank == kFlagSet) {
    const Ratio distance = Ratio(clicked.KmOra) - previousFull.KmOra;
    if (distance.isZero()) return std::nullopt;
    return formatted(litres / (distance / 100), "##.00");
  }
  return clicked.TankoltLiter.isZero() ? "Nem volt tankolás!" : "Nem volt teletankolva!";
}

// The last fuelling bounds the walk, not the clicked entry: a row may keep the figure shown before. Nothing
// where it leaves the logbook or comes to no figure.
std::optional<Walk> walkToFullFill(const Logbook& logbook, int selected, int lastNumber) {
  const std::optional<NapiAdat> clicked = existing(logbook, selected);
  if (!clicked) return std::nullopt;
  if (selected < 2) return Walk{*clicked, ""};
  Walk walk{*clicked, std::nullopt};
  Ratio litres = clicked->TankoltLiter.ratio();
  for (int steps = 1; steps != lastNumber - 1; ++steps) {
    const std::optional<NapiAdat> entry = existing(logbook, selected - steps);
    if (!entry) return std::nullopt;
    walk.lastRead = *entry;
    if (entry->Teletank == kFlagSet) {
      walk = {*clicked, consumptionCaption(*clicked, *entry, litres)};
      return walk.caption ? std::optional(walk) : std::nullopt;
    }
    litres = litres + entry->TankoltLiter.ratio();
  }
  return walk;
}

// Fills what it gets to. Throws Failure for figures that no car comes to.
void estimate(const Logbook& logbook, const StatisticsInput& input, Statistics& found) {
  const int last = lastFuelling(logbook);
  const std::int64_t perDay = kmPerDay(logbook, last);
  const Ratio average = plainNumber(input.average);
  if (perDay == 0 || average.isZero()) return;
  const std::int64_t daysATank = wholeQuotient(Ratio(input.tankSize) / average * 100, perDay);

  const std::optional<Walk> walk = walkToFullFill(logbook, input.selected, last);
  if (!walk) return;
  found.pillAtlag = walk->caption;
  const std::optional<Day> day = dayFromStored(walk->lastRead.Datum);
  if (!day) return;
  const Day expected = addDays(*day, daysATank);
  found.datum = shortDate(expected);
  const Day reference = input.selected == last ? input.today : *day;
  found.km = std::to_string(toWhole(Ratio(perDay) * daysBetween(reference, expected)));
  const Ratio price = logbook.record(input.selected).FtPerLiter.ratio();
  found.ftPerKm = formatted(price * average / 100, R"(### ###.##\ \F\t\/\K\m)");
}

}  // namespace

Statistics statisticsOf(const Logbook& logbook, const StatisticsInput& input) {
  Statistics found;
  if (input.tankSize == 0 || input.selected == 0) return found;
  try {
    estimate(logbook, input, found);
  } catch (const Failure&) {
    // A damaged record: the labels that are not set keep what they show, and the click goes on.
  }
  return found;
}

}  // namespace tarvik::core
