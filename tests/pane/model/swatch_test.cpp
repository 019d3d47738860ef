// The small picture of a colour beside its row: what is translucent lies on chequers, as where there is none.
#include "pane/drawing/swatch.h"

#include "kept_files.h"

namespace test {
namespace {

class Swatch : public testing::Test {
  protected:
    void SetUp() override { phone.start({.screen_width = 320, .screen_height = 568, .screen_scale = 2}); }
    /// At that point.
    static Rgba seen(UIImage* image, double x, double y) { return pixel_of(image, 2 * x, 2 * y); }
    static void expect_seen(UIImage* image, double x, double y, const Rgba& expected) {
        constexpr double rounded = 1.0 / 255;
        const Rgba colour = seen(image, x, y);
        EXPECT_NEAR(colour.red, expected.red, rounded) << x << ", " << y;
        EXPECT_NEAR(colour.green, expected.green, rounded) << x << ", " << y;
        EXPECT_NEAR(colour.blue, expected.blue, rounded) << x << ", " << y;
        EXPECT_NEAR(colour.alpha, expected.alpha, rounded) << x << ", " << y;
    }
    Phone phone;
};

constexpr Rgba ring{0.7, 0.7, 0.7, 1}, dark{0.8, 0.8, 0.8, 1}, light{1, 1, 1, 1};

TEST_F(Swatch, IsTheColourInAGreyRingWithRoundCorners) {
    UIImage* image = pane::swatch_of(color(0.2, 0.4, 0.6));
    EXPECT_EQ(image->size(), (CGSize{28, 28}));
    EXPECT_EQ(image->scale(), 2);
    expect_seen(image, 14, 0, ring);
    expect_seen(image, 14, 27.5, ring);
    for (const double x : {2.0, 9.0, 14.0, 25.0})
        for (const double y : {5.0, 14.0, 22.0}) expect_seen(image, x, y, {0.2, 0.4, 0.6, 1});
    expect_seen(image, 0.5, 14, ring);
    expect_seen(image, 1, 14, {0.2, 0.4, 0.6, 1});
    expect_seen(image, 26.5, 14, {0.2, 0.4, 0.6, 1});
    expect_seen(image, 27, 14, ring);
    for (const double x : {0.0, 27.5})
        for (const double y : {0.0, 27.5}) EXPECT_EQ(seen(image, x, y).alpha, 0) << x << ", " << y;
}

TEST_F(Swatch, WithoutAColourIsChequers) {
    UIImage* image = pane::swatch_of(nullptr);
    for (const auto& [x, y, expected] : {std::tuple{3.0, 3.0, dark},
                                         {13.5, 13.5, dark},
                                         {14.0, 13.5, light},
                                         {24.0, 3.0, light},
                                         {13.5, 14.0, light},
                                         {3.0, 24.0, light},
                                         {14.0, 14.0, dark},
                                         {24.0, 24.0, dark}})
        expect_seen(image, x, y, expected);
    expect_seen(image, 14, 0, ring);
}

TEST_F(Swatch, ATranslucentColourLiesOnTheChequers) {
    UIImage* image = pane::swatch_of(color(0, 0, 0, 0.5));
    expect_seen(image, 7, 7, {0.4, 0.4, 0.4, 1});
    expect_seen(image, 21, 7, {0.5, 0.5, 0.5, 1});
    expect_seen(image, 14, 0, ring);
}

}  // namespace
}  // namespace test
