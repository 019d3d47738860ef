#include "recording_view.h"

#include "support/runtime.h"

namespace test {
namespace {

void record(id self, const char* what) {
    const NSInteger tag = static_cast<UIView*>(self)->tag();
    messages().push_back(tag ? what + (" " + std::to_string(tag)) : what);
}

template <objc::Name Selector>
void note(id self, SEL) {
    record(self, Selector.text);
}
template <objc::Name Selector>
void note_view(id self, SEL, UIView*) {
    record(self, Selector.text);
}

Class class_that_records() {
    return class_with("RecordingView", "UIView",
                      {own_method("willMoveToSuperview:", note_view<"willMoveToSuperview:">, "v@:@"),
                       own_method("didMoveToSuperview", note<"didMoveToSuperview">, "v@:"),
                       own_method("didAddSubview:", note_view<"didAddSubview:">, "v@:@"),
                       own_method("willRemoveSubview:", note_view<"willRemoveSubview:">, "v@:@"),
                       own_method("layoutSubviews", note<"layoutSubviews">, "v@:"),
                       own_method("tintColorDidChange", note<"tintColorDidChange">, "v@:")});
}

}  // namespace

std::vector<std::string>& messages() {
    static std::vector<std::string> messages;
    return messages;
}

objc::strong<UIView> recording_view(CGRect frame, NSInteger tag) {
    auto view =
        objc::send<"alloc", UIView*>(reinterpret_cast<id>(class_that_records()))->initWithFrame(frame);
    view->setTag(tag);
    messages().clear();
    return view;
}

}  // namespace test
