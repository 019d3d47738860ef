// Alerts and action sheets: a card with a title, texts to fill in and choices. It goes before its choice is
// performed.
#include <algorithm>
#include <cmath>
#include <vector>

#include "foundation/raise.h"
#include "objc/string.h"
#include "phone/screen_kind.h"
#include "runtime/block.h"
#include "uikit/alerts/UIAlertAction.h"
#include "uikit/controllers/UIViewController.h"

namespace {

using objc::strong;
using namespace objc::literals;

constexpr CGFloat alert_width = 270, button_height = 44, sheet_button_height = 57, edge = 10, radius = 13;
constexpr CGFloat field_height = 30, text_side = 16;

struct AlertController : objc::Implements<AlertController, UIAlertController> {
    struct Ivars {
        strong<NSString> message;
        UIAlertControllerStyle preferredStyle = UIAlertControllerStyleActionSheet;
        std::vector<strong<UIAlertAction>> actions;
        strong<UIAlertAction> preferredAction;
        std::vector<strong<UITextField>> fields;
        /// The cards, and the buttons in the order of the actions.
        strong<UIView> card, cancelCard;
        std::vector<strong<UIButton>> buttons;
        bool is_built = false;
    };

    static UIAlertController* alertController(Class self, NSString* title, NSString* message,
                                              UIAlertControllerStyle style) {
        auto made = objc::make<"init", UIAlertController>(self);
        made->setTitle(title);
        made->setMessage(message);
        static_cast<AlertController*>(made.get())->ivars().preferredStyle = style;
        made->setModalPresentationStyle(UIModalPresentationOverFullScreen);
        return std::move(made).autoreleased();
    }

    NSString* message() { return ivars().message; }
    void setMessage(NSString* message) {
        ivars().message = strong<NSString>::adopt(message->send<"copy", NSString*>());
        actions_changed();
    }
    void setTitle(NSString* title) {
        super<"setTitle:">(title);
        actions_changed();
    }
    UIAlertControllerStyle preferredStyle() { return ivars().preferredStyle; }

    void addAction(UIAlertAction* action) {
        if (action->style() == UIAlertActionStyleCancel && cancel_action())
            sim::raise("NSInternalInconsistencyException"_ns,
                       "UIAlertController can only have one action with a style of UIAlertActionStyleCancel");
        static_cast<sim::AlertAction*>(action)->ivars().alert = self();
        ivars().actions.emplace_back(action);
        actions_changed();
    }
    NSArray* actions() { return list(ivars().actions); }
    UIAlertAction* preferredAction() { return ivars().preferredAction; }
    void setPreferredAction(UIAlertAction* action) {
        ivars().preferredAction = action;
        actions_changed();
    }
    void addTextField(id handler) {
        if (!is_alert())
            sim::raise("NSInternalInconsistencyException"_ns,
                       "Text fields can only be added to an alert controller of style "
                       "UIAlertControllerStyleAlert");
        auto field = UITextField::make<"initWithFrame:">(CGRect{});
        field->setFont(UIFont::systemFontOfSize(13));
        field->setBackgroundColor(UIColor::whiteColor());
        field->layer()->setBorderWidth(0.5);
        field->layer()->setBorderColor(UIColor::colorWithWhite(0.75, 1)->CGColor());
        ivars().fields.push_back(field);
        sim::call_block(handler, static_cast<id>(field.get()));
        actions_changed();
    }
    NSArray* textFields() { return ivars().fields.empty() ? nullptr : list(ivars().fields); }

    // ---- Its view -------------------------------------------------------------------------------

    void viewDidLoad() {
        super<"viewDidLoad">();
        if (!is_popover()) self()->view()->setBackgroundColor(UIColor::colorWithWhite(0, 0.4));
    }
    void viewWillAppear(bool animated) {
        super<"viewWillAppear:">(animated);
        if (is_popover()) fit_popover();
    }
    void viewDidAppear(bool animated) {
        super<"viewDidAppear:">(animated);
        if (!ivars().fields.empty()) ivars().fields.front()->becomeFirstResponder();
    }
    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        if (!ivars().is_built) build();
    }

    void pressed(UIButton* button) {
        const auto& buttons = ivars().buttons;
        const auto found =
            std::find_if(buttons.begin(), buttons.end(), [&](const auto& each) { return each == button; });
        if (found == buttons.end()) return;
        const strong<UIAlertController> kept = self();
        const strong<UIAlertAction> action = ivars().actions[static_cast<size_t>(found - buttons.begin())];
        self()->view()->endEditing(true);
        self()->dismissViewController(true, nullptr);
        static_cast<sim::AlertAction*>(action.get())->perform();
    }

    void actions_changed() {
        ivars().is_built = false;
        if (self()->isViewLoaded()) self()->view()->setNeedsLayout();
    }

  private:
    bool is_alert() { return ivars().preferredStyle == UIAlertControllerStyleAlert; }
    bool is_popover() { return !is_alert() && sim::is_pad(); }

    template <class T>
    static NSArray* list(const std::vector<strong<T>>& objects) {
        NSMutableArray* array = NSMutableArray::arrayWithCapacity(objects.size());
        for (T* object : objects) array->addObject(object);
        return NSArray::arrayWithArray(array);
    }
    UIAlertAction* cancel_action() {
        for (UIAlertAction* action : ivars().actions)
            if (action->style() == UIAlertActionStyleCancel) return action;
        return nullptr;
    }

    static strong<UIView> make_card() {
        auto card = UIView::alloc()->initWithFrame({});
        card->setBackgroundColor(UIColor::colorWithWhite(0.97, 1));
        card->layer()->setCornerRadius(radius);
        card->setClipsToBounds(true);
        return card;
    }
    static strong<UIView> line(CGRect frame) {
        auto made = UIView::alloc()->initWithFrame(frame);
        made->setBackgroundColor(UIColor::colorWithRGB(0.78, 0.78, 0.8, 1));
        return made;
    }

    /// A text in the middle of the card; answers how high it is.
    CGFloat add_text(NSString* text, UIFont* font, UIColor* color, CGFloat y, CGFloat width) {
        if (!text->length()) return 0;
        auto label = UILabel::make<"initWithFrame:">(CGRect{});
        label->setText(text);
        label->setFont(font);
        label->setTextColor(color);
        label->setNumberOfLines(0);
        label->setTextAlignment(NSTextAlignmentCenter);
        const CGFloat height = label->sizeThatFits({width - 2 * text_side, 0}).height;
        label->setFrame({{text_side, y}, {width - 2 * text_side, height}});
        ivars().card->addSubview(label);
        return height;
    }

    strong<UIButton> make_button(UIAlertAction* action, CGRect frame) {
        const bool is_bold = ivars().preferredAction ? ivars().preferredAction == action
                                                     : action->style() == UIAlertActionStyleCancel;
        const strong<UIButton> button = UIButton::buttonWithType(UIButtonTypeSystem);
        button->setFrame(frame);
        button->titleLabel()->setFont(UIFont::systemFontOfSize(
            is_alert() ? 17 : 20, is_bold ? UIFontWeightSemibold : UIFontWeightRegular));
        button->setTitle(action->title(), UIControlStateNormal);
        if (action->style() == UIAlertActionStyleDestructive)
            button->setTitleColor(UIColor::colorWithRGB(1, 0.23, 0.19, 1), UIControlStateNormal);
        button->setEnabled(action->isEnabled());
        button->addTarget(self(), objc::selector<"_pressed:">(), UIControlEventTouchUpInside);
        return button;
    }

    /// Title, message and fields; answers where the buttons begin.
    CGFloat build_head(CGFloat width) {
        auto* self = this->self();
        const bool has_text = self->title()->length() || ivars().message->length();
        const CGFloat room = is_alert() ? 20 : 14;
        if (!has_text && ivars().fields.empty()) return 0;
        CGFloat y = room;
        UIColor* grey = UIColor::colorWithRGB(0.56, 0.56, 0.56, 1);
        UIColor* ink = is_alert() ? UIColor::blackColor() : grey;
        UIFont* title = is_alert() ? UIFont::systemFontOfSize(17, UIFontWeightSemibold)
                                   : UIFont::systemFontOfSize(13, UIFontWeightSemibold);
        y += add_text(self->title(), title, ink, y, width);
        if (self->title()->length() && ivars().message->length()) y += 3;
        y += add_text(ivars().message, UIFont::systemFontOfSize(13), ink, y, width);
        if (!ivars().fields.empty() && has_text) y += 14;
        for (UITextField* field : ivars().fields) {
            field->setFrame({{text_side, y}, {width - 2 * text_side, field_height}});
            ivars().card->addSubview(field);
            y += field_height - 0.5;
        }
        return y + room;
    }

    // Two buttons of an alert stand side by side where their titles fit; the one that cancels is first. In
    // other places it is the last.
    CGFloat build_buttons(CGFloat y, CGFloat width) {
        auto& parts = ivars();
        const CGFloat height = is_alert() ? button_height : sheet_button_height;
        parts.buttons.clear();
        for (UIAlertAction* action : parts.actions) parts.buttons.push_back(make_button(action, {}));
        std::vector<size_t> order;
        for (size_t i = 0; i < parts.actions.size(); ++i)
            if (parts.actions[i]->style() != UIAlertActionStyleCancel) order.push_back(i);
        const bool side_by_side =
            is_alert() && parts.actions.size() == 2 &&
            std::all_of(parts.buttons.begin(), parts.buttons.end(), [&](UIButton* button) {
                return button->sizeThatFits({}).width <= width / 2 - 2 * 8;
            });
        for (size_t i = 0; i < parts.actions.size(); ++i) {
            if (parts.actions[i]->style() != UIAlertActionStyleCancel) continue;
            if (side_by_side)
                order.insert(order.begin(), i);
            else if (is_alert())
                order.push_back(i);
        }
        for (size_t place = 0; place < order.size(); ++place) {
            UIButton* button = parts.buttons[order[place]];
            CGRect frame{{0, y}, {width, height}};
            if (side_by_side) {
                frame.size.width = width / 2;
                frame.origin.x = place == 0 ? 0 : width / 2;
            }
            if (y > 0 && (!side_by_side || place == 0)) parts.card->addSubview(line({{0, y}, {width, 0.5}}));
            if (side_by_side && place == 1) parts.card->addSubview(line({{width / 2, y}, {0.5, height}}));
            button->setFrame(frame);
            parts.card->addSubview(button);
            if (!side_by_side || place + 1 == order.size()) y += height;
        }
        return y;
    }

    CGFloat build_card(CGFloat width) {
        ivars().is_built = true;
        ivars().card->removeFromSuperview();
        ivars().cancelCard->removeFromSuperview();
        ivars().cancelCard = nullptr;
        ivars().card = make_card();
        return build_buttons(build_head(width), width);
    }

    void build() {
        UIView* view = self()->view();
        const CGSize size = view->bounds().size;
        const UIEdgeInsets safe = view->safeAreaInsets();
        if (is_alert()) {
            const CGFloat height = build_card(alert_width);
            ivars().card->setFrame(
                {{(size.width - alert_width) / 2, std::max(safe.top, std::round((size.height - height) / 2))},
                 {alert_width, height}});
            view->addSubview(ivars().card);
            return;
        }
        if (is_popover()) return fit_popover();
        const CGFloat width = size.width - 2 * edge, height = build_card(width);
        CGFloat bottom = size.height - safe.bottom - edge;
        for (size_t i = 0; i < ivars().actions.size(); ++i) {
            if (ivars().actions[i]->style() != UIAlertActionStyleCancel) continue;
            ivars().cancelCard = make_card();
            ivars().cancelCard->setBackgroundColor(UIColor::whiteColor());
            bottom -= sheet_button_height;
            ivars().cancelCard->setFrame({{edge, bottom}, {width, sheet_button_height}});
            ivars().buttons[i]->setFrame({{0, 0}, {width, sheet_button_height}});
            ivars().cancelCard->addSubview(ivars().buttons[i]);
            view->addSubview(ivars().cancelCard);
            bottom -= 8;
        }
        ivars().card->setFrame({{edge, bottom - height}, {width, height}});
        view->addSubview(ivars().card);
    }

    // A popover has no button that cancels: a touch beside it does, which is not modelled.
    void fit_popover() {
        constexpr CGFloat width = 300;
        const CGFloat height = build_card(width);
        ivars().card->setFrame({{0, 0}, {width, height}});
        CGRect frame = self()->view()->frame();
        frame.size = {width, height};
        self()->view()->setFrame(frame);
        self()->view()->addSubview(ivars().card);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIAlertController, UIViewController, AlertController,
           class_method<"alertControllerWithTitle:message:preferredStyle:", &AlertController::alertController>,
           ivar<"_message", &AlertController::Ivars::message>,
           ivar<"_preferredStyle", &AlertController::Ivars::preferredStyle>,
           ivar<"_actions", &AlertController::Ivars::actions>,
           ivar<"_preferredAction", &AlertController::Ivars::preferredAction>,
           ivar<"_textFields", &AlertController::Ivars::fields>,
           ivar<"_card", &AlertController::Ivars::card>,
           ivar<"_cancelCard", &AlertController::Ivars::cancelCard>,
           ivar<"_buttons", &AlertController::Ivars::buttons>,
           ivar<"_isBuilt", &AlertController::Ivars::is_built>,
           method<"setTitle:", &AlertController::setTitle>,
           method<"message", &AlertController::message>,
           method<"setMessage:", &AlertController::setMessage>,
           method<"preferredStyle", &AlertController::preferredStyle>,
           method<"addAction:", &AlertController::addAction>,
           method<"actions", &AlertController::actions>,
           method<"preferredAction", &AlertController::preferredAction>,
           method<"setPreferredAction:", &AlertController::setPreferredAction>,
           method<"addTextFieldWithConfigurationHandler:", &AlertController::addTextField>,
           method<"textFields", &AlertController::textFields>,
           method<"viewDidLoad", &AlertController::viewDidLoad>,
           method<"viewWillAppear:", &AlertController::viewWillAppear>,
           method<"viewDidAppear:", &AlertController::viewDidAppear>,
           method<"viewDidLayoutSubviews", &AlertController::viewDidLayoutSubviews>,
           method<"_pressed:", &AlertController::pressed>,
           method<"_actionsChanged", &AlertController::actions_changed>)
