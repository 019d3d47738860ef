// The client's backgrounds, and the exported points as it reads them.
#include "client.h"
#include "platform/quartzcore.h"

namespace test {
namespace {

class ClientBackgrounds : public Client {
  protected:
    void SetUp() override {
        Client::SetUp();
        view = static_cast<UIView*>(made<"initWithFrame:">("PaneBackgrounds", CGRect{{0, 200}, {375, 100}}));
        ASSERT_EQ(sim_show_view(view), SIM_OK) << sim_last_error();
    }
    bool has_blur(id background) const { return ask<"backgroundBlur">(background) != nullptr; }

    UIView* view = nullptr;
};

TEST_F(ClientBackgrounds, FillTheirRooms) {
    for (id each : {ask<"colour">(view), ask<"gradient">(view), ask<"image">(view)}) {
        EXPECT_EQ(static_cast<UIView*>(each)->frame(), (CGRect{{0, 0}, {80, 80}}))
            << object_getClassName(each);
        EXPECT_FALSE(has_blur(each));
    }
}

TEST_F(ClientBackgrounds, TranslucentOnesShowABlur) {
    ask<"setTranslucent:", void>(view, true);
    EXPECT_TRUE(has_blur(ask<"colour">(view)));
    EXPECT_TRUE(has_blur(ask<"image">(view)));
    EXPECT_EQ((ask<"oldAlpha", double>(ask<"image">(view))), 0.5);
    ask<"setTranslucent:", void>(view, false);
    EXPECT_FALSE(has_blur(ask<"colour">(view)));
    EXPECT_FALSE(has_blur(ask<"image">(view)));
}

TEST_F(ClientBackgrounds, AGradientOfItsOwnRunsBetweenExportedPoints) {
    auto* own = ask<"own", CAGradientLayer*>(view);
    EXPECT_EQ(own->startPoint(), (CGPoint{0, 0}));
    EXPECT_EQ(own->endPoint(), (CGPoint{1, 1}));
}

TEST_F(ClientBackgrounds, EveryExportedPointIsBoundToTheLibrarys) {
    void* address = nullptr;
    ASSERT_EQ(sim_symbol(pane, "pane_read_points", &address), SIM_OK) << sim_last_error();
    CGPoint read[16];
    reinterpret_cast<void (*)(CGPoint*)>(address)(read);
    const CGPoint expected[8] = {{0, 0.5}, {0.5, 0}, {1, 0.5}, {0.5, 1}, {0, 0}, {1, 0}, {0, 1}, {1, 1}};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(read[i], expected[i % 8]) << i;
}

TEST_F(ClientBackgrounds, LookAsTheyAre) {
    ask<"setTranslucent:", void>(view, true);
    expect_picture("client-backgrounds");
}

}  // namespace
}  // namespace test
