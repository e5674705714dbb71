// The least that a program of this kind does: Qt, a window, a list with the logbook's columns.

#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTreeView>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  QTreeView list;
  QStandardItemModel rows(20, 10);
  for (int row = 0; row < rows.rowCount(); ++row)
    for (int column = 0; column < rows.columnCount(); ++column)
      rows.setItem(row, column, new QStandardItem(QStringLiteral("2013.07.05.")));
  list.setRootIsDecorated(false);
  list.setUniformRowHeights(true);
  list.setModel(&rows);
  window.setCentralWidget(&list);
  window.resize(707, 700);
  window.show();
  return QApplication::exec();
}
