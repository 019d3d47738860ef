// Two variables, for a look at the slots that hold their offsets.
#import "root.h"

@interface LTWidths : NSObject {
    long _first;
    long _second;
}
@end

@implementation LTWidths
@end
