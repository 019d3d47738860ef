// The library's own signatures beside the runtime's.
#include "hooks/authentication.h"

#include "model/HCPreferences.h"
#include "objc/authentication.h"

namespace hooks {

bool signatures_agree() {
    auto store = reinterpret_cast<id>(HCPreferences::class_object());
    return objc::answers_as_handed_over(object_getClass(store), objc::selector<"sharedInstance">());
}

}  // namespace hooks
