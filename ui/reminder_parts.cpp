#include "ui/reminder_parts.h"

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QStyle>

#include "ui/controls/list_view.h"
#include "ui/dialog_parts.h"
#include "ui/message_boxes.h"
#include "ui/models/text_list_model.h"

namespace tarvik::ui {

// Only a polished part knows the size that it needs, and layouts remember what it asked for before.
void sizeAndCentre(QWidget& dialog) {
  for (const QWidget* part : dialog.findChildren<QWidget*>()) part->ensurePolished();
  for (QLayout* layout : dialog.findChildren<QLayout*>()) layout->invalidate();
  dialog.adjustSize();
  centreOnDisplay(dialog);
}

TextListModel* prepareReminderList(ListView* view, const QStringList& headers) {
  static const QList<int> kCharacters{11, 40, 10};
  auto* rows = new TextListModel(headers, view);
  view->setModel(rows);
  view->setColumnCharacters(kCharacters);
  const int scrollBar = view->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  view->setMinimumWidth(view->header()->length() + scrollBar + 2 * view->frameWidth());
  return rows;
}

// The accessible name says what the label is, so that its text has to be told apart.
void showCaption(QLabel* label, const QString& text) {
  label->setText(text);
  label->setAccessibleDescription(text.trimmed());
}

void tellNothingSelected(QWidget* screen) {
  tellError(screen, QStringLiteral(" H i b a !"),
            QStringLiteral("A listáról nincs kijelőlve\na törölni kívánt sor !"));
}

}  // namespace tarvik::ui
