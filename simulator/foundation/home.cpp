// The phone's user and home folder, in place of the host's.
#include "objc/string.h"
#include "runtime/exported.h"

using namespace objc::literals;

SIM_EXPORTED NSString* NSUserName() { return "mobile"_ns; }
SIM_EXPORTED NSString* NSHomeDirectory() { return "/var/mobile"_ns; }
SIM_EXPORTED NSString* NSHomeDirectoryForUser(NSString*) { return "/var/mobile"_ns; }
