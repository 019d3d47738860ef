// Values that hold points and rectangles.
#pragma once

namespace sim {

/// Gives Foundation's NSValue the methods that UIKit adds to it. Called once, at boot.
void add_geometry_to_values();

}  // namespace sim
