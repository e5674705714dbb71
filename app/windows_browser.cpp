#include "app/browser.h"

namespace tarvik::app {

// Qt's own way is Windows' own.
void openFilesInBrowser() {}

}  // namespace tarvik::app
