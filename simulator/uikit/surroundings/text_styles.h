// Text as large as the user wants it.
#pragma once
#include <string_view>

#include "platform/uikit.h"

namespace sim {

/// Whether the end of a category's name is one: "L", "AccessibilityXL".
bool is_text_size(std::string_view name);

/// Stops the process for a style that is not known.
UIFont* font_of_text_style(NSString* style);

/// "UICTContentSizeCategoryL"
NSString* content_size_category();

}  // namespace sim
