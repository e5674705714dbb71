#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

namespace tarvik::monkey {

/// Looks at the main screen between two acts: what is highlighted is what its buttons act on, and the line
/// over the list, the list, the totals and the chart speak of one logbook.
class Agreement {
 public:
  explicit Agreement(QString folder) : folder_(std::move(folder)) {}

  /// What does not agree, in words for a developer; nothing where all does.
  QStringList faultsOf(const QWidget& screen);

 private:
  void lookAtChoice(const QWidget& screen);
  void lookAtList(const QWidget& screen);
  void lookAtTotals(const QWidget& screen, const QString& listed);
  void lookAtChart(const QWidget& screen, const QString& plate);

  QString folder_;
  QStringList faults_;
  QHash<QString, QString> totals_;  // of each list that was seen, by its line and entries
};

}  // namespace tarvik::monkey
