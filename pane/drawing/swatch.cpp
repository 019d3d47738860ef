#include "pane/drawing/swatch.h"

#include "pane/drawing/fill.h"

namespace pane {

UIImage* swatch_of(UIColor* colour) {
    constexpr CGFloat side = 28, corner = 6, ring = 1;
    constexpr CGRect all{{0, 0}, {side, side}};
    constexpr CGRect inner{{ring, ring}, {side - 2 * ring, side - 2 * ring}};
    UIGraphicsBeginImageContextWithOptions(all.size, false, 0);
    UIBezierPath::bezierPathWithRoundedRect(all, corner)->addClip();
    fill(UIColor::colorWithWhite(0.7, 1), all);
    UIBezierPath::bezierPathWithRoundedRect(inner, corner - ring)->addClip();
    fill(UIColor::whiteColor(), inner);
    constexpr CGFloat half = side / 2;
    fill(UIColor::colorWithWhite(0.8, 1), {{0, 0}, {half, half}});
    fill(UIColor::colorWithWhite(0.8, 1), {{half, half}, {half, half}});
    if (colour) fill(colour, inner);
    UIImage* picture = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return picture;
}

}  // namespace pane
