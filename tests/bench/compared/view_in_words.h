// A view and what is in it, in words, for comparing two.
#pragma once
#include <string>

#include "platform/uikit.h"

namespace bench {

/// A line for each view and each layer below it: the class, where it is, and what the theme's views are given
/// or left with. Classes of the least are called as the library's.
std::string in_words(UIView* view);

}  // namespace bench
