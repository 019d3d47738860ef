// The pasteboard: a text or an image.
#include "objc/class.h"
#include "platform/controls.h"

namespace {

using objc::strong;

struct Pasteboard : objc::Implements<Pasteboard, UIPasteboard> {
    struct Ivars {
        strong<NSString> string;
        strong<UIImage> image;
        NSInteger changeCount = 0;
    };

    static UIPasteboard* generalPasteboard(Class) {
        static UIPasteboard* const general = UIPasteboard::class_send<"new", UIPasteboard*>();
        return general;
    }

    NSString* string() { return ivars().string; }
    void setString(NSString* string) {
        hold(strong<NSString>::adopt(string->send<"copy", NSString*>()), nullptr);
    }
    UIImage* image() { return ivars().image; }
    void setImage(UIImage* image) { hold(nullptr, image); }
    bool hasStrings() { return ivars().string != nullptr; }
    bool hasImages() { return ivars().image != nullptr; }

  private:
    void hold(strong<NSString> string, strong<UIImage> image) {
        ivars().string = std::move(string);
        ivars().image = std::move(image);
        ++ivars().changeCount;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIPasteboard, NSObject, Pasteboard,
           class_method<"generalPasteboard", &Pasteboard::generalPasteboard>,
           ivar<"_string", &Pasteboard::Ivars::string>,
           ivar<"_image", &Pasteboard::Ivars::image>,
           property<"changeCount", &Pasteboard::Ivars::changeCount>,
           method<"string", &Pasteboard::string>,
           method<"setString:", &Pasteboard::setString>,
           method<"image", &Pasteboard::image>,
           method<"setImage:", &Pasteboard::setImage>,
           method<"hasStrings", &Pasteboard::hasStrings>,
           method<"hasImages", &Pasteboard::hasImages>)
