// A category with a +load method, which the loader has to refuse.
#import "root.h"

@implementation NSObject (LTLoadedCategory)
+ (void)load {
}
@end
