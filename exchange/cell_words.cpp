#include <algorithm>
#include <array>
#include <string_view>

#include "exchange/heads.h"

// What the words of cells say; those of heads are in heads.cpp.

namespace tarvik::exchange {
namespace {

// Beside the words of heads for a full tank and a part fill.
constexpr auto kYes = std::to_array<std::string_view>(
    {"YES",  "Y",    "TRUE", "T",         "1",          "1 0",    "X",      "ON", "JA",    "J",
     "WAHR", "IGEN", "I",    "IGAZ",      "VAN",        "OUI",    "VRAI",   "SI", "S",     "VERO",
     "SIM",  "TAK",  "ANO",  "VERDADERO", "VERDADEIRO", "PRAWDA", "PRAVDA", "DA", "FIRST", "ERSTBETANKUNG"});

constexpr auto kNo = std::to_array<std::string_view>(
    {"NO",     "N",    "FALSE", "F",     "0",   "0 0",   "OFF", "HALF",  "NEIN",
     "FALSCH", "TEIL", "NEM",   "HAMIS", "FEL", "FELIG", "NON", "FAUX",  "FALSO",
     "NAO",    "NIE",  "NE",    "NU",    "NET", "FALSZ", "LOZ", "NINCS", "PARTIALLY"});

template <typename List>
bool isOneOf(const auto& one, const List& list) {
  return std::ranges::find(list, one) != list.end();
}

}  // namespace

std::optional<bool> yesOrNo(std::string_view cell) {
  const std::string word = folded(cell);
  const HeadWord asHead = wholeHead(word);
  if (asHead == HeadWord::Full || isOneOf(word, kYes)) return true;
  if (asHead == HeadWord::Partial || isOneOf(word, kNo)) return false;
  return std::nullopt;
}

bool namesTotal(std::string_view cell) {
  constexpr auto kTotals = std::to_array<std::string_view>(
      {"TOTAL",     "TOTALS",       "SUM",          "SUMME",        "GESAMT",   "GESAMTSUMME", "AVERAGE",
       "AVG",       "MEAN",         "MITTELWERT",   "DURCHSCHNITT", "OSSZESEN", "OSSZEG",      "VEGOSSZEG",
       "ATLAG",     "ATLAGOSAN",    "MINDOSSZESEN", "GRAND TOTAL",  "SUBTOTAL", "SUMA",        "CELKEM",
       "CELKOM",    "SPOLU",        "RAZEM",        "TOTALE",       "MEDIA",    "MOYENNE",     "SOMME",
       "ITOGO",     "PRUMER",       "SREDNIA",      "OSSZ",         "SZUM",     "SZUMMA",      "PROMEDIO",
       "INSGESAMT", "ZWISCHENSUMME"});
  return isOneOf(folded(cell), kTotals);
}

bool isOtherFuel(std::string_view cell) {
  constexpr auto kOthers = std::to_array<std::string_view>(
      {"KWH",          "KG",          "ADBLUE",      "UREA",      "KARBAMID",     "HARNSTOFF",
       "ELECTRIC",     "ELECTRICITY", "ELEKTROMOS",  "ARAM",      "VILLANY",      "STROM",
       "ELEKTRIZITAT", "ELECTRICITE", "ELETTRICITA", "ELETTRICO", "ELECTRICIDAD", "ELECTRICIDADE",
       "PRAD",         "ELEKTRINA",   "CHARGING",    "CHARGE",    "TOLTES"});
  return isOneOf(squeezed(folded(cell)), kOthers);
}

bool namesOtherFuel(std::string_view cell) {
  constexpr std::size_t kLongest = 40;
  if (cell.size() > kLongest) return false;
  const std::string text = squeezed(folded(cell));
  return text.find("KWH") != std::string::npos || text.find("ADBLUE") != std::string::npos ||
         isOtherFuel(cell);
}

bool namesFuelling(std::string_view kind) {
  constexpr std::array kHeads = {HeadWord::Fuel, HeadWord::Amount, HeadWord::Full, HeadWord::Partial};
  constexpr auto kFuelWords =
      std::to_array<std::string_view>({"FUELUP", "FILLUP", "FILLUPS", "REFUEL", "REFUELING", "REFUELLING",
                                       "TANKUNG", "BETANKUNG", "TANKEN", "TANKOWANIE", "TANKOVANI"});
  const std::vector<std::string> words = wordsOf(folded(kind));
  return words.empty() || std::ranges::any_of(words, [&](const std::string& word) {
           return isOneOf(wholeHead(word), kHeads) || isOneOf(std::string_view(word), kFuelWords);
         });
}

}  // namespace tarvik::exchange
