// Segmented controls: texts or images side by side, one of them selected.
#include <algorithm>
#include <vector>

#include "objc/class.h"
#include "platform/controls.h"

namespace {

using objc::strong;

struct Segment {
    strong<NSString> title;
    strong<UIImage> image;
    bool enabled = true;
};

struct SegmentedControl : objc::Implements<SegmentedControl, UISegmentedControl> {
    struct Ivars {
        std::vector<Segment> segments;
        NSInteger selectedSegmentIndex = -1;
        NSInteger touched = -1;
        bool momentary = false;
        std::vector<strong<UIView>> parts;
    };
    static constexpr CGFloat height = 29, text_size = 13, line = 1, side = 12;

    strong<UISegmentedControl> initWithItems(NSArray* items) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        for (NSUInteger i = 0; i < items->count(); ++i) {
            id item = items->objectAtIndex(i);
            Segment segment;
            if (auto* image = as<UIImage>(item))
                segment.image = image;
            else
                segment.title =
                    strong<NSString>::adopt(static_cast<NSString*>(item)->send<"copy", NSString*>());
            self->ivars().segments.push_back(std::move(segment));
        }
        auto* view = self->self();
        view->layer()->setCornerRadius(4);
        view->layer()->setBorderWidth(line);
        view->setClipsToBounds(true);
        view->setFrame({{0, 0}, view->sizeThatFits({})});
        self->changed();
        return strong<UISegmentedControl>(self.get());
    }
    strong<UISegmentedControl> initWithFrame(CGRect frame) {
        auto made = self()->initWithItems(nullptr);
        made->setFrame(frame);
        return made;
    }

    bool isMomentary() { return ivars().momentary; }
    void setMomentary(bool momentary) { ivars().momentary = momentary; }
    NSUInteger numberOfSegments() { return ivars().segments.size(); }
    NSString* titleForSegment(NSUInteger index) { return at(index) ? at(index)->title.get() : nullptr; }
    void setTitle(NSString* title, NSUInteger index) {
        if (!at(index)) return;
        *at(index) = {strong<NSString>::adopt(title->send<"copy", NSString*>()), nullptr, at(index)->enabled};
        changed();
    }
    void insertSegment(NSString* title, NSUInteger index, bool) {
        auto& segments = ivars().segments;
        index = std::min(index, segments.size());
        Segment made;
        made.title = strong<NSString>::adopt(title->send<"copy", NSString*>());
        segments.insert(segments.begin() + static_cast<ptrdiff_t>(index), std::move(made));
        if (ivars().selectedSegmentIndex >= static_cast<NSInteger>(index)) ++ivars().selectedSegmentIndex;
        changed();
    }
    void removeSegment(NSUInteger index, bool) {
        auto& segments = ivars().segments;
        if (segments.empty()) return;
        index = std::min(index, segments.size() - 1);
        segments.erase(segments.begin() + static_cast<ptrdiff_t>(index));
        auto& selected = ivars().selectedSegmentIndex;
        if (selected == static_cast<NSInteger>(index))
            selected = -1;
        else if (selected > static_cast<NSInteger>(index))
            --selected;
        changed();
    }
    NSInteger selectedSegmentIndex() { return ivars().selectedSegmentIndex; }
    void setSelectedSegmentIndex(NSInteger index) {
        if (index >= static_cast<NSInteger>(ivars().segments.size())) return;
        ivars().selectedSegmentIndex = std::max<NSInteger>(index, -1);
        changed();
    }
    bool isEnabledForSegment(NSUInteger index) { return at(index) && at(index)->enabled; }
    void setSegmentEnabled(bool enabled, NSUInteger index) {
        if (at(index)) at(index)->enabled = enabled;
        changed();
    }

    CGSize sizeThatFits(CGSize) {
        CGFloat widest = 0;
        for (const Segment& segment : ivars().segments)
            widest = std::max(widest, segment.image ? segment.image->size().width
                                                    : label_of(segment)->sizeThatFits({}).width);
        return {(widest + 2 * side) * static_cast<CGFloat>(ivars().segments.size()), height};
    }
    CGSize intrinsicContentSize() { return self()->sizeThatFits({}); }
    void tintColorDidChange() {
        super<"tintColorDidChange">();
        changed();
    }

    // Made again for each state: there are few.
    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = this->self();
        for (UIView* part : ivars().parts) part->removeFromSuperview();
        ivars().parts.clear();
        UIColor* tint = self->tintColor();
        self->layer()->setBorderColor(tint->CGColor());
        for (size_t i = 0; i < ivars().segments.size(); ++i) {
            const CGRect frame = frame_of(i);
            const bool selected = static_cast<NSInteger>(i) == ivars().selectedSegmentIndex;
            const bool pressed = static_cast<NSInteger>(i) == ivars().touched;
            auto part = UIView::alloc()->initWithFrame(frame);
            part->setUserInteractionEnabled(false);
            if (selected)
                part->setBackgroundColor(tint);
            else if (pressed)
                part->setBackgroundColor(tint->colorWithAlphaComponent(0.15));
            add_content(part, ivars().segments[i], selected ? UIColor::whiteColor() : tint);
            if (i > 0) {
                auto divider = UIView::alloc()->initWithFrame({{0, 0}, {line, frame.size.height}});
                divider->setBackgroundColor(tint);
                part->addSubview(divider);
            }
            self->addSubview(part);
            ivars().parts.push_back(std::move(part));
        }
    }

    // ---- Touches --------------------------------------------------------------------------------

    bool beginTracking(UITouch* touch, UIEvent*) {
        ivars().touched = segment_at(touch);
        changed();
        return true;
    }
    bool continueTracking(UITouch* touch, UIEvent*) {
        ivars().touched = segment_at(touch);
        changed();
        return true;
    }
    void endTracking(UITouch* touch, UIEvent*) {
        const NSInteger touched = segment_at(touch);
        ivars().touched = -1;
        changed();
        if (touched < 0 || touched == ivars().selectedSegmentIndex) return;
        ivars().selectedSegmentIndex = touched;
        self()->sendActionsForControlEvents(UIControlEventValueChanged);
        if (ivars().momentary) ivars().selectedSegmentIndex = -1;
    }
    void cancelTracking(UIEvent*) {
        ivars().touched = -1;
        changed();
    }

  private:
    Segment* at(NSUInteger index) {
        return index < ivars().segments.size() ? &ivars().segments[index] : nullptr;
    }
    void changed() {
        self()->setNeedsLayout();
        self()->invalidateIntrinsicContentSize();
    }
    CGRect frame_of(size_t index) {
        const CGSize size = self()->bounds().size;
        const CGFloat width = size.width / static_cast<CGFloat>(ivars().segments.size());
        const bool leftwards =
            self()->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
        const size_t place = leftwards ? ivars().segments.size() - 1 - index : index;
        return {{width * static_cast<CGFloat>(place), 0}, {width, size.height}};
    }
    NSInteger segment_at(UITouch* touch) {
        const CGPoint point = touch->locationInView(self());
        if (!self()->pointInside(point, nullptr)) return -1;
        for (size_t i = 0; i < ivars().segments.size(); ++i) {
            const CGRect frame = frame_of(i);
            if (point.x >= frame.origin.x && point.x < frame.origin.x + frame.size.width)
                return ivars().segments[i].enabled ? static_cast<NSInteger>(i) : -1;
        }
        return -1;
    }
    static strong<UILabel> label_of(const Segment& segment) {
        auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
        label->setFont(UIFont::systemFontOfSize(text_size));
        label->setText(segment.title);
        label->setTextAlignment(NSTextAlignmentCenter);
        return label;
    }
    static void add_content(UIView* part, const Segment& segment, UIColor* color) {
        const CGSize size = part->bounds().size;
        strong<UIView> content;
        if (segment.image) {
            auto view = UIImageView::alloc()->initWithImage(
                segment.image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate));
            view->setTintColor(color);
            const CGSize its = view->bounds().size;
            view->setFrame({{(size.width - its.width) / 2, (size.height - its.height) / 2}, its});
            content = strong<UIView>(view.get());
            content->setAccessibilityLabel(segment.image->accessibilityLabel());
        } else {
            auto label = label_of(segment);
            label->setTextColor(color);
            label->setFrame({{0, 0}, size});
            content = strong<UIView>(label.get());
        }
        if (!segment.enabled) content->setAlpha(0.4);
        part->addSubview(content);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UISegmentedControl, UIControl, SegmentedControl,
           method<"initWithItems:", &SegmentedControl::initWithItems>,
           method<"initWithFrame:", &SegmentedControl::initWithFrame>,
           ivar<"_segments", &SegmentedControl::Ivars::segments>,
           ivar<"_selectedSegmentIndex", &SegmentedControl::Ivars::selectedSegmentIndex>,
           ivar<"_touchedSegment", &SegmentedControl::Ivars::touched>,
           ivar<"_momentary", &SegmentedControl::Ivars::momentary>,
           ivar<"_parts", &SegmentedControl::Ivars::parts>,
           method<"isMomentary", &SegmentedControl::isMomentary>,
           method<"setMomentary:", &SegmentedControl::setMomentary>,
           method<"numberOfSegments", &SegmentedControl::numberOfSegments>,
           method<"titleForSegmentAtIndex:", &SegmentedControl::titleForSegment>,
           method<"setTitle:forSegmentAtIndex:", &SegmentedControl::setTitle>,
           method<"insertSegmentWithTitle:atIndex:animated:", &SegmentedControl::insertSegment>,
           method<"removeSegmentAtIndex:animated:", &SegmentedControl::removeSegment>,
           method<"selectedSegmentIndex", &SegmentedControl::selectedSegmentIndex>,
           method<"setSelectedSegmentIndex:", &SegmentedControl::setSelectedSegmentIndex>,
           method<"isEnabledForSegmentAtIndex:", &SegmentedControl::isEnabledForSegment>,
           method<"setEnabled:forSegmentAtIndex:", &SegmentedControl::setSegmentEnabled>,
           method<"sizeThatFits:", &SegmentedControl::sizeThatFits>,
           method<"intrinsicContentSize", &SegmentedControl::intrinsicContentSize>,
           method<"tintColorDidChange", &SegmentedControl::tintColorDidChange>,
           method<"layoutSubviews", &SegmentedControl::layoutSubviews>,
           method<"beginTrackingWithTouch:withEvent:", &SegmentedControl::beginTracking>,
           method<"continueTrackingWithTouch:withEvent:", &SegmentedControl::continueTracking>,
           method<"endTrackingWithTouch:withEvent:", &SegmentedControl::endTracking>,
           method<"cancelTrackingWithEvent:", &SegmentedControl::cancelTracking>)
