// Gradient layers, compared with the colours that arithmetic gives for every pixel.
#include <algorithm>
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

/// A colour in components from 0 to 1, multiplied by alpha.
struct Light {
    double red, green, blue, alpha;
};

struct Direction {
    CGPoint start, end;
};
constexpr Direction down{{0.5, 0}, {0.5, 1}}, right{{0, 0.5}, {1, 0.5}}, to_lower_right{{0, 0}, {1, 1}};

class GradientLayer : public Drawing {
  protected:
    static constexpr size_t width = 75, height = 51;

    static CAGradientLayer* layer_of(const std::vector<UIColor*>& colors, Direction direction,
                                     CGRect frame = {{0, 0}, {width, height}}) {
        std::vector<id> list;
        for (UIColor* color : colors) list.push_back(reinterpret_cast<id>(color->CGColor()));
        CAGradientLayer* layer = CAGradientLayer::layer();
        layer->setFrame(frame);
        layer->setColors(array(list));
        layer->setStartPoint(direction.start);
        layer->setEndPoint(direction.end);
        return layer;
    }

    static Picture pictured(CALayer* layer, CGFloat scale = 1, UIColor* below = nullptr) {
        return Picture(drawn({width, height}, scale, [&](CGContextRef context) {
            if (below) {
                CGContextSetFillColorWithColor(context, below->CGColor());
                CGContextFillRect(context, {{0, 0}, {width, height}});
            }
            layer->renderInContext(context);
        }));
    }

    /// What evenly spaced colours make of a pixel's middle.
    static Light exact(const std::vector<UIColor*>& colors, Direction direction, double x, double y) {
        const CGPoint start{direction.start.x * width, direction.start.y * height};
        const double dx = direction.end.x * width - start.x, dy = direction.end.y * height - start.y;
        const double along = ((x - start.x) * dx + (y - start.y) * dy) / (dx * dx + dy * dy);
        const double place = std::clamp(along, 0.0, 1.0) * static_cast<double>(colors.size() - 1);
        const auto index = std::min(static_cast<size_t>(place), colors.size() - 2);
        const Rgba a = rgba(colors[index]), b = rgba(colors[index + 1]);
        auto mixed = [&](double from, double to) {
            return from + (to - from) * (place - static_cast<double>(index));
        };
        return {mixed(a.red * a.alpha, b.red * b.alpha), mixed(a.green * a.alpha, b.green * b.alpha),
                mixed(a.blue * a.alpha, b.blue * b.alpha), mixed(a.alpha, b.alpha)};
    }

    /// How far the worst component of the picture is from its exact value, of 255, over black or over
    /// nothing.
    static double worst(const std::vector<UIColor*>& colors, Direction direction, CGFloat scale = 1) {
        const Picture picture = pictured(layer_of(colors, direction), scale);
        double worst = 0;
        for (size_t y = 0; y < picture.height(); ++y) {
            for (size_t x = 0; x < picture.width(); ++x) {
                const Light light = exact(colors, direction, (static_cast<double>(x) + 0.5) / scale,
                                          (static_cast<double>(y) + 0.5) / scale);
                const Pixel pixel = picture.at(x, y);
                worst = std::max(
                    {worst, std::abs(pixel.red - light.red * 255), std::abs(pixel.green - light.green * 255),
                     std::abs(pixel.blue - light.blue * 255), std::abs(pixel.alpha - light.alpha * 255)});
            }
        }
        return worst;
    }
};

TEST_F(GradientLayer, EveryPixelIsExactInEveryDirection) {
    const std::vector<UIColor*> colors{UIColor::redColor(), color(0.2, 0.9, 0.4), UIColor::blueColor()};
    for (Direction direction :
         {down, right, to_lower_right, Direction{{0.5, 1}, {0.5, 0}}, Direction{{1, 0.5}, {0, 0.5}},
          Direction{{1, 1}, {0, 0}}, Direction{{0, 1}, {1, 0}}, Direction{{1, 0}, {0, 1}},
          Direction{{0.2, 0.3}, {0.4, 0.9}}, Direction{{-1, -2}, {3, 2}}, Direction{{0.5, 0}, {0.501, 1}},
          Direction{{0.4, 0.4}, {0.5, 0.5}}})
        for (double scale : {1.0, 3.0})
            EXPECT_LE(worst(colors, direction, scale), 1)
                << direction.start.x << ", " << direction.start.y << " to " << direction.end.x << ", "
                << direction.end.y;
}

TEST_F(GradientLayer, ColoursAreMixedMultipliedByTheirAlpha) {
    const std::vector<UIColor*> colors{UIColor::redColor(), UIColor::clearColor(), color(0, 1, 0, 0.5)};
    for (Direction direction : {down, right, to_lower_right}) EXPECT_LE(worst(colors, direction), 1);
    const Pixel quarter = pictured(layer_of(colors, right)).at(19, 0);
    EXPECT_EQ(quarter.red, quarter.alpha) << "red fades, and does not darken";
}

TEST_F(GradientLayer, ItsCornersHaveTheFirstAndTheLastColour) {
    const Picture picture =
        pictured(layer_of({UIColor::redColor(), UIColor::blueColor()}, to_lower_right), 3);
    EXPECT_TRUE(near(picture.at(0, 0), red));
    EXPECT_TRUE(near(picture.at(3 * width - 1, 3 * height - 1), blue));
    const Pixel top_right = picture.at(3 * width - 1, 0), bottom_left = picture.at(0, 3 * height - 1);
    EXPECT_TRUE(near(top_right, {bottom_left.blue, 0, bottom_left.red, 255}, 2))
        << "it is the same from both ends";
}

TEST_F(GradientLayer, TranslucentColoursAreDrawnOverWhatIsThere) {
    for (Direction direction : {down, right, to_lower_right}) {
        CAGradientLayer* layer = layer_of({color(1, 0, 0, 0.5), color(1, 0, 0, 0.5)}, direction);
        EXPECT_TRUE(near(pictured(layer, 1, UIColor::greenColor()).at(30, 20), {128, 127, 0, 255}));
        EXPECT_TRUE(near(pictured(layer).at(30, 20), {128, 0, 0, 128}));
    }
}

TEST_F(GradientLayer, OpacityMasksAndCornersCutItAsTheyCutALayer) {
    CAGradientLayer* layer = layer_of({UIColor::redColor(), UIColor::redColor()}, to_lower_right);
    layer->setOpacity(0.5);
    EXPECT_TRUE(near(pictured(layer).at(30, 20), {128, 0, 0, 128}));
    layer->setOpacity(1);
    layer->setCornerRadius(20);
    EXPECT_EQ(pictured(layer).at(0, 0), transparent);
    EXPECT_EQ(pictured(layer).at(37, 25), red);
    layer->setCornerRadius(0);
    CALayer* mask = CALayer::layer();
    mask->setFrame({{0, 0}, {10, height}});
    mask->setBackgroundColor(UIColor::blackColor()->CGColor());
    layer->setMask(mask);
    EXPECT_EQ(pictured(layer).at(9, 20), red);
    EXPECT_EQ(pictured(layer).at(10, 20), transparent);
    layer->setMask(nullptr);
    CALayer* root = CALayer::layer();
    root->setFrame({{0, 0}, {width, height}});
    root->addSublayer(layer);
    layer->setFrame({{10.5, 5}, {20, 20}});
    EXPECT_EQ(pictured(root).at(9, 10), transparent);
    EXPECT_TRUE(near(pictured(root).at(10, 10), {128, 0, 0, 128}));
    EXPECT_EQ(pictured(root).at(11, 10), red);
}

TEST_F(GradientLayer, OneColourFillsItAndNoneDrawsNothing) {
    EXPECT_EQ(pictured(layer_of({UIColor::redColor()}, to_lower_right)).at(40, 40), red);
    EXPECT_EQ(pictured(layer_of({}, to_lower_right)).at(40, 40), transparent);
}

TEST_F(GradientLayer, WithoutALengthAllOfItLiesBeyondTheEnd) {
    const Direction nowhere{{0.5, 0.5}, {0.5, 0.5}};
    const Picture picture = pictured(layer_of({UIColor::redColor(), UIColor::blueColor()}, nowhere));
    EXPECT_EQ(picture.at(0, 0), blue);
    EXPECT_EQ(picture.at(width - 1, height - 1), blue);
}

TEST_F(GradientLayer, AThousandColoursAreAllThere) {
    std::vector<UIColor*> colors;
    for (int i = 0; i < 1000; ++i) colors.push_back(color(i / 999.0, 1 - i / 999.0, i % 2 ? 0.5 : 0.45));
    for (Direction direction : {down, right, to_lower_right}) EXPECT_LE(worst(colors, direction), 2);
}

TEST_F(GradientLayer, HardStopsKeepTheirPlace) {
    CAGradientLayer* layer = layer_of(
        {UIColor::redColor(), UIColor::redColor(), UIColor::blueColor(), UIColor::blueColor()}, right);
    layer->setLocations(array({NSNumber::numberWithFloat(0), NSNumber::numberWithFloat(0.4f),
                               NSNumber::numberWithFloat(0.4f), NSNumber::numberWithFloat(1)}));
    const Picture picture = pictured(layer);
    EXPECT_EQ(picture.at(29, 0), red);
    EXPECT_EQ(picture.at(30, 0), blue);
}

TEST_F(GradientLayer, StrangeColoursPointsAndFramesAreHarmless) {
    const double nan = std::nan(""), infinity = INFINITY;
    EXPECT_EQ(pictured(layer_of({color(nan, 2, -1, infinity), color(nan, 2, -1, 9)}, right)).at(40, 20),
              green);
    EXPECT_EQ(pictured(layer_of({color(1, 1, 1, nan), color(1, 1, 1, -1)}, right)).at(40, 20), transparent);
    const std::vector<UIColor*> colors{UIColor::redColor(), UIColor::blueColor()};
    for (double strange : {nan, infinity, -infinity, 1e300})
        EXPECT_EQ(pictured(layer_of(colors, {{0, 0}, {strange, 1}})).at(0, 0).green, 0);
    for (CGRect frame :
         {CGRect{}, CGRect{{0, 0}, {10, 0}}, CGRect{{nan, nan}, {nan, nan}}, CGRect{{0, 0}, {infinity, 5}}})
        EXPECT_EQ(pictured(layer_of(colors, right, frame)).at(40, 40), transparent);
    EXPECT_EQ(pictured(layer_of(colors, to_lower_right, {{0, 0}, {1e9, 1e9}})).at(40, 40), red);
}

}  // namespace
}  // namespace test
