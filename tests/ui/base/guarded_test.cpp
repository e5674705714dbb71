#include "ui/base/guarded.h"

#include <QFile>
#include <QRegularExpression>
#include <cerrno>
#include <new>

#include "tests/ui/box_script.h"
#include "tests/ui/screen_test.h"

using namespace tarvik;
using core::Failure;
using core::FailureKind;

namespace {

/// A line of the page of failures: a word, a name and its texts.
struct Line {
  QString word;
  QString name;
  QString text;
  QString consequence;
};

QList<Line> linesOfThePage(const QString& word) {
  QFile page(QStringLiteral(TARVIK_CONTRACT "/failures.txt"));
  if (!page.open(QIODevice::ReadOnly)) qFatal("no page of failures");
  static const QRegularExpression line(R"re(^(\S+) +(\S+) +"([^"]*)"(?: "([^"]*)")?$)re");
  QList<Line> lines;
  for (const QString& text : QString::fromUtf8(page.readAll()).split('\n')) {
    const auto match = line.match(text);
    if (match.captured(1) != word) continue;
    const QString prompt = match.captured(3).replace(QLatin1String("\\n"), QLatin1String("\n"));
    lines.append({word, match.captured(2), prompt, match.captured(4)});
  }
  return lines;
}

QStringList namesOf(const QList<Line>& lines) {
  QStringList names;
  for (const Line& line : lines) names << line.name;
  names.sort();
  return names;
}

#define NAMED(error) \
  { #error, error }
const QMap<QString, int> kErrors{
    NAMED(ENOENT),      NAMED(ENOTDIR), NAMED(EISDIR), NAMED(EACCES),  NAMED(EPERM),        NAMED(EROFS),
    NAMED(ENOSPC),      NAMED(EDQUOT),  NAMED(EFBIG),  NAMED(EIO),     NAMED(EEXIST),       NAMED(EBUSY),
    NAMED(EWOULDBLOCK), NAMED(ETXTBSY), NAMED(EMFILE), NAMED(ENFILE),  NAMED(ENAMETOOLONG), NAMED(ELOOP),
    NAMED(EXDEV),       NAMED(EINTR),   NAMED(EINVAL), NAMED(ENOTSUP), NAMED(ENOSYS),       NAMED(ENOMEM),
    NAMED(ENOLCK),      NAMED(ESTALE),  NAMED(ESPIPE), NAMED(ENXIO),   NAMED(ENOTEMPTY),    NAMED(EBADF)};

}  // namespace

class GuardedTest : public QObject {
  Q_OBJECT

 private slots:
  // The page has them in the order of the kinds.
  void everyKindOfFailureIsSaidAsThePageSays() {
    const QList<Line> page = linesOfThePage("kind");
    QCOMPARE(page.size(), static_cast<qsizetype>(FailureKind::RecordChanged) + 1);
    for (int kind = 0; kind < page.size(); ++kind)
      QCOMPARE(ui::failureText(Failure(static_cast<FailureKind>(kind)).file("/a/b.dat")),
               QString(page[kind].text).replace("%1", "/a/b.dat") + "\n\n" + page[kind].consequence);
  }

  void everyFieldIsCalledAsThePageSays() {
    const QList<Line> page = linesOfThePage("field");
    QCOMPARE(page.size(), 23);
    for (const Line& line : page)
      QCOMPARE(ui::failureText(Failure(FailureKind::NotANumber).field(line.name.toStdString())),
               "Nem szám van a mezőben: " + line.text + "\n\nSemmi sem változott.");
  }

  void everyErrorOfTheSystemIsSaidAsThePageSays() {
    const QList<Line> page = linesOfThePage("error");
    QCOMPARE(namesOf(page), kErrors.keys());
    for (const Line& line : page)
      QCOMPARE(ui::failureText(Failure(FailureKind::OpenFailed).file("/a").systemError(kErrors[line.name])),
               "A fájl nem nyitható meg:\n/a\n(" + line.text + ")\n\nSemmi sem változott.");
    for (int error = 1; error < 200; ++error) {
      const QString text = ui::failureText(Failure(FailureKind::OpenFailed).file("/a").systemError(error));
      const bool isNumber = text.contains(QString("(%1. számú rendszerhiba)").arg(error));
      QVERIFY2(isNumber != kErrors.values().contains(error), qPrintable(text));
    }
  }

  void aBlankPlateIsAFieldThatIsNotFilledIn() {
    for (const char* plate : {"", "  "})
      QCOMPARE(ui::failureText(Failure(FailureKind::PlateUnusable).file(plate)),
               QString("Nincs kitöltve a mező: Rendszám\n\nSemmi sem változott."));
  }

  void aFailureOfNoFieldIsOneOfTheResult() {
    QCOMPARE(ui::failureText(Failure(FailureKind::OutOfRange)),
             QString("Túl nagy szám: a számítás eredménye\n\nSemmi sem változott."));
  }

  void anActionThatFailsShowsOneBoxWithItsConsequence() {
    test::BoxScript boxes;
    QVERIFY(!ui::guarded(nullptr, [] { throw Failure(FailureKind::DivisionByZero).field("txKmOra"); },
                         {.failed = "Félig kész."}));
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].title, QString(" H i b a !"));
    QCOMPARE(boxes.seen[0].text, QString("Nullával kellene osztani: Km óra állás\n\nFélig kész."));
    QCOMPARE(boxes.seen[0].icon, QMessageBox::Critical);
  }

  void runningOutOfMemoryIsSaidToo() {
    test::BoxScript boxes;
    QVERIFY(!ui::guarded(nullptr, [] { throw std::bad_alloc(); }));
    QCOMPARE(boxes.seen.size(), 1);
    QCOMPARE(boxes.seen[0].text, QString("Elfogyott a memória.\n\nSemmi sem változott."));
  }

  void anActionThatWorksShowsNothing() {
    test::BoxScript boxes;
    QVERIFY(ui::guarded(nullptr, [] {}));
    QCOMPARE(boxes.seen.size(), 0);
  }
};

TARVIK_SCREEN_TEST(GuardedTest)
#include "guarded_test.moc"
