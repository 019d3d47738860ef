// Any view on the screen, and pictures of a view alone, through the C interface.
#include "platform/uikit.h"
#include "support/phone.h"

namespace test {
namespace {

class ShownView : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static objc::strong<UIView> view_with(CGRect frame, UIColor* background) {
        auto view = UIView::alloc()->initWithFrame(frame);
        view->setBackgroundColor(background);
        return view;
    }
    /// The picture that the last call wrote, one pixel of it to a point.
    UIImage* picture() const { return UIImage::imageWithData(test::data(phone.read("/picture.png"))); }
    std::string path() const { return phone.host("/picture.png").string(); }

    /// The colour of the pixel whose upper left corner is there.
    static Rgba pixel(UIImage* image, CGFloat x, CGFloat y) {
        UIGraphicsBeginImageContextWithOptions({1, 1}, false, 1);
        image->drawAtPoint({-x, -y});
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()));
        const Rgba found{bytes[2] / 255.0, bytes[1] / 255.0, bytes[0] / 255.0, bytes[3] / 255.0};
        UIGraphicsEndImageContext();
        return found;
    }
    static constexpr Rgba red{1, 0, 0, 1}, white{1, 1, 1, 1}, nothing{0, 0, 0, 0};

    Phone phone;
};

TEST_F(ShownView, IsOnThePageOfNotesAtItsFrame) {
    auto view = view_with({{40, 300}, {100, 50}}, UIColor::redColor());
    ASSERT_EQ(sim_show_view(view.get()), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_take_picture(path().c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(picture()->size(), (CGSize{375, 667}));
    EXPECT_EQ(pixel(picture(), 40, 300), red);
    EXPECT_EQ(pixel(picture(), 139, 349), red);
    EXPECT_EQ(pixel(picture(), 39, 300), white);
    EXPECT_EQ(pixel(picture(), 140, 349), white);
    EXPECT_EQ(view->frame(), (CGRect{{40, 300}, {100, 50}}));
}

TEST_F(ShownView, TakesThePlaceOfWhatWasShown) {
    auto first = view_with({{40, 300}, {100, 50}}, UIColor::redColor());
    auto second = view_with({{40, 400}, {100, 50}}, UIColor::redColor());
    ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_show_view(first.get()), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_show_view(second.get()), SIM_OK) << sim_last_error();
    EXPECT_EQ(first->superview(), nullptr);
    ASSERT_EQ(sim_take_picture(path().c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(pixel(picture(), 50, 310), white);
    EXPECT_EQ(pixel(picture(), 50, 410), red);
    EXPECT_EQ(pixel(picture(), 50, 640), white) << "the keyboard is gone";
}

TEST_F(ShownView, IsTheSameWhenItIsShownAgain) {
    auto view = view_with({{40, 300}, {100, 50}}, UIColor::redColor());
    for (int times = 0; times < 2; ++times) {
        ASSERT_EQ(sim_show_view(view.get()), SIM_OK) << sim_last_error();
        ASSERT_EQ(sim_take_picture(path().c_str(), 1), SIM_OK) << sim_last_error();
        EXPECT_EQ(pixel(picture(), 50, 310), red);
    }
}

TEST_F(ShownView, IsOwnedByTheScreenUntilAnotherIsShown) {
    objc::weak<UIView> watched;
    {
        objc::AutoreleasePool pool;
        auto view = view_with({{0, 0}, {10, 10}}, UIColor::redColor());
        watched = view;
        ASSERT_EQ(sim_show_view(view.get()), SIM_OK) << sim_last_error();
    }
    {
        objc::AutoreleasePool pool;
        EXPECT_NE(watched.get(), nullptr);
        ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    }
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(ShownView, APictureOfAViewAloneIsAsLargeAsItsBounds) {
    auto view = view_with({{40, 300}, {20, 10}}, nullptr);
    auto child = view_with({{5, 0}, {5, 100}}, UIColor::redColor());
    view->addSubview(child);
    ASSERT_EQ(sim_take_picture_of(view.get(), path().c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(picture()->size(), (CGSize{20, 10}));
    EXPECT_EQ(pixel(picture(), 5, 0), red);
    EXPECT_EQ(pixel(picture(), 9, 9), red);
    EXPECT_EQ(pixel(picture(), 4, 0), nothing) << "nothing is drawn there";
    ASSERT_EQ(sim_take_picture_of(view.get(), path().c_str(), 0), SIM_OK) << sim_last_error();
    EXPECT_EQ(picture()->size(), (CGSize{40, 20})) << "at the screen's scale";
}

TEST_F(ShownView, TheLastPixelsOfAPictureAreFilledToo) {
    auto view = view_with({{0, 0}, {15, 7}}, UIColor::redColor());
    ASSERT_EQ(sim_take_picture_of(view.get(), path().c_str(), 0.5), SIM_OK) << sim_last_error();
    EXPECT_EQ(picture()->size(), (CGSize{8, 4})) << "7.5 by 3.5";
    EXPECT_EQ(pixel(picture(), 7, 0), red);
    EXPECT_EQ(pixel(picture(), 0, 3), red);
}

TEST_F(ShownView, APictureOfAViewAloneIsLaidOut) {
    auto view = view_with({{0, 0}, {0, 0}}, nullptr);
    auto child = view_with({{0, 0}, {0, 0}}, UIColor::redColor());
    child->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    view->addSubview(child);
    view->setFrame({{0, 0}, {8, 8}});
    ASSERT_EQ(sim_take_picture_of(view.get(), path().c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(pixel(picture(), 7, 7), red);
    EXPECT_FALSE(view->layer()->needsLayout());
}

TEST_F(ShownView, APictureOfAViewAloneLeavesTheScreen) {
    auto view = view_with({{0, 0}, {20, 10}}, UIColor::redColor());
    ASSERT_EQ(sim_take_picture_of(view.get(), path().c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_take_picture(path().c_str(), 1), SIM_BAD_FILE) << "nothing has been shown";
    EXPECT_STREQ(sim_last_error(), "sim_take_picture: nothing is on the screen");
}

TEST_F(ShownView, NilIsRefused) {
    EXPECT_EQ(sim_show_view(nullptr), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_show_view: view is NULL");
    EXPECT_EQ(sim_take_picture_of(nullptr, path().c_str(), 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_take_picture_of: view is NULL");
    auto view = view_with({{0, 0}, {20, 10}}, UIColor::redColor());
    EXPECT_EQ(sim_take_picture_of(view.get(), nullptr, 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_take_picture_of: host_path is NULL");
}

TEST_F(ShownView, AnObjectThatIsNoViewIsRefused) {
    EXPECT_EQ(sim_show_view(CALayer::layer()), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(),
                 "sim_show_view: the object is of the class CALayer, which is not a UIView");
    EXPECT_EQ(sim_take_picture_of(UIView::class_object(), path().c_str(), 1), SIM_MISUSE) << "a class";
}

TEST_F(ShownView, EmptyBoundsAreRefused) {
    for (CGSize size : {CGSize{0, 10}, CGSize{10, 0}, CGSize{NAN, 10}}) {
        auto view = view_with({{0, 0}, size}, UIColor::redColor());
        EXPECT_EQ(sim_take_picture_of(view.get(), path().c_str(), 1), SIM_MISUSE);
        EXPECT_NE(std::string(sim_last_error()).find("the view's bounds are empty"), std::string::npos)
            << sim_last_error();
    }
    EXPECT_FALSE(phone.exists("/picture.png"));
}

TEST_F(ShownView, ASizeBeyondAPicturesIsRefused) {
    auto view = view_with({{0, 0}, {40000, 10}}, UIColor::redColor());
    EXPECT_EQ(sim_take_picture_of(view.get(), path().c_str(), 1), SIM_BAD_FILE);
    EXPECT_NE(std::string(sim_last_error()).find("40000.000000 x 10.000000 points"), std::string::npos)
        << sim_last_error();
}

TEST_F(ShownView, APathThatCannotBeWrittenIsNamed) {
    auto view = view_with({{0, 0}, {20, 10}}, UIColor::redColor());
    const std::string nowhere = phone.host("/no/folder/picture.png");
    EXPECT_EQ(sim_take_picture_of(view.get(), nowhere.c_str(), 1), SIM_BAD_FILE);
    EXPECT_NE(std::string(sim_last_error()).find(nowhere), std::string::npos) << sim_last_error();
}

TEST_F(ShownView, AScaleOutOfRangeIsRefused) {
    auto view = view_with({{0, 0}, {20, 10}}, UIColor::redColor());
    for (double scale : {-1.0, 11.0, double{NAN}})
        EXPECT_EQ(sim_take_picture_of(view.get(), path().c_str(), scale), SIM_MISUSE);
}

TEST(ShownViewBeforeBoot, NeedsAPhone) {
    int object = 0;
    EXPECT_EQ(sim_show_view(&object), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_show_view: the phone is not on; call sim_boot first");
    EXPECT_EQ(sim_take_picture_of(&object, "picture.png", 1), SIM_MISUSE);
    EXPECT_STREQ(sim_last_error(), "sim_take_picture_of: the phone is not on; call sim_boot first");
}

class ViewOnScreen : public ShownView {
  protected:
    static void* found(const char* class_name) {
        void* view = nullptr;
        sim_view_on_screen(class_name, &view);
        return view;
    }
};

TEST_F(ViewOnScreen, IsFoundByItsClass) {
    ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    void* keys = found("UIKBKeyplaneView");
    ASSERT_NE(keys, nullptr) << sim_last_error();
    EXPECT_EQ(static_cast<UIView*>(keys)->bounds().size, (CGSize{375, 216}));
}

TEST_F(ViewOnScreen, OfASubclassCountsAndParentsComeBeforeTheirChildren) {
    auto parent = view_with({{0, 0}, {10, 10}}, nullptr), child = view_with({{0, 0}, {5, 5}}, nullptr);
    parent->addSubview(child);
    ASSERT_EQ(sim_show_view(parent.get()), SIM_OK) << sim_last_error();
    EXPECT_EQ(found("UIResponder"), found("UIView"));
    EXPECT_EQ(found("UIView"), parent->superview()) << "the page";
}

TEST_F(ViewOnScreen, ThatIsNotThereIsNamed) {
    void* view = this;
    EXPECT_EQ(sim_view_on_screen("UIKBKeyplaneView", &view), SIM_NOT_FOUND) << "nothing is shown yet";
    EXPECT_EQ(view, nullptr);
    EXPECT_STREQ(sim_last_error(), "sim_view_on_screen: there is no UIKBKeyplaneView on the screen");
    EXPECT_EQ(sim_view_on_screen("NoSuchClass", &view), SIM_NOT_FOUND);
    EXPECT_EQ(sim_view_on_screen(nullptr, &view), SIM_MISUSE);
    EXPECT_EQ(sim_view_on_screen("UIView", nullptr), SIM_MISUSE);
}

TEST_F(ShownView, LeavesNoKeysOnTheScreen) {
    ASSERT_EQ(sim_show_keyboard(nullptr), SIM_OK) << sim_last_error();
    EXPECT_NE(sim_key_count(), 0u);
    ASSERT_EQ(sim_show_view(view_with({{0, 0}, {10, 10}}, nullptr).get()), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_key_count(), 0u);
}

}  // namespace
}  // namespace test
