// The candidates of a Chinese input method, for "qiao". The packaged fonts have no Chinese, so that they are
// written as they are spoken.
#include "keyboard/candidates/candidates.h"

#include <algorithm>
#include <iterator>

#include "keyboard/candidates/candidate_views.h"
#include "keyboard/glyph_image.h"
#include "keyboard/make.h"
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "keyboard/rendering/key_painter.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

constexpr const char* texts[] = {
    "qiǎokèlì", "qiáo",    "qiāo",    "qiǎo",    "qiào",    "qiáoliáng", "qiǎomiào", "qiāoqiāo", "qiáng",
    "qiān",     "qiáobāo", "qiàpí",   "qián",    "qiǎng",   "qiàn",      "qiāng",    "qí",       "qǐ",
    "qì",       "qīng",    "qíng",    "qǐng",    "qìng",    "qiú",       "qiū",      "qiè",      "qiě",
    "qīn",      "qiézi",   "qiānwàn", "qǐngwèn", "qīngcǎi", "qiúsài"};
constexpr CGFloat padding = 12, toggle_width = 44, header_height = 26, glyph_size = 16, column_width = 80;
constexpr NSUInteger bottom_edge = 4, right_edge = 8;
/// The lines between cells take this much of each.
constexpr CGFloat line = 0.5;

/// A view of that size with a cap in it, whose lines to the right and below are within the view.
strong<UIView> make_cell(CGRect frame, const KeyTraits& traits) {
    auto cell = make_view<UIView>(frame);
    const CGRect cap{{0, 0}, {frame.size.width - line, frame.size.height - line}};
    cell->layer()->addSublayer(drawn_layer(frame.size, [&](CGContextRef context) {
        paint_cap(context, Path::rounded(cap, traits.corner_radius), traits);
    }));
    return cell;
}

class Filler {
  public:
    Filler(UIView* view, CGFloat row_height)
        : view_(view),
          row_height_(row_height),
          factory_(factory_of_style(VisualStyle::candidates)) {}

    /// As many as fit beside the toggle, each as wide as its text.
    void add_row() {
        CGFloat left = 0;
        for (size_t index = 0; index < std::size(texts); ++index) {
            const KeyTraits traits = candidate_traits(factory_, index == 0, right_edge);
            strong<UILabel> text = make_label(traits.text, NSString::stringWithUTF8String(texts[index]));
            const CGFloat width = text->intrinsicContentSize().width + 2 * padding;
            if (left + width > row_width()) break;
            add_cell({{left, 0}, {width, row_height_}}, traits, text);
            left += width;
        }
        add_toggle(Glyph::next);
    }

    /// In columns of one width beside the toggle, down to the view's bottom.
    void add_rows(CGFloat top) {
        const auto columns = static_cast<size_t>(row_width() / column_width);
        const auto rows = static_cast<size_t>((view_->bounds().size.height - top) / row_height_);
        const CGFloat width = row_width() / static_cast<CGFloat>(columns);
        for (size_t index = 0; index < std::min(columns * rows, std::size(texts)); ++index) {
            const KeyTraits traits = candidate_traits(factory_, index == 0, right_edge | bottom_edge);
            strong<UILabel> text = make_label(traits.text, NSString::stringWithUTF8String(texts[index]));
            const size_t column = index % columns, row = index / columns;
            const CGPoint origin{static_cast<CGFloat>(column) * width,
                                 top + static_cast<CGFloat>(row) * row_height_};
            add_cell({origin, {width, row_height_}}, traits, text);
        }
        add_toggle(Glyph::previous);
    }

    void add_header() {
        auto header = make_view<UIKeyboardCandidateGridHeader>({{0, 0}, {row_width(), header_height}});
        const KeyTraits traits = candidate_header_traits(factory_);
        strong<UILabel> title = make_label(traits.text, "Frequency"_ns);
        title->setFrame(header->bounds());
        header->addSubview(title);
        view_->addSubview(header);
    }

  private:
    CGFloat row_width() { return view_->bounds().size.width - toggle_width; }

    void add_cell(CGRect frame, const KeyTraits& traits, UILabel* text) {
        strong<UIView> cell = make_cell(frame, traits);
        text->setFrame(cell->bounds());
        cell->addSubview(text);
        view_->addSubview(cell);
    }

    void add_toggle(Glyph glyph) {
        const KeyTraits traits = candidate_toggle_traits(factory_);
        strong<UIView> toggle = make_cell({{row_width(), 0}, {toggle_width, row_height_}}, traits);
        UIColor* color = color_named(traits.text->textColor());
        auto arrow = UIImageView::alloc()->initWithImage(glyph_image(glyph, glyph_size, color));
        arrow->setContentMode(UIViewContentModeCenter);
        arrow->setFrame(toggle->bounds());
        toggle->addSubview(arrow);
        view_->addSubview(toggle);
    }

    UIView* view_;
    CGFloat row_height_;
    UIKBRenderFactory* factory_;
};

}  // namespace

strong<UIView> make_candidates(Candidates candidates, CGPoint origin, const KeyboardMetrics& metrics) {
    if (candidates == Candidates::none) return nullptr;
    const bool expanded = candidates == Candidates::expanded;
    const CGFloat row_height = metrics.prediction_height;
    const CGRect frame{origin, {metrics.size.width, row_height + (expanded ? metrics.size.height : 0)}};
    strong<UIView> view;
    if (is_tablet())
        view = make_view<UIKeyboardCandidateView_iPad>(frame).get();
    else
        view = make_view<UIKeyboardCandidateGrid>(frame).get();
    Filler filler(view, row_height);
    if (!expanded) {
        filler.add_row();
    } else if (is_tablet()) {
        filler.add_rows(0);
    } else {
        filler.add_header();
        filler.add_rows(header_height);
    }
    return view;
}

}  // namespace sim
