// The size of the system keyboard.
#include "model/keyboard_size.h"

#include "platform/foundation.h"

extern "C" Class NSClassFromString(NSString* name);

CGSize keyboard_portrait_size() {
    using namespace objc::literals;
    constexpr NSInteger portrait = 1;
    auto implementation = reinterpret_cast<id>(NSClassFromString("UIKeyboardImpl"_ns));
    return objc::send<"keyboardSizeForInterfaceOrientation:", CGSize>(implementation, portrait);
}
