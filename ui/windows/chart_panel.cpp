#include "ui/windows/chart_panel.h"

#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <utility>

#include "charts/captions.h"
#include "charts/scroll_view.h"
#include "charts/series.h"
#include "core/entry_editing.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/look/access.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui_chart_panel.h"

namespace tarvik::ui {
namespace {

constexpr int kFirstRecord = 1;
constexpr int kMostGridRows = 100;

// The chart types in the order of the list.
constexpr std::array kTypes{ChartType::Area2D, ChartType::Bars2D, ChartType::Line2D,
                            ChartType::Area3D, ChartType::Bars3D, ChartType::Line3D};

double toChart(core::Amount value) {
  return static_cast<double>(value.tenThousandths) / 10'000;
}

}  // namespace

ChartPanel::ChartPanel(Context& context, ChartSources sources, QWidget* parent)
    : QFrame(parent),
      context_(context),
      sources_(std::move(sources)),
      ui_(std::make_unique<Ui::FrmGrafikon>()) {
  ui_->setupUi(this);
  makeAccessible(*this);
  takeOutOfUse(*ui_->Check2);
  setFocusProxy(ui_->Combo2);
  setVisible(false);
  connect(ui_->HScroll1, &QScrollBar::valueChanged, this, [this] { quietly([this] { scroll(); }); });
  connect(ui_->txtGrafDb, &QLineEdit::textChanged, this,
          [this](const QString& text) { ui_->HScroll1->setPageStep(charts::recordsPerView(toLogic(text))); });
  connect(ui_->Combo2, &QComboBox::currentIndexChanged, this, &ChartPanel::setType);
  connect(ui_->MSChart1, &ChartView::pointSelected, this, [this](int, int row) { describePoint(row); });
  setType(ui_->Combo2->currentIndex());
}

ChartPanel::~ChartPanel() = default;

void ChartPanel::toggle(QPushButton& button, QPoint mainTopLeft) {
  ui_->HScroll1->setValue(kFirstRecord);
  quietly([this] { resetGrid(); });
  if (!isHidden()) {
    hide();
    button.setText(QStringLiteral("&Grafikon megjelenítése"));
    return;
  }
  frmMelyGrafikon(context_, mainTopLeft, window()).exec();
  const int choice = context_.state.chartChoice;
  if (choice == charts::kNoChart) return hide();
  if (!guarded(window(), [&] { showChart(choice); })) return;
  button.setText(QStringLiteral("&Grafikon elrejtése"));
}

void ChartPanel::showChart(int choice) {
  const core::Logbook entries = logbook();
  display(charts::seriesOf(choice, entries, toLogic(sources_.averageText())), charts::chartTitle(choice));
  ui_->MSChart1->setUnitText(toQt(charts::chartUnit(choice)));
  fitScrollBar(entries.count());
  show();
  raise();
  ui_->MSChart1->raise();
  const bool scrolls = choice == charts::kConsumptions;
  ui_->chkGrafikon->setVisible(scrolls);
  ui_->HScroll1->setVisible(scrolls);
  ui_->txtGrafDb->setVisible(scrolls);
}

core::Logbook ChartPanel::logbook() const {
  return core::loadLogbook(context_.files, context_.folders, toLogic(sources_.plate()));
}

// Numbered rows without a value, one a record; an empty logbook leaves the chart as it is.
void ChartPanel::resetGrid() {
  const int rows = std::min(logbook().count(), kMostGridRows);
  if (rows == 0) return;
  std::vector<charts::ChartPoint> points;
  for (int row = 1; row <= rows; ++row) points.push_back({std::to_string(row), {}});
  display(std::move(points), toLogic(ui_->MSChart1->titleText()));
}

void ChartPanel::display(std::vector<charts::ChartPoint> points, const std::string& title) {
  points_ = std::move(points);
  QStringList labels;
  QList<double> values;
  for (const charts::ChartPoint& point : points_) {
    labels.append(toQt(point.label));
    values.append(toChart(point.value));
  }
  ui_->MSChart1->setPoints(labels, values);
  ui_->MSChart1->setTitleText(toQt(title));
}

void ChartPanel::fitScrollBar(int records) {
  const QSignalBlocker silent(ui_->HScroll1);
  ui_->HScroll1->setRange(kFirstRecord, std::max(kFirstRecord, records - 1));
  ui_->HScroll1->setPageStep(charts::recordsPerView(toLogic(ui_->txtGrafDb->text())));
}

void ChartPanel::scroll() {
  const core::Logbook entries = logbook();
  fitScrollBar(entries.count());
  const std::string countText = charts::usableCount(toLogic(ui_->txtGrafDb->text()));
  ui_->txtGrafDb->setText(toQt(countText));
  const charts::ScrollView view{ui_->HScroll1->value(), countText, ui_->chkGrafikon->isChecked()};
  display(charts::consumptionsFrom(entries, view), charts::chartTitle(charts::kConsumptions));
}

void ChartPanel::setType(int index) {
  if (index >= 0 && index < static_cast<int>(kTypes.size()))
    ui_->MSChart1->setChartType(static_cast<int>(kTypes[static_cast<std::size_t>(index)]));
  ui_->MSChart1->update();
}

void ChartPanel::describePoint(int row) {
  const int choice = context_.state.chartChoice;
  if (choice == charts::kNoChart) return;
  const charts::ChartPoint& point = points_.at(static_cast<std::size_t>(row - 1));
  ui_->MSChart1->setTitleText(toQt(charts::pointDescription(choice, point.label, point.value)));
}

}  // namespace tarvik::ui
