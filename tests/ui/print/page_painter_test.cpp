#include "ui/print/page_painter.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include "tests/ui/printed_entries.h"
#include "tests/ui/screen_test.h"

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr int kPixelsPerMm = 10;

QImage pictureOf(const print::Page& page) {
  QImage picture(297 * kPixelsPerMm, 210 * kPixelsPerMm, QImage::Format_RGB32);
  picture.setDotsPerMeterX(kPixelsPerMm * 1'000);
  picture.setDotsPerMeterY(kPixelsPerMm * 1'000);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  ui::paintPage(painter, page);
  return picture;
}

bool isInk(const QImage& picture, int x, int y) {
  return qGray(picture.pixel(x, y)) < 128;
}

// Whether any ink is in a part of the picture; millimetres.
bool hasInk(const QImage& picture, double x, double y, double width, double height) {
  for (int row = int(y * kPixelsPerMm); row < int((y + height) * kPixelsPerMm); ++row)
    for (int column = int(x * kPixelsPerMm); column < int((x + width) * kPixelsPerMm); ++column)
      if (isInk(picture, column, row)) return true;
  return false;
}

// Whether every point of a rule is ink, one pixel either way.
bool isRuled(const QImage& picture, const print::Rule& rule) {
  const int steps = kPixelsPerMm * std::max(rule.toXMm - rule.fromXMm, rule.toYMm - rule.fromYMm);
  const int dx = rule.toXMm > rule.fromXMm;
  const int dy = 1 - dx;
  for (int i = 0; i < steps; ++i) {
    const int x = rule.fromXMm * kPixelsPerMm + i * dx;
    const int y = rule.fromYMm * kPixelsPerMm + i * dy;
    if (!isInk(picture, x, y) && !isInk(picture, x - dy, y - dx)) return false;
  }
  return true;
}

core::Logbook logbookOf(int count) {
  std::vector<core::NapiAdat> entries;
  for (int i = 1; i <= count; ++i) entries.push_back(entryOf(i));
  return core::Logbook::of(entries);
}

}  // namespace

class PagePainterTest : public QObject {
  Q_OBJECT

 private slots:
  void thePagesPictureIsWhatWasMeant() {
    const core::Logbook logbook = logbookOf(42);
    const print::ListDocument document(logbook, allRows(42), "Őszi lista, hűtővíz");
    const print::Page page = document.page(2);
    const QImage picture = pictureOf(page);
    for (const print::Rule& rule : page.rules)
      QVERIFY2(isRuled(picture, rule),
               qPrintable(QString::number(rule.fromXMm) + " " + QString::number(rule.fromYMm)));

    QVERIFY(hasInk(picture, 10, 15, 60, 4.5));    // the heading
    QVERIFY(hasInk(picture, 10, 30.3, 15, 2.2));  // the first row's date
    QVERIFY(hasInk(picture, 50, 38, 40, 3));      // the totals
    QVERIFY(hasInk(picture, 50, 42, 40, 3));

    QVERIFY(!hasInk(picture, 0, 0, 297, 15));        // above the heading
    QVERIFY(!hasInk(picture, 0, 20.5, 297, 4.3));    // up to the top rule
    QVERIFY(!hasInk(picture, 0, 0, 8.8, 210));       // left of the table
    QVERIFY(!hasInk(picture, 280.2, 0, 16.8, 210));  // right of it
    QVERIFY(!hasInk(picture, 0, 46, 297, 164));      // under the totals
    QVERIFY(!hasInk(picture, 0, 37.3, 49.5, 10));    // the vertical rules end with the last row's rule
    QVERIFY(!hasInk(picture, 70.5, 30.2, 13, 2.6));  // a flag that is not set
  }

  void longTextsAreWholeWithNarrowerLettersUpToWhatStandsBesideThem() {
    core::NapiAdat entry;
    entry.Alkatresz = core::FixedText<50>(std::string(50, 'W'));
    entry.Megjegyzes = core::FixedText<50>(std::string(50, 'W'));
    entry.TankoltLiter = {std::numeric_limits<std::int64_t>::max()};
    const core::Logbook logbook = core::Logbook::of(std::vector{entry});
    const print::ListDocument document(logbook, {{1}, "0", "0"}, std::string(300, 'W'));
    const QImage picture = pictureOf(document.page(1));
    // A cut text ends in dots, which leave the upper half of the line empty.
    QVERIFY(hasInk(picture, 187.5, 30.6, 1.3, 0.8));
    QVERIFY(!hasInk(picture, 189.2, 30.2, 0.7, 2.6));
    QVERIFY(hasInk(picture, 290.5, 30.6, 1.3, 0.8));
    QVERIFY(!hasInk(picture, 292.2, 0, 4.8, 210));
    QVERIFY(!hasInk(picture, 69.2, 30.2, 10, 2.6));
  }

  void aTextThatNarrowerLettersMakeFitIsNeverCut() {
    for (int width = 30; width < 45; ++width) {
      print::Page page;
      page.texts.push_back({.sizePt = 10, .text = std::string(15, 'W'), .widthMm = width});
      QVERIFY2(hasInk(pictureOf(page), width - 1.3, 0.6, 1.3, 1.2), qPrintable(QString::number(width)));
    }
  }

  void aHeadingThatIsTooLongForThatIsCut() {
    const core::Logbook logbook = logbookOf(1);
    const print::ListDocument document(logbook, allRows(1), std::string(300, 'W'));
    const QImage picture = pictureOf(document.page(1));
    QVERIFY(hasInk(picture, 280, 15, 11, 5));
    QVERIFY(!hasInk(picture, 292.2, 0, 4.8, 25));
  }

  void aPartWithoutANoteRunsOnOverTheNotesColumn() {
    core::NapiAdat entry;
    entry.Alkatresz = core::FixedText<50>(std::string(50, 'W'));
    entry.Megjegyzes = core::FixedText<50>("");
    const core::Logbook logbook = core::Logbook::of(std::vector{entry});
    const QImage picture = pictureOf(print::ListDocument(logbook, {{1}, "0", "0"}, {}).page(1));
    QVERIFY(hasInk(picture, 230, 30, 10, 2.5));
  }

  void aThinPenAndASerifAsItIsOnPaperAreTaken() {
    QImage paper(10, 10, QImage::Format_RGB32);
    QPainter painter(&paper);
    print::Page page;
    page.texts.push_back({.sizePt = 10, .text = "x", .widthMm = 9});
    page.rules.push_back({0, 0, 9, 0});
    ui::paintPage(painter, page);
    QCOMPARE(painter.font().styleHint(), QFont::Times);
    QCOMPARE(painter.font().hintingPreference(), QFont::PreferNoHinting);
    QCOMPARE(painter.pen(), QPen(Qt::black, 0.15 * paper.logicalDpiX() / 25.4, Qt::SolidLine, Qt::FlatCap));
  }

  void theFontIsTheSystemsOwnOrItsEqual() {
    QStringList installed{"Arial", "Times New Roman", "Times New Roman CE"};
    const auto family = [&] {
      return ui::pageFontFamily([&](const QString& name) { return installed.contains(name); });
    };
    QCOMPARE(family(), "Times New Roman CE");
    installed.removeLast();
    QCOMPARE(family(), "Times New Roman");
    installed.removeLast();
    QCOMPARE(family(), "Liberation Serif");
  }
};

TARVIK_SCREEN_TEST(PagePainterTest)
#include "page_painter_test.moc"
