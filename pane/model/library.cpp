#include "pane/model/library.h"

#include "pane/huecraft.h"

namespace pane {
namespace {

template <objc::Name Question, objc::Name... Selectors>
bool all_answered(Class by) {
    const SEL all[] = {objc::selector<Selectors>()...};
    for (SEL each : all)
        if (!objc::send<Question, bool>(reinterpret_cast<id>(by), each)) return false;
    return true;
}

template <objc::Name... Selectors>
bool answers(Class to) {
    return all_answered<"respondsToSelector:", Selectors...>(to);
}

template <objc::Name... Selectors>
bool instances_answer(Class of) {
    return all_answered<"instancesRespondToSelector:", Selectors...>(of);
}

/// The same of a class that may be missing.
template <objc::Name... Selectors>
bool fits(Class cls) {
    return !cls || instances_answer<Selectors...>(cls);
}

bool has_themes() {
    Class cls = HuecraftConfig::class_object();
    return answers<"defaultConfig">(cls) &&
           instances_answer<"getConfigName", "getTextColor", "getHighlightColor", "getBackgroundType",
                            "getGradientDirection", "getColors", "getImage", "getImageAlpha",
                            "getVisibleKeycaps", "setConfigName:", "setTextColor:", "setHighlightColor:",
                            "setBackgroundType:", "setGradientDirection:", "setColors:", "setImageData:",
                            "setImageAlpha:", "setVisibleKeycaps:", "asPlist">(cls);
}

bool has_preview() {
    Class cls = HCPreview::class_object();
    return cls && answers<"sharedInstance", "keyboardPortraitSize">(cls) &&
           instances_answer<"viewForConfig:", "cleanup">(cls);
}

bool has_tool() {
    Class cls = HCCITool::class_object();
    return cls && answers<"hexStringFromColor:", "colorFromHexString:", "newColor:forImage:">(cls);
}

/// Without these the editor does without them.
bool what_is_there_of_the_rest_fits() {
    return fits<"setInitialColor:", "updateToColor:", "shakeWrong", "setDelegate:", "modal", "hexTextField",
                "recentColorDictionary", "setRecentColorDictionary:", "recentColors", "setRecentColors:">(
               HCColorPickerController::class_object()) &&
           fits<"contentView", "panelView", "shadowView">(HCModalView::class_object()) &&
           fits<"initWithImage:alpha:", "setImageAlpha:">(HCImageView::class_object());
}

}  // namespace

NSString* library_fault() {
    if (!HuecraftConfig::class_object()) return text<"Huecraft itself is not loaded here.">();
    const bool fits = has_themes() && has_preview() && has_tool() && what_is_there_of_the_rest_fits();
    return fits ? nullptr : text<"The Huecraft that is loaded here is of another version. Update both.">();
}

}  // namespace pane
