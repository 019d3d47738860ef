#include "settings/HCModalOptions.h"

#include "objc/class.h"

namespace {

using objc::strong;

struct ModalOptions : objc::Implements<ModalOptions, HCModalOptions> {
    struct Ivars {
        CGRect modalFrame;
        double cornerRadius;
        objc::weak<HCModalDelegate> delegate;
        bool lightUI;
        strong<NSString> selectButtonTitle;
    };

    strong<HCModalOptions> initWithModalFrame(CGRect frame, double corner_radius, HCModalDelegate* delegate,
                                              bool light_ui, NSString* select_button_title) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        HCModalOptions* options = self.get();
        options->setModalFrame(frame);
        options->setCornerRadius(corner_radius);
        options->setDelegate(delegate);
        options->setLightUI(light_ui);
        options->setSelectButtonTitle(select_button_title);
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCModalOptions, NSObject, ModalOptions,
           // Properties
           property<"modalFrame", &ModalOptions::Ivars::modalFrame>,
           property<"cornerRadius", &ModalOptions::Ivars::cornerRadius>,
           property<"delegate", &ModalOptions::Ivars::delegate>,
           property<"lightUI", &ModalOptions::Ivars::lightUI>,
           property<"selectButtonTitle", &ModalOptions::Ivars::selectButtonTitle>,

           // Making it
           method<"initWithModalFrame:cornerRadius:delegate:isLightUI:selectTitleForButton:",
                  &ModalOptions::initWithModalFrame>)
