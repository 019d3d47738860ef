// View controllers: loading, presenting, dismissing, and the messages that they get.
#include "screen_test.h"
#include "support/block.h"

namespace test {
namespace {

using objc::strong;

template <objc::Name Event>
void note(id self, SEL) {
    objc::send_super<Event>(self, objc_getClass("RecordingController"));
    heard().push_back(utf8(objc::send<"title", NSString*>(self)) + " " + Event.text);
}
template <objc::Name Event>
void note_animated(id self, SEL, int animated) {
    objc::send_super<Event>(self, objc_getClass("RecordingController"), (animated & 0xff) != 0);
    heard().push_back(utf8(objc::send<"title", NSString*>(self)) + " " + Event.text);
}

strong<UIViewController> recording_controller(const char* title) {
    Class made = class_with("RecordingController", "UIViewController",
                            {own_method("loadView", note<"loadView">, "v@:"),
                             own_method("viewDidLoad", note<"viewDidLoad">, "v@:"),
                             own_method("viewWillAppear:", note_animated<"viewWillAppear:">, "v@:B"),
                             own_method("viewDidAppear:", note_animated<"viewDidAppear:">, "v@:B"),
                             own_method("viewWillDisappear:", note_animated<"viewWillDisappear:">, "v@:B"),
                             own_method("viewDidDisappear:", note_animated<"viewDidDisappear:">, "v@:B"),
                             own_method("viewWillLayoutSubviews", note<"viewWillLayoutSubviews">, "v@:"),
                             own_method("viewDidLayoutSubviews", note<"viewDidLayoutSubviews">, "v@:")});
    auto controller = objc::adopt(objc::send<"new", UIViewController*>(reinterpret_cast<id>(made)));
    controller->send<"setTitle:">(text(title));
    return controller;
}

class Controllers : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        just_heard();
    }
    static void present(UIViewController* controller) {
        ASSERT_EQ(sim_present(controller), SIM_OK) << sim_last_error();
    }
    static UIViewController* presented() {
        void* controller = nullptr;
        EXPECT_EQ(sim_presented(&controller), SIM_OK) << sim_last_error();
        return static_cast<UIViewController*>(static_cast<id>(controller));
    }
    Phone phone;
};

TEST_F(Controllers, LoadTheirViewWhenItIsAskedFor) {
    auto a = recording_controller("A");
    EXPECT_FALSE(a->isViewLoaded());
    EXPECT_EQ(just_heard(), Heard{});
    UIView* view = a->view();
    EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(a->view(), view);
    EXPECT_TRUE(a->isViewLoaded());
    EXPECT_EQ(just_heard(), (Heard{"A loadView", "A viewDidLoad"}));
}

TEST_F(Controllers, AppearWhenTheyArePresented) {
    auto a = recording_controller("A");
    present(a);
    EXPECT_EQ(just_heard(),
              (Heard{"A loadView", "A viewDidLoad", "A viewWillAppear:", "A viewWillLayoutSubviews",
                     "A viewDidLayoutSubviews", "A viewDidAppear:"}));
    EXPECT_EQ(presented(), a.get());
    EXPECT_NE(a->view()->window(), nullptr);
}

TEST_F(Controllers, DisappearWhenTheyDismissThemselves) {
    auto a = recording_controller("A");
    present(a);
    just_heard();
    bool completed = false;
    Block done([&](int) { completed = true; });
    a->dismissViewController(true, done);
    EXPECT_TRUE(completed);
    EXPECT_EQ(just_heard(), (Heard{"A viewWillDisappear:", "A viewDidDisappear:"}));
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(a->presentingViewController(), nullptr);
    EXPECT_EQ(a->view()->window(), nullptr);
}

TEST_F(Controllers, AFullScreenCoversAndUncoversItsPresenter) {
    auto a = recording_controller("A"), b = recording_controller("B");
    b->view();
    present(a);
    just_heard();
    bool completed = false;
    Block done([&](int) { completed = true; });
    a->presentViewController(b, true, done);
    EXPECT_TRUE(completed);
    EXPECT_EQ(just_heard(), (Heard{"A viewWillDisappear:", "B viewWillAppear:", "B viewWillLayoutSubviews",
                                   "B viewDidLayoutSubviews", "B viewDidAppear:", "A viewDidDisappear:"}));
    EXPECT_EQ(a->view()->window(), nullptr);
    EXPECT_EQ(presented(), b.get());
    EXPECT_EQ(a->presentedViewController(), b.get());
    EXPECT_EQ(b->presentingViewController(), a.get());
    b->dismissViewController(true, nullptr);
    EXPECT_EQ(
        just_heard(),
        (Heard{"B viewWillDisappear:", "A viewWillAppear:", "A viewDidAppear:", "B viewDidDisappear:"}));
    EXPECT_NE(a->view()->window(), nullptr);
    EXPECT_EQ(presented(), a.get());
}

TEST_F(Controllers, OneOverFullScreenLeavesItsPresenterWhereItIs) {
    auto a = recording_controller("A"), b = recording_controller("B");
    b->setModalPresentationStyle(UIModalPresentationOverFullScreen);
    b->view();
    present(a);
    just_heard();
    a->presentViewController(b, false, nullptr);
    EXPECT_EQ(just_heard(), (Heard{"B viewWillAppear:", "B viewWillLayoutSubviews", "B viewDidLayoutSubviews",
                                   "B viewDidAppear:"}));
    EXPECT_NE(a->view()->window(), nullptr);
}

TEST_F(Controllers, DismissingTakesAwayWhatIsPresentedAbove) {
    auto a = recording_controller("A"), b = recording_controller("B");
    present(a);
    a->presentViewController(b, false, nullptr);
    a->presentingViewController()->dismissViewController(false, nullptr);
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(b->presentingViewController(), nullptr);
}

TEST_F(Controllers, PresentingASecondOneIsIgnored) {
    auto a = recording_controller("A"), b = recording_controller("B");
    present(a);
    a->presentingViewController()->presentViewController(b, false, nullptr);
    EXPECT_EQ(presented(), a.get());
    EXPECT_EQ(b->presentingViewController(), nullptr);
}

TEST_F(Controllers, AreTheNextRespondersOfTheirViews) {
    auto a = recording_controller("A");
    present(a);
    EXPECT_EQ(a->view()->nextResponder(), a.get());
    EXPECT_EQ(a->nextResponder(), a->view()->superview());
    UIResponder* last = a;
    while (last->nextResponder()) last = last->nextResponder();
    EXPECT_EQ(last, UIApplication::sharedApplication());
}

TEST_F(Controllers, AreToldOfEveryLayoutOfTheirView) {
    auto a = recording_controller("A");
    present(a);
    just_heard();
    a->view()->setNeedsLayout();
    a->view()->layoutIfNeeded();
    EXPECT_EQ(just_heard(), (Heard{"A viewWillLayoutSubviews", "A viewDidLayoutSubviews"}));
}

TEST_F(Controllers, AViewOutlivesItsController) {
    auto a = recording_controller("A");
    strong<UIView> view = a->view();
    a = nullptr;
    EXPECT_EQ(view->nextResponder(), nullptr);
    view->setNeedsLayout();
    view->layoutIfNeeded();
}

TEST_F(Controllers, AreLetGoOfWhenSomethingElseIsShown) {
    auto a = recording_controller("A");
    {
        objc::AutoreleasePool pool;
        present(a);
        ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    }
    EXPECT_EQ((a->send<"retainCount", NSUInteger>()), 1u);
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(a->presentingViewController(), nullptr);
}

TEST_F(Controllers, OnlyAControllerIsPresented) {
    auto view = UIView::alloc()->initWithFrame({});
    EXPECT_EQ(sim_present(view.get()), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(),
                 "sim_present: the object is of the class UIView, which is not a UIViewController");
    EXPECT_EQ(sim_present(nullptr), SIM_MISUSE);
    EXPECT_EQ(sim_presented(nullptr), SIM_MISUSE);
    EXPECT_EQ(presented(), nullptr);
}

TEST_F(Controllers, TheApplicationKnowsItsWindowAndTheStatusBar) {
    auto* application = UIApplication::sharedApplication();
    EXPECT_EQ(application, UIApplication::sharedApplication());
    EXPECT_EQ(application->keyWindow(), nullptr);
    EXPECT_EQ(application->statusBarOrientation(), UIInterfaceOrientationPortrait);
    application->setStatusBarOrientation(3);
    EXPECT_EQ(application->statusBarOrientation(), 3);
    auto a = recording_controller("A");
    present(a);
    EXPECT_EQ(application->keyWindow(), a->view()->window());
}

}  // namespace
}  // namespace test
