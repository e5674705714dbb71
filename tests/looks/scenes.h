#pragma once

#include <string>

#include "tests/looks/camera.h"

namespace tarvik::looks {

/// Goes through every screen, state and kind of box and photographs each, on a fixed day: the household's in
/// its folder, the first start in an empty one.
void photographAll(Camera& camera, const std::string& household, const std::string& empty);

/// Photographs what the manual shows beyond that: more charts, a printed page, and the ways back.
void photographForManual(Camera& camera, const std::string& household);

}  // namespace tarvik::looks
