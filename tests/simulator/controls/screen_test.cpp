#include "screen_test.h"

namespace test {

void Screen::SetUp() {
    phone.boot();
    auto controller = objc::adopt(UIViewController::class_send<"new", UIViewController*>());
    controller->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    root = controller->view();
    root->setBackgroundColor(UIColor::whiteColor());
    ASSERT_EQ(sim_present(controller.get()), SIM_OK) << sim_last_error();
}

}  // namespace test
