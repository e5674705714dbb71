#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/day.h"
#include "core/napi_adat.h"

namespace tarvik::core {

/// The fields of a logbook entry as a person typed them, in UTF-8. Numbers are read with the locale parse.
struct EntryInput {
  std::string kmOra;         ///< odometer reading, km
  std::string tankoltLiter;  ///< fuel, litres
  std::string tankoltKtg;    ///< cost of the fuel, Ft
  std::string ftPerLiter;    ///< price shown beside them, Ft per litre
  std::string alkatresz;     ///< part
  std::string alkatreszKtg;  ///< cost of the part, Ft
  std::string megjegyzes;    ///< note
  std::string megjKtg;       ///< cost of the note, Ft
  Day datum;
  bool teletank = false;
  bool olajcsere = false;
  bool szurocsere = false;
  bool gyertyacsere = false;
};

/// The input with "0" in every cost, litre and price field that is blank.
EntryInput withDefaults(EntryInput input);

/// The entry that the input stands for, with Fogyasztas 0. Throws Failure(NotANumber) or OutOfRange with
/// the name of the field's control. The blank fields must have their defaults.
NapiAdat toEntry(const EntryInput& input);

/// Whether a logbook has the entry that the input stands for already, its consumption aside. Throws as
/// toEntry does; blank fields count as their defaults.
bool hasEntry(const Logbook& logbook, const EntryInput& input);

/// Whether the input may be meant for an entry that was chosen: it has that entry's day or its reading.
/// Throws as toEntry does; blank fields count as their defaults.
bool mayBeMeantFor(const NapiAdat& entry, const EntryInput& input);

/// The input fields that show an entry: numbers in their plain text form, texts trimmed. A damaged date
/// gives nothing, so that the date on the screen stays.
struct ShownEntry {
  EntryInput input;
  std::optional<Day> datum;
};
ShownEntry toInput(const NapiAdat& entry);

/// The stored consumption of a figure shown as text: 0 when its plain numeric value is 0 (which covers every
/// text that is no figure, and a figure below 1, which ends at its comma), else its locale value.
Amount storedConsumption(std::string_view shown);

/// The price per litre shown while a fuelling is typed, "###.00"; nothing while one of the two fields is
/// no number or 0.
std::optional<std::string> pricePerLitre(std::string_view tankoltKtg, std::string_view tankoltLiter);

/// The text of a field, in UTF-8, with the cursor between its two parts.
struct TextAtCursor {
  std::string before;
  std::string behind;

  friend bool operator==(const TextAtCursor&, const TextAtCursor&) = default;
};

/// What a point before three digits does in a number that was pasted: it groups whole amounts ("25.000"), and
/// is a comma where amounts have decimals.
enum class Point { Groups, Comma };

/// What a numeric field keeps of its text, so that it is empty or a number: letters and signs that no number
/// has go, wherever they stand; a point that came with digits behind it was pasted and is read; if that is
/// not enough, such as of two commas, the characters before the cursor go, which were typed last, and then
/// those at the end.
TextAtCursor numericPart(TextAtCursor text, Point point);

}  // namespace tarvik::core
