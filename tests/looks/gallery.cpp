#include "tests/looks/gallery.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTest>
#include <QToolTip>
#include <QTreeView>
#include <QVBoxLayout>
#include <functional>

#include "ui/look/day_field.h"
#include "ui/look/editable_box.h"
#include "ui/look/look.h"
#include "ui/look/result_label.h"

namespace tarvik::looks {
namespace {

constexpr QSize kSheet(1000, 1080);
constexpr int kGap = 10;

// Parts one after the other, in lines.
class Sheet {
 public:
  explicit Sheet(double scale) : picture_(kSheet * scale, QImage::Format_RGB32) {
    picture_.setDevicePixelRatio(scale);
    picture_.fill(QApplication::palette().color(QPalette::Window));
  }

  void add(QWidget& part) { add(part.grab()); }
  void add(const QPixmap& part) {
    add(part.deviceIndependentSize().toSize(),
        [&](QPainter& painter, const QRect& place) { painter.drawPixmap(place, part); });
  }
  void add(QSize size, const std::function<void(QPainter& painter, const QRect& place)>& paint) {
    if (pen_.x() + size.width() > kSheet.width()) startLine();
    QPainter painter(&picture_);
    paint(painter, {pen_, size});
    pen_.rx() += size.width() + kGap;
    highest_ = std::max(highest_, size.height());
  }
  void startLine() {
    pen_ = {kGap, pen_.y() + highest_ + kGap};
    highest_ = 0;
  }
  const QImage& picture() const { return picture_; }

 private:
  QImage picture_;
  QPoint pen_{kGap, kGap};
  int highest_ = 0;
};

// A window with the keyboard, and parts in it that are photographed one by one.
class Gallery {
 public:
  explicit Gallery(double scale) : sheet_(scale) {
    window_.resize(kSheet);
    window_.show();
    window_.activateWindow();
    if (!QTest::qWaitForWindowActive(&window_)) qFatal("the gallery does not come to the front");
  }

  void addAll();
  const QImage& picture() const { return sheet_.picture(); }

 private:
  template <typename Part, typename... Arguments>
  Part& made(const Arguments&... arguments) {
    return *new Part(arguments..., &window_);
  }
  template <typename Part>
  Part& withLook(Part& part, const char* look) {
    part.setProperty("look", look);
    return part;
  }

  void add(QWidget& part) {
    part.show();
    add(part, part.sizeHint().expandedTo(part.minimumSizeHint()));
  }
  void add(QWidget& part, QSize size) {
    part.show();
    part.resize(size);
    QCoreApplication::sendPostedEvents();
    sheet_.add(part);
  }
  void addStates(QWidget& part);
  void addButtons();
  void addFields();
  void addBoxes();
  void addFrames();
  void addLists();
  void addHeadings();
  void addMenus();
  void addRest();

  QWidget window_;
  Sheet sheet_;
};

void Gallery::addStates(QWidget& part) {
  add(part);
  part.setAttribute(Qt::WA_UnderMouse);
  add(part);
  if (auto* button = qobject_cast<QAbstractButton*>(&part)) {
    button->setDown(true);
    add(part);
    button->setDown(false);
  }
  part.setAttribute(Qt::WA_UnderMouse, false);
  part.setFocus(Qt::TabFocusReason);
  add(part);
  part.clearFocus();
  part.setEnabled(false);
  add(part);
}

void Gallery::addButtons() {
  addStates(made<QPushButton>(QStringLiteral("Adatok &rögzítése")));
  addStates(withLook(made<QPushButton>(QStringLiteral("&Fő művelet")), "main"));
  addStates(withLook(made<QPushButton>(QStringLiteral("Ma")), "short"));
  addStates(made<QPushButton>(QStringLiteral("Ok")));
  sheet_.startLine();
  for (const bool isOn : {false, true}) {
    auto& box = made<QCheckBox>(QStringLiteral("&Tele tank"));
    box.setChecked(isOn);
    addStates(box);
    auto& option = made<QRadioButton>(QStringLiteral("&Összes"));
    option.setChecked(isOn);
    addStates(option);
    sheet_.startLine();
  }
}

void Gallery::addFields() {
  addStates(made<QLineEdit>(QStringLiteral("85400")));
  auto& hinted = made<QLineEdit>();
  hinted.setPlaceholderText(QStringLiteral("85 400"));
  addStates(hinted);
  auto& result = made<QLineEdit>(QStringLiteral("csak olvasható"));
  result.setReadOnly(true);
  addStates(result);
  sheet_.startLine();
  for (const bool hasFrame : {true, false}) {
    auto& figure = made<QLineEdit>(QStringLiteral("1234567"));
    figure.setFrame(hasFrame);
    figure.setProperty("longest", QStringLiteral("1234567"));
    addStates(figure);
  }
  auto& flat = made<QLineEdit>(QStringLiteral("keret nélkül"));
  flat.setFrame(false);
  add(flat);
  sheet_.startLine();
  add(withLook(made<QLabel>(QStringLiteral("Címsor")), "heading"));
  add(withLook(made<QLabel>(QStringLiteral("lejárt")), "overdue"));
  auto& dimmed = made<QLineEdit>(QStringLiteral("12345"));
  ui::showDimmed(dimmed, true);
  add(dimmed);
  for (const char* text : {"", "6,8 l / 100 km"}) {
    auto& label = made<ui::ResultLabel>();
    label.setText(QString::fromUtf8(text));
    label.setProperty("longest", QStringLiteral("-2 147 483 648"));
    add(label);
    label.setEnabled(false);
    add(label);
  }
  sheet_.startLine();
}

void Gallery::addBoxes() {
  auto& chosen = made<QComboBox>();
  auto& typed = made<ui::EditableBox>();
  auto& measured = made<QComboBox>();
  auto& frameless = made<ui::EditableBox>();
  measured.setProperty("longest", QStringLiteral("KLM456"));
  frameless.setFrame(false);
  for (QComboBox* box : std::initializer_list<QComboBox*>{&chosen, &typed, &measured, &frameless}) {
    for (const char* item : {"ABC123", "KLM456", "Xy"}) box->addItem(QString::fromUtf8(item));
    box->setCurrentIndex(1);
    addStates(*box);
    box->setEnabled(true);
    box->showPopup();
    add(*box);
    sheet_.add(*box->view()->window());
    box->hidePopup();
  }
  auto& day = made<ui::DayField>();
  day.setDate({2026, 3, 25});
  addStates(day);
  auto& month = made<ui::DayField>();
  month.setDate({2026, 9, 1});
  month.showUpTo(core::DayPart::Month);
  add(month);
  month.calendarWidget()->setSelectedDate(month.date());
  month.calendarWidget()->setCurrentPage(2026, 9);
  add(*month.calendarWidget());
}

void Gallery::addFrames() {
  for (const bool isLong : {false, true}) {
    auto& group = made<QGroupBox>(isLong ? QStringLiteral("Egy csoport címe") : QStringLiteral("Cím"));
    auto* column = new QVBoxLayout(&group);
    column->addWidget(new QLabel(QStringLiteral("Km")));
    column->addWidget(new QPushButton(QStringLiteral("Ft")));
    add(group);
  }
  for (const char* look : {"card", "band", ""}) {
    auto& frame = withLook(made<QFrame>(), look);
    if (frame.property("look") != QStringLiteral("band")) frame.setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(&frame);
    column->addWidget(new QLabel(QStringLiteral("Km")));
    column->addWidget(new QLabel(QStringLiteral("Ft")));
    add(frame);
  }
}

void Gallery::addLists() {
  auto& list = made<QTreeView>();
  QStandardItemModel rows(5, 3);
  rows.setHorizontalHeaderLabels(
      {QStringLiteral("Dátum"), QStringLiteral("Egy hosszú fejléc szövege"), QStringLiteral("Ft")});
  for (int row = 0; row < rows.rowCount(); ++row)
    for (int column = 0; column < rows.columnCount(); ++column)
      rows.setItem(row, column,
                   new QStandardItem(QStringLiteral("%1. sor, %2. oszlop").arg(row).arg(column)));
  list.setModel(&rows);
  list.setRootIsDecorated(false);
  list.setAllColumnsShowFocus(true);
  list.header()->setStretchLastSection(false);
  for (const int column : {1, 2}) list.resizeColumnToContents(column);
  constexpr QSize kList(230, 110);
  add(list, kList);
  list.setFocus();
  list.setCurrentIndex(rows.index(1, 0));
  add(list, kList);
  list.selectionModel()->setCurrentIndex(rows.index(2, 0), QItemSelectionModel::NoUpdate);
  add(list, kList);
  list.header()->setSortIndicator(0, Qt::AscendingOrder);
  list.header()->setSortIndicatorShown(true);
  add(list, kList);
  list.setEnabled(false);
  add(list, kList);
  auto& names = made<QListWidget>();
  names.addItems({QStringLiteral("ABC123"), QStringLiteral("KLM456"), QStringLiteral("XYZ789")});
  names.setFocus();
  names.setCurrentRow(1, QItemSelectionModel::NoUpdate);
  add(names, {120, 90});
  names.setCurrentRow(2);
  add(names, {120, 90});
}

void Gallery::addHeadings() {
  auto& tabs = made<QTabBar>();
  for (const char* name : {"&Autók", "Indulás", "Listák"}) tabs.addTab(QString::fromUtf8(name));
  tabs.setTabEnabled(2, false);
  add(tabs);
  tabs.setFocus();
  window_.setAttribute(Qt::WA_KeyboardFocusChange);
  add(tabs);
  for (const Qt::Orientation direction : {Qt::Horizontal, Qt::Vertical}) {
    auto& bar = made<QScrollBar>(direction);
    const QSize size = QSize(90, 90).boundedTo(
        bar.sizeHint().expandedTo(direction == Qt::Horizontal ? QSize(90, 0) : QSize(0, 90)));
    add(bar, size);
    bar.setValue(40);
    bar.setSliderDown(true);
    add(bar, size);
    bar.setEnabled(false);
    add(bar, size);
  }
}

void Gallery::addMenus() {
  auto& bar = made<QMenuBar>();
  QMenu menu;
  menu.setTitle(QStringLiteral("&Eszközök"));
  menu.addAction(QStringLiteral("&Keresés…"))->setShortcut(QKeySequence::Find);
  menu.addAction(QStringLiteral("&Visszavonás"))->setEnabled(false);
  menu.addSeparator();
  QAction* shown = menu.addAction(QStringLiteral("&Grafikon"));
  shown->setCheckable(true);
  shown->setChecked(true);
  menu.addMenu(QStringLiteral("&Lista"));
  bar.addMenu(&menu);
  bar.addAction(QStringLiteral("Kilépés"))->setEnabled(false);
  bar.addAction(QStringLiteral("&Súgó"));
  add(bar);
  add(menu);
  menu.setActiveAction(shown);
  add(menu);
}

void Gallery::addRest() {
  QToolTip::showText(window_.mapToGlobal(QPoint(20, 20)), QStringLiteral("A teljes szöveg <b>"));
  for (QWidget* part : QApplication::topLevelWidgets())
    if (part->objectName() == QStringLiteral("qtooltip_label") && part->isVisible()) sheet_.add(*part);
  QToolTip::hideText();
  for (const auto sign :
       {QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxWarning,
        QStyle::SP_MessageBoxCritical, QStyle::SP_ToolBarHorizontalExtensionButton}) {
    sheet_.add({2 * 64, 48}, [&](QPainter& painter, const QRect& place) {
      const QIcon icon = window_.style()->standardIcon(sign);
      icon.paint(&painter, {place.topLeft(), QSize(64, 48)});
      painter.drawPixmap(place.topLeft() + QPoint(80, 0), icon.pixmap(20, 20));
    });
  }
}

void Gallery::addAll() {
  addButtons();
  addFields();
  addBoxes();
  addFrames();
  addLists();
  addHeadings();
  addMenus();
  addRest();
}

}  // namespace

void photographGallery(Camera& camera) {
  Gallery gallery(QApplication::primaryScreen()->devicePixelRatio());
  gallery.addAll();
  camera.keep(gallery.picture(), QStringLiteral("gallery"));
}

}  // namespace tarvik::looks
