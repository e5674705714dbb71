#include "ui/look/undo_line.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <utility>

#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/look/day_field.h"

namespace tarvik::ui {
namespace {

const QString kUndo = QStringLiteral("&Visszavonás");
const QString kRedo = QStringLiteral("Ú&jra");

// The texts of a person stand in a step's name: an & in them marks no letter of the menu.
QString named(const QString& item, const std::string& step) {
  if (step.empty()) return item;
  return item + QStringLiteral(": ") + toQt(step).replace(QLatin1Char('&'), QLatin1String("&&"));
}

bool isUndoKey(const QKeyEvent& key) {
  return key.keyCombination() == (Qt::CTRL | Qt::Key_Z);
}

bool isRedoKey(const QKeyEvent& key) {
  return key.keyCombination() == (Qt::CTRL | Qt::Key_Y) ||
         key.keyCombination() == (Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
}

// A day's and a drop-down's text is a field inside of it.
QLineEdit* fieldOf(QObject* part) {
  if (auto* field = qobject_cast<QLineEdit*>(part)) return field;
  return part->findChild<QLineEdit*>();
}

QString filesOf(const std::vector<std::string>& paths) {
  QStringList names;
  for (const std::string& path : paths) names.append(toQt(path));
  return names.join(QLatin1Char('\n'));
}

const QString kNoCopy = QStringLiteral("A mai mentés nem készült el, a módosítás viszont megtörtént.");
const QString kUnsureCopy =
    QStringLiteral("A mai mentés lehet, hogy nem készült el, a módosítás viszont megtörtént.");

// The first is told with its cause. A vehicle list takes the logbooks of its vehicles along.
QString leftOutText(const std::vector<core::Failure>& leftOut) {
  std::vector<std::string> paths;
  for (const core::Failure& failure : leftOut) paths.push_back(failure.file());
  QString words = QStringLiteral("A mai mentésből kimaradt:\n") + filesOf(paths);
  const auto isVehicleList = [](const std::string& path) {
    return path.ends_with(core::kSharedFiles.front().name);
  };
  if (std::ranges::any_of(paths, isVehicleList))
    words += QStringLiteral("\nés ezzel minden napló, amelynek ez a lista mondja meg a rendszámát");
  words += QStringLiteral("\n\nA módosítás megtörtént.");
  return failureText(leftOut.front(), {.failed = words, .unsure = words});
}

// The change itself went through, so it is told behind it.
void tellCopy(Context& context) {
  core::DatedCopies& copies = context.safety.copies();
  QString text;
  if (const std::optional<core::Failure> failure = copies.takeFailure())
    text = failureText(*failure, {.failed = kNoCopy, .unsure = kUnsureCopy});
  else if (const std::vector<core::Failure> leftOut = copies.takeLeftOut(); !leftOut.empty())
    text = leftOutText(leftOut);
  if (text.isEmpty()) return;
  QMetaObject::invokeMethod(
      qApp, [text] { tell(QApplication::activeWindow(), text); }, Qt::QueuedConnection);
}

}  // namespace

UndoLine::UndoLine(Context& context, QWidget& screen, QBoxLayout& layout, Follow follow)
    : QObject(&screen),
      context_(context),
      screen_(screen),
      follow_(std::move(follow)),
      line_(new QLabel(&screen)) {
  line_->setObjectName(QStringLiteral("lbTortent"));
  line_->setWordWrap(true);
  line_->hide();
  layout.addWidget(line_);
  addItem(undo_, QStringLiteral("mnuVisszavonas"), {Qt::CTRL | Qt::Key_Z}, Direction::Back);
  addItem(redo_, QStringLiteral("mnuUjra"), {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z},
          Direction::Forth);
  connect(&context_.news, &ChangeNews::stepsChanged, this, &UndoLine::showSteps);
  connect(&context_.news, &ChangeNews::travelled, this, [this](const core::Travelled& travelled) {
    guarded(&screen_, [&] { follow_(travelled); }, {.failed = QStringLiteral("A lista nem teljes.")});
  });
  qApp->installEventFilter(this);
  showSteps();
}

void UndoLine::addItem(QAction*& item, const QString& name, const QList<QKeySequence>& keys,
                       Direction direction) {
  item = new QAction(this);
  item->setObjectName(name);
  item->setShortcuts(keys);
  screen_.addAction(item);
  connect(item, &QAction::triggered, this,
          [this, direction] { guarded(&screen_, [&] { travel(direction); }); });
}

UndoLine* UndoLine::of(QWidget* part) {
  for (QWidget* screen = part->window(); screen != nullptr;
       screen = screen->parentWidget() != nullptr ? screen->parentWidget()->window() : nullptr)
    if (auto* line = screen->findChild<UndoLine*>(QString(), Qt::FindDirectChildrenOnly)) return line;
  return nullptr;
}

void UndoLine::travel(Direction direction) {
  core::History& history = context_.safety.history();
  const bool isBack = direction == Direction::Back;
  if (!(isBack ? history.canUndo() : history.canRedo())) return;
  const core::Travelled travelled = isBack ? history.undo(context_.files) : history.redo(context_.files);
  emit context_.news.travelled(travelled);
  say(isBack ? QStringLiteral("Visszavonva: %1 – újra: Ctrl+Y").arg(toQt(travelled.name))
             : QStringLiteral("Újra megtéve: %1 – visszavonás: Ctrl+Z").arg(toQt(travelled.name)));
  emit context_.news.stepsChanged();
  tellHalf(travelled, direction);
  tellCopy(context_);
}

void UndoLine::tellHalf(const core::Travelled& travelled, Direction direction) {
  if (!travelled.failure) return;
  std::vector<std::string> done;
  for (const core::TravelledFile& file : travelled.files) done.push_back(file.path);
  const QString what =
      direction == Direction::Back ? QStringLiteral("Visszavonva:\n%1") : QStringLiteral("Újra megtéve:\n%1");
  QString words = what.arg(filesOf(done));
  if (!travelled.left.empty()) words += QStringLiteral("\n\nElmaradt:\n") + filesOf(travelled.left);
  tell(&screen_, failureText(*travelled.failure,
                             {.failed = words, .unsure = words + QStringLiteral("\n\n") + kLookAtTheList}));
}

void UndoLine::showSteps() {
  const core::History& history = context_.safety.history();
  undo_->setText(named(kUndo, history.undoName()));
  undo_->setEnabled(history.canUndo());
  redo_->setText(named(kRedo, history.redoName()));
  redo_->setEnabled(history.canRedo());
}

// A screen that closes after its change leaves the words on the one below it.
void UndoLine::say(const QString& what) {
  showOnLine(what);
  if (screen_.parentWidget() == nullptr) return;
  if (UndoLine* below = of(screen_.parentWidget())) below->say(what);
}

void UndoLine::showOnLine(const QString& what) {
  line_->setText(what);
  line_->show();
  QAccessibleEvent heard(line_, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

void UndoLine::forgetTyping() {
  for (DayField* day : screen_.findChildren<DayField*>()) day->keep();
  for (QLineEdit* field : screen_.findChildren<QLineEdit*>()) {
    if (!field->isUndoAvailable() && !field->isRedoAvailable()) continue;
    const int cursor = field->cursorPosition();
    field->setText(field->text());
    field->setCursorPosition(cursor);
  }
}

// A field would take the keys whether it has anything to undo or not. A day has no typing that Qt could take
// back, and Ctrl+Y is not every desktop's key.
bool UndoLine::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || !watched->isWidgetType()) return false;
  if (static_cast<QWidget*>(watched)->window() != &screen_) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool isUndo = isUndoKey(key);
  if (!isUndo && !isRedoKey(key)) return false;
  if (auto* day = qobject_cast<DayField*>(watched)) {
    if (isUndo && day->takeBack()) event->accept();
    return true;
  }
  QLineEdit* const field = fieldOf(watched);
  if (field == nullptr || (isUndo && field->isUndoAvailable())) return false;
  if (isUndo || !field->isRedoAvailable()) return true;
  if (key.matches(QKeySequence::Redo)) return false;
  field->redo();
  event->accept();
  return true;
}

Step::Step(QWidget* part, const QString& name, QString done)
    : line_(UndoLine::of(part)), done_(std::move(done)) {
  if (line_ != nullptr) action_.emplace(line_->context().safety.history(), toLogic(name));
}

Step::~Step() {
  if (line_ == nullptr) return;
  const bool hasChanged = action_->hasChanged();
  action_.reset();
  if (!hasChanged) return;
  emit line_->context().news.stepsChanged();
  line_->forgetTyping();
  line_->say(done_ + QStringLiteral(" – visszavonás: Ctrl+Z"));
  tellCopy(line_->context());
}

}  // namespace tarvik::ui
