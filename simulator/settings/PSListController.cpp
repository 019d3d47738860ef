// Lists in Settings. Of those, the model has the root list alone.
#include "objc/class.h"
#include "runtime/not_modelled.h"
#include "settings/PSUIPrefsListController.h"

namespace {

struct OtherList : objc::Implements<OtherList, PSListController> {
    using Ivars = objc::NoIvars;

    NSArray* specifiers() {
        sim::not_modelled("PSListController", "specifiers",
                          "lists of other bundles; a page of one's own derives "
                          "from PSViewController");
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(PSListController, PSViewController, OtherList, method<"specifiers", &OtherList::specifiers>)
