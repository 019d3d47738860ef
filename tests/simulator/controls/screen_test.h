// What the tests of controls share: a phone that shows an empty view, and a finger.
#pragma once
#include "recorder.h"
#include "support/phone.h"

namespace test {

class Screen : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override { root = nullptr; }

    static void touch(sim_touch_phase phase, double x, double y) {
        ASSERT_EQ(sim_touch(phase, x, y), SIM_OK) << sim_last_error();
    }
    static void press(double x, double y) { touch(SIM_TOUCH_BEGAN, x, y); }
    static void move(double x, double y) { touch(SIM_TOUCH_MOVED, x, y); }
    static void lift(double x, double y) { touch(SIM_TOUCH_ENDED, x, y); }
    static void tap(double x, double y) { ASSERT_EQ(sim_tap(x, y), SIM_OK) << sim_last_error(); }

    /// A view of that class in the root view, by initWithFrame:.
    template <class View>
    View* add(CGRect frame) {
        auto view = objc::adopt(static_cast<View*>(View::alloc()->initWithFrame(frame).leak()));
        root->addSubview(view);
        return view.get();
    }

    Phone phone;
    /// 375 x 667 points, white, on the screen.
    objc::strong<UIView> root;
};

}  // namespace test
