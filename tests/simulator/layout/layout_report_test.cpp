// Layouts that contradict themselves or say too little: they are reported, and go on.
#include "layout_test.h"

namespace test {
namespace {

using LayoutReports = ConstraintLayout;
using Lines = std::vector<std::string>;

TEST_F(LayoutReports, OfTwoRequiredConstraintsTheLaterIsLeftOut) {
    UIView* inner = free_view_in(root);
    fix(inner, root, {{0, 0}, {50, 10}});
    active(inner->widthAnchor()->constraintEqualToConstant(80));
    EXPECT_EQ(frame_of(inner).size.width, 50);
    EXPECT_EQ(reports(), (Lines{"cannot be met and is left out: UIView/UIView[0].width == 80; against it: "
                                "UIView/UIView[0].width == 50"}));
    sim_layout_report report;
    ASSERT_EQ(sim_layout_report_at(0, &report), SIM_OK) << sim_last_error();
    EXPECT_EQ(report.problem, SIM_LAYOUT_CONFLICT);
}

TEST_F(LayoutReports, AConflictNamesAllThatStandAgainstAConstraint) {
    UIView *a = free_view_in(root), *b = free_view_in(root);
    fix(a, root, {{10, 0}, {50, 10}});
    fix_height(b);
    active(b->leftAnchor()->constraintEqualToAnchor(a->rightAnchor()));
    NSLayoutConstraint* width = active(b->widthAnchor()->constraintEqualToConstant(20));
    width->setIdentifier(text("narrow"));
    active(b->rightAnchor()->constraintEqualToAnchor(root->rightAnchor()));
    EXPECT_EQ(frame_of(b), (CGRect{{60, 0}, {20, 10}}));
    EXPECT_EQ(
        reports(),
        (Lines{"cannot be met and is left out: UIView/UIView[1].right == UIView.right; against it: "
               "UIView/UIView[0].left == UIView.left + 10, UIView/UIView[0].width == 50, "
               "UIView/UIView[1].left == UIView/UIView[0].right, UIView/UIView[1].width == 20 (narrow)"}));
}

TEST_F(LayoutReports, AnInequalityThatCannotBeMetIsLeftOut) {
    UIView* inner = free_view_in(root);
    fix(inner, root, {{0, 0}, {50, 10}});
    active(inner->widthAnchor()->constraintGreaterThanOrEqualToConstant(80));
    EXPECT_EQ(frame_of(inner).size.width, 50);
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_NE(reports()[0].find("UIView/UIView[0].width >= 80; against it: UIView/UIView[0].width == 50"),
              std::string::npos)
        << reports()[0];
}

TEST_F(LayoutReports, InequalitiesThatExcludeEachOtherAreNamed) {
    UIView* inner = free_view_in(root);
    fix_height(inner);
    active(inner->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
    active(inner->widthAnchor()->constraintLessThanOrEqualToConstant(50));
    active(inner->widthAnchor()->constraintGreaterThanOrEqualToConstant(80));
    EXPECT_LE(frame_of(inner).size.width, 50);
    ASSERT_GE(reports().size(), 1u);
    EXPECT_NE(reports()[0].find("UIView/UIView[0].width >= 80; against it: UIView/UIView[0].width <= 50"),
              std::string::npos)
        << reports()[0];
}

TEST_F(LayoutReports, AFrameThatStandsAgainstAConstraintIsNamed) {
    auto fixed = view({{0, 0}, {50, 10}});
    root->addSubview(fixed);
    active(fixed->widthAnchor()->constraintEqualToConstant(80));
    EXPECT_EQ(frame_of(fixed).size.width, 50);
    EXPECT_EQ(reports(),
              (Lines{"cannot be met and is left out: UIView/UIView[0].width == 80; its views have the "
                     "frames that their autoresizing masks say"}));
}

TEST_F(LayoutReports, ASuperviewThatIsTooSmallLeavesNoSize) {
    root->setFrame({{0, 0}, {10, 100}});
    UIView* inner = free_view_in(root);
    pin(inner, root, 20);
    EXPECT_EQ(frame_of(inner), (CGRect{{20, 20}, {0, 60}}));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_NE(reports()[0].find("UIView/UIView[0], which cannot be smaller than nothing"), std::string::npos)
        << reports()[0];
}

TEST_F(LayoutReports, AViewOfWhichTooLittleIsSaidIsNamedAndAsSmallAsItMayBe) {
    UIView* inner = free_view_in(root);
    active(inner->rightAnchor()->constraintEqualToAnchor(root->rightAnchor(), -20));
    active(inner->widthAnchor()->constraintGreaterThanOrEqualToConstant(30));
    active(inner->topAnchor()->constraintEqualToAnchor(root->topAnchor(), 5));
    EXPECT_EQ(frame_of(inner), (CGRect{{150, 5}, {30, 0}}));
    EXPECT_EQ(reports(), (Lines{"is ambiguous: UIView/UIView[0] has more than one possible width, horizontal "
                                "place, height"}));
    sim_layout_report report;
    ASSERT_EQ(sim_layout_report_at(0, &report), SIM_OK) << sim_last_error();
    EXPECT_EQ(report.problem, SIM_LAYOUT_AMBIGUITY);
    EXPECT_TRUE(inner->hasAmbiguousLayout());
    EXPECT_FALSE(root->hasAmbiguousLayout());
}

TEST_F(LayoutReports, OnlyTheOutermostAmbiguousViewIsNamed) {
    UIView *outer = free_view_in(root), *inner = free_view_in(outer);
    fix_height(outer);
    pin(inner, outer);
    active(outer->leftAnchor()->constraintEqualToAnchor(root->leftAnchor()));
    root->layoutIfNeeded();
    EXPECT_EQ(reports(), (Lines{"is ambiguous: UIView/UIView[0] has more than one possible width"}));
}

TEST_F(LayoutReports, NothingIsSaidTwiceWhileItStaysWrong) {
    UIView* inner = free_view_in(root);
    fix(inner, root, {{0, 0}, {50, 10}});
    NSLayoutConstraint* other = active(inner->widthAnchor()->constraintEqualToConstant(80));
    root->layoutIfNeeded();
    root->setFrame({{0, 0}, {300, 100}});
    root->layoutIfNeeded();
    EXPECT_EQ(reports().size(), 1u);
    other->setActive(false);
    root->layoutIfNeeded();
    other->setActive(true);
    root->layoutIfNeeded();
    EXPECT_EQ(reports().size(), 2u) << "it went right in between";
}

TEST_F(LayoutReports, AreWrittenToTheErrorStream) {
    UIView* inner = free_view_in(root);
    pin(inner, root);
    active(inner->widthAnchor()->constraintEqualToConstant(80));
    testing::internal::CaptureStderr();
    root->layoutIfNeeded();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "layout: " + reports().at(0) + "\n");
}

TEST_F(LayoutReports, AreAnsweredByIndex) {
    sim_layout_report report;
    EXPECT_EQ(sim_layout_report_at(0, &report), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_layout_report_at: there is no report 0 of 0");
    EXPECT_EQ(sim_layout_report_at(0, nullptr), SIM_MISUSE);
}

}  // namespace
}  // namespace test
