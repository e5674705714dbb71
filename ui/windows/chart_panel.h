#pragma once

#include <QFrame>
#include <QPoint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "charts/record_points.h"
#include "core/napi_adat.h"
#include "ui/base/context.h"

class QPushButton;

namespace Ui {
class FrmGrafikon;
}

namespace tarvik::ui {

/// What the main screen shows that the charts are made of; asked for at each drawing.
struct ChartSources {
  std::function<QString()> plate;        ///< the chosen vehicle's plate
  std::function<QString()> averageText;  ///< the overall average consumption
};

/// The chart panel `FrmGrafikon` of the main screen: the chart, its type and, for the momentary
/// consumptions, the controls that scroll through the logbook. Hidden until a chart is asked for; made to
/// lie over the logbook list in one layout cell with it.
class ChartPanel : public QFrame {
  Q_OBJECT

 public:
  ChartPanel(Context& context, ChartSources sources, QWidget* parent);
  ~ChartPanel() override;

  /// Does what `cmdGrafikon` does: hides a shown panel, or asks for a chart and shows it, and gives the
  /// button its new caption. A cancelled question hides the panel and leaves the caption.
  void toggle(QPushButton& button, QPoint mainTopLeft);

  /// Draws a chart (1 to 7) and shows the panel with it. Throws core::Failure when its logbook cannot be
  /// read or its sums leave their types; the panel then is as it was.
  void showChart(int choice);

  /// Draws a shown chart anew, of the logbook as it is now: what was scrolled to stays where the logbook
  /// still reaches there. A chart that cannot be drawn leaves no other vehicle's behind: it is empty, and the
  /// panel says so.
  void redraw();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  core::Logbook logbook();
  void draw(int choice, const core::Logbook& entries);
  void drawView(const core::Logbook& entries);
  void sayWhose();
  QString pictureName() const;
  void resetGrid();
  void display(std::vector<charts::ChartPoint> points, const std::string& title);
  void fitScrollBar(int records);
  void setPageStep();
  void scroll();
  void setType(int index);
  void savePicture();
  void describePoint(int row);

  Context& context_;
  ChartSources sources_;
  std::unique_ptr<Ui::FrmGrafikon> ui_;
  std::vector<charts::ChartPoint> points_;
  QString plate_;            // whose logbook is drawn
  bool isDrawable_ = true;   // that logbook was there, and its chart could be computed
  int seenLast_ = 0;         // the chart that was shown last, 0 = none
  bool isScrolled_ = false;  // the view is the scroll bar's, not the latest entries
};

}  // namespace tarvik::ui
