// What the client knows of the library: written from docs/contract.md alone, as someone would who has the
// page and the dylib. Nothing of library/ is included here, so that both can be wrong together only where the
// page is. What is declared is in use.
#pragma once
#include "system.h"

// ---- Themes

@interface HuecraftConfig : NSObject
+ (HuecraftConfig *)configWithFilename:(NSString *)file;
- (instancetype)initWithFilename:(NSString *)file error:(NSError **)error;
- (instancetype)initWithTextColor:(UIColor *)text
                   backgroundType:(NSUInteger)type
                           colors:(NSArray *)colors
                gradientDirection:(NSUInteger)direction
                            image:(UIImage *)image
                   highlightColor:(UIColor *)highlight;
- (BOOL)saveConfiguration:(NSError **)error;
- (NSUInteger)getBackgroundType;
- (NSArray *)getColors;
- (NSString *)getConfigName;
- (NSUInteger)getGradientDirection;
- (UIColor *)getHighlightColor;
- (UIImage *)getImage;
- (double)getImageAlpha;
- (UIColor *)getTextColor;
- (BOOL)getVisibleKeycaps;
- (void)setBackgroundType:(NSUInteger)type;
- (void)setColors:(NSArray *)colors;
- (void)setConfigName:(NSString *)name;
- (void)setGradientDirection:(NSUInteger)direction;
- (void)setHighlightColor:(UIColor *)color;
- (void)setImageAlpha:(double)alpha;
- (void)setImageData:(UIImage *)image;
- (void)setTextColor:(UIColor *)color;
- (void)setVisibleKeycaps:(BOOL)visible;
@end

@interface HCCITool : NSObject
+ (NSString *)hexStringFromColor:(UIColor *)color;
+ (UIColor *)colorFromHexString:(NSString *)hex;
+ (UIImage *)imageFromColor:(UIColor *)color withSize:(CGSize)size;
+ (UIImage *)newColor:(UIColor *)color forImage:(UIImage *)image;
+ (UIImage *)newScale:(CGSize)size forImage:(UIImage *)image;
@end

// ---- Previews and backgrounds

@interface HCPreview : NSObject
+ (CGSize)keyboardPortraitSize;
+ (HCPreview *)sharedInstance;
- (UIView *)viewForConfig:(HuecraftConfig *)theme;
- (void)cleanup;
@end

@interface HCView : UIView
@end

@interface HCColourView : HCView
- (instancetype)initWithColor:(UIColor *)color;
- (void)setColor:(UIColor *)color;
@end

@interface HCGradientView : HCView
- (instancetype)initWithColors:(NSArray *)colors direction:(NSInteger)direction;
@end

@interface HCImageView : HCView
- (instancetype)initWithImage:(UIImage *)image alpha:(CGFloat)alpha;
- (void)setImageAlpha:(CGFloat)alpha;
@end

extern const CGPoint kGradientBottom, kGradientBottomLeft, kGradientBottomRight, kGradientLeft,
    kGradientRight, kGradientTop, kGradientTopLeft, kGradientTopRight;
extern const CGPoint kHCGradientBottom, kHCGradientBottomLeft, kHCGradientBottomRight, kHCGradientLeft,
    kHCGradientRight, kHCGradientTop, kHCGradientTopLeft, kHCGradientTopRight;

// ---- The panel and the picker

@protocol HCModalDelegate
- (void)closeButtonPressed;
- (void)selectButtonPressed;
@end

@interface HCModalOptions : NSObject
- (instancetype)initWithModalFrame:(CGRect)frame
                      cornerRadius:(CGFloat)radius
                          delegate:(id<HCModalDelegate>)delegate
                         isLightUI:(BOOL)light
              selectTitleForButton:(NSString *)title;
@end

@interface HCModalView : UIView
- (instancetype)initWithFrame:(CGRect)frame modalOptions:(HCModalOptions *)options;
- (void)applyColor;
@property(nonatomic, strong) UIView *contentView;
@property(nonatomic, strong) UIColor *primaryColor, *secondaryColor, *secondaryTextColor;
@end

@interface HCColorSlider : UIView
- (instancetype)initWithFrame:(CGRect)frame withType:(NSUInteger)type;
- (void)minMaxOfColor:(UIColor *)color;
@end

@protocol HCColorPickerDelegate
@optional
- (void)colorPickerReturnedWithColor:(UIColor *)color andHexString:(NSString *)hex;
@end

@interface HCColorPickerController : UIViewController <HCModalDelegate>
@property(nonatomic, weak) id<HCColorPickerDelegate> delegate;
@property(nonatomic) BOOL lightUI;
@property(nonatomic, strong) UIStackView *scrollViewStack;
@property(nonatomic, strong) UITextField *hexTextField;
- (void)setInitialColor:(UIColor *)color;
- (void)updateToColor:(UIColor *)color;
- (void)addViewsInOrder;
- (void)shakeWrong;
// Named as if it handed the icon over, which it does not. A compiler that counts references has to know,
// or lets go of an icon that is not the caller's.
- (UIImage *)copyImage __attribute__((ns_returns_not_retained));
@end
