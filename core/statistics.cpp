#include "core/statistics.h"

#include "core/failure.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/ratio.h"

namespace tarvik::core {
namespace {

// An entry that the logbook must have: a walk that leaves it at its beginning ends the estimate.
NapiAdat existing(const Logbook& logbook, int number) {
  if (number < 1 || number > logbook.count()) throw Failure(FailureKind::RecordMissing).record(number);
  return logbook.record(number);
}

int lastFuelling(const Logbook& logbook) {
  int number = logbook.count();
  while (true) {
    const NapiAdat entry = existing(logbook, number);
    if (!entry.TankoltLiter.isZero() && entry.KmOra != 0) return number;
    --number;
  }
}

std::int64_t kmPerDay(const Logbook& logbook, int lastNumber) {
  const NapiAdat start = existing(logbook, 2);
  const NapiAdat last = existing(logbook, lastNumber);
  const Ratio distance = Ratio(last.KmOra) - start.KmOra;
  return wholeQuotient(distance, daysBetween(dayOfEntry(start), dayOfEntry(last)));
}

// How the walk back from the clicked entry ended.
struct Walk {
  NapiAdat lastRead;                   // the entry read last
  std::optional<std::string> caption;  // nothing: the bound was reached
};

std::string consumptionCaption(const NapiAdat& clicked, const NapiAdat& previousFull, const Ratio& litres) {
  if (clicked.Teletank == kFlagSet) {
    const Ratio distance = Ratio(clicked.KmOra) - previousFull.KmOra;
    return formatted(litres / (distance / 100), "##.00");
  }
  return clicked.TankoltLiter.isZero() ? "Nem volt tankolás!" : "Nem volt teletankolva!";
}

// The last fuelling bounds the walk, not the clicked entry: a row may keep the figure shown before.
Walk walkToFullFill(const Logbook& logbook, int selected, int lastNumber) {
  const NapiAdat clicked = existing(logbook, selected);
  if (selected < 2) return {clicked, ""};
  Walk walk{clicked, std::nullopt};
  Ratio litres = clicked.TankoltLiter.ratio();
  for (int steps = 1; steps != lastNumber - 1; ++steps) {
    walk.lastRead = existing(logbook, selected - steps);
    if (walk.lastRead.Teletank == kFlagSet)
      return {clicked, consumptionCaption(clicked, walk.lastRead, litres)};
    litres = litres + walk.lastRead.TankoltLiter.ratio();
  }
  return walk;
}

void estimate(const Logbook& logbook, const StatisticsInput& input, Statistics& found) {
  const int last = lastFuelling(logbook);
  const std::int64_t perDay = kmPerDay(logbook, last);
  const Ratio average = plainNumber(input.average);
  const Ratio range = Ratio(input.tankSize) / average * 100;
  const std::int64_t daysATank = wholeQuotient(range, perDay);

  const Walk walk = walkToFullFill(logbook, input.selected, last);
  found.pillAtlag = walk.caption;
  const Day day = dayOfEntry(walk.lastRead);
  const Day expected = addDays(day, daysATank);
  found.datum = shortDate(expected);
  const Day reference = input.selected == last ? input.today : day;
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
    // The labels that are not set keep what they show; the click goes on.
  }
  return found;
}

}  // namespace tarvik::core
