// Index paths of items in sections.
#pragma once

namespace sim {

/// Gives Foundation's NSIndexPath the methods that UIKit adds to it. Called once, at boot.
void add_items_to_index_paths();

}  // namespace sim
