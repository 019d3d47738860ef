#include "settings/clipboard_icons.h"

namespace settings {
namespace {

using namespace objc::literals;

UIImage* load(NSString* path, NSString* name) {
    NSData* bytes = NSData::dataWithContentsOfFile(path);
    UIImage* image = bytes ? UIImage::imageWithData(bytes) : UIImage::imageNamed(name);
    return image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

}  // namespace

UIImage* copy_icon() {
    static constinit objc::lasting<UIImage> icon;
    if (!icon) icon = load("/Library/PreferenceBundles/Huecraft.bundle/copy.png"_ns, "copy"_ns);
    return icon;
}

UIImage* paste_icon() {
    static constinit objc::lasting<UIImage> icon;
    if (!icon) icon = load("/Library/PreferenceBundles/Huecraft.bundle/paste.png"_ns, "paste"_ns);
    return icon;
}

}  // namespace settings
