// What is wrong with layouts, in words.
#pragma once
#include <string>
#include <vector>

#include "uikit/layout/NSLayoutConstraint.h"

namespace sim {

struct LayoutReport {
    enum class Problem { conflict, ambiguity };
    Problem problem;
    /// One line; it names views by their classes and places in the tree.
    std::string line;
};

/// All that was reported so far, in order; it never becomes less.
const std::vector<LayoutReport>& layout_reports();
/// Adds it, and writes the line to stderr.
void report_layout(LayoutReport);

/// "UIView/HCView[1]": the topmost view's class, and the class and index of each view on the way down.
std::string path_of(UIView*);
/// "UIView/UILabel[0].width >= 20 @750".
std::string description_of(Constraint*);

}  // namespace sim
