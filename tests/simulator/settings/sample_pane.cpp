// A preference bundle's code, built for Linux and for the device as real ones are: a page, and a class that
// is none.
#include "objc/image.h"
#include "platform/preferences.h"
#include "platform/services.h"

struct SamplePane : objc::Interface<SamplePane, "SamplePane", PSViewController> {};

namespace {

using namespace objc::literals;

struct Pane : objc::Implements<Pane, SamplePane> {
    struct Ivars {
        objc::strong<NSString> log;
    };

    /// What was said to it, in order.
    NSString* log() { return ivars().log; }

    objc::strong<SamplePane> init() {
        auto self = initialised_by_super<"init">();
        self->note("init "_ns);
        return objc::strong<SamplePane>(self.get());
    }
    void setRootController(id controller) {
        note("root "_ns);
        super<"setRootController:">(controller);
    }
    void setParentController(id controller) {
        note("parent "_ns);
        super<"setParentController:">(controller);
    }
    void setSpecifier(PSSpecifier* specifier) {
        note("specifier "_ns);
        super<"setSpecifier:">(specifier);
    }
    void viewDidLoad() {
        super<"viewDidLoad">();
        note("view "_ns);
        UIView* view = self()->view();
        view->setBackgroundColor(UIColor::whiteColor());
        NSBundle* bundle = NSBundle::bundleForClass(SamplePane::class_object());
        auto label = UILabel::make<"initWithFrame:">(CGRect{{20, 100}, {300, 30}});
        label->setText(bundle->localizedString("Hello"_ns, nullptr, nullptr));
        view->addSubview(label);
    }

  private:
    void note(NSString* what) {
        ivars().log = ivars().log ? ivars().log->stringByAppendingString(what) : what;
    }
};

void nothing_to_do() {}

}  // namespace

OBJC_IMAGE(nothing_to_do)

using namespace objc::definition;

OBJC_CLASS(SamplePane, PSViewController, Pane,
           ivar<"_log", &Pane::Ivars::log>,
           method<"log", &Pane::log>,
           method<"init", &Pane::init>,
           method<"setRootController:", &Pane::setRootController>,
           method<"setParentController:", &Pane::setParentController>,
           method<"setSpecifier:", &Pane::setSpecifier>,
           method<"viewDidLoad", &Pane::viewDidLoad>)
