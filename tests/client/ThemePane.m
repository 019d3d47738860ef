// A settings pane's screen: a theme's preview, and the picker that it presents to change a colour.
#import "huecraft.h"

/// The library's picker with a line of the pane's own, and with ears.
@interface PanePicker : HCColorPickerController
@property(nonatomic, copy) void (^changed)(NSString *hex);
@property(nonatomic, readonly) NSArray *heard;
@property(nonatomic, readonly) NSUInteger shakes;
@end

@implementation PanePicker {
    NSMutableArray *_heard;
    BOOL _complete;
    UILabel *_line;
}

- (instancetype)init {
    if ((self = [super init])) _heard = [NSMutableArray new];
    return self;
}

- (void)viewDidLoad {
    [super viewDidLoad];
    _complete = YES;
}

- (void)addViewsInOrder {
    [super addViewsInOrder];
    self.scrollViewStack.spacing = 10;
    _line = [[UILabel alloc] initWithFrame:CGRectMake(0, 0, 250, 16)];
    _line.text = @"The pane's own line";
    _line.font = [UIFont systemFontOfSize:12];
    [self.scrollViewStack addArrangedSubview:_line];
}

- (void)updateToColor:(UIColor *)color {
    [super updateToColor:color];
    NSString *hex = self.hexTextField.text;
    [_heard addObject:hex];
    _line.textColor = color;
    if (_complete && _changed) _changed(hex);
}

- (void)shakeWrong {
    _shakes++;
    [super shakeWrong];
}

- (NSArray *)heard {
    return _heard;
}

/// Icons asked for again and again, without letting go of one that is not the pane's.
- (UIImage *)iconAfter:(NSUInteger)times {
    UIImage *icon = nil;
    for (NSUInteger i = 0; i < times; ++i) icon = [self copyImage];
    return icon;
}

@end

@interface PaneThemeController : UIViewController <HCColorPickerDelegate>
@property(nonatomic, strong) HuecraftConfig *theme;
@property(nonatomic, weak, readonly) PanePicker *picker;
@property(nonatomic, copy, readonly) NSString *chosen, *lastChange;
@property(nonatomic, readonly) BOOL presented;
@end

@implementation PaneThemeController {
    __weak UIView *_preview;
}

- (void)viewDidLoad {
    [super viewDidLoad];
    self.view.backgroundColor = [UIColor whiteColor];
    [self showPreview];
}

- (void)showPreview {
    [_preview removeFromSuperview];
    UIView *preview = [[HCPreview sharedInstance] viewForConfig:self.theme];
    const CGSize size = [HCPreview keyboardPortraitSize];
    preview.frame = CGRectMake(0, 100, size.width, size.height);
    [self.view addSubview:preview];
    _preview = preview;
}

/// The preview is the process's, and is needed elsewhere.
- (void)leavePreview {
    [[HCPreview sharedInstance] cleanup];
}

/// The picker belongs to its screen; the block that it calls must not keep the pane.
- (void)editTextColour {
    PanePicker *picker = [PanePicker new];
    picker.delegate = self;
    picker.lightUI = NO;
    picker.modalPresentationStyle = UIModalPresentationOverFullScreen;
    __weak PaneThemeController *pane = self;
    picker.changed = ^(NSString *hex) {
      [pane noteChange:hex];
    };
    _picker = picker;
    [self presentViewController:picker
                       animated:YES
                     completion:^{
                       [pane notePresented];
                       [pane.picker setInitialColor:[pane.theme getTextColor]];
                     }];
}

- (void)noteChange:(NSString *)hex {
    _lastChange = [hex copy];
}

- (void)notePresented {
    _presented = YES;
}

- (void)colorPickerReturnedWithColor:(UIColor *)color andHexString:(NSString *)hex {
    _chosen = [hex copy];
    [self.theme setTextColor:color];
    [self showPreview];
}

@end

/// Conforms, and leaves out the method, which is optional.
@interface PaneSilentDelegate : NSObject <HCColorPickerDelegate>
@end

@implementation PaneSilentDelegate
@end
