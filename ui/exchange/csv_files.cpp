#include "ui/exchange/csv_files.h"

#include <QFileInfo>
#include <utility>

#include "core/entry_editing.h"
#include "core/record_file.h"
#include "exchange/log_table.h"
#include "settings/vehicles.h"
#include "ui/base/document.h"
#include "ui/base/file_chooser.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/exchange/import_preview.h"
#include "ui/exchange/import_words.h"
#include "ui/exchange/text_file.h"

namespace tarvik::ui {
namespace {

const FileKind kCsvToWrite{QStringLiteral("Mentés CSV-fájlba"), QStringLiteral("CSV-fájl (*.csv)"),
                           QStringLiteral("csv")};
const FileKind kCsvToRead{QStringLiteral("Beolvasás CSV-fájlból"),
                          QStringLiteral("CSV-fájl (*.csv *.txt *.tsv);;Minden fájl (*)"),
                          QStringLiteral("csv")};

bool refuses(const QString& words, QWidget* parent) {
  if (words.isEmpty()) return false;
  tellError(parent, QStringLiteral(" H i b a !"), words + QStringLiteral("\n\nSemmi sem változott."));
  return true;
}

void tellOutcome(const ImportPreview& preview, QWidget* parent) {
  QString words = QStringLiteral("%1 bejegyzés került a naplóba.").arg(preview.takenEntries());
  if (preview.changedEntries() > 0)
    words += QStringLiteral("\n\nA napló %1 bejegyzésének más lett a fogyasztása, mert elé került valami.")
                 .arg(preview.changedEntries());
  tellDone(parent, QStringLiteral("Beolvasás CSV-fájlból"), words);
}

}  // namespace

void saveCsvFile(Context& context, const QString& what, const std::string& bytes, QWidget* parent) {
  const QString name = datedName(what, context.clock.today()) + QStringLiteral(".csv");
  saveDocument(context, kCsvToWrite, name, parent, [&](OutputFile& file) {
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return true;
  });
}

bool importCsvFile(Context& context, const std::string& plate, QWidget* parent,
                   const std::function<void()>& list) {
  const QString path = askFileToRead(kCsvToRead, parent);
  return !path.isEmpty() && importCsvFileAt(context, plate, path, parent, list);
}

bool importCsvFileAt(Context& context, const std::string& plate, const QString& path, QWidget* parent,
                     const std::function<void()>& list) {
  const QString name = QFileInfo(path).fileName();
  core::Logbook logbook = core::loadRecords<core::NapiAdat>(context.files, context.folders.logbook(plate));
  TextFile file = readTextFile(context.files, toLogic(path));
  if (refuses(wordsOf(file, name), parent)) return false;
  if (refuses(wordsOf(exchange::readTable(decodedText(file.bytes)), name), parent)) return false;
  const auto vehicles = settings::loadVehiclesOfProgramFolder(context.files, context.folders);
  ImportPreview preview(context,
                        {.name = name,
                         .bytes = std::move(file.bytes),
                         .plate = plate,
                         .logbook = std::move(logbook),
                         .tankLitres = settings::tankSizeOf(vehicles, plate),
                         .list = list},
                        parent);
  if (preview.exec() != QDialog::Accepted) return false;
  tellOutcome(preview, parent);
  return true;
}

}  // namespace tarvik::ui
