#include "exchange/heads.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/text.h"
#include "exchange/measures.h"
#include "exchange/words.h"

// What the words of heads say; the words themselves are in vocabulary.inc.

namespace tarvik::exchange {
namespace {

using Words = std::vector<std::string>;

bool hasDistance(const Words& words) {
  return std::ranges::any_of(words, isDistanceWord);
}

bool hasVolume(const Words& words) {
  return std::ranges::any_of(words, isVolumeWord);
}

std::string joined(const Words& words) {
  std::string whole;
  for (const std::string& word : words) whole += word;
  return whole;
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
    vocabulary.emplace(squeezed(rest.substr(0, end)), words.word);
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

constexpr std::string_view kEmptyWords = "OPTIONAL, IN, OPCIONALIS, THE, BEN";

std::string withoutSideWords(const Words& words) {
  std::string result;
  for (const std::string& word : words)
    if (!isUnitWord(word) && !isListed(word, kEmptyWords)) result += word + ' ';
  return result;
}

// Something for each unit of volume or distance, as it stands: "Ft/l", "$ per gallon", "l/100 km", "km/l".
struct Quotient {
  bool isByVolume;
  bool isByDistance;
  bool isConsumption;
};

// "per gallon", "per US gallon".
bool isPer(const Words& words, std::size_t at) {
  constexpr std::string_view kPer = "PER, PRO, JE, AL, ZA, PE, POR, AU, PAR";
  constexpr std::string_view kWhose = "US, UK, IMP, IMPERIAL";
  if (at > 1 && isListed(words[at - 1], kWhose)) --at;
  return isListed(words[at - 1], kPer);
}

Quotient quotientIn(std::string_view head, const Words& words) {
  const bool hasStroke = head.find('/') != std::string_view::npos;
  const bool hasHundred = std::ranges::find(words, "100") != words.end();
  bool isPerVolume = hasStroke && hasVolume(words);
  bool isPerDistance = hasStroke && hasDistance(words);
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (!isPer(words, i)) continue;
    isPerVolume = isPerVolume || isVolumeWord(words[i]);
    isPerDistance = isPerDistance || isDistanceWord(words[i]);
  }
  return {.isByVolume = isPerVolume && !hasDistance(words),
          .isByDistance = isPerDistance && !hasVolume(words),
          .isConsumption = hasDistance(words) && (hasHundred || (hasVolume(words) && hasStroke))};
}

// The longest phrase of the vocabulary among those that it is shown, as from a length on.
class LongestPhrase {
 public:
  LongestPhrase(std::size_t shortest, int strength) : length_(shortest - 1), strength_(strength) {}

  void consider(const std::string& phrase) {
    const auto found = vocabulary().find(phrase);
    if (found == vocabulary().end() || phrase.size() <= length_) return;
    best_ = {found->second, strength_};
    length_ = phrase.size();
  }
  HeadReading best() const { return best_; }

 private:
  HeadReading best_;
  std::size_t length_;
  int strength_;
};

// Phrases that stand in the words of a head.
HeadReading phraseIn(const Words& words) {
  LongestPhrase longest(4, 2);
  const std::size_t count = words.size();
  for (std::size_t from = 0; from < count; ++from) {
    std::string phrase;
    for (std::size_t to = from; to < count; ++to) longest.consider(phrase += words[to]);
  }
  return longest.best();
}

// Phrases that a word of the head begins or ends with: compounds ("Kraftstoffpreis").
HeadReading compoundIn(const Words& words) {
  constexpr std::size_t kShortest = 5;
  constexpr std::size_t kLongest = 40;
  LongestPhrase longest(kShortest, 1);
  for (const std::string& word : words)
    for (std::size_t size = kShortest; size < std::min(word.size(), kLongest); ++size) {
      longest.consider(word.substr(word.size() - size));
      longest.consider(word.substr(0, size));
    }
  return longest.best();
}

// A head of units alone: "Ft" is money, "Km" a distance, "l" a volume.
HeadReading readUnits(const Words& words, bool hasCurrency) {
  if (hasCurrency) return {HeadWord::TotalCost, 3};
  if (hasVolume(words)) return {HeadWord::Volume, 3};
  if (hasDistance(words)) return {HeadWord::Distance, 3};
  return {};
}

HeadReading readWords(std::string_view head, const Words& words) {
  if (const HeadWord word = wholeHead(joined(words)); word != HeadWord::Unknown) return {word, 4};
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
  constexpr std::string_view kHundredths = "CT, CENT, CENTS, P, PENCE";
  return isMoney(word) || !currencyOf(head).empty() || hasListed(words, kHundredths) ||
         std::ranges::any_of(words, [](const std::string& other) { return isMoney(wholeHead(other)); });
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
  const std::string whole = joined(words);
  return whole.find("KWH") != std::string::npos || whole.find("ADBLUE") != std::string::npos ||
         std::ranges::find(words, "KG") != words.end();
}

}  // namespace

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
  HeadReading reading = readWords(head, words);
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

bool isEnglishHead(std::string_view head) {
  constexpr std::string_view kEnglish =
      "ODOMETER, ODO, MILEAGE, MILAGE, DISTANCE, TRIP, READING, SPEEDO, SPEEDOMETER, CLOCK, DRIVEN, "
      "FILL";
  return hasListed(wordsOf(folded(head)), kEnglish);
}

bool isHungarianHead(std::string_view head) {
  constexpr std::string_view kHungarian =
      "ORA, ALLAS, KMORA, KILOMETERORA, ORAALLAS, OSSZEG, OSSZESEN, FIZETETT, FIZETVE, KOLTSEG, "
      "MEGJEGYZES, MEGJEGYZESEK, TELE, TELETANK, TELETANKOLAS, GAZOLAJ, AR, EGYSEGAR, TANKOLT, "
      "TANKOLAS, RENDSZAM, JARMU, MENNYISEG, NAP, HONAP, MEGTETT, UZEMANYAG";
  return hasListed(wordsOf(folded(head)), kHungarian) || head.find("Dátum") != std::string_view::npos;
}

}  // namespace tarvik::exchange
