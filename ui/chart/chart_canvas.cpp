#include "ui/chart/chart_canvas.h"

#include <algorithm>
#include <cmath>

#include "ui/chart/chart_thinning.h"

namespace tarvik::ui {
namespace {

constexpr double kValueLabelPadding = 7;
constexpr double kTitlePadding = 12;
constexpr double kTopGap = 8;
constexpr double kUnitLines = 1.5;
constexpr double kUnitGap = 2;
constexpr double kRightGap = 16;
constexpr double kEdgeGap = 8;
constexpr double kTickDistance = 38;
constexpr double kSmallestPlot = 20;
constexpr double kDepthRise = 0.6;
constexpr double kDeepest = 30;
// More are neither told apart nor drawn quickly enough to scroll through.
constexpr int kMostRowsDrawn = 400;

// Numbers the value axis in the Hungarian form.
class ValueTicker : public QCPAxisTickerFixed {
 public:
  explicit ValueTicker(const ValueScale& scale) : decimals_(scale.decimals) { setTickStep(scale.step); }

 protected:
  QString getTickLabel(double tick, const QLocale&, QChar, int) override {
    return decimalText(tick, decimals_);
  }

 private:
  int decimals_;
};

// Bars are about as deep as wide; a ribbon or a solid is deeper, but not so deep that it hides its next
// points.
QPointF depthOf(ChartType type, int rows, double width) {
  if (!drawsDepth(type)) return {};
  const double rowWidth = width / rows;  // without end when there are none
  const double across = std::clamp(std::round(rowWidth * (drawsBars(type) ? 0.9 : 1.6)), 10.0, kDeepest);
  return {across, -std::round(across * kDepthRise)};
}

double widestNumber(const ValueScale& scale, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const double value : scale.ticks()) {
    widest = std::max(widest, metrics.horizontalAdvance(decimalText(value, scale.decimals)));
  }
  return widest;
}

double titleHeight(const ChartStyle& style) {
  return std::ceil(QFontMetricsF(style.titleFont).height()) + kTitlePadding;
}

// The unit stands over the numbers of the value axis, the topmost of which reaches half a line beyond it.
double unitHeight(const QFontMetricsF& metrics) {
  return std::ceil(metrics.height() * kUnitLines) - kTitlePadding / 2 + kUnitGap;
}

}  // namespace

// Every start asks, and needs no title yet: its font is not made for its height.
int chartHeightForPlot(int plotHeight, const QFont& font) {
  const QFontMetricsF metrics(font);
  const double title = std::ceil(metrics.height() * kTitleScale) + kTitlePadding;
  const double around =
      title + unitHeight(metrics) + std::ceil(kDeepest * kDepthRise) + levelLabelHeight(metrics) + kEdgeGap;
  return plotHeight + static_cast<int>(std::ceil(around));
}

ChartCanvas::ChartCanvas(QWidget* parent)
    : QCustomPlot(parent),
      title_(new QCPTextElement(this)),
      bars_(new QCPBars(xAxis, yAxis)),
      graph_(addGraph()),
      walls_(new ChartWalls(this)),
      solids_(new ChartSolids(xAxis, yAxis)),
      labels_(new ChartAxisLabels(this)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_OpaquePaintEvent, false);  // or the chart under it would count as hidden
  setFocusPolicy(Qt::NoFocus);
  plotLayout()->insertRow(0);
  plotLayout()->addElement(0, 0, title_);
  plotLayout()->setRowSpacing(0);
  axisRect()->setAutoMargins(QCP::msNone);
  xAxis->setTicks(false);
  xAxis->grid()->setVisible(false);
  yAxis->setSubTicks(false);
  yAxis->setTickLabelPadding(static_cast<int>(kValueLabelPadding));
  bars_->setPen(Qt::NoPen);
  setPlottingHint(QCP::phCacheLabels, false);
  // A polyline stroked as a whole costs many times its segments where it is steep.
  setPlottingHint(QCP::phFastPolylines);
  // The library replots by itself as well: whoever asked for it, what it plots is the content shown.
  connect(this, &QCustomPlot::beforeReplot, this, &ChartCanvas::arrangeIfChanged);
  connect(this, &QCustomPlot::afterReplot, this, [this] { plotted_ = true; });
}

void ChartCanvas::show(const ChartContent& content) {
  content_ = content;
  markChanged();
}

void ChartCanvas::markChanged() {
  arranged_ = false;
  update();
}

void ChartCanvas::arrangeIfChanged() {
  if (!arranged_) arrange();
  arranged_ = true;
}

const QList<ChartFace>& ChartCanvas::faces() {
  arrangeIfChanged();
  return solids_->faces();
}

int ChartCanvas::drawnRow(int row) {
  arrangeIfChanged();
  return nearestDrawn(drawnRows_, row);
}

ChartFrame ChartCanvas::arrangedFrame(LabelFit& fit) const {
  const QFontMetricsF metrics(style_.labelFont);
  const Baseline baseline = drawsLine(content_.type) ? Baseline::Free : Baseline::Zero;
  ChartFrame frame;
  frame.rows = static_cast<int>(content_.values.size());
  frame.drawn = static_cast<int>(points_.size());
  frame.depth = depthOf(content_.type, frame.drawn, width());
  const double aboveAxis = content_.unit.isEmpty() ? kTopGap : unitHeight(metrics);
  const double top = titleHeight(style_) + aboveAxis - frame.depth.y();
  const double room = height() - top - kEdgeGap;
  fit = fitLabels(content_.labels, metrics, width() - kRightGap - frame.depth.x() - 56, height());
  const double plotHeight = std::max(room - fit.height, kSmallestPlot);
  frame.scale = valueScale(content_.values, baseline, static_cast<int>(plotHeight / kTickDistance));
  const double numbers = std::ceil(widestNumber(frame.scale, metrics) + kValueLabelPadding + kEdgeGap);
  const double left = std::max(numbers, std::ceil(fit.leftOverhang) + kEdgeGap / 2);
  const double plotWidth = std::max(width() - left - kRightGap - frame.depth.x(), kSmallestPlot);
  fit = fitLabels(content_.labels, metrics, plotWidth, height());
  frame.front = QRectF(left, top, plotWidth, std::max(std::floor(room - fit.height), kSmallestPlot));
  return frame;
}

void ChartCanvas::choosePoints() {
  drawnRows_ = rowsToDraw(content_.values, kMostRowsDrawn, content_.selectedRow);
  points_.clear();
  for (const int row : std::as_const(drawnRows_)) points_.append({row, content_.values[row - 1]});
}

AxisTexts ChartCanvas::placedTexts(const LabelFit& fit, const ChartFrame& frame) const {
  const QFontMetricsF metrics(style_.labelFont);
  AxisTexts texts;
  texts.labels = placeLabels(fit, content_.labels, metrics, frame, width());
  texts.unit = content_.unit;
  if (texts.unit.isEmpty()) return texts;
  texts.unitBox.setSize(metrics.size(Qt::TextSingleLine, texts.unit));
  texts.unitBox.moveTopRight(
      {frame.front.left() - kValueLabelPadding, titleHeight(style_) - kTitlePadding / 2});
  texts.unitBox.moveLeft(std::max(texts.unitBox.left(), kEdgeGap));
  return texts;
}

void ChartCanvas::arrange() {
  style_ = chartStyle(palette(), font());
  choosePoints();
  LabelFit fit;
  ChartFrame frame = arrangedFrame(fit);
  applyLayout(frame);
  applyAxes(frame);
  // The library puts the lowest value on the last pixel row of its rectangle, not below it.
  frame.front.translate(0, -1);
  applyFlatSeries(frame);
  applyFlatColors(frame);
  labels_->setTexts(placedTexts(fit, frame), frame, style_);
  walls_->setVisible(drawsDepth(content_.type));
  walls_->setRoom(frame, style_);
  solids_->setSeries(content_, chartFaces(content_.type, frame, points_), style_);
  plotted_ = false;
}

void ChartCanvas::applyLayout(const ChartFrame& frame) {
  setBackground(QBrush(style_.background));
  const int heightOfTitle = static_cast<int>(titleHeight(style_));
  title_->setMaximumSize(QWIDGETSIZE_MAX, heightOfTitle);
  title_->setSizeConstraintRect(QCPLayoutElement::scrOuterRect);
  title_->setFont(style_.titleFont);
  title_->setTextColor(style_.text);
  const QFontMetrics metrics(style_.titleFont);
  title_->setText(
      metrics.elidedText(content_.title, Qt::ElideRight, width() - 2 * static_cast<int>(kEdgeGap)));
  const QRect front = frame.front.toRect();
  axisRect()->setMargins({front.left(), front.top() - heightOfTitle, width() - front.right() - 1,
                          height() - front.bottom() - 1});
}

void ChartCanvas::applyAxes(const ChartFrame& frame) {
  xAxis->setRange(0.5, frame.rows + 0.5);
  xAxis->setBasePen(frame.scale.lower < 0 ? style_.grid : style_.axis);
  yAxis->setRange(frame.scale.lower, frame.scale.upper);
  yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ValueTicker(frame.scale)));
  yAxis->setBasePen(drawsDepth(content_.type) ? QPen(style_.axis) : QPen(Qt::NoPen));
  yAxis->setTickPen(Qt::NoPen);
  yAxis->setTickLabelFont(style_.labelFont);
  yAxis->setTickLabelColor(style_.quietText);
  yAxis->grid()->setVisible(!drawsDepth(content_.type));
  yAxis->grid()->setPen(style_.grid);
  yAxis->grid()->setZeroLinePen(style_.axis);
}

void ChartCanvas::applyFlatSeries(const ChartFrame& frame) {
  const bool flat = !drawsDepth(content_.type);
  bars_->setVisible(flat && drawsBars(content_.type));
  graph_->setVisible(flat && !drawsBars(content_.type));
  QVector<double> keys;
  QVector<double> values;
  for (const ChartPoint& point : std::as_const(points_)) {
    if (bars_->visible() && !std::isfinite(point.value)) continue;
    keys.append(point.row);
    values.append(std::isfinite(point.value) ? point.value : qQNaN());
  }
  if (bars_->visible()) bars_->setData(keys, values);
  if (graph_->visible()) graph_->setData(keys, values);
  bars_->setWidth(barWidth(frame) / frame.rowWidth());
}

void ChartCanvas::applyFlatColors(const ChartFrame& frame) {
  bars_->setBrush(style_.series);
  // The line over it hides the fill's edge.
  graph_->setAntialiasedFill(false);
  graph_->setPen(QPen(style_.series, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  graph_->setBrush(Qt::NoBrush);
  if (content_.type != ChartType::Area2D) return;
  QColor strong = style_.series;
  QColor faint = style_.series;
  strong.setAlphaF(0.5F);
  faint.setAlphaF(frame.scale.lower < 0 ? 0.5F : 0.12F);
  QLinearGradient shade(frame.front.topLeft(), frame.front.bottomLeft());
  shade.setColorAt(0, strong);
  shade.setColorAt(1, faint);
  graph_->setBrush(shade);
}

QList<QPolygonF> ChartCanvas::axisLabelOutlines() {
  arrangeIfChanged();
  QList<QPolygonF> outlines;
  for (const PlacedLabel& label : labels_->texts().labels) outlines.append(label.outline());
  if (!content_.unit.isEmpty()) outlines.append(QPolygonF(labels_->texts().unitBox));
  const QFontMetricsF metrics(style_.labelFont);
  const ChartFrame& frame = labels_->frame();
  for (const double value : frame.scale.ticks()) {
    QRectF box(QPointF(), metrics.size(Qt::TextSingleLine, decimalText(value, frame.scale.decimals)));
    box.moveCenter({frame.front.left(), frame.y(value)});
    box.moveRight(frame.front.left() - kValueLabelPadding);
    outlines.append(QPolygonF(box));
  }
  return outlines;
}

void ChartCanvas::paintEvent(QPaintEvent* event) {
  if (!qFuzzyCompare(devicePixelRatioF(), bufferDevicePixelRatio())) {
    setBufferDevicePixelRatio(devicePixelRatioF());
    plotted_ = false;
  }
  if (!arranged_ || !plotted_) replot(rpQueuedRefresh);
  QCustomPlot::paintEvent(event);
}

void ChartCanvas::resizeEvent(QResizeEvent*) {
  setViewport(rect());
  markChanged();
}

void ChartCanvas::changeEvent(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::StyleChange)
    markChanged();
}

QPixmap ChartCanvas::picture(double scale) {
  arrangeIfChanged();
  return toPixmap(width(), height(), scale);
}

void ChartCanvas::drawOn(QPaintDevice& device) {
  arrangeIfChanged();
  QCPPainter painter(&device);
  painter.setMode(QCPPainter::pmVectorized);
  toPainter(&painter, width(), height());
}

}  // namespace tarvik::ui
