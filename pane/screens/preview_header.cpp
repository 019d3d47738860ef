#include "pane/screens/preview_header.h"

#include <algorithm>

#include "pane/model/library.h"
#include "platform/application.h"

namespace pane {
namespace {

constexpr CGFloat margin = 16;

CGFloat scale_for(CGFloat width, CGSize keyboard) {
    return keyboard.width > 0 ? std::min(1.0, (width - 2 * margin) / keyboard.width) : 0;
}

}  // namespace

CGFloat preview_height(CGFloat width) {
    if (library_fault()) return 0;
    const CGSize keyboard = HCPreview::keyboardPortraitSize();
    return keyboard.height * scale_for(width, keyboard) + 2 * margin;
}

void show_preview(HuecraftConfig* theme, UIView* in) {
    while (NSObject* shown = static_cast<NSObject*>(in->subviews()->lastObject()))
        static_cast<UIView*>(static_cast<id>(shown))->removeFromSuperview();
    if (!theme) return;
    const CGSize keyboard = HCPreview::keyboardPortraitSize();
    UIView* preview = HCPreview::sharedInstance()->viewForConfig(theme);
    const CGSize room = in->bounds().size;
    CGFloat scale = scale_for(room.width, keyboard);
    if (keyboard.height > 0) scale = std::min(scale, (room.height - 2 * margin) / keyboard.height);
    if (!preview || scale <= 0) return;
    preview->setAutoresizingMask(0);
    preview->setFrame({{0, 0}, keyboard});
    preview->setTransform({scale, 0, 0, scale, 0, 0});
    preview->setCenter({room.width / 2, room.height / 2});
    preview->setClipsToBounds(true);
    preview->layer()->setCornerRadius(8);
    preview->setUserInteractionEnabled(false);
    in->addSubview(preview);
}

}  // namespace pane
