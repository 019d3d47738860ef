// A settings pane's backgrounds: the library's views in a row, and a gradient of the pane's own between
// exported points.
#import "huecraft.h"

@interface PaneBackgrounds : UIView
@property(nonatomic, readonly) HCColourView *colour;
@property(nonatomic, readonly) HCGradientView *gradient;
@property(nonatomic, readonly) HCImageView *image;
@property(nonatomic, readonly) CAGradientLayer *own;
@end

@implementation PaneBackgrounds

- (instancetype)initWithFrame:(CGRect)frame {
    if (!(self = [super initWithFrame:frame])) return nil;
    UIColor *red = [HCCITool colorFromHexString:@"#E04030"], *blue = [HCCITool colorFromHexString:@"#3050E0"];
    UIImage *picture = [HCCITool imageFromColor:blue withSize:CGSizeMake(8, 8)];
    _colour = [[HCColourView alloc] initWithColor:red];
    _gradient = [[HCGradientView alloc] initWithColors:@[ red, blue ] direction:4];
    _image = [[HCImageView alloc] initWithImage:picture alpha:1];
    NSArray *views = @[ _colour, _gradient, _image ];
    for (NSUInteger i = 0; i < views.count; ++i) [[self roomAt:i] addSubview:views[i]];

    _own = [CAGradientLayer layer];
    _own.frame = [self frameAt:3];
    _own.colors = @[ (__bridge id)red.CGColor, (__bridge id)blue.CGColor ];
    _own.startPoint = kGradientTopLeft;
    _own.endPoint = kHCGradientBottomRight;
    [self.layer addSublayer:_own];
    return self;
}

- (CGRect)frameAt:(NSUInteger)index {
    return CGRectMake(10 + 90 * (CGFloat)index, 10, 80, 80);
}

/// The library's views fill what they are in.
- (UIView *)roomAt:(NSUInteger)index {
    UIView *room = [[UIView alloc] initWithFrame:[self frameAt:index]];
    [self addSubview:room];
    return room;
}

- (void)setTranslucent:(BOOL)translucent {
    const CGFloat alpha = translucent ? 0.5 : 1;
    [_colour setColor:[_colour.backgroundColor colorWithAlphaComponent:alpha]];
    [_image setImageAlpha:alpha];
}

@end

/// All of the exported points, those without the prefix first: left, top, right, bottom, then the corners.
__attribute__((visibility("default"))) void pane_read_points(CGPoint points[16]) {
    const CGPoint all[16] = {
        kGradientLeft,      kGradientTop,        kGradientRight,        kGradientBottom,
        kGradientTopLeft,   kGradientTopRight,   kGradientBottomLeft,   kGradientBottomRight,
        kHCGradientLeft,    kHCGradientTop,      kHCGradientRight,      kHCGradientBottom,
        kHCGradientTopLeft, kHCGradientTopRight, kHCGradientBottomLeft, kHCGradientBottomRight,
    };
    for (int i = 0; i < 16; ++i) points[i] = all[i];
}
