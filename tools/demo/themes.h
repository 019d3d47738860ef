// The demo's themes: what each is called, and how it is made and chosen on the phone.
#pragma once
#include <filesystem>
#include <string>

namespace demo {

struct Theme {
    const char* name;
    const char* description;
};

inline constexpr Theme themes[] = {
    {"Peach", "a gradient"},
    {"Hills", "an image"},
    {"Midnight", "a flat colour, with visible key caps"},
};

/// Makes and saves every theme's file, through the library's own class.
void make_themes();

/// What a theme file says of the background.
enum Background : unsigned { none = 0, flat = 1, gradient = 2, image = 3 };

/// A theme of the contact sheet. Its other colours are those of Peach, Midnight and Hills; of Peach where
/// there is no background.
struct Look {
    std::string name, description;
    Background background = none;
    unsigned direction = 2;
    /// Of the image or of the flat colour.
    double alpha = 1;
    bool caps = false;
};

/// Makes and saves its theme file.
void make_theme(const Look& look);

/// Where the theme's file lies in the folder that plays the phone's file system; nowhere for no theme.
std::filesystem::path file_of(const std::filesystem::path& device, const std::string& theme);

/// Makes the phone wear the theme of that name; with none, the library is off.
void choose(const std::string& theme);

}  // namespace demo
