#pragma once

#include <string_view>

namespace tarvik::exchange {

/// What the words of a head say of its column. Several leave a choice that the figures have to make.
enum class HeadWord {
  Unknown,
  Known,  ///< understood, and nothing that a logbook keeps
  Day,
  Year,
  Month,
  DayOfMonth,
  Odometer,
  Distance,  ///< a reading or a distance
  Trip,      ///< since the last fill
  Volume,
  Fuel,    ///< how much or of which kind
  Amount,  ///< of fuel or of money
  TotalCost,
  NetCost,  ///< without tax
  UnitPrice,
  Price,  ///< of a unit or of all
  Full,
  Partial,
  Missed,
  Note,
  NoteCost,
  Part,
  PartCost,
  OilChange,
  FilterChange,
  PlugChange,
  Description,
  Kind,
  DistanceUnit,
  VolumeUnit,
  Currency,
  Vehicle,
};

/// A head as its words are understood.
struct HeadReading {
  HeadWord word = HeadWord::Unknown;
  int strength = 0;  ///< 4: the whole head, 3: but for units, 2: a part of it, 1: a part of a word
};

/// What a folded phrase says that is one of the vocabulary from its first word to its last.
HeadWord wholeHead(std::string_view foldedPhrase);

/// What a head says, in any of the languages of the vocabulary.
HeadReading readHead(std::string_view head);

/// Whether the head of a distance is in English, whose readers drive miles as well as kilometres.
bool isEnglishHead(std::string_view head);

/// Whether a head is in Hungarian, whose readers pay in forints.
bool isHungarianHead(std::string_view head);

}  // namespace tarvik::exchange
