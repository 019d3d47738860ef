// The size of the system keyboard.
#include "model/keyboard_size.h"

#include "platform/foundation.h"

extern "C" Class NSClassFromString(NSString* name);

CGSize keyboard_size(NSInteger orientation) {
    using namespace objc::literals;
    auto implementation = reinterpret_cast<id>(NSClassFromString("UIKeyboardImpl"_ns));
    return objc::send<"keyboardSizeForInterfaceOrientation:", CGSize>(implementation, orientation);
}
