#include "exchange/heads.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <vector>

namespace tarvik::exchange {
namespace {

// What tests/exchange/words.txt has behind such a beginning of its lines.
std::vector<std::string> wordsOfThePage(const std::string& beginning) {
  std::ifstream page(std::string(TARVIK_EXCHANGE_SAMPLES) + "/../words.txt");
  std::vector<std::string> words;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with(beginning + ": ")) continue;
    line = line.substr(beginning.size() + 2) + " | ";
    for (std::size_t end = 0; (end = line.find(" | ")) != std::string::npos; line.erase(0, end + 3))
      words.push_back(line.substr(0, end));
  }
  EXPECT_FALSE(words.empty()) << beginning;
  return words;
}

const std::map<std::string, Meaning> kMeanings = {
    {"Day", Meaning::Day},
    {"Odometer", Meaning::Odometer},
    {"UnitPrice", Meaning::UnitPrice},
    {"Volume", Meaning::Volume},
    {"TotalCost", Meaning::TotalCost},
    {"Price", Meaning::Price},
    {"Full", Meaning::Full},
    {"Partial", Meaning::Partial},
    {"Missed", Meaning::Missed},
    {"Note", Meaning::Note},
    {"Description", Meaning::Description},
    {"Kind", Meaning::Kind},
    {"DistanceUnit", Meaning::DistanceUnit},
    {"VolumeUnit", Meaning::VolumeUnit},
    {"Currency", Meaning::Currency},
    {"Vehicle", Meaning::Vehicle},
};

TEST(AHead, OfThePageMeansWhatThePageSays) {
  for (const auto& [name, meaning] : kMeanings)
    for (const std::string& head : wordsOfThePage("head " + name))
      EXPECT_EQ(meaningOf(head), meaning) << head;
}

TEST(AHead, MeansTheSameWithAWordForAUnitOrACurrency) {
  for (const char* kind : {"kilometre", "mile", "litre", "gallon", "us", "uk", "aside"})
    for (const std::string& word : wordsOfThePage(std::string("word ") + kind)) {
      EXPECT_EQ(meaningOf("Notes (" + word + ")"), Meaning::Note) << word;
      EXPECT_EQ(meaningOf(word + " Notes"), Meaning::Note) << word;
    }
  EXPECT_EQ(meaningOf("Notes (what)"), Meaning::Ignored);
}

TEST(AUnit, OfThePageIsWhatThePageSays) {
  for (const std::string& word : wordsOfThePage("word kilometre"))
    EXPECT_EQ(unitHintOf("Odo (" + word + ")").distance, DistanceUnit::Kilometre) << word;
  for (const std::string& word : wordsOfThePage("word mile"))
    EXPECT_EQ(unitHintOf("Odo (" + word + ")").distance, DistanceUnit::Mile) << word;
  for (const std::string& word : wordsOfThePage("word litre"))
    EXPECT_EQ(unitHintOf("Fuel (" + word + ")").volume, VolumeUnit::Litre) << word;
  for (const std::string& word : wordsOfThePage("word gallon")) {
    EXPECT_EQ(unitHintOf("Fuel (" + word + ")").volume, VolumeUnit::UsGallon) << word;
    EXPECT_TRUE(unitHintOf("Fuel (" + word + ")").isGallonOpen) << word;
  }
  for (const std::string& word : wordsOfThePage("word us")) {
    EXPECT_EQ(unitHintOf("Gallon " + word).volume, VolumeUnit::UsGallon) << word;
    EXPECT_FALSE(unitHintOf("Gallon " + word).isGallonOpen) << word;
  }
  for (const std::string& word : wordsOfThePage("word uk")) {
    EXPECT_EQ(unitHintOf("Gallon " + word).volume, VolumeUnit::UkGallon) << word;
    EXPECT_FALSE(unitHintOf("Gallon " + word).isGallonOpen) << word;
  }
}

TEST(ACell, OfThePageSaysWhatThePageSays) {
  for (const std::string& word : wordsOfThePage("cell yes")) EXPECT_TRUE(saysYes(word)) << word;
  for (const std::string& word : wordsOfThePage("cell total")) EXPECT_TRUE(namesTotal(word)) << word;
  for (const std::string& word : wordsOfThePage("cell fuelling")) {
    EXPECT_TRUE(namesFuelling(word)) << word;
    EXPECT_TRUE(namesFuelling("Car " + word)) << word;
  }
  for (const std::string& code : wordsOfThePage("cell currency")) EXPECT_EQ(currencyOf("12 " + code), code);
}

TEST(ACurrency, HasASignOrAWordOfItsOwn) {
  EXPECT_EQ(currencyOf("£3"), "GBP");
  EXPECT_EQ(currencyOf("3 Kč"), "CZK");
  EXPECT_EQ(currencyOf("3 zł"), "PLN");
  EXPECT_EQ(currencyOf("3 forint"), "HUF");
  EXPECT_EQ(currencyOf("3 Euro"), "EUR");
}

TEST(AHead, LosesTheAccentOfEveryLetter) {
  EXPECT_EQ(folded("áéíóöőúüűä"), "AEIOOOUUUA");
}

TEST(AHead, IsFoldedToCapitalsWithoutAccentsAndSigns) {
  EXPECT_EQ(folded("Megjegyzés költsége (Ft)"), "MEGJEGYZES KOLTSEGE FT");
  EXPECT_EQ(folded(" fuelup_date "), "FUELUP DATE");
  EXPECT_EQ(folded("Straße"), "STRASSE");
  EXPECT_EQ(folded("ŐŰőű"), "OUOU");
  EXPECT_EQ(folded("???"), "");
}

TEST(AHead, IsUnderstoodInThreeLanguages) {
  for (const char* head : {"Date", "fuelup_date", "Datum", "Dátum", "Data"})
    EXPECT_EQ(meaningOf(head), Meaning::Day) << head;
  for (const char* head :
       {"Odometer", "odometer_km", "Odo (mi)", "Kilometerstand", "Km óra állás", "Mileage"})
    EXPECT_EQ(meaningOf(head), Meaning::Odometer) << head;
  for (const char* head : {"Fuel (litres)", "Gallons", "Menge", "Liter", "Mennyiség (l)", "FuelConsumed"})
    EXPECT_EQ(meaningOf(head), Meaning::Volume) << head;
  for (const char* head :
       {"Total Cost", "cost_ft", "Kosten", "Gesamtpreis", "Tankolt költség", "Összeg (Ft)"})
    EXPECT_EQ(meaningOf(head), Meaning::TotalCost) << head;
  for (const char* head : {"Price per Unit", "Price / L", "VolumePrice", "Preis/Liter", "Egységár (Ft/l)"})
    EXPECT_EQ(meaningOf(head), Meaning::UnitPrice) << head;
  for (const char* head : {"Full", "IsFillToFull", "Completely fill?", "Tele tankolva", "Vollgetankt"})
    EXPECT_EQ(meaningOf(head), Meaning::Full) << head;
  for (const char* head : {"partial_fuelup", "Partial Fill-Up?", "Teilbetankung", "Részleges tankolás"})
    EXPECT_EQ(meaningOf(head), Meaning::Partial) << head;
  for (const char* head : {"Missed", "missed_fuelup", "Previously Missed Fill-Ups?", "Kimaradt tankolás"})
    EXPECT_EQ(meaningOf(head), Meaning::Missed) << head;
  for (const char* head : {"Notes (optional)", "Bemerkung", "Megjegyzés"})
    EXPECT_EQ(meaningOf(head), Meaning::Note) << head;
}

TEST(AHead, ThatOnlySoundsLikeOneIsIgnored) {
  for (const char* head : {"", "l/100km", "MPG", "Trip Distance", "Fuel Type", "Tank Capacity", "Oktán"})
    EXPECT_EQ(meaningOf(head), Meaning::Ignored) << head;
}

TEST(AUnit, IsNamedByAHeadOrACell) {
  EXPECT_EQ(unitHintOf("Odo (km)").distance, DistanceUnit::Kilometre);
  EXPECT_EQ(unitHintOf("Odometer (mi)").distance, DistanceUnit::Mile);
  EXPECT_EQ(unitHintOf("MILE").distance, DistanceUnit::Mile);
  EXPECT_EQ(unitHintOf("Fuel (litres)").volume, VolumeUnit::Litre);
  EXPECT_EQ(unitHintOf("US_GALLON").volume, VolumeUnit::UsGallon);
  EXPECT_EQ(unitHintOf("Gallons (UK)").volume, VolumeUnit::UkGallon);
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

TEST(ACurrency, IsNamedByItsSignOrLetters) {
  EXPECT_EQ(currencyOf("Total (€)"), "EUR");
  EXPECT_EQ(currencyOf("$40.10"), "USD");
  EXPECT_EQ(currencyOf("cost_ft"), "HUF");
  EXPECT_EQ(currencyOf("12 345 Ft"), "HUF");
  EXPECT_EQ(currencyOf("CZK"), "CZK");
  EXPECT_EQ(currencyOf("Total cost"), "");
}

TEST(ACell, SaysYesTotalOrFuellingInThreeLanguages) {
  for (const char* cell : {"1", "Yes", "true", "X", "Full", "Ja", "Igen", "igaz", "1.0"})
    EXPECT_TRUE(saysYes(cell)) << cell;
  for (const char* cell : {"", "0", "No", "nem", "Partial", "2"}) EXPECT_FALSE(saysYes(cell)) << cell;
  for (const char* cell : {"Total:", "Summe", "Összesen", "Átlag"}) EXPECT_TRUE(namesTotal(cell)) << cell;
  EXPECT_FALSE(namesTotal("Total Garázs"));
  EXPECT_TRUE(namesFuelling("Gas"));
  EXPECT_TRUE(namesFuelling(""));
  EXPECT_FALSE(namesFuelling("Service"));
}

}  // namespace
}  // namespace tarvik::exchange
