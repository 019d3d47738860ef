// Anchors: the constraints that they make.
#include "layout_test.h"

namespace test {
namespace {

using Anchors = ConstraintLayout;

TEST_F(Anchors, AConstraintSaysWhatItIsMadeOf) {
    UIView *a = free_view_in(root), *b = free_view_in(root);
    NSLayoutConstraint* made = a->topAnchor()->constraintEqualToAnchor(b->bottomAnchor(), 8);
    EXPECT_EQ(made->firstItem(), a);
    EXPECT_EQ(made->secondItem(), b);
    EXPECT_EQ(made->firstAttribute(), NSLayoutAttributeTop);
    EXPECT_EQ(made->secondAttribute(), NSLayoutAttributeBottom);
    EXPECT_EQ(made->relation(), NSLayoutRelationEqual);
    EXPECT_EQ(made->multiplier(), 1);
    EXPECT_EQ(made->constant(), 8);
    EXPECT_EQ(made->priority(), 1000);
    EXPECT_FALSE(made->isActive());
}

TEST_F(Anchors, EachAnchorHasItsAttributeAndKind) {
    const struct {
        NSLayoutAnchor* anchor;
        NSLayoutAttribute attribute;
        const char* kind;
    } rows[] = {{root->leftAnchor(), 1, "NSLayoutXAxisAnchor"},
                {root->rightAnchor(), 2, "NSLayoutXAxisAnchor"},
                {root->topAnchor(), 3, "NSLayoutYAxisAnchor"},
                {root->bottomAnchor(), 4, "NSLayoutYAxisAnchor"},
                {root->leadingAnchor(), 5, "NSLayoutXAxisAnchor"},
                {root->trailingAnchor(), 6, "NSLayoutXAxisAnchor"},
                {root->widthAnchor(), 7, "NSLayoutDimension"},
                {root->heightAnchor(), 8, "NSLayoutDimension"},
                {root->centerXAnchor(), 9, "NSLayoutXAxisAnchor"},
                {root->centerYAnchor(), 10, "NSLayoutYAxisAnchor"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(object_getClassName(row.anchor), row.kind);
        EXPECT_EQ(row.anchor->constraintEqualToAnchor(row.anchor)->firstAttribute(), row.attribute);
    }
}

TEST_F(Anchors, ComparisonsHaveTheirRelation) {
    NSLayoutDimension* width = root->widthAnchor();
    for (auto* at_most :
         {width->constraintLessThanOrEqualToAnchor(width), width->constraintLessThanOrEqualToConstant(4),
          width->constraintLessThanOrEqualToAnchor(width, 2, 4)})
        EXPECT_EQ(at_most->relation(), NSLayoutRelationLessThanOrEqual);
    for (auto* at_least : {width->constraintGreaterThanOrEqualToAnchor(width),
                           width->constraintGreaterThanOrEqualToConstant(4),
                           width->constraintGreaterThanOrEqualToAnchor(width, 2, 4)})
        EXPECT_EQ(at_least->relation(), NSLayoutRelationGreaterThanOrEqual);
    NSLayoutConstraint* multiple = width->constraintEqualToAnchor(root->heightAnchor(), 2, 4);
    EXPECT_EQ(multiple->multiplier(), 2);
    EXPECT_EQ(multiple->constant(), 4);
    EXPECT_EQ(width->constraintEqualToConstant(4)->secondItem(), nullptr);
    EXPECT_EQ(width->constraintEqualToConstant(4)->secondAttribute(), NSLayoutAttributeNotAnAttribute);
}

TEST_F(Anchors, APairThatIsNotAnEquationRaises) {
    const std::string refused = "NSInvalidArgumentException";
    auto* across = static_cast<NSLayoutAnchor*>(root->leftAnchor());
    EXPECT_EQ(raised_by([&] { across->constraintEqualToAnchor(root->topAnchor()); }), refused)
        << "across and down";
    EXPECT_EQ(raised_by([&] { across->constraintEqualToAnchor(root->widthAnchor()); }), refused)
        << "place and size";
    EXPECT_EQ(raised_by([&] { across->constraintEqualToAnchor(root->leadingAnchor()); }), refused)
        << "left, leading";
    EXPECT_EQ(raised_by([&] { across->constraintEqualToAnchor(root->centerXAnchor()); }), "");
    EXPECT_EQ(raised_by([&] { across->constraintEqualToAnchor(nullptr); }), refused);
    for (CGFloat constant : {CGFloat{NAN}, CGFloat{INFINITY}})
        EXPECT_EQ(raised_by([&] { root->widthAnchor()->constraintEqualToConstant(constant); }), refused);
}

TEST_F(Anchors, AConstraintOutlivesItsViews) {
    objc::strong<NSLayoutConstraint> kept;
    {
        objc::AutoreleasePool pool;
        auto gone = view();
        kept = gone->widthAnchor()->constraintEqualToConstant(10);
    }
    EXPECT_EQ(kept->firstItem(), nullptr);
    kept->setActive(true);
    EXPECT_FALSE(kept->isActive());
}

}  // namespace
}  // namespace test
