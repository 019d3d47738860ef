// Writing a property list as the running system does it.
#pragma once
#include "model/property_values.h"
#include "platform/uikit.h"

/// Whether it was written. The error is told from iOS 11 on.
inline bool write_property_list(NSDictionary* content, NSString* path, NSError** error) {
    const int system_version = int_value(UIDevice::currentDevice()->systemVersion(), 0);
    if (system_version >= 11) return content->writeToURL(NSURL::fileURLWithPath(path), error);
    return content->writeToFile(path, true);
}
