// The injection framework: replaces methods and functions, and keeps what they were.
#pragma once
#include "objc/runtime.h"

extern "C" {
/// Replaces the method for the named class only. Nothing happens, and `previous` stays as it is, when the
/// class is nil or has no such method.
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* previous);
/// Replaces the function; `previous` receives a way to call what it was.
void MSHookFunction(void* symbol, void* replacement, void** previous);
}
