// Themes as files: the user's own, and those that come along and are only read.
#pragma once
#include "pane/huecraft.h"

namespace pane::themes {

/// Of the user, and of the bundle. A missing one is empty.
NSString* folder();
NSString* folder_that_comes_along();

/// The names of the theme files in a folder, in the user's order; none is opened. nil, and why, when the
/// folder cannot be read.
NSArray* files_in(NSString* folder, NSError** error);

/// What a theme file holds.
struct Reading {
    objc::strong<HuecraftConfig> theme;
    /// Why there is no theme: words for the user.
    objc::strong<NSString> fault;
    /// What of a theme is missing or mistyped, so that the library reads something else there.
    objc::strong<NSString> remark;
};
Reading read(NSString* folder, NSString* file);
/// The same of a property list that was read already.
Reading read(id root);

/// Another theme with the same content.
objc::strong<HuecraftConfig> copy_of(HuecraftConfig* theme);

/// Files of the user's. What is written is there whole, or not at all. The name under which it is kept is
/// answered; nil, and why, when it is not.
NSString* keep_as_new(HuecraftConfig* theme, NSError** error);
NSString* save(HuecraftConfig* theme, NSString* file, NSError** error);
/// Into the file; under a name of its own where the theme is called otherwise than before, or the file is
/// nil. A number that a taken name gets is the theme's, too. The old file stays, as in write_under_name.
NSString* keep(HuecraftConfig* theme, NSString* file, NSString* name_before, NSError** error);
/// The user's copy of a theme that comes along. One that is there already is taken.
NSString* copy_to_user(NSString* file, NSError** error);
/// Under the name "… copy", or "… copy 2".
NSString* duplicate(NSString* folder, NSString* file, NSError** error);
/// A name that is only spelled otherwise keeps its file. The old file stays: whoever refers to it is notified
/// first, and then it is removed.
NSString* write_under_name(NSString* file, NSString* name, NSError** error);

/// Puts the file away, so that it can be put back; what was put away before is gone then.
bool remove(NSString* file, NSError** error);
/// nil when nothing is put away.
NSString* removed_file();
/// Under another name when there is one of its name by now.
NSString* put_back(NSError** error);

}  // namespace pane::themes
