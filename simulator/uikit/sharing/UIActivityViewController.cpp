// The share sheet. It has one choice, which notes what is shared; nothing leaves the phone.
#include <string>

#include "foundation/text.h"
#include "objc/class.h"
#include "objc/string.h"
#include "phone/notes.h"
#include "phone/screen_kind.h"
#include "platform/alerts.h"
#include "platform/sharing.h"
#include "runtime/block.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;
using namespace objc::literals;

std::string text_of(NSString* string) { return sim::utf8_of(string).value_or(""); }

sim::SharedItem noted(id item) {
    if (auto* text = as<NSString>(item)) return {"text", text_of(text)};
    if (auto* address = as<NSURL>(item))
        return address->send<"isFileURL", bool>()
                   ? sim::SharedItem{"file", text_of(address->path())}
                   : sim::SharedItem{"text", text_of(address->absoluteString())};
    if (auto* image = as<UIImage>(item)) {
        const CGSize size = image->size();
        return {"image", std::to_string(static_cast<long>(size.width)) + " x " +
                             std::to_string(static_cast<long>(size.height))};
    }
    sim::not_modelled("UIActivityViewController", "initWithActivityItems:applicationActivities:",
                      std::string("an item of the class ") + object_getClassName(item));
}

struct ActivityController : objc::Implements<ActivityController, UIActivityViewController> {
    struct Ivars {
        strong<NSArray> activityItems;
        strong<NSObject> completionWithItemsHandler;
        strong<NSArray> excludedActivityTypes;
        strong<UIView> sheet;
    };
    static constexpr CGFloat row = 57, edge = 10, head = 44;

    strong<UIActivityViewController> initWithActivityItems(NSArray* items, NSArray* activities) {
        if (activities->count())
            sim::not_modelled("UIActivityViewController", "initWithActivityItems:applicationActivities:",
                              "activities of the application's own");
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        for (NSUInteger i = 0; i < items->count(); ++i) noted(items->objectAtIndex(i));
        self->ivars().activityItems = items;
        self->self()->setModalPresentationStyle(UIModalPresentationOverFullScreen);
        self->self()->setPreferredContentSize({320, head + 2 * row});
        return strong<UIActivityViewController>(self.get());
    }

    id completionWithItemsHandler() { return ivars().completionWithItemsHandler; }
    void setCompletionWithItemsHandler(id handler) {
        ivars().completionWithItemsHandler = sim::kept_block(handler);
    }

    void viewDidLoad() {
        super<"viewDidLoad">();
        UIView* view = self()->view();
        if (!sim::is_pad()) view->setBackgroundColor(UIColor::colorWithWhite(0, 0.4));
        ivars().sheet = UIView::alloc()->initWithFrame({});
        ivars().sheet->setBackgroundColor(UIColor::colorWithWhite(0.97, 1));
        ivars().sheet->layer()->setCornerRadius(13);
        view->addSubview(ivars().sheet);
        auto label = UILabel::make<"initWithFrame:">(CGRect{});
        label->setText(title());
        label->setFont(UIFont::systemFontOfSize(13));
        label->setTextAlignment(NSTextAlignmentCenter);
        ivars().sheet->addSubview(label);
        add_button("Share"_ns, objc::selector<"_share">());
        add_button("Cancel"_ns, objc::selector<"_cancel">());
    }

    void viewDidLayoutSubviews() {
        super<"viewDidLayoutSubviews">();
        UIView* view = self()->view();
        const CGSize size = view->bounds().size;
        const CGFloat height = head + 2 * row;
        const CGFloat width = sim::is_pad() ? size.width : size.width - 2 * edge;
        const CGFloat y = sim::is_pad() ? 0 : size.height - view->safeAreaInsets().bottom - edge - height;
        ivars().sheet->setFrame({{(size.width - width) / 2, y}, {width, height}});
        NSArray* parts = ivars().sheet->subviews();
        static_cast<UIView*>(parts->objectAtIndex(0))->setFrame({{edge, 0}, {width - 2 * edge, head}});
        for (NSUInteger i = 1; i < parts->count(); ++i)
            static_cast<UIView*>(parts->objectAtIndex(i))
                ->setFrame({{0, head + row * static_cast<CGFloat>(i - 1)}, {width, row}});
    }

    void share() {
        for (NSUInteger i = 0; i < ivars().activityItems->count(); ++i)
            sim::shared_items().push_back(noted(ivars().activityItems->objectAtIndex(i)));
        finish("com.apple.UIKit.activity.CopyToPasteboard"_ns, true);
    }
    void cancel() { finish(nullptr, false); }

  private:
    NSString* title() {
        const NSUInteger count = ivars().activityItems->count();
        const sim::SharedItem first =
            count ? noted(ivars().activityItems->objectAtIndex(0)) : sim::SharedItem{};
        if (first.kind != "file")
            return sim::string_of(count == 1 ? "1 item" : std::to_string(count) + " items");
        return sim::string_of(first.content.substr(first.content.rfind('/') + 1));
    }
    void add_button(NSString* title, SEL action) {
        UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
        button->titleLabel()->setFont(UIFont::systemFontOfSize(20));
        button->setTitle(title, UIControlStateNormal);
        button->addTarget(self(), action, UIControlEventTouchUpInside);
        ivars().sheet->addSubview(button);
    }
    void finish(NSString* type, bool completed) {
        const strong<UIActivityViewController> kept = self();
        const strong<NSObject> handler = ivars().completionWithItemsHandler;
        self()->dismissViewController(true, nullptr);
        sim::call_block(handler, static_cast<id>(type), completed, id{}, id{});
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIActivityViewController, UIViewController, ActivityController,
           method<"initWithActivityItems:applicationActivities:", &ActivityController::initWithActivityItems>,
           ivar<"_activityItems", &ActivityController::Ivars::activityItems>,
           ivar<"_completionWithItemsHandler", &ActivityController::Ivars::completionWithItemsHandler>,
           property<"excludedActivityTypes", &ActivityController::Ivars::excludedActivityTypes>,
           ivar<"_sheet", &ActivityController::Ivars::sheet>,
           method<"completionWithItemsHandler", &ActivityController::completionWithItemsHandler>,
           method<"setCompletionWithItemsHandler:", &ActivityController::setCompletionWithItemsHandler>,
           method<"viewDidLoad", &ActivityController::viewDidLoad>,
           method<"viewDidLayoutSubviews", &ActivityController::viewDidLayoutSubviews>,
           method<"_share", &ActivityController::share>,
           method<"_cancel", &ActivityController::cancel>)
