#include "recorder.h"

#include <utility>

namespace test {

std::vector<std::string>& heard() {
    static std::vector<std::string> lines;
    return lines;
}

std::vector<std::string> just_heard() { return std::exchange(heard(), {}); }

SEL sel(const char* name) { return sel_registerName(name); }

namespace {

std::string number(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

template <objc::Name Selector>
void note_touch(id self, SEL, NSSet* touches, UIEvent*) {
    auto* view = static_cast<UIView*>(self);
    auto* touch = static_cast<UITouch*>(touches->anyObject());
    const CGPoint point = touch->locationInView(view);
    heard().push_back(std::string(Selector.text) + " " + std::to_string(view->tag()) + " at " +
                      number(point.x) + " " + number(point.y));
}

}  // namespace

objc::strong<NSObject> recording_target() {
    Class made = class_with(
        "RecordingTarget", "NSObject",
        {own_method(
             "pressed", [](id, SEL) { heard().push_back("pressed"); }, "v@:"),
         own_method(
             "pressedBy:",
             [](id, SEL, UIView* sender) { heard().push_back("pressedBy " + std::to_string(sender->tag())); },
             "v@:@"),
         own_method(
             "pressedBy:event:",
             [](id, SEL, UIView* sender, UIEvent* event) {
                 heard().push_back("pressedBy " + std::to_string(sender->tag()) +
                                   (event ? " with an event" : " without an event"));
             },
             "v@:@@")});
    return objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
}

objc::strong<UIView> touch_recording_view(CGRect frame, NSInteger tag) {
    Class made = class_with("TouchRecordingView", "UIView",
                            {own_method("touchesBegan:withEvent:", note_touch<"began">, "v@:@@"),
                             own_method("touchesMoved:withEvent:", note_touch<"moved">, "v@:@@"),
                             own_method("touchesEnded:withEvent:", note_touch<"ended">, "v@:@@"),
                             own_method("touchesCancelled:withEvent:", note_touch<"cancelled">, "v@:@@")});
    auto view = objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame(frame);
    view->setTag(tag);
    return view;
}

}  // namespace test
