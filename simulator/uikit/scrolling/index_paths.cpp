// Index paths of items in sections: see the header.
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
    NSInteger section() { return send<"indexAtPosition:", NSInteger>(NSUInteger{0}); }
    NSInteger item() { return send<"indexAtPosition:", NSInteger>(NSUInteger{1}); }
};

}  // namespace

void add_items_to_index_paths() {
    Class path = NSIndexPath::class_object();
    mend<"indexPathForItem:inSection:", &ItemPath::indexPathForItem>(path);
    mend<"indexPathForRow:inSection:", &ItemPath::indexPathForItem>(path);
    mend<"section", &ItemPath::section>(path);
    mend<"item", &ItemPath::item>(path);
    mend<"row", &ItemPath::item>(path);
}

}  // namespace sim
