// Foundation, as far as the library uses it.
#pragma once
#include "objc/object.h"
#include "objc/string.h"
#include "objc/strong.h"
#include "platform/coregraphics.h"

struct NSArray;
struct NSCharacterSet;
struct NSData;
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

    /// UIKit adds these to every object: what VoiceOver says of it.
    bool isAccessibilityElement() { return send<"isAccessibilityElement", bool>(); }
    void setIsAccessibilityElement(bool is) { send<"setIsAccessibilityElement:">(is); }
    NSString* accessibilityLabel() { return send<"accessibilityLabel", NSString*>(); }
    void setAccessibilityLabel(NSString* label) { send<"setAccessibilityLabel:">(label); }
    NSString* accessibilityValue() { return send<"accessibilityValue", NSString*>(); }
    void setAccessibilityValue(NSString* value) { send<"setAccessibilityValue:">(value); }
    NSString* accessibilityHint() { return send<"accessibilityHint", NSString*>(); }
    void setAccessibilityHint(NSString* hint) { send<"setAccessibilityHint:">(hint); }
    NSString* accessibilityIdentifier() { return send<"accessibilityIdentifier", NSString*>(); }
    void setAccessibilityIdentifier(NSString* identifier) { send<"setAccessibilityIdentifier:">(identifier); }
    uint64_t accessibilityTraits() { return send<"accessibilityTraits", uint64_t>(); }
    void setAccessibilityTraits(uint64_t traits) { send<"setAccessibilityTraits:">(traits); }
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

    /// nil, and an error where one is asked for, when it cannot be read or is not in the encoding.
    static NSString* stringWithContentsOfFile(NSString* path, NSUInteger encoding, NSError** error) {
        return class_send<"stringWithContentsOfFile:encoding:error:", NSString*>(path, encoding, error);
    }
    static constexpr NSUInteger utf8 = 4;

    NSUInteger length() { return send<"length", NSUInteger>(); }
    const char* UTF8String() { return send<"UTF8String", const char*>(); }
    /// Copies the UTF-16 units of the range; raises NSRangeException beyond the end.
    void getCharacters(char16_t* units, NSRange range) { send<"getCharacters:range:">(units, range); }
    bool isEqualToString(NSString* other) { return send<"isEqualToString:", bool>(other); }
    bool hasPrefix(NSString* head) { return send<"hasPrefix:", bool>(head); }
    bool hasSuffix(NSString* tail) { return send<"hasSuffix:", bool>(tail); }
    /// -1 is before, 0 equal, 1 behind.
    NSInteger compare(NSString* other) { return send<"compare:", NSInteger>(other); }
    NSInteger caseInsensitiveCompare(NSString* other) {
        return send<"caseInsensitiveCompare:", NSInteger>(other);
    }
    NSInteger localizedCaseInsensitiveCompare(NSString* other) {
        return send<"localizedCaseInsensitiveCompare:", NSInteger>(other);
    }
    NSInteger integerValue() { return send<"integerValue", NSInteger>(); }
    NSString* uppercaseString() { return send<"uppercaseString", NSString*>(); }
    NSString* lowercaseString() { return send<"lowercaseString", NSString*>(); }
    NSString* substringFromIndex(NSUInteger index) { return send<"substringFromIndex:", NSString*>(index); }
    NSString* substringToIndex(NSUInteger index) { return send<"substringToIndex:", NSString*>(index); }
    NSRange rangeOfString(NSString* text) { return send<"rangeOfString:", NSRange>(text); }
    NSString* stringByReplacingOccurrencesOfString(NSString* text, NSString* replacement) {
        return send<"stringByReplacingOccurrencesOfString:withString:", NSString*>(text, replacement);
    }
    NSString* stringByTrimmingCharactersInSet(NSCharacterSet* characters) {
        return send<"stringByTrimmingCharactersInSet:", NSString*>(characters);
    }
    NSString* stringByAppendingPathComponent(NSString* name) {
        return send<"stringByAppendingPathComponent:", NSString*>(name);
    }
    NSString* stringByAppendingPathExtension(NSString* ending) {
        return send<"stringByAppendingPathExtension:", NSString*>(ending);
    }
    NSString* stringByDeletingLastPathComponent() {
        return send<"stringByDeletingLastPathComponent", NSString*>();
    }
    NSString* stringByDeletingPathExtension() { return send<"stringByDeletingPathExtension", NSString*>(); }
    NSString* lastPathComponent() { return send<"lastPathComponent", NSString*>(); }
    NSString* pathExtension() { return send<"pathExtension", NSString*>(); }
    NSData* dataUsingEncoding(NSUInteger encoding) { return send<"dataUsingEncoding:", NSData*>(encoding); }
    bool writeToFile(NSString* path, bool atomically, NSUInteger encoding, NSError** error) {
        return send<"writeToFile:atomically:encoding:error:", bool>(path, atomically, encoding, error);
    }
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
    static NSNumber* numberWithInteger(NSInteger value) {
        return class_send<"numberWithInteger:", NSNumber*>(value);
    }
    static NSNumber* numberWithDouble(double value) {
        return class_send<"numberWithDouble:", NSNumber*>(value);
    }
    bool boolValue() { return send<"boolValue", bool>(); }
    NSInteger integerValue() { return send<"integerValue", NSInteger>(); }
    double doubleValue() { return send<"doubleValue", double>(); }
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
    id firstObject() { return send<"firstObject", id>(); }
    /// nil when there is none.
    id lastObject() { return send<"lastObject", id>(); }
    id objectAtIndexedSubscript(NSUInteger index) { return send<"objectAtIndexedSubscript:", id>(index); }
    bool containsObject(id object) { return send<"containsObject:", bool>(object); }
    /// NSNotFound when it is not there.
    NSUInteger indexOfObject(id object) { return send<"indexOfObject:", NSUInteger>(object); }
    /// By a comparison that takes one other object and answers -1, 0 or 1.
    NSArray* sortedArrayUsingSelector(SEL comparison) {
        return send<"sortedArrayUsingSelector:", NSArray*>(comparison);
    }
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
    void insertObject(id object, NSUInteger index) { send<"insertObject:atIndex:">(object, index); }
    void replaceObjectAtIndex(NSUInteger index, id object) {
        send<"replaceObjectAtIndex:withObject:">(index, object);
    }
    void exchangeObjectAtIndex(NSUInteger index, NSUInteger other) {
        send<"exchangeObjectAtIndex:withObjectAtIndex:">(index, other);
    }
    void removeAllObjects() { send<"removeAllObjects">(); }
    void removeObjectAtIndex(NSUInteger index) { send<"removeObjectAtIndex:">(index); }
};

struct NSDictionary : objc::Interface<NSDictionary, "NSDictionary", NSObject> {
    static NSDictionary* dictionaryWithObjects(const id* objects, const id* keys, NSUInteger count) {
        return class_send<"dictionaryWithObjects:forKeys:count:", NSDictionary*>(objects, keys, count);
    }

    id objectForKey(NSString* key) { return send<"objectForKey:", id>(key); }
    NSUInteger count() { return send<"count", NSUInteger>(); }
    NSArray* allKeys() { return send<"allKeys", NSArray*>(); }
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

    static NSData* dataWithContentsOfFile(NSString* path, NSUInteger options, NSError** error) {
        return class_send<"dataWithContentsOfFile:options:error:", NSData*>(path, options, error);
    }
    static NSData* dataWithBytes(const void* bytes, NSUInteger length) {
        return class_send<"dataWithBytes:length:", NSData*>(bytes, length);
    }
    /// Writes beside the file first, then puts it in its place.
    static constexpr NSUInteger atomically = 1;
    bool writeToFile(NSString* path, NSUInteger options, NSError** error) {
        return send<"writeToFile:options:error:", bool>(path, options, error);
    }

    NSUInteger length() { return send<"length", NSUInteger>(); }
    const void* bytes() { return send<"bytes", const void*>(); }
};

struct NSError : objc::Interface<NSError, "NSError", NSObject> {
    static NSError* errorWithDomain(NSString* domain, NSInteger code, NSDictionary* user_info) {
        return class_send<"errorWithDomain:code:userInfo:", NSError*>(domain, code, user_info);
    }
    NSString* domain() { return send<"domain", NSString*>(); }
    NSInteger code() { return send<"code", NSInteger>(); }
    NSDictionary* userInfo() { return send<"userInfo", NSDictionary*>(); }
    NSString* localizedDescription() { return send<"localizedDescription", NSString*>(); }
    NSString* localizedFailureReason() { return send<"localizedFailureReason", NSString*>(); }
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
    /// Names, in no order.
    NSArray* contentsOfDirectoryAtPath(NSString* path, NSError** error) {
        return send<"contentsOfDirectoryAtPath:error:", NSArray*>(path, error);
    }
    /// `attributes` may be nil. With intermediates, a folder that is there already is fine.
    bool createDirectory(NSString* path, bool intermediates, NSDictionary* attributes, NSError** error) {
        return send<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:", bool>(
            path, intermediates, attributes, error);
    }
    bool moveItem(NSString* from, NSString* to, NSError** error) {
        return send<"moveItemAtPath:toPath:error:", bool>(from, to, error);
    }
    bool copyItem(NSString* from, NSString* to, NSError** error) {
        return send<"copyItemAtPath:toPath:error:", bool>(from, to, error);
    }
    /// The file's size under NSFileSize, its last change under NSFileModificationDate.
    NSDictionary* attributesOfItemAtPath(NSString* path, NSError** error) {
        return send<"attributesOfItemAtPath:error:", NSDictionary*>(path, error);
    }
};

struct NSProcessInfo : objc::Interface<NSProcessInfo, "NSProcessInfo", NSObject> {
    static NSProcessInfo* processInfo() { return class_send<"processInfo", NSProcessInfo*>(); }

    NSArray* arguments() { return send<"arguments", NSArray*>(); }
};

struct NSPropertyListSerialization
    : objc::Interface<NSPropertyListSerialization, "NSPropertyListSerialization", NSObject> {
    /// nil, and an error where one is asked for, when the data is not a property list.
    static id propertyListWithData(NSData* data, NSUInteger options, NSUInteger* format, NSError** error) {
        return class_send<"propertyListWithData:options:format:error:", id>(data, options, format, error);
    }
    static constexpr NSUInteger immutable = 0;
    /// nil, and an error where one is asked for, for what is not a property list.
    static NSData* dataWithPropertyList(id list, NSUInteger format, NSUInteger options, NSError** error) {
        return class_send<"dataWithPropertyList:format:options:error:", NSData*>(list, format, options,
                                                                                 error);
    }
    static constexpr NSUInteger xml_format = 100;
    static constexpr NSUInteger binary_format = 200;
};

struct NSCharacterSet : objc::Interface<NSCharacterSet, "NSCharacterSet", NSObject> {
    static NSCharacterSet* characterSetWithCharactersInString(NSString* characters) {
        return class_send<"characterSetWithCharactersInString:", NSCharacterSet*>(characters);
    }
    static NSCharacterSet* whitespaceAndNewlineCharacterSet() {
        return class_send<"whitespaceAndNewlineCharacterSet", NSCharacterSet*>();
    }
};

struct NSURL : objc::Interface<NSURL, "NSURL", NSObject> {
    static NSURL* fileURLWithPath(NSString* path) { return class_send<"fileURLWithPath:", NSURL*>(path); }
    /// nil for a text that is no address.
    static NSURL* URLWithString(NSString* text) { return class_send<"URLWithString:", NSURL*>(text); }
    NSString* path() { return send<"path", NSString*>(); }
    NSString* absoluteString() { return send<"absoluteString", NSString*>(); }
};

/// A value in an object; those of geometry are UIKit's.
struct NSValue : objc::Interface<NSValue, "NSValue", NSObject> {
    static NSValue* valueWithCGPoint(CGPoint point) {
        return class_send<"valueWithCGPoint:", NSValue*>(point);
    }
    static NSValue* valueWithCGRect(CGRect rect) { return class_send<"valueWithCGRect:", NSValue*>(rect); }
    CGPoint CGPointValue() { return send<"CGPointValue", CGPoint>(); }
    CGRect CGRectValue() { return send<"CGRectValue", CGRect>(); }
};

/// Which item of which section, as UIKit counts.
struct NSIndexPath : objc::Interface<NSIndexPath, "NSIndexPath", NSObject> {
    static NSIndexPath* indexPathForItem(NSInteger item, NSInteger section) {
        return class_send<"indexPathForItem:inSection:", NSIndexPath*>(item, section);
    }
    static NSIndexPath* indexPathForRow(NSInteger row, NSInteger section) {
        return class_send<"indexPathForRow:inSection:", NSIndexPath*>(row, section);
    }
    NSInteger row() { return send<"row", NSInteger>(); }
    NSInteger item() { return send<"item", NSInteger>(); }
    NSInteger section() { return send<"section", NSInteger>(); }
};

struct NSIndexSet : objc::Interface<NSIndexSet, "NSIndexSet", NSObject> {
    static NSIndexSet* indexSetWithIndex(NSUInteger index) {
        return class_send<"indexSetWithIndex:", NSIndexSet*>(index);
    }
    bool containsIndex(NSUInteger index) { return send<"containsIndex:", bool>(index); }
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
