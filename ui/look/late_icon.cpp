#include "ui/look/late_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <utility>

namespace tarvik::ui {
namespace {

class LateIconEngine : public QIconEngine {
 public:
  explicit LateIconEngine(std::function<QIcon()> make) : make_(std::move(make)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
    made().paint(painter, place, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return made().pixmap(size, 1, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return made().actualSize(size, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return made().availableSizes(mode, state);
  }
  QIconEngine* clone() const override { return new LateIconEngine(*this); }

 private:
  const QIcon& made() {
    if (icon_.isNull()) icon_ = make_();
    return icon_;
  }

  std::function<QIcon()> make_;
  QIcon icon_;
};

}  // namespace

QIcon lateIcon(std::function<QIcon()> make) {
  return QIcon(new LateIconEngine(std::move(make)));
}

}  // namespace tarvik::ui
