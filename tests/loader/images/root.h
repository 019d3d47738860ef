// What the test images know of the host's classes.
#pragma once

typedef signed char BOOL;

__attribute__((objc_root_class))
@interface NSObject {
    Class isa;
}
+ (id)alloc;
+ (Class)class;
- (id)init;
- (unsigned long)hash;
@end

/// Of the host. It has grown since these images were built: its variables take 13 bytes, and one is named
/// `_tag`.
@interface LTHostShape : NSObject {
    long _variables;
}
- (long)sides;
+ (long)kinds;
@end

/// Of no one.
__attribute__((weak_import))
@interface LTMissing : NSObject
@end
