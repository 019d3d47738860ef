// Categories of classes that are here, of the host's, and of one that is missing.
#import "root.h"

// That is what the tests are about.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@protocol LTCounting
@end

@interface LTExtended : NSObject
- (long)kept;
- (long)replaced;
@end

@interface LTHeir : LTExtended
@end

@interface LTExtended (LTMore) <LTCounting>
- (long)added;
+ (long)addedToTheClass;
@end

@implementation LTExtended (LTMore)
- (long)replaced {
    return 20;
}
- (long)added {
    return [self kept] + [self replaced];
}
+ (long)addedToTheClass {
    return 7;
}
@end

@implementation LTExtended
- (long)kept {
    return 1;
}
- (long)replaced {
    return 2;
}
@end

@implementation LTHeir
@end

/// Of the host.
@interface LTHostOpen : NSObject
- (long)sides;
@end

@interface LTHostOpen (LTMore)
- (long)corners;
@end

@implementation LTHostOpen (LTMore)
- (long)sides {
    return 5;
}
- (long)corners {
    return [self sides];
}
+ (long)kinds {
    return 70;
}
@end

@implementation LTMissing (LTLost)
- (long)lost {
    return 0;
}
@end

id category_make_heir(void) { return [[LTHeir alloc] init]; }
