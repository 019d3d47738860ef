// Pictures of a theme: the simulated keyboard, and the preview of the settings pane.
#pragma once
#include <string>

#include "cli/workshop.h"
#include "model/HuecraftConfig.h"
#include "simulator.h"
#include "support/provenance.h"

namespace command {

/// Loads the library into this process, whose phone is on, with the theme in force: what is shown from now on
/// wears it. `contents` is the file's. Throws Unusable for what is not a theme. A process does this once.
void put_on_theme(const Workshop& workshop, const std::string& file, const std::string& contents,
                  const std::filesystem::path& library);

// A picture names the library and the theme that drew it (support/provenance.h).

/// The keyboard on the screen as PNG. The scale is in pixels per point, 0 is the screen's. Throws Failure
/// when the simulator cannot show it.
std::string keyboard_picture(const Workshop& workshop, const sim_keyboard& keyboard, double scale,
                             const tools::Provenance& provenance);

/// How previews of themes with visible caps differ from the keyboard, which are drawn from pictures of their
/// own.
inline constexpr const char* caps_of_previews =
    "the preview's key caps are dark grey; the keyboard's are light";

/// The preview of the theme as PNG, drawn by the library. The scale is in pixels per point, 0 is the
/// screen's. The phone has the pictures of the settings pane, and the library.
std::string preview_picture(const Workshop& workshop, HuecraftConfig* theme, double scale,
                            const tools::Provenance& provenance);

}  // namespace command
