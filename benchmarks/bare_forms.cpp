// The least that the main screen takes: Qt, the program's libraries, the screen's forms in Qt's own style
// over an empty list, and nothing that makes them work.

#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>

#include "ui_chart_panel.h"
#include "ui_entry_form.h"
#include "ui_frmTarvik.h"
#include "ui_logbook_pane.h"
#include "ui_reminder_switch.h"
#include "ui_result_band.h"
#include "ui_search_line.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  QWidget reminders, entry, logbook, results, search;
  QFrame chart;
  Ui::frmTarvik main;
  main.setupUi(&window);
  Ui::ReminderSwitch().setupUi(&reminders);
  main.plateLayout->addWidget(&reminders);
  Ui::EntryForm().setupUi(&entry);
  main.mainLayout->addWidget(&entry);
  Ui::LogbookPane list;
  list.setupUi(&logbook);
  main.mainLayout->addWidget(&logbook, 1);
  Ui::ResultBand().setupUi(&results);
  list.paneLayout->addWidget(&results);
  Ui::SearchLine().setupUi(&search);
  list.listBand->addWidget(&search);
  Ui::FrmGrafikon().setupUi(&chart);
  list.areaLayout->addWidget(&chart, 0, 0);
  for (QWidget* hidden : {static_cast<QWidget*>(list.FrameSzürö), &search, static_cast<QWidget*>(&chart)})
    hidden->hide();
  QStandardItemModel rows(0, 10);
  list.ListView1->setModel(&rows);
  window.show();
  return QApplication::exec();
}
