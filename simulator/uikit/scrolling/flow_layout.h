// Where a flow layout puts the items of a collection view.
#pragma once
#include <vector>

#include "platform/scrolling.h"

namespace sim {

struct PlacedItem {
    NSInteger section, item;
    CGRect frame;
};

/// The items in their order, and the size of everything.
struct FlowResult {
    std::vector<PlacedItem> items;
    CGSize content{};
};

/// `counts` has the numbers of items by section. The collection view's delegate is asked for what it wants to
/// say itself.
FlowResult flow(UICollectionView*, UICollectionViewFlowLayout*, const std::vector<NSInteger>& counts);

}  // namespace sim
