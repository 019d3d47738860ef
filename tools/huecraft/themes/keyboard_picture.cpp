#include "themes/keyboard_picture.h"

#include <unistd.h>

#include "cli/files.h"
#include "support/phone.h"
#include "support/theme_choice.h"
#include "themes/theme.h"
#include "views/HCPreview.h"

namespace command {

void put_on_theme(const Workshop& workshop, const std::string& file, const std::string& contents,
                  const std::filesystem::path& library) {
    const std::string name = "worn.plist";
    workshop.place_theme(name, contents);
    objc::AutoreleasePool pool;
    tools::choose_theme(name);
    tools::load(library);
    load_theme(workshop, file, contents);  // says what the library does not: why it is not a theme
    tools::require_theme();
    std::filesystem::remove(workshop.theme(name));
}

namespace {

/// What was written to the host path for a moment, with its origin.
std::string taken(const std::filesystem::path& picture, const tools::Provenance& provenance) {
    std::string png = read_input(picture);
    std::filesystem::remove(picture);
    return tools::with_provenance(png, provenance);
}

}  // namespace

std::string keyboard_picture(const Workshop& workshop, const sim_keyboard& keyboard, double scale,
                             const tools::Provenance& provenance) {
    const auto picture = workshop.scratch("keyboard-" + std::to_string(getpid()) + ".png");
    tools::require(sim_show_keyboard(&keyboard), "the keyboard");
    tools::require(sim_take_picture(picture.c_str(), scale), "the picture");
    return taken(picture, provenance);
}

std::string preview_picture(const Workshop& workshop, HuecraftConfig* theme, double scale,
                            const tools::Provenance& provenance) {
    objc::AutoreleasePool pool;
    UIView* preview = HCPreview::sharedInstance()->viewForConfig(theme);
    preview->setFrame({{0, 0}, HCPreview::keyboardPortraitSize()});
    const auto picture = workshop.scratch("preview-" + std::to_string(getpid()) + ".png");
    tools::require(sim_take_picture_of(preview, picture.c_str(), scale), "the preview");
    return taken(picture, provenance);
}

}  // namespace command
