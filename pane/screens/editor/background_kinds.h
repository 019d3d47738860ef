// The kinds of background in the order in which the editor offers them.
#pragma once
#include "pane/huecraft.h"

namespace pane {

constexpr NSUInteger offered_kinds[] = {huecraft::no_background, huecraft::flat_background,
                                        huecraft::gradient_background, huecraft::image_background};

constexpr NSInteger segment_of(NSUInteger kind) {
    return kind <= huecraft::image_background ? static_cast<NSInteger>(kind) : 0;
}
static_assert(offered_kinds[segment_of(huecraft::no_background)] == huecraft::no_background);
static_assert(offered_kinds[segment_of(huecraft::image_background)] == huecraft::image_background);

}  // namespace pane
