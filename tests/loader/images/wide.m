// A variable that is aligned to more bytes than the class's first one is, right below NSObject. There the
// compiler itself counts on where variables are.
#import "root.h"

typedef long LTVector __attribute__((vector_size(16)));

@interface LTWide : NSObject {
    int _first;
    LTVector _second;
}
- (long)sum;
@end

@implementation LTWide
- (long)sum {
    _first = 1;
    _second = (LTVector){20, 300};
    return _first + _second[0] + _second[1];
}
@end

id wide_make(void) { return [[LTWide alloc] init]; }
