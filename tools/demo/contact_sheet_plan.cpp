#include "contact_sheet_plan.h"

#include <utility>

namespace demo {
namespace {

struct Surface {
    const char *name, *title = "";
    const char *plane = nullptr, *pressed_key = nullptr, *return_key = nullptr;
    bool landscape = false, split = false, switcher = false, form_accessory = false;
    const char *background = "light", *candidates = nullptr;

    sim_keyboard keyboard() const {
        return {sizeof(sim_keyboard), plane,      pressed_key, landscape, return_key, split, switcher,
                form_accessory,       background, candidates};
    }
};

constexpr Surface surfaces[] = {
    {.name = "letters",
     .title = "Letters, with the active suggestion in the prediction bar",
     .return_key = "go"},
    {.name = "pressed", .title = "A key held down", .pressed_key = "g"},
    {.name = "shifted", .title = "Capital letters", .plane = "shifted"},
    {.name = "numbers", .title = "Numbers and signs", .plane = "numbers"},
    {.name = "symbols", .title = "Symbols", .plane = "symbols"},
    {.name = "emoji", .title = "Emoji", .plane = "emoji"},
    {.name = "switcher", .title = "The input switcher over the globe key", .switcher = true},
    {.name = "form", .title = "The bar of a web form", .form_accessory = true},
    {.name = "split", .title = "Split in two halves", .split = true},
    {.name = "landscape", .title = "Sideways", .landscape = true},
    {.name = "landscape-split",
     .title = "Sideways and split",
     .landscape = true,
     .split = true,
     .background = "busy"},
};
constexpr Surface over_light{.name = "over-light"}, over_busy{.name = "over-busy", .background = "busy"};

const Look system_look{"", "The system's own"};
const Look flat_with_caps{"Flat caps", "Flat colour, caps on", flat, 2, 1, true};
const Look gradient_look{"Gradient 8", "Gradient", gradient, 8};
const Look image_look{"Image 100", "Image", image};

constexpr const char* directions[] = {"bottom to top",
                                      "top to bottom",
                                      "right to left",
                                      "left to right",
                                      "bottom right to top left",
                                      "bottom left to top right",
                                      "top right to bottom left",
                                      "top left to bottom right"};

Cell cell(const Look& look, const Surface& surface, const std::string& caption = "") {
    return {look, surface.name, caption.empty() ? look.description : caption, surface.keyboard()};
}

Row row_of(std::string title, const Surface& surface, const std::vector<Look>& looks) {
    Row row{std::move(title), {}};
    for (const Look& look : looks) row.cells.push_back(cell(look, surface));
    return row;
}

std::vector<Look> gradients(unsigned first, unsigned last) {
    std::vector<Look> looks{system_look};
    for (unsigned direction = first; direction <= last; ++direction)
        looks.push_back({"Gradient " + std::to_string(direction),
                         std::to_string(direction) + ": " + directions[direction - 1], gradient, direction});
    return looks;
}

}  // namespace

std::string Cell::picture() const {
    std::string name = look.name.empty() ? "system" : look.name;
    for (char& c : name) c = c == ' ' ? '-' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return name + "-" + surface + ".png";
}

std::vector<Row> contact_sheet_rows() {
    std::vector<Row> rows;
    for (const Surface& surface : surfaces)
        rows.push_back(
            row_of(surface.title, surface, {system_look, flat_with_caps, gradient_look, image_look}));
    rows.push_back(row_of("Directions of a gradient", over_light, gradients(1, 4)));
    rows.push_back(row_of("Directions of a gradient, across", over_light, gradients(5, 8)));
    rows.push_back(row_of("Opacity of an image, over a busy page", over_busy,
                          {system_look,
                           {image_look.name, "1", image},
                           {"Image 99", "0.99: as opaque as 1", image, 2, 0.99},
                           {"Image 98", "0.98", image, 2, 0.98},
                           {"Image 30", "0.3", image, 2, 0.3}}));
    rows.push_back(row_of("A flat colour, over a busy page", over_busy,
                          {system_look,
                           {"Flat", "Caps off", flat},
                           flat_with_caps,
                           {"Flat 60", "Opacity 0.6", flat, 2, 0.6},
                           {"Flat 60 caps", "Opacity 0.6, caps on", flat, 2, 0.6, true}}));
    const Look bare{"None", "Caps off", none}, bare_with_caps{"None caps", "Caps on", none, 2, 1, true};
    rows.push_back(
        row_of("No background, over a light page", over_light, {system_look, bare, bare_with_caps}));
    rows.push_back(row_of("No background, over a busy page", over_busy, {system_look, bare, bare_with_caps}));
    return rows;
}

}  // namespace demo
