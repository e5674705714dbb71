#pragma once

#include <QLabel>
#include <QObject>
#include <functional>
#include <optional>

#include "core/history.h"
#include "ui/base/context.h"

class QAction;
class QBoxLayout;

namespace tarvik::ui {

/// Lets the changes of a screen be taken back with Ctrl+Z and made again with Ctrl+Y or Ctrl+Shift+Z, and
/// says on a quiet line at its bottom what was done. In a text field that has typing of its own to undo, the
/// keys are the field's.
class UndoLine : public QObject {
  Q_OBJECT

 public:
  /// Reads anew what the screen shows of these files and brings in view what came back.
  using Follow = std::function<void(const core::Travelled& travelled)>;

  /// The line comes below everything in the layout, hidden until there is something to say. It belongs to the
  /// screen.
  UndoLine(Context& context, QWidget& screen, QBoxLayout& layout, Follow follow);

  QAction* undoItem() const { return undo_; }
  QAction* redoItem() const { return redo_; }
  Context& context() const { return context_; }

  /// The line of the screen that a part belongs to, or of the nearest screen below it; null when none has
  /// one.
  static UndoLine* of(QWidget* part);

  /// Says what was done, on the lines of the screens below too.
  void say(const QString& what);
  /// Lets go of what fields could undo: the last thing that was done is a change by now.
  void forgetTyping();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Direction { Back, Forth };
  void addItem(QAction*& item, const QString& name, const QList<QKeySequence>& keys, Direction direction);
  void travel(Direction direction);
  void tellHalf(const core::Travelled& travelled, Direction direction);
  void showSteps();
  void showOnLine(const QString& what);

  Context& context_;
  QWidget& screen_;
  Follow follow_;
  QLabel* line_;
  QAction* undo_ = nullptr;
  QAction* redo_ = nullptr;
};

/// What one action of the person changes while this lives is one step, which can be taken back in one. When
/// something was changed, the screen's line says so at the end.
class Step {
 public:
  /// Of a part of a screen: how the menu names the step ("törlés, 2026.03.21.") and the line what was done
  /// ("Törölve: 2026.03.21. tankolás").
  Step(QWidget* part, const QString& name, QString done);
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;
  ~Step();

 private:
  UndoLine* line_;
  QString done_;
  std::optional<core::History::Action> action_;
};

}  // namespace tarvik::ui
