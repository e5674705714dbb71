#include "ui/chart/chart_canvas.h"

#include <algorithm>
#include <cmath>

#include "ui/chart/chart_thinning.h"

namespace tarvik::ui {
namespace {

constexpr double kValueLabelPadding = 7;
constexpr double kTopGap = 8;
constexpr double kRightGap = 16;
constexpr double kEdgeGap = 8;
constexpr double kTickDistance = 38;
constexpr double kSmallestPlot = 20;
constexpr double kDepthRise = 0.6;
// More are neither told apart nor drawn quickly enough to scroll through.
constexpr int kMostRowsDrawn = 400;

// Numbers the value axis in the Hungarian form.
class ValueTicker : public QCPAxisTickerFixed {
 public:
  explicit ValueTicker(const ValueScale& scale) : decimals_(scale.decimals) { setTickStep(scale.step); }

 protected:
  QString getTickLabel(double tick, const QLocale&, QChar, int) override {
    return numberText(tick, decimals_);
  }
  int getSubTickCount(double) override { return 0; }

 private:
  int decimals_;
};

// Bars are about as deep as wide; a ribbon or a solid is deeper, but not so deep that it hides its next
// points.
QPointF depthOf(const ChartContent& content, double width) {
  if (!drawsDepth(content.type)) return {};
  const double rowWidth = width / static_cast<double>(std::max<qsizetype>(content.values.size(), 1));
  const double across = std::clamp(std::round(rowWidth * (drawsBars(content.type) ? 0.9 : 1.6)), 10.0, 30.0);
  return {across, -std::round(across * kDepthRise)};
}

double widestNumber(const ValueScale& scale, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const double value : scale.ticks()) {
    widest = std::max(widest, metrics.horizontalAdvance(numberText(value, scale.decimals)));
  }
  return widest;
}

}  // namespace

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
  xAxis->setTickLabels(false);
  xAxis->grid()->setVisible(false);
  yAxis->setTickLength(0);
  yAxis->setTickLabelPadding(static_cast<int>(kValueLabelPadding));
  bars_->setWidthType(QCPBars::wtPlotCoords);
  bars_->setPen(Qt::NoPen);
  setPlottingHint(QCP::phCacheLabels, false);
  // A replot that painted at once would paint the old buffers, and none may begin inside it.
  setPlottingHint(QCP::phImmediateRefresh, false);
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

double ChartCanvas::titleHeight() const {
  return std::ceil(QFontMetricsF(style_.titleFont).height()) + 16;
}

ChartFrame ChartCanvas::arrangedFrame(LabelFit& fit) const {
  const QFontMetricsF metrics(style_.labelFont);
  const Baseline baseline = drawsLine(drawn_.type) ? Baseline::Free : Baseline::Zero;
  ChartFrame frame;
  frame.rows = static_cast<int>(drawn_.values.size());
  frame.depth = depthOf(drawn_, width());
  const double top = titleHeight() + kTopGap - frame.depth.y();
  const double room = height() - top - kEdgeGap;
  fit = fitLabels(drawn_.labels, metrics, width() - kRightGap - frame.depth.x() - 56, height());
  const double plotHeight = std::max(room - fit.height, kSmallestPlot);
  frame.scale = valueScale(drawn_.values, baseline, static_cast<int>(plotHeight / kTickDistance));
  const double numbers = std::ceil(widestNumber(frame.scale, metrics) + kValueLabelPadding + kEdgeGap);
  const double left = std::max(numbers, std::ceil(fit.leftOverhang) + kEdgeGap / 2);
  const double plotWidth = std::max(width() - left - kRightGap - frame.depth.x(), kSmallestPlot);
  fit = fitLabels(drawn_.labels, metrics, plotWidth, height());
  frame.front = QRectF(left, top, plotWidth, std::max(std::floor(room - fit.height), kSmallestPlot));
  return frame;
}

// The content as it is drawn; its selected and hovered rows keep their own numbers.
void ChartCanvas::thinContent() {
  drawnRows_ = rowsToDraw(content_.values, kMostRowsDrawn, content_.selectedRow);
  drawn_ = content_;
  if (drawnRows_.size() == content_.values.size()) return;
  drawn_.labels.clear();
  drawn_.values.clear();
  for (const int row : std::as_const(drawnRows_)) {
    drawn_.labels.append(content_.labels[row - 1]);
    drawn_.values.append(content_.values[row - 1]);
  }
}

QList<ChartFace> ChartCanvas::facesOfRows(const ChartFrame& frame) const {
  QList<ChartFace> faces = chartFaces(drawn_.type, frame, drawn_.values);
  for (ChartFace& face : faces) {
    if (face.row > 0) face.row = drawnRows_[face.row - 1];
  }
  return faces;
}

void ChartCanvas::arrange() {
  style_ = chartStyle(palette(), font());
  thinContent();
  LabelFit fit;
  ChartFrame frame = arrangedFrame(fit);
  applyLayout(frame);
  applyAxes(frame);
  // The library puts the lowest value on the last pixel row of its rectangle, not below it.
  frame.front.translate(0, -1);
  applyFlatSeries(frame);
  applyFlatColors(frame);
  const QFontMetricsF metrics(style_.labelFont);
  labels_->setLabels(placeLabels(fit, drawn_.labels, metrics, frame, width()), frame, style_);
  walls_->setVisible(drawsDepth(drawn_.type));
  walls_->setRoom(frame, style_);
  solids_->setSeries(drawn_, frame, facesOfRows(frame), style_);
  plotted_ = false;
}

void ChartCanvas::applyLayout(const ChartFrame& frame) {
  setBackground(QBrush(style_.background));
  const int heightOfTitle = static_cast<int>(titleHeight());
  title_->setMinimumSize(1, heightOfTitle);
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
  xAxis->setRange(0.5, std::max(frame.rows, 1) + 0.5);
  xAxis->setBasePen(frame.scale.lower < 0 ? style_.grid : style_.axis);
  yAxis->setRange(frame.scale.lower, frame.scale.upper);
  yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new ValueTicker(frame.scale)));
  yAxis->setBasePen(drawsDepth(drawn_.type) ? QPen(style_.axis) : QPen(Qt::NoPen));
  yAxis->setTickPen(Qt::NoPen);
  yAxis->setSubTickPen(Qt::NoPen);
  yAxis->setTickLabelFont(style_.labelFont);
  yAxis->setTickLabelColor(style_.quietText);
  yAxis->grid()->setVisible(!drawsDepth(drawn_.type));
  yAxis->grid()->setPen(style_.grid);
  yAxis->grid()->setZeroLinePen(frame.scale.lower < 0 ? style_.axis : style_.grid);
}

void ChartCanvas::applyFlatSeries(const ChartFrame& frame) {
  const bool flat = !drawsDepth(drawn_.type);
  bars_->setVisible(flat && drawsBars(drawn_.type));
  graph_->setVisible(flat && !drawsBars(drawn_.type));
  QVector<double> keys;
  QVector<double> values;
  for (int row = 1; row <= frame.rows; ++row) {
    const double value = drawn_.values[row - 1];
    if (bars_->visible() && !std::isfinite(value)) continue;
    keys.append(row);
    values.append(std::isfinite(value) ? value : qQNaN());
  }
  if (bars_->visible()) bars_->setData(keys, values, true);
  if (graph_->visible()) graph_->setData(keys, values, true);
  bars_->setWidth(barWidth(frame) / frame.rowWidth());
}

void ChartCanvas::applyFlatColors(const ChartFrame& frame) {
  bars_->setBrush(style_.series);
  bars_->setAntialiasedFill(true);
  // The line over it hides the fill's edge.
  graph_->setAntialiasedFill(false);
  graph_->setPen(QPen(style_.series, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  graph_->setBrush(Qt::NoBrush);
  if (drawn_.type != ChartType::Area2D) return;
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
  for (const PlacedLabel& label : labels_->labels()) outlines.append(label.outline());
  const QFontMetricsF metrics(style_.labelFont);
  const ChartFrame& frame = labels_->frame();
  for (const double value : frame.scale.ticks()) {
    QRectF box(QPointF(), metrics.size(Qt::TextSingleLine, numberText(value, frame.scale.decimals)));
    box.moveCenter({0, frame.y(value)});
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
  QCustomPlot::changeEvent(event);
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
