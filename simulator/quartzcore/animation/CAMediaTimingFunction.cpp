#include "quartzcore/animation/CAMediaTimingFunction.h"

#include <string_view>

#include "objc/class.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct TimingFunction : objc::Implements<TimingFunction, CAMediaTimingFunction> {
    struct Ivars {
        sim::Timing timing;
    };

    static CAMediaTimingFunction* functionWithName(Class self, NSString* name) {
        return with(self, sim::timing_named(name->UTF8String()));
    }
    static CAMediaTimingFunction* functionWithControlPoints(Class self, float x1, float y1, float x2,
                                                            float y2) {
        return with(self, sim::curve_timing(x1, y1, x2, y2));
    }

  private:
    static CAMediaTimingFunction* with(Class self, sim::Timing timing) {
        auto made = objc::adopt(objc::send<"new", TimingFunction*>(reinterpret_cast<id>(self)));
        made->ivars().timing = std::move(timing);
        return strong<CAMediaTimingFunction>(made.get()).autoreleased();
    }
};

}  // namespace

sim::Timing sim::timing_of(CAMediaTimingFunction* function) {
    return function ? static_cast<TimingFunction*>(function)->ivars().timing : linear_timing();
}

sim::Timing sim::timing_named(const char* name) {
    struct Curve {
        std::string_view name;
        double x1, y1, x2, y2;
    };
    constexpr Curve curves[] = {{"easeIn", 0.42, 0, 1, 1},
                                {"easeOut", 0, 0, 0.58, 1},
                                {"easeInEaseOut", 0.42, 0, 0.58, 1},
                                {"default", 0.25, 0.1, 0.25, 1}};
    const std::string_view wanted = name;
    if (wanted == "linear") return linear_timing();
    for (const Curve& curve : curves)
        if (curve.name == wanted) return curve_timing(curve.x1, curve.y1, curve.x2, curve.y2);
    not_modelled("CAMediaTimingFunction", "functionWithName:", wanted);
}

using namespace objc::definition;

OBJC_CLASS(CAMediaTimingFunction, NSObject, TimingFunction,
           ivar<"_timing", &TimingFunction::Ivars::timing>,
           class_method<"functionWithName:", &TimingFunction::functionWithName>,
           class_method<"functionWithControlPoints::::", &TimingFunction::functionWithControlPoints>)
