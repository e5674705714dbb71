#include "ui/base/guarded.h"

#include <QHash>
#include <QWidget>
#include <cerrno>
#include <new>

#include "ui/base/message_boxes.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

using core::FailureKind;

// What each kind of failure is called; %1 is the file.
QString headline(FailureKind kind) {
  static const QHash<FailureKind, QString> headlines{
      {FailureKind::OpenFailed, "A fájl nem nyitható meg:\n%1"},
      {FailureKind::ReadFailed, "A fájl nem olvasható:\n%1"},
      {FailureKind::WriteFailed, "A fájl nem írható (talán megtelt a lemez):\n%1"},
      {FailureKind::SyncFailed, "A rendszer nem igazolta vissza a mentést:\n%1"},
      {FailureKind::ReplaceFailed, "A fájl nem cserélhető le az új változatára:\n%1"},
      {FailureKind::NotAFile, "Ezen a néven nem fájl van, hanem cső vagy eszköz:\n%1"},
      {FailureKind::DataFile, "Ez a név a program adatfájljaié, más nem menthető a helyükre:\n%1"},
      {FailureKind::NotOwnFile, "Ezen a néven hivatkozás vagy másvalaki fájlja van:\n%1"},
      {FailureKind::FileBusy, "A fájlt egy másik program használja:\n%1"},
      {FailureKind::FolderMissing, "Nincs meg a mappa, ahol ennek a fájlnak a helye van:\n%1"},
      {FailureKind::FolderGone, "Már nincs meg az a mappa, ahonnan a programot elindítottad."},
      {FailureKind::FolderUnreadable,
       "Ez a mappa nem érhető el a neve alapján (talán olvashatatlan betű van benne):\n%1"},
      {FailureKind::PathUnusable, "Sortörés vagy más vezérlőjel van ennek a mappának a nevében:\n%1"},
      {FailureKind::RemoveFailed, "A fájl nem törölhető:\n%1"},
      {FailureKind::PlateUnusable, "Ez a rendszám nem lehet mappa neve:\n%1"},
      {FailureKind::NotANumber, "Nem szám van a mezőben: %1"},
      {FailureKind::OutOfRange, "Túl nagy szám: %1"},
      {FailureKind::DivisionByZero, "Nullával kellene osztani: %1"},
      {FailureKind::FileFull, "A fájl betelt, több tétel nem fér bele:\n%1"},
      {FailureKind::FileTooLong, "A fájlban több tétel van, mint amennyit a program kezelni tud:\n%1"},
      {FailureKind::FileChanged, "A fájl közben megváltozott, egy másik program írhatott bele:\n%1"},
      {FailureKind::RecordMissing, "Ez a tétel már nincs a fájlban:\n%1"},
      {FailureKind::RecordChanged, "Az adatok közben máshol megváltoztak:\n%1"},
  };
  return headlines.value(kind);
}

// The name of a field as its label on the screen says it.
QString fieldName(const std::string& field) {
  static const QHash<QString, QString> names{
      {"txKmOra", "Km óra állás"},
      {"lbPillAtlag", "Pillanatnyi átlag fogy."},
      {"tx_teljes_ktg", "Eddigi Költség"},
      {"ob_ktg", "Ebből benzin"},
      {"tx_liter", "Összes tankolás"},
      {"tx_megtett_km", "Megtett út"},
      {"txTankoltLiter", "Liter"},
      {"txTankoltKtg", "Tankolt költség"},
      {"lbFtperLiter", "Üzemanyag ár"},
      {"txAlkatreszKtg", "Alkatrész költség"},
      {"txMegjKtg", "Megjegyzés költsége"},
      {"txTank", "Üzemanyag tank mérete"},
      {"txtGumiMaxKm", "Max. km"},
      {"txtMMaxKm", "Max. km"},
      {"txtGumiKmFelszerelKor", "Km. óra állása felszereléskor"},
      {"txtMKmFelszKor", "Km. óra állása felszereléskor"},
      {"txtGumiAzotaFutottKm", "Azóta futott Km."},
      {"txtMAzotaFutott", "Azóta futott Km."},
      {"lbKoltseg", "Költség összesen"},
      {"txtSzervizKoltseg", "Költség"},
      {"txtKMora", "Km. óra állás"},
      {"Datum", "Dátum"},
      {"Mikor", "Figyelmeztetés dátuma"},
  };
  return names.value(toQt(field), toQt(field));
}

// What the system's error number means.
QString systemWords(int error) {
  static const QHash<int, QString> words{
      {ENOENT, "nincs ilyen fájl vagy mappa"},
      {ENOTDIR, "az út egyik eleme nem mappa"},
      {EISDIR, "ez egy mappa, nem fájl"},
      {EACCES, "nincs hozzá jogosultság"},
      {EPERM, "a rendszer nem engedi"},
      {EROFS, "a meghajtó csak olvasható"},
      {ENOSPC, "nincs több hely a lemezen"},
      {EDQUOT, "betelt a lemezkeret"},
      {EFBIG, "túl nagy lenne a fájl"},
      {EIO, "a lemez hibát jelzett"},
      {EEXIST, "már van ilyen nevű fájl"},
      {EBUSY, "a fájl foglalt"},
      {EWOULDBLOCK, "a fájl foglalt"},
      {ETXTBSY, "a fájl foglalt"},
      {EMFILE, "túl sok fájl van nyitva"},
      {ENFILE, "túl sok fájl van nyitva"},
      {ENAMETOOLONG, "túl hosszú a név"},
      {ELOOP, "körbe mutató hivatkozás"},
      {EXDEV, "másik meghajtón van"},
      {EINTR, "a rendszer félbeszakította"},
      {EINVAL, "a rendszer nem tudja megtenni"},
      {ENOTSUP, "a meghajtó nem tudja megtenni"},
      {EOPNOTSUPP, "a meghajtó nem tudja megtenni"},
      {ENOTEMPTY, "a mappa nem üres"},
      {EBADF, "a fájl már nincs nyitva"},
      {ENOSYS, "a rendszer nem ismeri ezt a műveletet"},
      {ENOMEM, "elfogyott a memória"},
      {ENOLCK, "nem zárolható több fájl"},
      {ESTALE, "a hálózati mappa közben megváltozott vagy eltűnt"},
      {ESPIPE, "ez nem lemezen lévő fájl"},
      {ENXIO, "ez nem fájl, hanem eszköz vagy kapcsolat"},
  };
  return words.value(error, QStringLiteral("%1. számú rendszerhiba").arg(error));
}

bool isBlankPlate(const core::Failure& failure) {
  return failure.kind() == FailureKind::PlateUnusable && isBlank(toQt(failure.file()));
}

QString subject(const core::Failure& failure) {
  if (!failure.file().empty()) return toQt(failure.file());
  return failure.field().empty() ? QStringLiteral("a számítás eredménye") : fieldName(failure.field());
}

// A change that came too late is not to be repeated blindly: what is chosen by now is another record.
QString consequenceOf(FailureKind kind, const Consequence& consequence) {
  if (kind == FailureKind::SyncFailed) return consequence.unsure;
  if (kind == FailureKind::RecordChanged)
    return QStringLiteral("A művelet elmaradt. Nézd meg a listát, és válaszd ki újra a tételt!");
  return consequence.failed;
}

}  // namespace

QString failureText(const core::Failure& failure, const Consequence& consequence) {
  QString text = isBlankPlate(failure)
                     ? QStringLiteral("Nincs kitöltve a mező: Rendszám")
                     : headline(failure.kind()).replace(QLatin1String("%1"), subject(failure));
  if (failure.systemError() != 0) text += QStringLiteral("\n(%1)").arg(systemWords(failure.systemError()));
  return text + QStringLiteral("\n\n") + consequenceOf(failure.kind(), consequence);
}

Attempt attempted(const std::function<void()>& action, const Consequence& consequence) {
  try {
    action();
    return {};
  } catch (const core::Failure& failure) {
    const bool isInput = failure.file().empty() || failure.kind() == FailureKind::PlateUnusable;
    return {isInput ? Outcome::Refused : Outcome::Failed, failureText(failure, consequence),
            toQt(failure.field())};
  } catch (const std::bad_alloc&) {
    return {Outcome::Failed, QStringLiteral("Elfogyott a memória.\n\n") + consequence.failed};
  }
}

void tell(QWidget* parent, const QString& failure) {
  tellError(parent, QStringLiteral(" H i b a !"), failure);
}

bool guarded(QWidget* parent, const std::function<void()>& action, const Consequence& consequence) {
  const Attempt made = attempted(action, consequence);
  if (!made.isDone()) tell(parent, made.text);
  return made.isDone();
}

bool ToldOnce::run(QWidget* parent, const std::function<void()>& action) {
  const Attempt made = attempted(action);
  const bool isNews = !made.isDone() && made.text != told_;
  told_ = made.text;
  if (isNews) tell(parent, made.text);
  return made.isDone();
}

bool quietly(const std::function<void()>& part) {
  return attempted(part).isDone();
}

}  // namespace tarvik::ui
