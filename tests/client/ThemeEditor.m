// A settings pane's editor of themes, in Objective-C as panes are written: the one language here that calls
// the library as others do, through what their compiler makes of the contract. With automatic reference
// counting, as theirs is.
#import "huecraft.h"

/// A category of a class of the system, as panes have them.
@interface UIColor (Pane)
@property(nonatomic, readonly) NSString *paneText;
+ (UIColor *)paneColor:(NSString *)text;
@end

@implementation UIColor (Pane)
- (NSString *)paneText {
    return [HCCITool hexStringFromColor:self];
}
+ (UIColor *)paneColor:(NSString *)text {
    return [HCCITool colorFromHexString:text];
}
@end

@interface PaneThemeEditor : NSObject
@end

@implementation PaneThemeEditor

/// A theme made by the initialiser, and every key of it set afterwards.
- (HuecraftConfig *)themeNamed:(NSString *)name image:(UIImage *)image {
    HuecraftConfig *theme = [[HuecraftConfig alloc] initWithTextColor:[UIColor whiteColor]
                                                       backgroundType:1
                                                               colors:@[ [UIColor blackColor] ]
                                                    gradientDirection:1
                                                                image:nil
                                                       highlightColor:[UIColor whiteColor]];
    [theme setConfigName:name];
    [theme setTextColor:[UIColor paneColor:@"#102030"]];
    [theme setHighlightColor:[UIColor paneColor:@"#40506070"]];
    [theme setBackgroundType:2];
    NSMutableArray *colours = [NSMutableArray new];
    for (NSString *text in @[ @"#FF0000", @"#00FF0080", @"#0000FF" ])
        [colours addObject:[UIColor paneColor:text]];
    [theme setColors:colours];
    [theme setGradientDirection:6];
    [theme setImageData:image];
    [theme setImageAlpha:0.5];
    [theme setVisibleKeycaps:YES];
    return theme;
}

/// What the getters say, in literals.
- (NSDictionary *)settingsOf:(HuecraftConfig *)theme {
    __block NSString *colours = @"";
    [[theme getColors] enumerateObjectsUsingBlock:^(UIColor *colour, NSUInteger index, BOOL *stop) {
      (void)stop;
      if (index) colours = [colours stringByAppendingString:@" "];
      colours = [colours stringByAppendingString:colour.paneText];
    }];
    return @{
        @"name" : [theme getConfigName],
        @"text" : [theme getTextColor].paneText,
        @"highlight" : [theme getHighlightColor].paneText,
        @"type" : @([theme getBackgroundType]),
        @"colours" : colours,
        @"direction" : @([theme getGradientDirection]),
        @"width" : @([theme getImage].size.width),
        @"alpha" : @([theme getImageAlpha]),
        @"caps" : @([theme getVisibleKeycaps]),
    };
}

- (NSError *)errorOfSaving:(HuecraftConfig *)theme {
    NSError *error = nil;
    return [theme saveConfiguration:&error] ? nil : error;
}

- (NSError *)errorOfLoading:(NSString *)file {
    NSError *error = nil;
    HuecraftConfig *theme = [[HuecraftConfig alloc] initWithFilename:file error:&error];
    return theme ? nil : error;
}

- (HuecraftConfig *)themeInFile:(NSString *)file {
    return [HuecraftConfig configWithFilename:file];
}

/// Whether the images whose makers' names begin with "new" are the caller's, and go with it.
- (BOOL)newImagesAreTheCallers:(UIImage *)image {
    __weak UIImage *scaled = nil;
    __weak UIImage *tinted = nil;
    BOOL were_there = NO;
    @autoreleasepool {
        UIImage *large = [HCCITool newScale:CGSizeMake(30, 20) forImage:image];
        UIImage *red = [HCCITool newColor:[UIColor paneColor:@"FF0000"] forImage:large];
        scaled = large;
        tinted = red;
        were_there = large.size.width == 30 && red.size.width == 30;
    }
    return were_there && scaled == nil && tinted == nil;
}

/// Whether a theme is there as long as someone holds it, and no longer.
- (BOOL)themesGoWithTheirOwners {
    __weak HuecraftConfig *seen = nil;
    BOOL was_there = NO;
    @autoreleasepool {
        HuecraftConfig *theme = [self themeNamed:@"Short" image:nil];
        seen = theme;
        was_there = seen == theme;
    }
    return was_there && seen == nil;
}

@end
