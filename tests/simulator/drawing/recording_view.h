// A view that writes down what it is told.
#pragma once
#include <string>
#include <vector>

#include "drawing_test.h"

namespace test {

/// What the recording views were told, in order: "didMoveToSuperview", "layoutSubviews 3" with the view's
/// tag.
std::vector<std::string>& told();

/// A new view of a class that records; the class is made when first asked for.
objc::strong<UIView> recording_view(CGRect frame = {{0, 0}, {10, 10}}, NSInteger tag = 0);

}  // namespace test
