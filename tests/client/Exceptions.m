// Exceptions across the border: the library's are caught here, and the pane's own pass through the library.
#import "huecraft.h"

/// Not marked as an exception, so that the compiler writes its type here.
@interface PaneRefusal : NSObject
@property(nonatomic, copy) NSString *why;
@end

@implementation PaneRefusal
@end

@interface PaneException : NSException
@end

@implementation PaneException
@end

/// A delegate that refuses what it receives.
@interface PaneThrowingDelegate : NSObject <HCColorPickerDelegate>
@property(nonatomic, strong) id thrown;
@end

@implementation PaneThrowingDelegate
- (void)colorPickerReturnedWithColor:(UIColor *)color andHexString:(NSString *)hex {
    (void)color;
    (void)hex;
    @throw self.thrown;
}
@end

@interface PaneExceptions : NSObject
@property(nonatomic, readonly) NSUInteger finallys;
@end

@implementation PaneExceptions {
    __weak PaneRefusal *_held;
}

/// A slider without a channel must not be given a colour.
- (void)colourASliderWithoutAChannel {
    HCColorSlider *slider = [[HCColorSlider alloc] initWithFrame:CGRectMake(0, 0, 100, 20) withType:0];
    [slider minMaxOfColor:[UIColor whiteColor]];
}

- (NSString *)nameOfTheLibrarys {
    @try {
        [self colourASliderWithoutAChannel];
    } @catch (NSException *exception) {
        return exception.name;
    }
    return @"none";
}

- (NSString *)nameOfConfirming:(HCColorPickerController *)picker {
    @try {
        [picker selectButtonPressed];
    } @catch (NSException *exception) {
        return exception.name;
    }
    return @"none";
}

/// Which handler an object comes to, on its way from a delegate through the library.
- (NSString *)handlerOf:(id)thrown {
    HCColorPickerController *picker = [HCColorPickerController new];
    PaneThrowingDelegate *delegate = [PaneThrowingDelegate new];
    delegate.thrown = thrown;
    picker.delegate = delegate;
    (void)picker.view;
    @try {
        [picker selectButtonPressed];
    } @catch (PaneRefusal *refusal) {
        return refusal.why;
    } @catch (PaneException *) {
        return @"PaneException";
    } @catch (NSException *) {
        return @"NSException";
    } @catch (id) {
        return @"id";
    }
    return @"none";
}

- (NSString *)handlerOfARefusal {
    PaneRefusal *refusal = [PaneRefusal new];
    refusal.why = @"not today";
    return [self handlerOf:refusal];
}

- (NSString *)handlerOfAnOwnException {
    return [self handlerOf:[[PaneException alloc] initWithName:@"Own" reason:nil userInfo:nil]];
}

/// Caught by no handler here, only passed on by @finally.
- (void)passOn {
    @try {
        [self colourASliderWithoutAChannel];
    } @catch (PaneRefusal *) {
        _finallys += 100;
    } @finally {
        _finallys++;
    }
}

/// What the block throws may be of another language.
- (void)passOnFrom:(void (^)(int))block {
    @try {
        block(0);
    } @finally {
        _finallys++;
    }
}

- (BOOL)swallowsAllFrom:(void (^)(int))block {
    @try {
        block(0);
    } @catch (...) {
        return YES;
    }
    return NO;
}

/// Caught, thrown again, caught again further out, while another one comes and goes.
- (NSString *)throwAgain {
    @try {
        @try {
            [self colourASliderWithoutAChannel];
        } @catch (NSException *) {
            if (![[self handlerOfARefusal] length]) return @"the one between was lost";
            @throw;
        }
    } @catch (NSException *exception) {
        return exception.name;
    }
    return @"none";
}

/// A frame without a handler, which holds an object while an exception passes.
- (void)colourWhileHolding {
    PaneRefusal *held = [PaneRefusal new];
    _held = held;
    [self colourASliderWithoutAChannel];
    held.why = @"still here";
}

- (BOOL)framesAreCleanedUp {
    @autoreleasepool {
        @try {
            [self colourWhileHolding];
        } @catch (NSException *) {
        }
    }
    return _held == nil;
}

@end
