#include "ui/lists/search_line.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "core/search.h"
#include "core/text.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_view.h"
#include "ui/look/dialog_parts.h"
#include "ui_search_line.h"

namespace tarvik::ui {
namespace {

bool isEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

QString rowInWords(const ListView& list, int row) {
  QStringList texts;
  for (int column = 0; column < list.shownColumns(); ++column)
    texts.append(list.model()->index(row, column).data().toString());
  texts.removeAll(QString());
  return texts.join(QStringLiteral(", "));
}

}  // namespace

SearchLine::SearchLine(ListView& list, TextOf textOf, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::SearchLine>()),
      list_(list),
      textOf_(std::move(textOf)),
      item_(new QAction(QStringLiteral("&Keresés…"), &list)) {
  ui_->setupUi(this);
  layout()->setContentsMargins({});
  ui_->lbTalalat->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("nincs találat")));
  list_.setMinimumWidth(std::max(list_.minimumWidth(), minimumSizeHint().width()));
  putBeforeList();
  connectParts();
  addKeys();
}

SearchLine::~SearchLine() = default;

void SearchLine::putBeforeList() {
  QWidget* before = list_.previousInFocusChain();
  for (QWidget* part : {static_cast<QWidget*>(ui_->txKereses), static_cast<QWidget*>(ui_->cmdElozo),
                        static_cast<QWidget*>(ui_->cmdKovetkezo), static_cast<QWidget*>(ui_->cmdKeresesVege),
                        static_cast<QWidget*>(&list_)})
    setTabOrder(std::exchange(before, part), part);
}

void SearchLine::connectParts() {
  onSignal(ui_->txKereses, &QLineEdit::textChanged, this, &SearchLine::search);
  connect(ui_->cmdElozo, &QPushButton::clicked, this, [this] { step(-1); });
  connect(ui_->cmdKovetkezo, &QPushButton::clicked, this, [this] { step(1); });
  connect(ui_->cmdKeresesVege, &QPushButton::clicked, this, &SearchLine::goBack);
  for (QWidget* part : {window(), static_cast<QWidget*>(&list_), static_cast<QWidget*>(ui_->txKereses)})
    part->installEventFilter(this);
  connect(list_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { place_.isKept = false; });
  // The list is emptied before it is filled anew.
  const auto anew = [this] {
    place_.isKept = false;
    if (isVisible()) QTimer::singleShot(0, this, [this] { guarded(window(), [this] { searchAgain(); }); });
  };
  connect(list_.model(), &QAbstractItemModel::modelReset, this, anew);
  connect(list_.model(), &QAbstractItemModel::layoutChanged, this, anew);
}

void SearchLine::addKeys() {
  item_->setObjectName(QStringLiteral("mnuKereses"));
  item_->setShortcut(Qt::CTRL | Qt::Key_F);
  list_.addAction(item_);
  onSignal(item_, &QAction::triggered, this, &SearchLine::open);
  const auto on = [this](const QKeySequence& keys, int by) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, by] { step(by); });
  };
  on(Qt::Key_F3, 1);
  on(Qt::SHIFT | Qt::Key_F3, -1);
}

// An assistive tool that chose the item leaves the menu open.
void SearchLine::open() {
  if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  if (isHidden()) {
    place_ = {.keyboard = window()->focusWidget(),
              .row = list_.currentIndex(),
              .scrolled = list_.verticalScrollBar()->value(),
              .isKept = true};
    emit opening();
    QWidget::show();
    search();
  }
  ui_->txKereses->setFocus(Qt::ShortcutFocusReason);
  ui_->txKereses->selectAll();
}

void SearchLine::close() {
  hide();
  found_.clear();
  show(-1);
}

// The keyboard goes first: Qt would take it to the next part.
void SearchLine::goBack() {
  const Place place = std::exchange(place_, {});
  isToStandOn_ = false;
  const QWidget* const here = window()->focusWidget();
  const bool isHere = here == &list_ || isAncestorOf(here);
  QWidget* const before = place.keyboard && place.keyboard->isVisible() ? place.keyboard.data() : &list_;
  if (place.isKept) list_.standOn(place.row.row());
  if (isHere) (place.isKept ? before : &list_)->setFocus(Qt::OtherFocusReason);
  close();
  if (place.isKept) list_.verticalScrollBar()->setValue(place.scrolled);
}

void SearchLine::search() {
  if (isHidden()) return;
  found_ = core::rowsThatHold(toLogic(ui_->txKereses->text()), list_.model()->rowCount(), textOf_);
  show(found_.empty() ? -1 : 0);
}

// The row that was found stays the found one, wherever it stands by now; the view stays where it is.
void SearchLine::searchAgain() {
  found_ = core::rowsThatHold(toLogic(ui_->txKereses->text()), list_.model()->rowCount(), textOf_);
  const auto again =
      std::ranges::find_if(found_, [this](int row) { return recordOfRow(list_, row) == record_; });
  current_ = again == found_.end() ? -1 : static_cast<int>(again - found_.begin());
  tellCount(current_);
}

void SearchLine::step(int by) {
  const int count = static_cast<int>(found_.size());
  if (count == 0) return;
  const int from = current_ < 0 && by > 0 ? -1 : std::max(current_, 0);
  show((from + by + count) % count);
}

void SearchLine::show(int place) {
  current_ = place;
  isToStandOn_ = place >= 0;
  const int row = place < 0 ? -1 : found_[static_cast<std::size_t>(place)];
  record_ = row < 0 ? QString() : recordOfRow(list_, row);
  list_.showFound(record_);
  if (row >= 0) list_.scrollTo(list_.model()->index(row, 0));
  tellCount(place);
}

void SearchLine::tellCount(int place) {
  const QString count = numberText(static_cast<int>(found_.size()));
  const bool isWanted = !core::trimmed(toLogic(ui_->txKereses->text())).empty();
  const QString nothing = isWanted ? QStringLiteral("nincs találat") : QString();
  const QString current = QStringLiteral("%1 / %2").arg(numberText(place + 1), count);
  ui_->lbTalalat->setText(found_.empty() ? nothing
                          : place < 0    ? QStringLiteral("%1 találat").arg(count)
                                         : current);
  ui_->lbTalalat->setAccessibleName(
      place < 0 ? QString()
                : QStringLiteral("%1. találat, összesen %2: %3")
                      .arg(numberText(place + 1), count,
                           rowInWords(list_, found_[static_cast<std::size_t>(place)])));
  QAccessibleEvent heard(ui_->lbTalalat, QAccessible::Alert);
  if (isVisible()) QAccessible::updateAccessibility(&heard);
}

bool SearchLine::takesFieldKey(const QKeyEvent& key) {
  if (isEnter(key)) step(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
  if (key.key() == Qt::Key_Down) list_.setFocus(Qt::TabFocusReason);
  return isEnter(key) || key.key() == Qt::Key_Down;
}

bool SearchLine::choosesRow(const QKeyEvent& key) {
  if (isHidden() || !isEnter(key) || key.isAutoRepeat() || !list_.currentIndex().isValid()) return false;
  if (list_.chooseCurrent()) close();
  return true;
}

void SearchLine::standOnFound() {
  if (!std::exchange(isToStandOn_, false)) return;
  const QModelIndex row = list_.model()->index(found_[static_cast<std::size_t>(current_)], 0);
  list_.standOn(row.row());
  list_.scrollTo(row);
}

// A click into the list chooses what is under the pointer: nothing moves before.
bool SearchLine::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (watched == &list_ && type == QEvent::FocusIn) {
    if (static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) standOnFound();
    return false;
  }
  if (watched == &list_ && type == QEvent::HideToParent && !isHidden()) close();
  if (type != QEvent::KeyPress) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (watched == ui_->txKereses) return takesFieldKey(key);
  if (watched == &list_) return choosesRow(key);
  const bool isEscape = watched == window() && !isHidden() && key.key() == Qt::Key_Escape;
  if (isEscape) goBack();
  return isEscape;
}

}  // namespace tarvik::ui
