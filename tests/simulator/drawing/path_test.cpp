// Paths and gradients.
#include <cmath>

#include "drawing_test.h"

namespace test {
namespace {

using Path = Drawing;
using Gradient = Drawing;

/// How much of the picture is opaque, in pixels.
double area(const Picture& picture) {
    double sum = 0;
    for (size_t y = 0; y < picture.height(); ++y)
        for (size_t x = 0; x < picture.width(); ++x) sum += picture.at(x, y).alpha / 255.0;
    return sum;
}

TEST_F(Path, ARoundedRectangleLacksItsCorners) {
    const Picture picture(drawn({40, 30}, 1, [](CGContextRef) {
        UIBezierPath::bezierPathWithRoundedRect({{0, 0}, {40, 30}}, 10)->fill();
    }));
    EXPECT_EQ(picture.at(0, 0).alpha, 0);
    EXPECT_EQ(picture.at(20, 0).alpha, 255);
    EXPECT_EQ(picture.at(39, 29).alpha, 0);
    EXPECT_NEAR(area(picture), 40 * 30 - (4 - M_PI) * 100, 2);
}

TEST_F(Path, CornersThatAreTooLargeMakeAPill) {
    const Picture picture(drawn({40, 20}, 1, [](CGContextRef) {
        UIBezierPath::bezierPathWithRoundedRect({{0, 0}, {40, 20}}, 500)->fill();
    }));
    EXPECT_NEAR(area(picture), 20 * 20 + M_PI * 100, 4);
}

TEST_F(Path, ARadiusThatIsNotPositiveMakesARectangle) {
    for (CGFloat radius : {0.0, -5.0}) {
        const Picture picture(drawn({8, 6}, 1, [&](CGContextRef) {
            UIBezierPath::bezierPathWithRoundedRect({{0, 0}, {8, 6}}, radius)->fill();
        }));
        EXPECT_EQ(area(picture), 48);
    }
}

TEST_F(Path, AnEllipseFillsItsRectangle) {
    const Picture picture(drawn(
        {40, 20}, 1, [](CGContextRef context) { CGContextFillEllipseInRect(context, {{0, 0}, {40, 20}}); }));
    EXPECT_NEAR(area(picture), M_PI * 20 * 10, 4);
}

TEST_F(Path, AnArcGoesTheWayAskedFor) {
    auto quarter = [](int clockwise) {
        return Picture(drawn({20, 20}, 1, [&](CGContextRef context) {
            CGContextMoveToPoint(context, 10, 10);
            CGContextAddArc(context, 10, 10, 10, 0, M_PI / 2, clockwise);
            CGContextFillPath(context);
        }));
    };
    EXPECT_NEAR(area(quarter(0)), M_PI * 100 / 4, 2);
    EXPECT_NEAR(area(quarter(1)), M_PI * 100 * 3 / 4, 2);
    EXPECT_EQ(quarter(0).at(14, 14).alpha, 255) << "y points down here";
}

TEST_F(Path, EvenOddLeavesHoles) {
    auto ring = [](void (*fill)(CGContextRef)) {
        return area(Picture(drawn({10, 10}, 1, [&](CGContextRef context) {
            CGContextAddRect(context, {{0, 0}, {10, 10}});
            CGContextAddRect(context, {{2, 2}, {6, 6}});
            fill(context);
        })));
    };
    EXPECT_EQ(ring(CGContextEOFillPath), 64);
    EXPECT_EQ(ring(CGContextFillPath), 100);
}

TEST_F(Path, FillingEmptiesThePath) {
    const Picture picture(drawn({4, 1}, 1, [](CGContextRef context) {
        CGContextAddRect(context, {{0, 0}, {1, 1}});
        CGContextFillPath(context);
        UIColor::redColor()->setFill();
        CGContextAddRect(context, {{2, 0}, {1, 1}});
        CGContextFillPath(context);
    }));
    EXPECT_EQ(picture.at(0, 0), black);
    EXPECT_EQ(picture.at(2, 0), red);
}

TEST_F(Path, PointsStayWhereTheTransformationPutThem) {
    const Picture picture(drawn({4, 1}, 1, [](CGContextRef context) {
        CGContextAddRect(context, {{0, 0}, {1, 1}});
        CGContextTranslateCTM(context, 2, 0);
        CGContextFillPath(context);
    }));
    EXPECT_EQ(picture.at(0, 0), black);
    EXPECT_EQ(picture.at(2, 0), transparent);
}

TEST_F(Path, AStrokeLiesAlongThePath) {
    const Picture picture(drawn({10, 10}, 1, [](CGContextRef context) {
        UIColor::redColor()->setStroke();
        UIBezierPath* path = UIBezierPath::bezierPathWithRect({{2, 2}, {6, 6}});
        EXPECT_EQ(path->lineWidth(), 1);
        path->setLineWidth(2);
        path->stroke();
        (void)context;
    }));
    EXPECT_EQ(picture.at(1, 5), red);
    EXPECT_EQ(picture.at(2, 5), red);
    EXPECT_EQ(picture.at(3, 5), transparent);
    EXPECT_EQ(picture.at(0, 5), transparent);
}

TEST_F(Path, ItsBoxHoldsItsControlPoints) {
    CGMutablePathRef path = CGPathCreateMutable();
    EXPECT_TRUE(CGPathIsEmpty(path));
    EXPECT_TRUE(std::isinf(CGPathGetBoundingBox(path).origin.x));
    CGPathMoveToPoint(path, nullptr, 1, 2);
    CGPathAddCurveToPoint(path, nullptr, 5, 9, 7, -3, 2, 2);
    EXPECT_EQ(CGPathGetBoundingBox(path), (CGRect{{1, -3}, {6, 12}}));
    CGPathRelease(path);
}

TEST_F(Path, APathIsTransformedWhenItIsAdded) {
    const CGAffineTransform transform{2, 0, 0, 3, 10, 20};
    CGPathRef square = CGPathCreateWithRect({{0, 0}, {1, 1}}, nullptr);
    CGMutablePathRef path = CGPathCreateMutable();
    CGPathAddPath(path, &transform, square);
    EXPECT_EQ(CGPathGetBoundingBox(path), (CGRect{{10, 20}, {2, 3}}));
    CGPathRelease(square);
    CGPathRelease(path);
}

TEST_F(Path, APointThatIsNoNumberIsLeftOut) {
    const Picture picture(drawn({10, 10}, 1, [](CGContextRef context) {
        CGContextMoveToPoint(context, 0, 0);
        CGContextAddLineToPoint(context, 10, 0);
        CGContextAddLineToPoint(context, NAN, 5);
        CGContextAddLineToPoint(context, 10, 10);
        CGContextAddCurveToPoint(context, 5, INFINITY, 5, 5, 5, 5);
        CGContextAddLineToPoint(context, 0, 10);
        CGContextFillPath(context);
    }));
    EXPECT_EQ(area(picture), 100);
}

TEST_F(Path, ANullPathIsEmptyAndHarmless) {
    EXPECT_TRUE(CGPathIsEmpty(nullptr));
    EXPECT_TRUE(std::isinf(CGPathGetBoundingBox(nullptr).origin.y));
    CGPathAddRect(nullptr, nullptr, {});
    CGPathRelease(nullptr);
    drawn({1, 1}, 1, [](CGContextRef context) {
        CGContextAddPath(context, nullptr);
        CGContextFillPath(context);
        CGContextAddArc(context, 0, 0, NAN, NAN, NAN, 0);
        CGContextAddLineToPoint(context, NAN, 1);
        CGContextStrokePath(context);
    });
}

CGGradientRef red_to_blue() {
    return CGGradientCreateWithColors(nullptr,
                                      array({reinterpret_cast<id>(UIColor::redColor()->CGColor()),
                                             reinterpret_cast<id>(UIColor::blueColor()->CGColor())}),
                                      nullptr);
}

Picture gradient(CGPoint start, CGPoint end, CGGradientDrawingOptions options, CGGradientRef colours) {
    Picture picture(drawn({100, 1}, 1, [&](CGContextRef context) {
        CGContextDrawLinearGradient(context, colours, start, end, options);
    }));
    CGGradientRelease(colours);
    return picture;
}

TEST_F(Gradient, RunsFromTheFirstColourToTheLast) {
    const Picture picture = gradient({0, 0}, {100, 0}, 0, red_to_blue());
    EXPECT_TRUE(near(picture.at(0, 0), red, 3));
    EXPECT_TRUE(near(picture.at(50, 0), {127, 0, 128, 255}, 3));
    EXPECT_TRUE(near(picture.at(99, 0), blue, 3));
}

TEST_F(Gradient, ReachesBeyondItsEndsOnlyWhenToldTo) {
    const Picture bare = gradient({20, 0}, {80, 0}, 0, red_to_blue());
    EXPECT_EQ(bare.at(10, 0), transparent);
    EXPECT_EQ(bare.at(90, 0), transparent);
    EXPECT_TRUE(near(bare.at(21, 0), red, 10));
    const Picture extended = gradient({20, 0}, {80, 0}, kCGGradientDrawsBeforeStartLocation, red_to_blue());
    EXPECT_EQ(extended.at(10, 0), red);
    EXPECT_EQ(extended.at(90, 0), transparent);
    EXPECT_EQ(gradient({20, 0}, {80, 0}, kCGGradientDrawsAfterEndLocation, red_to_blue()).at(90, 0), blue);
}

TEST_F(Gradient, TakesComponentsAndLocations) {
    CGColorSpaceRef grey = CGColorSpaceCreateDeviceGray();
    const CGFloat components[] = {0, 1, 1, 1, 1, 1}, locations[] = {0, 0.5, 1};
    const Picture picture =
        gradient({0, 0}, {100, 0}, 0, CGGradientCreateWithColorComponents(grey, components, locations, 3));
    EXPECT_TRUE(near(picture.at(25, 0), {128, 128, 128, 255}, 3));
    EXPECT_TRUE(near(picture.at(75, 0), white));
    CGColorSpaceRelease(grey);
}

TEST_F(Gradient, OneColourFillsEvenly) {
    id only = reinterpret_cast<id>(UIColor::redColor()->CGColor());
    const Picture picture =
        gradient({0, 0}, {100, 0}, 3, CGGradientCreateWithColors(nullptr, array({only}), nullptr));
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(99, 0), red);
}

TEST_F(Gradient, WithoutColoursOrDirectionNothingIsDrawn) {
    EXPECT_EQ(gradient({0, 0}, {100, 0}, 3, CGGradientCreateWithColors(nullptr, array({}), nullptr)).at(5, 0),
              transparent);
    EXPECT_EQ(gradient({5, 0}, {5, 0}, 3, red_to_blue()).at(5, 0), transparent);
    EXPECT_EQ(gradient({NAN, 0}, {5, 0}, 3, red_to_blue()).at(5, 0), transparent);
    EXPECT_EQ(gradient({0, 0}, {5, 0}, 3, nullptr).at(5, 0), transparent);
}

}  // namespace
}  // namespace test
