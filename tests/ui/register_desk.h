#pragma once

#include <memory>

#include "tests/ui/support.h"
#include "ui/lists/list_view.h"

namespace tarvik::test {

/// The screen of a register over a file of its own, opened for ABC-123 of the two cars that there are.
template <typename Screen, core::Record R>
struct RegisterDesk : Desk {
  /// textColumn is the one by which a test knows the rows.
  RegisterDesk(const char* file, const char* list, int textColumn, const std::vector<R>& records)
      : file_(file), list_(list), textColumn_(textColumn) {
    if (!records.empty()) store(records);
    open();
  }

  void store(const std::vector<R>& records) { program.write(file_, bytesOf(records)); }
  void open() {
    screen = std::make_unique<Screen>(context, " ABC-123 ", QStringList{"ABC-123", "DEF-456"}, nullptr);
    bringUp(*screen);
  }
  core::RecordList<R> stored() { return core::loadRecords<R>(files, program / file_); }
  R stored(int number) { return stored().record(number); }
  int storedCount() { return stored().count(); }

  ui::ListView* list() { return part<ui::ListView>(*screen, list_); }
  QString cell(int row, int column) { return list()->model()->index(row, column).data().toString(); }
  QStringList texts() {
    QStringList all;
    for (int row = 0; row < list()->model()->rowCount(); ++row) all << cell(row, textColumn_);
    return all;
  }
  void clickRow(int row) { test::clickRow(*list(), row); }
  QPushButton* button(const char* name) { return part<QPushButton>(*screen, name); }
  bool isEnabled(const char* name) { return button(name)->isEnabled(); }
  void press(const char* name) { test::press(*part<QAbstractButton>(*screen, name)); }
  QString text(const char* name) { return part<QLineEdit>(*screen, name)->text(); }
  void type(const char* name, const QString& text) { typeInto(*part<QLineEdit>(*screen, name), text); }
  /// Presses a key where the keyboard is; where it is then.
  QString key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(screen->focusWidget(), key, keys);
    return screen->focusWidget()->objectName();
  }

  std::unique_ptr<Screen> screen;

 private:
  const char* file_;
  const char* list_;
  int textColumn_;
};

}  // namespace tarvik::test
