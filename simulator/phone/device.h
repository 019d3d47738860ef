// The simulated device: boot's options, or its defaults, an iPhone 8 with iOS 12.4.
#pragma once
#include <string>

namespace sim {

/// The process and its processor.
enum class Process {
    arm64,         ///< up to the A11
    arm64_on_a12,  ///< an application for arm64 there
    arm64e,        ///< the system's own on an A12
};

struct Device {
    std::string system_version = "12.4";
    /// In points, portrait.
    double screen_width = 375, screen_height = 667;
    /// Pixels per point: 1, 2 or 3.
    double screen_scale = 2;
    /// The user's language: "en", "pt-BR", "zh-Hans".
    std::string language = "en";
    /// Whether text runs from right to left.
    bool right_to_left = false;
    /// How large the user wants text: the end of a category's name, "L" at first.
    std::string text_size = "L";
    bool reduce_motion = false;
    Process process = Process::arm64;
};

/// The device that was booted; the defaults before that. It does not change afterwards.
const Device& device();

}  // namespace sim
