// What the window of a keyboard holds: keys and bars, and a backdrop of its own behind each. The system's
// controller has one host view and three backdrops, and constraints between their edges; that all of them are
// siblings is read from that.
#include "keyboard/window/input_window.h"

#include "keyboard/make.h"
#include "keyboard/planes/split.h"
#include "keyboard/window/UIInputSetHostView.h"

namespace sim {
namespace {

using objc::strong;

constexpr NSUInteger no_corners = 0;

CGFloat height_of(UIView* part) { return part->bounds().size.height; }

CGRect below(CGFloat top, CGFloat width, CGFloat height) { return {{0, top}, {width, height}}; }

/// A backdrop is placed before it is laid out for the first time, and fetches its pieces for that.
void add_backdrop(UIView* host, CGRect frame, bool split = false) {
    auto backdrop = make_view<UIKBInputBackdropView>(frame);
    const CGSize size = frame.size;
    const CGFloat half = split_half(size.width);
    if (split)
        backdrop->layoutToSplit({{0, 0}, {half, size.height}}, {{size.width - half, 0}, {half, size.height}},
                                no_corners);
    else
        backdrop->layoutToFull({{0, 0}, size});
    host->addSubview(backdrop);
}

void add_part(UIView* host, UIView* part, CGFloat top, CGFloat width) {
    part->setFrame(below(top, width, height_of(part)));
    host->addSubview(part);
}

}  // namespace

InputWindow make_input_window(const InputParts& parts, CGFloat width, bool split) {
    const CGFloat prediction_top = height_of(parts.accessory);
    const CGFloat candidate_top = prediction_top + height_of(parts.predictions);
    const CGFloat key_top = candidate_top + parts.candidate_height;
    const CGFloat dock_top = key_top + height_of(parts.keys);
    const CGFloat bottom = dock_top + height_of(parts.dock);

    auto host = make_view<UIInputSetHostView>(below(0, width, bottom));
    add_backdrop(host, below(key_top, width, bottom - key_top), split);
    if (parts.predictions) add_backdrop(host, below(prediction_top, width, candidate_top - prediction_top));
    if (parts.accessory) add_backdrop(host, below(0, width, prediction_top));
    add_part(host, parts.accessory, 0, width);
    add_part(host, parts.predictions, prediction_top, width);
    add_part(host, parts.keys, key_top, width);
    add_part(host, parts.dock, dock_top, width);
    return {strong<UIView>(host.get()), candidate_top, key_top, dock_top};
}

}  // namespace sim
