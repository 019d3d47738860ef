// Previews on the client's screen.
#include "client.h"

namespace test {
namespace {

class ClientPreview : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        screen = made("PaneThemeController");
        theme = Configuration::made_default();
        ask<"setTheme:", void>(screen, theme.object);
    }
    UIView* preview() const {
        const auto views = subviews_of(ask<"view">(screen));
        EXPECT_EQ(views.size(), 1u);
        return static_cast<UIView*>(views.at(0));
    }
    std::vector<std::string> layers() const {
        std::vector<std::string> names;
        for (id each : subviews_of(preview())) names.emplace_back(object_getClassName(each));
        return names;
    }

    id screen = nullptr;
    Configuration theme;
};

TEST_F(ClientPreview, IsOnTheScreenInTheKeyboardsSize) {
    present(screen);
    EXPECT_EQ(preview()->frame(), (CGRect{{0, 100},
                                          objc::send<"keyboardSizeForInterfaceOrientation:", CGSize>(
                                              class_named("UIKeyboardImpl"), NSInteger{1})}));
    EXPECT_EQ(layers(), (std::vector<std::string>{"UIImageView", "_UIBackdropGradientView", "UIImageView",
                                                  "UIImageView"}));
}

TEST_F(ClientPreview, OfAFlatThemeWithKeyCaps) {
    ask<"setBackgroundType:", void>(theme.object, NSUInteger{1});
    ask<"setVisibleKeycaps:", void>(theme.object, true);
    present(screen);
    EXPECT_EQ(layers(), (std::vector<std::string>{"UIImageView", "_UIBackdropColouredView", "UIImageView",
                                                  "UIImageView", "UIImageView"}));
}

TEST_F(ClientPreview, ShownAnewLeavesTheOldContainerEmpty) {
    present(screen);
    objc::strong<UIView> before = preview();
    ask<"showPreview", void>(screen);
    EXPECT_NE(preview(), before);
    EXPECT_TRUE(subviews_of(before).empty());
    EXPECT_EQ(layers().size(), 4u);
}

TEST_F(ClientPreview, IsTakenApartWhenTheClientLeaves) {
    present(screen);
    ask<"leavePreview", void>(screen);
    EXPECT_TRUE(layers().empty());
}

TEST_F(ClientPreview, LooksLikeTheTheme) {
    present(screen);
    expect_picture("client-preview");
}

}  // namespace
}  // namespace test
