#pragma once

namespace tarvik::app {

/// Lets the plugins that lie in the program's own folder, where a package puts them, win over those that the
/// environment names: they belong to another version of Qt. A program without plugins of its own keeps the
/// environment's. To be called before Qt loads any.
void preferOwnPlugins();

}  // namespace tarvik::app
