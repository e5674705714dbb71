#include <QAccessible>
#include <QTest>

#include "ui/controls/list_view.h"
#include "ui/models/text_list_model.h"

using namespace tarvik::ui;

namespace {

QString nameOf(const QAccessibleInterface* part) {
  return part == nullptr ? QStringLiteral("nothing") : part->text(QAccessible::Name);
}

QStringList namesOf(const QAccessibleInterface& list) {
  QStringList names;
  for (int child = 0; child < list.childCount(); ++child) names.append(nameOf(list.child(child)));
  return names;
}

// A list of two columns and the record number, shown, with the rows that were chosen.
struct Shown {
  Shown() : model({QStringLiteral("Dátum"), QStringLiteral("Szöveg")}) {
    view.setModel(&model);
    view.onRowChosen([this](int row) {
      chosen.append(row);
      return true;
    });
    model.setRows({{{"2013.07.05.", "Olaj      "}, "4"}, {{"2013.07.06.", "Gumi      "}, "7"}});
    view.show();
    view.setFocus();
    view.activateWindow();
    if (!QTest::qWaitForWindowActive(&view)) qFatal("the list does not come to the front");
  }
  QAccessibleInterface& tree() { return *QAccessible::queryAccessibleInterface(&view); }
  QAccessibleTableInterface& table() { return *tree().tableInterface(); }

  TextListModel model;
  ListView view;
  QList<int> chosen;
};

}  // namespace

class ListAccessibleTest : public QObject {
  Q_OBJECT

 private slots:
  void is_a_table_of_the_shown_columns_without_padding() {
    Shown list;
    QCOMPARE(list.tree().role(), QAccessible::Table);
    QCOMPARE(namesOf(list.tree()),
             QStringList({"Dátum", "Szöveg", "2013.07.05.", "Olaj", "2013.07.06.", "Gumi"}));
    QCOMPARE(list.table().columnCount(), 2);
    QCOMPARE(nameOf(list.table().cellAt(1, 1)), QStringLiteral("Gumi"));
    QCOMPARE(list.table().cellAt(1, 2), nullptr);
    QCOMPARE(list.table().cellAt(2, 0), nullptr);
  }

  void every_part_knows_its_place() {
    Shown list;
    for (int child = 0; child < list.tree().childCount(); ++child)
      QCOMPARE(list.tree().indexOfChild(list.tree().child(child)), child);
  }

  void the_keyboard_is_where_the_list_says() {
    Shown list;
    list.view.setCurrentIndex(list.model.index(0, 0));
    QTest::keyClick(&list.view, Qt::Key_Down);
    QCOMPARE(nameOf(list.tree().focusChild()), QStringLiteral("2013.07.06."));
    QVERIFY(list.table().cellAt(1, 0)->state().focused);
    QVERIFY(!list.table().cellAt(0, 0)->state().focused);
  }

  void a_selection_chooses_the_row() {
    Shown list;
    QVERIFY(list.table().selectRow(1));
    QCOMPARE(list.chosen, QList<int>{1});
    QCOMPARE(list.table().selectedRows(), QList<int>{1});
    QVERIFY(!list.table().selectRow(2));
  }

  void a_pressed_cell_chooses_its_row_and_chooses_it_again() {
    Shown list;
    for (int times = 1; times <= 2; ++times) {
      list.table().cellAt(1, 0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
      QCOMPARE(list.chosen.size(), times);
      QCOMPARE(list.chosen.last(), 1);
    }
  }

  void a_heading_sorts_only_where_headings_sort() {
    Shown list;
    QVERIFY(list.tree().child(1)->actionInterface()->actionNames().isEmpty());
    list.view.sortByHeaderClicks();
    list.tree().child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(nameOf(list.table().cellAt(0, 1)), QStringLiteral("Gumi"));
  }

  void a_cell_under_a_point_is_found() {
    Shown list;
    const QRect place = list.table().cellAt(1, 1)->rect();
    QCOMPARE(nameOf(list.tree().childAt(place.center().x(), place.center().y())), QStringLiteral("Gumi"));
    const QRect heading = list.tree().child(0)->rect();
    QCOMPARE(nameOf(list.tree().childAt(heading.center().x(), heading.center().y())),
             QStringLiteral("Dátum"));
  }

  void new_rows_take_the_place_of_the_old_ones() {
    Shown list;
    QCOMPARE(nameOf(list.table().cellAt(0, 1)), QStringLiteral("Olaj"));
    list.model.setRows({{{"2014.01.01.", "Szűrő"}, "1"}});
    QCOMPARE(namesOf(list.tree()), QStringList({"Dátum", "Szöveg", "2014.01.01.", "Szűrő"}));
  }

  void a_mark_is_told_as_checked() {
    Shown list;
    list.model.setRows({{{"2014.01.01.", "fent"}, "1", true}, {{"2014.01.01.", "lent"}, "2", false}});
    QVERIFY(list.table().cellAt(0, 0)->state().checked);
    QVERIFY(list.table().cellAt(1, 0)->state().checkable);
    QVERIFY(!list.table().cellAt(1, 0)->state().checked);
  }
};

QTEST_MAIN(ListAccessibleTest)
#include "list_accessible_test.moc"
