// A class without a superclass, which the loader has to refuse.
__attribute__((objc_root_class))
@interface LTRoot {
    Class isa;
}
@end

@implementation LTRoot
@end
