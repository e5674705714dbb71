#include "ui/windows/reminder_parts.h"

#include <QLabel>
#include <algorithm>

#include "ui/base/message_boxes.h"
#include "ui/lists/list_delegate.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_view.h"

namespace tarvik::ui {
namespace {

// A date, a text of 40 characters and a plate.
constexpr int kReminderCharacters = 70;

}  // namespace

TextListModel* prepareReminderList(ListView* view, const QStringList& headers) {
  auto* rows = new TextListModel(headers, view);
  view->setModel(rows);
  layOutList(*view, {"9999.99.99.", "", "WWWWWWWW"});
  view->setMinimumWidth(
      std::max(view->minimumWidth(), kReminderCharacters * view->fontMetrics().averageCharWidth()));
  new ListHint(*view, QStringLiteral("Nincs figyelmeztetés."));
  return rows;
}

std::vector<TextRow> toTextRows(const std::vector<reminders::ReminderRow>& rows) {
  std::vector<TextRow> texts;
  for (const reminders::ReminderRow& row : rows)
    texts.push_back({.cells = {toQt(row.date), toQt(row.text), toQt(row.plate)}, .record = toQt(row.record)});
  return texts;
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

void UncheckedTold::tell(QWidget* screen, const std::vector<reminders::UncheckedReminder>& found) {
  QStringList news;
  for (const reminders::UncheckedReminder& reminder : found) {
    if (std::ranges::find(told_, reminder) != told_.end()) continue;
    told_.push_back(reminder);
    news << (reminder.text.empty() ? QStringLiteral("(szöveg nélkül)") : toQt(reminder.text));
  }
  if (news.isEmpty()) return;
  tellError(screen, QStringLiteral(" H i b a !"),
            QStringLiteral("Nem ellenőrizhető figyelmeztetés, az esedékessége túl nagy szám:\n") +
                news.join(QLatin1Char('\n')) +
                QStringLiteral("\n\nA többit a program ellenőrzi. Töröld ezt, és vedd fel újra!"));
}

}  // namespace tarvik::ui
