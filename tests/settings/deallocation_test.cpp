// What the system's own deallocation of a panel finds.
#include "settings/modal_view.h"
#include "support/runtime.h"

namespace test {
namespace {

TEST_F(ModalView, ItsColoursOutliveTheSystemsDeallocation) {
    static IMP previous;
    static id watched, colour;
    static bool held_then;
    {
        objc::AutoreleasePool pool;
        UIView* view = panel(true);
        watched = view;
        objc::strong<UIColor> own = color(0.1, 0.2, 0.3);
        view->send<"setPrimaryColor:">(own.get());
        objc_initWeak(&colour, own);
        previous = stand_in("UIView", "dealloc", [](id self, SEL selector) {
            if (self == watched) {
                id loaded = objc_loadWeakRetained(&colour);
                held_then = loaded && objc::send<"primaryColor", id>(self) == loaded;
                objc_release(loaded);
            }
            call(previous, self, selector);
        });
    }
    EXPECT_TRUE(held_then);
    EXPECT_EQ(colour, nullptr) << "and it is gone in the end";
}

}  // namespace
}  // namespace test
