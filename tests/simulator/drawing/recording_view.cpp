#include "recording_view.h"

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

template <class Function>
void add(Class made, const char* selector, Function* function, const char* types) {
    class_addMethod(made, sel_registerName(selector), reinterpret_cast<IMP>(function), types);
}

Class recording_class() {
    if (Class known = objc_getClass("RecordingView")) return known;
    Class made = objc_allocateClassPair(UIView::class_object(), "RecordingView", 0);
    add(made, "willMoveToSuperview:", note_view<"willMoveToSuperview:">, "v@:@");
    add(made, "didMoveToSuperview", note<"didMoveToSuperview">, "v@:");
    add(made, "didAddSubview:", note_view<"didAddSubview:">, "v@:@");
    add(made, "willRemoveSubview:", note_view<"willRemoveSubview:">, "v@:@");
    add(made, "layoutSubviews", note<"layoutSubviews">, "v@:");
    add(made, "tintColorDidChange", note<"tintColorDidChange">, "v@:");
    objc_registerClassPair(made);
    return made;
}

}  // namespace

std::vector<std::string>& messages() {
    static std::vector<std::string> messages;
    return messages;
}

objc::strong<UIView> recording_view(CGRect frame, NSInteger tag) {
    auto view = objc::send<"alloc", UIView*>(reinterpret_cast<id>(recording_class()))->initWithFrame(frame);
    view->setTag(tag);
    messages().clear();
    return view;
}

}  // namespace test
