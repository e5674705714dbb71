#include <algorithm>
#include <array>
#include <string_view>

#include "exchange/heads.h"

// What the words of cells say; those of heads are in heads.cpp.

namespace tarvik::exchange {
namespace {

constexpr auto kYes =
    std::to_array<std::string_view>({"YES",         "Y",         "TRUE",        "T",
                                     "1",           "X",         "FULL",        "JA",
                                     "J",           "WAHR",      "VOLL",        "VOLLBETANKUNG",
                                     "VOLLTANKUNG", "VOLLTANK",  "VOLLGETANKT", "IGEN",
                                     "I",           "IGAZ",      "TELE",        "TELI",
                                     "TELETANK",    "1 0",       "OUI",         "PLEIN",
                                     "SI",          "S",         "SIM",         "PIENO",
                                     "COMPLETO",    "LLENO",     "CHEIO",       "TAK",
                                     "PELNY",       "PELNE",     "ANO",         "PLNA",
                                     "DA",          "PLIN",      "POLNYI",      "VRAI",
                                     "VERO",        "VERDADERO", "VERDADEIRO",  "PRAWDA",
                                     "PRAVDA",      "FULL TANK", "FULL FILL",   "FULL UP",
                                     "FULLTANK",    "ON",        "FIRST",       "ERSTBETANKUNG",
                                     "VAN"});

constexpr auto kNo = std::to_array<std::string_view>({"NO",
                                                      "N",
                                                      "FALSE",
                                                      "F",
                                                      "0",
                                                      "PARTIAL",
                                                      "NEIN",
                                                      "FALSCH",
                                                      "TEIL",
                                                      "TEILBETANKUNG",
                                                      "TEILTANKUNG",
                                                      "NICHT VOLL",
                                                      "NEM",
                                                      "HAMIS",
                                                      "RESZLEGES",
                                                      "NEM TELE",
                                                      "0 0",
                                                      "NON",
                                                      "FAUX",
                                                      "FALSO",
                                                      "NAO",
                                                      "NIE",
                                                      "NE",
                                                      "NU",
                                                      "NET",
                                                      "FALSZ",
                                                      "LOZ",
                                                      "PARZIALE",
                                                      "PARCIAL",
                                                      "PARTIEL",
                                                      "CZESCIOWE",
                                                      "CASTECNE",
                                                      "PARTIALLY",
                                                      "HALF",
                                                      "NOT FULL",
                                                      "FEL",
                                                      "FELIG",
                                                      "OFF",
                                                      "PARTIAL FILL",
                                                      "NINCS"});

template <typename List>
bool isOneOf(std::string_view text, const List& list) {
  return std::ranges::find(list, text) != list.end();
}

}  // namespace

std::optional<bool> yesOrNo(std::string_view cell) {
  const std::string word = folded(cell);
  if (isOneOf(word, kYes)) return true;
  if (isOneOf(word, kNo)) return false;
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
      {"KWH",           "KG",           "ADBLUE",      "AD BLUE",     "UREA",      "KARBAMID",
       "HARNSTOFF",     "ELECTRIC",     "ELECTRICITY", "ELEKTROMOS",  "ARAM",      "VILLANY",
       "STROM",         "ELEKTRIZITAT", "ELECTRICITE", "ELETTRICITA", "ELETTRICO", "ELECTRICIDAD",
       "ELECTRICIDADE", "PRAD",         "ELEKTRINA",   "CHARGING",    "CHARGE",    "TOLTES"});
  return isOneOf(folded(cell), kOthers);
}

bool namesOtherFuel(std::string_view cell) {
  constexpr std::size_t kLongest = 40;
  if (cell.size() > kLongest) return false;
  const std::string text = squeezed(folded(cell));
  return text.find("KWH") != std::string::npos || text.find("ADBLUE") != std::string::npos ||
         isOtherFuel(cell);
}

bool namesFuelling(std::string_view kind) {
  constexpr auto kFuelWords = std::to_array<std::string_view>(
      {"GAS",       "FUEL",          "FUELUP",        "FILLUP",    "FILL",         "REFUEL",
       "REFUELING", "REFUELLING",    "PETROL",        "DIESEL",    "TANKUNG",      "BETANKUNG",
       "TANKEN",    "VOLLBETANKUNG", "TEILBETANKUNG", "TANKOLAS",  "BENZIN",       "GASOLINE",
       "UZEMANYAG", "FULL",          "PARTIAL",       "GAZOLAJ",   "FILLUPS",      "RIFORNIMENTO",
       "REPOSTAJE", "PLEIN",         "TANKOWANIE",    "TANKOVANI", "ABASTECIMENTO"});
  const std::vector<std::string> words = wordsOf(folded(kind));
  return words.empty() ||
         std::ranges::any_of(words, [&](const std::string& word) { return isOneOf(word, kFuelWords); });
}

}  // namespace tarvik::exchange
