#include "hooks/authentication.h"

#include "model/HCPreferences.h"

namespace hooks {

// A wrong signature shows here, before anything is called.
bool signatures_agree() {
#if defined(__APPLE__) && defined(__aarch64__)
    if (!objc::authenticates_addresses()) return true;
    auto store = reinterpret_cast<id>(HCPreferences::class_object());
    const objc::Handed<void()> answer =
        class_getMethodImplementation(object_getClass(store), objc::selector<"sharedInstance">());
    return answer.address == objc::hand_over(objc::take_back(answer)).address;
#else
    return true;
#endif
}

}  // namespace hooks
