// The C interface of the Objective-C runtime: declared here, so that neither home needs a runtime's own
// headers.
#pragma once
#include <cstddef>
#include <cstdint>

#include "objc/handed.h"

struct objc_class;
struct objc_selector;
struct objc_method;
struct objc_ivar;

/// An object: what every pointer to a class of the system or of ours points to. It is never made from C++.
struct objc_object {
    objc_object() = delete;
    objc_object(const objc_object&) = delete;
    objc_object& operator=(const objc_object&) = delete;
    objc_class* isa;
};

using id = objc_object*;
using Class = objc_class*;
using SEL = const objc_selector*;
using Method = objc_method*;
using Ivar = objc_ivar*;
/// An implementation of any signature. It is called only after a cast to its exact prototype.
using IMP = void (*)();

/// One byte in both homes. Results of methods are narrowed by the seam, since GNUstep's BOOL may hold any
/// byte.
using BOOL = bool;
using NSInteger = long;
using NSUInteger = unsigned long;

namespace objc {
/// Whose method is meant: an object's, or the class's own.
enum class Side { instance, on_class };
}  // namespace objc

/// A super send's receiver. `current` is a class whose superclass the search starts at or, for the entry
/// points that say so, that superclass itself.
struct objc_super {
    id receiver;
    Class current;
};

extern "C" {
SEL sel_registerName(const char* name);
const char* sel_getName(SEL);
BOOL sel_isEqual(SEL, SEL);

Class objc_getClass(const char* name);
Class objc_lookUpClass(const char* name);
id objc_getProtocol(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extra_bytes);
void objc_registerClassPair(Class);

Class class_getSuperclass(Class);
const char* class_getName(Class);
size_t class_getInstanceSize(Class);
Ivar class_getInstanceVariable(Class, const char* name);
Ivar* class_copyIvarList(Class, unsigned* count);
Method* class_copyMethodList(Class, unsigned* count);
Method class_getInstanceMethod(Class, SEL);
BOOL class_addIvar(Class, const char* name, size_t size, uint8_t log2_alignment, const char* types);
BOOL class_addProtocol(Class, id protocol);
BOOL class_conformsToProtocol(Class, id protocol);
BOOL class_respondsToSelector(Class, SEL);

IMP method_getImplementation(Method);
IMP method_setImplementation(Method, IMP);
const char* method_getTypeEncoding(Method);
SEL method_getName(Method);
ptrdiff_t ivar_getOffset(Ivar);
const char* ivar_getName(Ivar);
const char* ivar_getTypeEncoding(Ivar);
const char* object_getClassName(id);

// What both homes offer beyond that: the device's runtime itself, the simulator on Linux.
id objc_retain(id);
void objc_release(id);
id objc_autorelease(id);
id objc_initWeak(id* slot, id value);
id objc_storeWeak(id* slot, id value);
id objc_loadWeakRetained(id* slot);
void objc_destroyWeak(id* slot);
void* objc_autoreleasePoolPush();
void objc_autoreleasePoolPop(void* pool);
void objc_setAssociatedObject(id owner, const void* key, id value, uintptr_t policy);
id objc_getAssociatedObject(id owner, const void* key);

#ifdef __APPLE__
objc::Handed<void()> class_getMethodImplementation(Class, SEL);
BOOL class_addMethod(Class, SEL, objc::Handed<void()>, const char* types);
void dispatch_once_f(long* once, void* context, objc::Handed<void(void*)>);

Class object_getClass(id);
void objc_msgSend();
void objc_msgSendSuper2();  // objc_super holds the current class
#ifdef __x86_64__
void objc_msgSend_stret();
void objc_msgSendSuper2_stret();
#endif
#else
// The simulator is not a border to itself: it takes and gives addresses as they are.
IMP class_getMethodImplementation(Class, SEL);
BOOL class_addMethod(Class, SEL, IMP, const char* types);
void dispatch_once_f(long* once, void* context, void (*function)(void*));

IMP objc_msg_lookup(id, SEL);
IMP objc_msg_lookup_super(objc_super*, SEL);  // objc_super holds the superclass
int objc_getClassList(Class*, int capacity);
void objc_disposeClassPair(Class);
BOOL class_isMetaClass(Class);
void __objc_update_dispatch_table_for_class(Class);
inline Class object_getClass(id object) { return object ? object->isa : nullptr; }
#endif
}

#ifndef __APPLE__
inline BOOL class_addMethod(Class owner, SEL selector, objc::Handed<void()> implementation,
                            const char* types) {
    return class_addMethod(owner, selector, implementation.address, types);
}
inline void dispatch_once_f(long* once, void* context, objc::Handed<void(void*)> function) {
    dispatch_once_f(once, context, function.address);
}
#endif
