// Which constraints are active, and who holds them.
#include "layout_test.h"

namespace test {
namespace {

using Activation = ConstraintLayout;
using objc::strong;

TEST_F(Activation, TheNearestCommonSuperviewHoldsAConstraint) {
    UIView *left = free_view_in(root), *right = free_view_in(root), *inner = free_view_in(left);
    NSLayoutConstraint* across = active(inner->topAnchor()->constraintEqualToAnchor(right->topAnchor()));
    NSLayoutConstraint* within = active(inner->topAnchor()->constraintEqualToAnchor(left->topAnchor()));
    NSLayoutConstraint* own = active(inner->widthAnchor()->constraintEqualToConstant(5));
    EXPECT_EQ(root->constraints()->objectAtIndex(0), across);
    EXPECT_EQ(left->constraints()->objectAtIndex(0), within);
    EXPECT_EQ(inner->constraints()->objectAtIndex(0), own);
    EXPECT_EQ(root->constraints()->count() + left->constraints()->count() + inner->constraints()->count(),
              3u);
    own->setActive(false);
    EXPECT_EQ(inner->constraints()->count(), 0u);
}

TEST_F(Activation, ActivatingTwiceHoldsAConstraintOnce) {
    NSLayoutConstraint* own = root->widthAnchor()->constraintEqualToConstant(200);
    own->setActive(true);
    own->setActive(true);
    EXPECT_EQ(root->constraints()->count(), 1u);
    own->setActive(false);
    own->setActive(false);
    EXPECT_EQ(root->constraints()->count(), 0u);
}

TEST_F(Activation, AWholeListIsActivatedInOrder) {
    UIView* inner = free_view_in(root);
    NSArray* list = array({inner->topAnchor()->constraintEqualToAnchor(root->topAnchor()),
                           inner->leftAnchor()->constraintEqualToAnchor(root->leftAnchor())});
    NSLayoutConstraint::activateConstraints(list);
    EXPECT_TRUE(root->constraints()->isEqual(list));
    NSLayoutConstraint::deactivateConstraints(list);
    EXPECT_EQ(root->constraints()->count(), 0u);
    NSLayoutConstraint::activateConstraints(nullptr);
}

TEST_F(Activation, ViewsWithoutACommonSuperviewRaise) {
    auto stranger = view();
    NSLayoutConstraint* across = root->topAnchor()->constraintEqualToAnchor(stranger->topAnchor());
    EXPECT_EQ(raised_by([&] { across->setActive(true); }), "NSGenericException");
    EXPECT_FALSE(across->isActive());
}

TEST_F(Activation, LeavingTheSuperviewDropsTheConstraintsAcross) {
    UIView *a = free_view_in(root), *b = free_view_in(a), *c = free_view_in(b);
    strong<NSLayoutConstraint> far = active(c->topAnchor()->constraintEqualToAnchor(root->topAnchor()));
    strong<NSLayoutConstraint> near = active(b->topAnchor()->constraintEqualToAnchor(a->topAnchor()));
    strong<NSLayoutConstraint> within = active(c->topAnchor()->constraintEqualToAnchor(b->topAnchor()));
    strong<NSLayoutConstraint> own = active(b->widthAnchor()->constraintEqualToConstant(5));
    strong<NSLayoutConstraint> outside = active(a->topAnchor()->constraintEqualToAnchor(root->topAnchor()));
    strong<UIView> kept = b;
    b->removeFromSuperview();
    EXPECT_FALSE(far->isActive());
    EXPECT_FALSE(near->isActive());
    EXPECT_TRUE(within->isActive());
    EXPECT_TRUE(own->isActive());
    EXPECT_TRUE(outside->isActive());
    a->addSubview(b);
    EXPECT_FALSE(near->isActive()) << "coming back brings none of them";
}

TEST_F(Activation, AnotherSuperviewDropsThemToo) {
    UIView *a = free_view_in(root), *b = free_view_in(root), *inner = free_view_in(a);
    strong<NSLayoutConstraint> pinned = active(inner->topAnchor()->constraintEqualToAnchor(a->topAnchor()));
    b->addSubview(inner);
    EXPECT_FALSE(pinned->isActive());
    EXPECT_EQ(a->constraints()->count(), 0u);
}

TEST_F(Activation, AHolderThatGoesAwayLetsGo) {
    strong<NSLayoutConstraint> kept;
    strong<UIView> inner;
    {
        objc::AutoreleasePool pool;
        auto outer = view();
        inner = free_view_in(outer);
        kept = active(inner->topAnchor()->constraintEqualToAnchor(outer->topAnchor()));
        outer = nullptr;
    }
    EXPECT_FALSE(kept->isActive());
    EXPECT_EQ(kept->firstItem(), inner);
}

TEST_F(Activation, ItsHolderOwnsAConstraint) {
    objc::weak<NSLayoutConstraint> watched;
    {
        objc::AutoreleasePool pool;
        watched = active(root->widthAnchor()->constraintEqualToConstant(200));
    }
    {
        objc::AutoreleasePool pool;
        ASSERT_NE(watched.get(), nullptr);
        watched.get()->setActive(false);
    }
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(Activation, PrioritiesHaveTheirRange) {
    NSLayoutConstraint* own = root->widthAnchor()->constraintEqualToConstant(200);
    for (UILayoutPriority outside : {0.0f, -1.0f, 1001.0f, NAN})
        EXPECT_EQ(raised_by([&] { own->setPriority(outside); }), "NSInternalInconsistencyException");
    own->setPriority(1);
    EXPECT_EQ(own->priority(), 1);
}

TEST_F(Activation, AnActiveConstraintStaysRequiredOrOptional) {
    NSLayoutConstraint* own = active(root->widthAnchor()->constraintEqualToConstant(200));
    EXPECT_EQ(raised_by([&] { own->setPriority(999); }), "NSInternalInconsistencyException");
    own->setActive(false);
    own->setPriority(999);
    own->setActive(true);
    own->setPriority(10);
    EXPECT_EQ(raised_by([&] { own->setPriority(1000); }), "NSInternalInconsistencyException");
}

}  // namespace
}  // namespace test
