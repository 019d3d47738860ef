// Variables that start at an odd place as compiled. Where another superclass makes them start elsewhere, they
// cannot keep their distances.
#import "root.h"

/// Of the host, which has given it other variables since.
@interface LTHostOdd : NSObject {
    char _bytes[9];
}
@end

@interface LTUnaligned : LTHostOdd {
    char _first;
    long _second;
}
@end

@implementation LTUnaligned
@end
