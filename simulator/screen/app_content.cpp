#include "screen/app_content.h"

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

void add_notes(UIView* page) {
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
}

/// Bands of colour from edge to edge, a checked one between them, and rings over all.
UIImage* busy_picture(CGSize size) {
    constexpr CGFloat band = 48, square = 12;
    constexpr double bands[][3] = {
        {0.91, 0.22, 0.24}, {1.00, 0.80, 0.16}, {0.10, 0.55, 0.87}, {0.10, 0.66, 0.42}};
    UIGraphicsBeginImageContextWithOptions(size, true, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    int index = 0;
    for (CGFloat top = 0; top < size.height; top += band, ++index) {
        const int kind = index % 5;
        if (kind < 4) {
            CGContextSetRGBFillColor(context, bands[kind][0], bands[kind][1], bands[kind][2], 1);
            CGContextFillRect(context, {{0, top}, {size.width, band}});
            continue;
        }
        for (int row = 0; row < band / square; ++row)
            for (int column = 0; column < size.width / square; ++column) {
                CGContextSetGrayFillColor(context, (row + column) % 2, 1);
                CGContextFillRect(context, {{column * square, top + row * square}, {square, square}});
            }
    }
    for (int ring = 0; ring < 9; ++ring) {
        const CGFloat radius = 150 - 16 * ring;
        const CGPoint centre{size.width * 0.6, size.height - 150};
        CGContextSetGrayFillColor(context, ring % 2 ? 1 : 0.1, 1);
        CGContextFillEllipseInRect(context,
                                   {{centre.x - radius, centre.y - radius}, {2 * radius, 2 * radius}});
    }
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

}  // namespace

objc::strong<UIView> make_app_content(AppContent content, CGSize screen) {
    auto page = make_view<UIView>({{0, 0}, screen});
    switch (content) {
        case AppContent::notes:
            page->setBackgroundColor(UIColor::whiteColor());
            add_notes(page);
            break;
        case AppContent::light: page->setBackgroundColor(UIColor::colorWithWhite(0.97, 1)); break;
        case AppContent::busy:
            page->addSubview(UIImageView::alloc()->initWithImage(busy_picture(screen)));
            break;
    }
    return page;
}

}  // namespace sim
