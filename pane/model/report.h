// What this system has of what the library is about, for whoever wants to help.
#pragma once
#include "platform/foundation.h"

namespace pane {

/// In the form that huecraft doctor reads, with what the library's hooks did in this process. Nothing that
/// the user typed or owns is in it.
objc::strong<NSString> report();

/// A file with that text, to be shared; nil, and why, when it cannot be written.
NSString* write_report(NSString* report, NSError** error);

}  // namespace pane
