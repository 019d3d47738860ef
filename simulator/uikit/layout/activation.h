// Which view holds which active constraints.
#pragma once
#include "uikit/layout/NSLayoutConstraint.h"

namespace sim {

/// The nearest view that has all views of the constraint inside it, or is one of them, holds it from now on.
/// Raises NSGenericException when there is none. Nothing happens to an active constraint, and to one whose
/// view is gone.
void activate(Constraint*);
void deactivate(Constraint*);

/// Deactivates the constraints between the view's tree and what is outside it: the view leaves its superview.
void drop_constraints_across(UIView* leaving);
/// Deactivates what a view holds that goes away.
void drop_constraints_of(UIView* dying);

/// How many constraints are active in the process. Without any, views take no notice of this kind of layout.
size_t active_constraint_count();

}  // namespace sim
