// The injection framework: replaces methods and functions, and keeps what they were.
#pragma once
#include "objc/runtime.h"

extern "C" {
#ifdef __APPLE__
/// Replaces the method for the named class only. When the class is nil or has no such method, frameworks
/// differ: nothing happens, and `previous` stays as it is or becomes nil; or the process ends.
void MSHookMessageEx(Class, SEL, objc::Handed<void()> replacement, objc::Handed<void()>* previous);
/// Replaces the function; `previous` receives a way to call what it was. Where the function cannot be
/// patched, some frameworks end the process.
void MSHookFunction(objc::Handed<void()> symbol, objc::Handed<void()> replacement,
                    objc::Handed<void()>* previous);
#else
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* previous);
void MSHookFunction(void* symbol, void* replacement, void** previous);
#endif
}

#ifndef __APPLE__
inline void MSHookMessageEx(Class owner, SEL selector, objc::Handed<void()> replacement,
                            objc::Handed<void()>* previous) {
    MSHookMessageEx(owner, selector, replacement.address, &previous->address);
}
inline void MSHookFunction(objc::Handed<void()> symbol, objc::Handed<void()> replacement,
                           objc::Handed<void()>* previous) {
    MSHookFunction(reinterpret_cast<void*>(symbol.address), reinterpret_cast<void*>(replacement.address),
                   reinterpret_cast<void**>(&previous->address));
}
#endif

/// The same, with the prototypes compared.
template <class Signature>
void MSHookFunction(objc::Handed<Signature> symbol, objc::Handed<Signature> replacement,
                    objc::Handed<Signature>* previous) {
    const auto of_any_type = [](objc::Handed<Signature> function) {
        return objc::Handed<void()>{reinterpret_cast<IMP>(function.address)};
    };
    MSHookFunction(of_any_type(symbol), of_any_type(replacement),
                   reinterpret_cast<objc::Handed<void()>*>(previous));
}
