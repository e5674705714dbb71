#include "app/menu_place.h"

namespace tarvik::app {

settings::MenuPlace menuPlace(const std::string& program) {
  return {.folder = {}, .program = program};
}

}  // namespace tarvik::app
