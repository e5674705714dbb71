#pragma once

#include <cstddef>
#include <span>

#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::reminders {

/// One date reminder: something falls due on a day. 68 bytes in figyDatum.dat, which holds those of all
/// vehicles; a deleted one leaves the file.
struct FigyDatumRec {
  static constexpr std::size_t kLength = 68;

  double Mikor = 0;              ///< the due day, days since 30 December 1899
  core::FixedText<10> Beirva;    ///< day of entry, the short date without its final point
  core::FixedText<40> Szoveg;    ///< what to remind of
  core::FixedText<10> Rendszam;  ///< plate of the vehicle

  /// In the order of the file.
  static constexpr std::tuple kFields{
      core::Field{"Mikor", &FigyDatumRec::Mikor}, core::Field{"Beirva", &FigyDatumRec::Beirva},
      core::Field{"Szoveg", &FigyDatumRec::Szoveg}, core::Field{"Rendszam", &FigyDatumRec::Rendszam}};

  friend bool operator==(const FigyDatumRec&, const FigyDatumRec&) = default;
};

/// The date reminders in file order.
using DateReminders = core::RecordList<FigyDatumRec>;

}  // namespace tarvik::reminders
