#include "ui/exchange/import_columns.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <algorithm>

#include "ui/base/text.h"
#include "ui/exchange/import_words.h"
#include "ui/look/access.h"

namespace tarvik::ui {
namespace {

constexpr int kSamples = 3;
constexpr int kLongestText = 24;

QLabel* labelOf(const std::string& text, const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  const QString whole = toQt(text).simplified();
  label->setText(whole.size() <= kLongestText ? whole : whole.left(kLongestText - 1) + QStringLiteral("…"));
  if (label->text() != whole) label->setToolTip(whole);
  return label;
}

// The first values of a column, those that are empty left out.
std::vector<std::string> samplesOf(const exchange::LogTable& table, std::size_t column) {
  std::vector<std::string> samples;
  for (const exchange::TableRow& row : table.rows) {
    if (row.kind != exchange::RowKind::Data || core::trimmed(row.row.cell(column)).empty()) continue;
    samples.emplace_back(row.row.cell(column));
    if (samples.size() == kSamples) break;
  }
  return samples;
}

}  // namespace

ImportColumns::ImportColumns(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ImportColumns::forget() {
  boxes_.clear();
}

QComboBox* ImportColumns::box(std::size_t column) const {
  return column < boxes_.size() ? boxes_[column] : nullptr;
}

void ImportColumns::addColumn(const exchange::LogTable& table, std::size_t column) {
  auto* grid = static_cast<QGridLayout*>(widget()->layout());
  const int place = static_cast<int>(column);
  auto* box = new QComboBox(widget());
  box->setObjectName(QStringLiteral("cmbOszlop_%1").arg(place));
  box->setAccessibleName(QStringLiteral("A(z) „%1” oszlop jelentése").arg(toQt(table.heads[column])));
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  constexpr int kCharacters = 15;
  box->setMinimumContentsLength(kCharacters);
  for (int meaning = 0; meaning < exchange::kMeanings; ++meaning)
    box->addItem(wordsOf(static_cast<exchange::Meaning>(meaning)));
  connect(box, &QComboBox::currentIndexChanged, this, [this, place](int meaning) {
    if (!isShowing_) emit meaningChosen(place, meaning);
  });
  boxes_.push_back(box);
  grid->addWidget(box, 0, place);
  QLabel* head = labelOf(table.heads[column], QStringLiteral("lbOszlop_%1").arg(place), widget());
  QFont bold = head->font();
  bold.setBold(true);
  head->setFont(bold);
  grid->addWidget(head, 1, place);
  const auto samples = samplesOf(table, column);
  for (int i = 0; i < kSamples; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const std::string value = at < samples.size() ? samples[at] : std::string();
    grid->addWidget(
        labelOf(value, QStringLiteral("lbErtek_%1_%2").arg(QString::number(place), QString::number(i)),
                widget()),
        2 + i, place);
  }
}

void ImportColumns::build(const exchange::LogTable& table) {
  auto* contents = new QWidget(this);
  auto* grid = new QGridLayout(contents);
  grid->setVerticalSpacing(1);
  setWidget(contents);
  for (std::size_t column = 0; column < table.heads.size(); ++column) addColumn(table, column);
  grid->setColumnStretch(static_cast<int>(table.heads.size()), 1);
  grid->setRowStretch(2 + kSamples, 1);
  makeAccessible(*contents);
}

void ImportColumns::show(const exchange::LogTable& table, const exchange::Reading& reading) {
  isShowing_ = true;
  if (boxes_.empty()) build(table);
  for (std::size_t column = 0; column < boxes_.size(); ++column)
    boxes_[column]->setCurrentIndex(static_cast<int>(reading.columns[column].meaning));
  isShowing_ = false;
}

QSize ImportColumns::sizeHint() const {
  const QSize contents = widget()->sizeHint();
  return {contents.width(),
          contents.height() + horizontalScrollBar()->sizeHint().height() + 2 * frameWidth()};
}

QSize ImportColumns::minimumSizeHint() const {
  constexpr int kLeastWidth = 200;
  return {kLeastWidth, sizeHint().height()};
}

}  // namespace tarvik::ui
