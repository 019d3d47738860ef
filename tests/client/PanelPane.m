// A settings pane's panel: the library's card with the pane's own content, colours and answers.
#import "huecraft.h"

/// A card in the pane's colours: it repaints itself in the step that the library calls by message.
@interface PanePanel : HCModalView
@property(nonatomic, readonly) NSUInteger paints;
@end

@implementation PanePanel

- (void)applyColor {
    _paints++;
    self.primaryColor = [HCCITool colorFromHexString:@"FFF4E0"];
    self.secondaryColor = [HCCITool colorFromHexString:@"803010"];
    self.secondaryTextColor = self.primaryColor;
    [super applyColor];
}

@end

@interface PanePanelOwner : NSObject <HCModalDelegate>
@property(nonatomic, readonly) NSUInteger closed, selected;
@property(nonatomic, strong, readonly) PanePanel *panel;
@end

@implementation PanePanelOwner

- (instancetype)init {
    if ((self = [super init])) {
        HCModalOptions *options = [[HCModalOptions alloc] initWithModalFrame:CGRectMake(20, 111, 335, 445)
                                                                cornerRadius:24
                                                                    delegate:self
                                                                   isLightUI:YES
                                                        selectTitleForButton:@"APPLY"];
        _panel = [[PanePanel alloc] initWithFrame:CGRectMake(0, 0, 375, 667) modalOptions:options];
        UILabel *label = [[UILabel alloc] initWithFrame:_panel.contentView.bounds];
        label.autoresizingMask = UIViewAutoresizingFlexibleSize;
        label.text = @"Apply this theme?";
        label.textAlignment = NSTextAlignmentCenter;
        label.textColor = _panel.secondaryColor;
        [_panel.contentView addSubview:label];
    }
    return self;
}

- (void)closeButtonPressed {
    _closed++;
}

- (void)selectButtonPressed {
    _selected++;
}

@end
