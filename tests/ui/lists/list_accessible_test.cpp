#include <QAccessible>

#include "tests/ui/by_hand.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_view.h"
#include "ui/lists/text_list_model.h"

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
    view.setFocus();
    tarvik::test::bringUp(view);
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

  // While Qt tells of a row it counts the hidden column too: heads, first row, second row.
  void the_number_that_qt_tells_is_that_of_the_part_beside() {
    struct Telling : ListView {
      void scrollTo(const QModelIndex& index, ScrollHint hint) override {
        count(ofKeyboard);
        ListView::scrollTo(index, hint);
      }
      QRegion visualRegionForSelection(const QItemSelection& selection) const override {
        count(ofSelection);
        return ListView::visualRegionForSelection(selection);
      }
      void count(QList<int>& places) const {
        if (places.isEmpty())
          for (int number = 0; number < 9; ++number) places.append(accessiblePlace(number));
      }
      QList<int> ofKeyboard;
      mutable QList<int> ofSelection;
    };
    Shown list;
    Telling told;
    told.setModel(&list.model);
    told.show();
    told.setCurrentIndex(list.model.index(1, 0));
    const QList<int> places{0, 1, 1, 2, 3, 3, 4, 5, 5};
    QCOMPARE(told.ofKeyboard, places);
    QCOMPARE(told.ofSelection, places);
    QCOMPARE(told.accessiblePlace(4), 4);
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

  void other_rows_are_other_parts_and_a_changed_text_is_not() {
    Shown list;
    const auto partAfter = [&](QAccessibleTableModelChangeEvent::ModelChangeType type) {
      QAccessibleTableModelChangeEvent event(&list.view, type);
      list.table().modelChange(&event);
      return QAccessible::uniqueId(list.table().cellAt(0, 0));
    };
    const QAccessible::Id first = QAccessible::uniqueId(list.table().cellAt(0, 0));
    QCOMPARE(partAfter(QAccessibleTableModelChangeEvent::DataChanged), first);
    QVERIFY(partAfter(QAccessibleTableModelChangeEvent::ModelReset) != first);
  }

  void a_cell_says_what_it_is_and_what_can_be_done_with_it() {
    Shown list;
    QAccessibleInterface* cell = list.table().cellAt(0, 1);
    QCOMPARE(cell->role(), QAccessible::Cell);
    QAccessible::State state = cell->state();
    QVERIFY(state.readOnly && state.focusable && state.selectable);
    QVERIFY(!state.invalid && !state.invisible && !state.selected && !state.focused && !state.checkable);
    list.table().selectRow(0);
    QVERIFY(cell->state().selected);
    QVERIFY(!list.table().cellAt(1, 1)->state().selected);
    QCOMPARE(cell->actionInterface()->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
    cell->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QCOMPARE(list.chosen, QList<int>{0});
    QCOMPARE(cell->text(QAccessible::Description), QString());
    QCOMPARE(cell->parent(), &list.tree());
    QVERIFY(cell->object() == nullptr && cell->child(0) == nullptr && cell->childAt(0, 0) == nullptr);
    QCOMPARE(cell->childCount(), 0);
    QCOMPARE(cell->indexOfChild(cell), -1);
    QCOMPARE(cell->window(), list.tree().window());
  }

  void a_cell_knows_its_row_its_column_and_its_heading() {
    Shown list;
    QAccessibleTableCellInterface* cell = list.table().cellAt(1, 1)->tableCellInterface();
    QCOMPARE(cell->rowIndex(), 1);
    QCOMPARE(cell->columnIndex(), 1);
    QCOMPARE(cell->rowExtent(), 1);
    QCOMPARE(cell->columnExtent(), 1);
    QCOMPARE(cell->columnHeaderCells(), QList<QAccessibleInterface*>{list.tree().child(1)});
    QVERIFY(cell->rowHeaderCells().isEmpty());
    QCOMPARE(cell->table(), &list.tree());
    QVERIFY(!cell->isSelected());
    QCOMPARE(list.table().columnDescription(1), QString("Szöveg"));
    QCOMPARE(list.table().rowDescription(1), QString());
    QVERIFY(list.table().caption() == nullptr && list.table().summary() == nullptr);
  }

  void a_heading_says_what_it_is() {
    Shown list;
    QAccessibleInterface* heading = list.tree().child(1);
    QCOMPARE(heading->role(), QAccessible::ColumnHeader);
    QVERIFY(!heading->state().invalid && !heading->state().invisible);
    QCOMPARE(heading->text(QAccessible::Description), QString());
    const QHeaderView& header = *list.view.header();
    const QRect place(header.sectionViewportPosition(1), 0, header.sectionSize(1), header.height());
    QCOMPARE(heading->rect(), place.translated(header.viewport()->mapToGlobal(QPoint())));
    QVERIFY(heading->tableCellInterface() == nullptr);
    list.view.sortByHeaderClicks();
    QCOMPARE(heading->actionInterface()->actionNames(),
             QStringList(QAccessibleActionInterface::pressAction()));
    heading->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(!list.view.header()->isSortIndicatorShown());
  }

  void what_is_chosen_is_told_by_cells_and_by_rows_and_columns_are_never_chosen() {
    Shown list;
    QCOMPARE(list.table().selectedRowCount(), 0);
    QCOMPARE(list.table().selectedCellCount(), 0);
    list.table().selectRow(1);
    QCOMPARE(list.table().selectedRowCount(), 1);
    QCOMPARE(list.table().selectedCellCount(), 2);
    QCOMPARE(list.table().selectedCells(),
             (QList<QAccessibleInterface*>{list.table().cellAt(1, 0), list.table().cellAt(1, 1)}));
    QVERIFY(list.table().isRowSelected(1) && !list.table().isRowSelected(0));
    QVERIFY(!list.table().unselectRow(1));
    QVERIFY(!list.table().selectColumn(0) && !list.table().unselectColumn(0) &&
            !list.table().isColumnSelected(0));
    QVERIFY(list.table().selectedColumns().isEmpty());
    QCOMPARE(list.table().selectedColumnCount(), 0);
    QVERIFY(!list.table().selectRow(-1));
  }

  void parts_that_are_gone_are_invalid_and_those_out_of_sight_invisible() {
    Shown list;
    QAccessibleInterface* cell = list.table().cellAt(1, 0);
    const QRect place = cell->rect();
    const QRect drawn = list.view.visualRect(list.model.index(1, 0));
    QCOMPARE(place, drawn.translated(list.view.viewport()->mapToGlobal(QPoint())));
    QVERIFY(list.tree().child(-1) == nullptr && list.tree().child(6) == nullptr);
    QVERIFY(list.table().cellAt(-1, 0) == nullptr && list.table().cellAt(0, -1) == nullptr);
    QVERIFY(list.tree().childAt(-5, -5) == nullptr);
    QCOMPARE(list.tree().indexOfChild(&list.tree()), -1);
    list.view.hide();
    QVERIFY(cell->state().invisible && list.tree().child(0)->state().invisible);
    QVERIFY(list.tree().focusChild() == nullptr);
    list.view.show();
    std::vector<TextRow> rows;
    for (int row = 1; row <= 100; ++row) rows.push_back({{"a", "b"}, QString::number(row)});
    list.model.setRows(std::move(rows));
    QVERIFY(!list.table().cellAt(0, 0)->state().invisible);
    QVERIFY(list.table().cellAt(99, 0)->state().invisible);
  }

  void a_mark_is_told_as_checked() {
    Shown list;
    list.model.setRows({{{"2014.01.01.", "fent"}, "1", true}, {{"2014.01.01.", "lent"}, "2", false}});
    QVERIFY(list.table().cellAt(0, 0)->state().checked);
    QVERIFY(list.table().cellAt(1, 0)->state().checkable);
    QVERIFY(!list.table().cellAt(1, 0)->state().checked);
  }
};

TARVIK_SCREEN_TEST(ListAccessibleTest)
#include "list_accessible_test.moc"
