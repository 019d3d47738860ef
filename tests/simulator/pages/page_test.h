// What the tests of pages share: a phone that shows a navigation controller.
#pragma once
#include "controls/recorder.h"
#include "objc/block.h"
#include "platform/alerts.h"
#include "platform/gestures.h"
#include "platform/services.h"
#include "platform/sharing.h"
#include "platform/tables.h"
#include "support/block.h"
#include "support/phone.h"

namespace test {

inline void tap_label(const char* label) { ASSERT_EQ(sim_tap_label(label), SIM_OK) << sim_last_error(); }
inline void touch(sim_touch_phase phase, double x, double y) {
    ASSERT_EQ(sim_touch(phase, x, y), SIM_OK) << sim_last_error();
}

/// A class made here, with methods that are lambdas: `made_class("Rows", "NSObject", {method(…)})`.
template <class Function>
OwnMethod method(const char* selector, const char* types, Function function) {
    return own_method(selector, function, types);
}

inline objc::strong<NSObject> object_of(const char* name, const char* superclass,
                                        const std::vector<OwnMethod>& methods) {
    return objc::adopt(
        objc::send<"new", NSObject*>(reinterpret_cast<id>(class_with(name, superclass, methods))));
}

class Pages : public testing::Test {
  protected:
    void SetUp() override { start({}); }
    void start(const Phone::Options& options) {
        phone.boot(options);
        just_heard();
    }
    static void present(UIViewController* controller) {
        ASSERT_EQ(sim_present(controller), SIM_OK) << sim_last_error();
    }
    /// A controller with that title, whose view is white.
    static objc::strong<UIViewController> page(const char* title) {
        auto made = UIViewController::make();
        made->setTitle(text(title));
        made->view()->setBackgroundColor(UIColor::whiteColor());
        return made;
    }
    Phone phone;
};

}  // namespace test
