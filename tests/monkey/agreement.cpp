#include "tests/monkey/agreement.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFile>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>

namespace tarvik::monkey {
namespace {

constexpr qint64 kEntryBytes = 156;
const QString kOfPlate = QStringLiteral(" naplója – ");

template <typename Part>
const Part& part(const QWidget& screen, const QString& name) {
  const auto* found = screen.findChild<Part*>(name);
  if (found == nullptr) qFatal("no %s", qPrintable(name));
  return *found;
}

}  // namespace

QStringList Agreement::faultsOf(const QWidget& screen) {
  faults_.clear();
  lookAtChoice(screen);
  lookAtList(screen);
  return faults_;
}

void Agreement::lookAtChoice(const QWidget& screen) {
  const auto& list = part<QAbstractItemView>(screen, QStringLiteral("ListView1"));
  const auto highlighted = list.selectionModel()->selectedRows().size();
  const bool isChosen = part<QAbstractButton>(screen, QStringLiteral("cmd_del")).isEnabled();
  if (highlighted > 1) faults_ << QStringLiteral("%1 rows are highlighted").arg(highlighted);
  if (isChosen != (highlighted == 1)) faults_ << QStringLiteral("what is highlighted is not what is chosen");
  if (part<QAbstractButton>(screen, QStringLiteral("cmd_modosit")).isEnabled() != isChosen)
    faults_ << QStringLiteral("a row can be deleted and not modified, or the other way");
}

// "ABC123 naplója – teljes lista, 12 bejegyzés", or the warning while another car is chosen.
void Agreement::lookAtList(const QWidget& screen) {
  const QString line = part<QLabel>(screen, QStringLiteral("lbNaplo")).text();
  const QAbstractItemModel& rows = *part<QAbstractItemView>(screen, QStringLiteral("ListView1")).model();
  const QString chosen = part<QComboBox>(screen, QStringLiteral("Combo1")).currentText().trimmed();
  const auto end = line.indexOf(kOfPlate);
  if (end < 0 || line.startsWith(QStringLiteral("A lista "))) return;
  const QString plate = line.first(end);
  if (plate != chosen) faults_ << QStringLiteral("the line says %1, chosen is %2").arg(plate, chosen);
  if (!line.endsWith(QStringLiteral(", %1 bejegyzés").arg(rows.rowCount())))
    faults_ << QStringLiteral("the line says \"%1\", the list has %2 rows").arg(line).arg(rows.rowCount());
  QFile logbook(folder_ + '/' + plate + QStringLiteral("/napiadat.dat"));
  const QByteArray entries = logbook.open(QFile::ReadOnly) ? logbook.readAll() : QByteArray();
  const qint64 stored = entries.size() / kEntryBytes;
  if (line.contains(QStringLiteral("teljes lista")) && rows.rowCount() != stored)
    faults_ << QStringLiteral("the list has %1 rows, the file %2").arg(rows.rowCount()).arg(stored);
  lookAtTotals(screen, line + QString::number(qHash(entries)));
  lookAtChart(screen, plate);
}

// The same list of the same entries has the same totals whatever was done before; one that is of an earlier
// list says so.
void Agreement::lookAtTotals(const QWidget& screen, const QString& listed) {
  for (const char* name : {"tx_teljes_ktg", "ob_ktg", "txAlkatreszKoltseg", "tx_megtett_km", "tx_liter"}) {
    const auto& total = part<QLineEdit>(screen, QString::fromLatin1(name));
    if (!total.accessibleDescription().isEmpty()) continue;
    const QString key = listed + QLatin1Char('#') + total.objectName();
    const QString known = totals_.value(key, total.text());
    if (known != total.text())
      faults_ << QStringLiteral("%1 is %2 and was %3 of the same list")
                     .arg(total.objectName(), total.text(), known);
    totals_[key] = total.text();
  }
}

void Agreement::lookAtChart(const QWidget& screen, const QString& plate) {
  const auto& panel = part<QWidget>(screen, QStringLiteral("FrmGrafikon"));
  const QString line = part<QLabel>(screen, QStringLiteral("lbGrafikon")).text();
  if (panel.isVisible() && !line.startsWith(plate + QStringLiteral(" naplójából")))
    faults_ << QStringLiteral("the list is of %1, the chart says \"%2\"").arg(plate, line);
}

}  // namespace tarvik::monkey
