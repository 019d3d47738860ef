#include "settings/HCColorPickerController.h"

#include "model/HCCITool.h"
#include "model/property_list_file.h"
#include "objc/class.h"
#include "settings/clipboard_icons.h"
#include "settings/panel_motion.h"
#include "settings/picker_views.h"
#include "settings/placement.h"
#include "settings/recent_colours.h"

namespace {

using namespace objc::literals;
using objc::strong;
using settings::activate;
using settings::fix_size;

/// The longest text is "#RRGGBBAA".
constexpr NSUInteger too_long = 10;

struct Picker : objc::Implements<Picker, HCColorPickerController> {
    struct Ivars {
        objc::weak<HCColorPickerDelegate> delegate;
        bool lightUI;
        strong<HCModalView> modal;
        CGRect mainRect;
        double mainCornerRadius;
        strong<UIScrollView> scrollView;
        strong<UIStackView> scrollViewStack;
        strong<UIImageView> previewColor;
        strong<UITextField> hexTextField;
        strong<UILabel> canEditMessage;
        strong<CALayer> canEditMessageBorder;
        strong<UIView> duplicatePasteView;
        strong<UIButton> duplicateButton, pasteButton;
        strong<HCColorSlider> redSlider, greenSlider, blueSlider, alphaSlider;
        strong<UIImage> duplicateButtonImage, pasteButtonImage;
        strong<UICollectionView> recentCollectionView;
        /// What the file holds, immutable and of whatever type; or the defaults, which are mutable.
        strong<NSMutableDictionary> recentColorDictionary;
        strong<NSMutableArray> recentColors;
    };

    strong<HCColorPickerController> init() {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().lightUI = true;
        return self;
    }

    // ---- The controller's life ------------------------------------------------------------------

    void viewDidLoad() {
        super<"viewDidLoad">();
        self()->configColorPicker();
        self()->setupContentView();
        self()->setupContentSubviews();
        self()->addViewsInOrder();
        self()->setupConstraints();
        self()->applyColor();
        self()->updateToColor(HCCITool::colorFromHexString("#000000"_ns));
        self()->grabRecentColorData();
    }

    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        ivars().scrollView->setContentSize(ivars().scrollViewStack->frame().size);
    }

    void viewDidAppear(bool animated) {
        super<"viewDidAppear:">(animated);
        settings::spring_up(ivars().modal, view()->frame().size.height);
    }

    void didReceiveMemoryWarning() { super<"didReceiveMemoryWarning">(); }

    // ---- Building -------------------------------------------------------------------------------

    void configColorPicker() {
        UIApplication::sharedApplication()->setStatusBarOrientation(UIInterfaceOrientationPortrait);
        view()->setBackgroundColor(UIColor::clearColor());
        constexpr CGFloat margin = 5, height = 445;
        const auto [origin, size] = view()->frame();
        const CGFloat middle = origin.y + size.height / 2;
        ivars().mainRect = {{margin, middle - height / 2}, {size.width - 2 * margin, height}};
        ivars().mainCornerRadius = 40;
    }

    void setupContentView() {
        auto& own = ivars();
        auto* listener = reinterpret_cast<HCModalDelegate*>(this);
        auto options = HCModalOptions::alloc()->initWithModalFrame(own.mainRect, own.mainCornerRadius,
                                                                   listener, own.lightUI, "SELECT"_ns);
        own.modal = HCModalView::alloc()->initWithFrame(view()->frame(), options);
    }

    void setupContentSubviews() {
        auto& own = ivars();
        own.recentCollectionView = settings::make_recent_strip(own.modal->topView(), this);
        own.modal->topView()->setBackgroundColor(UIColor::clearColor());
        own.scrollView = settings::make_scroll_view(own.modal->contentView(), own.mainCornerRadius);
        own.scrollViewStack = settings::make_column();
        own.previewColor = settings::make_preview();
        own.hexTextField = settings::make_hex_field(this);

        own.canEditMessage = settings::make_hint();
        own.canEditMessageBorder = settings::make_hint_border(own.canEditMessage);
        own.hexTextField->setLeftView(own.canEditMessage);
        own.hexTextField->setLeftViewMode(UITextFieldViewModeAlways);

        own.duplicatePasteView = settings::make_clipboard_holder();
        own.duplicateButtonImage = HCCITool::newScale({20, 20}, self()->copyImage());
        own.pasteButtonImage = HCCITool::newScale({20, 20}, self()->pasteImage());
        own.duplicateButton = settings::make_clipboard_button({{0, 0}, {30, 40}}, own.duplicateButtonImage,
                                                              this, action<"copyColor">());
        own.pasteButton = settings::make_clipboard_button({{30, 0}, {30, 40}}, own.pasteButtonImage, this,
                                                          action<"pasteColor">());
        own.duplicatePasteView->addSubview(own.duplicateButton);
        own.duplicatePasteView->addSubview(own.pasteButton);
        own.hexTextField->setRightView(own.duplicatePasteView);
        own.hexTextField->setRightViewMode(UITextFieldViewModeAlways);

        own.redSlider = make_slider(red_channel);
        own.greenSlider = make_slider(green_channel);
        own.blueSlider = make_slider(blue_channel);
        own.alphaSlider = make_slider(alpha_channel);
    }

    void addViewsInOrder() {
        auto& own = ivars();
        view()->insertSubview(own.modal, 0);
        own.modal->topView()->addSubview(own.recentCollectionView);
        own.modal->contentView()->addSubview(own.scrollView);
        own.scrollView->addSubview(own.scrollViewStack);
        for (UIView* row : {static_cast<UIView*>(own.previewColor), static_cast<UIView*>(own.hexTextField),
                            static_cast<UIView*>(own.redSlider), static_cast<UIView*>(own.greenSlider),
                            static_cast<UIView*>(own.blueSlider), static_cast<UIView*>(own.alphaSlider)})
            own.scrollViewStack->addArrangedSubview(row);
    }

    void setupConstraints() {
        auto& own = ivars();
        UIView *recent = own.recentCollectionView, *top = own.modal->topView();
        UIView *stack = own.scrollViewStack, *scroll = own.scrollView;
        recent->setTranslatesAutoresizingMaskIntoConstraints(false);
        stack->setTranslatesAutoresizingMaskIntoConstraints(false);

        activate(recent->topAnchor()->constraintEqualToAnchor(top->topAnchor()));
        activate(recent->widthAnchor()->constraintEqualToConstant(215));
        activate(recent->rightAnchor()->constraintEqualToAnchor(top->rightAnchor()));
        activate(recent->centerYAnchor()->constraintEqualToAnchor(top->centerYAnchor()));

        activate(stack->topAnchor()->constraintEqualToAnchor(scroll->topAnchor()));
        activate(stack->leadingAnchor()->constraintEqualToAnchor(scroll->leadingAnchor()));
        activate(stack->trailingAnchor()->constraintEqualToAnchor(scroll->trailingAnchor()));
        activate(stack->bottomAnchor()->constraintEqualToAnchor(scroll->bottomAnchor()));
        activate(stack->centerXAnchor()->constraintEqualToAnchor(scroll->centerXAnchor()));

        fix_size(own.previewColor, {120, 55});
        fix_size(own.hexTextField, {250, 40});
        for (UIView* slider : sliders()) fix_size(slider, {slider_width(), slider_height});
    }

    void applyColor() {
        auto& own = ivars();
        const bool light = own.modal->isEclipseEnabled() || own.lightUI;
        UIColor* front = light ? own.modal->secondaryColor() : own.modal->primaryColor();
        UIColor* text = light ? own.modal->secondaryTextColor() : own.modal->primaryTextColor();

        for (UIView* framed :
             {static_cast<UIView*>(own.scrollView), static_cast<UIView*>(own.recentCollectionView),
              static_cast<UIView*>(own.previewColor)})
            framed->layer()->setBorderColor(front->CGColor());
        own.hexTextField->setBackgroundColor(front);
        own.hexTextField->setTextColor(text);
        UITextField::appearance()->setTintColor(text);
        own.canEditMessage->setTextColor(text);
        own.canEditMessageBorder->setBorderColor(text->CGColor());

        paint(own.duplicateButton, own.duplicateButtonImage, own.hexTextField->textColor());
        paint(own.pasteButton, own.pasteButtonImage, own.hexTextField->textColor());
    }

    // ---- The colour -----------------------------------------------------------------------------

    void setInitialColor(UIColor* colour) {
        self()->updateToColor(colour);
        self()->grabRecentColorData();
    }

    void updateToColor(UIColor* colour) {
        for (HCColorSlider* slider : sliders()) slider->minMaxOfColor(colour);
        ivars().hexTextField->setText(HCCITool::hexStringFromColor(colour));
        ivars().previewColor->setImage(HCCITool::imageFromColor(colour, {60, 60}));
    }

    void sliderValueChanged() { self()->updateToColor(slider_colour()); }

    void shakeWrong() { settings::shake(ivars().modal); }

    // ---- The hex text ---------------------------------------------------------------------------

    /// Text goes to the end, wherever it was typed; the field itself deletes one character and no more.
    bool textFieldShouldChange(UITextField* field, NSRange range, NSString* replacement) {
        NSString* text = field->text();
        if (text->length() + replacement->length() < too_long &&
            HCCITool::isValidHexColorLetter(replacement)) {
            const bool needs_hash = text->length() == 0 && !replacement->hasPrefix("#"_ns);
            NSString* head = needs_hash ? "#"_ns : text;
            field->setText(head->stringByAppendingString(replacement->uppercaseString()));
        } else {
            self()->shakeWrong();
        }
        return range.length == 1 && replacement->length() == 0;
    }

    bool textFieldShouldReturn(UITextField* field) {
        if (HCCITool::isValidHexColorString(field->text()))
            self()->updateToColor(HCCITool::colorFromHexString(ivars().hexTextField->text()));
        else
            self()->shakeWrong();
        field->resignFirstResponder();
        return true;
    }

    void copyColor() {
        NSString* text = ivars().hexTextField->text();
        if (HCCITool::isValidHexColorString(text))
            UIPasteboard::generalPasteboard()->setString(text);
        else
            self()->shakeWrong();
    }

    void pasteColor() {
        NSString* text = UIPasteboard::generalPasteboard()->string();
        if (HCCITool::isValidHexColorString(text))
            self()->updateToColor(HCCITool::colorFromHexString(text));
        else
            self()->shakeWrong();
    }

    UIImage* copyImage() { return settings::copy_icon(); }
    UIImage* pasteImage() { return settings::paste_icon(); }

    // ---- The panel's buttons --------------------------------------------------------------------

    void selectButtonPressed() {
        HCColorPickerDelegate* delegate = self()->delegate();
        if (reinterpret_cast<NSObject*>(delegate)->respondsToSelector(
                objc::selector<"colorPickerReturnedWithColor:andHexString:">())) {
            UIColor* colour = slider_colour();
            settings::record_colour(ivars().hexTextField->text(), ivars().recentColors,
                                    ivars().recentColorDictionary);
            delegate->colorPickerReturned(colour, ivars().hexTextField->text());
        }
        self()->closeButtonPressed();
    }

    void closeButtonPressed() { dismissViewController(true, nullptr); }

    // ---- The recent colours ---------------------------------------------------------------------

    /// What came from the file stays as it is: it is immutable, and nothing of its content is checked.
    void grabRecentColorData() {
        auto& own = ivars();
        if (NSData* bytes = settings::recent_colours_file())
            own.recentColorDictionary = static_cast<NSMutableDictionary*>(read_property_list(bytes));
        if (auto* dictionary = as<NSDictionary>(own.recentColorDictionary)) {
            own.recentColors = static_cast<NSMutableArray*>(dictionary->objectForKey("Colors"_ns));
        } else {
            own.recentColors = settings::default_recent_colours();
            own.recentColorDictionary = NSMutableDictionary::alloc()->initWithCapacity(1);
            own.recentColorDictionary->setObject(own.recentColors, "Colors"_ns);
        }
        own.recentCollectionView->reloadData();
    }

    NSInteger numberOfItems(UICollectionView*, NSInteger) { return settings::recent_colour_count; }

    UICollectionViewCell* cellForItem(UICollectionView* view, NSIndexPath* path) {
        UICollectionViewCell* cell = view->dequeueReusableCell("RecentColorCell"_ns, path);
        if (ivars().recentColors) cell->setBackgroundColor(recent_colour(path));
        cell->layer()->setCornerRadius(swatch_size / 2);
        return cell;
    }

    CGSize sizeForItem(UICollectionView*, UICollectionViewLayout*, NSIndexPath*) {
        return {swatch_size, swatch_size};
    }

    UIEdgeInsets insetForSection(UICollectionView*, UICollectionViewLayout*, NSInteger) {
        const CGFloat room = ivars().modal->topView()->frame().size.height - swatch_size;
        const auto vertical = static_cast<CGFloat>(static_cast<NSInteger>(room * 0.5));
        return {.top = vertical, .left = 5.5, .bottom = vertical, .right = 5.5};
    }

    void didSelectItem(UICollectionView*, NSIndexPath* path) { self()->updateToColor(recent_colour(path)); }

  private:
    static constexpr CGFloat swatch_size = 30;
    static constexpr CGFloat slider_height = 20;

    CGFloat slider_width() { return ivars().mainRect.size.width - 60; }

    strong<HCColorSlider> make_slider(NSUInteger channel) {
        auto slider =
            HCColorSlider::alloc()->initWithFrame({{0, 0}, {slider_width(), slider_height}}, channel);
        slider->minMaxOfColor(HCCITool::colorFromHexString("595457"_ns));
        slider->addTarget(this, action<"sliderValueChanged">(), UIControlEventValueChanged);
        return slider;
    }

    /// Red, green, blue, alpha.
    struct Sliders {
        HCColorSlider* of_channel[4];
        HCColorSlider* const* begin() const { return of_channel; }
        HCColorSlider* const* end() const { return of_channel + 4; }
    };
    Sliders sliders() {
        auto& own = ivars();
        return {{own.redSlider, own.greenSlider, own.blueSlider, own.alphaSlider}};
    }

    UIColor* slider_colour() {
        auto& own = ivars();
        return UIColor::colorWithRGB(own.redSlider->getValue(), own.greenSlider->getValue(),
                                     own.blueSlider->getValue(), own.alphaSlider->getValue());
    }

    static void paint(UIButton* button, strong<UIImage>& icon, UIColor* colour) {
        icon = HCCITool::newColor(colour, icon);
        button->setImage(icon, UIControlStateNormal);
        button->setTintColor(colour);
    }

    UIColor* recent_colour(NSIndexPath* path) {
        const auto index = static_cast<NSUInteger>(path->item());
        return HCCITool::colorFromHexString(
            static_cast<NSString*>(ivars().recentColors->objectAtIndexedSubscript(index)));
    }
};

}  // namespace

using namespace objc::definition;
using Own = Picker::Ivars;

OBJC_CLASS(HCColorPickerController, UIViewController, Picker,
           // Properties
           property<"delegate", &Own::delegate>,
           property<"lightUI", &Own::lightUI>,
           property<"modal", &Own::modal>,
           property<"mainRect", &Own::mainRect>,
           property<"mainCornerRadius", &Own::mainCornerRadius>,
           property<"scrollView", &Own::scrollView>,
           property<"scrollViewStack", &Own::scrollViewStack>,
           property<"previewColor", &Own::previewColor>,
           property<"hexTextField", &Own::hexTextField>,
           property<"canEditMessage", &Own::canEditMessage>,
           property<"canEditMessageBorder", &Own::canEditMessageBorder>,
           property<"duplicatePasteView", &Own::duplicatePasteView>,
           property<"duplicateButton", &Own::duplicateButton>,
           property<"pasteButton", &Own::pasteButton>,
           property<"redSlider", &Own::redSlider>,
           property<"greenSlider", &Own::greenSlider>,
           property<"blueSlider", &Own::blueSlider>,
           property<"alphaSlider", &Own::alphaSlider>,
           property<"duplicateButtonImage", &Own::duplicateButtonImage>,
           property<"pasteButtonImage", &Own::pasteButtonImage>,
           property<"recentCollectionView", &Own::recentCollectionView>,
           property<"recentColorDictionary", &Own::recentColorDictionary>,
           property<"recentColors", &Own::recentColors>,

           // Protocols
           declares<"HCColorPickerDelegate",
                    optional<"colorPickerReturnedWithColor:andHexString:",
                             &HCColorPickerDelegate::colorPickerReturned>>,
           conforms<"HCModalDelegate",
                    required<"closeButtonPressed", &HCModalDelegate::closeButtonPressed>,
                    required<"selectButtonPressed", &HCModalDelegate::selectButtonPressed>>,
           conforms<"UICollectionViewDataSource">,
           conforms<"UICollectionViewDelegate">,
           conforms<"UICollectionViewDelegateFlowLayout">,
           conforms<"UITextFieldDelegate">,

           // The controller's life
           method<"init", &Picker::init>,
           method<"viewDidLoad", &Picker::viewDidLoad>,
           method<"viewDidLayoutSubviews", &Picker::viewDidLayoutSubviews>,
           method<"viewDidAppear:", &Picker::viewDidAppear>,
           method<"didReceiveMemoryWarning", &Picker::didReceiveMemoryWarning>,

           // Building
           method<"configColorPicker", &Picker::configColorPicker>,
           method<"setupContentView", &Picker::setupContentView>,
           method<"setupContentSubviews", &Picker::setupContentSubviews>,
           method<"addViewsInOrder", &Picker::addViewsInOrder>,
           method<"setupConstraints", &Picker::setupConstraints>,
           method<"applyColor", &Picker::applyColor>,

           // The colour
           method<"setInitialColor:", &Picker::setInitialColor>,
           method<"updateToColor:", &Picker::updateToColor>,
           method<"sliderValueChanged", &Picker::sliderValueChanged>,
           method<"shakeWrong", &Picker::shakeWrong>,

           // The hex text
           method<"textField:shouldChangeCharactersInRange:replacementString:", &Picker::textFieldShouldChange>,
           method<"textFieldShouldReturn:", &Picker::textFieldShouldReturn>,
           method<"copyColor", &Picker::copyColor>,
           method<"pasteColor", &Picker::pasteColor>,
           method<"copyImage", &Picker::copyImage>,
           method<"pasteImage", &Picker::pasteImage>,

           // The panel's buttons
           method<"selectButtonPressed", &Picker::selectButtonPressed>,
           method<"closeButtonPressed", &Picker::closeButtonPressed>,

           // The recent colours
           method<"grabRecentColorData", &Picker::grabRecentColorData>,
           method<"collectionView:numberOfItemsInSection:", &Picker::numberOfItems>,
           method<"collectionView:cellForItemAtIndexPath:", &Picker::cellForItem>,
           method<"collectionView:layout:sizeForItemAtIndexPath:", &Picker::sizeForItem>,
           method<"collectionView:layout:insetForSectionAtIndex:", &Picker::insetForSection>,
           method<"collectionView:didSelectItemAtIndexPath:", &Picker::didSelectItem>)
