// The colours that were chosen last: hex texts, oldest first.
#pragma once
#include "platform/foundation.h"

namespace settings {

/// How many are shown and kept.
constexpr NSInteger recent_colour_count = 6;

/// nil when it cannot be read.
NSData* recent_colours_file();
/// `recent_colour_count` transparent blacks.
NSMutableArray* default_recent_colours();
/// Puts the text in the place of the oldest one, unless it is the newest already, and writes the file. Raises
/// for a list or a dictionary that is immutable, before anything is written. A failed write is not noticed.
void record_colour(NSString* text, NSMutableArray* colours, NSMutableDictionary* dictionary);

}  // namespace settings
