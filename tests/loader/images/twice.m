// Two of everything, for tests that give both the same name.
#import "root.h"

@interface LTTwice : NSObject {
    long _first;
    long _second;
}
- (long)first;
- (long)second;
@end

@interface LTTwin : NSObject
@end

@implementation LTTwice
- (long)first {
    return _first;
}
- (long)second {
    return _second;
}
@end

@implementation LTTwin
@end
