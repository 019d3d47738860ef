#include "keyboard/planes/split.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "keyboard/planes/key_kind.h"
#include "phone/device.h"

namespace sim {
namespace {

bool is(UIKBTree* key, KeyKind kind) { return static_cast<KeyKind>(key->displayType()) == kind; }

CGFloat right_of(CGRect frame) { return frame.origin.x + frame.size.width; }
CGFloat middle_of(CGRect frame) { return frame.origin.x + frame.size.width / 2; }

UIKBTree* key_at(NSArray* keys, NSUInteger index) {
    return static_cast<UIKBTree*>(keys->objectAtIndex(index));
}

/// Half a pixel more or less decides nothing: a key in the middle belongs to the left half.
bool is_left(CGRect frame, CGFloat middle) { return middle_of(frame) <= middle + 0.5; }

/// The left space bar is a new key, with everything of the other but its place.
void split_space_bar(UIKBTree* plane, UIKBTree* space, CGFloat middle, CGFloat gap) {
    const CGRect whole = space->frame();
    const CGFloat left_end = middle - gap / 2, start = middle + gap / 2;
    auto left = UIKBTree::alloc()->initWithType(space->type());
    left->setName(space->name());
    left->setDisplayString(space->displayString());
    left->setRepresentedString(space->representedString());
    left->setDisplayType(space->displayType());
    left->setFrame({whole.origin, {left_end - whole.origin.x, whole.size.height}});
    space->setFrame({{start, whole.origin.y}, {right_of(whole) - start, whole.size.height}});
    plane->subtrees()->send<"insertObject:atIndex:">(left.get(), NSUInteger{0});
}

/// Squeezes what lies between an edge of the keyboard and `inner` into that half.
CGFloat moved(CGFloat x, CGFloat inner, CGFloat width, bool left) {
    const double scale = device().screen_scale;
    const CGFloat half = split_half(width);
    const CGFloat points = left ? x * half / inner : width - (width - x) * half / (width - inner);
    return std::round(points * scale) / scale;
}

}  // namespace

void split_keyplane(UIKBTree* plane, const KeyboardMetrics& metrics) {
    const CGFloat width = metrics.size.width, middle = width / 2;
    NSArray* keys = plane->subtrees();
    for (NSUInteger index = keys->count(); index-- > 0;) {
        UIKBTree* key = key_at(keys, index);
        // There is no room for it.
        if (is(key, KeyKind::indicator)) plane->subtrees()->send<"removeObjectAtIndex:">(index);
    }
    for (NSUInteger index = 0; index < keys->count(); ++index)
        if (UIKBTree* key = key_at(keys, index); is(key, KeyKind::space)) {
            split_space_bar(plane, key, middle, metrics.gap);
            break;
        }

    // Where each row's halves meet.
    std::map<CGFloat, CGFloat> inner_ends;
    for (NSUInteger index = 0; index < keys->count(); ++index) {
        const CGRect frame = key_at(keys, index)->frame();
        if (!is_left(frame, middle)) continue;
        CGFloat& end = inner_ends[frame.origin.y];
        end = std::max(end, right_of(frame) + metrics.gap / 2);
    }
    for (NSUInteger index = 0; index < keys->count(); ++index) {
        UIKBTree* key = key_at(keys, index);
        const CGRect frame = key->frame();
        const bool left = is_left(frame, middle);
        const CGFloat inner = inner_ends[frame.origin.y];
        const CGFloat start = moved(frame.origin.x, inner, width, left);
        const CGFloat end = moved(right_of(frame), inner, width, left);
        key->setFrame({{start, frame.origin.y}, {end - start, frame.size.height}});
    }
}

}  // namespace sim
