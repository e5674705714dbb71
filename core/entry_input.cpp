#include "core/entry_input.h"

#include <algorithm>

#include "core/field_number.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/text.h"

namespace tarvik::core {
namespace {

void defaultToZero(std::string& text) {
  // A count and a character: g++ 12 warns of an overlap in the plain assignment when it optimizes fully.
  if (trimmed(text).empty()) text.assign(1, '0');
}

bool isNumeric(const TextAtCursor& text) {
  const std::string whole = text.before + text.behind;
  return whole.empty() || localeNumber(whole).has_value();
}

// What a number can have, a no-break space as its two bytes, and the point, which may stand for a comma: a
// number without it would be another one.
std::string withoutStrays(std::string_view text) {
  constexpr std::string_view kOfNumbers = "0123456789,.+- ";
  constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
  std::string kept;
  while (!text.empty()) {
    const std::size_t length = text.starts_with(kNoBreakSpace) ? 2 : 1;
    if (length == 2 || kOfNumbers.find(text.front()) != std::string_view::npos)
      kept += text.substr(0, length);
    text.remove_prefix(length);
  }
  return kept;
}

// A number that was pasted has its point among digits, a typed one at the end. In front of three digits it
// groups them where amounts are whole; else it stands for the comma.
std::string withPointRead(std::string text, Point point) {
  const std::size_t first = text.find('.');
  if (first == std::string::npos || first + 1 == text.size()) return text;
  bool areGroups = point == Point::Groups;
  for (std::size_t at = first; at != std::string::npos; at = text.find('.', at + 1)) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789", at + 1), text.size());
    areGroups = areGroups && end - at == 4;
  }
  if (areGroups)
    std::erase(text, '.');
  else if (text.find_first_of(".,", first + 1) == std::string::npos)
    text[first] = ',';
  return text;
}

void dropLast(std::string& text) {
  while (text.size() > 1 && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) text.pop_back();
  text.pop_back();
}

}  // namespace

EntryInput withDefaults(EntryInput input) {
  defaultToZero(input.alkatreszKtg);
  defaultToZero(input.megjKtg);
  defaultToZero(input.tankoltKtg);
  defaultToZero(input.tankoltLiter);
  defaultToZero(input.ftPerLiter);
  return input;
}

NapiAdat toEntry(const EntryInput& input) {
  NapiAdat entry;
  entry.KmOra = requiredWhole32(input.kmOra, "txKmOra");
  entry.Datum = toStored(input.datum);
  entry.Teletank = toFlag(input.teletank);
  entry.TankoltLiter = requiredAmount(input.tankoltLiter, "txTankoltLiter");
  entry.TankoltKtg = requiredWhole32(input.tankoltKtg, "txTankoltKtg");
  entry.AlkatreszKtg = requiredWhole32(input.alkatreszKtg, "txAlkatreszKtg");
  entry.FtPerLiter = requiredAmount(input.ftPerLiter, "lbFtperLiter");
  entry.Olajcsere = toFlag(input.olajcsere);
  entry.Szurocsere = toFlag(input.szurocsere);
  entry.Gyertyacsere = toFlag(input.gyertyacsere);
  entry.Alkatresz = FixedText<50>(input.alkatresz);
  entry.MegjKtg = requiredWhole32(input.megjKtg, "txMegjKtg");
  entry.Megjegyzes = FixedText<50>(input.megjegyzes);
  return entry;
}

// An entry without fuel is recorded as no full fill, whatever is ticked.
bool hasEntry(const Logbook& logbook, const EntryInput& input) {
  NapiAdat entry = toEntry(withDefaults(input));
  if (plainNumber(input.tankoltLiter).isZero()) entry.Teletank = toFlag(false);
  for (int number = 1; number <= logbook.count(); ++number) {
    const NapiAdat known = logbook.record(number);
    entry.Fogyasztas = known.Fogyasztas;
    if (known == entry) return true;
  }
  return false;
}

bool mayBeMeantFor(const NapiAdat& entry, const EntryInput& input) {
  const NapiAdat typed = toEntry(withDefaults(input));
  return typed.Datum == entry.Datum || typed.KmOra == entry.KmOra;
}

ShownEntry toInput(const NapiAdat& entry) {
  const std::optional<Day> datum = dayFromStored(entry.Datum);
  EntryInput input{.kmOra = std::to_string(entry.KmOra),
                   .tankoltLiter = plainText(entry.TankoltLiter),
                   .tankoltKtg = std::to_string(entry.TankoltKtg),
                   .ftPerLiter = plainText(entry.FtPerLiter),
                   .alkatresz = entry.Alkatresz.trimmed(),
                   .alkatreszKtg = std::to_string(entry.AlkatreszKtg),
                   .megjegyzes = entry.Megjegyzes.trimmed(),
                   .megjKtg = std::to_string(entry.MegjKtg),
                   .datum = datum.value_or(Day{}),
                   .teletank = entry.Teletank == kFlagSet,
                   .olajcsere = entry.Olajcsere == kFlagSet,
                   .szurocsere = entry.Szurocsere == kFlagSet,
                   .gyertyacsere = entry.Gyertyacsere == kFlagSet};
  return {std::move(input), datum};
}

Amount storedConsumption(std::string_view shown) {
  if (plainNumber(shown).isZero()) return {};
  return requiredAmount(shown, "lbPillAtlag");
}

std::optional<std::string> pricePerLitre(std::string_view tankoltKtg, std::string_view tankoltLiter) {
  const std::optional<Ratio> cost = localeNumber(tankoltKtg);
  const std::optional<Ratio> litres = localeNumber(tankoltLiter);
  if (!cost || !litres || cost->isZero() || litres->isZero()) return std::nullopt;
  return formatted(Ratio(toWhole(*cost)) / *litres, "###.00");
}

TextAtCursor numericPart(TextAtCursor text, Point point) {
  if (isNumeric(text)) return text;
  text = {withPointRead(withoutStrays(text.before), point), withoutStrays(text.behind)};
  while (!isNumeric(text)) dropLast(text.before.empty() ? text.behind : text.before);
  return text;
}

}  // namespace tarvik::core
