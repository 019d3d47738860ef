#include "uikit/events/first_responder.h"

namespace sim {
namespace {

objc::weak<UIResponder>& kept() {
    static auto* responder = new objc::weak<UIResponder>;
    return *responder;
}

}  // namespace

UIResponder* first_responder() {
    UIResponder* responder = kept().get().leak();
    objc_autorelease(responder);
    if (auto* view = as<UIView>(responder); view && !view->window()) return nullptr;
    return responder;
}

void set_first_responder(UIResponder* responder) { kept() = responder; }

}  // namespace sim
