// The recognisers that watch the fingers which are down.
#pragma once
#include "platform/gestures.h"

namespace sim {

/// Every enabled recogniser of the view and of those around it watches the touches, unless its delegate does
/// not want them.
void watch(UIView* view, NSSet* touches);

/// Sends the recognisers what became of the touches: one of UIResponder's four messages.
void notify_recognisers(UITouchPhase phase, UIEvent* event);

/// Seconds have passed: a finger that lies still may be a long press.
void let_recognisers_wait();

/// Whether one of them has taken the touches away from the view, or from a scroll view.
bool has_taken_touches();

/// The fingers are lifted: all of them are ready for the next.
void end_watching();

/// One that is going on is cancelled; it watches no more.
void stop_watching(UIGestureRecognizer*);

/// Those that may not begin beside this one, which has, fail.
void others_give_way(UIGestureRecognizer*);

}  // namespace sim
