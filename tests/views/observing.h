// What tests of views look at from outside: sends in their order.
#pragma once
#include <string>
#include <vector>

#include "support/runtime.h"

namespace test {

/// The selectors that observed classes received, in order.
inline std::vector<std::string> heard;

/// From now on the class, a superclass's method not, notes the selector when it is sent, and goes on as
/// before. Booleans are ints here.
template <objc::Name Selector, class Result = void, class... Arguments>
void observe(Class observed) {
    static IMP previous = nullptr;
    IMP noting = reinterpret_cast<IMP>(+[](id self, SEL selector, Arguments... arguments) -> Result {
        heard.emplace_back(Selector.text);
        return call<Result>(previous, self, selector, arguments...);
    });
    MSHookMessageEx(observed, sel_registerName(Selector.text), noting, &previous);
    ASSERT_NE(previous, nullptr) << class_getName(observed) << " " << Selector.text;
}
template <objc::Name Selector, class Result = void, class... Arguments>
void observe(const char* class_name) {
    observe<Selector, Result, Arguments...>(objc_getClass(class_name));
}

inline std::vector<id> elements(NSArray* array) {
    std::vector<id> objects;
    for (NSUInteger i = 0; i < array->count(); ++i) objects.push_back(array->objectAtIndex(i));
    return objects;
}
inline std::vector<id> subviews_of(id view) { return elements(static_cast<UIView*>(view)->subviews()); }

/// A new object of the class, by the send that follows.
inline id allocated(const char* class_name) { return objc::send<"alloc", id>(class_named(class_name)); }

/// The average of an image, with its alpha.
inline Rgba average(UIImage* image) {
    return rgba(objc::send<"averageColorForImage:", id>(class_named("HCCITool"), image));
}
inline double average_alpha(UIImage* image) {
    return rgba(objc::send<"averageColorWithAlphaForImage:", id>(class_named("HCCITool"), image)).alpha;
}

}  // namespace test
