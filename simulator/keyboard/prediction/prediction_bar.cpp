#include "keyboard/prediction/prediction_bar.h"

#include "keyboard/make.h"

namespace sim {
namespace {

using objc::strong;

constexpr int suggestion_count = 3, active_suggestion = 1;
constexpr const char* suggestions[suggestion_count] = {"“choco”", "chocolate", "chocolates"};

void add_line(UIView* bar, CGFloat x) {
    const CGFloat height = bar->bounds().size.height, margin = height / 4;
    auto line = make_view<UIView>({{x, margin}, {0.5, height - 2 * margin}});
    line->setBackgroundColor(UIColor::colorWithWhite(0, 0.25));
    bar->addSubview(line);
}

}  // namespace

strong<UIView> make_prediction_bar(CGRect frame) {
    auto bar = make_view<UIView>(frame);
    const CGFloat width = frame.size.width / suggestion_count;
    for (int index = 0; index < suggestion_count; ++index) {
        auto cell = make_view<UIKeyboardPredictionCell>({{index * width, 0}, {width, frame.size.height}});
        cell->setText(NSString::stringWithUTF8String(suggestions[index]), nullptr, index == active_suggestion,
                      false);
        bar->addSubview(cell);
    }
    for (int index = 1; index < suggestion_count; ++index)
        if (index != active_suggestion && index - 1 != active_suggestion) add_line(bar, index * width);
    return bar;
}

}  // namespace sim
