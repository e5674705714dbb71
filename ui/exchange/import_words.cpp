#include "ui/exchange/import_words.h"

#include <algorithm>

#include "core/number_format.h"
#include "core/record_file.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

using exchange::Doubt;
using exchange::LogSummary;
using exchange::LogTable;
using exchange::Meaning;
using exchange::Question;
using exchange::Reading;
using exchange::UnreadRow;

QString rowCount() {
  return toQt(std::to_string(core::kHighestRecordNumber));
}

QString grouped(std::int64_t number) {
  return toQt(core::formatted(number, "### ### ##0"));
}

// A mark before a figure that is to be looked at.
QString marked(const QString& figure, bool isOdd) {
  return isOdd ? QStringLiteral("(!) ") + figure : figure;
}

QString daysOf(const LogSummary& summary) {
  if (!summary.from) return QStringLiteral("–");
  return toQt(core::shortDate(*summary.from)) + QStringLiteral("–") + toQt(core::shortDate(*summary.to));
}

QString figureOf(const std::optional<core::Ratio>& value, const char* pattern, const QString& unit) {
  return (value ? toQt(core::formatted(*value, pattern)) : QStringLiteral("–")) + unit;
}

QString unknownHead(const Reading& reading) {
  return reading.unknownColumn ? toQt(reading.columns[*reading.unknownColumn].head).simplified() : QString();
}

// Which columns a log cannot do without are not found, and what there is instead.
QStringList missingColumns(const Reading& reading) {
  QStringList missing;
  if (reading.isOpen(Question::DayColumn)) missing.append(QStringLiteral("dátum"));
  if (reading.isOpen(Question::OdometerColumn)) missing.append(QStringLiteral("km óra állása"));
  if (reading.isOpen(Question::VolumeColumn)) missing.append(QStringLiteral("tankolt mennyiség"));
  if (missing.isEmpty()) return {};
  constexpr qsizetype kMostHeads = 12;
  QStringList heads;
  for (const exchange::ColumnReading& column : reading.columns)
    heads.append(toQt(column.head).simplified().left(24));
  if (heads.size() > kMostHeads) heads = heads.first(kMostHeads) << QStringLiteral("…");
  return {QStringLiteral("Nem derült ki, melyik oszlop ez: %1. A fájl oszlopai: %2.")
              .arg(missing.join(QStringLiteral(", ")), heads.join(QStringLiteral(", ")))};
}

bool hasDamagedLetters(const LogTable& table) {
  return std::ranges::any_of(table.rows, [](const exchange::TableRow& row) {
    return std::ranges::any_of(row.row.cells, [](const std::string& cell) {
      return cell.find("\xEF\xBF\xBD") != std::string::npos;
    });
  });
}

}  // namespace

QString wordsOf(Doubt doubt) {
  switch (doubt) {
    case Doubt::AlreadyThere:
      return QStringLiteral("már megvan a naplóban");
    case Doubt::TwiceInFile:
      return QStringLiteral("kétszer van a fájlban");
    case Doubt::DayRunsBackwards:
      return QStringLiteral("a dátum visszafelé halad");
    case Doubt::DayInFuture:
      return QStringLiteral("a dátum a jövőben van");
    case Doubt::DayTooEarly:
      return QStringLiteral("a dátum 1950 előtti");
    case Doubt::OdometerFalls:
      return QStringLiteral("a km óra csökken");
    case Doubt::OdometerJumps:
      return QStringLiteral("több mint 3000 km-t ugrik a km óra");
    case Doubt::MoreThanTank:
      return QStringLiteral("több liter, mint amennyi a tankba fér");
    case Doubt::ConsumptionOdd:
      return QStringLiteral("hihetetlen fogyasztás");
    case Doubt::PriceOdd:
      return QStringLiteral("hihetetlen literenkénti ár");
    case Doubt::MissedBefore:
      return QStringLiteral("előtte kimaradt egy tankolás: nincs fogyasztása");
    case Doubt::LeftOutBefore:
      return QStringLiteral("előtte egy sor kimarad: nincs fogyasztása");
    case Doubt::UntickedBefore:
      return QStringLiteral("az előtte álló nincs kijelölve: nincs fogyasztása");
    case Doubt::NoConsumption:
      return QStringLiteral("nem számolható fogyasztás: nincs megtett út");
    case Doubt::OdometerTaken:
      return QStringLiteral("nincs km óra állása: az előző bejegyzését kapja");
    case Doubt::LettersDamaged:
      return QStringLiteral("sérült betű van benne");
    case Doubt::NoteCut:
      return QStringLiteral("a megjegyzés vége elmarad: 50 betű fér el");
    case Doubt::LettersLost:
      return QStringLiteral("a megjegyzés egyes betűi helyén ? áll majd");
    case Doubt::PartCut:
      return QStringLiteral("az alkatrész nevének vége elmarad: 50 betű fér el");
    case Doubt::PartLettersLost:
      return QStringLiteral("az alkatrész nevének egyes betűi helyén ? áll majd");
  }
  return {};
}

QString wordsOf(const TextFile& file, const QString& name) {
  switch (file.fault) {
    case TextFile::Fault::TooLarge:
      return QStringLiteral("Ez a fájl túl nagy ahhoz, hogy egy napló legyen:\n%1 (%2 MB)")
          .arg(name, toQt(std::to_string(file.size / (1024 * 1024))));
    case TextFile::Fault::Zip:
      return QStringLiteral(
                 "Ez tömörített (ZIP) fájl:\n%1\n\nCsomagold ki: a benne lévő CSV-fájl a napló. Ha táblázat "
                 "(XLSX, ODS), mentsd el CSV-fájlként, és azt olvasd be.")
          .arg(name);
    case TextFile::Fault::NotText:
      return QStringLiteral(
                 "Ez nem szövegfájl:\n%1\n\nHa táblázat, mentsd el CSV-fájlként, és azt olvasd be.")
          .arg(name);
    default:
      return {};
  }
}

QString wordsOf(const LogTable& table, const QString& name) {
  switch (table.fault) {
    case LogTable::Fault::RowTooLong:
      return QStringLiteral(
                 "Ez a fájl nem olvasható naplóként:\n%1\n\nA(z) %2. sorban kezdődő rész túl hosszú. "
                 "Talán nincs lezárva egy idézőjel.")
          .arg(name, toQt(std::to_string(table.faultLine)));
    case LogTable::Fault::TooManyRows:
      return QStringLiteral(
                 "Túl sok sor van ebben a fájlban:\n%1\n\nEgy naplóba legfeljebb %2 bejegyzés fér.")
          .arg(name, rowCount());
    case LogTable::Fault::NoTable:
      return QStringLiteral(
                 "Ebben a fájlban nincs táblázat:\n%1\n\nEgy naplónak soronként több adata van: dátum, km "
                 "óra "
                 "állása, tankolt mennyiség.")
          .arg(name);
    case LogTable::Fault::None:
      break;
  }
  const bool hasRows = std::ranges::any_of(
      table.rows, [](const exchange::TableRow& row) { return row.kind == exchange::RowKind::Data; });
  return hasRows ? QString()
                 : QStringLiteral("Ebben a fájlban csak fejléc van, bejegyzés nincs:\n%1").arg(name);
}

QString wordsOf(const std::set<Doubt>& doubts) {
  QStringList words;
  for (const Doubt doubt : doubts) words.append(wordsOf(doubt));
  return words.join(QStringLiteral("; "));
}

bool isOdd(const std::set<Doubt>& doubts) {
  return std::ranges::any_of(doubts, [](Doubt doubt) {
    return doubt == Doubt::DayInFuture || doubt == Doubt::DayTooEarly || doubt == Doubt::OdometerFalls ||
           doubt == Doubt::OdometerJumps || doubt == Doubt::ConsumptionOdd || doubt == Doubt::PriceOdd;
  });
}

QString wordsOf(const UnreadRow& row) {
  switch (row.why) {
    case UnreadRow::Why::NoDay:
      return QStringLiteral("nincs benne dátum");
    case UnreadRow::Why::DayNotUnderstood:
      return QStringLiteral("nem érthető dátum: „%1”").arg(toQt(row.cell));
    case UnreadRow::Why::NoOdometer:
      return QStringLiteral("nincs benne km óra állás");
    case UnreadRow::Why::FigureNotUnderstood:
      return QStringLiteral("nem érthető szám („%1” oszlop): „%2”").arg(toQt(row.head), toQt(row.cell));
    case UnreadRow::Why::FigureTooLarge:
      return QStringLiteral("túl nagy szám van benne");
    case UnreadRow::Why::NothingInIt:
      return QStringLiteral("nincs benne tankolás, költség, megjegyzés");
    case UnreadRow::Why::OtherFuel:
      return QStringLiteral("nem literben mért üzemanyag: „%1”").arg(toQt(row.cell));
    case UnreadRow::Why::Total:
      return QStringLiteral("összesítő sor");
    case UnreadRow::Why::TooManyCells:
      return QStringLiteral("több adat, mint oszlop: tizedesvessző lehet");
    case UnreadRow::Why::OtherVehicle:
      return row.head.empty() ? QStringLiteral("más gépkocsié")
                              : QStringLiteral("más gépkocsié: „%1”").arg(toQt(row.head));
    case UnreadRow::Why::OtherSection:
      return QStringLiteral("más rész: „%1”").arg(toQt(row.head));
    case UnreadRow::Why::Heads:
      return QStringLiteral("fejléc");
    case UnreadRow::Why::Title:
      return QStringLiteral("cím");
    case UnreadRow::Why::Comment:
      return QStringLiteral("megjegyzés a fájlban");
    case UnreadRow::Why::BeforeTable:
      return QStringLiteral("a táblázat előtt áll");
    case UnreadRow::Why::Empty:
      return QStringLiteral("üres sor");
  }
  return {};
}

QString wordsOf(Meaning meaning) {
  static constexpr const char* kWords[exchange::kMeanings] = {"nem értem",
                                                              "nem kell",
                                                              "dátum",
                                                              "év",
                                                              "hónap",
                                                              "nap",
                                                              "km óra állás",
                                                              "megtett út az előző tankolás óta",
                                                              "tankolt mennyiség",
                                                              "költség",
                                                              "egységár",
                                                              "tele tankolva",
                                                              "nem tele tankolva",
                                                              "kimaradt előtte egy tankolás",
                                                              "megjegyzés",
                                                              "a megjegyzés költsége",
                                                              "megnevezés, a megjegyzés elé",
                                                              "alkatrész",
                                                              "az alkatrész költsége",
                                                              "olajcsere",
                                                              "szűrőbetét csere",
                                                              "gyertya csere",
                                                              "fogyasztás",
                                                              "a bejegyzés fajtája",
                                                              "a távolság mértékegysége",
                                                              "a mennyiség mértékegysége",
                                                              "pénznem",
                                                              "gépkocsi"};
  return QString::fromUtf8(kWords[static_cast<int>(meaning)]);
}

QString wordsOf(Question question, const Reading& reading) {
  switch (question) {
    case Question::DayColumn:
      return QStringLiteral("Válaszd ki, melyik oszlop a dátum!");
    case Question::OdometerColumn:
      return QStringLiteral("Válaszd ki, melyik oszlop a km óra állása vagy a megtett út!");
    case Question::VolumeColumn:
      return QStringLiteral("Válaszd ki, melyik oszlop a tankolt mennyiség!");
    case Question::DayOrder:
      return QStringLiteral("Válaszd ki a dátumok sorrendjét!");
    case Question::DecimalSign:
      return QStringLiteral("Válaszd ki, vessző vagy pont a tizedesjel!");
    case Question::DistanceUnit:
      return QStringLiteral("Válaszd ki, kilométer vagy mérföld!");
    case Question::VolumeUnit:
      return QStringLiteral("Válaszd ki, liter vagy gallon!");
    case Question::Gallon:
      return QStringLiteral("Válaszd ki, milyen gallon van a fájlban!");
    case Question::Price:
      return QStringLiteral("Válaszd ki az ár oszlopa fölött, hogy az egész költség vagy egységár!");
    case Question::UnknownColumn:
      return QStringLiteral("Válaszd ki a(z) „%1” oszlop fölött, mit jelent; ha semmit, azt, hogy nem kell!")
          .arg(unknownHead(reading));
    case Question::FullWord:
      return QStringLiteral("Válaszd ki, melyik szó jelenti, hogy tele lett a tank!");
    case Question::Vehicle:
      return QStringLiteral("Válaszd ki, melyik gépkocsi tankolásai kellenek!");
    case Question::TripStart:
      return QStringLiteral("Írd be a km óra állását!");
    case Question::Currency:
      return QStringLiteral("Válaszd ki, milyen pénzben vannak a költségek!");
    case Question::Rate:
      return QStringLiteral("Írd be, hány forint a fájl pénzneme!");
  }
  return {};
}

QString wordsOf(const exchange::VehicleRows& vehicle) {
  const QString rows = QStringLiteral(" (%1 sor)").arg(vehicle.rows);
  QStringList words;
  if (!vehicle.name.empty()) words.append(toQt(vehicle.name));
  if (vehicle.highest > 0)
    words.append(QStringLiteral("%1–%2").arg(grouped(static_cast<std::int64_t>(vehicle.lowest)),
                                             grouped(static_cast<std::int64_t>(vehicle.highest))));
  if (words.isEmpty()) words.append(QStringLiteral("gépkocsi nélküli sorok"));
  return words.join(QStringLiteral(", ")) + rows;
}

QString wordsOf(const LogSummary& summary) {
  const QStringList figures = {
      QStringLiteral("%1 bejegyzés").arg(summary.entries),
      daysOf(summary),
      grouped(summary.kilometres) + QStringLiteral(" km"),
      figureOf(summary.litres, "### ### ##0.00", QStringLiteral(" l")),
      marked(figureOf(summary.consumption, "##0.00", QStringLiteral(" l/100 km")),
             summary.isConsumptionOdd()),
      marked(figureOf(summary.forintsPerLitre, "### ##0", QStringLiteral(" Ft/l")), summary.isPriceOdd()),
      grouped(summary.forints) + QStringLiteral(" Ft")};
  return figures.join(QStringLiteral("  ·  "));
}

QStringList noticesOf(const LogTable& table, const Reading& reading) {
  QStringList notices = missingColumns(reading);
  if (!reading.saysWhichAreFull)
    notices.append(
        QStringLiteral("A fájl nem mondja meg, melyik tankolás volt tele: mindegyik annak számít."));
  if (table.isCutInQuotes)
    notices.append(
        QStringLiteral("A(z) %1. sorban kezdődő idézőjel nincs lezárva: ami utána áll, hiányozhat.")
            .arg(table.faultLine));
  if (hasDamagedLetters(table))
    notices.append(QStringLiteral("Sérült betűk vannak a fájlban; ha sok van, válassz más kódolást."));
  notices.append(QStringLiteral("A gumik futott kilométere nem változik; ha kell, a Gumik ablakban írd át."));
  return notices;
}

}  // namespace tarvik::ui
