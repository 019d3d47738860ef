// A simulated phone in a process of its own.
#pragma once
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "simulator.h"

namespace tools {

/// What went wrong, in one line.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Throws a Failure that says what was being done and what the simulator says, unless the status is SIM_OK.
void require(sim_status status, const std::string& doing);

/// Runs `body` in a child process, with an autorelease pool: a phone is switched on once per process. A
/// Failure in it is printed; any end but a good one is a Failure here that names `doing`.
void in_child_process(const std::string& doing, const std::function<void()>& body);

/// A screen in points, upright, with its pixels per point.
struct Screen {
    double width = 375, height = 667;
    int scale = 2;

    /// For pictures of that many pixels per point: the same screen with as many, where such screens exist, so
    /// that nothing is scaled once it is drawn. 0 asks for nothing.
    Screen for_pictures(double pixels_per_point) const;
};

struct Locale {
    const char* language = nullptr;
    bool right_to_left = false;
};

/// Switches this process's phone on over the folder that plays its file system.
void boot(const std::filesystem::path& device, const char* executable, const Screen& screen = {},
          const Locale& locale = {});

/// Loads a build of the library.
void load(const std::filesystem::path& library);

inline constexpr const char* notes = "/Applications/MobileNotes.app/MobileNotes";
inline constexpr const char* settings = "/Applications/Preferences.app/Preferences";

}  // namespace tools
