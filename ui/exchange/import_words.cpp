#include "ui/exchange/import_words.h"

#include "core/record_file.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

using exchange::Doubt;
using exchange::LogFault;
using exchange::LogFile;
using exchange::Meaning;
using exchange::UnreadRow;

QString wordsOf(Doubt doubt) {
  switch (doubt) {
    case Doubt::AlreadyThere:
      return QStringLiteral("már megvan a naplóban");
    case Doubt::DayRunsBackwards:
      return QStringLiteral("a dátum visszafelé halad");
    case Doubt::OdometerFalls:
      return QStringLiteral("a km óra kevesebbet mutat, mint előtte");
    case Doubt::OdometerJumps:
      return QStringLiteral("több mint 5000 km-t ugrik a km óra");
    case Doubt::MoreThanTank:
      return QStringLiteral("több liter, mint amennyi a tankba fér");
    case Doubt::MissedBefore:
      return QStringLiteral("előtte kimaradt egy tankolás");
    case Doubt::NoConsumption:
      return QStringLiteral("nem számolható fogyasztás: nincs megtett út");
    case Doubt::OdometerTaken:
      return QStringLiteral("nincs km óra állása: az előző bejegyzését kapja");
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

QString rowCount() {
  return toQt(std::to_string(core::kHighestRecordNumber));
}

}  // namespace

QString wordsOf(const TextFile& file, const QString& name) {
  switch (file.fault) {
    case TextFile::Fault::TooLarge:
      return QStringLiteral("Ez a fájl túl nagy ahhoz, hogy egy napló legyen:\n%1 (%2 MB)")
          .arg(name, toQt(std::to_string(file.size / (1024 * 1024))));
    case TextFile::Fault::NotText:
      return QStringLiteral(
                 "Ez nem szövegfájl:\n%1\n\nHa táblázat, mentsd el CSV-fájlként, és azt olvasd be.")
          .arg(name);
    default:
      return {};
  }
}

QString wordsOf(const LogFile& log, const QString& name) {
  switch (log.fault) {
    case LogFault::RowTooLong:
      return QStringLiteral(
                 "Ez a fájl nem olvasható naplóként:\n%1\n\nA(z) %2. sorban kezdődő rész túl hosszú. "
                 "Talán nincs lezárva egy idézőjel.")
          .arg(name, toQt(std::to_string(log.faultLine)));
    case LogFault::TooManyRows:
      return QStringLiteral(
                 "Túl sok sor van ebben a fájlban:\n%1\n\nEgy naplóba legfeljebb %2 bejegyzés fér.")
          .arg(name, rowCount());
    case LogFault::NoTable:
      return QStringLiteral(
                 "Ebben a fájlban nincs tankolási táblázat:\n%1\n\nKell benne egy fejléc, amely "
                 "megnevezi a dátumot, a km óra állását és a tankolt mennyiséget.")
          .arg(name);
    case LogFault::None:
      break;
  }
  if (!log.rows.empty() || !log.unread.empty()) return {};
  return QStringLiteral("Ebben a fájlban csak fejléc van, bejegyzés nincs:\n%1").arg(name);
}

QString wordsOf(const std::set<Doubt>& doubts) {
  QStringList words;
  for (const Doubt doubt : doubts) words.append(wordsOf(doubt));
  return words.join(QStringLiteral("; "));
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
      return QStringLiteral("nincs benne se tankolás, se költség, se megjegyzés");
    case UnreadRow::Why::Total:
      return QStringLiteral("összesítő sor");
  }
  return {};
}

QString wordsOf(Meaning meaning) {
  switch (meaning) {
    case Meaning::Ignored:
      return QStringLiteral("– (nem kell)");
    case Meaning::Day:
      return QStringLiteral("dátum");
    case Meaning::Odometer:
      return QStringLiteral("km óra állás");
    case Meaning::Volume:
      return QStringLiteral("tankolt mennyiség");
    case Meaning::TotalCost:
      return QStringLiteral("költség");
    case Meaning::UnitPrice:
    case Meaning::Price:
      return QStringLiteral("egységár");
    case Meaning::Full:
      return QStringLiteral("tele tankolva");
    case Meaning::Partial:
      return QStringLiteral("nem tele tankolva");
    case Meaning::Missed:
      return QStringLiteral("kimaradt előtte egy tankolás");
    case Meaning::Note:
      return QStringLiteral("megjegyzés");
    case Meaning::Description:
      return QStringLiteral("megnevezés, a megjegyzés elé");
    case Meaning::Kind:
      return QStringLiteral("a bejegyzés fajtája");
    case Meaning::DistanceUnit:
      return QStringLiteral("a távolság mértékegysége");
    case Meaning::VolumeUnit:
      return QStringLiteral("a mennyiség mértékegysége");
    case Meaning::Currency:
      return QStringLiteral("pénznem");
    case Meaning::Vehicle:
      return QStringLiteral("jármű");
  }
  return {};
}

QStringList noticesOf(const LogFile& log) {
  QStringList notices;
  if (!log.saysWhichAreFull)
    notices.append(
        QStringLiteral("A fájl nem mondja meg, melyik tankolás volt tele: mindegyik annak számít."));
  if (log.isCutInQuotes)
    notices.append(
        QStringLiteral("A(z) %1. sorban kezdődő idézőjel nincs lezárva: ami utána áll, hiányozhat.")
            .arg(log.faultLine));
  notices.append(QStringLiteral("A gumik futott kilométere nem változik; ha kell, a Gumik ablakban írd át."));
  return notices;
}

}  // namespace tarvik::ui
