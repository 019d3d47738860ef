// A category, which the loader has to refuse.
#import "root.h"

@interface NSObject (LTCategory)
- (long)categorical;
@end

@implementation NSObject (LTCategory)
- (long)categorical {
    return 1;
}
@end
