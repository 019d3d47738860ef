// A class that is used after its image's object is gone.
#import "root.h"

@interface LTLasting : NSObject
+ (long)answer;
@end

@implementation LTLasting
+ (long)answer {
    return 42;
}
@end
