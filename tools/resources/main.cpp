// Draws the pictures that the project ships: those of the two preference bundles, and the theme Dusk's.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "dusk.h"
#include "icons.h"
#include "preview_pictures.h"
#include "themes_picture.h"

namespace {

namespace fs = std::filesystem;

/// A folder that plays a device's file system while the pictures are drawn.
class Phone {
  public:
    explicit Phone(const fs::path& folder) : root(folder / ".phone") {
        fs::remove_all(root);
        fs::create_directories(root / "var/mobile/Library/Preferences/HuecraftConfiguration");
    }
    Phone(const Phone&) = delete;
    ~Phone() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
    const fs::path root;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <folder>\n", argv[0]);
        return 2;
    }
    try {
        const fs::path folder = argv[1];
        const Phone phone(folder);
        const fs::path bundle = folder / "Huecraft.bundle", pane = folder / "HuecraftSettings.bundle",
                       themes = folder / "themes";
        fs::create_directories(bundle);
        fs::create_directories(pane);
        fs::create_directories(themes);
        resources::draw_icons(phone.root, bundle);
        resources::draw_settings_icons(phone.root, pane);
        resources::draw_preview_pictures(phone.root, bundle);
        resources::draw_dusk(phone.root, themes);
        resources::draw_themes_picture(phone.root, folder);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "huecraft_resources: %s\n", failure.what());
        return EXIT_FAILURE;
    }
}
