// tarvik_compare KEPT FRESH: prints the name of every picture that is in only one of the two folders or
// differs between them in one pixel, and fails when there is one.

#include <QColor>
#include <QDirIterator>
#include <QImage>
#include <QSet>
#include <cstdio>

namespace {

QSet<QString> picturesIn(const QString& folder) {
  const QDir whole(QDir(folder).absolutePath());
  QSet<QString> names;
  QDirIterator files(whole.path(), {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) names.insert(whole.relativeFilePath(files.next()));
  return names;
}

QImage load(const QString& path) {
  return QImage(path).convertToFormat(QImage::Format_RGB32);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const QString kept = QString::fromLocal8Bit(argv[1]) + QLatin1Char('/');
  const QString fresh = QString::fromLocal8Bit(argv[2]) + QLatin1Char('/');
  const QSet<QString> names = picturesIn(kept) | picturesIn(fresh);
  QStringList changed;
  for (const QString& name : names) {
    const QImage picture = load(kept + name);
    if (picture.isNull() || picture != load(fresh + name)) changed.append(name);
  }
  changed.sort();
  for (const QString& name : changed) std::puts(qPrintable(name));
  return changed.isEmpty() ? 0 : 1;
}
