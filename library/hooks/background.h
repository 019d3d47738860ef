// The keyboard's background: the themed view inside a system backdrop. Each body's row is in hook_table.h.
#pragma once
#include "objc/hook.h"
#include "platform/keyboard.h"

namespace hooks {

/// `activeBackgroundView`, added to UIKBBackdropView: the themed backdrop inside it, or nil.
id active_background_view(UIKBBackdropView* self);
void set_active_background_view(UIKBBackdropView* self, id view);

using BackdropInit = objc::strong<UIKBBackdropView>(CGRect, NSInteger);
objc::strong<UIKBBackdropView> install_background(objc::Previous<BackdropInit> previous,
                                                  UIKBBackdropView* self, CGRect frame, NSInteger style);
objc::strong<UIKBBackdropView> approximate_background(objc::Previous<BackdropInit> previous,
                                                      UIKBBackdropView* self, CGRect frame, NSInteger style);
UIKBBackdropView* put_image_behind(objc::Previous<UIKBBackdropView*()> previous, UIKBInputBackdropView* self);
void strip_pieces(UIKBInputBackdropView* self);

/// `removeKBBackdropEffects:`, added to UIKBInputBackdropView: takes the themed backdrop out of a piece.
void remove_backdrop_effects(UIKBInputBackdropView* self, id piece);

}  // namespace hooks
