// Views: geometry, the tree, tint colours, layout.
#include <cmath>

#include "recording_view.h"

namespace test {
namespace {

using ViewGeometry = Drawing;
using ViewTree = Drawing;
using Tint = Drawing;
using Layout = Drawing;
using objc::strong;
using Messages = std::vector<std::string>;

std::vector<NSInteger> tags(UIView* view) {
    std::vector<NSInteger> result;
    NSArray* subviews = view->subviews();
    for (NSUInteger i = 0; i < subviews->count(); ++i)
        result.push_back(static_cast<UIView*>(subviews->objectAtIndex(i))->tag());
    return result;
}
using Tags = std::vector<NSInteger>;

/// The tags of the views whose layers lie in the view's layer, back to front.
Tags layer_tags(UIView* view) {
    Tags result;
    NSArray* layers = view->layer()->sublayers();
    for (NSUInteger i = 0; i < layers->count(); ++i) {
        id delegate = static_cast<CALayer*>(layers->objectAtIndex(i))->delegate();
        result.push_back(delegate ? static_cast<UIView*>(delegate)->tag() : -1);
    }
    return result;
}

strong<UIView> tagged(NSInteger tag) {
    auto view = view_with({{0, 0}, {10, 10}});
    view->setTag(tag);
    return view;
}

TEST_F(ViewGeometry, AFrameIsBoundsAtAPlace) {
    auto view = view_with({{10, 20}, {30, 40}});
    EXPECT_EQ(view->frame(), (CGRect{{10, 20}, {30, 40}}));
    EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {30, 40}}));
    EXPECT_EQ(view->center(), (CGPoint{25, 40}));
    EXPECT_EQ(view->layer()->frame(), view->frame());
}

TEST_F(ViewGeometry, InitIsInitWithAnEmptyFrame) { EXPECT_EQ(UIView::alloc()->init()->frame(), (CGRect{})); }

TEST_F(ViewGeometry, ChangingTheBoundsKeepsTheCentre) {
    auto view = view_with({{10, 20}, {30, 40}});
    view->setBounds({{0, 0}, {10, 10}});
    EXPECT_EQ(view->center(), (CGPoint{25, 40}));
    EXPECT_EQ(view->frame(), (CGRect{{20, 35}, {10, 10}}));
}

TEST_F(ViewGeometry, MovingTheCentreMovesTheFrame) {
    auto view = view_with({{0, 0}, {10, 10}});
    view->setCenter({50, 60});
    EXPECT_EQ(view->frame(), (CGRect{{45, 55}, {10, 10}}));
}

TEST_F(ViewGeometry, ATransformationChangesTheFrameOnly) {
    auto view = view_with({{0, 0}, {10, 20}});
    view->setTransform({2, 0, 0, 3, 0, 0});
    EXPECT_EQ(view->frame(), (CGRect{{-5, -20}, {20, 60}}));
    EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {10, 20}}));
    view->setFrame({{0, 0}, {20, 30}});
    EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {10, 10}}));
    EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {20, 30}}));
}

TEST_F(ViewGeometry, PointsAreConvertedThroughTheTree) {
    auto root = view_with({{0, 0}, {100, 100}}), left = view_with({{10, 10}, {20, 20}}),
         right = view_with({{60, 30}, {20, 20}}), inner = view_with({{5, 5}, {5, 5}});
    root->addSubview(left);
    root->addSubview(right);
    right->addSubview(inner);
    EXPECT_EQ(inner->convertPointToView({1, 2}, root), (CGPoint{66, 37}));
    EXPECT_EQ(inner->convertPointToView({1, 2}, left), (CGPoint{56, 27}));
    EXPECT_EQ(root->convertRectToView({{65, 35}, {2, 2}}, inner), (CGRect{{0, 0}, {2, 2}}));
    EXPECT_EQ((left->send<"convertPoint:fromView:", CGPoint>(CGPoint{1, 2}, static_cast<UIView*>(inner))),
              (CGPoint{56, 27}));
}

TEST_F(ViewGeometry, TheBoundsOriginScrollsWhatIsInside) {
    auto root = view_with({{0, 0}, {10, 10}}), child = view_with({{0, 0}, {2, 2}}, UIColor::redColor());
    root->addSubview(child);
    root->setBounds({{-4, -3}, {10, 10}});
    EXPECT_EQ(child->convertPointToView({0, 0}, root), (CGPoint{0, 0}));
    const Picture picture = photographed(root);
    EXPECT_EQ(picture.at(4, 3), red);
    EXPECT_EQ(picture.at(0, 0), transparent);
}

TEST_F(ViewGeometry, SubviewsFollowTheirSuperviewsSize) {
    const struct {
        UIViewAutoresizing mask;
        CGRect after;
    } rows[] = {
        {0, {{10, 20}, {30, 40}}},
        {18, {{10, 20}, {80, 140}}},
        {UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleTopMargin, {{60, 120}, {30, 40}}},
        {UIViewAutoresizingFlexibleRightMargin | UIViewAutoresizingFlexibleBottomMargin,
         {{10, 20}, {30, 40}}},
        // The margins were 10 and 60: they share the 50 points as 1 to 6.
        {UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin,
         {{10 + 50 / 7.0, 20}, {30, 40}}},
    };
    for (const auto& row : rows) {
        auto root = view_with({{0, 0}, {100, 100}}), child = view_with({{10, 20}, {30, 40}});
        child->setAutoresizingMask(row.mask);
        root->addSubview(child);
        root->setFrame({{5, 5}, {150, 200}});
        const CGRect frame = child->frame();
        EXPECT_DOUBLE_EQ(frame.origin.x, row.after.origin.x) << row.mask;
        EXPECT_DOUBLE_EQ(frame.origin.y, row.after.origin.y) << row.mask;
        EXPECT_EQ(frame.size, row.after.size) << row.mask;
    }
}

TEST_F(ViewGeometry, AnEmptySubviewGrowsFromNothing) {
    auto root = view_with({}), child = view_with({});
    child->setAutoresizingMask(18);
    root->addSubview(child);
    root->setFrame({{0, 0}, {215, 40}});
    EXPECT_EQ(child->frame(), (CGRect{{0, 0}, {215, 40}}));
}

TEST_F(ViewGeometry, AnEmptyViewThatFillsAnEmptyOneFollowsItFromThenOn) {
    auto outer = view_with({}), inner = view_with({});
    inner->setAutoresizingMask(18);
    outer->addSubview(inner);
    for (CGSize size : {CGSize{375, 260}, CGSize{667, 208}, CGSize{0, 0}, CGSize{320, 253}}) {
        outer->setFrame({{0, 0}, size});
        EXPECT_EQ(inner->frame(), (CGRect{{0, 0}, size}));
    }
}

TEST_F(ViewGeometry, SubviewsStayWhenTheirSuperviewDoesNotResizeThem) {
    auto root = view_with({{0, 0}, {10, 10}}), child = view_with({{0, 0}, {10, 10}});
    child->setAutoresizingMask(18);
    root->addSubview(child);
    root->setAutoresizesSubviews(false);
    root->setFrame({{0, 0}, {20, 20}});
    EXPECT_EQ(child->frame(), (CGRect{{0, 0}, {10, 10}}));
}

TEST_F(ViewGeometry, StrangeFramesAreHarmless) {
    auto root = view_with({{0, 0}, {10, 10}});
    for (CGRect frame :
         {CGRect{{NAN, 0}, {NAN, 5}}, CGRect{{0, 0}, {-5, -5}}, CGRect{{1e300, 0}, {1e300, 1e300}}}) {
        auto child = view_with(frame, UIColor::redColor());
        child->setAutoresizingMask(63);
        root->addSubview(child);
        root->setFrame({{0, 0}, {20, 20}});
        root->setFrame({{0, 0}, {10, 10}});
    }
    EXPECT_EQ(photographed(root).width(), 10u);
}

TEST_F(ViewGeometry, TheFrontmostViewUnderAPointIsHit) {
    auto root = view_with({{0, 0}, {100, 100}}), below = view_with({{0, 0}, {50, 50}}),
         above = view_with({{25, 25}, {50, 50}}), inside = view_with({{10, 10}, {5, 5}});
    root->addSubview(below);
    root->addSubview(above);
    above->addSubview(inside);
    auto hit = [&](CGPoint point) { return root->hitTest(point, nullptr); };
    EXPECT_EQ(hit({30, 30}), above);
    EXPECT_EQ(hit({36, 36}), inside);
    EXPECT_EQ(hit({10, 10}), below);
    EXPECT_EQ(hit({90, 90}), root);
    EXPECT_EQ(hit({100, 0}), nullptr);
    above->setHidden(true);
    EXPECT_EQ(hit({30, 30}), below);
    below->setUserInteractionEnabled(false);
    EXPECT_EQ(hit({30, 30}), root);
}

TEST_F(ViewTree, SubviewsAreAnsweredBackToFrontAsACopy) {
    auto root = tagged(0);
    for (NSInteger tag : {1, 2, 3}) root->addSubview(tagged(tag));
    NSArray* before = root->subviews();
    EXPECT_EQ(tags(root), (Tags{1, 2, 3}));
    root->addSubview(tagged(4));
    EXPECT_EQ(before->count(), 3u);
    EXPECT_EQ(raised_by([&] { before->send<"addObject:">(id{}); }), "NSInvalidArgumentException");
}

TEST_F(ViewTree, AViewIsInsertedAtItsIndex) {
    auto root = tagged(0);
    for (NSInteger tag : {1, 2}) root->addSubview(tagged(tag));
    root->insertSubview(tagged(3), 0);
    root->insertSubview(tagged(4), 2);
    root->insertSubview(tagged(5), 99);
    EXPECT_EQ(tags(root), (Tags{3, 1, 4, 2, 5}));
    EXPECT_EQ(layer_tags(root), tags(root));
}

TEST_F(ViewTree, AViewIsInsertedNextToItsSibling) {
    auto root = tagged(0), sibling = tagged(2);
    root->addSubview(tagged(1));
    root->addSubview(sibling);
    root->addSubview(tagged(3));
    root->insertSubviewBelow(tagged(4), sibling);
    root->insertSubviewAbove(tagged(5), sibling);
    EXPECT_EQ(tags(root), (Tags{1, 4, 2, 5, 3}));
    EXPECT_EQ(layer_tags(root), tags(root));
}

TEST_F(ViewTree, AViewThatIsThereChangesItsPlace) {
    auto root = tagged(0);
    std::vector<strong<UIView>> views;
    for (NSInteger tag : {1, 2, 3, 4}) views.push_back(tagged(tag)), root->addSubview(views.back());
    root->bringSubviewToFront(views[1]);
    EXPECT_EQ(tags(root), (Tags{1, 3, 4, 2}));
    root->sendSubviewToBack(views[3]);
    EXPECT_EQ(tags(root), (Tags{4, 1, 3, 2}));
    root->insertSubviewAbove(views[3], views[2]);
    EXPECT_EQ(tags(root), (Tags{1, 3, 4, 2}));
    root->insertSubviewBelow(views[1], views[0]);
    EXPECT_EQ(tags(root), (Tags{2, 1, 3, 4}));
    root->insertSubview(views[0], 3);
    EXPECT_EQ(tags(root), (Tags{2, 3, 4, 1}));
    root->addSubview(views[1]);
    EXPECT_EQ(tags(root), (Tags{3, 4, 1, 2}));
    EXPECT_EQ(layer_tags(root), tags(root));
}

TEST_F(ViewTree, MovingWithinItsSuperviewTellsNobody) {
    auto root = recording_view(), child = recording_view();
    root->addSubview(tagged(1));
    root->addSubview(child);
    messages().clear();
    root->insertSubview(child, 0);
    EXPECT_EQ(messages(), (Messages{}));
}

TEST_F(ViewTree, OtherLayersKeepTheirPlaceAmongTheViews) {
    auto root = tagged(0);
    root->addSubview(tagged(1));
    root->layer()->addSublayer(CALayer::layer());
    root->addSubview(tagged(2));
    root->insertSubview(tagged(3), 1);
    EXPECT_EQ(layer_tags(root), (Tags{1, -1, 3, 2}));
    root->insertSubview(tagged(4), 0);
    EXPECT_EQ(layer_tags(root), (Tags{4, 1, -1, 3, 2}));
}

TEST_F(ViewTree, AddingAndRemovingIsToldInOrder) {
    auto root = recording_view({}, 1), child = recording_view({}, 2);
    root->addSubview(child);
    EXPECT_EQ(messages(), (Messages{"willMoveToSuperview: 2", "didMoveToSuperview 2", "didAddSubview: 1"}));
    messages().clear();
    child->removeFromSuperview();
    EXPECT_EQ(messages(),
              (Messages{"willMoveToSuperview: 2", "willRemoveSubview: 1", "didMoveToSuperview 2"}));
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->layer()->superlayer(), nullptr);
}

TEST_F(ViewTree, AViewLeavesItsOldSuperview) {
    auto first = tagged(1), second = tagged(2), child = tagged(3);
    first->addSubview(child);
    second->addSubview(child);
    EXPECT_EQ(tags(first), Tags{});
    EXPECT_EQ(tags(second), Tags{3});
    EXPECT_EQ(child->superview(), second);
    EXPECT_EQ(child->layer()->superlayer(), second->layer());
}

TEST_F(ViewTree, ASuperviewOwnsItsSubviews) {
    auto root = tagged(0);
    objc::weak<UIView> watched;
    {
        objc::AutoreleasePool pool;
        auto child = tagged(1);
        watched = child;
        root->addSubview(child);
    }
    {
        objc::AutoreleasePool pool;
        ASSERT_EQ(tags(root), Tags{1});
        watched.get()->removeFromSuperview();
    }
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(ViewTree, SubviewsOutliveTheirSuperview) {
    auto child = tagged(1);
    {
        objc::AutoreleasePool pool;
        tagged(0)->addSubview(child);
    }
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->layer()->superlayer(), nullptr);
    EXPECT_EQ(child->nextResponder(), nullptr);
}

TEST_F(ViewTree, ALayerOutlivesItsView) {
    strong<CALayer> layer;
    {
        objc::AutoreleasePool pool;
        layer = tagged(1)->layer();
    }
    EXPECT_EQ(layer->delegate(), nullptr);
    layer->setNeedsLayout();
    layer->layoutIfNeeded();
}

TEST_F(ViewTree, DescentReachesThroughTheTree) {
    auto root = tagged(0), child = tagged(1), grandchild = tagged(2);
    root->addSubview(child);
    child->addSubview(grandchild);
    EXPECT_TRUE(grandchild->isDescendantOfView(root));
    EXPECT_TRUE(root->isDescendantOfView(root));
    EXPECT_FALSE(root->isDescendantOfView(grandchild));
    EXPECT_EQ(grandchild->nextResponder(), child.get());
}

TEST_F(ViewTree, ANilSubviewIsIgnored) {
    auto root = tagged(0);
    root->addSubview(nullptr);
    root->insertSubview(nullptr, 0);
    root->insertSubviewBelow(nullptr, nullptr);
    root->bringSubviewToFront(nullptr);
    root->bringSubviewToFront(tagged(5));
    root->removeFromSuperview();
    EXPECT_EQ(tags(root), Tags{});
}

TEST_F(ViewTree, AViewInItsOwnTreeStops) {
    auto root = tagged(0), child = tagged(1);
    root->addSubview(child);
    EXPECT_DEATH(child->addSubview(root), "not modelled: UIView addSubview:: a view in its own tree");
}

TEST_F(ViewTree, TakingAwayTheSublayersLeavesTheSubviews) {
    auto root = tagged(0), child = view_with({{0, 0}, {10, 10}}, UIColor::redColor());
    root->addSubview(child);
    root->layer()->setSublayers(nullptr);
    EXPECT_EQ(root->subviews()->count(), 1u);
    EXPECT_EQ(photographed(root).at(5, 5), transparent);
    child->removeFromSuperview();
    root->addSubview(child);
    EXPECT_EQ(photographed(root).at(5, 5), red);
}

TEST_F(Tint, IsInheritedFromTheNearestThatHasOne) {
    auto root = tagged(0), child = tagged(1), grandchild = tagged(2);
    root->addSubview(child);
    child->addSubview(grandchild);
    EXPECT_EQ(rgba(grandchild->tintColor()), (Rgba{0, 122 / 255.0, 1, 1})) << "the system's blue";
    root->setTintColor(UIColor::redColor());
    EXPECT_EQ(grandchild->tintColor(), UIColor::redColor());
    child->setTintColor(UIColor::greenColor());
    EXPECT_EQ(grandchild->tintColor(), UIColor::greenColor());
    child->setTintColor(nullptr);
    EXPECT_EQ(grandchild->tintColor(), UIColor::redColor());
}

TEST_F(Tint, AChangeIsToldToThoseWhoInheritIt) {
    auto root = recording_view({}, 1), child = recording_view({}, 2), own = recording_view({}, 3),
         below_own = recording_view({}, 4);
    root->addSubview(child);
    root->addSubview(own);
    own->addSubview(below_own);
    own->setTintColor(UIColor::greenColor());
    messages().clear();
    root->setTintColor(UIColor::redColor());
    EXPECT_EQ(messages(), (Messages{"tintColorDidChange 1", "tintColorDidChange 2"}));
}

TEST_F(Tint, AnotherSuperviewMayChangeIt) {
    auto red_root = tagged(0), plain_root = tagged(0), child = recording_view({}, 1);
    red_root->setTintColor(UIColor::redColor());
    plain_root->addSubview(child);
    EXPECT_EQ(std::count(messages().begin(), messages().end(), "tintColorDidChange 1"), 0);
    red_root->addSubview(child);
    EXPECT_EQ(std::count(messages().begin(), messages().end(), "tintColorDidChange 1"), 1);
}

TEST_F(Layout, HappensOnceWhenItIsNeeded) {
    auto view = recording_view({{0, 0}, {10, 10}}, 1);
    view->layoutIfNeeded();
    view->layoutIfNeeded();
    EXPECT_EQ(messages(), (Messages{"layoutSubviews 1"})) << "a new size needs layout";
    messages().clear();
    view->setNeedsLayout();
    EXPECT_EQ(messages(), Messages{});
    view->layoutIfNeeded();
    EXPECT_EQ(messages(), (Messages{"layoutSubviews 1"}));
}

TEST_F(Layout, GoesFromTheTopDown) {
    auto root = recording_view({}, 1), child = recording_view({}, 2), grandchild = recording_view({}, 3);
    root->addSubview(child);
    child->addSubview(grandchild);
    root->layoutIfNeeded();
    messages().clear();
    grandchild->setNeedsLayout();
    child->setNeedsLayout();
    grandchild->layoutIfNeeded();
    EXPECT_EQ(messages(), (Messages{"layoutSubviews 2", "layoutSubviews 3"}))
        << "the parents that need it come first";
}

TEST_F(Layout, IsNeededAfterAChangeOfSizeOrSubviews) {
    auto root = recording_view({{0, 0}, {10, 10}}, 1);
    auto needs = [&] {
        const bool needed = root->layer()->needsLayout();
        root->layoutIfNeeded();
        return needed;
    };
    needs();
    root->setFrame({{5, 5}, {10, 10}});
    EXPECT_FALSE(needs()) << "moving";
    root->setFrame({{5, 5}, {20, 10}});
    EXPECT_TRUE(needs()) << "resizing";
    auto child = tagged(2);
    root->addSubview(child);
    EXPECT_TRUE(needs()) << "adding";
    child->removeFromSuperview();
    EXPECT_TRUE(needs()) << "removing";
}

TEST_F(Layout, TheLayersLayoutIsTheViews) {
    auto view = recording_view({{0, 0}, {10, 10}}, 1);
    view->layoutIfNeeded();
    messages().clear();
    view->layer()->setNeedsLayout();
    view->layer()->layoutIfNeeded();
    EXPECT_EQ(messages(), (Messages{"layoutSubviews 1"}));
}

}  // namespace
}  // namespace test
