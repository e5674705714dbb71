#include "ui/windows/restore_pane.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "core/listing.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_view.h"
#include "ui/lists/listing_model.h"
#include "ui/look/access.h"
#include "ui/look/enter_key.h"
#include "ui/look/look.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui/windows/restore_words.h"

namespace tarvik::ui {
namespace {

// The size of the windows where the display has room, in steps of the grid.
constexpr QSize kWishedSteps{100, 56};

// Their parts' names begin with what they are, as the system's do.
QListWidget* listNamed(const QString& name, const QString& spoken, QWidget* parent) {
  auto* list = new QListWidget(parent);
  list->setObjectName(name);
  list->setAccessibleName(spoken);
  list->setAlternatingRowColors(true);
  return list;
}

QPushButton* buttonNamed(const QString& name, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setEnabled(false);
  return button;
}

void addClosing(QDialog& dialog, QBoxLayout& layout) {
  auto* close = new QPushButton(QStringLiteral("Be&zár"), &dialog);
  close->setObjectName(QStringLiteral("cmdBezar"));
  close->setAutoDefault(false);
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::close);
  layout.addWidget(close, 0, Qt::AlignRight);
  followEnterRule(dialog);
}

// The log as it is listed on the main screen; nothing can be changed in it.
void showLog(core::Logbook logbook, const QString& title, QWidget* parent) {
  core::Listing listing{std::move(logbook), {}};
  listing.numbers = core::listedEntries(listing.logbook, {});
  QDialog screen(parent);
  screen.setObjectName(QStringLiteral("SetLog"));
  screen.setWindowTitle(title);
  auto* layout = new QVBoxLayout(&screen);
  auto* list = new ListView(&screen);
  list->setObjectName(QStringLiteral("ListViewMentes"));
  list->setAccessibleName(title);
  auto* rows = new ListingModel(listing, &screen);
  list->setModel(rows);
  layOutList(*list, ListingModel::longestTexts());
  list->onRowChosen([](int) { return true; });
  layout->addWidget(list, 1);
  addClosing(screen, *layout);
  keepWithinReach(screen);
  openInTheMiddle(screen, kWishedSteps * gridStep());
  list->setFocus();
  screen.exec();
}

}  // namespace

RestorePane::RestorePane(Context& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      sets_(listNamed(QStringLiteral("listMentesek"), QStringLiteral("Mentések"), this)),
      lines_(listNamed(QStringLiteral("listKulonbsegek"), QStringLiteral("Mi más most"), this)),
      look_(buttonNamed(QStringLiteral("cmdMentesNezet"), QStringLiteral("&Napló megnézése…"), this)),
      take_(buttonNamed(QStringLiteral("cmdVisszaallit"), QStringLiteral("Vi&sszaállítás"), this)) {
  build();
  lines_->setWordWrap(true);
  lines_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lines_->setResizeMode(QListView::Adjust);
  new ListHint(*sets_, QStringLiteral("Még nincs mentés.\nMinden nap az első módosítás előtt készül egy."));
  connect(sets_, &QListWidget::currentRowChanged, this, [this] { guarded(window(), [this] { compare(); }); });
  connect(lines_, &QListWidget::currentRowChanged, this, &RestorePane::enableButtons);
  connect(lines_, &QListWidget::itemChanged, this, &RestorePane::enableButtons);
  onClick(this, look_, &RestorePane::lookAtLog);
  onClick(this, take_, &RestorePane::takeBack);
  connect(&context_.news, &ChangeNews::travelled, this, [this] { guarded(window(), [this] { compare(); }); });
}

void RestorePane::build() {
  setProperty("chapter", QStringLiteral("visszaállítás-mentésből"));
  auto* layout = new QVBoxLayout(this);
  auto* lists = new QHBoxLayout;
  const auto add = [&](QListWidget* list, const QString& name, const QString& caption, int share) {
    auto* label = new QLabel(caption, this);
    label->setObjectName(name);
    label->setBuddy(list);
    auto* column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list, 1);
    lists->addLayout(column, share);
  };
  add(sets_, QStringLiteral("lbMentesek"), QStringLiteral("Mentések:"), 1);
  add(lines_, QStringLiteral("lbKulonbsegek"),
      QStringLiteral("A mostanihoz képest; a pipásak állnak vissza:"), 3);
  layout->addLayout(lists, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(look_);
  buttons->addWidget(take_);
  layout->addLayout(buttons);
}

void RestorePane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) guarded(window(), [this] { listSets(); });
}

void RestorePane::listSets() {
  const std::string chosen = chosenSet() != nullptr ? chosenSet()->name : std::string();
  found_.clear();
  sets_->clear();
  found_ = core::datedSets(context_.files, context_.folders);
  for (const core::DatedSet& set : found_) sets_->addItem(titleOf(set));
  const auto same = std::ranges::find(found_, chosen, &core::DatedSet::name);
  if (found_.empty()) return compare();
  sets_->setCurrentRow(same == found_.end() ? 0 : static_cast<int>(same - found_.begin()));
}

const core::DatedSet* RestorePane::chosenSet() const {
  const auto row = static_cast<std::size_t>(sets_->currentRow());
  return row < found_.size() ? &found_[row] : nullptr;
}

void RestorePane::compare() {
  compared_.clear();
  lines_->clear();
  if (const core::DatedSet* set = chosenSet()) compared_ = core::compared(context_.files, *set);
  for (const core::SetComparison& line : compared_) addLine(line);
  enableButtons();
}

// What differs and is whole is ticked at first; what cannot be read cannot be.
void RestorePane::addLine(const core::SetComparison& line) {
  auto* item =
      new QListWidgetItem(titleOf(line.file, context_.folders) + QStringLiteral(": ") + differenceOf(line));
  const bool isWanted = line.state == core::SetFileState::Whole && !line.isSame;
  if (line.state != core::SetFileState::Unreadable)
    item->setCheckState(isWanted ? Qt::Checked : Qt::Unchecked);
  lines_->addItem(item);
}

std::vector<core::SetFile> RestorePane::ticked() const {
  std::vector<core::SetFile> files;
  for (int row = 0; row < lines_->count(); ++row)
    if (lines_->item(row)->data(Qt::CheckStateRole).toInt() == Qt::Checked)
      files.push_back(compared_[static_cast<std::size_t>(row)].file);
  return files;
}

void RestorePane::enableButtons() {
  const auto row = static_cast<std::size_t>(lines_->currentRow());
  look_->setEnabled(row < compared_.size() && !compared_[row].file.plate.empty() &&
                    compared_[row].state != core::SetFileState::Unreadable);
  take_->setEnabled(static_cast<int>(compared_.size()) == lines_->count() && !ticked().empty());
}

void RestorePane::lookAtLog() {
  const core::DatedSet& set = *chosenSet();
  const core::SetFile& file = compared_[static_cast<std::size_t>(lines_->currentRow())].file;
  showLog(core::Logbook(core::recordsOfSet(context_.files, set, file)),
          titleOf(file, context_.folders) + QStringLiteral(" – ") + titleOf(set), window());
}

void RestorePane::takeBack() {
  const core::DatedSet set = *chosenSet();
  const std::vector<core::SetFile> files = ticked();
  QStringList names;
  for (const core::SetFile& file : files) names.append(titleOf(file, context_.folders));
  if (!ask(window(), QStringLiteral(" Visszaállítás mentésből !"),
           QStringLiteral("Biztos VISSZAÁLLÍTHATÓ\na(z) %1 mentésből:\n%2 ?")
               .arg(titleOf(set), names.join(QStringLiteral(", "))),
           DefaultAnswer::No))
    return;
  core::TakenBack taken;
  {
    const Step step(this, QStringLiteral("visszaállítás, %1").arg(titleOf(set)),
                    QStringLiteral("Visszaállítva: %1").arg(titleOf(set)));
    taken = core::takeBack(context_.files, context_.folders, context_.safety.copies(), set, files);
  }
  tellTaken(set, taken);
  listSets();
}

void RestorePane::tellTaken(const core::DatedSet& set, const core::TakenBack& taken) {
  core::Travelled news{.name = set.name, .files = {}};
  for (const core::SetFile& file : taken.done) news.files.push_back({file.place, file.kind.recordLength});
  emit context_.news.travelled(news);
  if (!taken.failure) return;
  QStringList done;
  QStringList left;
  for (const core::SetFile& file : taken.done) done.append(titleOf(file, context_.folders));
  for (const core::SetFile& file : taken.left) left.append(titleOf(file, context_.folders));
  const QString words = QStringLiteral("Visszaállítva: %1.\nElmaradt: %2.")
                            .arg(done.join(QStringLiteral(", ")), left.join(QStringLiteral(", ")));
  tell(window(), failureText(*taken.failure, {.failed = words, .unsure = words}));
}

void openRestoreScreen(Context& context, QWidget* parent) {
  QDialog screen(parent);
  screen.setObjectName(QStringLiteral("RestoreScreen"));
  screen.setWindowTitle(QStringLiteral("Visszaállítás mentésből"));
  auto* layout = new QVBoxLayout(&screen);
  auto* pane = new RestorePane(context, &screen);
  pane->layout()->setContentsMargins({});
  layout->addWidget(pane, 1);
  addClosing(screen, *layout);
  makeAccessible(screen);
  new UndoLine(context, screen, *layout, [](const core::Travelled&) {});
  keepWithinReach(screen);
  openInTheMiddle(screen, kWishedSteps * gridStep());
  screen.exec();
}

}  // namespace tarvik::ui
