#pragma once

#include <QIcon>
#include <functional>

namespace tarvik::ui {

/// An icon that is made when something first shows it or asks for its sizes, so that no start waits for
/// pictures that are not seen. What `make` gives must be an icon with pictures.
QIcon lateIcon(std::function<QIcon()> make);

}  // namespace tarvik::ui
