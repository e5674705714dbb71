#include "ui/chart/chart_canvas.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QSignalSpy>
#include <QWidget>
#include <algorithm>

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

using namespace samples;

struct DrawnText {
  QString text;
  QRectF box;
};

struct DrawnLine {
  QLineF line;
  QColor color;
};

struct DrawnShape {
  QPolygonF points;
  QColor color;
};

// Notes the texts and the straight lines that are drawn, in the coordinates of the device.
class Notes : public QPaintEngine {
 public:
  Notes() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    const QPolygonF shape(QList<QPointF>(points, points + count));
    if (mode == PolylineMode) bends_.append({shape, painter()->pen().color()});
    if (mode != PolylineMode && painter()->brush() != Qt::NoBrush)
      fills_.append({shape, painter()->brush().color()});
  }

  void drawLines(const QLineF* lines, int count) override {
    for (int index = 0; index < count; ++index) {
      if (painter()->pen().style() == Qt::NoPen) continue;
      lines_.append({painter()->combinedTransform().map(lines[index]), painter()->pen().color()});
    }
  }

  void drawTextItem(const QPointF& position, const QTextItem& item) override {
    const QRectF box(position.x(), position.y() - item.ascent(), item.width(),
                     item.ascent() + item.descent());
    texts_.append({item.text(), painter()->combinedTransform().mapRect(box)});
  }

  QList<DrawnText> texts_;
  QList<DrawnLine> lines_;
  QList<DrawnShape> bends_;
  QList<DrawnShape> fills_;
};

// A paper as large as a chart and as fine as the screen.
class Paper final : public QPaintDevice {
 public:
  explicit Paper(ChartCanvas& canvas) : like_(canvas) { canvas.drawOn(*this); }

  QPaintEngine* paintEngine() const override { return &notes_; }
  const QList<DrawnText>& texts() const { return notes_.texts_; }
  const QList<DrawnLine>& lines() const { return notes_.lines_; }
  const QList<DrawnShape>& bends() const { return notes_.bends_; }
  const QList<DrawnShape>& fills() const { return notes_.fills_; }

  QStringList words() const {
    QStringList words;
    for (const DrawnText& text : texts()) words << text.text;
    return words;
  }

  QRectF boxOf(const QString& text) const {
    for (const DrawnText& drawn : texts()) {
      if (drawn.text == text) return drawn.box;
    }
    return {};
  }

 protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return like_.width();
      case PdmHeight:
        return like_.height();
      case PdmDpiX:
      case PdmPhysicalDpiX:
        return like_.logicalDpiX();
      case PdmDpiY:
      case PdmPhysicalDpiY:
        return like_.logicalDpiY();
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return 1;
    }
  }

 private:
  const QWidget& like_;
  mutable Notes notes_;
};

QColor between(const QColor& from, const QColor& to, double share) {
  const auto channel = [share](int first, int second) {
    return static_cast<int>(std::lround(first + (second - first) * share));
  };
  return {channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue())};
}

bool isClose(const QColor& one, const QColor& other) {
  return std::abs(one.red() - other.red()) < 3 && std::abs(one.green() - other.green()) < 3 &&
         std::abs(one.blue() - other.blue()) < 3;
}

const QColor kGrid = between(Qt::white, Qt::black, 0.13);
const QColor kAxis = between(Qt::white, Qt::black, 0.42);

}  // namespace

class ChartCanvasTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QWidget> window_;
  ChartCanvas* canvas_ = nullptr;
  QFontMetricsF metrics_{QFont()};

  void show(ChartType type, const QStringList& labels, const QList<double>& values,
            const QString& unit = "Ft") {
    canvas_->show({"Havi tankolási költség", unit, type, labels, values});
  }

  double middleOf(int row) { return rowRect(canvas_->faces(), row).center().x(); }

  // Where the room of the values begins, by the middles of the first two rows.
  double left() { return middleOf(1) - (middleOf(2) - middleOf(1)) / 2; }

 private slots:
  void init() {
    window_ = std::make_unique<QWidget>();
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    window_->setPalette(palette);
    canvas_ = new ChartCanvas(window_.get());
    canvas_->resize(690, 300);
    metrics_ = QFontMetricsF(canvas_->font());
  }

  void leavesTheKeyboardAndTheMouseToTheChart() {
    QCOMPARE(canvas_->focusPolicy(), Qt::NoFocus);
    QVERIFY(canvas_->testAttribute(Qt::WA_TransparentForMouseEvents));
  }

  void everyTextIsWrittenOnce_data() { addTypes(); }
  void everyTextIsWrittenOnce() {
    QFETCH(int, type);
    show(static_cast<ChartType>(type), {"január", "február", "március"}, {0, 90, 40});
    Paper paper(*canvas_);
    QStringList words = paper.words();
    words.sort();
    QStringList expected{"0",       "20",     "40",     "60", "80", "Ft", "Havi tankolási költség",
                         "február", "január", "március"};
    expected.sort();
    QCOMPARE(words, expected);
  }

  void theTextsAreWhereTheyAreSaidToBe() {
    show(ChartType::Bars2D, {"január", "február", "március"}, {0, 90, 40});
    Paper paper(*canvas_);
    QStringList told{"január", "február", "március", "Ft", "0", "20", "40", "60", "80"};
    const QList<QPolygonF> outlines = canvas_->axisLabelOutlines();
    QCOMPARE(outlines.size(), told.size());
    for (int index = 0; index < told.size(); ++index) {
      const QRectF box = paper.boxOf(told[index]);
      const QPointF off = outlines[index].boundingRect().center() - box.center();
      QVERIFY2(std::abs(off.x()) < 2 && std::abs(off.y()) < 2, qPrintable(told[index]));
    }
  }

  void turnedTextsAreWhereTheyAreSaidToBe() {
    canvas_->resize(500, 600);
    QStringList labels;
    for (const char letter : {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'})
      labels << QStringLiteral("igen hosszú felirat ") + letter;
    show(ChartType::Bars2D, labels, QList<double>(8, 1.0));
    Paper paper(*canvas_);
    const QList<QPolygonF> outlines = canvas_->axisLabelOutlines();
    for (int index = 0; index < 8; ++index) {
      const QRectF box = paper.boxOf(labels[index]);
      QVERIFY(box.height() > box.width() * 0.8);
      const QPointF off = outlines[index].boundingRect().center() - box.center();
      QVERIFY(std::abs(off.x()) < 2 && std::abs(off.y()) < 2);
    }
  }

  void nothingOfTheFlatTypesIsInAChartWithDepth() {
    const QColor series(0x2f, 0x7f, 0xcb);
    for (const ChartType type : {ChartType::Bars3D, ChartType::Line3D, ChartType::Area3D}) {
      show(type, {"a", "b", "c"}, {30, 90, 40});
      Paper paper(*canvas_);
      const auto inSeries = [&](const auto& drawn) { return drawn.color == series; };
      QCOMPARE(std::count_if(paper.lines().begin(), paper.lines().end(), inSeries), 0);
      QCOMPARE(std::count_if(paper.bends().begin(), paper.bends().end(), inSeries), 0);
      const auto fronts = std::count_if(paper.fills().begin(), paper.fills().end(), inSeries);
      QCOMPARE(fronts, type == ChartType::Line3D ? 0 : 3);
    }
  }

  void aChartThatIsResizedIsAsOneOfItsNewSize() {
    const auto pictureAt = [this](const QSize& before, const QSize& after) {
      window_->resize(800, 600);
      window_->show();
      canvas_->resize(before);
      show(ChartType::Bars2D, {"a", "b", "c"}, {30, 90, 40});
      canvas_->grab();
      canvas_->resize(after);
      return canvas_->grab().toImage();
    };
    const QImage resized = pictureAt({690, 300}, {400, 200});
    QCOMPARE(resized, pictureAt({400, 200}, {400, 200}));
  }

  void aChartAtRestIsPlottedOnce() {
    window_->show();
    show(ChartType::Bars2D, {"a", "b", "c"}, {30, 90, 40});
    const QSignalSpy plotted(canvas_, &QCustomPlot::afterReplot);
    canvas_->grab();
    canvas_->grab();
    QCOMPARE(plotted.count(), 1);
    QEvent anotherWindowIsActive(QEvent::ActivationChange);
    QCoreApplication::sendEvent(canvas_, &anotherWindowIsActive);
    canvas_->grab();
    QCOMPARE(plotted.count(), 1);
    QEvent anotherStyle(QEvent::StyleChange);
    QCoreApplication::sendEvent(canvas_, &anotherStyle);
    canvas_->grab();
    QCOMPARE(plotted.count(), 2);
  }

  void anotherFontIsTakenForEveryText() {
    show(ChartType::Bars2D, {"a", "b"}, {30, 90}, "km");
    const Paper before(*canvas_);
    QFont large = canvas_->font();
    large.setPointSize(2 * large.pointSize());
    canvas_->setFont(large);
    const Paper after(*canvas_);
    for (const char* text : {"km", "0", "a", "b"})
      QVERIFY2(after.boxOf(text).height() > 1.5 * before.boxOf(text).height(), text);
  }

  void aPictureIsOfWhatIsShownLast() {
    show(ChartType::Bars2D, {"a", "b", "c"}, {30, 90, 40});
    const QImage before = canvas_->picture(1).toImage();
    show(ChartType::Bars2D, {"a", "b", "c"}, {30, 10, 40});
    QVERIFY(canvas_->picture(1).toImage() != before);
  }

  void onPaperNothingIsRoundedToPixels() {
    show(ChartType::Bars2D, {"a", "b", "c", "d", "e", "f", "g"}, QList<double>(7, 1.0));
    Paper paper(*canvas_);
    const double middle = middleOf(2);
    QVERIFY(std::abs(middle - std::round(middle)) > 0.01);
    const auto isTick = [&](const DrawnLine& drawn) { return std::abs(drawn.line.x1() - middle) < 0.001; };
    QCOMPARE(std::count_if(paper.lines().begin(), paper.lines().end(), isTick), 1);
  }

  void moreThan400RowsAreDrawnByTheirStretches() {
    for (const auto& [rows, drawn] :
         {std::pair(400, 400), {401, 201}}) {  // of equal values the first, and the last
      show(ChartType::Line2D, QStringList(rows, "a"), QList<double>(rows, 5.0));
      QCOMPARE(canvas_->faces().size(), drawn);
    }
  }

  void numbersStand38PixelsApart() {
    canvas_->resize(700, chartHeightForPlot(6 * 38, canvas_->font()));
    show(ChartType::Bars3D, {"a"}, {60});
    QVERIFY(Paper(*canvas_).words().contains("10"));  // six steps, and not five of 20
  }

  void thePlotIsAsHighAsItIsWished() {
    canvas_->resize(700, chartHeightForPlot(220, canvas_->font()));
    show(ChartType::Bars3D, {"a"}, {1});
    canvas_->picture(1);
    QCOMPARE(canvas_->axisRect()->height(), 220);
  }

  void aChartOnADisplayOfAnotherScaleIsDrawnAnew() {
    window_->show();
    show(ChartType::Bars2D, {"a", "b", "c"}, {30, 90, 40});
    const QImage before = canvas_->grab().toImage();
    canvas_->setBufferDevicePixelRatio(3);
    QCOMPARE(canvas_->grab().toImage(), before);
    QCOMPARE(canvas_->bufferDevicePixelRatio(), canvas_->devicePixelRatioF());
  }

  void aTitleThatIsTooLongIsCutWithinTheChart() {
    canvas_->show({QString(300, 'W'), "Ft", ChartType::Bars2D, {"a"}, {1}});
    Paper paper(*canvas_);
    const QString title =
        paper.texts().first().text.contains('W') ? paper.texts().first().text : paper.texts().last().text;
    const QRectF box = paper.boxOf(title);
    QVERIFY(title.endsWith(QChar(0x2026)));
    QVERIFY(box.left() >= 8 && box.right() <= 690 - 8);
    QVERIFY(box.width() > 690 - 16 - 2 * QFontMetricsF(canvas_->font()).horizontalAdvance('W'));
  }

  void zeroIsAnAxisOnTheWallsOnlyAmongNegativeValues() {
    for (const double lowest : {-80.0, 80.0}) {
      show(ChartType::Bars3D, {"a", "b"}, {lowest, 90});
      Paper paper(*canvas_);
      const double zero = paper.boxOf("0").center().y();
      int axes = 0;
      for (const auto& [bend, color] : paper.bends()) {
        const bool isZero = std::abs(bend[0].y() - zero) < 2;
        QVERIFY(isClose(color, isZero && lowest < 0 ? kAxis : kGrid));
        axes += isClose(color, kAxis) ? 1 : 0;
      }
      QCOMPARE(axes, lowest < 0 ? 1 : 0);
    }
  }

  void zeroIsALineAcrossAFlatChartAmongNegativeValues() {
    for (const ChartType type : {ChartType::Bars2D, ChartType::Line2D, ChartType::Area2D}) {
      show(type, {"a", "b"}, {-80, 90});
      Paper paper(*canvas_);
      const double zero = paper.boxOf("0").center().y();
      const auto isZero = [&](const DrawnLine& drawn) {
        return drawn.line.dx() > 500 && std::abs(drawn.line.y1() - zero) < 2 && isClose(drawn.color, kAxis);
      };
      QCOMPARE(std::count_if(paper.lines().begin(), paper.lines().end(), isZero), 1);
    }
  }

  void anEmptyChartSaysThatThereIsNothing() {
    show(ChartType::Bars2D, {}, {});
    Paper paper(*canvas_);
    QVERIFY(paper.words().contains("Nincs adat"));
    const QRectF zero = paper.boxOf("0,0");
    const QRectF one = paper.boxOf("1,0");
    const QRectF remark = paper.boxOf("Nincs adat");
    const double left = zero.right() + 7;
    QVERIFY(std::abs(remark.center().x() - (left + 690 - 16) / 2) < 2);
    const double height = (zero.center().y() - one.center().y()) * 1.05;
    QVERIFY(std::abs(remark.center().y() - (zero.center().y() - height / 2)) < 2);
    show(ChartType::Bars2D, {"a"}, {1});
    Paper other(*canvas_);
    QVERIFY(!other.words().contains("Nincs adat"));
  }

  void theTiniestChartHasAPlotOf20Pixels() {
    canvas_->resize(60, 40);
    show(ChartType::Bars2D, {"a", "b"}, {100, 100});
    const QList<QPolygonF> outlines = canvas_->axisLabelOutlines();
    const double zero = outlines[outlines.size() - 5].boundingRect().center().y();
    const double hundred = outlines.last().boundingRect().center().y();
    QVERIFY(std::abs((zero - hundred) * 1.05 - 20) < 0.1);  // the axis ends a twentieth above the values
    QVERIFY(std::abs((middleOf(2) - middleOf(1)) * 2 - 20) < 0.1);
  }

  void aTurnedLabelThatBeginsLeftOfTheNumbersHasTheRoomThatItNeeds() {
    canvas_->resize(500, 600);
    const QStringList labels(8, QStringLiteral("egy igen hosszú felirat"));
    show(ChartType::Bars2D, labels, QList<double>(8, 1.0));
    const QPolygonF first = canvas_->axisLabelOutlines().first();
    QVERIFY(first.boundingRect().height() > 2 * metrics_.height());  // turned
    const LabelFit fit = fitLabels(labels, metrics_, 500 - 16 - 56, 600);
    QVERIFY(fit.turned && fit.leftOverhang > 60);
    QVERIFY(std::abs(left() - (std::ceil(fit.leftOverhang) + 4)) < 1);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ChartCanvasTest)
#include "chart_canvas_test.moc"
