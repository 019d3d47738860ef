// Values of property lists, read leniently: any object that answers the conversion serves, no other does.
#pragma once
#include "platform/foundation.h"

inline int int_value(NSObject* object, int otherwise) {
    if (!object->respondsToSelector(objc::selector<"intValue">())) return otherwise;
    return object->send<"intValue", int>();
}

/// 32 bits, sign-extended: a stored -1 reads as the largest number.
inline NSUInteger unsigned_value(id object, NSUInteger otherwise) {
    return static_cast<NSUInteger>(
        static_cast<NSInteger>(int_value(static_cast<NSObject*>(object), static_cast<int>(otherwise))));
}

inline double float_value(id object, double otherwise) {
    auto* value = static_cast<NSObject*>(object);
    if (!value->respondsToSelector(objc::selector<"floatValue">())) return otherwise;
    return value->send<"floatValue", float>();
}

/// NO where the object has no boolean value.
inline bool bool_value(id object) {
    auto* value = static_cast<NSObject*>(object);
    return value->respondsToSelector(objc::selector<"boolValue">()) && value->send<"boolValue", bool>();
}
