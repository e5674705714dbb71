#include "ui/windows/chart_panel.h"

#include <QEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <utility>

#include "charts/captions.h"
#include "charts/scroll_view.h"
#include "charts/series.h"
#include "core/entry_editing.h"
#include "ui/base/document.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/look/access.h"
#include "ui/look/figure_fields.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui_chart_panel.h"

namespace tarvik::ui {
namespace {

constexpr int kFirstRecord = 1;
constexpr int kMostGridRows = 100;

struct NamedType {
  ChartType type;
  const char* name;
};

// In the order of the list.
constexpr std::array kTypes{
    NamedType{ChartType::Area2D, "2D terület"}, NamedType{ChartType::Bars2D, "2D oszlop"},
    NamedType{ChartType::Line2D, "2D vonal"},   NamedType{ChartType::Area3D, "3D terület"},
    NamedType{ChartType::Bars3D, "3D oszlop"},  NamedType{ChartType::Line3D, "3D vonal"}};
constexpr int kFirstType = 1;

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
  for (const NamedType& type : kTypes) ui_->Combo2->addItem(QString::fromUtf8(type.name));
  makeFigureFields({ui_->txtGrafDb}, QStringLiteral("99999"));
  makeAccessible(*this);
  takeOutOfUse(*ui_->Check2);
  setFocusProxy(ui_->Combo2);
  ui_->lbGrafDb->installEventFilter(this);
  setVisible(false);
  connect(ui_->HScroll1, &QScrollBar::valueChanged, this, [this] { quietly([this] { scroll(); }); });
  onSignal(ui_->txtGrafDb, &QLineEdit::textChanged, this, &ChartPanel::setPageStep);
  connect(ui_->Combo2, &QComboBox::currentIndexChanged, this,
          [this](int index) { guarded(window(), [&] { setType(index); }); });
  connect(ui_->MSChart1, &ChartView::pointSelected, this,
          [this](int, int row) { guarded(window(), [&] { describePoint(row); }); });
  onSignal(ui_->MSChart1, &ChartView::pictureWanted, this, &ChartPanel::savePicture);
  ui_->Combo2->setCurrentIndex(kFirstType);
}

ChartPanel::~ChartPanel() = default;

void ChartPanel::savePicture() {
  static const FileKind kPicture{QStringLiteral("Grafikon mentése képként"),
                                 QStringLiteral("PNG-kép (*.png);;PDF-dokumentum (*.pdf)"),
                                 QStringLiteral("png")};
  saveDocument(context_, kPicture, pictureName() + QStringLiteral(".png"), this,
               [this](OutputFile& file) { return ui_->MSChart1->writePicture(file); });
}

void ChartPanel::toggle(QPushButton& button, QPoint mainTopLeft) {
  ui_->HScroll1->setValue(kFirstRecord);
  quietly([this] { resetGrid(); });
  if (!isHidden()) {
    hide();
    button.setText(QStringLiteral("&Grafikon megjelenítése"));
    return;
  }
  frmMelyGrafikon(context_, mainTopLeft, window(), seenLast_).exec();
  const int choice = context_.state.chartChoice;
  if (choice == charts::kNoChart) return hide();
  if (!guarded(window(), [&] { showChart(choice); })) return;
  button.setText(QStringLiteral("&Grafikon elrejtése"));
}

void ChartPanel::showChart(int choice) {
  draw(choice, logbook());
  show();
  seenLast_ = choice;
  const bool scrolls = choice == charts::kConsumptions;
  ui_->chkGrafikon->setVisible(scrolls);
  ui_->HScroll1->setVisible(scrolls);
  ui_->lbGrafDb->setVisible(scrolls);
  ui_->txtGrafDb->setVisible(scrolls);
}

void ChartPanel::redraw() {
  const int choice = context_.state.chartChoice;
  if (isHidden() || choice == charts::kNoChart) return;
  const bool isDrawn = quietly([&] {
    const core::Logbook entries = logbook();
    const bool stays = isScrolled_ && ui_->HScroll1->value() < entries.count();
    stays ? drawView(entries) : draw(choice, entries);
  });
  if (isDrawn) return;
  isDrawable_ = false;
  display({}, charts::chartTitle(choice));
}

// The latest entries, with the scroll bar at its beginning.
void ChartPanel::draw(int choice, const core::Logbook& entries) {
  display(charts::seriesOf(choice, entries, toLogic(sources_.averageText())), charts::chartTitle(choice));
  ui_->MSChart1->setUnitText(toQt(charts::chartUnit(choice)));
  fitScrollBar(entries.count());
  const QSignalBlocker silent(ui_->HScroll1);
  ui_->HScroll1->setValue(kFirstRecord);
  isScrolled_ = false;
}

core::Logbook ChartPanel::logbook() {
  plate_ = sources_.plate().trimmed();
  auto found = core::foundLogbook(context_.files, context_.folders, toLogic(plate_));
  isDrawable_ = found.has_value();
  return found ? std::move(*found) : core::Logbook();
}

void ChartPanel::sayWhose() {
  const QString words = plate_.isEmpty() ? QStringLiteral("Nincs kiválasztva rendszám")
                        : isDrawable_ ? plate_ + QStringLiteral(" naplójából, a lista szűrőjétől függetlenül")
                                      : plate_ + QStringLiteral(" naplójából nem rajzolható grafikon");
  ui_->lbGrafikon->setText(words);
  ui_->lbGrafikon->setToolTip(words);
}

QString ChartPanel::pictureName() const {
  const QString what = toQt(charts::chartFileName(context_.state.chartChoice));
  return datedName(plate_ + QLatin1Char('_') + what, context_.clock.today());
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
  sayWhose();
}

void ChartPanel::fitScrollBar(int records) {
  const QSignalBlocker silent(ui_->HScroll1);
  ui_->HScroll1->setRange(kFirstRecord, std::max(kFirstRecord, records - 1));
  setPageStep();
}

void ChartPanel::setPageStep() {
  ui_->HScroll1->setPageStep(charts::recordsPerView(toLogic(ui_->txtGrafDb->text())));
}

void ChartPanel::scroll() {
  drawView(logbook());
}

void ChartPanel::drawView(const core::Logbook& entries) {
  fitScrollBar(entries.count());
  const std::string countText = charts::usableCount(toLogic(ui_->txtGrafDb->text()));
  ui_->txtGrafDb->setText(toQt(countText));
  const charts::ScrollView view{ui_->HScroll1->value(), countText, ui_->chkGrafikon->isChecked()};
  display(charts::consumptionsFrom(entries, view), charts::chartTitle(charts::kConsumptions));
  isScrolled_ = true;
}

// The words between the tick and the number are the tick's too.
bool ChartPanel::eventFilter(QObject* watched, QEvent* event) {
  const bool isClick = event->type() == QEvent::MouseButtonPress &&
                       static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  if (isClick) ui_->chkGrafikon->click();
  return QFrame::eventFilter(watched, event);
}

void ChartPanel::setType(int index) {
  if (index >= 0) ui_->MSChart1->setChartType(static_cast<int>(kTypes[static_cast<std::size_t>(index)].type));
}

void ChartPanel::describePoint(int row) {
  const int choice = context_.state.chartChoice;
  if (choice == charts::kNoChart) return;
  const charts::ChartPoint& point = points_.at(static_cast<std::size_t>(row - 1));
  ui_->MSChart1->setTitleText(toQt(charts::pointDescription(choice, point.label, point.value)));
}

}  // namespace tarvik::ui
