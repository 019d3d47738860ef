// A class whose name the host has taken.
#import "root.h"

@interface LTClash : NSObject
@end

@implementation LTClash
@end
