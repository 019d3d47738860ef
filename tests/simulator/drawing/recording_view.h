// A view that records the messages that it gets.
#pragma once
#include <string>
#include <vector>

#include "drawing_test.h"

namespace test {

/// The messages that the recording views got, in order: "didMoveToSuperview", "layoutSubviews 3" with the
/// view's tag.
std::vector<std::string>& messages();

/// A new view of a class that records; the class is made when first asked for.
objc::strong<UIView> recording_view(CGRect frame = {{0, 0}, {10, 10}}, NSInteger tag = 0);

}  // namespace test
