// Files as the pane keeps them: property lists, written beside their place and put there whole.
#pragma once
#include "platform/foundation.h"

namespace pane {

/// The largest theme that is read. One of the largest keyboard's pixels is below 5 MB; what is much larger is
/// none.
constexpr uint64_t largest_file = 64 << 20;

/// The content of a property list file; nil, and why, for none. The error may be another than Foundation's: a
/// file that is not a property list is described in the user's words.
id read_property_list(NSString* path, NSError** error);

/// The old file, or the new one; never half of it.
bool write_property_list(id list, NSString* path, NSError** error);

/// A missing folder is made, with those before it.
bool make_folder(NSString* path, NSError** error);

/// Whether the error says that there is no such file.
bool is_absence(NSError* error);

bool is_folder(NSString* path);

}  // namespace pane
