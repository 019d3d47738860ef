// What lies behind a keyboard's keys, as the pane draws it and judges it.
#include <cmath>

#include "kept_files.h"
#include "pane/drawing/judgement.h"
#include "platform/owned_graphics.h"

namespace test {
namespace {

using readability::Colour;

constexpr size_t columns = 40, lines = 16;  // in fourths of a key
constexpr double rounding = 1.5 / 255;      // what rounding makes of a component
constexpr Colour plain_keyboard{0.82, 0.83, 0.85, 1};

class BehindTheKeys : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }

    objc::strong<HuecraftConfig> theme_of(const std::string& xml) const {
        return static_cast<HuecraftConfig*>(Configuration::from_xml(phone, xml).object);
    }
    objc::strong<HuecraftConfig> flat(const std::string& colour, const std::string& more = "") const {
        return theme_of("<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array><string>" +
                        colour + "</string><string>#00FF00</string></array>" + more);
    }
    objc::strong<HuecraftConfig> gradient(int direction) const {
        return theme_of(
            "<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array><string>#000000</string>"
            "<string>#FFFFFF</string></array><key>_GradientDirection</key><integer>" +
            std::to_string(direction) + "</integer>");
    }
    objc::strong<HuecraftConfig> picture(UIImage* image, double alpha) const {
        auto theme = theme_of("<key>_BackgroundType</key><integer>3</integer>");
        theme->setImageData(image);
        theme->setImageAlpha(alpha);
        return theme;
    }
    static std::vector<Colour> keys(HuecraftConfig* theme) {
        return pane::behind(theme).keys.front().colours;
    }
    static void expect_near(const Colour& seen, const Colour& expected, const std::string& where) {
        EXPECT_NEAR(seen.red, expected.red, rounding) << where;
        EXPECT_NEAR(seen.green, expected.green, rounding) << where;
        EXPECT_NEAR(seen.blue, expected.blue, rounding) << where;
        EXPECT_EQ(seen.alpha, 1) << where;
    }
    static void expect_all(const std::vector<Colour>& seen, const Colour& expected) {
        ASSERT_EQ(seen.size(), columns * lines);
        for (size_t i = 0; i < seen.size() && !HasFailure(); ++i)
            expect_near(seen[i], expected, std::to_string(i % columns) + ", " + std::to_string(i / columns));
    }

    Phone phone;
};

TEST_F(BehindTheKeys, IsThePlainKeyboardWithoutABackground) {
    expect_all(keys(theme_of("<key>_BackgroundType</key><integer>0</integer>")), plain_keyboard);
}

TEST_F(BehindTheKeys, IsTheFirstColour) {
    expect_all(keys(flat("#204060")), {0x20 / 255.0, 0x40 / 255.0, 0x60 / 255.0, 1});
}

TEST_F(BehindTheKeys, ATranslucentColourLiesOverThePlainKeyboard) {
    const double through = 1 - 0x80 / 255.0;
    expect_all(keys(flat("#00000080")), {plain_keyboard.red * through, plain_keyboard.green * through,
                                         plain_keyboard.blue * through, 1});
}

TEST_F(BehindTheKeys, LabelsLieOnWhiteCapsWhereTheyAreShown) {
    const auto with_caps = flat("#204060", "<key>_VisibleKeycaps</key><true/>");
    expect_all(pane::behind(with_caps).labels.front().colours, {1, 1, 1, 1});
    expect_all(keys(with_caps), {0x20 / 255.0, 0x40 / 255.0, 0x60 / 255.0, 1});
    const auto without = flat("#204060", "<key>_VisibleKeycaps</key><false/>");
    expect_all(pane::behind(without).labels.front().colours, {0x20 / 255.0, 0x40 / 255.0, 0x60 / 255.0, 1});
}

TEST_F(BehindTheKeys, AGradientRunsInEachOfItsDirections) {
    constexpr CGPoint left{0, 0.5}, right{1, 0.5}, top{0.5, 0}, bottom{0.5, 1}, top_left{0, 0},
        top_right{1, 0}, bottom_left{0, 1}, bottom_right{1, 1};
    const struct {
        int direction;
        CGPoint start, end;
    } all[] = {
        {1, bottom, top},
        {2, top, bottom},
        {3, right, left},
        {4, left, right},
        {5, bottom_right, top_left},
        {6, bottom_left, top_right},
        {7, top_right, bottom_left},
        {8, top_left, bottom_right},
        // What is none runs downwards.
        {0, top, bottom},
        {9, top, bottom},
    };
    for (const auto& [direction, start, end] : all) {
        const auto seen = keys(gradient(direction));
        ASSERT_EQ(seen.size(), columns * lines);
        const double across = (end.x - start.x) * columns, down = (end.y - start.y) * lines;
        for (size_t y = 0; y < lines && !HasFailure(); ++y)
            for (size_t x = 0; x < columns && !HasFailure(); ++x) {
                const double from_start = ((static_cast<double>(x) + 0.5 - start.x * columns) * across +
                                           (static_cast<double>(y) + 0.5 - start.y * lines) * down) /
                                          (across * across + down * down);
                const double grey = std::clamp(from_start, 0.0, 1.0);
                expect_near(seen[y * columns + x], {grey, grey, grey, 1},
                            "direction " + std::to_string(direction) + " at " + std::to_string(x) + ", " +
                                std::to_string(y));
            }
    }
}

TEST_F(BehindTheKeys, APictureIsSeenInFourthsOfAKey) {
    UIGraphicsBeginImageContextWithOptions({columns, lines}, true, 1);
    CGContextRef context = UIGraphicsGetCurrentContext();
    const auto colour_at = [](size_t x, size_t y) {
        return Colour{static_cast<double>(x) / 51, static_cast<double>(y) / 17, (x + y) % 2 ? 1.0 : 0.0, 1};
    };
    for (size_t y = 0; y < lines; ++y)
        for (size_t x = 0; x < columns; ++x) {
            const Colour colour = colour_at(x, y);
            CGContextSetRGBFillColor(context, colour.red, colour.green, colour.blue, 1);
            CGContextFillRect(context, {{static_cast<double>(x), static_cast<double>(y)}, {1, 1}});
        }
    const auto theme = picture(UIGraphicsGetImageFromCurrentImageContext(), 1);
    UIGraphicsEndImageContext();
    const auto seen = keys(theme);
    ASSERT_EQ(seen.size(), columns * lines);
    for (size_t i = 0; i < seen.size() && !HasFailure(); ++i)
        expect_near(seen[i], colour_at(i % columns, i / columns),
                    std::to_string(i % columns) + ", " + std::to_string(i / columns));
}

TEST_F(BehindTheKeys, APictureIsAsTranslucentAsItsAlphaWithinItsBounds) {
    UIImage* red = filled_image(color(1, 0, 0), columns, lines);
    expect_all(keys(picture(red, 1)), {1, 0, 0, 1});
    expect_all(keys(picture(red, 0.5)),
               {(1 + plain_keyboard.red) / 2, plain_keyboard.green / 2, plain_keyboard.blue / 2, 1});
    expect_all(keys(picture(red, 2)), {1, 0, 0, 1});
    expect_all(keys(picture(red, -1)), plain_keyboard);
}

TEST_F(BehindTheKeys, IsThePlainKeyboardWhereColoursOrPictureAreMissing) {
    for (const int kind : {1, 2, 3, 4})
        expect_all(
            keys(theme_of("<key>_BackgroundType</key><integer>" + std::to_string(kind) + "</integer>")),
            plain_keyboard);
}

}  // namespace
}  // namespace test
