#include "uikit/scrolling/index_paths.h"

#include "platform/scrolling.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

struct ItemPath : NSIndexPath {
    static NSIndexPath* indexPathForItem(Class self, NSInteger item, NSInteger section) {
        const NSUInteger indexes[] = {static_cast<NSUInteger>(section), static_cast<NSUInteger>(item)};
        return objc::send<"indexPathWithIndexes:length:", NSIndexPath*>(
            reinterpret_cast<id>(self), static_cast<const NSUInteger*>(indexes), NSUInteger{2});
    }
    NSInteger section() {
        return static_cast<NSInteger>(send<"indexAtPosition:", NSUInteger>(NSUInteger{0}));
    }
    NSInteger item() { return static_cast<NSInteger>(send<"indexAtPosition:", NSUInteger>(NSUInteger{1})); }
};

}  // namespace

void add_items_to_index_paths() {
    Class path = NSIndexPath::class_object();
    redefine<"indexPathForItem:inSection:", &ItemPath::indexPathForItem>(path);
    redefine<"indexPathForRow:inSection:", &ItemPath::indexPathForItem>(path);
    redefine<"section", &ItemPath::section>(path);
    redefine<"item", &ItemPath::item>(path);
    redefine<"row", &ItemPath::item>(path);
}

}  // namespace sim
