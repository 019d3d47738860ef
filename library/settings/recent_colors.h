// The colours that were chosen last: hex texts, oldest first.
#pragma once
#include "platform/foundation.h"

namespace settings {

/// How many are shown and kept.
constexpr NSInteger recent_color_count = 6;

/// nil when it cannot be read.
NSData* recent_colors_file();
/// `recent_color_count` transparent blacks.
NSMutableArray* default_recent_colors();
/// Puts the text in the place of the oldest one, unless it is the newest already, and writes the file. Raises
/// for a list or a dictionary that is immutable, before anything is written. A failed write is not noticed.
void record_color(NSString* text, NSMutableArray* colors, NSMutableDictionary* dictionary);

}  // namespace settings
