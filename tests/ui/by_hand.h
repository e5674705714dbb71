#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpontaneKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>
#include <QWindow>
#include <functional>

namespace tarvik::test {

/// Shows a window and waits until it has the keyboard.
inline void bringUp(QWidget& window) {
  window.show();
  if (!QTest::qWaitForWindowActive(&window)) qFatal("a window did not come to the front");
}

/// Scrolls what lies in scroll areas so that a part comes into view, as a person does.
inline void bringIntoView(QWidget& part) {
  for (QWidget* above = part.parentWidget(); above != nullptr; above = above->parentWidget())
    if (auto* area = qobject_cast<QScrollArea*>(above)) area->ensureWidgetVisible(&part);
}

/// Why a person cannot use a part of a screen now; null when they can.
inline const char* outOfReach(const QWidget& part) {
  const QWidget* modal = QApplication::activeModalWidget();
  if (!part.isVisible()) return "is hidden";
  if (part.visibleRegion().isEmpty()) return "is out of sight";
  if (!part.isEnabled()) return "is disabled";
  if (modal != nullptr && modal != part.window()) return "is behind another screen";
  return nullptr;
}

/// Fails the test because of a part of a screen.
inline void failOver(const QWidget& part, const QString& why) {
  QTest::qFail(qPrintable(part.objectName() + QLatin1Char(' ') + why), __FILE__, __LINE__);
}

/// Whether a person can use a part now, if need be by scrolling; fails the test when not.
inline bool isInReach(QWidget& part) {
  bringIntoView(part);
  const char* fault = outOfReach(part);
  if (fault != nullptr) failOver(part, QString::fromLatin1(fault));
  return fault == nullptr;
}

/// Types characters one by one, whatever their alphabet.
inline void typeKeys(QWidget& field, const QString& text) {
  for (const QChar character : text) {
    const bool isAscii = character.unicode() < 128;
    const Qt::Key key = isAscii ? QTest::asciiToKey(character.toLatin1()) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, &field, key, QString(character), Qt::NoModifier);
  }
}

/// Clicks into a field, takes away what it holds and types a text; a proposal that then stands selected
/// behind the text is taken away too. Fails the test when a person could not.
inline void typeInto(QLineEdit& field, const QString& text) {
  if (!isInReach(field)) return;
  if (field.isReadOnly()) return failOver(field, QStringLiteral("takes no text"));
  QTest::mouseClick(&field, Qt::LeftButton);
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&field, Qt::Key_Delete);
  typeKeys(field, text);
  if (field.hasSelectedText()) QTest::keyClick(&field, Qt::Key_Delete);
}
inline void typeInto(QComboBox& field, const QString& text) {
  if (!isInReach(field)) return;
  if (!field.isEditable()) return failOver(field, QStringLiteral("takes no text"));
  typeInto(*field.lineEdit(), text);
}

/// Names the file in an open file dialog by its whole path, at one stroke: what is typed makes a list of
/// proposals pop up.
inline void nameFile(QFileDialog& dialog, const QString& path) {
  dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
}

/// Clicks into a day field, wherever that happens to be, and types a day as it is shown. Fails the test when
/// a person could not.
inline void typeInto(QDateEdit& field, QDate day) {
  if (!isInReach(field)) return;
  QTest::mouseClick(field.findChild<QLineEdit*>(), Qt::LeftButton);
  typeKeys(field, day.toString(QStringLiteral("yyyy.MM.dd.")));
  if (field.date() != day) failOver(field, "does not take " + day.toString(Qt::ISODate));
}

/// Clicks a button, a check box or an option. Fails the test when a person could not.
inline void press(QAbstractButton& button) {
  if (!isInReach(button)) return;
  const bool isWhole = qobject_cast<QPushButton*>(&button) != nullptr;
  const QPoint middle = button.rect().center();
  QTest::mouseClick(&button, Qt::LeftButton, {}, isWhole ? middle : QPoint(8, middle.y()));
}

/// Opens a chooser and clicks one of its entries. Fails the test when a person could not.
inline void choose(QComboBox& chooser, int entry) {
  if (!isInReach(chooser)) return;
  chooser.showPopup();
  QAbstractItemView& entries = *chooser.view();
  const QRect place =
      entries.visualRect(chooser.model()->index(entry, chooser.modelColumn(), chooser.rootModelIndex()));
  QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, place.center());
}

/// Clicks a row of a list, if need be by scrolling. Fails the test when a person could not.
inline void clickRow(QAbstractItemView& list, int row) {
  if (!isInReach(list)) return;
  const QModelIndex index = list.model()->index(row, 0);
  list.scrollTo(index);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
}

/// Clicks the head of a column.
inline void clickHead(const QTreeView& list, int column) {
  const QHeaderView& header = *list.header();
  QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                    {header.sectionViewportPosition(column) + 5, header.height() / 2});
}

/// What a row of a list says, its hidden record number last, the columns parted by bars.
inline QString rowText(const QAbstractItemModel& list, int row) {
  QStringList cells;
  for (int column = 0; column < list.columnCount(); ++column)
    cells << list.index(row, column).data().toString();
  return cells.join(QLatin1Char('|'));
}

/// Brings a page to the front by its tab. Fails the test when a person could not.
inline void openPage(QTabWidget& pages, int page) {
  if (!isInReach(*pages.tabBar())) return;
  QTest::mouseClick(pages.tabBar(), Qt::LeftButton, {}, pages.tabBar()->tabRect(page).center());
}

/// Clicks an item of a menu bar, found by its name. Fails the test when a person could not.
inline void pick(QMenuBar& menu, const char* item) {
  const QString name = QString::fromUtf8(item);
  for (QAction* action : menu.actions()) {
    if (action->objectName() != name) continue;
    if (!isInReach(menu)) return;
    if (!action->isVisible() || !action->isEnabled()) return failOver(menu, name + " cannot be chosen");
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    return QCoreApplication::processEvents();  // a command is carried out once its menu has closed
  }
  failOver(menu, "has no " + name);
}

/// Clicks with the right button, which opens a menu, and acts on that. Fails the test when none opens.
inline void rightClick(QWidget& part, QPoint at, const std::function<void(QMenu&)>& act) {
  bool isOpen = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    isOpen = menu != nullptr;
    if (isOpen) act(*menu);
  });
  QTest::mousePress(&part, Qt::RightButton, {}, at);
  QContextMenuEvent wanted(QContextMenuEvent::Mouse, at, part.mapToGlobal(at));
  QSpontaneKeyEvent::setSpontaneous(&wanted);
  qApp->notify(&part, &wanted);
  QTest::mouseRelease(&part, Qt::RightButton, {}, at);
  if (!isOpen) failOver(part, QStringLiteral("opens no menu"));
}

/// Turns the wheel by a notch over a part, as the system hands it to the part's window; back = towards the
/// person. The part itself may never hear of it. Fails the test when a person could not.
inline void turnWheel(QWidget& part, bool back = true) {
  if (!isInReach(part)) return;
  constexpr int kNotch = 120;
  const QPoint middle = part.visibleRegion().boundingRect().center();
  QWheelEvent wheel(part.mapTo(part.window(), middle), part.mapToGlobal(middle), {},
                    {0, back ? -kNotch : kNotch}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel);
  qApp->notify(part.window()->windowHandle(), &wheel);
}

/// Moves a scroll bar to a position. Fails the test when a person could not.
inline void scrollTo(QScrollBar& bar, int position) {
  if (isInReach(bar)) bar.setSliderPosition(position);
}

}  // namespace tarvik::test
