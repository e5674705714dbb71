#include "ui/exchange/import_words.h"

#include <QHash>
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
  static const QHash<Doubt, QString> kWords{
      {Doubt::AlreadyThere, "már megvan a naplóban"},
      {Doubt::TwiceInFile, "kétszer van a fájlban"},
      {Doubt::DayRunsBackwards, "a dátum visszafelé halad"},
      {Doubt::DayInFuture, "a dátum a jövőben van"},
      {Doubt::DayTooEarly, "a dátum 1950 előtti"},
      {Doubt::OdometerFalls, "a km óra csökken"},
      {Doubt::OdometerJumps, "több mint 3000 km-t ugrik a km óra"},
      {Doubt::MoreThanTank, "több liter, mint amennyi a tankba fér"},
      {Doubt::ConsumptionOdd, "hihetetlen fogyasztás"},
      {Doubt::PriceOdd, "hihetetlen literenkénti ár"},
      {Doubt::MissedBefore, "előtte kimaradt egy tankolás: nincs fogyasztása"},
      {Doubt::LeftOutBefore, "előtte egy sor kimarad: nincs fogyasztása"},
      {Doubt::UntickedBefore, "az előtte álló nincs kijelölve: nincs fogyasztása"},
      {Doubt::NoConsumption, "nem számolható fogyasztás: nincs megtett út"},
      {Doubt::OdometerTaken, "nincs km óra állása: az előző bejegyzését kapja"},
      {Doubt::LettersDamaged, "sérült betű van benne"},
      {Doubt::NoteCut, "a megjegyzés vége elmarad: 50 betű fér el"},
      {Doubt::LettersLost, "a megjegyzés egyes betűi helyén ? áll majd"},
      {Doubt::PartCut, "az alkatrész nevének vége elmarad: 50 betű fér el"},
      {Doubt::PartLettersLost, "az alkatrész nevének egyes betűi helyén ? áll majd"},
  };
  QStringList words;
  for (const Doubt doubt : doubts) words.append(kWords.value(doubt));
  return words.join(QStringLiteral("; "));
}

bool isOdd(const std::set<Doubt>& doubts) {
  return std::ranges::any_of(doubts, [](Doubt doubt) {
    return doubt == Doubt::DayInFuture || doubt == Doubt::DayTooEarly || doubt == Doubt::OdometerFalls ||
           doubt == Doubt::OdometerJumps || doubt == Doubt::ConsumptionOdd || doubt == Doubt::PriceOdd;
  });
}

QString wordsOf(const UnreadRow& row) {
  using Why = UnreadRow::Why;
  static const QHash<Why, QString> words{
      {Why::NoDay, "nincs benne dátum"},
      {Why::NoOdometer, "nincs benne km óra állás"},
      {Why::FigureTooLarge, "túl nagy szám van benne"},
      {Why::NothingInIt, "nincs benne tankolás, költség, megjegyzés"},
      {Why::Total, "összesítő sor"},
      {Why::TooManyCells, "több adat, mint oszlop: tizedesvessző lehet"},
      {Why::Heads, "fejléc"},
      {Why::Title, "cím"},
      {Why::Comment, "megjegyzés a fájlban"},
      {Why::BeforeTable, "a táblázat előtt áll"},
      {Why::Empty, "üres sor"},
  };
  switch (row.why) {
    case Why::DayNotUnderstood:
      return QStringLiteral("nem érthető dátum: „%1”").arg(toQt(row.cell));
    case Why::FigureNotUnderstood:
      return QStringLiteral("nem érthető szám („%1” oszlop): „%2”").arg(toQt(row.head), toQt(row.cell));
    case Why::OtherFuel:
      return QStringLiteral("nem literben mért üzemanyag: „%1”").arg(toQt(row.cell));
    case Why::OtherVehicle:
      return row.head.empty() ? QStringLiteral("más gépkocsié")
                              : QStringLiteral("más gépkocsié: „%1”").arg(toQt(row.head));
    case Why::OtherSection:
      return QStringLiteral("más rész: „%1”").arg(toQt(row.head));
    default:
      return words.value(row.why);
  }
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
  static const QHash<Question, QString> words{
      {Question::DayColumn, "Válaszd ki, melyik oszlop a dátum!"},
      {Question::OdometerColumn, "Válaszd ki, melyik oszlop a km óra állása vagy a megtett út!"},
      {Question::VolumeColumn, "Válaszd ki, melyik oszlop a tankolt mennyiség!"},
      {Question::DayOrder, "Válaszd ki a dátumok sorrendjét!"},
      {Question::DecimalSign, "Válaszd ki, vessző vagy pont a tizedesjel!"},
      {Question::DistanceUnit, "Válaszd ki, kilométer vagy mérföld!"},
      {Question::VolumeUnit, "Válaszd ki, liter vagy gallon!"},
      {Question::Gallon, "Válaszd ki, milyen gallon van a fájlban!"},
      {Question::Price, "Válaszd ki az ár oszlopa fölött, hogy az egész költség vagy egységár!"},
      {Question::UnknownColumn,
       "Válaszd ki a(z) „%1” oszlop fölött, mit jelent; ha semmit, azt, hogy nem kell!"},
      {Question::FullWord, "Válaszd ki, melyik szó jelenti, hogy tele lett a tank!"},
      {Question::Vehicle, "Válaszd ki, melyik gépkocsi tankolásai kellenek!"},
      {Question::TripStart, "Írd be a km óra állását!"},
      {Question::Currency, "Válaszd ki, milyen pénzben vannak a költségek!"},
      {Question::Rate, "Írd be, hány forint a fájl pénzneme!"},
  };
  return words.value(question).replace(QLatin1String("%1"), unknownHead(reading));
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
