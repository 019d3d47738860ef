// What the C interface asks of the screen: to show the keyboard in some state, a view or a view controller,
// and to be photographed.
#pragma once
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/coregraphics.h"
#include "platform/uikit.h"

namespace sim {

/// Which keyboard is on screen. An empty text is the default.
struct KeyboardRequest {
    /// The key plane: "letters" (default), "shifted", "numbers", "symbols" or "emoji".
    std::string plane;
    /// The text or name of the key that is held down ("g", "return", "shift"); none by default.
    std::string pressed_key;
    /// What the return key does: "return" (default), or "go", for which the system draws it blue.
    std::string return_key;
    bool landscape = false;
    /// In a left and a right half, with the page between them and no prediction bar. The emoji plane never
    /// is.
    bool split = false;
    /// With the input switcher open over the globe key.
    bool switcher = false;
    /// With the bar of a web form on top.
    bool form_accessory = false;
    /// The application's page: "notes" (default), "light" or "busy".
    std::string background;
    /// What an input method suggests: "none" (default), "row" or "expanded".
    std::string candidates;
};

/// Puts the keyboard on the screen, in place of what was there. False for a plane, a key or a page that
/// does not exist, and for parts that no keyboard has at once; `error` then says in one line what was found
/// and what there is, and the screen stays as it was.
bool show_keyboard(const KeyboardRequest&, std::string& error);

struct ShownKey {
    std::string name;
    /// Empty for a key with a glyph.
    std::string text;
    /// On the screen.
    CGRect frame;
};

/// The keys of the plane on the screen, without the marks on them; none before a keyboard is shown.
const std::vector<ShownKey>& shown_keys();

/// Puts the view on the screen, at the frame it has, over the page of notes and in place of what was there.
void show_view(UIView*);

/// Presents the controller over the page of notes, in place of what was there.
void present(UIViewController*);

/// The first view of that class or a subclass on the screen, parents before their children; nil when there is
/// none.
UIView* view_on_screen(Class);

/// Lays out, draws the screen's contents and writes them to `path`, a path of the host, as PNG. `scale` is in
/// pixels per point; 0 is the screen's. False when nothing is shown or the file cannot be written.
bool take_picture(const std::string& path, double scale, std::string& error);

}  // namespace sim
