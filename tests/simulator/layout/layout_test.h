// What the layout tests share: views that wait for constraints, and those constraints.
#pragma once
#include "support/phone.h"

namespace test {

class ConstraintLayout : public testing::Test {
  protected:
    void SetUp() override {
        phone.boot();
        root = view({{0, 0}, {200, 100}});
    }
    void TearDown() override { root = nullptr; }

    static objc::strong<UIView> view(CGRect frame = {}) { return UIView::alloc()->initWithFrame(frame); }
    /// A subview that is where constraints say.
    static UIView* free_view_in(UIView* superview) {
        auto made = view();
        made->setTranslatesAutoresizingMaskIntoConstraints(false);
        superview->addSubview(made);
        return made;
    }
    static UILabel* free_label_in(UIView* superview, const char* words) {
        auto made = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
        made->setText(text(words));
        made->setTranslatesAutoresizingMaskIntoConstraints(false);
        superview->addSubview(made);
        return made;
    }

    static NSLayoutConstraint* active(NSLayoutConstraint* constraint, UILayoutPriority priority = 1000) {
        constraint->setPriority(priority);
        constraint->setActive(true);
        return constraint;
    }
    static void pin(UIView* inner, UIView* outer, CGFloat inset = 0) {
        active(inner->topAnchor()->constraintEqualToAnchor(outer->topAnchor(), inset));
        active(inner->leadingAnchor()->constraintEqualToAnchor(outer->leadingAnchor(), inset));
        active(inner->trailingAnchor()->constraintEqualToAnchor(outer->trailingAnchor(), -inset));
        active(inner->bottomAnchor()->constraintEqualToAnchor(outer->bottomAnchor(), -inset));
    }
    /// Says everything of a view but one thing: at a place, with a size.
    static void fix(UIView* inner, UIView* outer, CGRect frame) {
        active(inner->leftAnchor()->constraintEqualToAnchor(outer->leftAnchor(), frame.origin.x));
        active(inner->topAnchor()->constraintEqualToAnchor(outer->topAnchor(), frame.origin.y));
        active(inner->widthAnchor()->constraintEqualToConstant(frame.size.width));
        active(inner->heightAnchor()->constraintEqualToConstant(frame.size.height));
    }
    /// The vertical half of a layout that is about the horizontal one.
    static void fix_height(UIView* inner) {
        active(inner->topAnchor()->constraintEqualToAnchor(inner->superview()->topAnchor()));
        active(inner->heightAnchor()->constraintEqualToConstant(10));
    }
    CGRect frame_of(UIView* inner) {
        root->layoutIfNeeded();
        return inner->frame();
    }
    static std::vector<std::string> reports() {
        std::vector<std::string> lines;
        for (size_t i = 0; i < sim_layout_report_count(); ++i) {
            sim_layout_report report;
            EXPECT_EQ(sim_layout_report_at(i, &report), SIM_OK) << sim_last_error();
            lines.emplace_back(report.line);
        }
        return lines;
    }

    Phone phone;
    objc::strong<UIView> root;
};

}  // namespace test
