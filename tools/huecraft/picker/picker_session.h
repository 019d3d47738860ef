// The library's colour picker on a phone, and a script that is played on it.
#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "picker/picker_script.h"
#include "settings/HCColorPickerController.h"

namespace command {

/// Something that happened to the picker, or that it did.
struct PickerEvent {
    enum class Kind { notified, shook, closed, raised, stood_still } kind;
    /// Of the script; 0 while the picker opened at first.
    size_t line = 0;
    /// Seconds since then.
    double time = 0;
    /// What the delegate received: the colour as the library writes it, and the text. Of an exception its
    /// name and its reason.
    std::string first, second;
};

/// How the settings pane opens it.
struct PickerSetup {
    bool dark = false;
    /// nil leaves the picker's own.
    objc::strong<UIColor> colour;
    /// Of pictures and recordings, in pixels per point; 0 is the screen's.
    double scale = 0;
    /// Where they are put, on this machine, each with the end ".png".
    std::filesystem::path pictures;
    /// hears what the delegate receives.
    std::function<void(UIColor*)> chosen;
};

struct PickerRun {
    std::vector<PickerEvent> events;
    /// The files' names, in order.
    std::vector<std::string> pictures;
    bool raised() const { return !events.empty() && events.back().kind == PickerEvent::Kind::raised; }
};

/// Opens the picker and plays the script. An exception of the library's ends it there, as it ends an
/// application. Throws Unusable, with file and line, for what cannot be done. Needs a phone with the library.
PickerRun play(const PickerScript& script, const PickerSetup& setup);

}  // namespace command
