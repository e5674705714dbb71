#include "ui/main/main_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "ui/base/about.h"
#include "ui/base/handlers.h"
#include "ui/base/manual.h"
#include "ui/base/menu_entry_action.h"
#include "ui/base/text.h"
#include "ui/look/undo_line.h"
#include "ui/main/logbook_pane.h"
#include "ui/main/reminder_switch.h"
#include "ui/print/list_printer.h"
#include "ui/windows/frmEvesOsszesito.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/restore_pane.h"

namespace tarvik::ui {

MainMenu::MainMenu(Context& context, QMainWindow& screen, const MenuParts& parts, MenuSources sources)
    : QObject(&screen), context_(context), screen_(screen), parts_(parts), sources_(std::move(sources)) {
  connectForm();
  QMenu* tools = screen.menuBar()->addMenu(QStringLiteral("&Eszközök"));
  tools->setObjectName(QStringLiteral("mnuEszkozok"));
  fillTools(*tools);
}

void MainMenu::connectForm() {
  const auto item = [this](const char* name) {
    return screen_.findChild<QAction*>(QString::fromLatin1(name));
  };
  connect(item("mnuKilep"), &QAction::triggered, &screen_, &QWidget::close, Qt::QueuedConnection);
  onMenu(this, item("mnuSetup"), &MainMenu::openSetup);
  onMenu(this, item("mnuGumik"), &MainMenu::openGumik);
  onMenu(this, item("mnuSzerviz"), &MainMenu::openSzerviz);
  onMenu(this, item("mnuPrint"), &MainMenu::print);
}

void MainMenu::fillTools(QMenu& tools) {
  const auto add = [&](const QString& text, const char* name, void (MainMenu::*handler)()) {
    QAction* item = tools.addAction(text);
    item->setObjectName(QString::fromLatin1(name));
    onMenu(this, item, handler);
  };
  tools.addActions({parts_.undo.undoItem(), parts_.undo.redoItem()});
  tools.addSeparator();
  tools.addAction(parts_.logbook.searchItem());
  add(QStringLiteral("Éves &összesítő…"), "mnuEvesOsszesito", &MainMenu::openEvesOsszesito);
  tools.addSeparator();
  tools.addActions(parts_.logbook.exchangeItems());
  tools.addSeparator();
  add(QStringLiteral("Visszaállítá&s mentésből…"), "mnuVisszaallitas", &MainMenu::openRestore);
  addMenuEntryAction(tools, context_);
  tools.addSeparator();
  tools.addAction((new Manual(context_, screen_))->item());
  add(QStringLiteral("A &Tarvik névjegye"), "mnuNevjegy", &MainMenu::openAbout);
}

void MainMenu::openSetup() {
  frmSetup setup(context_, screen_.frameGeometry().topLeft(), &screen_);
  connect(&setup, &frmSetup::vehiclesChanged, this, sources_.setPlates);
  connect(&setup, &frmSetup::reminderTimerWanted, &parts_.reminders, &ReminderSwitch::setChecking);
  setup.exec();
}

void MainMenu::openGumik() {
  frmGumik(context_, sources_.plate(), sources_.plates(), &screen_).exec();
}

void MainMenu::openSzerviz() {
  frmSzerviz(context_, sources_.plate(), sources_.plates(), &screen_).exec();
}

void MainMenu::openEvesOsszesito() {
  if (sources_.refusesBlankPlate(QStringLiteral("Így nem összesíthető..."))) return;
  frmEvesOsszesito(context_, sources_.plate(), &screen_).exec();
}

void MainMenu::openRestore() {
  openRestoreScreen(context_, &screen_);
}

void MainMenu::openAbout() {
  tellAbout(&screen_, context_);
}

void MainMenu::print() {
  printList(context_, toQt(parts_.logbook.listed().plate), parts_.logbook.printedRows(), &screen_);
}

}  // namespace tarvik::ui
