// Which method a super send of the device means.
#include "objc/runtime.h"

/// Called by objc_msgSendSuper2. There `current` is the class whose method is sending; libobjc wants the
/// class that the search starts at.
extern "C" [[gnu::used]] IMP sim_find_super_method(objc_super* super, SEL selector) {
    objc_super above{super->receiver, class_getSuperclass(super->current)};
    return objc_msg_lookup_super(&above, selector);
}
