#include "core/search.h"

#include "core/text.h"

namespace tarvik::core {

std::string searchedText(const NapiAdat& entry) {
  std::string text = shortDateOfStored(entry.Datum);
  for (const std::string& line : {entry.Alkatresz.trimmed(), entry.Megjegyzes.trimmed()}) text += '\n' + line;
  if (entry.Olajcsere == kFlagSet) text += "\nOlajcsere\nOlaj csere";
  if (entry.Szurocsere == kFlagSet) text += "\nSzűrőbetét csere\nSzűrőcsere\nSzürő";
  if (entry.Gyertyacsere == kFlagSet) text += "\nGyertya csere\nGyertyacsere";
  return text;
}

bool holdsUpperCased(std::string_view text, std::string_view wanted) {
  return upperCased(text).find(wanted) != std::string::npos;
}

std::vector<int> rowsThatHold(std::string_view typed, int rows,
                              const std::function<std::string(int)>& textOf) {
  const std::string wanted = upperCased(trimmed(typed));
  std::vector<int> found;
  if (wanted.empty()) return found;
  for (int row = rows - 1; row >= 0; --row)
    if (holdsUpperCased(textOf(row), wanted)) found.push_back(row);
  return found;
}

}  // namespace tarvik::core
