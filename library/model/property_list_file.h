// Reading a property list, and writing one as the running system does it.
#pragma once
#include "model/property_values.h"
#include "platform/uikit.h"

/// What the bytes hold, immutable throughout; nil where they are not a property list.
inline id read_property_list(NSData* bytes, NSError** error = nullptr) {
    return NSPropertyListSerialization::propertyListWithData(bytes, NSPropertyListSerialization::immutable,
                                                             nullptr, error);
}

/// Whether it was written. `error` is set only on iOS 11 and later.
inline bool write_property_list(NSDictionary* content, NSString* path, NSError** error) {
    const int system_version = int_value(UIDevice::currentDevice()->systemVersion(), 0);
    if (system_version >= 11) return content->writeToURL(NSURL::fileURLWithPath(path), error);
    return content->writeToFile(path, true);
}
