#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::reminders {

/// One km reminder: something falls due once a vehicle has run a distance past an odometer reading.
/// 68 bytes in figyel.dat, which holds those of all vehicles. A deleted one keeps its place: its texts
/// but for the plate are blank, its figures 0.
struct FigyelRec {
  static constexpr std::size_t kLength = 68;

  std::int32_t KmMulva = 0;       ///< distance after which it falls due, km
  std::int32_t KmAllas = 0;       ///< odometer reading from which the distance counts, km
  core::FixedText<10> RogzDatum;  ///< day of recording, the short date without its final point
  core::FixedText<40> Szoveg;     ///< what to remind of; blank = a deleted reminder
  core::FixedText<10> Rendszam;   ///< plate of the vehicle

  /// In the order of the file.
  static constexpr std::tuple kFields{
      core::Field{"KmMulva", &FigyelRec::KmMulva}, core::Field{"KmAllas", &FigyelRec::KmAllas},
      core::Field{"RogzDatum", &FigyelRec::RogzDatum}, core::Field{"Szoveg", &FigyelRec::Szoveg},
      core::Field{"Rendszam", &FigyelRec::Rendszam}};

  friend bool operator==(const FigyelRec&, const FigyelRec&) = default;
};

/// The km reminders in file order.
using KmReminders = core::RecordList<FigyelRec>;

}  // namespace tarvik::reminders
