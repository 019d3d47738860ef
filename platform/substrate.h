// The injection framework: replaces methods and functions, and keeps what they were.
#pragma once
#include "objc/runtime.h"

extern "C" {
/// Replaces the method for the named class only. When the class is nil or has no such method, frameworks
/// differ: nothing happens, and `previous` stays as it is or becomes nil; or the process ends.
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* previous);
/// Replaces the function; `previous` receives a way to call what it was. Where the function cannot be
/// patched, some frameworks end the process.
void MSHookFunction(void* symbol, void* replacement, void** previous);
}
