// Foundation, as far as the library uses it.
#pragma once
#include "objc/object.h"
#include "objc/string.h"
#include "objc/strong.h"

struct NSArray;
struct NSCharacterSet;
struct NSDictionary;
struct NSError;
struct NSMutableDictionary;
struct NSString;
struct NSURL;

struct NSRange {
    NSUInteger location, length;
};
template <>
inline constexpr auto objc::structure_encoding<NSRange> = objc::Name("{_NSRange=QQ}");

constexpr NSUInteger NSNotFound = static_cast<NSUInteger>(INTPTR_MAX);

struct NSObject : objc::Interface<NSObject, "NSObject"> {
    objc::strong<NSObject> init() { return send<"init", objc::strong<NSObject>>(); }
    bool isEqual(id other) { return send<"isEqual:", bool>(other); }
    bool isKindOfClass(Class wanted) { return send<"isKindOfClass:", bool>(wanted); }
    bool respondsToSelector(SEL selector) { return send<"respondsToSelector:", bool>(selector); }
    NSString* description() { return send<"description", NSString*>(); }
};

/// The object itself if it is of the class, else nil.
template <class T>
inline T* as(id object) {
    if (!object || !static_cast<NSObject*>(object)->isKindOfClass(T::class_object())) return nullptr;
    return static_cast<T*>(object);
}

struct NSString : objc::Interface<NSString, "NSString", NSObject> {
    static NSString* stringWithUTF8String(const char* text) {
        return class_send<"stringWithUTF8String:", NSString*>(text);
    }
    static NSString* stringWithCharacters(const char16_t* units, NSUInteger count) {
        return class_send<"stringWithCharacters:length:", NSString*>(units, count);
    }

    NSUInteger length() { return send<"length", NSUInteger>(); }
    const char* UTF8String() { return send<"UTF8String", const char*>(); }
    /// Copies the UTF-16 units of the range; raises NSRangeException beyond the end.
    void getCharacters(char16_t* units, NSRange range) { send<"getCharacters:range:">(units, range); }
    bool isEqualToString(NSString* other) { return send<"isEqualToString:", bool>(other); }
    bool hasPrefix(NSString* head) { return send<"hasPrefix:", bool>(head); }
    NSString* uppercaseString() { return send<"uppercaseString", NSString*>(); }
    NSString* stringByAppendingString(NSString* tail) {
        return send<"stringByAppendingString:", NSString*>(tail);
    }
    NSArray* componentsSeparatedByCharactersInSet(NSCharacterSet* separators) {
        return send<"componentsSeparatedByCharactersInSet:", NSArray*>(separators);
    }
};

struct NSNumber : objc::Interface<NSNumber, "NSNumber", NSObject> {
    static NSNumber* numberWithBool(bool value) { return class_send<"numberWithBool:", NSNumber*>(value); }
    static NSNumber* numberWithFloat(float value) { return class_send<"numberWithFloat:", NSNumber*>(value); }
    static NSNumber* numberWithUnsignedInteger(NSUInteger value) {
        return class_send<"numberWithUnsignedInteger:", NSNumber*>(value);
    }
};

struct NSNull : objc::Interface<NSNull, "NSNull", NSObject> {
    static NSNull* null() { return class_send<"null", NSNull*>(); }
};

struct NSArray : objc::Interface<NSArray, "NSArray", NSObject> {
    static NSArray* arrayWithObject(id object) { return class_send<"arrayWithObject:", NSArray*>(object); }
    static NSArray* arrayWithArray(NSArray* other) { return class_send<"arrayWithArray:", NSArray*>(other); }
    static NSArray* arrayWithObjects(const id* objects, NSUInteger count) {
        return class_send<"arrayWithObjects:count:", NSArray*>(objects, count);
    }

    NSUInteger count() { return send<"count", NSUInteger>(); }
    /// Raises NSRangeException beyond the end.
    id objectAtIndex(NSUInteger index) { return send<"objectAtIndex:", id>(index); }
    /// nil when there is none.
    id lastObject() { return send<"lastObject", id>(); }
    id objectAtIndexedSubscript(NSUInteger index) { return send<"objectAtIndexedSubscript:", id>(index); }
    NSString* componentsJoinedByString(NSString* glue) {
        return send<"componentsJoinedByString:", NSString*>(glue);
    }
};

struct NSMutableArray : objc::Interface<NSMutableArray, "NSMutableArray", NSArray> {
    static NSMutableArray* arrayWithCapacity(NSUInteger capacity) {
        return class_send<"arrayWithCapacity:", NSMutableArray*>(capacity);
    }

    /// Raises NSInvalidArgumentException for nil.
    void addObject(id object) { send<"addObject:">(object); }
    /// Raises NSRangeException beyond the end.
    void removeObjectAtIndex(NSUInteger index) { send<"removeObjectAtIndex:">(index); }
};

struct NSDictionary : objc::Interface<NSDictionary, "NSDictionary", NSObject> {
    static NSDictionary* dictionaryWithObjects(const id* objects, const id* keys, NSUInteger count) {
        return class_send<"dictionaryWithObjects:forKeys:count:", NSDictionary*>(objects, keys, count);
    }

    id objectForKey(NSString* key) { return send<"objectForKey:", id>(key); }
    bool writeToFile(NSString* path, bool atomically) {
        return send<"writeToFile:atomically:", bool>(path, atomically);
    }
    bool writeToURL(NSURL* url, NSError** error) { return send<"writeToURL:error:", bool>(url, error); }
    objc::strong<NSMutableDictionary> mutableCopy();
};

struct NSMutableDictionary : objc::Interface<NSMutableDictionary, "NSMutableDictionary", NSDictionary> {
    objc::strong<NSMutableDictionary> initWithCapacity(NSUInteger capacity) {
        return send<"initWithCapacity:", objc::strong<NSMutableDictionary>>(capacity);
    }

    /// Raises NSInvalidArgumentException for nil.
    void setObject(id object, NSString* key) { send<"setObject:forKey:">(object, key); }
    void removeObjectForKey(NSString* key) { send<"removeObjectForKey:">(key); }
};

inline objc::strong<NSMutableDictionary> NSDictionary::mutableCopy() {
    return send<"mutableCopy", objc::strong<NSMutableDictionary>>();
}

struct NSSet : objc::Interface<NSSet, "NSSet", NSObject> {
    static NSSet* setWithObject(id object) { return class_send<"setWithObject:", NSSet*>(object); }

    NSUInteger count() { return send<"count", NSUInteger>(); }
    id anyObject() { return send<"anyObject", id>(); }
    bool containsObject(id object) { return send<"containsObject:", bool>(object); }
};

struct NSData : objc::Interface<NSData, "NSData", NSObject> {
    /// nil when the file cannot be read.
    static NSData* dataWithContentsOfFile(NSString* path) {
        return class_send<"dataWithContentsOfFile:", NSData*>(path);
    }

    NSUInteger length() { return send<"length", NSUInteger>(); }
    const void* bytes() { return send<"bytes", const void*>(); }
};

struct NSError : objc::Interface<NSError, "NSError", NSObject> {
    static NSError* errorWithDomain(NSString* domain, NSInteger code, NSDictionary* user_info) {
        return class_send<"errorWithDomain:code:userInfo:", NSError*>(domain, code, user_info);
    }
};

struct NSFileManager : objc::Interface<NSFileManager, "NSFileManager", NSObject> {
    static NSFileManager* defaultManager() { return class_send<"defaultManager", NSFileManager*>(); }

    /// `is_directory` is left alone when nothing is there.
    bool fileExistsAtPath(NSString* path, bool* is_directory) {
        return send<"fileExistsAtPath:isDirectory:", bool>(path, is_directory);
    }
    bool fileExistsAtPath(NSString* path) { return send<"fileExistsAtPath:", bool>(path); }
    bool removeItemAtPath(NSString* path, NSError** error) {
        return send<"removeItemAtPath:error:", bool>(path, error);
    }
};

struct NSProcessInfo : objc::Interface<NSProcessInfo, "NSProcessInfo", NSObject> {
    static NSProcessInfo* processInfo() { return class_send<"processInfo", NSProcessInfo*>(); }

    NSArray* arguments() { return send<"arguments", NSArray*>(); }
};

struct NSPropertyListSerialization
    : objc::Interface<NSPropertyListSerialization, "NSPropertyListSerialization", NSObject> {
    /// nil, and an error where one is asked for, when the data is no property list.
    static id propertyListWithData(NSData* data, NSUInteger options, NSUInteger* format, NSError** error) {
        return class_send<"propertyListWithData:options:format:error:", id>(data, options, format, error);
    }
    static constexpr NSUInteger immutable = 0;
};

struct NSCharacterSet : objc::Interface<NSCharacterSet, "NSCharacterSet", NSObject> {
    static NSCharacterSet* characterSetWithCharactersInString(NSString* characters) {
        return class_send<"characterSetWithCharactersInString:", NSCharacterSet*>(characters);
    }
};

struct NSURL : objc::Interface<NSURL, "NSURL", NSObject> {
    static NSURL* fileURLWithPath(NSString* path) { return class_send<"fileURLWithPath:", NSURL*>(path); }
};

extern "C" {
/// nil where no class has the name.
Class NSClassFromString(NSString* name);
NSString* NSStringFromClass(Class of);
/// Variadic: what is written here has no arguments.
void NSLog(NSString* format, ...);
extern NSString* const NSLocalizedDescriptionKey;
extern NSString* const NSLocalizedFailureReasonErrorKey;
extern NSString* const NSLocalizedRecoverySuggestionErrorKey;
}
