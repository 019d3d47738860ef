#include "foundation/raise.h"

#include <cstdlib>

namespace sim {

void raise(NSString* name, const std::string& reason) {
    id exception = objc::send<"exceptionWithName:reason:userInfo:", id>(
        reinterpret_cast<id>(objc_getClass("NSException")), name,
        NSString::stringWithUTF8String(reason.c_str()), id{});
    objc::send<"raise">(exception);
    std::abort();  // it does not come back
}

}  // namespace sim
