// The stack of contexts that UIKit draws into, and images made with them.
#include <vector>

#include "coregraphics/CGContext.h"
#include "coregraphics/CGImage.h"
#include "platform/uikit.h"
#include "runtime/exported.h"

namespace {

struct Entry {
    /// Null for an image whose size cannot be drawn: it stays current until its end, and shows nothing.
    objc::strong<CGContext> context;
    /// Pixels per point of an image; 0 for a context that was pushed.
    CGFloat image_scale;
};

std::vector<Entry>& stack() {
    static auto* entries = new std::vector<Entry>;
    return *entries;
}

}  // namespace

SIM_EXPORTED void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale) {
    if (scale == 0) scale = UIScreen::mainScreen()->scale();
    stack().push_back({sim::image_context(size, opaque, scale), scale});
}

SIM_EXPORTED void UIGraphicsBeginImageContext(CGSize size) {
    UIGraphicsBeginImageContextWithOptions(size, false, 1);
}

SIM_EXPORTED CGContextRef UIGraphicsGetCurrentContext() {
    return stack().empty() ? nullptr : stack().back().context.get();
}

SIM_EXPORTED void UIGraphicsPushContext(CGContextRef context) { stack().push_back({context, 0}); }

SIM_EXPORTED void UIGraphicsPopContext() {
    if (!stack().empty() && stack().back().image_scale == 0) stack().pop_back();
}

SIM_EXPORTED UIImage* UIGraphicsGetImageFromCurrentImageContext() {
    if (stack().empty() || stack().back().image_scale == 0 || !stack().back().context) return nullptr;
    const Entry& entry = stack().back();
    return UIImage::imageWithCGImage(sim::image_of(sim::canvas_of(entry.context)), entry.image_scale,
                                     UIImageOrientationUp);
}

SIM_EXPORTED void UIGraphicsEndImageContext() {
    if (!stack().empty() && stack().back().image_scale != 0) stack().pop_back();
}

SIM_EXPORTED void UIRectFill(CGRect rect) {
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSaveGState(context);
    CGContextSetBlendMode(context, kCGBlendModeCopy);
    CGContextFillRect(context, rect);
    CGContextRestoreGState(context);
}
