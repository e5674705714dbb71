#pragma once

#include <QApplication>
#include <QEvent>
#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace tarvik::test {

/// A message box as a person saw it.
struct SeenBox {
  QString title;
  QString text;
  QMessageBox::Icon icon;
  QMessageBox::StandardButton enter;   ///< what Enter answers
  QMessageBox::StandardButton escape;  ///< what Escape answers

  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

/// Answers the message boxes that a test brings up, in order, and keeps what they said. A box past the
/// script is kept too and answered with its Escape button.
class BoxScript : public QObject {
 public:
  explicit BoxScript(QList<QMessageBox::StandardButton> answers = {}) : answers_(std::move(answers)) {
    qApp->installEventFilter(this);
  }

  QList<SeenBox> seen;

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (box != nullptr && event->type() == QEvent::Show) answer(box);
    return false;
  }

 private:
  void answer(QMessageBox* box) {
    seen.append({box->windowTitle(), box->text(), box->icon(), box->standardButton(box->defaultButton()),
                 box->standardButton(box->escapeButton())});
    QAbstractButton* button = answers_.isEmpty() ? box->escapeButton() : box->button(answers_.takeFirst());
    if (button == nullptr) button = box->buttons().first();
    QTimer::singleShot(0, button, &QAbstractButton::click);
  }

  QList<QMessageBox::StandardButton> answers_;
};

/// The boxes of the system as a test expects them.
inline SeenBox errorBox(const QString& title, const QString& text) {
  return {title, text, QMessageBox::Critical, QMessageBox::NoButton, QMessageBox::NoButton};
}
inline SeenBox questionBox(const QString& title, const QString& text, QMessageBox::StandardButton enter) {
  return {title, text, QMessageBox::Question, enter, QMessageBox::No};
}

}  // namespace tarvik::test

namespace QTest {
template <>
inline char* toString(const QList<tarvik::test::SeenBox>& boxes) {
  QString all;
  for (const auto& box : boxes)
    all += QStringLiteral("[%1|%2|%3|%4|%5]")
               .arg(box.title, box.text)
               .arg(box.icon)
               .arg(box.enter)
               .arg(box.escape);
  return qstrdup(all.toUtf8().constData());
}
}  // namespace QTest
