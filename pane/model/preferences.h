// What the library reads when a process starts: whether it themes, and the theme's file.
#pragma once
#include <optional>

#include "platform/foundation.h"

namespace pane {

/// As the file says. Other keys in it are somebody else's, and stay.
struct Preferences {
    bool is_on = false;
    /// A file's name in the user's folder; nil for none.
    objc::strong<NSString> chosen;
};

/// A file that is missing, or none of ours, is as one that chooses nothing.
Preferences read_preferences();

/// The same for whoever goes by them: nothing, and why, when there is a file that cannot be read.
std::optional<Preferences> certain_preferences(NSError** error);

/// The file is written as a whole, past the defaults system, whose daemon would write a copy of its own
/// later. It is not written when there is one that cannot be read: other keys would be lost.
bool write_preferences(const Preferences& preferences, NSError** error);

}  // namespace pane
