#include "hooks/switcher_accessory.h"

#include "hooks/monochrome_filter.h"
#include "hooks/shared_preferences.h"
#include "objc/fast_enumeration.h"
#include "objc/instance_variable.h"

namespace hooks {

namespace {

constexpr float full_bias = 1.0f;

/// Makes the view's image variable a template, which is drawn in the tint colour. nil stays nil.
void make_template(UIInputSwitcherTableCellSegmentView* self, const char* variable) {
    UIImage*& slot = objc::instance_variable<UIImage*>(self, variable);
    objc::strong<UIImage> converted = slot->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
    auto replaced = objc::adopt(slot);
    slot = converted.leak();
}

}  // namespace

void tint_switcher(UIInputSwitcherTableView* self) {
    self->setTintColor(sharedPreferences->getHighlightColor());
}

/// Filtered once, when the cell is made: a cell keeps the text colour of that time.
objc::strong<UIInputSwitcherTableCell> filter_switcher_label(objc::Previous<CellInit> previous,
                                                             UIInputSwitcherTableCell*, NSInteger style,
                                                             NSString* reuse_identifier) {
    objc::strong<UIInputSwitcherTableCell> cell = previous(style, reuse_identifier);
    set_monochrome_filter(cell->textLabel()->layer(), sharedPreferences->getTextColor()->CGColor(),
                          full_bias);
    return cell;
}

void tint_segment_images(UIInputSwitcherTableCellSegmentView* self) {
    make_template(self, "_invertedImage");
    make_template(self, "_originalImage");
    UIImageView* shown = self->imageView();
    shown->setImage(shown->image()->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate));
    shown->setTintColor(sharedPreferences->getTextColor());
}

/// The toolbars' contents become monochrome in the bar's own tint colour, which is not the theme's.
void filter_toolbars(UIWebFormAccessory* self) {
    for (const char* variable : {"_leftToolbar", "_rightToolbar"})
        objc::for_each<UIView>(
            objc::instance_variable<UIView*>(self, variable)->subviews(), [self](UIView* content) {
                if (content->isKindOfClass(_UIToolbarContentView::class_object()))
                    set_monochrome_filter(content->layer(), self->tintColor()->CGColor(), full_bias);
            });
}

}  // namespace hooks
