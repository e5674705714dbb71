#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QList>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

namespace tarvik::test {

/// A message box as a person saw it.
struct SeenBox {
  QString title;
  QString text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton enter = QMessageBox::NoButton;   ///< what Enter answers
  QMessageBox::StandardButton escape = QMessageBox::NoButton;  ///< what Escape answers

  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

/// What an open box shows. A box with a single button gives it for Enter and Escape alike.
inline SeenBox look(const QMessageBox& box) {
  const auto meaning = [&](const QAbstractButton* button) {
    const auto all = box.buttons();
    if (button == nullptr && all.size() == 1) button = all.first();
    return button == nullptr ? QMessageBox::NoButton
                             : box.standardButton(const_cast<QAbstractButton*>(button));
  };
  return {.title = box.windowTitle(),
          .text = box.text(),
          .icon = box.icon(),
          .buttons = box.standardButtons(),
          .enter = meaning(box.defaultButton()),
          .escape = meaning(box.escapeButton())};
}

/// Answers the message boxes that a test brings up, in order, and keeps what they said. A box past the
/// script is kept too and answered as Escape does. A box that lacks the button of its answer fails the test,
/// and so does an answer that no box asked for.
class BoxScript : public QObject {
 public:
  explicit BoxScript(QList<QMessageBox::StandardButton> answers = {}) : answers_(std::move(answers)) {
    qApp->installEventFilter(this);
  }
  ~BoxScript() override {
    if (!answers_.isEmpty())
      QTest::qFail("a message box that the test answers did not come", __FILE__, __LINE__);
  }

  QList<SeenBox> seen;
  std::function<void(QMessageBox&)> whileOpen = [](QMessageBox&) {};  ///< runs before a box is answered

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (box != nullptr && event->type() == QEvent::Show) answer(*box);
    return false;
  }

 private:
  void answer(QMessageBox& box) {
    seen.append(look(box));
    QAbstractButton* button = nullptr;
    if (!answers_.isEmpty()) {
      button = box.button(answers_.takeFirst());
      if (button == nullptr) QTest::qFail("the box has no such button", __FILE__, __LINE__);
    }
    if (button == nullptr) button = box.escapeButton();
    if (button == nullptr) button = box.buttons().first();
    QTimer::singleShot(0, button, [this, &box, button] {
      whileOpen(box);
      button->click();
    });
  }

  QList<QMessageBox::StandardButton> answers_;
};

/// The boxes of the system as a test expects them.
inline SeenBox errorBox(const QString& title, const QString& text) {
  return {title, text, QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}
inline SeenBox questionBox(const QString& title, const QString& text, QMessageBox::StandardButton enter) {
  return {title, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, enter, QMessageBox::No};
}

}  // namespace tarvik::test

namespace QTest {
template <>
inline char* toString(const tarvik::test::SeenBox& box) {
  return qstrdup(qPrintable(QStringLiteral("[%1|%2|icon %3|buttons %4|enter %5|escape %6]")
                                .arg(box.title, box.text)
                                .arg(box.icon)
                                .arg(box.buttons.toInt())
                                .arg(box.enter)
                                .arg(box.escape)));
}
template <>
inline char* toString(const QList<tarvik::test::SeenBox>& boxes) {
  QString all;
  for (const auto& box : boxes) {
    const std::unique_ptr<char[]> one(toString(box));
    all += QString::fromUtf8(one.get());
  }
  return qstrdup(qPrintable(all));
}
}  // namespace QTest
