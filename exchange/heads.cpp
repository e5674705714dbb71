#include "exchange/heads.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/text.h"

namespace tarvik::exchange {
namespace {

using Words = std::vector<std::string>;
using WordList = std::span<const std::string_view>;

bool isOneOf(std::string_view text, WordList list) {
  return std::ranges::find(list, text) != list.end();
}

bool hasOneOf(const Words& words, WordList list) {
  return std::ranges::any_of(words, [&](const std::string& word) { return isOneOf(word, list); });
}

struct HeadWords {
  HeadWord word;
  std::string_view phrases;  // commas between
};

constexpr auto kVocabulary = std::to_array<HeadWords>({
#include "exchange/vocabulary.inc"
});

using Vocabulary = std::unordered_map<std::string, HeadWord>;

void addPhrases(const HeadWords& words, Vocabulary& vocabulary) {
  for (std::string_view rest = words.phrases; !rest.empty();) {
    const std::size_t end = std::min(rest.find(','), rest.size());
    if (std::string phrase = squeezed(rest.substr(0, end)); !phrase.empty())
      vocabulary.emplace(std::move(phrase), words.word);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

const Vocabulary& vocabulary() {
  static const Vocabulary kMap = [] {
    Vocabulary map;
    for (const HeadWords& words : kVocabulary) addPhrases(words, map);
    return map;
  }();
  return kMap;
}

constexpr auto kKilometreWords = std::to_array<std::string_view>(
    {"KM", "KMS", "KILOMETER", "KILOMETERS", "KILOMETRE", "KILOMETRES", "KILOMETERBEN", "KILOMETERN", "100KM",
     "KMPL", "CHILOMETRI", "KILOMETROS", "QUILOMETROS", "KILOMETRY", "KML"});
constexpr auto kMileWords =
    std::to_array<std::string_view>({"MI", "MILE", "MILES", "MEILE", "MEILEN", "MERFOLD"});
constexpr auto kLitreWords = std::to_array<std::string_view>(
    {"L",      "LT",    "LTR",    "LTRS",  "LIT",   "LITER", "LITERS", "LITRE",  "LITRES", "LITERBEN",
     "LITERN", "LITRI", "LITROS", "LITRO", "LITRY", "LITR",  "LITRU",  "LITROV", "KML",    "KMPL"});
constexpr auto kGallonWords = std::to_array<std::string_view>(
    {"G", "GAL", "GALS", "GALLON", "GALLONS", "GALLONE", "GALLONEN", "GALLONBAN", "GALONES", "GALONY"});
constexpr auto kUsWords = std::to_array<std::string_view>({"US", "USA", "AMERIKAI", "AMERIKANISCHE"});
constexpr auto kUkWords =
    std::to_array<std::string_view>({"UK", "IMP", "IMPERIAL", "GB", "ANGOL", "BRIT", "ENGLISCHE"});

struct CurrencyWord {
  std::string_view word;
  std::string_view currency;
};

// Words of folded texts.
constexpr auto kCurrencyWords = std::to_array<CurrencyWord>(
    {{"FT", "HUF"},     {"FORINT", "HUF"}, {"EURO", "EUR"},    {"EUROS", "EUR"},  {"KC", "CZK"},
     {"ZL", "PLN"},     {"ZLOTY", "PLN"},  {"LEI", "RON"},     {"LEU", "RON"},    {"RS", "INR"},
     {"RUPEES", "INR"}, {"DOLLAR", "USD"}, {"DOLLARS", "USD"}, {"POUNDS", "GBP"}, {"PENCE", "GBP"},
     {"KORUNA", "CZK"}, {"RBL", "RUB"},    {"RUBLEI", "RUB"},  {"KORUN", "CZK"},  {"REAIS", "BRL"},
     {"R", "ZAR"},      {"DIN", "RSD"},    {"DINAR", "RSD"},   {"LV", "BGN"},     {"SFR", "CHF"},
     {"FRANKEN", "CHF"}});

constexpr auto kCurrencyCodes = std::to_array<std::string_view>(
    {"HUF", "EUR", "USD", "GBP", "CHF", "CZK", "PLN", "RON", "RSD", "HRK", "BAM", "SEK", "NOK", "DKK",
     "CAD", "AUD", "UAH", "TRY", "INR", "BRL", "BGN", "NZD", "ZAR", "MXN", "JPY", "ISK", "ILS", "RUB"});

std::string_view currencyOfWord(std::string_view word) {
  if (isOneOf(word, kCurrencyCodes)) return word;
  const auto found = std::ranges::find(kCurrencyWords, word, &CurrencyWord::word);
  return found == kCurrencyWords.end() ? std::string_view() : found->currency;
}

constexpr auto kEmptyWords = std::to_array<std::string_view>({"OPTIONAL", "IN", "OPCIONALIS", "THE", "BEN"});

bool isUnitWord(std::string_view word) {
  return word == "KR" ||  // crowns of several countries
         isOneOf(word, kKilometreWords) || isOneOf(word, kMileWords) || isOneOf(word, kLitreWords) ||
         isOneOf(word, kGallonWords) || isOneOf(word, kUsWords) || isOneOf(word, kUkWords) ||
         !currencyOfWord(word).empty();
}

std::string withoutSideWords(const Words& words) {
  std::string result;
  for (const std::string& word : words)
    if (!isUnitWord(word) && !isOneOf(word, kEmptyWords)) result += word + ' ';
  return result;
}

// Something for each unit of volume or distance, as it stands: "Ft/l", "$ per gallon", "l/100 km", "km/l".
struct Quotient {
  bool isByVolume = false;
  bool isByDistance = false;
  bool isConsumption = false;
};

bool isPer(const Words& words, std::size_t at) {
  constexpr auto kPer =
      std::to_array<std::string_view>({"PER", "PRO", "JE", "AL", "ZA", "PE", "POR", "AU", "PAR"});
  return at > 0 && isOneOf(words[at - 1], kPer);
}

Quotient quotientIn(std::string_view head, const Words& words) {
  Quotient quotient;
  const bool hasStroke = head.find('/') != std::string_view::npos;
  const bool hasDistance = hasOneOf(words, kKilometreWords) || hasOneOf(words, kMileWords);
  const bool hasVolume = hasOneOf(words, kLitreWords) || hasOneOf(words, kGallonWords);
  const bool hasHundred = std::ranges::find(words, "100") != words.end();
  quotient.isConsumption =
      (hasDistance && hasVolume && (hasStroke || hasHundred)) || (hasDistance && hasHundred);
  bool isPerVolume = hasStroke && hasVolume;
  bool isPerDistance = hasStroke && hasDistance;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (!isPer(words, i)) continue;
    if (isOneOf(words[i], kLitreWords) || isOneOf(words[i], kGallonWords)) isPerVolume = true;
    if (isOneOf(words[i], kKilometreWords) || isOneOf(words[i], kMileWords)) isPerDistance = true;
  }
  quotient.isByVolume = isPerVolume && !hasDistance;
  quotient.isByDistance = isPerDistance && !hasVolume;
  return quotient;
}

// The longest phrase of the vocabulary that stands in the words of a head.
HeadReading phraseIn(const Words& words) {
  constexpr std::size_t kShortest = 4;
  constexpr std::size_t kMostWords = 24;
  HeadReading best;
  std::size_t length = kShortest - 1;
  const std::size_t count = std::min(words.size(), kMostWords);
  for (std::size_t from = 0; from < count; ++from) {
    std::string phrase;
    for (std::size_t to = from; to < count; ++to) {
      phrase += words[to];
      const auto found = vocabulary().find(phrase);
      if (found == vocabulary().end() || phrase.size() <= length) continue;
      best = {found->second, 2};
      length = phrase.size();
    }
  }
  return best;
}

// The longest phrase that a word of the head begins or ends with: compounds ("Kraftstoffpreis").
HeadReading compoundIn(const Words& words) {
  constexpr std::size_t kShortest = 5;
  constexpr std::size_t kLongest = 40;
  HeadReading best;
  std::size_t length = kShortest - 1;
  const auto consider = [&](std::string_view part) {
    const auto found = vocabulary().find(std::string(part));
    if (found == vocabulary().end() || part.size() <= length) return;
    best = {found->second, 1};
    length = part.size();
  };
  for (const std::string& word : words)
    for (std::size_t size = kShortest; size < std::min(word.size(), kLongest); ++size) {
      consider(std::string_view(word).substr(word.size() - size));
      consider(std::string_view(word).substr(0, size));
    }
  return best;
}

// A head of units alone: "Ft" is money, "Km" a distance, "l" a volume.
HeadReading readUnits(const Words& words, bool hasCurrency) {
  if (hasCurrency) return {HeadWord::TotalCost, 3};
  if (hasOneOf(words, kLitreWords) || hasOneOf(words, kGallonWords)) return {HeadWord::Volume, 3};
  if (hasOneOf(words, kKilometreWords) || hasOneOf(words, kMileWords)) return {HeadWord::Distance, 3};
  return {};
}

HeadReading readWords(std::string_view head, const Words& words) {
  std::string whole;
  for (const std::string& word : words) whole += word;
  if (const HeadWord word = wholeHead(whole); word != HeadWord::Unknown) return {word, 4};
  const std::string essence = withoutSideWords(words);
  if (essence.empty()) return readUnits(words, !currencyOf(head).empty());
  if (const HeadWord word = wholeHead(essence); word != HeadWord::Unknown) return {word, 3};
  const HeadReading phrase = phraseIn(words);
  return phrase.word != HeadWord::Unknown ? phrase : compoundIn(words);
}

bool isMoney(HeadWord word) {
  return word == HeadWord::Price || word == HeadWord::TotalCost || word == HeadWord::UnitPrice;
}

// A word of money beside one of fuel makes it a price, however short it is ("Benzin ára").
HeadWord settledByMoney(HeadWord word, const Words& words) {
  if (word != HeadWord::Fuel) return word;
  for (const std::string& other : words)
    if (const HeadWord found = wholeHead(other); isMoney(found)) return found;
  return word;
}

// The unit behind a head settles what its words leave open.
HeadWord settledByUnit(HeadWord word, std::string_view head) {
  const UnitHint unit = unitHintOf(head);
  if ((word == HeadWord::Full || (word == HeadWord::TotalCost && currencyOf(head).empty())) && unit.volume)
    return HeadWord::Volume;
  if (word == HeadWord::Vehicle && unit.distance) return HeadWord::Distance;
  if (word != HeadWord::Fuel && word != HeadWord::Amount) return word;
  if (unit.volume) return HeadWord::Volume;
  return currencyOf(head).empty() ? word : HeadWord::TotalCost;
}

// Whether a head is of money, be it in hundredths ("ct/l").
bool namesMoney(HeadWord word, std::string_view head, const Words& words) {
  constexpr auto kHundredths = std::to_array<std::string_view>({"CT", "CENT", "CENTS", "P", "PENCE"});
  return isMoney(word) || !currencyOf(head).empty() || hasOneOf(words, kHundredths);
}

// A head that only its unit tells of: "Üa. (l)".
HeadReading readUnitBehind(std::string_view head) {
  const UnitHint hint = unitHintOf(head);
  if (hint.volume) return {HeadWord::Volume, 1};
  return hint.distance ? HeadReading{HeadWord::Distance, 1} : HeadReading{};
}

constexpr std::size_t kLongestHead = 200;

// "kWh" folds to two words.
bool countsNoLitres(const Words& words) {
  std::string whole;
  for (const std::string& word : words) whole += word;
  return whole.find("KWH") != std::string::npos || whole.find("ADBLUE") != std::string::npos ||
         std::ranges::find(words, "KG") != words.end();
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

HeadWord wholeHead(std::string_view foldedPhrase) {
  const auto found = vocabulary().find(squeezed(foldedPhrase));
  return found == vocabulary().end() ? HeadWord::Unknown : found->second;
}

HeadReading readHead(std::string_view head) {
  head = core::trimmed(head);
  if (head.size() > kLongestHead) return {};
  const Words words = wordsOf(folded(head));
  if (countsNoLitres(words)) return {HeadWord::Known, 4};
  const Quotient quotient = quotientIn(head, words);
  if (quotient.isConsumption) return {HeadWord::Known, 4};
  HeadReading reading = words.empty() ? readUnits(words, !currencyOf(head).empty()) : readWords(head, words);
  if (quotient.isByDistance && (isMoney(reading.word) || !currencyOf(head).empty()))
    return {HeadWord::Known, 4};
  const bool mayBeMoney = reading.word == HeadWord::Unknown || reading.word == HeadWord::Volume ||
                          reading.word == HeadWord::Fuel || isMoney(reading.word);
  if (quotient.isByVolume && mayBeMoney && namesMoney(reading.word, head, words))
    return {HeadWord::UnitPrice, 4};
  const bool isQuotient = quotient.isByVolume || quotient.isByDistance;
  if (reading.word == HeadWord::Unknown && !isQuotient) return readUnitBehind(head);
  reading.word = settledByUnit(settledByMoney(reading.word, words), head);
  return reading;
}

UnitHint unitHintOf(std::string_view text) {
  const Words words = wordsOf(folded(text));
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
  constexpr auto kSigns = std::to_array<CurrencyWord>({{"€", "EUR"},
                                                       {"R$", "BRL"},
                                                       {"CA$", "CAD"},
                                                       {"C$", "CAD"},
                                                       {"AU$", "AUD"},
                                                       {"A$", "AUD"},
                                                       {"NZ$", "NZD"},
                                                       {"$", "USD"},
                                                       {"£", "GBP"},
                                                       {"₹", "INR"},
                                                       {"₽", "RUB"},
                                                       {"₴", "UAH"},
                                                       {"₺", "TRY"},
                                                       {"₪", "ILS"}});
  for (const auto& [sign, currency] : kSigns)
    if (text.find(sign) != std::string_view::npos) return std::string(currency);
  std::string letters(text);
  std::ranges::replace_if(
      letters, [](char c) { return c >= '0' && c <= '9'; }, ' ');  // "R971.70"
  for (const std::string& word : wordsOf(folded(letters)))
    if (const std::string_view currency = currencyOfWord(word); !currency.empty())
      return std::string(currency);
  return {};
}

bool isBareDollar(std::string_view text) {
  return currencyOf(text) == "USD" && folded(text).find("US") == std::string::npos;
}

bool isUnitText(std::string_view text) {
  const Words words = wordsOf(folded(text));
  return !words.empty() ? std::ranges::all_of(words, isUnitWord) : !currencyOf(text).empty();
}

bool isEnglishHead(std::string_view head) {
  constexpr auto kEnglish =
      std::to_array<std::string_view>({"ODOMETER", "ODO", "MILEAGE", "MILAGE", "DISTANCE", "TRIP", "READING",
                                       "SPEEDO", "SPEEDOMETER", "CLOCK", "DRIVEN", "FILL"});
  return hasOneOf(wordsOf(folded(head)), kEnglish);
}

bool isHungarianHead(std::string_view head) {
  constexpr auto kHungarian = std::to_array<std::string_view>(
      {"ORA",          "ALLAS",     "KMORA",   "KILOMETERORA", "ORAALLAS",     "OSSZEG",   "OSSZESEN",
       "FIZETETT",     "FIZETVE",   "KOLTSEG", "MEGJEGYZES",   "MEGJEGYZESEK", "TELE",     "TELETANK",
       "TELETANKOLAS", "GAZOLAJ",   "AR",      "EGYSEGAR",     "TANKOLT",      "TANKOLAS", "RENDSZAM",
       "JARMU",        "MENNYISEG", "NAP",     "HONAP",        "MEGTETT",      "UZEMANYAG"});
  return hasOneOf(wordsOf(folded(head)), kHungarian) || head.find("Dátum") != std::string_view::npos;
}

}  // namespace tarvik::exchange
