#include "exchange/heads.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tarvik::exchange {
namespace {

TEST(AText, IsFoldedToPlainCapitalsAndParted) {
  EXPECT_EQ(folded("Megjegyzés költsége (Ft)"), "MEGJEGYZES KOLTSEGE FT");
  EXPECT_EQ(folded("isFullTank"), "IS FULL TANK");
  EXPECT_EQ(folded("total_price_kc"), "TOTAL PRICE KC");
  EXPECT_EQ(folded("Пробег"), "PROBEG");
  EXPECT_EQ(folded("Preț/litru"), "PRET LITRU");
  EXPECT_EQ(folded("ÓRAÁLLÁS"), "ORAALLAS");
  EXPECT_EQ(squeezed("KM ORA"), "KMORA");
}

TEST(AHead, IsUnderstoodInManyLanguages) {
  const std::vector<std::pair<const char*, HeadWord>> heads{{"Dátum", HeadWord::Day},
                                                            {"fuelup_date", HeadWord::Day},
                                                            {"Fecha", HeadWord::Day},
                                                            {"Km óra", HeadWord::Odometer},
                                                            {"kmóraállás", HeadWord::Odometer},
                                                            {"odometerReading", HeadWord::Odometer},
                                                            {"Total Miles", HeadWord::Odometer},
                                                            {"Kilometerstand", HeadWord::Odometer},
                                                            {"Przebieg", HeadWord::Odometer},
                                                            {"Stav tachometru", HeadWord::Odometer},
                                                            {"Пробег", HeadWord::Odometer},
                                                            {"Contachilometri", HeadWord::Odometer},
                                                            {"Km", HeadWord::Distance},
                                                            {"Kilométer", HeadWord::Distance},
                                                            {"Megtett km", HeadWord::Trip},
                                                            {"Gefahrene km", HeadWord::Trip},
                                                            {"Liter", HeadWord::Volume},
                                                            {"Benzin (l)", HeadWord::Volume},
                                                            {"Litros", HeadWord::Volume},
                                                            {"Množství", HeadWord::Volume},
                                                            {"Gázolaj", HeadWord::Fuel},
                                                            {"Ft", HeadWord::TotalCost},
                                                            {"Összesen", HeadWord::TotalCost},
                                                            {"Fizetve", HeadWord::TotalCost},
                                                            {"Bruttó", HeadWord::TotalCost},
                                                            {"total_price_kc", HeadWord::TotalCost},
                                                            {"Gesamtpreis", HeadWord::TotalCost},
                                                            {"Valor total", HeadWord::TotalCost},
                                                            {"Cena celkem", HeadWord::TotalCost},
                                                            {"Ár", HeadWord::Price},
                                                            {"$/gal", HeadWord::UnitPrice},
                                                            {"Ft/l", HeadWord::UnitPrice},
                                                            {"unit_price_kc", HeadWord::UnitPrice},
                                                            {"Preis pro Liter", HeadWord::UnitPrice},
                                                            {"Prezzo al litro", HeadWord::UnitPrice},
                                                            {"Teletankolás", HeadWord::Full},
                                                            {"isFullTank", HeadWord::Full},
                                                            {"Tanque cheio", HeadWord::Full},
                                                            {"Do pełna", HeadWord::Full},
                                                            {"Partial Fuel-Up", HeadWord::Partial},
                                                            {"Megjegyzések", HeadWord::Note},
                                                            {"Poznámka", HeadWord::Note},
                                                            {"Rendszám", HeadWord::Vehicle},
                                                            {"car_id", HeadWord::Vehicle},
                                                            {"l/100km", HeadWord::Known},
                                                            {"MPG", HeadWord::Known},
                                                            {"Fuel Economy", HeadWord::Known},
                                                            {"Cost per km", HeadWord::Known},
                                                            {"Reifen", HeadWord::Known},
                                                            {"Vérnyomás", HeadWord::Unknown},
                                                            {"Fuel amount in tank", HeadWord::Volume},
                                                            {"", HeadWord::Unknown}};
  for (const auto& [head, word] : heads) EXPECT_EQ(readHead(head).word, word) << head;
}

// What one kilometre cost is nothing that a logbook keeps; a price is one however short its word is.
TEST(AHead, OfMoneyIsSettledByWhatItIsFor) {
  EXPECT_EQ(readHead("Coût/km").word, HeadWord::Known);
  EXPECT_EQ(readHead("Kosten pro km").word, HeadWord::Known);
  EXPECT_EQ(readHead("Benzin ára").word, HeadWord::Price);
  EXPECT_EQ(readHead("Üzemanyag összeg").word, HeadWord::TotalCost);
  EXPECT_EQ(readHead("ct/l").word, HeadWord::UnitPrice);
  EXPECT_EQ(readHead("Pence/litre").word, HeadWord::UnitPrice);
}

TEST(AHead, ThatOnlyItsUnitTellsOfIsWhatIsCountedInIt) {
  EXPECT_EQ(readHead("Zutty (l)").word, HeadWord::Volume);
  EXPECT_EQ(readHead("Zutty (km)").word, HeadWord::Distance);
  EXPECT_EQ(readHead("Zutty/l").word, HeadWord::Unknown);
  EXPECT_EQ(readHead("Zutty (€)").word, HeadWord::Unknown);  // fuel, or the car wash
  EXPECT_EQ(readHead("Km coche").word, HeadWord::Odometer);
  EXPECT_EQ(readHead("total_gallons").word, HeadWord::Volume);
}

TEST(AUnit, IsNamedByHeadsAndCells) {
  EXPECT_EQ(unitHintOf("Odometer (mi)").distance, DistanceUnit::Mile);
  EXPECT_EQ(unitHintOf("40,5 l").volume, VolumeUnit::Litre);
  EXPECT_EQ(unitHintOf("Imp. gal").volume, VolumeUnit::UkGallon);
  EXPECT_FALSE(unitHintOf("US_GALLON").isGallonOpen);
  EXPECT_TRUE(unitHintOf("Gal").isGallonOpen);
  EXPECT_FALSE(unitHintOf("Odometer").distance.has_value());
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
