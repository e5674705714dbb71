#include <gmock/gmock.h>

#include <sstream>

#include "exchange/cell_words.h"
#include "exchange/heads.h"
#include "exchange/measures.h"
#include "tests/exchange/reading.h"

// Each word by which a cell or a head is understood, as people and programs write it in their language.

namespace tarvik::test {
namespace {

using exchange::HeadWord;
using exchange::VolumeUnit;

std::vector<std::string> listed(const std::string& words) {
  std::vector<std::string> list;
  std::istringstream in(words);
  for (std::string word; std::getline(in >> std::ws, word, ',');) list.push_back(word);
  return list;
}

TEST(AWord, OfEachLanguageNamesAMonth) {
  for (const char* names :
       {"január, február, március, április, május, június, július, augusztus, szeptember, október, november, "
        "december",
        "January, February, March, April, May, June, July, August, September, October, November, December",
        "Januar, Februar, März, April, Mai, Juni, Juli, August, September, Oktober, November, Dezember",
        "Jänner, Feb., Mrz, Apr, Mai, Jun, Jul, Aug, Sep, Okt, Nov, Dez",
        "Jaenner, Feb, Maerz, Apr, Mai, Jun, Jul, Aug, Sept, Okt, Nov, Dez",
        "janvier, février, mars, avril, mai, juin, juillet, août, septembre, octobre, novembre, décembre",
        "enero, febrero, marzo, abril, mayo, junio, julio, agosto, septiembre, octubre, noviembre, diciembre",
        "gennaio, febbraio, marzo, aprile, maggio, giugno, luglio, agosto, settembre, ottobre, novembre, "
        "dicembre",
        "janeiro, fevereiro, março, abril, maio, junho, julho, agosto, setembro, outubro, novembro, "
        "dezembro"}) {
    int month = 0;
    for (const std::string& name : listed(names)) {
      EXPECT_EQ(exchange::readMonth(name), ++month) << name;
      EXPECT_EQ(exchange::readMonth(name + "x"), std::nullopt) << name;
      EXPECT_EQ(exchange::readDay("5 " + name + " 2013", exchange::DayOrder::YearFirst),
                core::dayOf({2013, month, 5}))
          << name;
    }
    EXPECT_EQ(month, 12);
  }
  EXPECT_EQ(exchange::readMonth("Ja"), std::nullopt);  // three letters at least
}

TEST(AWord, OfEachLanguageSaysYes) {
  for (const std::string& word :
       listed("yes, y, true, t, 1, 1.0, x, on, full, full tank, full up, first, igen, i, igaz, van, tele, "
              "teli, ja, j, wahr, "
              "voll, Erstbetankung, oui, vrai, plein, sì, s, vero, pieno, verdadero, lleno, sim, verdadeiro, "
              "cheio, tak, prawda, pełny, ano, pravda, plná, da, plin, полный"))
    EXPECT_EQ(exchange::yesOrNo(word), true) << word;
}

TEST(AWord, OfEachLanguageSaysNo) {
  for (const std::string& word : listed(
           "no, n, false, f, 0, 0.0, off, half, partial, partially, not full, nem, hamis, fél, félig, nincs, "
           "részleges, nein, falsch, teil, Teilbetankung, non, faux, partiel, falso, parziale, não, parcial, "
           "nie, "
           "fałsz, częściowe, ne, lož, částečně, nu, нет"))
    EXPECT_EQ(exchange::yesOrNo(word), false) << word;
}

TEST(AWord, OfEachLanguageNamesATotalOrAnAverage) {
  for (const std::string& word : listed(
           "Total, Totals, Sum, Average, Avg, Mean, Grand total, Subtotal, Összesen, Összeg, Végösszeg, "
           "Mindösszesen, Átlag, Átlagosan, Össz., Szum, Szumma, Summe, Gesamt, Gesamtsumme, Insgesamt, "
           "Zwischensumme, Mittelwert, Durchschnitt, Totale, Media, Somme, Moyenne, Suma, Promedio, Razem, "
           "Średnia, Celkem, Průměr, Celkom, Spolu, Итого")) {
    EXPECT_TRUE(exchange::namesTotal(word)) << word;
    const ReadLog log =
        readLog("Dátum;Km;Liter;Ft\n2024.01.05.;48210;41;25575\n2024.01.19.;48866;44;27681\n" + word +
                ";;85;53256\n");
    EXPECT_THAT(leftOut(log), testing::ElementsAre(testing::Pair(4, exchange::UnreadRow::Why::Total)))
        << word;
  }
}

TEST(AWord, OfEachLanguageNamesWhatIsNoFuelInLitres) {
  for (const std::string& word : listed(
           "kWh, kg, AdBlue, Ad Blue, urea, karbamid, elektromos, áram, villany, töltés, Harnstoff, Strom, "
           "Elektrizität, electric, electricity, charging, charge, électricité, elettricità, elettrico, "
           "electricidad, electricidade, prąd, elektřina"))
    EXPECT_TRUE(exchange::isOtherFuel(word)) << word;
  EXPECT_TRUE(exchange::namesOtherFuel("12 kWh"));
  EXPECT_TRUE(exchange::namesOtherFuel("AdBlue 10 l"));
  EXPECT_TRUE(exchange::namesOtherFuel("Strom"));
  EXPECT_FALSE(exchange::namesOtherFuel("Diesel"));
  EXPECT_TRUE(exchange::namesOtherFuel(std::string(36, 'x') + " kWh"));
  EXPECT_FALSE(exchange::namesOtherFuel(std::string(37, 'x') + " kWh"));
}

TEST(AWord, OfEachLanguageNamesAFuelling) {
  for (const std::string& word : listed(
           "Gas, Fuel, FuelUp, Fuelup, Fillup, Fillups, Fill, Refuel, Refueling, Refuelling, Petrol, Diesel, "
           "Gasoline, "
           "Full, Partial, tankolás, benzin, gázolaj, üzemanyag, Tankung, Betankung, tanken, Vollbetankung, "
           "Teilbetankung, plein, rifornimento, repostaje, abastecimento, tankowanie, tankování"))
    EXPECT_TRUE(exchange::namesFuelling(word)) << word;
  EXPECT_TRUE(exchange::namesFuelling(""));
  EXPECT_FALSE(exchange::namesFuelling("Parkolás"));
}

TEST(AWord, OfEachLanguageNamesAServiceBesideFillUps) {
  for (const std::string& word : listed(
           "Service, Expense, Expenses, Maintenance, Repair, Insurance, Tax, Parking, Toll, Car wash, Other, "
           "Note, Cost, Upgrade, szerviz, kiadás, javítás, biztosítás, egyéb, Wartung, Reparatur, Ausgabe, "
           "Sonstiges, entretien, dépense, manutenzione, spesa, despesa, gasto")) {
    const ReadLog log = readLog(
        "Date,Odometer (km),Litres,Cost (Ft),Type\n2024-01-05,1000,40,24000,Fuel\n2024-01-06,1100,1,5000," +
        word + "\n");
    ASSERT_EQ(log.rows.rows.size(), 2U) << word;
    EXPECT_TRUE(log.rows.rows[1].litres.isZero()) << word;
    EXPECT_EQ(log.rows.rows[1].note, word);
  }
}

TEST(AWord, OfEachLanguageNamesAUnit) {
  for (const std::string& word : listed(
           "km, kms, kilometer, kilometers, kilometre, kilometres, kilométerben, Kilometern, /100km, kmpl, "
           "kml, chilometri, kilómetros, quilómetros, kilometry"))
    EXPECT_EQ(exchange::unitHintOf(word).distance, exchange::DistanceUnit::Kilometre) << word;
  for (const std::string& word : listed("mi, mile, miles, Meile, Meilen, mérföld, Odometer (mi)"))
    EXPECT_EQ(exchange::unitHintOf(word).distance, exchange::DistanceUnit::Mile) << word;
  EXPECT_FALSE(exchange::unitHintOf("Odometer").distance.has_value());
  for (const std::string& word :
       listed("l, lt, ltr, ltrs, lit., liter, liters, litre, litres, literben, Litern, litri, litros, litro, "
              "litry, litr, litru, litrov, km/l, kml, kmpl"))
    EXPECT_EQ(exchange::unitHintOf(word).volume, VolumeUnit::Litre) << word;
  for (const std::string& word :
       listed("g, gal, gals, gallon, gallons, Gallone, Gallonen, gallonban, galones, galony")) {
    EXPECT_EQ(exchange::unitHintOf(word).volume, VolumeUnit::UsGallon) << word;
    EXPECT_TRUE(exchange::unitHintOf(word).isGallonOpen) << word;
  }
  for (const std::string& word :
       listed("US gal, US_GALLON, gal (USA), amerikai gallon, amerikanische Gallone")) {
    EXPECT_EQ(exchange::unitHintOf(word).volume, VolumeUnit::UsGallon) << word;
    EXPECT_FALSE(exchange::unitHintOf(word).isGallonOpen) << word;
  }
  for (const std::string& word :
       listed("UK gal, imp gal, imperial gallons, gal (GB), angol gallon, brit gallon, englische Gallone")) {
    EXPECT_EQ(exchange::unitHintOf(word).volume, VolumeUnit::UkGallon) << word;
    EXPECT_FALSE(exchange::unitHintOf(word).isGallonOpen) << word;
  }
}

TEST(AWord, OfEachCountryNamesItsMoney) {
  const std::vector<std::pair<const char*, const char*>> words{{"HUF", "huf, 9 Ft, forint"},
                                                               {"EUR", "EUR, €5, euro, 5 euros"},
                                                               {"USD", "USD, $5, dollar, dollars"},
                                                               {"GBP", "GBP, £5, pounds, pence"},
                                                               {"CHF", "CHF, SFr., Franken"},
                                                               {"CZK", "CZK, 5 Kč, kc, koruna, korun"},
                                                               {"PLN", "PLN, 5 zł, zloty"},
                                                               {"RON", "RON, lei, leu"},
                                                               {"RSD", "RSD, din., dinar"},
                                                               {"BGN", "BGN, 5 лв, lv"},
                                                               {"RUB", "RUB, ₽, rbl, рублей"},
                                                               {"UAH", "UAH, ₴"},
                                                               {"TRY", "TRY, ₺"},
                                                               {"INR", "INR, ₹, Rs. 5, rupees"},
                                                               {"BRL", "BRL, R$ 5, reais"},
                                                               {"CAD", "CAD, CA$5, C$5"},
                                                               {"AUD", "AUD, AU$5, A$5"},
                                                               {"NZD", "NZD, NZ$5"},
                                                               {"ZAR", "ZAR, R5"},
                                                               {"ILS", "ILS, ₪"},
                                                               {"HRK", "HRK"},
                                                               {"BAM", "BAM"},
                                                               {"SEK", "SEK"},
                                                               {"NOK", "NOK"},
                                                               {"DKK", "DKK"},
                                                               {"MXN", "MXN"},
                                                               {"JPY", "JPY"},
                                                               {"ISK", "ISK"}};
  for (const auto& [currency, texts] : words)
    for (const std::string& text : listed(texts)) {
      EXPECT_EQ(exchange::currencyOf(text), currency) << text;
      EXPECT_EQ(exchange::readHead("Cost (" + text + ")").word, HeadWord::TotalCost) << text;
    }
  EXPECT_EQ(exchange::currencyOf("5 kr"), "");  // of which country?
  EXPECT_TRUE(exchange::isUnitText("kr"));
}

TEST(AWord, ForEachSetsThePriceOfALitreApart) {
  for (const std::string& head :
       listed("Zutty EUR per l, Zutty EUR pro l, Zutty EUR je l, Zutty EUR al litro, Zutty Kč za litr, "
              "Zutty lei pe litru, Zutty EUR por litro, Zutty EUR au litre, Zutty EUR par litre, ct/l, "
              "cent/l, cents per gallon, p/litre, pence/litre, $/g"))
    EXPECT_EQ(exchange::readHead(head).word, HeadWord::UnitPrice) << head;
  EXPECT_EQ(exchange::readHead("EUR per mile").word, HeadWord::Known);
  EXPECT_EQ(exchange::readHead("EUR pro km").word, HeadWord::Known);
}

TEST(AWord, ThatSaysNothingLeavesAHeadWhatItIs) {
  for (const std::string& head :
       listed("Note (optional), Megjegyzés (opcionális), The note, Note in EUR, Note-ben"))
    EXPECT_EQ(exchange::readHead(head).strength, 3) << head;
}

TEST(AWord, OfEnglishOrHungarianTellsTheLanguageOfAHead) {
  for (const std::string& head : listed("Odometer, Odo, Mileage, Milage, Distance, Trip meter, Reading, "
                                        "Speedo, Speedometer, Clock, Driven, "
                                        "Since last fill"))
    EXPECT_TRUE(exchange::isEnglishHead(head)) << head;
  EXPECT_FALSE(exchange::isEnglishHead("Kilometerstand"));
  for (const std::string& head : listed(
           "Dátum, Nap, Hónap, Óra, Km állás, Kmóra, Kilométeróra, Óraállás, Megtett km, Mennyiség, Tankolt, "
           "Tankolás, Gázolaj, Üzemanyag, Ár, Egységár, Összeg, Összesen, Fizetett, Fizetve, Költség, Tele, "
           "Teletank, Teletankolás, Megjegyzés, Megjegyzések, Rendszám, Jármű"))
    EXPECT_TRUE(exchange::isHungarianHead(head)) << head;
  EXPECT_FALSE(exchange::isHungarianHead("Datum"));
}

TEST(ACurrency, MayBeADollarOfFiveCountries) {
  for (const std::string& currency : listed("USD, CAD, AUD, NZD, MXN"))
    EXPECT_TRUE(exchange::isDollar(currency)) << currency;
  EXPECT_FALSE(exchange::isDollar("EUR"));
}

}  // namespace
}  // namespace tarvik::test
