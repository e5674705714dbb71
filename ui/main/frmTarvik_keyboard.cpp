#include <QShortcut>

#include "ui/look/access.h"
#include "ui/main/frmTarvik.h"
#include "ui/windows/chart_panel.h"
#include "ui_frmTarvik.h"

// The keys of the main screen beyond those of its controls.

namespace tarvik::ui {

void frmTarvik::setUpKeyboard() {
  takeOutOfUse(*ui_->Command1);
  openWithF10(*menuBar());
  for (QWidget* owner : {static_cast<QWidget*>(ui_->cmdGrafikon), static_cast<QWidget*>(menuBar())})
    owner->installEventFilter(this);
  onKey(Qt::Key_F6, this, &frmTarvik::jump);
  onKey(Qt::CTRL | Qt::Key_L, this, &frmTarvik::jump);
  for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
    onKey(enter, ui_->FrameSzürö, &frmTarvik::listFiltered);
  onKey(Qt::Key_Escape, ui_->FrameSzürö, &frmTarvik::closeFilter);
}

void frmTarvik::onKey(const QKeySequence& keys, QWidget* within, void (frmTarvik::*handler)()) {
  auto* key = new QShortcut(keys, within);
  key->setContext(Qt::WidgetWithChildrenShortcut);
  connect(key, &QShortcut::activated, this, handler);
}

// The menu has the same letter for the tyres; the toolkit would go from one to the other and do nothing.
bool frmTarvik::takesLetterOfChart(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Shortcut) return false;
  const QKeySequence letter = QKeySequence::mnemonic(ui_->cmdGrafikon->text());
  if (static_cast<QShortcutEvent*>(event)->key() != letter) return false;
  if (watched != ui_->cmdGrafikon && watched != menuBar()) return false;
  ui_->cmdGrafikon->click();
  return true;
}

// From the fields to what fills the middle of the screen, the list or the chart over it, and back.
void frmTarvik::jump() {
  QWidget* const here = focusWidget();
  if (here != nullptr && ui_->logbookArea->isAncestorOf(here)) {
    const bool canReturn = lastField_ && lastField_->isVisible() && lastField_->isEnabled();
    return (canReturn ? lastField_.data() : ui_->txKmOra)->setFocus(Qt::ShortcutFocusReason);
  }
  lastField_ = here;
  auto* chart = ui_->logbookArea->findChild<ChartPanel*>();
  (chart->isVisible() ? static_cast<QWidget*>(chart) : ui_->ListView1)->setFocus(Qt::ShortcutFocusReason);
}

void frmTarvik::openFilter() {
  filterOpener_ = focusWidget();
  ui_->FrameSzürö->show();
  for (QRadioButton* option : {ui_->opSzürö_0, ui_->opSzürö_1, ui_->opSzürö_2})
    if (option->isChecked()) option->setFocus(Qt::ShortcutFocusReason);
}

void frmTarvik::listFiltered() {
  ui_->DTPSzürö->interpretText();
  ui_->cmdSzürés->click();
}

void frmTarvik::closeFilter() {
  ui_->FrameSzürö->hide();
  if (filterOpener_) filterOpener_->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace tarvik::ui
