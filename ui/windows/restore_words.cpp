#include "ui/windows/restore_words.h"

#include <QHash>

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

constexpr qsizetype kDayCharacters = 10;

QString registerName(core::Register which) {
  static const QHash<core::Register, QString> names{
      {core::Register::Vehicles, "Gépkocsik"},
      {core::Register::PartNames, "Alkatrészek"},
      {core::Register::Notes, "Megjegyzések"},
      {core::Register::StartSettings, "Indulási beállítások"},
      {core::Register::KmReminders, "Kilométerhez kötött figyelmeztetések"},
      {core::Register::DateReminders, "Dátumhoz kötött figyelmeztetések"},
      {core::Register::Tyres, "Gumik"},
      {core::Register::Repairs, "Javítások, szervizek"},
  };
  return names.value(which);
}

QString countsOf(const core::SetComparison& line) {
  if (!line.entriesNow) return QStringLiteral("%1 bejegyzés, a mostani nem olvasható").arg(line.entries);
  const int more = line.entries - *line.entriesNow;
  if (more > 0) return QStringLiteral("%1 bejegyzéssel több").arg(more);
  if (more < 0) return QStringLiteral("%1 bejegyzéssel kevesebb").arg(-more);
  return QStringLiteral("ugyanannyi bejegyzés, más tartalommal");
}

}  // namespace

QString titleOf(const core::DatedSet& set) {
  const QString name = toQt(set.name);
  return set.day ? toQt(core::shortDate(*set.day)) + name.mid(kDayCharacters) : name;
}

QString titleOf(const core::SetFile& file, const core::DataFolders& folders) {
  if (!file.plate.empty()) return QStringLiteral("%1 naplója").arg(toQt(file.plate));
  const QString name = registerName(file.kind.reg);
  const bool isElsewhere = !file.kind.isOfProgramFolder && folders.program != folders.current &&
                           file.place == folders.inProgram(file.kind.name);
  return isElsewhere ? name + QStringLiteral(" (a program mappájában)") : name;
}

QString differenceOf(const core::SetComparison& line) {
  if (line.state == core::SetFileState::Unreadable) return QStringLiteral("sérült: nem olvasható");
  if (line.isSame) return QStringLiteral("ugyanaz");
  QString words = countsOf(line);
  if (line.lastDay) words += QStringLiteral(", utolsó nap: ") + toQt(core::shortDate(*line.lastDay));
  const bool isDamaged = line.state == core::SetFileState::Damaged;
  return isDamaged ? QStringLiteral("sérült: csonka tétel van a végén; ") + words : words;
}

}  // namespace tarvik::ui
