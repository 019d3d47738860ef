// Classes of all sorts; a subclass comes before its superclass.
#import "root.h"

@protocol LTNamed
- (const char*)name;
@end

@protocol LTDrawing <LTNamed>
- (long)draw;
@optional
- (void)draw:(LTHostShape*)shape twice:(BOOL)twice;
+ (void)forget;
@end

@interface LTBase : LTHostShape <LTDrawing> {
  @public
    char _small;
    double _wide;
    int _tag;  // the host's LTHostShape has one, too
    id _other;
}
@property(nonatomic, readonly) id other;
+ (long)shared;
@end

@interface LTDerived : LTBase {
  @public
    short _more;
    long _last;
}
@end

@interface LTBackdrop : LTMissing
@end

@interface LTDeepBackdrop : LTBackdrop
@end

@implementation LTDerived
- (long)draw {
    return [super draw] + 1;
}
- (long)sides {
    return [super sides] * 100;
}
- (long)lastOfAll {
    _last = 8;
    _more = 4;
    return _last + _more;
}
+ (long)kinds {
    return [super kinds] + 10;
}
@end

@implementation LTBase
- (const char*)name {
    return "base";
}
- (long)draw {
    return 1000;
}
- (id)other {
    return _other;
}
- (long)sumOfVariables {
    _small = 1;
    _wide = 20;
    _tag = 300;
    return _small + (long)_wide + _tag;
}
+ (long)shared {
    return 42;
}
@end

@implementation LTDeepBackdrop
@end

@implementation LTBackdrop
- (long)draw {
    return 0;
}
@end

id classes_make_derived(void) { return [[LTDerived alloc] init]; }
long classes_draw(id object) { return [object draw]; }
Class classes_derived_class(void) { return [LTDerived class]; }
long classes_kinds(void) { return [LTDerived kinds]; }
Class classes_backdrop(void) { return [LTBackdrop class]; }
SEL classes_selector(void) { return @selector(sumOfVariables); }
id classes_protocol(void) { return (id) @protocol(LTDrawing); }

// As C++ code reaches variables: all of them from the first one's offset.
#if __arm64__
typedef int Offset;
#else
typedef long Offset;
#endif
extern Offset base_small_offset __asm("_OBJC_IVAR_$_LTBase._small");
void* classes_block(id object) { return (char*)(__bridge void*)object + base_small_offset; }
