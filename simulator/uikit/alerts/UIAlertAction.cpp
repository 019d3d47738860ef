// One choice of an alert.
#include "uikit/alerts/UIAlertAction.h"

#include "runtime/block.h"

namespace sim {

using objc::strong;

UIAlertAction* AlertAction::action(Class self, NSString* title, UIAlertActionStyle style, id handler) {
    auto made = objc::make<"init", UIAlertAction>(self);
    auto& ivars = static_cast<AlertAction*>(made.get())->ivars();
    ivars.title = strong<NSString>::adopt(title->send<"copy", NSString*>());
    ivars.style = style;
    ivars.handler = kept_block(handler);
    return std::move(made).autoreleased();
}

void AlertAction::setEnabled(bool enabled) {
    ivars().enabled = enabled;
    if (const auto alert = ivars().alert.get()) alert->send<"_actionsChanged">();
}

void AlertAction::perform() { call_block(ivars().handler, static_cast<id>(self())); }

}  // namespace sim

using namespace objc::definition;
using sim::AlertAction;

OBJC_CLASS(UIAlertAction, NSObject, AlertAction,
           class_method<"actionWithTitle:style:handler:", &AlertAction::action>,
           ivar<"_title", &AlertAction::Ivars::title>,
           ivar<"_style", &AlertAction::Ivars::style>,
           ivar<"_enabled", &AlertAction::Ivars::enabled>,
           ivar<"_handler", &AlertAction::Ivars::handler>,
           ivar<"_alertController", &AlertAction::Ivars::alert>,
           method<"title", &AlertAction::title>,
           method<"style", &AlertAction::style>,
           method<"isEnabled", &AlertAction::isEnabled>,
           method<"setEnabled:", &AlertAction::setEnabled>)
