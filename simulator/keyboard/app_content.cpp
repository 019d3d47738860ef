// What an application shows above its keyboard.
#include "keyboard/app_content.h"

#include "keyboard/make.h"

namespace sim {
namespace {

constexpr CGFloat margin = 20;

void add_text(UIView* page, const char* text, CGFloat top, UIFont* font, UIColor* color,
              NSTextAlignment alignment = NSTextAlignmentLeft) {
    auto label =
        make_view<UILabel>({{margin, top}, {page->bounds().size.width - 2 * margin, font->lineHeight()}});
    label->setText(NSString::stringWithUTF8String(text));
    label->setFont(font);
    label->setTextColor(color);
    label->setTextAlignment(alignment);
    page->addSubview(label);
}

}  // namespace

objc::strong<UIView> make_app_content(CGSize screen) {
    auto page = make_view<UIView>({{0, 0}, screen});
    page->setBackgroundColor(UIColor::whiteColor());
    UIColor* ink = UIColor::colorWithWhite(0.1, 1);
    add_text(page, "12 October at 09:41", 28, UIFont::systemFontOfSize(13), UIColor::colorWithWhite(0.6, 1),
             NSTextAlignmentCenter);
    add_text(page, "Groceries", 56, UIFont::systemFontOfSize(26, UIFontWeightBold), ink);
    CGFloat top = 98;
    for (const char* line : {"Apples", "Rye bread", "Coffee", "choco"}) {
        add_text(page, line, top, UIFont::systemFontOfSize(17), ink);
        top += 27;
    }
    auto cursor = make_view<UIView>({{margin + 51, top - 27}, {2, 21}});
    cursor->setBackgroundColor(UIColor::colorWithRGB(0, 122 / 255.0, 1, 1));
    page->addSubview(cursor);
    return page;
}

}  // namespace sim
