// The settings pane in the simulated Settings app, and a script that is played on it.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "pane/pane_script.h"

namespace command {

struct PaneSetup {
    /// Of pictures and recordings, in pixels per point; 0 is the screen's.
    double scale = 0;
    /// Where they are put, on this machine, each with the end ".png".
    std::filesystem::path pictures;
};

/// Something that left Settings.
struct PaneEvent {
    enum class Kind { started, opened, shared, raised, stood_still } kind;
    /// Of the script; 0 while Settings opened.
    size_t line;
    /// A program and its arguments, an address, what was shared; an exception's name and reason.
    std::string what;
};

struct PaneRun {
    std::vector<PaneEvent> events;
    /// The files' names, in order.
    std::vector<std::string> pictures;
    bool raised() const { return !events.empty() && events.back().kind == PaneEvent::Kind::raised; }
};

/// Opens Settings, touches the pane's row and plays the script. An exception ends it there, as it ends an
/// application. Throws Unusable, with file and line, for what cannot be done. Needs a phone with library and
/// pane.
PaneRun play(const PaneScript& script, const PaneSetup& setup);

}  // namespace command
