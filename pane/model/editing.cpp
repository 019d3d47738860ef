#include "pane/model/editing.h"

#include <algorithm>

#include "objc/fast_enumeration.h"
#include "pane/model/files.h"
#include "pane/model/shelf.h"

namespace pane {
namespace {

using objc::strong;

constexpr int alpha_changes = 1;
constexpr NSUInteger last_direction = 8, downwards = 2;

}  // namespace

Editing::Editing(strong<HuecraftConfig> theme, NSString* file)
    : sitting(std::move(theme)),
      file_(file),
      name_(sitting.theme()->getConfigName()),
      content_(content()) {}

strong<NSDictionary> Editing::content() const {
    if (!file_) return nullptr;
    return as<NSDictionary>(
        read_property_list(themes::folder()->stringByAppendingPathComponent(file_), nullptr));
}

NSUInteger Editing::kind() const {
    const NSUInteger kind = theme()->getBackgroundType();
    return kind >= huecraft::flat_background && kind <= huecraft::image_background ? kind
                                                                                   : huecraft::no_background;
}

void Editing::set_kind(NSUInteger kind) {
    theme()->setBackgroundType(kind);
    auto all = colours();
    const size_t needed = kind == huecraft::flat_background       ? 1
                          : kind == huecraft::gradient_background ? 2
                                                                  : 0;
    if (all.size() < needed) {
        while (all.size() < needed) all.emplace_back(UIColor::colorWithWhite(all.empty() ? 0.2 : 0.5, 1));
        set_colours(all);
    }
    sitting.changed();
}

std::vector<strong<UIColor>> Editing::colours() const {
    std::vector<strong<UIColor>> all;
    objc::for_each<UIColor>(theme()->getColors(), [&](UIColor* each) { all.emplace_back(each); });
    return all;
}

void Editing::set_colours(const std::vector<strong<UIColor>>& colours) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(colours.size());
    for (const auto& each : colours) list->addObject(each);
    theme()->setColors(list);
}

strong<UIColor> Editing::colour_of(const Place& place) const {
    if (place.row == Row::text_colour) return theme()->getTextColor();
    if (place.row == Row::highlight_colour) return theme()->getHighlightColor();
    const auto all = colours();
    return place.colour < all.size() ? all[place.colour] : nullptr;
}

void Editing::set_colour(const Place& place, UIColor* colour) {
    if (!colour) return;
    if (place.row == Row::text_colour)
        theme()->setTextColor(colour);
    else if (place.row == Row::highlight_colour)
        theme()->setHighlightColor(colour);
    else {
        auto all = colours();
        if (place.colour < all.size())
            all[place.colour] = colour;
        else
            all.emplace_back(colour);
        set_colours(all);
    }
    sitting.changed();
}

void Editing::remove_colour(NSUInteger index) {
    auto all = colours();
    if (index >= all.size() || all.size() == 1) return;
    all.erase(all.begin() + static_cast<ptrdiff_t>(index));
    set_colours(all);
    sitting.changed();
}

void Editing::move_colour(NSUInteger from, NSUInteger to) {
    auto all = colours();
    if (from >= all.size() || to >= all.size()) return;
    auto moved = std::move(all[from]);
    all.erase(all.begin() + static_cast<ptrdiff_t>(from));
    all.insert(all.begin() + static_cast<ptrdiff_t>(to), std::move(moved));
    set_colours(all);
    sitting.changed();
}

NSUInteger Editing::direction() const {
    const NSUInteger direction = theme()->getGradientDirection();
    return direction >= 1 && direction <= last_direction ? direction : downwards;
}

void Editing::set_direction(NSUInteger direction) {
    theme()->setGradientDirection(direction);
    sitting.changed();
}

void Editing::set_alpha(double alpha) {
    theme()->setImageAlpha(alpha);
    sitting.changed(alpha_changes);
}

void Editing::set_image(UIImage* image) {
    theme()->setImageData(image);
    theme()->setBackgroundType(huecraft::image_background);
    sitting.changed();
}

void Editing::set_caps(bool visible) {
    theme()->setVisibleKeycaps(visible);
    sitting.changed();
}

void Editing::set_name(NSString* name) {
    theme()->setConfigName(name);
    sitting.changed();
}

void Editing::set_pair(UIColor* text, UIColor* highlight) {
    theme()->setTextColor(text);
    theme()->setHighlightColor(highlight);
    sitting.changed();
}

bool Editing::is_changed_behind() const {
    const auto now = content();
    return content_ && now && !now->isEqual(content_);
}

bool Editing::save(NSError** error) { return save_in(file_, name_, error); }
bool Editing::save_as_new(NSError** error) { return save_in(nullptr, nullptr, error); }

bool Editing::save_in(NSString* file, NSString* name_before, NSError** error) {
    strong<NSString> kept = shelf::keep(theme(), file, name_before, error);
    if (!kept) return false;
    file_ = std::move(kept);
    name_ = theme()->getConfigName();
    content_ = content();
    sitting.kept();
    return true;
}

}  // namespace pane
