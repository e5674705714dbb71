// tarvik_compare KEPT FRESH: prints the name of every picture that is in only one of the two folders or
// differs between them by more than the eye sees, and fails when there is one.

#include <QColor>
#include <QDirIterator>
#include <QImage>
#include <QSet>
#include <cstdio>

namespace {

// Kept pictures have fewer colours, and font rendering differs by shades from machine to machine.
constexpr int kSameShade = 48;
constexpr double kDifferingShare = 0.001;

QSet<QString> picturesIn(const QString& folder) {
  const QDir whole(QDir(folder).absolutePath());
  QSet<QString> names;
  QDirIterator files(whole.path(), {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) names.insert(whole.relativeFilePath(files.next()));
  return names;
}

bool isSame(QRgb a, QRgb b) {
  return qAbs(qRed(a) - qRed(b)) <= kSameShade && qAbs(qGreen(a) - qGreen(b)) <= kSameShade &&
         qAbs(qBlue(a) - qBlue(b)) <= kSameShade;
}

bool isSame(const QImage& a, const QImage& b) {
  if (a.isNull() || a.size() != b.size()) return false;
  qint64 differing = 0;
  for (int y = 0; y < a.height(); ++y) {
    const auto* rowA = reinterpret_cast<const QRgb*>(a.constScanLine(y));
    const auto* rowB = reinterpret_cast<const QRgb*>(b.constScanLine(y));
    for (int x = 0; x < a.width(); ++x) differing += isSame(rowA[x], rowB[x]) ? 0 : 1;
  }
  return static_cast<double>(differing) <= kDifferingShare * a.width() * a.height();
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
  for (const QString& name : names)
    if (!isSame(load(kept + name), load(fresh + name))) changed.append(name);
  changed.sort();
  for (const QString& name : changed) std::puts(qPrintable(name));
  return changed.isEmpty() ? 0 : 1;
}
