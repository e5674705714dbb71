#pragma once

namespace tarvik::app {

/// Lets QDesktopServices open addresses of files with their place in the page kept, as far as the system
/// can; what cannot be opened after all is told in a box. Lasts as long as the program.
void openFilesInBrowser();

}  // namespace tarvik::app
