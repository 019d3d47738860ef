// The typefaces that text is drawn with: files of Debian's font packages, the same on every machine.
#pragma once
#include <pango/pangocairo.h>

#include <string>
#include <string_view>

namespace sim {

/// Where one kind of letters is found, and the names that UIKit's fonts have on the device.
struct Typeface {
    /// What UIFont calls it.
    std::string_view font_name;
    /// UIFont's weight, from -1 to 1.
    double weight;
    /// What stands in for it: a file in the folder of its package.
    const char* file;
    const char* family;
    PangoWeight pango_weight;
};

/// The system's typeface of the nearest weight; there is one for text and one for sizes from 20 points.
const Typeface& system_typeface(double weight, double size);

/// Null for a name that no font has.
const Typeface* typeface_named(std::string_view font_name);

/// Lays text out with one typeface and, for characters that it lacks, one fallback; nothing else on the
/// machine is looked at. Made when first asked for, and kept. Stops the process when the font's package is
/// not installed.
PangoContext* context_of(const Typeface&);

}  // namespace sim
