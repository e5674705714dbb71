#include "exchange/heads.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "exchange/cell_words.h"
#include "exchange/measures.h"
#include "exchange/words.h"

namespace tarvik::exchange {
namespace {

TEST(AText, IsFoldedToPlainCapitalsAndParted) {
  EXPECT_EQ(folded("Megjegyzés költsége (Ft)"), "MEGJEGYZES KOLTSEGE FT");
  EXPECT_EQ(folded("isFullTank"), "IS FULL TANK");
  EXPECT_EQ(folded("total_price_kc"), "TOTAL PRICE KC");
  EXPECT_EQ(folded("Пробег"), "PROBEG");
  EXPECT_EQ(folded("Preț/litru"), "PRET LITRU");
  EXPECT_EQ(folded("ÓRAÁLLÁS"), "ORAALLAS");
  for (const char* text : {"km×l🚗", "kmあl", "km𐲀l", "km l\xC3"}) EXPECT_EQ(folded(text), "KM L") << text;
  EXPECT_EQ(folded("CO2Ft x1B"), "CO2FT X1B");
  EXPECT_EQ(squeezed("KM ORA"), "KMORA");
}

TEST(AText, IsListedWhole) {
  constexpr std::string_view kList = "YES, FULL TANK, X";
  for (const char* text : {"YES", "FULL TANK", "X"}) EXPECT_TRUE(isListed(text, kList)) << text;
  for (const char* text : {"", "FULL", "TANK", "YE", "ES", "YES, FULL", ","})
    EXPECT_FALSE(isListed(text, kList)) << text;
  for (const char* text : {"YE", "FULL", "X"}) EXPECT_TRUE(beginsListed(text, kList)) << text;
  for (const char* text : {"", "ES", "TANK", "XY"}) EXPECT_FALSE(beginsListed(text, kList)) << text;
}

// What one kilometre cost is nothing that a logbook keeps; a price is one however short its word is. Where
// only the unit tells, the head is of what is counted in it; money alone may be that of the car wash.
TEST(AHead, IsUnderstoodInManyLanguages) {
  const std::vector<std::pair<HeadWord, std::vector<const char*>>> words{
      {HeadWord::Day, {"Dátum", "fuelup_date", "Fecha"}},
      {HeadWord::Odometer,
       {"Km óra", "kmóraállás", "odometerReading", "Total Miles", "Kilometerstand", "Przebieg",
        "Stav tachometru", "Пробег", "Contachilometri", "Km coche", "Odometer/km"}},
      {HeadWord::Distance, {"Km", "Kilométer", "Zutty (km)"}},
      {HeadWord::Trip, {"Megtett km", "Gefahrene km"}},
      {HeadWord::Volume,
       {"Liter", "Benzin (l)", "Litros", "Množství", "Fuel amount in tank", "total_gallons", "Zutty (l)"}},
      {HeadWord::Fuel, {"Gázolaj"}},
      {HeadWord::Amount, {"Amount"}},
      {HeadWord::TotalCost,
       {"Ft", "Amount (Ft)", "Gázolaj (Ft)", "Összesen", "Fizetve", "Bruttó", "total_price_kc", "Gesamtpreis",
        "Valor total", "Cena celkem", "Üzemanyag összeg"}},
      {HeadWord::Price, {"Ár", "Benzin ára"}},
      {HeadWord::UnitPrice,
       {"$/gal", "Ft/l", "unit_price_kc", "Preis pro Liter", "Prezzo al litro", "ct/l", "Pence/litre",
        "Price per US gallon", "Cost per imp gallon"}},
      {HeadWord::Full, {"Teletankolás", "isFullTank", "Tanque cheio", "Do pełna"}},
      {HeadWord::Partial, {"Partial Fuel-Up"}},
      {HeadWord::Note, {"Megjegyzések", "Poznámka"}},
      {HeadWord::Vehicle, {"Rendszám", "car_id"}},
      {HeadWord::Known,
       {"l/100km", "Zutty (km/l)", "l per 100 km", "MPG", "Fuel Economy", "Cost per km", "Reifen", "Coût/km",
        "Kosten pro km"}},
      {HeadWord::Unknown, {"Vérnyomás", "", "Zutty/l", "Zutty (€)"}}};
  for (const auto& [word, heads] : words)
    for (const char* head : heads) EXPECT_EQ(readHead(head).word, word) << head;
}

TEST(AHead, IsTheStrongerTheMoreOfItIsUnderstood) {
  const std::vector<std::pair<std::string, int>> heads{{"Liter", 4},
                                                       {"€", 3},
                                                       {"gallonban", 3},
                                                       {"kilométerben", 3},
                                                       {"Megjegyzés (km)", 3},
                                                       {"Zutty megjegyzés", 2},
                                                       {"Zuttymegjegyzés", 1},
                                                       {"Zutty (l)", 1},
                                                       {"Zutty (km)", 1},
                                                       {"Zutty", 0},
                                                       {"Megjegyzészutty", 1},
                                                       {"Zutty odo", 0},
                                                       {"kWh", 4},
                                                       {"l/100 km", 4},
                                                       {"EUR per km", 4},
                                                       {"Zutty EUR/l", 4}};
  for (const auto& [head, strength] : heads) EXPECT_EQ(readHead(head).strength, strength) << head;
  EXPECT_EQ(readHead("Benzin (Ft/l)").word, HeadWord::UnitPrice);
  EXPECT_EQ(readHead("Megjegyzés (Ft/l)").word, HeadWord::Note);
  EXPECT_EQ(readHead("Odometer" + std::string(191, '.') + "x").strength, 2);
  EXPECT_EQ(readHead("Odometer" + std::string(192, '.') + "x").word, HeadWord::Unknown);
}

TEST(AUnit, HasItsExactSize) {
  EXPECT_EQ(kilometresOf(DistanceUnit::Mile), core::Ratio(1'609'344, 1'000'000));
  EXPECT_EQ(litresOf(VolumeUnit::UsGallon), core::Ratio(3'785'411'784, 1'000'000'000));
  EXPECT_EQ(litresOf(VolumeUnit::UkGallon), core::Ratio(454'609, 100'000));
  EXPECT_EQ(litresOf(VolumeUnit::Litre), core::Ratio(1));
}

TEST(ACell, MayHoldAnAnswerThatNobodyKnows) {
  for (const char* cell : {"✓", "teljes", "2", "csurig"}) EXPECT_EQ(yesOrNo(cell), std::nullopt) << cell;
  EXPECT_FALSE(namesTotal("Total Garázs"));
  EXPECT_EQ(currencyOf("Total cost"), "");
}

}  // namespace
}  // namespace tarvik::exchange
