// What constraints make of frames.
#include <random>

#include "layout_test.h"

namespace test {
namespace {

class Solution : public ConstraintLayout {
  protected:
    /// A view in root's upper left corner: what is left to say is its width.
    UIView* view_without_width() {
        UIView* made = free_view_in(root);
        fix_height(made);
        active(made->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
        return made;
    }
    /// The labels side by side from root's left edge to its right one.
    void fill_row(UILabel* first, UILabel* second) {
        for (UIView* each : {first, second})
            active(each->topAnchor()->constraintEqualToAnchor(root->topAnchor()));
        active(first->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
        active(second->leftAnchor()->constraintEqualToAnchor(first->rightAnchor()));
        active(second->rightAnchor()->constraintEqualToAnchor(root->rightAnchor()));
    }
};

TEST_F(Solution, PinnedToItsSuperviewAViewFillsIt) {
    UIView* inner = free_view_in(root);
    pin(inner, root, 10);
    EXPECT_EQ(frame_of(inner), (CGRect{{10, 10}, {180, 80}}));
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, TheSameSaidTwiceIsNoConflict) {
    UIView* inner = free_view_in(root);
    pin(inner, root);
    pin(inner, root);
    EXPECT_EQ(frame_of(inner), (CGRect{{0, 0}, {200, 100}}));
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, EveryAttributeHasItsPlace) {
    UIView *a = free_view_in(root), *b = free_view_in(root), *c = free_view_in(root);
    fix(a, root, {{20, 10}, {40, 30}});
    active(b->leadingAnchor()->constraintEqualToAnchor(a->trailingAnchor(), 5));
    active(b->topAnchor()->constraintEqualToAnchor(a->bottomAnchor(), 5));
    active(b->rightAnchor()->constraintEqualToAnchor(root->rightAnchor(), -15));
    active(b->heightAnchor()->constraintEqualToAnchor(a->heightAnchor(), 0.5, 1));
    active(c->centerXAnchor()->constraintEqualToAnchor(b->centerXAnchor()));
    active(c->centerYAnchor()->constraintEqualToAnchor(root->centerYAnchor()));
    active(c->widthAnchor()->constraintEqualToAnchor(b->widthAnchor(), 0.5, 0));
    active(c->heightAnchor()->constraintEqualToAnchor(c->widthAnchor(), 0.5, 0));
    EXPECT_EQ(frame_of(a), (CGRect{{20, 10}, {40, 30}}));
    EXPECT_EQ(frame_of(b), (CGRect{{65, 45}, {120, 16}}));
    EXPECT_EQ(frame_of(c), (CGRect{{95, 35}, {60, 30}}));
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, FramesAreInTheSuperviewsCoordinates) {
    UIView *outer = free_view_in(root), *inner = free_view_in(outer);
    fix(outer, root, {{50, 20}, {100, 60}});
    pin(inner, outer, 7);
    EXPECT_EQ(frame_of(inner), (CGRect{{7, 7}, {86, 46}}));
}

TEST_F(Solution, FromRightToLeftLeadingIsRightAndConstantsLeadIn) {
    UIView* inner = free_view_in(root);
    inner->setSemanticContentAttribute(UISemanticContentAttributeForceRightToLeft);
    fix_height(inner);
    active(inner->leadingAnchor()->constraintEqualToAnchor(root->leadingAnchor(), 30));
    active(inner->trailingAnchor()->constraintEqualToAnchor(root->centerXAnchor(), -10));
    EXPECT_EQ(frame_of(inner), (CGRect{{110, 0}, {60, 10}}));
}

TEST_F(Solution, AConstraintReachesAcrossTheTree) {
    UIView *outer = free_view_in(root), *inner = free_view_in(outer);
    fix(outer, root, {{50, 20}, {100, 60}});
    fix_height(inner);
    active(inner->leftAnchor()->constraintEqualToAnchor(root->leftAnchor(), 60));
    active(inner->rightAnchor()->constraintEqualToAnchor(root->rightAnchor(), -60));
    EXPECT_EQ(frame_of(inner), (CGRect{{10, 0}, {80, 10}}));
}

TEST_F(Solution, AMultipleOfAPlaceIsMeasuredInTheHolder) {
    UIView* outer = free_view_in(root);
    fix(outer, root, {{50, 20}, {100, 60}});
    UIView* inner = free_view_in(outer);
    fix_height(inner);
    active(inner->widthAnchor()->constraintEqualToConstant(10));
    active(NSLayoutConstraint::class_send<
           "constraintWithItem:attribute:relatedBy:toItem:attribute:multiplier:constant:",
           NSLayoutConstraint*>(inner, NSLayoutAttributeCenterX, NSLayoutRelationEqual, outer,
                                NSLayoutAttributeRight, 0.25, 0.0));
    EXPECT_EQ(frame_of(inner).origin.x, 20);
}

TEST_F(Solution, EqualWidthsShareTheRoom) {
    UIView* views[3];
    NSLayoutAnchor* before = root->leftAnchor();
    for (UIView*& each : views) {
        each = free_view_in(root);
        fix_height(each);
        active(each->leftAnchor()->constraintEqualToAnchor(before));
        before = each->rightAnchor();
    }
    active(
        static_cast<NSLayoutAnchor*>(views[2]->rightAnchor())->constraintEqualToAnchor(root->rightAnchor()));
    active(views[1]->widthAnchor()->constraintEqualToAnchor(views[0]->widthAnchor()));
    active(views[2]->widthAnchor()->constraintEqualToAnchor(views[0]->widthAnchor(), 2, 0));
    EXPECT_EQ(frame_of(views[0]), (CGRect{{0, 0}, {50, 10}}));
    EXPECT_EQ(frame_of(views[1]), (CGRect{{50, 0}, {50, 10}}));
    EXPECT_EQ(frame_of(views[2]), (CGRect{{100, 0}, {100, 10}}));
}

TEST_F(Solution, EdgesAreOnWholePixelsAndMeet) {
    root->setFrame({{0, 0}, {100, 100}});
    UIView* views[3];
    NSLayoutAnchor* before = root->leftAnchor();
    for (UIView*& each : views) {
        each = free_view_in(root);
        fix_height(each);
        active(each->leftAnchor()->constraintEqualToAnchor(before));
        active(each->widthAnchor()->constraintEqualToAnchor(root->widthAnchor(), 1 / 3.0, 0));
        before = each->rightAnchor();
    }
    root->layoutIfNeeded();
    CGFloat edge = 0;
    for (UIView* each : views) {
        EXPECT_EQ(each->frame().origin.x, edge);
        edge += each->frame().size.width;
        EXPECT_EQ(edge * 2, std::round(edge * 2)) << "two pixels to a point";
    }
    EXPECT_EQ(edge, 100);
}

TEST_F(Solution, AHigherPriorityWins) {
    UIView* inner = view_without_width();
    active(inner->widthAnchor()->constraintEqualToConstant(30), 250);
    active(inner->widthAnchor()->constraintEqualToConstant(70), 750);
    active(inner->widthAnchor()->constraintEqualToConstant(50), 500);
    EXPECT_EQ(frame_of(inner).size.width, 70);
    EXPECT_EQ(reports().size(), 0u) << "optional constraints give way silently";
}

TEST_F(Solution, OfOnePriorityTheFirstActivatedWins) {
    UIView* inner = view_without_width();
    active(inner->widthAnchor()->constraintEqualToConstant(30), 500);
    active(inner->widthAnchor()->constraintEqualToConstant(70), 500);
    EXPECT_EQ(frame_of(inner).size.width, 30);
}

TEST_F(Solution, InequalitiesBoundASizeThatWantsMoreOrLess) {
    const struct {
        CGFloat wanted, expected;
    } rows[] = {{10, 40}, {60, 60}, {500, 120}};
    UIView* inner = view_without_width();
    active(inner->widthAnchor()->constraintGreaterThanOrEqualToConstant(40));
    active(inner->rightAnchor()->constraintLessThanOrEqualToAnchor(root->rightAnchor(), -80));
    NSLayoutConstraint* wish = active(inner->widthAnchor()->constraintEqualToConstant(0), 500);
    for (const auto& row : rows) {
        wish->setConstant(row.wanted);
        EXPECT_EQ(frame_of(inner).size.width, row.expected) << row.wanted;
    }
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, InequalitiesOfSeveralViewsHoldTogether) {
    // Two columns want to be 150 wide in 200 points; the first may not be wider than 90.
    UIView *a = view_without_width(), *b = free_view_in(root);
    fix_height(b);
    active(b->leftAnchor()->constraintEqualToAnchor(a->rightAnchor(), 10));
    active(b->rightAnchor()->constraintLessThanOrEqualToAnchor(root->rightAnchor()));
    active(a->widthAnchor()->constraintLessThanOrEqualToConstant(90));
    active(b->widthAnchor()->constraintGreaterThanOrEqualToAnchor(a->widthAnchor()));
    active(a->widthAnchor()->constraintEqualToConstant(150), 700);
    active(b->widthAnchor()->constraintEqualToConstant(150), 600);
    EXPECT_EQ(frame_of(a).size.width, 90);
    EXPECT_EQ(frame_of(b), (CGRect{{100, 0}, {100, 10}}));
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, AWishIsMetAsNearlyAsInequalitiesAllow) {
    // Straight on it runs into the first limit, along that into the second, and along that to the third.
    UIView *a = view_without_width(), *b = view_without_width();
    active(b->widthAnchor()->constraintLessThanOrEqualToAnchor(a->widthAnchor(), 0.5, 20));
    active(b->widthAnchor()->constraintLessThanOrEqualToAnchor(a->widthAnchor(), 0.1, 36));
    active(a->widthAnchor()->constraintLessThanOrEqualToConstant(100));
    active(b->widthAnchor()->constraintEqualToConstant(500), 500);
    EXPECT_EQ(frame_of(b).size.width, 46);
    EXPECT_EQ(frame_of(a).size.width, 100) << "nothing else is left for it";
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, AnOptionalInequalityYieldsToAHigherPriority) {
    UIView* inner = view_without_width();
    active(inner->widthAnchor()->constraintEqualToConstant(120), 800);
    active(inner->widthAnchor()->constraintLessThanOrEqualToConstant(100), 700);
    EXPECT_EQ(frame_of(inner).size.width, 120);
}

TEST_F(Solution, ALabelIsAsLargeAsItsText) {
    UILabel* label = free_label_in(root, "Groceries");
    active(label->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
    active(label->topAnchor()->constraintEqualToAnchor(root->topAnchor()));
    EXPECT_EQ(frame_of(label).size, label->sizeThatFits({}));
    const CGFloat narrow = label->frame().size.width;
    label->setText(text("Groceries and more"));
    EXPECT_GT(frame_of(label).size.width, narrow) << "another text, another size";
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, AnImageViewIsAsLargeAsItsImage) {
    auto made = UIImageView::alloc()->initWithImage(filled_image(UIColor::redColor(), 30, 20));
    made->setTranslatesAutoresizingMaskIntoConstraints(false);
    root->addSubview(made);
    active(made->centerXAnchor()->constraintEqualToAnchor(root->centerXAnchor()));
    active(made->centerYAnchor()->constraintEqualToAnchor(root->centerYAnchor()));
    EXPECT_EQ(frame_of(made), (CGRect{{85, 40}, {30, 20}}));
    made->setImage(filled_image(UIColor::redColor(), 10, 40));
    EXPECT_EQ(frame_of(made), (CGRect{{95, 30}, {10, 40}}));
}

TEST_F(Solution, TheOneThatHugsLessIsStretched) {
    UILabel *caption = free_label_in(root, "Name"), *value = free_label_in(root, "Tom");
    fill_row(caption, value);
    const CGFloat caption_width = caption->sizeThatFits({}).width;
    value->setContentHuggingPriority(100, UILayoutConstraintAxisHorizontal);
    EXPECT_EQ(frame_of(caption).size.width, caption_width);
    EXPECT_EQ(frame_of(value).size.width, 200 - caption_width);
    value->setContentHuggingPriority(400, UILayoutConstraintAxisHorizontal);
    EXPECT_EQ(frame_of(value).size.width, value->sizeThatFits({}).width);
}

TEST_F(Solution, TheOneThatResistsLessIsCompressed) {
    UILabel* caption = free_label_in(root, "A rather long caption");
    UILabel* value = free_label_in(root, "with a rather long value");
    fill_row(caption, value);
    const CGFloat caption_width = caption->sizeThatFits({}).width,
                  value_width = value->sizeThatFits({}).width;
    ASSERT_GT(caption_width + value_width, 200);
    caption->setContentCompressionResistancePriority(751, UILayoutConstraintAxisHorizontal);
    EXPECT_EQ(frame_of(caption).size.width, caption_width);
    EXPECT_EQ(frame_of(value).size.width, 200 - caption_width);
    caption->setContentCompressionResistancePriority(749, UILayoutConstraintAxisHorizontal);
    EXPECT_EQ(frame_of(value).size.width, value_width);
}

TEST_F(Solution, AFrameIsAFactUnlessItsViewWaitsForConstraints) {
    auto fixed = view({{30, 20}, {50, 40}});
    root->addSubview(fixed);
    UIView* inner = free_view_in(root);
    fix_height(inner);
    active(inner->leftAnchor()->constraintEqualToAnchor(fixed->rightAnchor(), 4));
    active(inner->widthAnchor()->constraintEqualToAnchor(fixed->widthAnchor()));
    EXPECT_EQ(frame_of(inner), (CGRect{{84, 0}, {50, 10}}));
    fixed->setFrame({{0, 0}, {60, 40}});
    EXPECT_EQ(frame_of(inner), (CGRect{{64, 0}, {60, 10}})) << "and is followed when it changes";
    fixed->setCenter({40, 20});
    EXPECT_EQ(frame_of(inner).origin.x, 74);
    EXPECT_EQ(fixed->frame(), (CGRect{{10, 0}, {60, 40}}));
}

TEST_F(Solution, AutoresizingGoesOnInsideConstraints) {
    UIView* outer = free_view_in(root);
    pin(outer, root, 10);
    root->layoutIfNeeded();
    auto middle = view({{5, 5}, {170, 70}});
    middle->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin);
    outer->addSubview(middle);
    UIView* inner = free_view_in(middle);
    pin(inner, middle, 1);
    EXPECT_EQ(frame_of(inner), (CGRect{{1, 1}, {168, 68}}));
    root->setFrame({{0, 0}, {300, 150}});
    EXPECT_EQ(frame_of(inner), (CGRect{{1, 1}, {268, 68}}));
    EXPECT_EQ(middle->frame(), (CGRect{{5, 55}, {270, 70}}));
}

TEST_F(Solution, ATransformedViewKeepsItsTransformation) {
    UIView* inner = free_view_in(root);
    fix(inner, root, {{20, 20}, {40, 20}});
    inner->setTransform({2, 0, 0, 2, 0, 0});
    root->layoutIfNeeded();
    EXPECT_EQ(inner->bounds().size, (CGSize{40, 20}));
    EXPECT_EQ(inner->center(), (CGPoint{40, 30}));
}

TEST_F(Solution, TheTopmostViewTakesTheSizeThatConstraintsSay) {
    root->setTranslatesAutoresizingMaskIntoConstraints(false);
    UILabel* label = free_label_in(root, "Groceries");
    pin(label, root, 10);
    root->layoutIfNeeded();
    const CGSize text_size = label->sizeThatFits({});
    EXPECT_EQ(root->bounds().size, (CGSize{text_size.width + 20, text_size.height + 20}));
}

TEST_F(Solution, TheTopmostViewKeepsItsSizeWhereNothingSaysOtherwise) {
    root->setTranslatesAutoresizingMaskIntoConstraints(false);
    UIView* inner = free_view_in(root);
    pin(inner, root, 10);
    EXPECT_EQ(frame_of(inner), (CGRect{{10, 10}, {180, 80}}));
    root->setFrame({{0, 0}, {100, 50}});
    EXPECT_EQ(frame_of(inner), (CGRect{{10, 10}, {80, 30}}));
    EXPECT_EQ(reports().size(), 0u);
}

// Every constraint is true of frames that are kept secret, so all of them together can be met.
TEST_F(Solution, WhatCanBeMetTogetherIsMet) {
    std::mt19937 random(12);
    auto pick = [&](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
    auto value = [](UIView* each, CGRect frame, NSLayoutAttribute attribute, UIView* top) -> CGFloat {
        const CGPoint origin = each == top ? CGPoint{} : frame.origin;
        switch (attribute) {
            case NSLayoutAttributeLeft: return origin.x;
            case NSLayoutAttributeRight: return origin.x + frame.size.width;
            case NSLayoutAttributeTop: return origin.y;
            case NSLayoutAttributeBottom: return origin.y + frame.size.height;
            case NSLayoutAttributeCenterX: return origin.x + frame.size.width / 2;
            case NSLayoutAttributeCenterY: return origin.y + frame.size.height / 2;
            case NSLayoutAttributeWidth: return frame.size.width;
        }
        return frame.size.height;
    };
    constexpr NSLayoutAttribute kinds[3][3] = {
        {NSLayoutAttributeLeft, NSLayoutAttributeRight, NSLayoutAttributeCenterX},
        {NSLayoutAttributeTop, NSLayoutAttributeBottom, NSLayoutAttributeCenterY},
        {NSLayoutAttributeWidth, NSLayoutAttributeHeight, NSLayoutAttributeHeight}};
    for (int round = 0; round < 60; ++round) {
        auto top = view({{0, 0}, {200, 100}});
        std::vector<UIView*> views{top};
        std::vector<CGRect> secret{top->frame()};
        for (int i = 0; i < 6; ++i) {
            views.push_back(free_view_in(top));
            secret.push_back({{CGFloat(pick(-20, 150)), CGFloat(pick(-20, 80))},
                              {CGFloat(2 * pick(0, 40)), CGFloat(2 * pick(0, 30))}});
        }
        std::vector<NSLayoutConstraint*> made;
        for (int i = 0; i < 26; ++i) {
            const size_t a = static_cast<size_t>(pick(1, 6)), b = static_cast<size_t>(pick(0, 6));
            const int kind = pick(0, 2), relation = pick(-1, 1);
            const auto first = kinds[kind][pick(0, 2)], second = kinds[kind][pick(0, 2)];
            const CGFloat multiplier = kind == 2 ? pick(1, 3) : 1;
            const CGFloat constant = value(views[a], secret[a], first, top) -
                                     value(views[b], secret[b], second, top) * multiplier -
                                     relation * pick(0, 15);
            made.push_back(
                active(NSLayoutConstraint::class_send<
                       "constraintWithItem:attribute:relatedBy:toItem:attribute:multiplier:constant:",
                       NSLayoutConstraint*>(views[a], first, NSInteger{relation}, views[b], second,
                                            multiplier, constant)));
        }
        top->layoutIfNeeded();
        for (NSLayoutConstraint* each : made) {
            auto side = [&](id item, NSLayoutAttribute attribute) {
                auto* of = static_cast<UIView*>(item);
                return value(of, of->frame(), attribute, top);
            };
            const CGFloat difference =
                side(each->firstItem(), each->firstAttribute()) -
                side(each->secondItem(), each->secondAttribute()) * each->multiplier() - each->constant();
            constexpr CGFloat rounded = 2;  // half a point for each of four edges
            if (each->relation() <= 0) EXPECT_LE(difference, rounded) << round;
            if (each->relation() >= 0) EXPECT_GE(difference, -rounded) << round;
        }
    }
    for (const std::string& line : reports())
        EXPECT_EQ(line.find("cannot be met"), std::string::npos) << line;
}

TEST_F(Solution, ALongChainOfConstraintsIsSolvedExactly) {
    NSLayoutAnchor* before = root->topAnchor();
    UIView* last = nullptr;
    for (int i = 0; i < 300; ++i) {
        last = free_view_in(root);
        active(last->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
        active(last->rightAnchor()->constraintEqualToAnchor(root->rightAnchor()));
        active(static_cast<NSLayoutAnchor*>(last->topAnchor())->constraintEqualToAnchor(before, 1));
        active(last->heightAnchor()->constraintEqualToConstant(2));
        before = last->bottomAnchor();
    }
    EXPECT_EQ(frame_of(last), (CGRect{{0, 898}, {200, 2}}));
    EXPECT_EQ(reports().size(), 0u);
}

TEST_F(Solution, AColumnOfLabelsIsAsTallAsItsTexts) {
    NSLayoutAnchor* before = root->topAnchor();
    UILabel* last = nullptr;
    for (int i = 0; i < 100; ++i) {
        last = free_label_in(root, "Groceries");
        active(last->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
        active(last->rightAnchor()->constraintLessThanOrEqualToAnchor(root->rightAnchor()));
        active(static_cast<NSLayoutAnchor*>(last->topAnchor())->constraintEqualToAnchor(before));
        before = last->bottomAnchor();
    }
    EXPECT_EQ(frame_of(last).origin.y, 99 * last->sizeThatFits({}).height);
    EXPECT_EQ(reports().size(), 0u);
}

}  // namespace
}  // namespace test
