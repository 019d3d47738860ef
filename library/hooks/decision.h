// What is decided before anything is touched: whether this process is one to act in, and which hooks it gets.
#pragma once
#include <string_view>

namespace hooks {

/// When a row of the hook table is installed.
enum class Condition {
    /// In SpringBoard and in applications, whatever the preferences say.
    accepted_process,
    /// With theming on and key caps hidden. With visible caps, the system draws the caps in its own colours.
    caps_hidden,
    /// With theming on.
    themed,
};

/// The last component of a path; trailing slashes do not count.
constexpr std::string_view last_path_component(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    if (path == "/") return path;
    return path.substr(path.rfind('/') + 1);
}

/// Whether the process that runs this executable is one to act in: SpringBoard, or one with "/Application"
/// anywhere in its path. That covers the system's applications ("/Applications/…") and installed ones, whose
/// containers have a component named Application.
constexpr bool accepts_process(std::string_view executable) {
    return last_path_component(executable) == "SpringBoard" ||
           executable.find("/Application") != std::string_view::npos;
}

/// Whether rows under the condition are installed in an accepted process.
constexpr bool installs(Condition condition, bool theming_on, bool caps_visible) {
    switch (condition) {
        case Condition::accepted_process: return true;
        case Condition::caps_hidden: return theming_on && !caps_visible;
        case Condition::themed: return theming_on;
    }
    return false;
}

}  // namespace hooks
