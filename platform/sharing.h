// UIKit's controllers that hand something to other applications, or fetch it from them.
#pragma once
#include "platform/navigation.h"

/// From where a popover points. On an iPad a controller that is shown as one needs a source, or raises.
struct UIPopoverPresentationController
    : objc::Interface<UIPopoverPresentationController, "UIPopoverPresentationController", NSObject> {
    UIView* sourceView() { return send<"sourceView", UIView*>(); }
    void setSourceView(UIView* view) { send<"setSourceView:">(view); }
    CGRect sourceRect() { return send<"sourceRect", CGRect>(); }
    /// In the source view's coordinates.
    void setSourceRect(CGRect rect) { send<"setSourceRect:">(rect); }
    UIBarButtonItem* barButtonItem() { return send<"barButtonItem", UIBarButtonItem*>(); }
    void setBarButtonItem(UIBarButtonItem* item) { send<"setBarButtonItem:">(item); }
};

struct UIActivityViewController
    : objc::Interface<UIActivityViewController, "UIActivityViewController", UIViewController> {
    /// Strings, file URLs, images. `activities` of one's own, or nil.
    objc::strong<UIActivityViewController> initWithActivityItems(NSArray* items, NSArray* activities) {
        return send<"initWithActivityItems:applicationActivities:", objc::strong<UIActivityViewController>>(
            items, activities);
    }
    /// A block that gets the kind of activity (NSString*, nil when none was chosen), whether it was done
    /// (bool), what it returned (NSArray*) and an NSError*.
    id completionWithItemsHandler() { return send<"completionWithItemsHandler", id>(); }
    void setCompletionWithItemsHandler(id handler) { send<"setCompletionWithItemsHandler:">(handler); }
    NSArray* excludedActivityTypes() { return send<"excludedActivityTypes", NSArray*>(); }
    void setExcludedActivityTypes(NSArray* types) { send<"setExcludedActivityTypes:">(types); }
};

using UIImagePickerControllerSourceType = NSInteger;
constexpr UIImagePickerControllerSourceType UIImagePickerControllerSourceTypePhotoLibrary = 0;
constexpr UIImagePickerControllerSourceType UIImagePickerControllerSourceTypeCamera = 1;
constexpr UIImagePickerControllerSourceType UIImagePickerControllerSourceTypeSavedPhotosAlbum = 2;

/// Its delegate dismisses it, whatever was chosen.
struct UIImagePickerController
    : objc::Interface<UIImagePickerController, "UIImagePickerController", UINavigationController> {
    static bool isSourceTypeAvailable(UIImagePickerControllerSourceType type) {
        return class_send<"isSourceTypeAvailable:", bool>(type);
    }
    UIImagePickerControllerSourceType sourceType() {
        return send<"sourceType", UIImagePickerControllerSourceType>();
    }
    /// Raises NSInvalidArgumentException for one that is not available.
    void setSourceType(UIImagePickerControllerSourceType type) { send<"setSourceType:">(type); }
    /// Uniform type identifiers: at first "public.image" alone.
    NSArray* mediaTypes() { return send<"mediaTypes", NSArray*>(); }
    void setMediaTypes(NSArray* types) { send<"setMediaTypes:">(types); }
    bool allowsEditing() { return send<"allowsEditing", bool>(); }
    void setAllowsEditing(bool allows) { send<"setAllowsEditing:">(allows); }
};

/// Both optional.
struct UIImagePickerControllerDelegate : objc::ProtocolInterface<"UIImagePickerControllerDelegate"> {
    void didFinishPicking(UIImagePickerController* picker, NSDictionary* info) {
        send<"imagePickerController:didFinishPickingMediaWithInfo:">(picker, info);
    }
    void didCancel(UIImagePickerController* picker) { send<"imagePickerControllerDidCancel:">(picker); }
};

extern "C" {
/// The keys of what was picked: a UIImage, a uniform type identifier, a file's URL.
extern NSString* const UIImagePickerControllerOriginalImage;
extern NSString* const UIImagePickerControllerMediaType;
extern NSString* const UIImagePickerControllerImageURL;
}
