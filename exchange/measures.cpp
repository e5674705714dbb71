#include "exchange/measures.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text.h"
#include "exchange/numbers.h"
#include "exchange/words.h"

// Units and money as texts name them. Whoever adds one adds its words here: those of a unit to its list, a
// currency as a row of kCurrencies; the names that a person chooses from are in
// ui/exchange/import_choices.cpp.

namespace tarvik::exchange {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kKilometreWords =
    "KM, KMS, KILOMETER, KILOMETERS, KILOMETRE, KILOMETRES, KILOMETERBEN, KILOMETERN, 100KM, KMPL, "
    "CHILOMETRI, KILOMETROS, QUILOMETROS, KILOMETRY, KML";
constexpr std::string_view kMileWords = "MI, MILE, MILES, MEILE, MEILEN, MERFOLD";
constexpr std::string_view kLitreWords =
    "L, LT, LTR, LTRS, LIT, LITER, LITERS, LITRE, LITRES, LITERBEN, LITERN, LITRI, LITROS, LITRO, LITRY, "
    "LITR, LITRU, LITROV, KML, KMPL";
constexpr std::string_view kGallonWords =
    "G, GAL, GALS, GALLON, GALLONS, GALLONE, GALLONEN, GALLONBAN, GALONES, GALONY";
constexpr std::string_view kUsWords = "US, USA, AMERIKAI, AMERIKANISCHE";
constexpr std::string_view kUkWords = "UK, IMP, IMPERIAL, GB, ANGOL, BRIT, ENGLISCHE";

struct Currency {
  std::string_view code;
  std::array<std::string_view, 2> signs{};  // as they stand
  std::string_view words{};                 // of folded texts, beside the code
};

constexpr auto kCurrencies = std::to_array<Currency>({
    {"HUF", {}, "FT, FORINT"},
    {"EUR", {"€"}, "EURO, EUROS"},
    {"USD", {"$"}, "DOLLAR, DOLLARS"},
    {"GBP", {"£"}, "POUNDS, PENCE"},
    {"CHF", {}, "SFR, FRANKEN"},
    {"CZK", {}, "KC, KORUNA, KORUN"},
    {"PLN", {}, "ZL, ZLOTY"},
    {"RON", {}, "LEI, LEU"},
    {"RSD", {}, "DIN, DINAR"},
    {"HRK"},
    {"BAM"},
    {"SEK"},
    {"NOK"},
    {"DKK"},
    {"BGN", {}, "LV"},
    {"UAH", {"₴"}},
    {"RUB", {"₽"}, "RBL, RUBLEI"},
    {"TRY", {"₺"}},
    {"ILS", {"₪"}},
    {"INR", {"₹"}, "RS, RUPEES"},
    {"ZAR", {}, "R"},
    {"BRL", {"R$"}, "REAIS"},
    {"CAD", {"CA$", "C$"}},
    {"AUD", {"AU$", "A$"}},
    {"NZD", {"NZ$"}},
    {"MXN"},
    {"JPY"},
    {"ISK"},
});

// The currency with the longest sign in a text: "R$" is no dollar.
std::string_view currencyOfSign(std::string_view text) {
  std::string_view found;
  std::size_t length = 0;
  for (const Currency& currency : kCurrencies)
    for (const std::string_view sign : currency.signs)
      if (sign.size() > length && text.find(sign) != std::string_view::npos) {
        found = currency.code;
        length = sign.size();
      }
  return found;
}

std::string_view currencyOfWord(std::string_view word) {
  const auto found = std::ranges::find_if(kCurrencies, [&](const Currency& currency) {
    return currency.code == word || isListed(word, currency.words);
  });
  return found == kCurrencies.end() ? std::string_view() : found->code;
}

constexpr std::string_view kDigits = "0123456789";

// Words that make the figure before them another one.
constexpr std::string_view kOtherMeasures =
    "EZER, EZRES, EFT, TSD, TAUSEND, THOUSAND, SZAZ, MILLIO, MILLIOS, MILLION, MFT, MIO, MILLIARD, MRD, "
    "KG, KILO, GRAMM, TONNA, TONNE, KWH, WH, DECI, DECILITER, DL, CENTI, CL, ML, HEKTO, HEKTOLITER, HL, "
    "PINT, PINTS, PT, QUART, QUARTS, QT, OZ, DARAB";

// Whether what stands behind a figure leaves it as it is: words that neither multiply nor divide it and name
// no unit. A short word may be a unit that is not known here, unless it stands in brackets or behind a unit
// ("kp" is how Hungarian writes cash).
bool isRemark(std::string_view text, bool isBehindUnit) {
  constexpr std::size_t kShortest = 4;
  const Words words = wordsOf(folded(text));
  if (words.empty() || hasListed(words, kOtherMeasures) ||
      text.find_first_of("/*%") != std::string_view::npos)
    return false;
  if (std::ranges::any_of(words, isUnitWord) || !currencyOf(text).empty()) return false;
  const std::string_view begin = core::trimmed(text);
  const bool isInBrackets = begin.starts_with('(') || begin.starts_with('[');
  return isBehindUnit || (isInBrackets && folded(text).size() > 1) || words.front() == "KP" ||
         words.front().size() >= kShortest;
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

bool isDistanceWord(std::string_view word) {
  return isListed(word, kKilometreWords) || isListed(word, kMileWords);
}

bool isVolumeWord(std::string_view word) {
  return isListed(word, kLitreWords) || isListed(word, kGallonWords);
}

UnitHint unitHintOf(std::string_view text) {
  const Words words = wordsOf(folded(text));
  UnitHint hint;
  if (hasListed(words, kKilometreWords)) hint.distance = DistanceUnit::Kilometre;
  if (hasListed(words, kMileWords)) hint.distance = DistanceUnit::Mile;
  if (hasListed(words, kLitreWords)) hint.volume = VolumeUnit::Litre;
  if (!hasListed(words, kGallonWords)) return hint;
  hint.volume = hasListed(words, kUkWords) ? VolumeUnit::UkGallon : VolumeUnit::UsGallon;
  hint.isGallonOpen = !hasListed(words, kUkWords) && !hasListed(words, kUsWords);
  return hint;
}

std::string currencyOf(std::string_view text) {
  if (const std::string_view currency = currencyOfSign(text); !currency.empty()) return std::string(currency);
  std::string letters(text);
  std::ranges::replace_if(letters, core::isDigit, ' ');  // "R971.70"
  for (const std::string& word : wordsOf(folded(letters)))
    if (const std::string_view currency = currencyOfWord(word); !currency.empty())
      return std::string(currency);
  return {};
}

bool isBareDollar(std::string_view text) {
  return currencyOf(text) == "USD" && folded(text).find("US") == std::string::npos;
}

bool isUnitWord(std::string_view word) {
  return word == "KR" ||  // crowns of several countries
         isDistanceWord(word) || isVolumeWord(word) || isListed(word, kUsWords) || isListed(word, kUkWords) ||
         !currencyOfWord(word).empty();
}

bool isUnitText(std::string_view text) {
  const Words words = wordsOf(folded(text));
  return !words.empty() ? std::ranges::all_of(words, isUnitWord) : !currencyOf(text).empty();
}

bool isFigureCell(std::string_view cell) {
  if (!hasDigit(cell) || !looksLikeFigure(cell)) return false;
  std::string around;
  for (const char c : cell)
    around += std::string_view("0123456789.,-+'").find(c) == std::string_view::npos ? c : ' ';
  return folded(around).empty() || isUnitText(around);
}

bool beginsWithFigure(std::string_view cell) {
  const std::size_t first = cell.find_first_of(kDigits);
  if (first == std::string_view::npos) return false;
  const std::size_t end = std::min(cell.find_first_not_of("0123456789.,'", first), cell.size());
  const std::string_view behind = cell.substr(end);
  const bool isOtherText = behind.starts_with('-') || behind.starts_with('/') || behind.starts_with(':');
  return !isOtherText && isFigureCell(cell.substr(0, end));
}

std::string_view withoutRemark(std::string_view cell) {
  constexpr std::size_t kLongest = 100;
  if (cell.size() > kLongest || !hasDigit(cell) || isFigureCell(cell)) return cell;
  const std::size_t digits = cell.find_last_of(kDigits) + 1;
  for (std::size_t end = cell.size() - 1; end >= digits; --end) {
    if (std::string_view(" ([-,;").find(cell[end]) == std::string_view::npos) continue;
    const std::string_view figure = core::trimmed(cell.substr(0, end));
    if (isFigureCell(figure) && isRemark(cell.substr(end), !folded(figure.substr(digits)).empty()))
      return figure;
  }
  return cell;
}

bool isDollar(std::string_view currency) {
  constexpr std::string_view kDollars = "USD, CAD, AUD, NZD, MXN";
  return isListed(currency, kDollars);
}

bool isDearMoney(std::string_view currency) {
  constexpr std::string_view kDear = "GBP, EUR, CHF, USD, CAD, AUD, NZD";
  return isListed(currency, kDear);
}

bool isMoneyOfLitres(std::string_view currency) {
  return !currency.empty() && currency != "USD" && currency != "GBP";
}

// Euros are paid in Ireland too, where old cars count miles.
bool isMoneyOfKilometres(std::string_view currency) {
  return isMoneyOfLitres(currency) && currency != "EUR";
}

}  // namespace tarvik::exchange
