// Navigation controllers: the stack, the bar above it, and what its controllers are sent.
#include "page_test.h"

namespace test {
namespace {

using objc::strong;

template <objc::Name Event>
void note(id self, SEL, int animated) {
    objc::send_super<Event>(self, objc_getClass("NotingPage"), (animated & 0xff) != 0);
    auto* page = static_cast<UIViewController*>(self);
    heard().push_back(utf8(page->title()) + " " + Event.text +
                      (page->isMovingFromParentViewController() ? " leaving" : ""));
}

class Navigation : public Pages {
  protected:
    strong<UIViewController> noting(const char* title) {
        Class made = class_with("NotingPage", "UIViewController",
                                {own_method("viewWillAppear:", note<"viewWillAppear:">, "v@:B"),
                                 own_method("viewDidAppear:", note<"viewDidAppear:">, "v@:B"),
                                 own_method("viewWillDisappear:", note<"viewWillDisappear:">, "v@:B"),
                                 own_method("viewDidDisappear:", note<"viewDidDisappear:">, "v@:B")});
        auto page = objc::adopt(objc::send<"new", UIViewController*>(reinterpret_cast<id>(made)));
        page->setTitle(text(title));
        page->view()->setBackgroundColor(UIColor::whiteColor());
        return page;
    }
    strong<UINavigationController> show(UIViewController* root) {
        auto navigation = UINavigationController::alloc()->initWithRootViewController(root);
        present(navigation);
        return navigation;
    }
    static std::vector<std::string> titles(NSArray* controllers) {
        std::vector<std::string> all;
        for (NSUInteger i = 0; i < controllers->count(); ++i)
            all.push_back(utf8(static_cast<UIViewController*>(controllers->objectAtIndex(i))->title()));
        return all;
    }
    using Titles = std::vector<std::string>;
};

TEST_F(Navigation, TellsTheRootThatItAppears) {
    auto a = noting("A");
    auto navigation = show(a);
    EXPECT_EQ(just_heard(), (Heard{"A viewWillAppear:", "A viewDidAppear:"}));
    EXPECT_EQ(navigation->topViewController(), a.get());
    EXPECT_EQ(a->navigationController(), navigation.get());
    EXPECT_EQ(a->parentViewController(), navigation.get());
}

TEST_F(Navigation, PushingShowsTheNewTopInPlaceOfTheOld) {
    auto a = noting("A"), b = noting("B");
    auto navigation = show(a);
    just_heard();
    navigation->pushViewController(b, true);
    EXPECT_EQ(
        just_heard(),
        (Heard{"A viewWillDisappear:", "B viewWillAppear:", "A viewDidDisappear:", "B viewDidAppear:"}));
    EXPECT_EQ(titles(navigation->viewControllers()), (Titles{"A", "B"}));
    EXPECT_EQ(a->view()->window(), nullptr);
    EXPECT_NE(b->view()->window(), nullptr);
}

TEST_F(Navigation, TheBackButtonPopsAndSaysSo) {
    auto a = noting("A"), b = noting("B");
    auto navigation = show(a);
    navigation->pushViewController(b, true);
    just_heard();
    tap_label("A");
    EXPECT_EQ(just_heard(), (Heard{"B viewWillDisappear: leaving",
                                   "A viewWillAppear:", "B viewDidDisappear: leaving", "A viewDidAppear:"}));
    EXPECT_EQ(navigation->topViewController(), a.get());
    EXPECT_EQ(b->parentViewController(), nullptr);
    EXPECT_EQ(b->navigationController(), nullptr);
}

TEST_F(Navigation, TheRootIsNeverPopped) {
    auto a = page("A");
    auto navigation = show(a);
    EXPECT_EQ(navigation->popViewController(true), nullptr);
    EXPECT_EQ(titles(navigation->viewControllers()), Titles{"A"});
}

TEST_F(Navigation, PopsToTheRootOrToAnyController) {
    auto a = page("A"), b = page("B"), c = page("C"), d = page("D");
    auto navigation = show(a);
    for (UIViewController* each : {b.get(), c.get(), d.get()}) navigation->pushViewController(each, false);
    EXPECT_EQ(titles(navigation->popToViewController(b, true)), (Titles{"C", "D"}));
    EXPECT_EQ(titles(navigation->viewControllers()), (Titles{"A", "B"}));
    EXPECT_EQ(titles(navigation->popToRootViewController(true)), Titles{"B"});
    EXPECT_EQ(raised_by([&] { navigation->popToViewController(d, true); }),
              "NSInternalInconsistencyException");
}

TEST_F(Navigation, PushingOneTwiceRaises) {
    auto a = page("A");
    auto navigation = show(a);
    EXPECT_EQ(raised_by([&] { navigation->pushViewController(a, false); }), "NSInvalidArgumentException");
    auto other = UINavigationController::alloc()->initWithRootViewController(page("B"));
    EXPECT_EQ(raised_by([&] { navigation->pushViewController(other, false); }), "NSInvalidArgumentException");
}

TEST_F(Navigation, ItemsOfTheTopSendTheirActions) {
    auto a = page("A");
    auto target = object_of("BarTarget", "NSObject", {method("pressed:", "v@:@", [](id, SEL, id item) {
                                heard().push_back(utf8(static_cast<UIBarButtonItem*>(item)->title()));
                            })});
    a->navigationItem()->setRightBarButtonItem(
        UIBarButtonItem::alloc()->initWithTitle(text("Apply"), 0, target, sel("pressed:")));
    a->navigationItem()->setLeftBarButtonItem(
        UIBarButtonItem::alloc()->initWithSystemItem(UIBarButtonSystemItemCancel, target, sel("pressed:")));
    show(a);
    tap_label("Apply");
    tap_label("Cancel");
    EXPECT_EQ(just_heard(), (Heard{"Apply", "Cancel"}));
    a->navigationItem()->rightBarButtonItem()->setEnabled(false);
    tap_label("Apply");
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(Navigation, TheBarFollowsTheTopsTitle) {
    auto a = page("A");
    auto navigation = show(a);
    EXPECT_EQ(utf8(navigation->navigationBar()->topItem()->title()), "A");
    a->setTitle(text("Renamed"));
    tap_label("Renamed");
    EXPECT_EQ(sim_tap_label("A"), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_tap_label: nothing on the screen is called \"A\"");
}

TEST_F(Navigation, TheEditButtonTurnsEditingOnAndOff) {
    auto a = page("A");
    a->navigationItem()->setRightBarButtonItem(a->editButtonItem());
    show(a);
    tap_label("Edit");
    EXPECT_TRUE(a->isEditing());
    tap_label("Done");
    EXPECT_FALSE(a->isEditing());
}

TEST_F(Navigation, ThePageLiesBelowTheBarUnlessItSaysOtherwise) {
    auto a = page("A"), b = page("B");
    auto navigation = show(a);
    EXPECT_EQ(a->view()->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(a->view()->safeAreaInsets(), (UIEdgeInsets{64, 0, 0, 0}));
    b->setEdgesForExtendedLayout(UIRectEdgeNone);
    navigation->pushViewController(b, false);
    EXPECT_EQ(b->view()->frame(), (CGRect{{0, 64}, {375, 603}}));
    EXPECT_EQ(b->view()->safeAreaInsets(), (UIEdgeInsets{}));
    navigation->setNavigationBarHidden(true, false);
    a->view()->layoutIfNeeded();
    navigation->popViewController(false);
    EXPECT_EQ(a->view()->safeAreaInsets(), (UIEdgeInsets{20, 0, 0, 0}));
}

TEST_F(Navigation, AScrollViewBeginsBelowTheBar) {
    auto a = page("A");
    auto scroll = UIScrollView::make<"initWithFrame:">(CGRect{{0, 0}, {375, 667}});
    scroll->setContentSize({375, 2000});
    a->view()->addSubview(scroll);
    show(a);
    EXPECT_EQ(scroll->contentOffset(), (CGPoint{0, -64}));
    EXPECT_EQ(scroll->adjustedContentInset(), (UIEdgeInsets{64, 0, 0, 0}));
    scroll->setContentInsetAdjustmentBehavior(UIScrollViewContentInsetAdjustmentNever);
    EXPECT_EQ(scroll->adjustedContentInset(), (UIEdgeInsets{}));
}

TEST_F(Navigation, WhatAPagePresentsCoversTheBar) {
    auto a = page("A"), b = page("B");
    auto navigation = show(a);
    a->presentViewController(b, true, nullptr);
    EXPECT_EQ(navigation->presentedViewController(), b.get());
    EXPECT_EQ(a->presentedViewController(), b.get());
    EXPECT_EQ(b->presentingViewController(), navigation.get());
    EXPECT_EQ(b->view()->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(navigation->view()->window(), nullptr);
    a->dismissViewController(true, nullptr);
    EXPECT_EQ(a->presentedViewController(), nullptr);
    EXPECT_NE(a->view()->window(), nullptr);
}

TEST_F(Navigation, AMemoryWarningReachesEveryController) {
    auto warned = [](const char* name) {
        auto page = objc::adopt(static_cast<UIViewController*>(
            object_of("WarnedPage", "UIViewController",
                      {method("didReceiveMemoryWarning", "v@:",
                              [](id self, SEL) {
                                  heard().push_back(utf8(static_cast<UIViewController*>(self)->title()));
                              })})
                .leak()));
        page->setTitle(text(name));
        return page;
    };
    auto a = warned("A"), b = warned("B"), c = warned("C");
    auto observer = object_of("WarningObserver", "NSObject", {method("warned:", "v@:@", [](id, SEL, id note) {
                                  heard().push_back(utf8(static_cast<NSNotification*>(note)->name()));
                              })});
    NSNotificationCenter::defaultCenter()->addObserver(
        observer, sel("warned:"), UIApplicationDidReceiveMemoryWarningNotification, nullptr);
    auto navigation = show(a);
    navigation->pushViewController(b, false);
    b->presentViewController(c, false, nullptr);
    ASSERT_EQ(sim_warn_of_memory(), SIM_OK) << sim_last_error();
    EXPECT_EQ(just_heard(), (Heard{"UIApplicationDidReceiveMemoryWarningNotification", "A", "B", "C"}));
    NSNotificationCenter::defaultCenter()->removeObserver(observer);
}

}  // namespace
}  // namespace test
