// When constraints are solved, and when views take the places that they say.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// Something changed that the constraints of this view's tree depend on: they are solved again when the tree
/// is laid out the next time.
void layout_changed(UIView*);
/// The view got another place or size, or what it would like its size to be.
void layout_changed_by_frame(UIView*);
void layout_changed_by_content(UIView*);

/// Solves the constraints of the view's tree if something changed. Superviews of views that are to move need
/// layout afterwards.
void bring_layout_up_to_date(UIView*);

/// Gives the subviews the places that the constraints say, before the view lays them out itself.
void place_subviews(UIView*);

}  // namespace sim
