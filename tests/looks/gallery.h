#pragma once

#include "tests/looks/camera.h"

namespace tarvik::looks {

/// Puts every kind of part in every state that it can have onto one picture, so that the look of each is seen
/// whether a screen happens to show it or not.
void photographGallery(Camera& camera);

}  // namespace tarvik::looks
