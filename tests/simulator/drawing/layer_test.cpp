// Layers: the tree, what they show, and how they are displayed.
#include <cmath>

#include "drawing_test.h"
#include "support/runtime.h"

namespace test {
namespace {

using LayerTree = Drawing;
using LayerDrawing = Drawing;
using Display = Drawing;
using objc::strong;
using namespace objc::literals;

CALayer* layer_with(CGRect frame, UIColor* background = nullptr) {
    CALayer* layer = CALayer::layer();
    layer->setFrame(frame);
    layer->setBackgroundColor(background->CGColor());
    return layer;
}

Picture pictured(CALayer* layer, CGFloat scale = 1) {
    return Picture(
        drawn(layer->bounds().size, scale, [&](CGContextRef context) { layer->renderInContext(context); }));
}

id contents_of(UIImage* image) { return reinterpret_cast<id>(image->CGImage()); }

/// Four by two: the left half red, the right half blue.
UIImage* red_and_blue() {
    return drawn({4, 2}, 1, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {2, 2}});
        UIColor::blueColor()->setFill();
        CGContextFillRect(context, {{2, 0}, {2, 2}});
    });
}

TEST_F(LayerTree, BeginsWithThePlatformsDefaults) {
    CALayer* layer = CALayer::layer();
    EXPECT_EQ(layer->anchorPoint(), (CGPoint{0.5, 0.5}));
    EXPECT_EQ(layer->opacity(), 1);
    EXPECT_EQ(layer->contentsScale(), 1);
    EXPECT_EQ(layer->shadowOpacity(), 0);
    EXPECT_EQ(layer->shadowOffset(), (CGSize{0, -3}));
    EXPECT_EQ(layer->shadowRadius(), 3);
    EXPECT_EQ(layer->backgroundColor(), nullptr);
    EXPECT_EQ(layer->contentsMultiplyColor(), nullptr);
    EXPECT_EQ(layer->sublayers(), nullptr);
    EXPECT_EQ(layer->filters(), nullptr);
    EXPECT_EQ(layer->compositingFilter(), nullptr);
    EXPECT_EQ(test::utf8(layer->contentsGravity()), "resize");
    EXPECT_FALSE(layer->isHidden());
    EXPECT_FALSE(layer->masksToBounds());
    EXPECT_EQ(layer->transform(), identity_transform_3d);
}

TEST_F(LayerTree, SublayersAreReplacedAsAWhole) {
    CALayer *root = CALayer::layer(), *first = CALayer::layer(), *second = CALayer::layer();
    root->addSublayer(first);
    root->setSublayers(array({second, first}));
    EXPECT_EQ(root->sublayers()->objectAtIndex(0), second);
    EXPECT_EQ(root->sublayers()->objectAtIndex(1), first);
    root->setSublayers(nullptr);
    EXPECT_EQ(root->sublayers(), nullptr);
    EXPECT_EQ(first->superlayer(), nullptr);
}

TEST_F(LayerTree, SublayersAreInsertedInPlace) {
    CALayer *root = CALayer::layer(), *a = CALayer::layer(), *b = CALayer::layer(), *c = CALayer::layer(),
            *d = CALayer::layer();
    root->addSublayer(a);
    root->insertSublayer(b, 0);
    root->insertSublayerAbove(c, b);
    root->insertSublayerBelow(d, a);
    root->insertSublayer(a, 900);
    const id expected[] = {b, c, d, a};
    ASSERT_EQ(root->sublayers()->count(), 4u);
    for (NSUInteger i = 0; i < 4; ++i) EXPECT_EQ(root->sublayers()->objectAtIndex(i), expected[i]) << i;
}

TEST_F(LayerTree, ALayerHasOneSuperlayer) {
    CALayer *first = CALayer::layer(), *second = CALayer::layer(), *child = CALayer::layer();
    first->addSublayer(child);
    second->addSublayer(child);
    EXPECT_EQ(first->sublayers(), nullptr);
    EXPECT_EQ(child->superlayer(), second);
    child->removeFromSuperlayer();
    child->removeFromSuperlayer();
    EXPECT_EQ(child->superlayer(), nullptr);
}

TEST_F(LayerTree, ASublayerOutlivesItsSuperlayer) {
    strong<CALayer> child;
    {
        objc::AutoreleasePool pool;
        CALayer* root = CALayer::layer();
        child = CALayer::layer();
        root->addSublayer(child);
    }
    EXPECT_EQ(child->superlayer(), nullptr);
}

TEST_F(LayerTree, FiltersAreKeptAsACopy) {
    CALayer* layer = CALayer::layer();
    NSMutableArray* filters = NSMutableArray::arrayWithCapacity(1);
    filters->addObject(CAFilter::filterWithName("colorMonochrome"_ns));
    layer->setFilters(filters);
    filters->addObject(CAFilter::filterWithName("colorMonochrome"_ns));
    EXPECT_EQ(layer->filters()->count(), 1u);
    layer->setFilters(nullptr);
    EXPECT_EQ(layer->filters(), nullptr);
}

TEST_F(LayerTree, TheViewsPropertiesAreItsLayers) {
    auto view = view_with({{0, 0}, {10, 10}}, color(1, 0, 0, 0.5));
    view->setAlpha(0.25);
    view->setHidden(true);
    view->setClipsToBounds(true);
    CALayer* layer = view->layer();
    EXPECT_EQ(layer->opacity(), 0.25f);
    EXPECT_TRUE(layer->isHidden());
    EXPECT_TRUE(layer->masksToBounds());
    EXPECT_TRUE(layer->isOpaque());
    layer->setBackgroundColor(UIColor::greenColor()->CGColor());
    EXPECT_TRUE(view->backgroundColor()->isEqual(UIColor::greenColor()));
    view->setBackgroundColor(nullptr);
    EXPECT_EQ(layer->backgroundColor(), nullptr);
    EXPECT_EQ(view->backgroundColor(), nullptr);
    layer->setOpacity(1);
    EXPECT_EQ(view->alpha(), 1);
    view->setAlpha(0.1);
    EXPECT_EQ(view->alpha(), double{0.1f}) << "kept in single precision";
}

TEST_F(LayerDrawing, SublayersLieOnTheirSuperlayerInOrder) {
    CALayer* root = layer_with({{0, 0}, {4, 4}}, UIColor::redColor());
    root->addSublayer(layer_with({{1, 1}, {2, 2}}, UIColor::greenColor()));
    root->addSublayer(layer_with({{2, 2}, {2, 2}}, UIColor::blueColor()));
    const Picture picture = pictured(root);
    EXPECT_EQ(picture.at(0, 0), red);
    EXPECT_EQ(picture.at(1, 1), green);
    EXPECT_EQ(picture.at(2, 2), blue);
}

TEST_F(LayerDrawing, HiddenAndTransparentLayersShowNothing) {
    CALayer *root = layer_with({{0, 0}, {2, 1}}), *hidden = layer_with({{0, 0}, {1, 1}}, UIColor::redColor()),
            *faded = layer_with({{1, 0}, {1, 1}}, UIColor::redColor());
    root->addSublayer(hidden);
    root->addSublayer(faded);
    hidden->setHidden(true);
    faded->setOpacity(0);
    EXPECT_EQ(pictured(root).at(0, 0), transparent);
    EXPECT_EQ(pictured(root).at(1, 0), transparent);
}

TEST_F(LayerDrawing, OpacityFadesALayerAndItsSublayersAsOne) {
    CALayer* root = layer_with({{0, 0}, {6, 1}});
    CALayer* faded = layer_with({{0, 0}, {2, 1}}, UIColor::blueColor());
    faded->addSublayer(layer_with({{1, 0}, {5, 1}}, UIColor::redColor()));
    faded->setOpacity(0.5);
    root->addSublayer(faded);
    const Picture picture = pictured(root);
    EXPECT_TRUE(near(picture.at(0, 0), {0, 0, 128, 128}));
    EXPECT_TRUE(near(picture.at(1, 0), {128, 0, 0, 128}));
    EXPECT_TRUE(near(picture.at(5, 0), {128, 0, 0, 128})) << "what reaches out of the layer, too";
}

TEST_F(LayerDrawing, MaskingToBoundsCutsSublayersAndContents) {
    CALayer* root = layer_with({{0, 0}, {6, 2}});
    CALayer* cut = layer_with({{1, 0}, {2, 2}});
    cut->addSublayer(layer_with({{-1, 0}, {6, 2}}, UIColor::redColor()));
    root->addSublayer(cut);
    EXPECT_EQ(pictured(root).at(0, 0), red);
    cut->setMasksToBounds(true);
    EXPECT_EQ(pictured(root).at(0, 0), transparent);
    EXPECT_EQ(pictured(root).at(1, 0), red);
    EXPECT_EQ(pictured(root).at(3, 0), transparent);
}

TEST_F(LayerDrawing, RoundedCornersCutTheBackgroundAndWhatIsMasked) {
    CALayer* layer = layer_with({{0, 0}, {20, 20}}, UIColor::redColor());
    layer->setCornerRadius(10);
    layer->addSublayer(layer_with({{0, 0}, {4, 4}}, UIColor::blueColor()));
    EXPECT_EQ(pictured(layer).at(19, 19), transparent);
    EXPECT_EQ(pictured(layer).at(0, 0), blue);
    layer->setMasksToBounds(true);
    EXPECT_EQ(pictured(layer).at(0, 0), transparent);
    EXPECT_EQ(pictured(layer).at(10, 10), red);
}

TEST_F(LayerDrawing, ABorderLiesInsideOnTopOfEverything) {
    CALayer* layer = layer_with({{0, 0}, {10, 10}}, UIColor::redColor());
    layer->addSublayer(layer_with({{0, 0}, {10, 10}}, UIColor::greenColor()));
    layer->setBorderWidth(2);
    layer->setBorderColor(UIColor::blueColor()->CGColor());
    const Picture picture = pictured(layer);
    EXPECT_EQ(picture.at(0, 0), blue);
    EXPECT_EQ(picture.at(1, 5), blue);
    EXPECT_EQ(picture.at(2, 5), green);
    EXPECT_EQ(picture.at(8, 8), blue);
}

TEST_F(LayerDrawing, ABorderWiderThanTheLayerFillsIt) {
    CALayer* layer = layer_with({{0, 0}, {4, 4}});
    layer->setBorderWidth(50);
    EXPECT_EQ(pictured(layer).at(2, 2), black);
}

TEST_F(LayerDrawing, ContentsFillTheBounds) {
    CALayer* layer = layer_with({{0, 0}, {8, 8}});
    layer->setContents(contents_of(red_and_blue()));
    const Picture picture = pictured(layer);
    EXPECT_EQ(picture.at(1, 7), red);
    EXPECT_EQ(picture.at(6, 0), blue);
}

TEST_F(LayerDrawing, ContentsAreUpright) {
    UIImage* image = drawn({2, 2}, 1, [](CGContextRef context) {
        UIColor::redColor()->setFill();
        CGContextFillRect(context, {{0, 0}, {2, 1}});
    });
    CALayer* layer = layer_with({{0, 0}, {2, 2}});
    layer->setContents(contents_of(image));
    EXPECT_EQ(pictured(layer).at(0, 0), red);
    EXPECT_EQ(pictured(layer).at(0, 1), transparent);
}

TEST_F(LayerDrawing, GravitySaysWhereContentsLie) {
    const struct {
        NSString* gravity;
        CGPoint inside, outside;
    } rows[] = {
        {"resizeAspect"_ns, {0, 2}, {0, 0}},  // 8 by 4 in the middle of 8 by 8
        {"center"_ns, {2, 3}, {1, 3}},        // 4 by 2 in the middle
    };
    for (const auto& row : rows) {
        CALayer* layer = layer_with({{0, 0}, {8, 8}});
        layer->setContents(contents_of(red_and_blue()));
        layer->setContentsGravity(row.gravity);
        const Picture picture = pictured(layer);
        EXPECT_EQ(picture.at(static_cast<size_t>(row.inside.x), static_cast<size_t>(row.inside.y)), red);
        EXPECT_EQ(picture.at(static_cast<size_t>(row.outside.x), static_cast<size_t>(row.outside.y)),
                  transparent);
    }
}

TEST_F(LayerDrawing, ContentsThatFillKeepingTheirAspectReachOut) {
    CALayer* root = layer_with({{0, 0}, {16, 8}});
    CALayer* layer = layer_with({{4, 0}, {8, 8}});
    layer->setContents(contents_of(red_and_blue()));
    layer->setContentsGravity("resizeAspectFill"_ns);
    root->addSublayer(layer);
    EXPECT_EQ(pictured(root).at(0, 4), red);
    EXPECT_EQ(pictured(root).at(15, 4), blue);
    layer->setOpacity(0.5);
    EXPECT_TRUE(near(pictured(root).at(0, 4), {128, 0, 0, 128}));
}

TEST_F(LayerDrawing, TheScaleOfContentsCountsWhereTheyAreNotStretched) {
    CALayer* layer = layer_with({{0, 0}, {8, 8}});
    layer->setContents(contents_of(red_and_blue()));
    layer->setContentsScale(2);
    layer->setContentsGravity("center"_ns);
    EXPECT_EQ(pictured(layer, 2).at(6, 7), red) << "2 by 1 points in the middle";
    EXPECT_EQ(pictured(layer, 2).at(5, 7), transparent);
}

TEST_F(LayerDrawing, AMultiplyColourTintsTheContents) {
    CALayer* layer = layer_with({{0, 0}, {4, 2}}, UIColor::greenColor());
    layer->setContents(contents_of(red_and_blue()));
    layer->setContentsMultiplyColor(color(0.4, 1, 1)->CGColor());
    EXPECT_TRUE(near(pictured(layer).at(0, 0), {102, 0, 0, 255}));
    EXPECT_TRUE(near(pictured(layer).at(3, 0), blue));
    layer->setBackgroundColor(nullptr);
    layer->setContentsMultiplyColor(color(1, 1, 1, 0.4)->CGColor());
    EXPECT_TRUE(near(pictured(layer).at(0, 0), {102, 0, 0, 102}));
    layer->setContentsMultiplyColor(UIColor::clearColor()->CGColor());
    EXPECT_EQ(pictured(layer).at(0, 0), transparent);
    layer->setContentsMultiplyColor(nullptr);
    EXPECT_EQ(pictured(layer).at(0, 0), red);
}

TEST_F(LayerDrawing, AMultiplyColourBeyondTheRangeCountsAsItsNearestEnd) {
    CALayer* layer = layer_with({{0, 0}, {4, 2}});
    layer->setContents(contents_of(red_and_blue()));
    layer->setContentsMultiplyColor(color(7, 1, 1, INFINITY)->CGColor());
    EXPECT_EQ(pictured(layer).at(0, 0), red);
    layer->setContentsMultiplyColor(color(std::nan(""), 1, 1)->CGColor());
    EXPECT_EQ(pictured(layer).at(0, 0), black);
    layer->setContentsMultiplyColor(color(1, 1, 1, -1)->CGColor());
    EXPECT_EQ(pictured(layer).at(0, 0), transparent);
}

TEST_F(LayerDrawing, AMultiplyColourLeavesSublayersAlone) {
    CALayer* layer = layer_with({{0, 0}, {4, 2}});
    layer->setContents(contents_of(red_and_blue()));
    layer->addSublayer(layer_with({{0, 0}, {1, 1}}, UIColor::whiteColor()));
    layer->setContentsMultiplyColor(UIColor::blackColor()->CGColor());
    EXPECT_EQ(pictured(layer).at(0, 0), white);
    EXPECT_EQ(pictured(layer).at(1, 0), black);
}

TEST_F(LayerDrawing, ABlendedLayerIsBlendedTogetherWithItsSublayers) {
    CALayer* root = layer_with({{0, 0}, {2, 1}}, color(1, 1, 0));
    CALayer* above = layer_with({{0, 0}, {2, 1}}, color(0, 1, 0));
    above->addSublayer(layer_with({{1, 0}, {1, 1}}, color(1, 0, 1)));
    above->setCompositingFilter("multiplyBlendMode"_ns);
    root->addSublayer(above);
    EXPECT_EQ(pictured(root).at(0, 0), green);
    EXPECT_EQ(pictured(root).at(1, 0), red) << "magenta, not what magenta makes of green, with yellow";
}

TEST_F(LayerDrawing, ARasterizedLayerLooksTheSame) {
    CALayer* root = layer_with({{0, 0}, {4, 4}}, color(0.8, 0.8, 0.8));
    CALayer* layer = layer_with({{1, 1}, {2, 2}}, UIColor::colorWithRGB(1, 0, 0, 0.5));
    root->addSublayer(layer);
    const Pixel before = pictured(root).at(1, 1);
    layer->setShouldRasterize(true);
    layer->setRasterizationScale(2);
    EXPECT_EQ(pictured(root).at(1, 1), before);
    EXPECT_TRUE(layer->shouldRasterize());
    EXPECT_EQ(layer->rasterizationScale(), 2);
}

TEST_F(LayerDrawing, StrangeShadowsAreHarmless) {
    CALayer* layer = layer_with({{0, 0}, {4, 4}}, UIColor::redColor());
    layer->setShadowOpacity(1);
    for (double radius : {std::nan(""), -5.0, -1.0 * INFINITY}) {
        layer->setShadowRadius(radius);
        EXPECT_EQ(pictured(layer).at(1, 1), red);
    }
}

TEST_F(LayerDrawing, AMaskShowsTheLayerWhereItIsOpaque) {
    CALayer* layer = layer_with({{0, 0}, {4, 1}}, UIColor::redColor());
    layer->setMask(layer_with({{1, 0}, {1, 1}}, UIColor::blackColor()));
    const Picture picture = pictured(layer);
    EXPECT_EQ(picture.at(0, 0), transparent);
    EXPECT_EQ(picture.at(1, 0), red);
    EXPECT_EQ(picture.at(2, 0), transparent);
}

TEST_F(LayerDrawing, ACompositingFilterBlendsWithWhatLiesBelow) {
    CALayer* root = layer_with({{0, 0}, {2, 1}}, color(0.8, 0.8, 0.8));
    CALayer* above = layer_with({{0, 0}, {1, 1}}, color(0.5, 1, 0));
    root->addSublayer(above);
    above->setCompositingFilter("multiplyBlendMode"_ns);
    EXPECT_TRUE(near(pictured(root).at(0, 0), {102, 204, 0, 255}));
    EXPECT_TRUE(near(pictured(root).at(1, 0), {204, 204, 204, 255}));
    above->setCompositingFilter(CAFilter::filterWithType("plusL"_ns));
    EXPECT_TRUE(near(pictured(root).at(0, 0), {255, 255, 204, 255}));
    above->setBackgroundColor(UIColor::colorWithWhite(0, 0.2)->CGColor());
    above->setCompositingFilter("plusD"_ns);
    EXPECT_TRUE(near(pictured(root).at(0, 0), {153, 153, 153, 255}));
    above->setCompositingFilter(nullptr);
    EXPECT_TRUE(near(pictured(root).at(0, 0), {163, 163, 163, 255}));
}

TEST_F(LayerDrawing, AShadowFollowsItsPath) {
    CALayer* root = layer_with({{0, 0}, {40, 40}});
    CALayer* layer = layer_with({{10, 10}, {20, 20}});
    layer->setShadowPath(UIBezierPath::bezierPathWithRect({{0, 0}, {20, 20}})->CGPath());
    layer->setShadowColor(UIColor::redColor()->CGColor());
    layer->setShadowOpacity(1);
    layer->setShadowOffset({5, 0});
    layer->setShadowRadius(0);
    root->addSublayer(layer);
    const Picture hard = pictured(root);
    EXPECT_EQ(hard.at(14, 20), transparent);
    EXPECT_EQ(hard.at(15, 20), red);
    EXPECT_EQ(hard.at(34, 20), red);
    EXPECT_EQ(hard.at(35, 20), transparent);
    layer->setShadowRadius(2);
    layer->setShadowOpacity(0.5);
    const Picture soft = pictured(root);
    EXPECT_TRUE(near(soft.at(25, 20), {128, 0, 0, 128}, 2));
    EXPECT_TRUE(near(soft.at(35, 20), {58, 0, 0, 58}, 14)) << "about half at the edge";
    EXPECT_LT(soft.at(39, 20).alpha, 8);
}

TEST_F(LayerDrawing, ABackgroundCastsAShadowOfItsOutline) {
    CALayer* root = layer_with({{0, 0}, {30, 30}});
    CALayer* layer = layer_with({{5, 5}, {20, 20}}, UIColor::greenColor());
    layer->setCornerRadius(10);
    layer->setShadowOpacity(1);
    layer->setShadowRadius(0);
    layer->setShadowOffset({0, 2});
    root->addSublayer(layer);
    EXPECT_EQ(pictured(root).at(15, 15), green);
    EXPECT_EQ(pictured(root).at(15, 25), black);
    EXPECT_EQ(pictured(root).at(5, 25), transparent);
    layer->setMasksToBounds(true);
    EXPECT_EQ(pictured(root).at(15, 25), transparent);
}

TEST_F(LayerDrawing, AGradientFillsItsLayer) {
    CAGradientLayer* layer = CAGradientLayer::layer();
    layer->setFrame({{0, 0}, {100, 100}});
    EXPECT_EQ(layer->startPoint(), (CGPoint{0.5, 0}));
    EXPECT_EQ(layer->endPoint(), (CGPoint{0.5, 1}));
    EXPECT_EQ(pictured(layer).at(50, 50), transparent) << "no colours, nothing drawn";
    auto core = [](UIColor* color) { return reinterpret_cast<id>(color->CGColor()); };
    layer->setColors(array({core(UIColor::redColor()), core(UIColor::blueColor())}));
    EXPECT_TRUE(near(pictured(layer).at(50, 0), red, 3));
    EXPECT_TRUE(near(pictured(layer).at(0, 99), blue, 3));
    layer->setStartPoint({1, 0.5});
    layer->setEndPoint({0, 0.5});
    EXPECT_TRUE(near(pictured(layer).at(99, 50), red, 3));
    EXPECT_TRUE(near(pictured(layer).at(0, 50), blue, 3));
    layer->setLocations(array({NSNumber::numberWithFloat(0), NSNumber::numberWithFloat(0.5f)}));
    EXPECT_EQ(pictured(layer).at(40, 50), blue);
    layer->setColors(array({}));
    layer->setLocations(nullptr);
    EXPECT_EQ(pictured(layer).at(50, 50), transparent);
}

TEST_F(LayerDrawing, ATurnedLayerIsDrawnTurned) {
    CALayer* root = layer_with({{0, 0}, {20, 20}});
    CALayer* bar = layer_with({{0, 8}, {20, 4}}, UIColor::redColor());
    root->addSublayer(bar);
    bar->setAffineTransform({0, 1, -1, 0, 0, 0});
    const Picture picture = pictured(root);
    EXPECT_EQ(picture.at(10, 1), red);
    EXPECT_EQ(picture.at(1, 10), transparent);
}

TEST_F(LayerDrawing, WhatTheModelLacksStops) {
    CALayer* layer = layer_with({{0, 0}, {2, 2}}, UIColor::redColor());
    layer->setCompositingFilter("noSuchBlendMode"_ns);
    EXPECT_DEATH(pictured(layer), "not modelled: CALayer compositingFilter: noSuchBlendMode");
    layer->setCompositingFilter(nullptr);
    layer->setFilters(array({CAFilter::filterWithName("gaussianBlur"_ns)}));
    EXPECT_DEATH(pictured(layer), "not modelled: CALayer filters: gaussianBlur");
    layer->setFilters(nullptr);
    CATransform3D perspective = identity_transform_3d;
    perspective.m34 = 0.001;
    layer->setTransform(perspective);
    EXPECT_DEATH(layer->frame(), "not modelled: CALayer transform");
}

TEST_F(LayerDrawing, NullAndEmptyAreHarmless) {
    CALayer* layer = CALayer::layer();
    layer->renderInContext(nullptr);
    layer->addSublayer(nullptr);
    layer->setShadowOpacity(0.5);
    layer->setBackgroundColor(UIColor::redColor()->CGColor());
    layer->setCornerRadius(5);
    layer->setBorderWidth(1);
    layer->setOpacity(0.5);
    layer->setContents(contents_of(red_and_blue()));
    const Picture picture(drawn({2, 2}, 1, [&](CGContextRef context) { layer->renderInContext(context); }));
    EXPECT_EQ(picture.at(1, 1).red, 0);
}

strong<UIView> view_of(Class made, CGRect frame) {
    return objc::send<"alloc", UIView*>(reinterpret_cast<id>(made))->initWithFrame(frame);
}

int times_drawn = 0;

void draw_half(id self, SEL, CGRect rect) {
    ++times_drawn;
    EXPECT_EQ(rect, static_cast<UIView*>(self)->bounds());
    UIColor::redColor()->setFill();
    CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {rect.size.width / 2, rect.size.height}});
}
const OwnMethod draws_half = own_method("drawRect:", draw_half, "v@:{CGRect={CGPoint=dd}{CGSize=dd}}");

TEST_F(Display, AViewDrawsItselfOnceIntoItsContents) {
    Class drawing = class_with("DrawingView", "UIView", {draws_half});
    auto view = view_of(drawing, {{3, 3}, {4, 2}});
    EXPECT_TRUE(view->layer()->needsDisplay());
    const Picture picture = photographed(view, 2);
    EXPECT_EQ(picture.at(3, 3), red);
    EXPECT_EQ(picture.at(4, 0), transparent);
    photographed(view, 2);
    EXPECT_EQ(times_drawn, 1);
    EXPECT_EQ(CGImageGetWidth(reinterpret_cast<CGImageRef>(view->layer()->contents())), 8u)
        << "the screen's scale";
    view->setNeedsDisplay();
    photographed(view);
    EXPECT_EQ(times_drawn, 2);
}

TEST_F(Display, DrawingIsStretchedUntilItIsDoneAgain) {
    Class drawing = class_with("StretchedView", "UIView", {draws_half});
    auto view = view_of(drawing, {{0, 0}, {4, 2}});
    photographed(view);
    const int before = times_drawn;
    view->setFrame({{0, 0}, {8, 2}});
    photographed(view);
    EXPECT_EQ(times_drawn, before);
    view->setContentMode(UIViewContentModeRedraw);
    view->setFrame({{0, 0}, {12, 2}});
    photographed(view);
    EXPECT_EQ(times_drawn, before + 1);
}

TEST_F(Display, AViewWithoutDrawingGetsNoBitmap) {
    auto view = view_with({{0, 0}, {4, 2}}, UIColor::redColor());
    view->setNeedsDisplay();
    EXPECT_FALSE(view->layer()->needsDisplay());
    photographed(view);
    EXPECT_EQ(view->layer()->contents(), nullptr);
}

void display_layer(id, SEL, CALayer* layer) { layer->setBackgroundColor(UIColor::greenColor()->CGColor()); }

TEST_F(Display, AViewMayDisplayItsLayerItself) {
    Class displaying =
        class_with("DisplayingView", "UIView", {own_method("displayLayer:", display_layer, "v@:@")});
    auto view = view_of(displaying, {{0, 0}, {2, 2}});
    EXPECT_EQ(photographed(view).at(0, 0), green);
    EXPECT_EQ(view->layer()->contents(), nullptr);
}

void draw_layer(id, SEL, CALayer*, CGContextRef context) {
    CGContextSetFillColorWithColor(context, UIColor::blueColor()->CGColor());
    CGContextFillRect(context, {{0, 0}, {1, 1}});
}

TEST_F(Display, ADelegateDrawsIntoItsLayer) {
    Class made = class_with("LayerDelegate", "NSObject",
                            {own_method("drawLayer:inContext:", draw_layer, "v@:@^{CGContext=}")});
    auto delegate = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    CALayer* layer = layer_with({{0, 0}, {2, 2}});
    layer->setDelegate(delegate);
    layer->setNeedsDisplay();
    EXPECT_EQ(pictured(layer).at(0, 0), blue);
    EXPECT_EQ(pictured(layer).at(1, 1), transparent);
}

TEST_F(Display, AnEmptyViewIsDisplayedWithoutContents) {
    Class drawing = class_with("EmptyView", "UIView", {draws_half});
    auto view = view_of(drawing, {});
    view->layer()->displayIfNeeded();
    EXPECT_EQ(view->layer()->contents(), nullptr);
}

}  // namespace
}  // namespace test
