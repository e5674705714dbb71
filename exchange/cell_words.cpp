#include "exchange/cell_words.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "exchange/heads.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

// Beside the words of heads for a full tank and a part fill.
constexpr std::string_view kYes =
    "YES, Y, TRUE, T, 1, 1 0, X, ON, JA, J, WAHR, IGEN, I, IGAZ, VAN, OUI, VRAI, SI, S, VERO, SIM, TAK, "
    "ANO, VERDADERO, VERDADEIRO, PRAWDA, PRAVDA, DA, FIRST, ERSTBETANKUNG";

constexpr std::string_view kNo =
    "NO, N, FALSE, F, 0, 0 0, OFF, HALF, NEIN, FALSCH, TEIL, NEM, HAMIS, FEL, FELIG, NON, FAUX, FALSO, "
    "NAO, NIE, NEE, NE, NU, NET, FALSZ, LOZ, NINCS, PARTIALLY";

}  // namespace

std::optional<bool> yesOrNo(std::string_view cell) {
  const std::string word = folded(cell);
  const HeadWord asHead = wholeHead(word);
  if (asHead == HeadWord::Full || isListed(word, kYes)) return true;
  if (asHead == HeadWord::Partial || isListed(word, kNo)) return false;
  return std::nullopt;
}

bool namesTotal(std::string_view cell) {
  constexpr std::string_view kTotals =
      "TOTAL, TOTALS, SUM, SUMME, GESAMT, GESAMTSUMME, AVERAGE, AVG, MEAN, MITTELWERT, DURCHSCHNITT, "
      "OSSZESEN, OSSZEG, VEGOSSZEG, ATLAG, ATLAGOSAN, MINDOSSZESEN, GRAND TOTAL, SUBTOTAL, SUMA, CELKEM, "
      "CELKOM, SPOLU, RAZEM, TOTALE, MEDIA, MOYENNE, SOMME, ITOGO, PRUMER, SREDNIA, OSSZ, SZUM, SZUMMA, "
      "PROMEDIO, INSGESAMT, ZWISCHENSUMME";
  return isListed(folded(cell), kTotals);
}

bool isOtherFuel(std::string_view cell) {
  constexpr std::string_view kOthers =
      "KWH, KG, ADBLUE, UREA, KARBAMID, HARNSTOFF, ELECTRIC, ELECTRICITY, ELEKTROMOS, ARAM, VILLANY, "
      "STROM, ELEKTRIZITAT, ELECTRICITE, ELETTRICITA, ELETTRICO, ELECTRICIDAD, ELECTRICIDADE, PRAD, "
      "ELEKTRINA, CHARGING, CHARGE, TOLTES";
  return isListed(squeezed(folded(cell)), kOthers);
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
  constexpr std::string_view kFuelWords =
      "FUELUP, FILLUP, FILLUPS, REFUEL, REFUELING, REFUELLING, TANKUNG, BETANKUNG, TANKEN, TANKOWANIE, "
      "TANKOVANI";
  const std::vector<std::string> words = wordsOf(folded(kind));
  return words.empty() || hasListed(words, kFuelWords) ||
         std::ranges::any_of(words, [&](const std::string& word) {
           return std::ranges::find(kHeads, wholeHead(word)) != kHeads.end();
         });
}

bool namesService(std::string_view kind) {
  constexpr std::string_view kServices =
      "SERVICE, EXPENSE, EXPENSES, MAINTENANCE, REPAIR, INSURANCE, TAX, PARKING, TOLL, WASH, SZERVIZ, "
      "KIADAS, JAVITAS, BIZTOSITAS, WARTUNG, REPARATUR, AUSGABE, ENTRETIEN, DEPENSE, MANUTENZIONE, SPESA, "
      "DESPESA, GASTO, OTHER, EGYEB, SONSTIGES, NOTE, COST, UPGRADE";
  return hasListed(wordsOf(folded(kind)), kServices);
}

}  // namespace tarvik::exchange
