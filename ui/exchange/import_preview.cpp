#include "ui/exchange/import_preview.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <optional>
#include <utility>

#include "core/entry_editing.h"
#include "core/number_text.h"
#include "core/record_file.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"
#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui_import_preview.h"

namespace tarvik::ui {
namespace {

using exchange::DayOrder;
using exchange::DistanceUnit;
using exchange::VolumeUnit;

constexpr const char* kForint = "HUF";
constexpr int kWantedCharacters = 130;

bool asksForFactor(const exchange::LogFile& log) {
  return log.hasCosts && log.currency != kForint;
}

QString factorLabel(const exchange::LogFile& log) {
  if (log.currency.empty()) return QStringLiteral("A fájl pénzneme hány &forint:");
  return QStringLiteral("1 %1 hány &forint:").arg(toQt(log.currency));
}

// Shows a question or leaves it out, the field beside its label with it.
void showQuestion(QLabel* label, bool isAsked) {
  label->setVisible(isAsked);
  label->buddy()->setVisible(isAsked);
}

TextListModel* listOn(ListView* view, const QStringList& headers, const QStringList& longest) {
  auto* rows = new TextListModel(headers, view);
  view->setModel(rows);
  layOutList(*view, longest);
  return rows;
}

TextRow sectionRow(const exchange::SkippedSection& section) {
  return {.cells = {toQt(std::to_string(section.firstLine)),
                    QStringLiteral("más rész: „%1” (%2 sor)")
                        .arg(toQt(section.name), toQt(std::to_string(section.rows)))},
          .record = {}};
}

}  // namespace

ImportPreview::ImportPreview(Context& context, ImportSource source, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::ImportPreview>()),
      context_(context),
      source_(std::move(source)),
      entries_(new ImportModel(source_.log.isOwn, this)) {
  ui_->setupUi(this);
  makeAccessible(*this);
  setUpLists();
  setUpQuestions();
  connect(ui_->cmdAtvesz, &QPushButton::clicked, this, &ImportPreview::takeOver);
  connect(ui_->cmdMegsem, &QPushButton::clicked, this, &QDialog::reject);
  connect(entries_, &ImportModel::ticksChanged, this, &ImportPreview::showState);
  showFile();
  followEnterRule(*this);
  keepWithinReach(*this);
  openInTheMiddle(*this, wantedSize());
  focusQuestion();
}

ImportPreview::~ImportPreview() = default;

void ImportPreview::setUpLists() {
  ListView* entries = ui_->ListViewBejegyzesek;
  entries->setModel(entries_);
  layOutList(*entries, entries_->longestTexts(), ListDelegate::Ticks::Boxes);
  columns_ = listOn(ui_->ListViewOszlopok, {QStringLiteral("A fájl oszlopa"), QStringLiteral("Jelentése")},
                    {"", ""});
  leftOut_ = listOn(ui_->ListViewKimarado, {QStringLiteral("Sor"), QStringLiteral("Miért marad ki")},
                    {"9999999", ""});
}

// Wide enough for what is noticed of an entry, as far as the display goes.
QSize ImportPreview::wantedSize() const {
  const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * kWantedCharacters;
  return {width, screen()->availableGeometry().height() * 3 / 4};
}

void ImportPreview::setUpQuestions() {
  const exchange::LogFile& log = source_.log;
  ui_->cmbTavolsag->addItems({QStringLiteral("kilométer"), QStringLiteral("mérföld (1,609 km)")});
  ui_->cmbTavolsag->setCurrentIndex(static_cast<int>(log.distance));
  ui_->cmbMennyiseg->addItems({QStringLiteral("liter"), QStringLiteral("amerikai gallon (3,785 liter)"),
                               QStringLiteral("angol gallon (4,546 liter)")});
  ui_->cmbMennyiseg->setCurrentIndex(log.isGallonOpen ? -1 : static_cast<int>(log.volume));
  ui_->cmbNapok->addItems({QStringLiteral("nap, hónap, év"), QStringLiteral("hónap, nap, év")});
  ui_->cmbNapok->setCurrentIndex(static_cast<int>(log.dayOrder.order));
  for (const std::string& vehicle : log.vehicles) ui_->cmbJarmu->addItem(toQt(vehicle));
  ui_->cmbJarmu->setCurrentIndex(log.vehicles.size() == 1 ? 0 : -1);
  ui_->lbValto->setText(factorLabel(log));
  ui_->txValto->setText(exchange::costsAreForeign(log) ? QString() : QStringLiteral("1"));

  showQuestion(ui_->lbTavolsag, !log.isOwn);
  showQuestion(ui_->lbMennyiseg, !log.isOwn);
  showQuestion(ui_->lbValto, asksForFactor(log));
  showQuestion(ui_->lbNapok, !log.dayOrder.isCertain);
  showQuestion(ui_->lbJarmu, log.vehicles.size() > 1);
  ui_->FrameKerdesek->setVisible(!log.isOwn);

  for (QComboBox* answer : {ui_->cmbTavolsag, ui_->cmbMennyiseg, ui_->cmbJarmu})
    connect(answer, &QComboBox::currentIndexChanged, this,
            [this] { guarded(this, [this] { planAgain(); }); });
  connect(ui_->txValto, &QLineEdit::textChanged, this, [this] { guarded(this, [this] { planAgain(); }); });
  connect(ui_->cmbNapok, &QComboBox::currentIndexChanged, this,
          [this] { guarded(this, [this] { readAgain(); }); });
}

void ImportPreview::showFile() {
  ui_->lbNotices->setText(noticesOf(source_.log).join(QLatin1Char('\n')));
  showColumns();
  planAgain();
}

// The order of the days is the one answer that the rows are read by.
void ImportPreview::readAgain() {
  const bool wasCertain = source_.log.dayOrder.isCertain;
  source_.log = exchange::readLog(source_.text, static_cast<DayOrder>(ui_->cmbNapok->currentIndex()));
  source_.log.dayOrder.isCertain = wasCertain;
  showFile();
}

void ImportPreview::planAgain() {
  entries_->setPlan(plan(), source_.logbook);
  showLeftOut();
}

void ImportPreview::listAgain() {
  source_.list();
  source_.logbook = core::loadLogbook(context_.files, context_.folders, source_.plate);
  entries_->setPlanAnew(plan(), source_.logbook);
  showLeftOut();
}

exchange::ImportPlan ImportPreview::plan() const {
  return exchange::planImport(source_.log, answers(), source_.logbook, source_.tankLitres);
}

exchange::Answers ImportPreview::answers() const {
  return {.distance = static_cast<DistanceUnit>(std::max(ui_->cmbTavolsag->currentIndex(), 0)),
          .volume = static_cast<VolumeUnit>(std::max(ui_->cmbMennyiseg->currentIndex(), 0)),
          .forintsPerUnit = factor().value_or(1),
          .vehicle = source_.log.vehicles.size() > 1 ? toLogic(ui_->cmbJarmu->currentText()) : std::string()};
}

// A factor is a number above 0 with a decimal comma, or a point as other programs write it.
std::optional<core::Ratio> ImportPreview::factor() const {
  if (!asksForFactor(source_.log)) return core::Ratio(1);
  const QString typed = ui_->txValto->text().replace(QLatin1Char('.'), QLatin1Char(','));
  const auto number = core::localeNumber(toLogic(typed));
  return number && *number > 0 ? number : std::nullopt;
}

void ImportPreview::showColumns() {
  std::vector<TextRow> rows;
  for (const exchange::ColumnReading& column : source_.log.columns)
    rows.push_back({.cells = {toQt(column.head),
                              source_.log.isOwn ? QStringLiteral("ugyanaz a mező") : wordsOf(column.meaning)},
                    .record = {}});
  ui_->SSTab1->setTabText(1, QStringLiteral("Oszlopok (%1)").arg(rows.size()));
  columns_->setRows(std::move(rows));
}

void ImportPreview::showLeftOut() {
  std::vector<TextRow> rows;
  for (const exchange::UnreadRow& row : entries_->plan().unread)
    rows.push_back({.cells = {toQt(std::to_string(row.line)), wordsOf(row)}, .record = {}});
  for (const exchange::SkippedSection& section : source_.log.skipped) rows.push_back(sectionRow(section));
  std::ranges::stable_sort(rows, {}, [](const TextRow& row) { return row.cells.front().toInt(); });
  ui_->SSTab1->setTabText(2, QStringLiteral("Kimaradó sorok (%1)").arg(rows.size()));
  leftOut_->setRows(std::move(rows));
}

QString ImportPreview::missingAnswer() const {
  if (ui_->cmbMennyiseg->currentIndex() < 0)
    return QStringLiteral("Válaszd ki, milyen gallon van a fájlban!");
  if (source_.log.vehicles.size() > 1 && ui_->cmbJarmu->currentIndex() < 0)
    return QStringLiteral("Válaszd ki, melyik jármű tankolásai kellenek!");
  if (!factor()) return QStringLiteral("Írd be, hány forint a fájl pénzneme!");
  return {};
}

// The first question without an answer, else the entries.
void ImportPreview::focusQuestion() {
  if (ui_->cmbMennyiseg->currentIndex() < 0) return ui_->cmbMennyiseg->setFocus();
  if (source_.log.vehicles.size() > 1) return ui_->cmbJarmu->setFocus();
  factor() ? ui_->ListViewBejegyzesek->setFocus() : ui_->txValto->setFocus();
}

void ImportPreview::showState() {
  const auto& all = entries_->plan().entries;
  const auto taken = std::ranges::count_if(all, &exchange::PlannedEntry::isTaken);
  const bool isTooMany = taken + source_.logbook.count() > core::kHighestRecordNumber;
  QString state = missingAnswer();
  if (state.isEmpty() && isTooMany)
    state = QStringLiteral("Túl sok: a naplóba legfeljebb %1 bejegyzés fér!").arg(core::kHighestRecordNumber);
  ui_->cmdAtvesz->setEnabled(state.isEmpty() && taken > 0);
  if (state.isEmpty()) state = QStringLiteral("Kijelölve: %1 bejegyzés").arg(taken);
  ui_->lbState->setText(state);
  ui_->lbFile->setText(
      QStringLiteral("%1 naplójához: %2 bejegyzés (%3)")
          .arg(toQt(source_.plate).trimmed(), toQt(std::to_string(all.size())), source_.name));
  ui_->SSTab1->setTabText(0, QStringLiteral("Bejegyzések (%1)").arg(all.size()));
}

void ImportPreview::takeOver() {
  const Step step(this, QStringLiteral("beolvasás, %1").arg(source_.name),
                  QStringLiteral("Beolvasva: %1").arg(source_.name));
  const auto make = [this] {
    exchange::importEntries(context_.files, context_.folders.logbook(source_.plate), source_.logbook,
                            entries_->plan().taken());
  };
  if (carryOut(this, {.done = QStringLiteral("A bejegyzések bekerültek a naplóba."),
                      .make = make,
                      .list = [this] { listAgain(); },
                      .listed = QStringLiteral("Az előnézet már a napló mostani állapotát veszi alapul.")}))
    accept();
}

}  // namespace tarvik::ui
