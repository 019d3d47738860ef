// The demo's themes: what each is called, and how it is made and chosen on the phone.
#pragma once
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

/// Writes the preference file that switches the library on with that theme.
void choose(const Theme& theme);

}  // namespace demo
