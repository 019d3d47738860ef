// Fonts of the user's size, and the names of what the user can choose.
#include "uikit/surroundings/text_styles.h"

#include <string_view>

#include "foundation/text.h"
#include "objc/string.h"
#include "phone/device.h"
#include "platform/uikit.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {
using namespace objc::literals;

struct Style {
    std::string_view name;
    /// Points at the size that the phone comes with.
    double size;
    bool bold = false;
};
constexpr Style styles[] = {
    {"UICTFontTextStyleTitle1", 28},   {"UICTFontTextStyleTitle2", 22},
    {"UICTFontTextStyleTitle3", 20},   {"UICTFontTextStyleHeadline", 17, true},
    {"UICTFontTextStyleSubhead", 15},  {"UICTFontTextStyleBody", 17},
    {"UICTFontTextStyleCallout", 16},  {"UICTFontTextStyleFootnote", 13},
    {"UICTFontTextStyleCaption1", 12}, {"UICTFontTextStyleCaption2", 11},
};

struct Category {
    std::string_view name;
    /// Points that are added to each size.
    double more;
};
// The body's steps, for every style: each has steps of its own on the device.
constexpr Category categories[] = {
    {"XS", -3},
    {"S", -2},
    {"M", -1},
    {"L", 0},
    {"XL", 2},
    {"XXL", 4},
    {"XXXL", 6},
    {"AccessibilityM", 11},
    {"AccessibilityL", 16},
    {"AccessibilityXL", 23},
    {"AccessibilityXXL", 30},
    {"AccessibilityXXXL", 36},
};

const Category* category_named(std::string_view name) {
    for (const Category& category : categories)
        if (category.name == name) return &category;
    return nullptr;
}

}  // namespace

namespace sim {

bool is_text_size(std::string_view name) { return category_named(name) != nullptr; }

UIFont* font_of_text_style(NSString* style) {
    const std::string_view wanted = style ? style->UTF8String() : "";
    for (const Style& known : styles)
        if (known.name == wanted) {
            const double size = known.size + category_named(device().text_size)->more;
            return UIFont::systemFontOfSize(size, known.bold ? UIFontWeightSemibold : UIFontWeightRegular);
        }
    not_modelled("UIFont", "preferredFontForTextStyle:", "a style that is not known");
}

NSString* content_size_category() { return string_of("UICTContentSizeCategory" + device().text_size); }

}  // namespace sim

extern "C" {
[[gnu::visibility("default")]] NSString* const UIFontTextStyleTitle1 = "UICTFontTextStyleTitle1"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleTitle2 = "UICTFontTextStyleTitle2"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleTitle3 = "UICTFontTextStyleTitle3"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleHeadline = "UICTFontTextStyleHeadline"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleSubheadline = "UICTFontTextStyleSubhead"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleBody = "UICTFontTextStyleBody"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleCallout = "UICTFontTextStyleCallout"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleFootnote = "UICTFontTextStyleFootnote"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleCaption1 = "UICTFontTextStyleCaption1"_ns;
[[gnu::visibility("default")]] NSString* const UIFontTextStyleCaption2 = "UICTFontTextStyleCaption2"_ns;
}

SIM_EXPORTED bool UIAccessibilityIsReduceMotionEnabled() { return sim::device().reduce_motion; }
