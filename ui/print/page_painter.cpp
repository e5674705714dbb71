#include "ui/print/page_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kRuleWidthMm = 0.15;
// The narrowest that letters get to keep a text whole: fifty of the widest still fit the part's column.
constexpr double kNarrowest = 0.5;

// Device units of a painter, in millimetres.
class Scale {
 public:
  explicit Scale(const QPaintDevice& device)
      : x_(device.logicalDpiX() / kMillimetresPerInch), y_(device.logicalDpiY() / kMillimetresPerInch) {}

  double x(double mm) const { return mm * x_; }
  QPointF point(double xMm, double yMm) const { return {xMm * x_, yMm * y_}; }

 private:
  double x_;
  double y_;
};

void paintRules(QPainter& painter, const Scale& scale, const std::vector<print::Rule>& rules) {
  painter.setPen(QPen(Qt::black, scale.x(kRuleWidthMm), Qt::SolidLine, Qt::FlatCap));
  for (const print::Rule& rule : rules)
    painter.drawLine(scale.point(rule.fromXMm, rule.fromYMm), scale.point(rule.toXMm, rule.toYMm));
}

// The text as one line of ink: control characters (a damaged record has them) and spaces at the end leave
// none.
QString inkOf(const std::string& text) {
  QString line = toQt(text);
  for (QChar& c : line)
    if (c.category() == QChar::Other_Control) c = QLatin1Char(' ');
  while (line.endsWith(QLatin1Char(' '))) line.chop(1);
  return line;
}

// Texts that follow each other mostly have one size: its font and measures are kept.
class TextPainter {
 public:
  explicit TextPainter(QPainter& painter)
      : painter_(painter), scale_(*painter.device()), font_(pageFontFamily()), metrics_(font_) {
    font_.setStyleHint(QFont::Times);
    font_.setHintingPreference(QFont::PreferNoHinting);
  }

  void paint(const print::Text& text) {
    const QString ink = inkOf(text.text);
    if (ink.isEmpty()) return;
    setSize(text.sizePt);
    const QPointF baseline = scale_.point(text.xMm, text.yMm) + QPointF(0, metrics_.ascent());
    const double share = scale_.x(text.widthMm) / metrics_.horizontalAdvance(ink);
    const double spare = text.isAtRight ? scale_.x(text.widthMm) - metrics_.horizontalAdvance(ink) : 0;
    if (share >= 1) return painter_.drawText(baseline + QPointF(spare, 0), ink);
    paintNarrower(baseline, ink, share);
  }

 private:
  // A text that is too long even with the narrowest letters is cut.
  void paintNarrower(const QPointF& baseline, const QString& ink, double share) {
    const double narrowing = std::max(share, kNarrowest);
    const double room = metrics_.horizontalAdvance(ink) * share / narrowing;
    painter_.save();
    painter_.translate(baseline);
    painter_.scale(narrowing, 1);
    painter_.drawText(QPointF(), share < kNarrowest ? metrics_.elidedText(ink, Qt::ElideRight, room) : ink);
    painter_.restore();
  }

  void setSize(int sizePt) {
    if (sizePt == sizePt_) return;
    sizePt_ = sizePt;
    font_.setPointSize(sizePt);
    painter_.setFont(font_);
    metrics_ = QFontMetricsF(painter_.font(), painter_.device());
  }

  QPainter& painter_;
  Scale scale_;
  QFont font_;
  QFontMetricsF metrics_;
  int sizePt_ = 0;
};

}  // namespace

QString pageFontFamily(const std::function<bool(const QString&)>& isInstalled) {
  for (const QString& family : {QStringLiteral("Times New Roman CE"), QStringLiteral("Times New Roman")})
    if (isInstalled(family)) return family;
  return QStringLiteral("Liberation Serif");
}

void paintPage(QPainter& painter, const print::Page& page) {
  paintRules(painter, Scale(*painter.device()), page.rules);
  TextPainter texts(painter);
  for (const print::Text& text : page.texts) texts.paint(text);
}

}  // namespace tarvik::ui
