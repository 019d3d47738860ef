#include "compatibility/look_ups.h"

#include "objc/encoding.h"
#include "platform/coregraphics.h"

namespace compatibility {
namespace {

using enum LookUp::Kind;

constexpr LookUp all[] = {
    {class_name, "_UIBackdropView", "",
     "the keyboard has no colour, gradient or image behind it, and neither has the preview", ""},
    {class_name, "CAFilter", "",
     "the list of keyboards, the bar of web forms and the emoji categories keep the system's colours", ""},
    {class_name, "_UIKBKeyViewLayer", "",
     "the glyphs of the emoji categories are drawn in the highlight colour instead of the text's", ""},
    {class_name, "_UIToolbarContentView", "",
     "the arrows and \"Done\" above the keyboard of a web form keep the system's colours", ""},
    {class_method, "UIKeyboardImpl", "+[UIKeyboardImpl keyboardSizeForInterfaceOrientation:]",
     "the settings' preview has no size", "the settings stop when they show a preview",
     objc::stored<objc::encode_plain_method<CGSize, NSInteger>()>.text},
    {variable, "UIKeyboardPredictionCell", "m_activeView", "",
     "applications stop when suggestions are shown"},
    {variable, "UIInputSwitcherTableCellSegmentView", "_invertedImage", "",
     "applications stop when the list of keyboards is shown"},
    {variable, "UIInputSwitcherTableCellSegmentView", "_originalImage", "",
     "applications stop when the list of keyboards is shown"},
    {variable, "UIWebFormAccessory", "_leftToolbar", "",
     "applications stop when the keyboard of a web form is shown"},
    {variable, "UIWebFormAccessory", "_rightToolbar", "",
     "applications stop when the keyboard of a web form is shown"},
};

}  // namespace

std::span<const LookUp> look_ups() { return all; }

}  // namespace compatibility
