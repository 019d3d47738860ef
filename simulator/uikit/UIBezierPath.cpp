// Paths that draw themselves. Rounded corners are quarters of circles; the platform's are smoother.
#include "coregraphics/CGPath.h"
#include "objc/class.h"
#include "platform/uikit.h"

namespace {

using objc::strong;

struct BezierPath : objc::Implements<BezierPath, UIBezierPath> {
    struct Ivars {
        strong<::CGPath> path;
        CGFloat lineWidth = 1;
    };

    static UIBezierPath* with(Class self, CGPathRef path) {
        auto made = objc::make<"init", BezierPath>(self);
        made->ivars().path = strong<::CGPath>::adopt(const_cast<::CGPath*>(path));
        return strong<UIBezierPath>(made.get()).autoreleased();
    }

    static UIBezierPath* bezierPathWithRect(Class self, CGRect rect) {
        return with(self, CGPathCreateWithRect(rect, nullptr));
    }
    static UIBezierPath* bezierPathWithRoundedRect(Class self, CGRect rect, CGFloat corner_radius) {
        return with(self, CGPathCreateWithRoundedRect(rect, corner_radius, corner_radius, nullptr));
    }
    static UIBezierPath* bezierPathWithOvalInRect(Class self, CGRect rect) {
        return with(self, CGPathCreateWithEllipseInRect(rect, nullptr));
    }
    static UIBezierPath* bezierPathWithCGPath(Class self, CGPathRef path) {
        return with(self, CGPathRetain(path));
    }

    CGPathRef CGPath() { return ivars().path; }

    void fill() { CGContextFillPath(with_path()); }
    void stroke() {
        CGContextRef context = with_path();
        CGContextSetLineWidth(context, self()->lineWidth());
        CGContextStrokePath(context);
    }
    void addClip() { CGContextClip(with_path()); }

  private:
    CGContextRef with_path() {
        CGContextRef context = UIGraphicsGetCurrentContext();
        CGContextBeginPath(context);
        CGContextAddPath(context, ivars().path);
        return context;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIBezierPath, NSObject, BezierPath,
           ivar<"_path", &BezierPath::Ivars::path>,
           property<"lineWidth", &BezierPath::Ivars::lineWidth>,
           class_method<"bezierPathWithRect:", &BezierPath::bezierPathWithRect>,
           class_method<"bezierPathWithRoundedRect:cornerRadius:", &BezierPath::bezierPathWithRoundedRect>,
           class_method<"bezierPathWithOvalInRect:", &BezierPath::bezierPathWithOvalInRect>,
           class_method<"bezierPathWithCGPath:", &BezierPath::bezierPathWithCGPath>,
           method<"CGPath", &BezierPath::CGPath>,
           method<"fill", &BezierPath::fill>,
           method<"stroke", &BezierPath::stroke>,
           method<"addClip", &BezierPath::addClip>)
