// Themes as text: how they leave the phone, and come to it.
#pragma once
#include "pane/model/themes.h"

namespace pane::themes {

/// The property list of a theme's file, as XML whatever the file is; nil, and why, when it cannot be written.
NSString* text_of(HuecraftConfig* theme, NSError** error);

/// What somebody else's text holds. A property list without a single key that a theme needs is none.
Reading read_text(NSString* given);

/// Is kept under its name, or under a free one like it; a theme without a name gets one.
NSString* keep_arrived(HuecraftConfig* theme, NSError** error);

}  // namespace pane::themes
