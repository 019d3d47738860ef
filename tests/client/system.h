// What the client uses of the system. There is no vendor's SDK here, so it says so itself.
#pragma once
#include <stdbool.h>
#include <stddef.h>

typedef bool BOOL;
typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double CGFloat;

// Macros in an SDK.
static const BOOL YES = true, NO = false;
static const id nil = 0;

typedef struct {
    CGFloat x, y;
} CGPoint;
typedef struct {
    CGFloat width, height;
} CGSize;
typedef struct {
    CGPoint origin;
    CGSize size;
} CGRect;
typedef struct CGColor *CGColorRef;

static inline CGSize CGSizeMake(CGFloat width, CGFloat height) { return (CGSize){width, height}; }
static inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return (CGRect){{x, y}, {width, height}};
}

@class NSArray, NSDictionary, NSError, NSString, UIView, UIWindow;

// ---- Foundation

@protocol NSObject
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (instancetype)alloc;
+ (instancetype)new;
+ (Class)class;
- (instancetype)init;
- (id)copy;
- (BOOL)isKindOfClass:(Class)type;
- (BOOL)conformsToProtocol:(id)protocol;
@end

typedef struct {
    unsigned long state;
    id __unsafe_unretained *itemsPtr;
    unsigned long *mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id __unsafe_unretained[])objects
                                    count:(NSUInteger)count;
@end

@protocol NSCopying
@end

@interface NSString : NSObject <NSCopying>
- (NSUInteger)length;
- (NSString *)stringByAppendingString:(NSString *)more;
@end

@interface NSNumber : NSObject
+ (NSNumber *)numberWithBool:(BOOL)value;
+ (NSNumber *)numberWithDouble:(double)value;
+ (NSNumber *)numberWithInt:(int)value;
+ (NSNumber *)numberWithUnsignedInteger:(NSUInteger)value;
+ (NSNumber *)numberWithUnsignedLong:(unsigned long)value;
- (NSUInteger)unsignedIntegerValue;
@end

@interface NSArray : NSObject <NSFastEnumeration>
+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)count;
- (NSUInteger)count;
- (id)objectAtIndex:(NSUInteger)index;
- (id)objectAtIndexedSubscript:(NSUInteger)index;
- (void)enumerateObjectsUsingBlock:(void (^)(id object, NSUInteger index, BOOL *stop))block;
@end

@interface NSMutableArray : NSArray
- (void)addObject:(id)object;
@end

@interface NSDictionary : NSObject
+ (instancetype)dictionaryWithObjects:(const id[])objects
                              forKeys:(const id<NSCopying>[])keys
                                count:(NSUInteger)count;
- (id)objectForKeyedSubscript:(id)key;
@end

@interface NSError : NSObject
@property(nonatomic, readonly) NSString *domain;
@end

__attribute__((objc_exception))
@interface NSException : NSObject
+ (NSException *)exceptionWithName:(NSString *)name reason:(NSString *)reason userInfo:(NSDictionary *)info;
- (instancetype)initWithName:(NSString *)name reason:(NSString *)reason userInfo:(NSDictionary *)info;
@property(nonatomic, readonly) NSString *name;
@property(nonatomic, readonly) NSString *reason;
@end

// ---- QuartzCore

@interface CALayer : NSObject
+ (instancetype)layer;
- (void)addSublayer:(CALayer *)layer;
@property CGRect frame;
@end

@interface CAGradientLayer : CALayer
@property(copy) NSArray *colors;
@property CGPoint startPoint, endPoint;
@end

// ---- UIKit

@interface UIColor : NSObject
+ (UIColor *)colorWithRed:(CGFloat)red green:(CGFloat)green blue:(CGFloat)blue alpha:(CGFloat)alpha;
+ (UIColor *)whiteColor;
+ (UIColor *)blackColor;
- (UIColor *)colorWithAlphaComponent:(CGFloat)alpha;
@property(nonatomic, readonly) CGColorRef CGColor __attribute__((objc_returns_inner_pointer));
@end

@interface UIImage : NSObject
@property(nonatomic, readonly) CGSize size;
@end

@interface UIFont : NSObject
+ (UIFont *)systemFontOfSize:(CGFloat)size;
@end

@interface UIResponder : NSObject
@end

@interface UIView : UIResponder
- (instancetype)initWithFrame:(CGRect)frame;
@property(nonatomic) CGRect frame, bounds;
@property(nonatomic) CGPoint center;
@property(nonatomic) CGFloat alpha;
@property(nonatomic) NSUInteger autoresizingMask;
@property(nonatomic, copy) UIColor *backgroundColor;
@property(nonatomic, readonly) CALayer *layer;
@property(nonatomic, readonly) NSArray *subviews;
@property(nonatomic, readonly) UIView *superview;
- (void)addSubview:(UIView *)view;
- (void)removeFromSuperview;
@end

@interface UILabel : UIView
@property(nonatomic, copy) NSString *text;
@property(nonatomic, strong) UIColor *textColor;
@property(nonatomic, strong) UIFont *font;
@property(nonatomic) NSInteger textAlignment;
@end

@interface UIStackView : UIView
@property(nonatomic) CGFloat spacing;
- (void)addArrangedSubview:(UIView *)view;
@end

@interface UITextField : UIView
@property(nonatomic, copy) NSString *text;
@end

@interface UIViewController : UIResponder
@property(nonatomic, strong) UIView *view;
@property(nonatomic) NSInteger modalPresentationStyle;
@property(nonatomic, readonly) UIViewController *presentedViewController;
- (void)viewDidLoad;
- (void)presentViewController:(UIViewController *)controller
                     animated:(BOOL)animated
                   completion:(void (^)(void))completion;
- (void)dismissViewControllerAnimated:(BOOL)animated completion:(void (^)(void))completion;
@end

enum {
    UIModalPresentationOverFullScreen = 5,
    UIViewAutoresizingFlexibleSize = 18,
    NSTextAlignmentCenter = 1
};
