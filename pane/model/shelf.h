// What a person does with themes: choosing, renaming, removing, and what the preferences say meanwhile.
#pragma once
#include "pane/model/preferences.h"
#include "pane/model/themes.h"

namespace pane::shelf {

/// Stored at once, and theming is on then. A theme that comes along is copied to the user's folder first.
/// Each of these answers whether all of it was done; if not, why, and what there was before still holds.
bool choose(NSString* folder, NSString* file, NSError** error);
bool switch_on(bool on, NSError** error);
/// As after installing: theming is off and no theme chosen. The themes stay.
bool reset(NSError** error);

/// The file that the theme is in afterwards.
NSString* rename(NSString* file, NSString* name, NSError** error);

/// An edited theme: see themes::keep. The old file goes when nothing refers to it any more.
NSString* keep(HuecraftConfig* theme, NSString* file, NSString* name_before, NSError** error);

/// A chosen theme that is removed is chosen no more, and theming is off; put back, it is as before.
bool remove(NSString* file, NSError** error);
bool put_back(NSError** error);

/// Whether what runs may show another keyboard than the preferences say: they are not as when this process
/// first asked.
bool awaits_restart();

}  // namespace pane::shelf
