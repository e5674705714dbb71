#include "ui/exchange/import_preview.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "core/entry_editing.h"
#include "core/record_file.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"
#include "ui/lists/list_delegate.h"
#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui_import_preview.h"

namespace tarvik::ui {
namespace {

constexpr int kWantedCharacters = 190;

}  // namespace

ImportPreview::ImportPreview(Context& context, ImportSource source, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::ImportPreview>()),
      context_(context),
      source_(std::move(source)),
      rows_(new ImportModel(this)) {
  ui_->setupUi(this);
  makeAccessible(*this);
  ui_->ListViewBejegyzesek->setModel(rows_);
  layOutList(*ui_->ListViewBejegyzesek, ImportModel::longestTexts(), ListDelegate::Ticks::Boxes);
  shape_.encoding = encodingOf(source_.bytes);
  table_ = exchange::readTable(decodedText(source_.bytes, shape_.encoding));
  shape_.separator = table_.shape.separator;
  understand();
  listen();
  followEnterRule(*this);
  keepWithinReach(*this);
  openInTheMiddle(*this, wantedSize());
  focusQuestion();
}

ImportPreview::~ImportPreview() = default;

void ImportPreview::listen() {
  onClick(this, ui_->cmdAtvesz, &ImportPreview::takeOver);
  connect(ui_->cmdMegsem, &QPushButton::clicked, this, &QDialog::reject);
  onClick(this, ui_->cmdMind, &ImportPreview::tickAll);
  onClick(this, ui_->cmdEgyikSem, &ImportPreview::tickNone);
  connect(rows_, &ImportModel::ticksChanged, this, &ImportPreview::showState);
  connect(ui_->oszlopok, &ImportColumns::meaningChosen, this,
          [this](int column, int meaning) { guarded(this, [&] { chooseMeaning(column, meaning); }); });
  onSignal(ui_->valasztasok, &ImportChoices::choiceChanged, this, &ImportPreview::understand);
  onSignal(ui_->valasztasok, &ImportChoices::placeChanged, this, &ImportPreview::planAgain);
  onSignal(ui_->valasztasok, &ImportChoices::shapeChanged, this, &ImportPreview::readFile);
}

// Wide enough for what is noticed of an entry, as far as the display goes.
QSize ImportPreview::wantedSize() const {
  const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * kWantedCharacters;
  constexpr int kShare = 9;  // of ten, of the display's height
  return {width, screen()->availableGeometry().height() * kShare / 10};
}

// With another encoding or separator the columns are others.
void ImportPreview::readFile() {
  shape_ = ui_->valasztasok->shape();
  choices_ = {};
  table_ = exchange::readTable(decodedText(source_.bytes, shape_.encoding), shape_.separator);
  ui_->oszlopok->forget();
  understand();
}

void ImportPreview::chooseMeaning(int column, int meaning) {
  choices_.columns[static_cast<std::size_t>(column)] = static_cast<exchange::Meaning>(meaning);
  understand();
}

void ImportPreview::understand() {
  exchange::Choices choices = ui_->valasztasok->choices();
  choices.columns = choices_.columns;
  reading_ = exchange::understand(table_, choices);
  ui_->oszlopok->show(table_, reading_);
  ui_->lbNotices->setText(noticesOf(table_, reading_).join(QLatin1Char('\n')));
  planAgain();
}

exchange::PlanContext ImportPreview::planContext() const {
  return {.logbook = source_.logbook,
          .tankLitres = source_.tankLitres,
          .today = context_.clock.today(),
          .place = ui_->valasztasok->place()};
}

exchange::ImportPlan ImportPreview::plan() const {
  return exchange::planImport(exchange::readRows(table_, reading_), reading_, planContext());
}

void ImportPreview::planAgain() {
  rows_->setPlan(plan(), planContext());
  showState();
}

void ImportPreview::listAgain() {
  source_.list();
  source_.logbook = core::loadLogbook(context_.files, context_.folders, source_.plate);
  rows_->setPlanAnew(plan(), planContext());
}

QString ImportPreview::missing() const {
  if (!reading_.open.empty()) return wordsOf(reading_.open.front(), reading_);
  if (rows_->plan().whole.size() <= core::kHighestRecordNumber) return {};
  return QStringLiteral("Túl sok: a naplóba legfeljebb %1 bejegyzés fér!").arg(core::kHighestRecordNumber);
}

// The field of the first question, else the rows.
void ImportPreview::focusQuestion() {
  if (reading_.open.empty()) return ui_->ListViewBejegyzesek->setFocus();
  QWidget* field = ui_->valasztasok->fieldOf(reading_.open.front());
  if (field == nullptr) field = ui_->oszlopok->box(reading_.unknownColumn.value_or(0));
  if (field != nullptr) field->setFocus();
}

void ImportPreview::showSums() {
  const exchange::ImportPlan& plan = rows_->plan();
  ui_->lbOsszeg->setText(QStringLiteral("A fájlból:  ") + wordsOf(exchange::summaryOf(plan.taken())));
  std::vector<core::NapiAdat> there;
  for (int number = 1; number <= source_.logbook.count(); ++number)
    there.push_back(source_.logbook.record(number));
  ui_->lbOsszegNaplo->setText(QStringLiteral("A naplóban:  ") + wordsOf(exchange::summaryOf(there)));
  ui_->lbValtozik->setText(
      QStringLiteral("A napló %1 bejegyzésének más lesz a fogyasztása, mert elé kerül valami.")
          .arg(plan.changed));
  ui_->lbValtozik->setVisible(plan.changed > 0);
}

void ImportPreview::showState() {
  const exchange::ImportPlan& plan = rows_->plan();
  const auto taken = std::ranges::count_if(plan.entries, &exchange::PlannedEntry::isTaken);
  ui_->valasztasok->show(reading_, shape_, plan.doPlacesDiffer);
  const QString state = missing();
  ui_->cmdAtvesz->setEnabled(state.isEmpty() && taken > 0);
  ui_->lbState->setText(state.isEmpty() ? QStringLiteral("Kijelölve: %1 bejegyzés").arg(taken) : state);
  showOverdue(*ui_->lbState, !state.isEmpty());
  ui_->lbFile->setText(
      QStringLiteral("%1 naplójához: %2 – %3 sor: %4 bejegyzés, ebből %5 kijelölve, %6 sor kimarad")
          .arg(toQt(source_.plate).trimmed(), source_.name,
               QString::number(plan.entries.size() + plan.unread.size()),
               QString::number(plan.entries.size()), QString::number(taken),
               QString::number(plan.unread.size())));
  showSums();
}

void ImportPreview::takeOver() {
  const Step step(this, QStringLiteral("beolvasás, %1").arg(source_.name),
                  QStringLiteral("Beolvasva: %1").arg(source_.name));
  const exchange::ImportPlan& plan = rows_->plan();
  takenEntries_ = static_cast<int>(plan.taken().size());
  changedEntries_ = plan.changed;
  const auto make = [this] {
    exchange::importEntries(context_.files, context_.folders.logbook(source_.plate), source_.logbook,
                            rows_->plan().whole);
  };
  if (carryOut(this, {.done = QStringLiteral("A bejegyzések bekerültek a naplóba."),
                      .make = make,
                      .list = [this] { listAgain(); },
                      .listed = QStringLiteral("Az előnézet már a napló mostani állapotát veszi alapul.")}))
    accept();
}

}  // namespace tarvik::ui
