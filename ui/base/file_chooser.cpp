#include "ui/base/file_chooser.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QRegularExpression>
#include <QStandardPaths>

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

// The first suffix that a filter names.
QString suffixOf(const QString& filter) {
  static const QRegularExpression kFirst(QStringLiteral("\\*\\.(\\w+)"));
  return kFirst.match(filter).captured(1);
}

QString documents() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

// Takes the ending of the chosen kind into the name.
void followFilter(QFileDialog& dialog, const QString& filter) {
  if (dialog.acceptMode() != QFileDialog::AcceptSave) return;
  dialog.setDefaultSuffix(suffixOf(filter));
  const QString typed = dialog.selectedFiles().value(0);
  dialog.selectFile(QFileInfo(typed).completeBaseName() + QLatin1Char('.') + suffixOf(filter));
}

// The one dialog of the program. It is never deleted: that would write a file of the library's own into the
// person's settings, and the program writes nothing outside its folder.
QFileDialog& theDialog() {
  static QFileDialog* const dialog = [] {
    auto* made = new QFileDialog;
    made->setOption(QFileDialog::DontUseNativeDialog);
    made->setViewMode(QFileDialog::List);  // the other view has words that the translation lacks
    QObject::connect(made, &QFileDialog::filterSelected, made,
                     [made](const QString& filter) { followFilter(*made, filter); });
    return made;
  }();
  return *dialog;
}

// Stands over a screen while it asks, and watches no folder of a person's longer than that.
QString chosenFile(QFileDialog& dialog, QWidget* parent) {
  dialog.setParent(parent, dialog.windowFlags());
  auto* const name = dialog.findChild<QLineEdit*>();
  name->setFocus();
  name->selectAll();
  const bool isChosen = dialog.exec() == QDialog::Accepted;
  const QString path = isChosen ? dialog.selectedFiles().value(0) : QString();
  dialog.setParent(nullptr, dialog.windowFlags());
  dialog.setDirectory(documents());
  return path;
}

QFileDialog& dialogFor(const FileKind& kind, const QString& suffix, const QString& name) {
  QFileDialog& dialog = theDialog();
  dialog.setWindowTitle(kind.title);
  dialog.setDirectory(documents());
  dialog.setNameFilter(kind.filter);
  dialog.setDefaultSuffix(suffix);
  dialog.selectFile(name);
  return dialog;
}

}  // namespace

QString datedName(const QString& what, core::Day day) {
  return what + QLatin1Char('_') + toQt(day).toString(Qt::ISODate);
}

QString askFileToWrite(const FileKind& kind, const QString& proposedName, QWidget* parent) {
  theDialog().setFileMode(QFileDialog::AnyFile);
  theDialog().setAcceptMode(QFileDialog::AcceptSave);
  return chosenFile(dialogFor(kind, kind.suffix, proposedName), parent);
}

QString askFileToRead(const FileKind& kind, QWidget* parent) {
  theDialog().setFileMode(QFileDialog::ExistingFile);
  theDialog().setAcceptMode(QFileDialog::AcceptOpen);
  return chosenFile(dialogFor(kind, {}, {}), parent);
}

}  // namespace tarvik::ui
