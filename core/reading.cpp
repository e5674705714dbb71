#include "core/reading.h"

#include <algorithm>

#include "core/number_text.h"

namespace tarvik::core {
namespace {

constexpr std::int64_t kLongestReading = 9'999'999'999;

}  // namespace

int lastWithReading(const Logbook& logbook, int before) {
  int number = before - 1;
  while (number >= 1 && logbook.record(number).KmOra == 0) --number;
  return std::max(number, 0);
}

EarlierReadings earlierReadings(const Logbook& logbook, int chosen) {
  const auto readingBefore = [&](int number) {
    return logbook.record(lastWithReading(logbook, number)).KmOra;
  };
  const std::int32_t last = readingBefore(logbook.count() + 1);
  return {.last = last, .before = chosen == 0 ? last : readingBefore(chosen)};
}

std::optional<ReadingDoubt> doubtOf(std::string_view typed, const EarlierReadings& earlier) {
  const std::optional<Ratio> reading = localeNumber(typed);
  const auto [least, most] = std::minmax({earlier.last, earlier.before});
  if (!reading || reading->isZero() || earlier.before == 0) return std::nullopt;
  if (*reading < least) return ReadingDoubt{ReadingDoubt::Kind::Less, least};
  const std::int32_t nearest = *reading < most ? least : most;
  if (*reading - nearest <= kFarKm) return std::nullopt;
  return ReadingDoubt{ReadingDoubt::Kind::Far, nearest};
}

bool canStillBecomeSound(std::string_view typed, const EarlierReadings& earlier) {
  const std::optional<Ratio> reading = localeNumber(typed);
  if (!reading || reading->denominator() != 1 || *reading < 1) return true;
  std::int64_t least = toWhole(*reading);
  for (std::int64_t more = 1; least <= kLongestReading; least *= 10, more *= 10)
    for (const std::int64_t before : {earlier.last, earlier.before})
      if (least + more > before && least <= before + kFarKm) return true;
  return false;
}

}  // namespace tarvik::core
