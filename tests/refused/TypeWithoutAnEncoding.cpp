// refused: this C++ type has no Objective-C type encoding
#include "objc/encoding.h"
#include "platform/coregraphics.h"

struct Unknown {
    int value;
};
#ifdef CORRECTED
constexpr auto types = objc::encode_method<void, CGRect>();
#else
constexpr auto types = objc::encode_method<void, Unknown>();
#endif
