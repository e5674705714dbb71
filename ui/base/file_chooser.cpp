#include "ui/base/file_chooser.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

QString chosenFile(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setViewMode(QFileDialog::List);  // the other view has words that the translation lacks
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

// The first suffix that a filter names.
QString suffixOf(const QString& filter) {
  static const QRegularExpression kFirst(QStringLiteral("\\*\\.(\\w+)"));
  return kFirst.match(filter).captured(1);
}

void followFilter(QFileDialog& dialog) {
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
    dialog.setDefaultSuffix(suffixOf(filter));
    const QString typed = dialog.selectedFiles().value(0);
    dialog.selectFile(QFileInfo(typed).completeBaseName() + QLatin1Char('.') + suffixOf(filter));
  });
}

QString documents() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

}  // namespace

QString datedName(const QString& what, core::Day day) {
  return what + QLatin1Char('_') + toQt(day).toString(Qt::ISODate);
}

QString askFileToWrite(const FileKind& kind, const QString& proposedName, QWidget* parent) {
  QFileDialog dialog(parent, kind.title, documents(), kind.filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(kind.suffix);
  dialog.selectFile(proposedName);
  followFilter(dialog);
  return chosenFile(dialog);
}

QString askFileToRead(const FileKind& kind, QWidget* parent) {
  QFileDialog dialog(parent, kind.title, documents(), kind.filter);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return chosenFile(dialog);
}

}  // namespace tarvik::ui
