// A class with a +load method, which the loader has to refuse.
#import "root.h"

@interface LTLoaded : NSObject
@end

@implementation LTLoaded
+ (void)load {
}
@end
