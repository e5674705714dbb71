#include "exchange/heads.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "core/text.h"

namespace tarvik::exchange {
namespace {

using Words = std::vector<std::string_view>;

struct Accent {
  std::string_view letter;
  std::string_view plain;
};

constexpr auto kAccents = std::to_array<Accent>({{"Á", "A"},
                                                 {"É", "E"},
                                                 {"Í", "I"},
                                                 {"Ó", "O"},
                                                 {"Ö", "O"},
                                                 {"Ő", "O"},
                                                 {"Ú", "U"},
                                                 {"Ü", "U"},
                                                 {"Ű", "U"},
                                                 {"Ä", "A"},
                                                 {"ß", "SS"}});

constexpr bool isPlain(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// Appends the first character of a text in capitals, folded; returns how many bytes it takes.
std::size_t appendFolded(std::string& result, std::string_view text) {
  for (const auto& [letter, plain] : kAccents)
    if (text.starts_with(letter)) {
      result += plain;
      return letter.size();
    }
  if (isPlain(text.front()))
    result += text.front();
  else if (!result.empty() && result.back() != ' ')
    result += ' ';
  return 1;
}

Words wordsOf(std::string_view foldedText) {
  Words words;
  while (!foldedText.empty()) {
    const std::size_t end = std::min(foldedText.find(' '), foldedText.size());
    if (end > 0) words.push_back(foldedText.substr(0, end));
    foldedText.remove_prefix(std::min(end + 1, foldedText.size()));
  }
  return words;
}

bool isOneOf(std::string_view text, std::span<const std::string_view> list) {
  return std::ranges::find(list, text) != list.end();
}

bool hasOneOf(const Words& words, std::span<const std::string_view> list) {
  return std::ranges::any_of(words, [&](std::string_view word) { return isOneOf(word, list); });
}

constexpr auto kKilometreWords = std::to_array<std::string_view>(
    {"KM", "KMS", "KILOMETER", "KILOMETERS", "KILOMETRE", "KILOMETRES", "KMH", "KILOMETERBEN", "KILOMETERN"});
constexpr auto kMileWords =
    std::to_array<std::string_view>({"MI", "MILE", "MILES", "MEILE", "MEILEN", "MERFOLD", "MPG"});
constexpr auto kLitreWords =
    std::to_array<std::string_view>({"L", "LITER", "LITERS", "LITRE", "LITRES", "LITERBEN", "LITERN"});
constexpr auto kGallonWords = std::to_array<std::string_view>(
    {"GAL", "GALS", "GALLON", "GALLONS", "GALLONE", "GALLONEN", "GALLONBAN", "MPG"});
constexpr auto kUsWords = std::to_array<std::string_view>({"US", "USA", "AMERIKAI", "AMERIKANISCHE"});
constexpr auto kUkWords =
    std::to_array<std::string_view>({"UK", "IMP", "IMPERIAL", "GB", "ANGOL", "BRIT", "ENGLISCHE"});

// Words that say the unit or the currency of a column, or nothing at all.
constexpr auto kSideWords = std::to_array<std::string_view>(
    {"FT", "HUF", "EUR", "USD", "GBP", "CHF", "CZK", "PLN", "RON", "OPTIONAL", "IN", "OPCIONALIS"});

bool isSideWord(std::string_view word) {
  return isOneOf(word, kSideWords) || isOneOf(word, kKilometreWords) || isOneOf(word, kMileWords) ||
         isOneOf(word, kLitreWords) || isOneOf(word, kGallonWords) || isOneOf(word, kUsWords) ||
         isOneOf(word, kUkWords);
}

std::string withoutSideWords(std::string_view foldedText) {
  std::string result;
  for (const std::string_view word : wordsOf(foldedText)) {
    if (isSideWord(word)) continue;
    if (!result.empty()) result += ' ';
    result += word;
  }
  return result;
}

struct Vocabulary {
  Meaning meaning;
  std::vector<std::string_view> heads;
};

// Looked up as they stand first and then without the words for units.
const std::vector<Vocabulary>& vocabulary() {
  static const std::vector<Vocabulary> kVocabulary = {
      {Meaning::Day,
       {"DATE", "DATA", "DATUM", "DAY", "DATE TIME", "DATETIME", "FUELUP DATE", "FILL DATE", "FILL UP DATE",
        "REFUEL DATE", "TANKDATUM", "DATUM UHRZEIT", "DATUM UND UHRZEIT", "NAP", "IDOPONT", "DATUM IDO",
        "TANKOLAS DATUMA", "TANKOLAS NAPJA"}},
      {Meaning::Odometer,
       {"ODOMETER",
        "ODO",
        "ODOMETER READING",
        "ODOMETER VALUE",
        "MILEAGE",
        "KILOMETERSTAND",
        "KM STAND",
        "TACHOSTAND",
        "TACHO",
        "KILOMETERZAHLER",
        "ZAHLERSTAND",
        "KM ORA",
        "KM ORA ALLAS",
        "KM ORA ALLASA",
        "KMORA",
        "KILOMETERORA",
        "KILOMETERORA ALLAS",
        "KILOMETERORA ALLASA",
        "KILOMETER ORA ALLAS",
        "ORAALLAS",
        "KM ALLAS",
        "KM ORAALLAS",
        "OSSZES KM",
        "KILOMETER ALLAS"}},
      {Meaning::UnitPrice,
       {"PRICE PER UNIT",
        "UNIT PRICE",
        "VOLUMEPRICE",
        "VOLUME PRICE",
        "PRICE L",
        "PRICE LITER",
        "PRICE LITRE",
        "PRICE GAL",
        "PRICE GALLON",
        "PRICE PER LITER",
        "PRICE PER LITRE",
        "PRICE PER GALLON",
        "COST PER LITER",
        "COST PER LITRE",
        "COST PER GALLON",
        "COST GALLON",
        "COST LITER",
        "COST LITRE",
        "COST PER UNIT",
        "FUEL PRICE",
        "PREIS L",
        "PREIS LITER",
        "PREIS PRO LITER",
        "PREIS JE LITER",
        "LITERPREIS",
        "EINZELPREIS",
        "EGYSEGAR",
        "LITERENKENTI AR",
        "LITERAR",
        "FT LITER",
        "FT L",
        "UZEMANYAG AR",
        "UZEMANYAG ARA",
        "AR LITER",
        "AR L",
        "BENZINAR"}},
      {Meaning::Volume,
       {"FUEL",
        "VOLUME",
        "FUEL VOLUME",
        "LITER",
        "LITERS",
        "LITRE",
        "LITRES",
        "GALLON",
        "GALLONS",
        "GAL",
        "QUANTITY",
        "QTY",
        "FUEL AMOUNT",
        "FILL AMOUNT",
        "FUEL QUANTITY",
        "FUELCONSUMED",
        "FUEL CONSUMED",
        "FUEL ADDED",
        "MENGE",
        "TANKMENGE",
        "GETANKTE MENGE",
        "KRAFTSTOFFMENGE",
        "MENNYISEG",
        "TANKOLT",
        "TANKOLT MENNYISEG",
        "UZEMANYAG MENNYISEG",
        "UZEMANYAG",
        "TANKOLAS"}},
      {Meaning::TotalCost, {"COST",      "TOTAL COST",   "TOTALCOST",       "TOTAL PRICE",
                            "TOTAL",     "TOTAL AMOUNT", "AMOUNT PAID",     "FUEL COST",
                            "KOSTEN",    "GESAMTKOSTEN", "GESAMTPREIS",     "BETRAG",
                            "KOLTSEG",   "OSSZKOLTSEG",  "TANKOLT KOLTSEG", "TANKOLAS KOLTSEGE",
                            "OSSZEG",    "FIZETETT",     "FIZETETT OSSZEG", "TELJES AR",
                            "VEGOSSZEG", "OSSZ AR"}},
      {Meaning::Price, {"PRICE", "PREIS", "AR", "ARA"}},
      {Meaning::Full, {"FULL",          "FULL TANK",     "FULL FILLUP",     "FULL FILL UP", "FILLED UP",
                       "ISFILLTOFULL",  "FILL TO FULL",  "COMPLETELY FILL", "TANK FULL",    "VOLL",
                       "VOLLGETANKT",   "VOLLBETANKUNG", "VOLLTANKUNG",     "TANKART",      "TELE",
                       "TELE TANKOLVA", "TELETANK",      "TELE TANKOLAS",   "TELE TANK",    "TELI TANK"}},
      {Meaning::Partial,
       {"PARTIAL", "PARTIAL FUELUP", "PARTIALFUELUP", "PARTIAL FILL", "PARTIAL FILL UP", "PARTIAL FILLUP",
        "PARTIAL TANK", "TEILBETANKUNG", "TEILTANKUNG", "RESZLEGES", "RESZLEGES TANKOLAS", "NEM TELE"}},
      {Meaning::Missed,
       {"MISSED", "MISSED FUELUP", "MISSEDFUELUP", "MISSED FILL UP", "MISSED FILLUP", "MISSED FILL UPS",
        "PREVIOUSLY MISSED FILL UPS", "PREVIOUS MISSED FILL UPS", "VERGESSEN", "TANKUNG VERGESSEN",
        "KIMARADT", "KIHAGYOTT", "KIMARADT TANKOLAS", "KIHAGYOTT TANKOLAS"}},
      {Meaning::Note,
       {"NOTE", "NOTES", "COMMENT", "COMMENTS", "REMARK", "REMARKS", "BEMERKUNG", "BEMERKUNGEN", "NOTIZ",
        "NOTIZEN", "KOMMENTAR", "MEGJEGYZES", "JEGYZET"}},
      {Meaning::Description,
       {"DESCRIPTION", "SERVICE", "SERVICES", "SERVICE TYPE", "SUB TYPES", "TITLE", "BESCHREIBUNG",
        "BEZEICHNUNG", "LEIRAS", "MEGNEVEZES"}},
      {Meaning::Kind,
       {"TYPE", "KIND", "RECORD TYPE", "ENTRY TYPE", "ART", "EINTRAGSART", "TIPUS", "FAJTA",
        "BEJEGYZES TIPUSA"}},
      {Meaning::DistanceUnit, {"DISTANCE UNIT", "ODOMETER UNIT", "STRECKENEINHEIT", "TAVOLSAG EGYSEGE"}},
      {Meaning::VolumeUnit, {"VOLUME UNIT", "FILL UNITS", "FUEL UNIT", "MENGENEINHEIT", "MENNYISEG EGYSEGE"}},
      {Meaning::Currency, {"CURRENCY", "CURRENCY CODE", "WAHRUNG", "PENZNEM", "DEVIZA"}},
      {Meaning::Vehicle,
       {"VEHICLE", "VEHICLE NAME", "CAR", "CAR NAME", "FAHRZEUG", "AUTO", "JARMU", "RENDSZAM"}},
  };
  return kVocabulary;
}

Meaning lookedUp(std::string_view foldedHead) {
  for (const auto& [meaning, heads] : vocabulary())
    if (isOneOf(foldedHead, heads)) return meaning;
  return Meaning::Ignored;
}

}  // namespace

core::Ratio kilometresOf(DistanceUnit unit) {
  return unit == DistanceUnit::Kilometre ? core::Ratio(1) : core::Ratio(1'609'344, 1'000'000);
}

core::Ratio litresOf(VolumeUnit unit) {
  switch (unit) {
    case VolumeUnit::UsGallon:
      return {3'785'411'784, 1'000'000'000};
    case VolumeUnit::UkGallon:
      return {454'609, 100'000};
    default:
      return 1;
  }
}

std::string folded(std::string_view text) {
  const std::string capitals = core::upperCased(text);
  std::string result;
  for (std::string_view rest = capitals; !rest.empty();) rest.remove_prefix(appendFolded(result, rest));
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

Meaning meaningOf(std::string_view head) {
  const std::string whole = folded(head);
  const Meaning meaning = lookedUp(whole);
  if (meaning != Meaning::Ignored) return meaning;
  const std::string essence = withoutSideWords(whole);
  return lookedUp(essence.empty() ? std::string_view(whole).substr(0, whole.find(' ')) : essence);
}

UnitHint unitHintOf(std::string_view text) {
  const std::string plain = folded(text);
  const Words words = wordsOf(plain);
  UnitHint hint;
  if (hasOneOf(words, kKilometreWords)) hint.distance = DistanceUnit::Kilometre;
  if (hasOneOf(words, kMileWords)) hint.distance = DistanceUnit::Mile;
  if (hasOneOf(words, kLitreWords)) hint.volume = VolumeUnit::Litre;
  if (!hasOneOf(words, kGallonWords)) return hint;
  hint.volume = hasOneOf(words, kUkWords) ? VolumeUnit::UkGallon : VolumeUnit::UsGallon;
  hint.isGallonOpen = !hasOneOf(words, kUkWords) && !hasOneOf(words, kUsWords);
  return hint;
}

std::string currencyOf(std::string_view text) {
  struct Sign {
    std::string_view sign;
    std::string_view currency;
  };
  constexpr auto kSigns =
      std::to_array<Sign>({{"€", "EUR"}, {"$", "USD"}, {"£", "GBP"}, {"Kč", "CZK"}, {"zł", "PLN"}});
  for (const auto& [sign, currency] : kSigns)
    if (text.find(sign) != std::string_view::npos) return std::string(currency);
  constexpr auto kCodes =
      std::to_array<std::string_view>({"HUF", "EUR", "USD", "GBP", "CHF", "CZK", "PLN", "RON", "RSD", "HRK",
                                       "BAM", "SEK", "NOK", "DKK", "CAD", "AUD", "UAH", "TRY"});
  const std::string plain = folded(text);
  for (const std::string_view word : wordsOf(plain)) {
    if (isOneOf(word, kCodes)) return std::string(word);
    if (word == "FT" || word == "FORINT") return "HUF";
    if (word == "EURO") return "EUR";
  }
  return {};
}

bool saysYes(std::string_view cell) {
  constexpr auto kYes = std::to_array<std::string_view>({"YES", "Y", "TRUE", "1", "X", "FULL", "JA", "J",
                                                         "WAHR", "VOLL", "VOLLBETANKUNG", "VOLLTANKUNG",
                                                         "IGEN", "I", "IGAZ", "TELE", "TELI", "1 0"});
  return isOneOf(folded(cell), kYes);
}

bool namesTotal(std::string_view cell) {
  constexpr auto kTotals =
      std::to_array<std::string_view>({"TOTAL", "TOTALS", "SUM", "SUMME", "GESAMT", "GESAMTSUMME", "AVERAGE",
                                       "AVG", "MEAN", "MITTELWERT", "DURCHSCHNITT", "OSSZESEN", "OSSZEG",
                                       "VEGOSSZEG", "ATLAG", "ATLAGOSAN", "MINDOSSZESEN", "GRAND TOTAL"});
  return isOneOf(folded(cell), kTotals);
}

bool namesFuelling(std::string_view kind) {
  constexpr auto kFuelWords = std::to_array<std::string_view>(
      {"GAS",       "FUEL",          "FUELUP",        "FILLUP",   "FILL",    "REFUEL",
       "REFUELING", "REFUELLING",    "PETROL",        "DIESEL",   "TANKUNG", "BETANKUNG",
       "TANKEN",    "VOLLBETANKUNG", "TEILBETANKUNG", "TANKOLAS", "BENZIN",  "GASOLINE",
       "UZEMANYAG", "FULL",          "PARTIAL",       "GAZOLAJ"});
  const std::string plain = folded(kind);
  const Words words = wordsOf(plain);
  return words.empty() || hasOneOf(words, kFuelWords);
}

}  // namespace tarvik::exchange
