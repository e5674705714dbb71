#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/day.h"
#include "core/napi_adat.h"
#include "core/record_list.h"
#include "reminders/figy_datum_rec.h"
#include "reminders/figyel_rec.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::test {

/// 5 July 2013, a Friday.
inline constexpr core::Day kToday{41'460};

inline reminders::FigyelRec kmReminder(std::int32_t reading, std::int32_t after, std::string_view text,
                                       std::string_view plate) {
  return {.KmMulva = after,
          .KmAllas = reading,
          .RogzDatum = core::FixedText<10>("2013.06.01"),
          .Szoveg = core::FixedText<40>(text),
          .Rendszam = core::FixedText<10>(plate)};
}

inline reminders::FigyelRec deletedKmReminder(std::string_view plate) {
  reminders::FigyelRec reminder = kmReminder(0, 0, "", plate);
  reminder.RogzDatum = core::FixedText<10>("");
  return reminder;
}

/// Due so many days from kToday.
inline reminders::FigyDatumRec dateReminder(int days, std::string_view text, std::string_view plate) {
  return {.Mikor = core::toStored(core::addDays(kToday, days)),
          .Beirva = core::FixedText<10>("2013.06.01"),
          .Szoveg = core::FixedText<40>(text),
          .Rendszam = core::FixedText<10>(plate)};
}

inline core::NapiAdat entry(std::int32_t reading, std::int32_t day) {
  core::NapiAdat made;
  made.KmOra = reading;
  made.Datum = day;
  return made;
}

/// The bytes of a file of those records.
template <core::Record R>
std::string fileOf(std::initializer_list<R> records) {
  std::string bytes;
  for (const R& record : records) bytes += textOf(core::encoded(record));
  return bytes;
}

template <core::Record R>
core::RecordList<R> listOf(std::initializer_list<R> records) {
  return core::RecordList<R>::of(std::span<const R>(records.begin(), records.size()));
}

}  // namespace tarvik::test
