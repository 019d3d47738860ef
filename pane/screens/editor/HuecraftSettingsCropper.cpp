#include "pane/screens/editor/HuecraftSettingsCropper.h"

#include <algorithm>

#include "objc/class.h"
#include "pane/drawing/photo.h"
#include "pane/texts.h"
#include "platform/gestures.h"

namespace {

using namespace objc::literals;
using namespace pane;
using objc::strong;

constexpr CGFloat margin = 16, row_height = 52, most_zoom = 5;

/// A label and the control that it names, in a row below the photo.
struct ControlRow {
    strong<UILabel> label;
    strong<UIControl> control;
};

struct Cropper : objc::Implements<Cropper, HuecraftSettingsCropper> {
    struct Ivars {
        strong<UIImage> photo, blurred_photo;
        /// Not owned: it is below this page on the stack.
        NSObject* receiver = nullptr;
        strong<UIView> window, shade;
        strong<UIImageView> picture;
        strong<UILabel> zoom_label, dim_label, blur_label;
        strong<UISlider> zoom_slider;
        strong<UISwitch> dim, blur;
        /// In the middle of the window, in parts of the photo; and how much larger it is than it has to be.
        CGPoint middle{};
        CGFloat zoom = 0;
    };

    void setPhoto(UIImage* photo) { ivars().photo = photo; }
    void setReceiver(NSObject* receiver) { ivars().receiver = receiver; }

    // --- The page ---

    void viewDidLoad() {
        super<"viewDidLoad">();
        auto& own = ivars();
        auto* self = this->self();
        own.middle = {0.5, 0.5};
        own.zoom = 1;
        self->setTitle(text<"Crop">());
        self->setEdgesForExtendedLayout(UIRectEdgeNone);
        UINavigationItem* item = self->navigationItem();
        item->setLeftBarButtonItem(UIBarButtonItem::alloc()->initWithTitle(
            text<"Cancel">(), UIBarButtonItemStylePlain, self, objc::selector<"cancel">()));
        item->setRightBarButtonItem(UIBarButtonItem::alloc()->initWithTitle(
            text<"Use Photo">(), UIBarButtonItemStyleDone, self, objc::selector<"usePhoto">()));
        UIView* page = self->view();
        page->setBackgroundColor(UIColor::whiteColor());
        make_window(page);
        own.zoom_slider = UISlider::make<"initWithFrame:">(CGRect{});
        own.zoom_slider->setMinimumValue(1);
        own.zoom_slider->setMaximumValue(most_zoom);
        own.zoom_slider->addTarget(self, objc::selector<"zoomed:">(), UIControlEventValueChanged);
        own.dim = UISwitch::make<"initWithFrame:">(CGRect{});
        own.blur = UISwitch::make<"initWithFrame:">(CGRect{});
        for (UISwitch* each : {own.dim.get(), own.blur.get()})
            each->addTarget(self, objc::selector<"treated:">(), UIControlEventValueChanged);
        own.zoom_label = make_label(text<"Enlarge">(), own.zoom_slider);
        own.dim_label = make_label(text<"Dim">(), own.dim);
        own.blur_label = make_label(text<"Blur">(), own.blur);
        for (UIView* each :
             {static_cast<UIView*>(own.zoom_slider.get()), static_cast<UIView*>(own.dim.get()),
              static_cast<UIView*>(own.blur.get()), static_cast<UIView*>(own.zoom_label.get()),
              static_cast<UIView*>(own.dim_label.get()), static_cast<UIView*>(own.blur_label.get())})
            page->addSubview(each);
    }

    void make_window(UIView* page) {
        auto& own = ivars();
        own.window = UIView::alloc()->initWithFrame({});
        own.window->setClipsToBounds(true);
        own.window->setMultipleTouchEnabled(true);
        own.window->setIsAccessibilityElement(true);
        own.window->setAccessibilityTraits(UIAccessibilityTraitImage);
        own.window->setAccessibilityLabel(text<"What the keyboard shows of the photo">());
        own.window->setAccessibilityHint(text<"Drag to move the photo, pinch to enlarge it.">());
        own.picture = UIImageView::make<"initWithFrame:">(CGRect{});
        own.picture->setImage(own.photo);
        own.shade = UIView::alloc()->initWithFrame({});
        own.shade->setBackgroundColor(UIColor::colorWithWhite(0, dimming));
        own.shade->setHidden(true);
        own.window->addSubview(own.picture);
        own.window->addSubview(own.shade);
        own.window->addGestureRecognizer(
            UIPanGestureRecognizer::make<"initWithTarget:action:">(self(), objc::selector<"dragged:">()));
        own.window->addGestureRecognizer(
            UIPinchGestureRecognizer::make<"initWithTarget:action:">(self(), objc::selector<"pinched:">()));
        page->addSubview(own.window);
    }

    static strong<UILabel> make_label(NSString* words, UIControl* names) {
        auto label = UILabel::make<"initWithFrame:">(CGRect{});
        label->setText(words);
        label->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleBody));
        label->setIsAccessibilityElement(false);
        names->setAccessibilityLabel(words);
        return label;
    }

    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        auto& own = ivars();
        UIView* page = self()->view();
        const CGSize all = page->bounds().size;
        const UIEdgeInsets safe = page->safeAreaInsets();
        const CGFloat left = safe.left + margin, right = all.width - safe.right - margin;
        const CGSize pixels = keyboard_pixels();
        const CGFloat room = std::max(60.0, all.height - safe.bottom - 3 * row_height - 2 * margin);
        const CGFloat tall = std::min(room, (right - left) * pixels.height / pixels.width);
        const CGFloat wide = tall * pixels.width / pixels.height;
        own.window->setFrame({{left + (right - left - wide) / 2, margin}, {wide, tall}});
        own.shade->setFrame(own.window->bounds());
        const bool mirrored =
            page->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
        const ControlRow rows[] = {{own.zoom_label, strong<UIControl>(own.zoom_slider.get())},
                                   {own.dim_label, strong<UIControl>(own.dim.get())},
                                   {own.blur_label, strong<UIControl>(own.blur.get())}};
        CGFloat top = margin + tall + margin / 2;
        for (const auto& [label, control] : rows) {
            const bool is_slider = static_cast<UIView*>(control.get()) == own.zoom_slider.get();
            const CGSize its = is_slider ? CGSize{(right - left) / 2, 31} : CGSize{51, 31};
            auto placed = [&](CGFloat from, CGFloat width, CGFloat y, CGFloat height) {
                return CGRect{{mirrored ? left + right - from - width : from, y}, {width, height}};
            };
            control->setFrame(
                placed(right - its.width, its.width, top + (row_height - its.height) / 2, its.height));
            label->setFrame(placed(left, right - left - its.width - margin, top, row_height));
            label->setTextAlignment(mirrored ? NSTextAlignmentRight : NSTextAlignmentLeft);
            top += row_height;
        }
        place_photo();
    }

    void didReceiveMemoryWarning() {
        super<"didReceiveMemoryWarning">();
        if (ivars().blur && !ivars().blur->isOn()) ivars().blurred_photo = nullptr;
    }

    // --- The photo in its window ---

    /// Points of the window for a point of the photo.
    CGFloat scale() {
        const CGSize window = ivars().window->bounds().size, photo = ivars().photo->size();
        return std::max(window.width / photo.width, window.height / photo.height) * ivars().zoom;
    }

    /// No edge of the photo comes into the window.
    void place_photo() {
        auto& own = ivars();
        const CGSize window = own.window->bounds().size, photo = own.photo->size();
        const CGSize shown{photo.width * scale(), photo.height * scale()};
        if (shown.width <= 0 || shown.height <= 0) return;
        const CGFloat across = std::min(0.5, window.width / shown.width / 2);
        const CGFloat down = std::min(0.5, window.height / shown.height / 2);
        own.middle = {std::clamp(own.middle.x, across, 1 - across), std::clamp(own.middle.y, down, 1 - down)};
        own.picture->setFrame(
            {{window.width / 2 - own.middle.x * shown.width, window.height / 2 - own.middle.y * shown.height},
             shown});
    }

    void dragged(UIPanGestureRecognizer* drag) {
        auto& own = ivars();
        const CGPoint moved = drag->translationInView(own.window);
        drag->setTranslation({0, 0}, own.window);
        const CGSize photo = own.photo->size();
        own.middle.x -= moved.x / (photo.width * scale());
        own.middle.y -= moved.y / (photo.height * scale());
        place_photo();
    }

    void pinched(UIPinchGestureRecognizer* pinch) {
        set_zoom(ivars().zoom * pinch->scale());
        pinch->setScale(1);
        ivars().zoom_slider->setValue(static_cast<float>(ivars().zoom));
    }

    void zoomed(UISlider* slider) { set_zoom(static_cast<CGFloat>(slider->value())); }

    void set_zoom(CGFloat zoom) {
        ivars().zoom = std::clamp(zoom, 1.0, most_zoom);
        place_photo();
    }

    // --- What becomes of it ---

    UIImage* treated_photo() {
        auto& own = ivars();
        if (!own.blur->isOn()) return own.photo;
        if (!own.blurred_photo) own.blurred_photo = blurred(own.photo);
        return own.blurred_photo;
    }

    void treated(UISwitch*) {
        ivars().shade->setHidden(!ivars().dim->isOn());
        ivars().picture->setImage(treated_photo());
    }

    void usePhoto() {
        auto& own = ivars();
        const CGSize window = own.window->bounds().size, photo = own.photo->size();
        const CGSize part{window.width / scale(), window.height / scale()};
        UIImage* image = cropped(
            treated_photo(),
            {{own.middle.x * photo.width - part.width / 2, own.middle.y * photo.height - part.height / 2},
             part},
            keyboard_pixels());
        if (own.dim->isOn()) image = dimmed(image);
        if (own.receiver) own.receiver->send<"photoCropped:">(image);
        self()->navigationController()->popViewController(true);
    }

    void cancel() { self()->navigationController()->popViewController(true); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HuecraftSettingsCropper, UIViewController, Cropper,
           ivar<"_photo", &Cropper::Ivars::photo>, ivar<"_blurredPhoto", &Cropper::Ivars::blurred_photo>,
           ivar<"_receiver", &Cropper::Ivars::receiver>, ivar<"_photoWindow", &Cropper::Ivars::window>,
           ivar<"_shade", &Cropper::Ivars::shade>, ivar<"_picture", &Cropper::Ivars::picture>,
           ivar<"_zoomLabel", &Cropper::Ivars::zoom_label>, ivar<"_dimLabel", &Cropper::Ivars::dim_label>,
           ivar<"_blurLabel", &Cropper::Ivars::blur_label>,
           ivar<"_zoomSlider", &Cropper::Ivars::zoom_slider>, ivar<"_dim", &Cropper::Ivars::dim>,
           ivar<"_blur", &Cropper::Ivars::blur>, ivar<"_middle", &Cropper::Ivars::middle>,
           ivar<"_zoom", &Cropper::Ivars::zoom>,
           method<"setPhoto:", &Cropper::setPhoto>,
           method<"setReceiver:", &Cropper::setReceiver>,
           method<"viewDidLoad", &Cropper::viewDidLoad>,
           method<"viewDidLayoutSubviews", &Cropper::viewDidLayoutSubviews>,
           method<"didReceiveMemoryWarning", &Cropper::didReceiveMemoryWarning>,
           method<"dragged:", &Cropper::dragged>,
           method<"pinched:", &Cropper::pinched>,
           method<"zoomed:", &Cropper::zoomed>,
           method<"treated:", &Cropper::treated>,
           method<"usePhoto", &Cropper::usePhoto>,
           method<"cancel", &Cropper::cancel>)
